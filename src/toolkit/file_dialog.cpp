#include "toolkit/file_dialog.h"

#include <algorithm>

#include <QFileDialog>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

/// "CSV (*.csv)" -> ".csv"
QString endingOf(const QString& filter) {
    return filter.section(u'*', 1).section(u')', 0, 0);
}

} // namespace

QString chooseFile(QWidget* parent, const QString& folder, const QString& filter) {
    QFileDialog dialog(parent, u"打开"_s, folder, filter);
    dialog.setObjectName(u"FileDialog"_s);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontUseNativeDialog); // the same on every desktop, and found by its name
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString chooseNewFile(QWidget* parent, const QString& proposed, const QStringList& filters) {
    QFileDialog dialog(parent, u"导出"_s, QFileInfo(proposed).path());
    dialog.setObjectName(u"FileDialog"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // who writes the file asks, in our own words
    dialog.selectFile(QFileInfo(proposed).fileName());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QString file = dialog.selectedFiles().value(0);
    const auto has = [&file](const QString& filter) { return file.endsWith(endingOf(filter), Qt::CaseInsensitive); };
    return std::ranges::any_of(filters, has) ? file : file + endingOf(dialog.selectedNameFilter());
}

} // namespace toolkit
