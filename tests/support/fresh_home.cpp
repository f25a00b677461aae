#include "support/fresh_home.h"

#include <QDir>
#include <QSettings>

namespace test_support {

namespace {

constexpr const char* kVariables[] = {"SSQDESK_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"};

} // namespace

FreshHome::FreshHome() {
    const QString folders[] = {folderName(), configFolder(), m_root.filePath(QStringLiteral("data"))};
    for (std::size_t index = 0; index < std::size(kVariables); ++index) {
        m_before[index] = qgetenv(kVariables[index]);
        QDir().mkpath(folders[index]);
        qputenv(kVariables[index], folders[index].toUtf8());
    }
    for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat})
        QSettings::setPath(format, QSettings::UserScope, configFolder());
}

FreshHome::~FreshHome() {
    for (std::size_t index = 0; index < std::size(kVariables); ++index) {
        if (m_before[index].isEmpty())
            qunsetenv(kVariables[index]);
        else
            qputenv(kVariables[index], m_before[index]);
    }
}

std::filesystem::path FreshHome::folder() const {
    return std::filesystem::path(folderName().toStdString());
}

} // namespace test_support
