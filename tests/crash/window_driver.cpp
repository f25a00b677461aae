// The whole program, used through its windows until it is killed: window_crash_driver FOLDER SEED
//
// FOLDER/home is the program's folder, FOLDER/config holds the settings, FOLDER/texts the texts that are read. What
// it says on its standard output is told in window_user.h.
#include <QApplication>
#include <QLoggingCategory>

#include "crash/say.h"
#include "crash/window_user.h"
#include "support/end_at_failure.h"
#include "toolkit/look.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"

namespace {

void setFolders(const std::filesystem::path& folder) {
    const std::pair<const char*, const char*> folders[] = {{"SSQDESK_HOME", "home"},
                                                           {"XDG_CONFIG_HOME", "config"},
                                                           {"XDG_DATA_HOME", "data"},
                                                           {"XDG_RUNTIME_DIR", "run"}};
    for (const auto& [variable, name] : folders) {
        std::filesystem::create_directories(folder / name);
        qputenv(variable, QByteArray((folder / name).c_str()));
    }
    std::filesystem::permissions(folder / "run", std::filesystem::perms::owner_all); // Qt takes no other
    std::filesystem::create_directories(folder / "texts");
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3)
        return 2;
    const std::filesystem::path folder = arguments[1];
    const auto seed = static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10));
    setFolders(folder);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int none = 1;
    test_support::endAtFirstFailure([](const std::string& what) { crash::say("failed\t" + what); });
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false")); // what the display without a screen lacks
    QApplication application(none, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    toolkit::applyLook(application, toolkit::Scheme::Light);
    try {
        crash::WindowUser user(workspace::programFolder(), folder / "texts", seed);
        for (;;)
            user.step();
    } catch (const std::exception& failed) {
        crash::giveUp(failed.what());
    }
}
