#include "toolkit/file_dialog.h"

#include <QFileDialog>

using namespace Qt::StringLiterals;

namespace toolkit {

QString chooseFile(QWidget* parent, const QString& folder, const QString& filter) {
    QFileDialog dialog(parent, u"打开"_s, folder, filter);
    dialog.setObjectName(u"FileDialog"_s);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontUseNativeDialog); // the same on every desktop, and found by its name
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace toolkit
