#include "history/starter_history.h"

#include <QFile>

#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

/// Resources of a static library have to be asked for, and that outside of any namespace.
static void loadDraws() {
    Q_INIT_RESOURCE(history);
}

namespace history {

void putStarterHistory(const std::filesystem::path& programFolder) {
    loadDraws();
    const std::filesystem::path folder = programFolder / "双色历史号码";
    std::error_code failed;
    if (!std::filesystem::create_directory(folder, failed))
        return;
    QFile draws(u":/history/draws.txt"_s);
    if (draws.open(QIODevice::ReadOnly))
        workspace::writeWholeFile(folder / "双色球历史号码.txt", draws.readAll());
}

} // namespace history
