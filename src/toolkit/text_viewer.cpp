#include "toolkit/text_viewer.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "workspace/setting_names.h"

using namespace Qt::StringLiterals;

namespace toolkit {

bool startEditor(const workspace::Settings& settings, const QString& file) {
    QStringList command =
        QProcess::splitCommand(settings.value(workspace::setting::kProgram, u"Option"_s, u"Editor"_s));
    if (command.isEmpty())
        return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    const QString program = command.takeFirst();
    return QProcess::startDetached(program, command << file);
}

} // namespace toolkit
