#include "prize/windows/reports_window.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "toolkit/dialog_boxes.h"
#include "toolkit/ink_label.h"
#include "toolkit/messages.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace prize {

namespace {

constexpr QSize kUsefulSize{1000, 600};
constexpr int kMargin = 8;
constexpr int kListWidth = 400;
constexpr int kTextWidth = 580;

const QString kDeleteTitle = u"删除清空"_s;

bool confirmed(QWidget* parent, const QString& text) {
    return toolkit::showMessage(parent, {text, kDeleteTitle},
                                {QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No}) ==
           QMessageBox::Yes;
}

} // namespace

ReportsWindow::ReportsWindow(ReportsContext context, const toolkit::PlaceStore& places, QWidget* parent)
    : QDialog(parent), m_context(std::move(context)), m_reports(m_context.userFolder), m_list(new QListWidget),
      m_text(new QPlainTextEdit), m_unlisted(new toolkit::InkLabel(u"Unlisted"_s, &toolkit::Colours::goldText)) {
    setObjectName(u"frmYk"_s);
    setWindowTitle(u"盈亏报告"_s);
    m_list->setObjectName(u"List1"_s);
    m_list->setAccessibleName(u"盈亏报告列表"_s);
    m_text->setObjectName(u"RichTextBox1"_s);
    m_text->setAccessibleName(u"报告内容"_s);
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setPlaceholderText(u"还没有盈亏报告：在中奖查询里按“添加到盈亏报告并返回”写入"_s);
    const auto choose = [this] { show(m_reports.chosen(m_list->currentRow())); };
    connect(m_list, &QListWidget::currentRowChanged, this, choose);
    connect(m_list, &QListWidget::itemClicked, this, choose);
    layOut();
    readReports();
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, places);
}

void ReportsWindow::layOut() {
    auto* heading =
        new toolkit::InkLabel(u"Label1"_s, &toolkit::Colours::quiet,
                              u"请在下面指定查询历史购买彩票的日期和时间(选择察看请在左边选项框内打勾)"_s);
    auto* parts = new QSplitter;
    parts->setObjectName(u"Parts"_s);
    parts->setChildrenCollapsible(false);
    parts->addWidget(m_list);
    parts->addWidget(m_text);
    parts->setSizes({kListWidth, kTextWidth});
    parts->setStretchFactor(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(
        makeButton(u"Command1"_s, u"上一次(&P)"_s, u"显示上次中奖查询产生的盈亏报告"_s, &ReportsWindow::previous));
    buttons->addWidget(
        makeButton(u"Command2"_s, u"下一次(&N)"_s, u"显示下次中奖查询产生的盈亏报告"_s, &ReportsWindow::next));
    QPushButton* print = makeButton(u"Command4"_s, u"打印(&P)"_s, u"通过打印机将该报告打印"_s, &ReportsWindow::print);
    if (!m_context.print) {
        print->setEnabled(false);
        print->setToolTip(u"还需打印功能；报告可以选中后复制"_s);
    }
    buttons->addWidget(print);
    buttons->addStretch();
    const QString hint = u"关闭该窗口"_s;
    buttons->addWidget(makeButton(u"Command6"_s, u"指定删除(&D)"_s, hint, &ReportsWindow::deleteTicked));
    buttons->addWidget(makeButton(u"Command5"_s, u"全部删除(&R)"_s, hint, &ReportsWindow::deleteAll));
    buttons->addWidget(makeButton(u"Command3"_s, u"关闭(&C)"_s, hint, &ReportsWindow::accept));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kMargin);
    column->addWidget(heading);
    column->addWidget(parts, 1);
    column->addWidget(m_unlisted);
    column->addLayout(buttons);
}

QPushButton* ReportsWindow::makeButton(const QString& name, const QString& caption, const QString& hint,
                                       void (ReportsWindow::*press)()) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(hint);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, press);
    return button;
}

void ReportsWindow::fillList() {
    const QSignalBlocker quiet(m_list);
    m_list->clear();
    for (const QString& entry : m_reports.entries()) {
        auto* item = new QListWidgetItem(entry, m_list);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    m_unlisted->setText(
        u"只能列出 %1 份：还有 %2 份报告没有列出，文件都还在。"_s.arg(kReportSlots).arg(m_reports.unlisted()));
    m_unlisted->setVisible(m_reports.unlisted() > 0);
}

void ReportsWindow::readReports() {
    m_reports.open();
    fillList();
    showLast();
}

void ReportsWindow::showLast() {
    show(m_reports.last().value_or(QString()));
    mark(m_list->count() - 1);
}

/// The mark of the list goes with what is shown; that is no click on the entry.
void ReportsWindow::mark(int entry) {
    const QSignalBlocker quiet(m_list);
    m_list->setCurrentRow(entry);
}

void ReportsWindow::showStep(const std::optional<QString>& text) {
    show(text);
    if (text)
        mark(m_reports.steppedEntry());
}

void ReportsWindow::show(const std::optional<QString>& text) {
    if (text)
        m_text->setPlainText(*text);
}

// The whole text goes to the printer, whatever was selected.
void ReportsWindow::print() {
    m_context.print(*this, m_text->toPlainText());
}

void ReportsWindow::deleteAll() {
    if (!confirmed(this, u"阁下是否确定删除以前所有的历史盈亏纪录？删除后将永久性不可回收的删除！"_s))
        return;
    m_text->clear();
    const auto left = m_reports.deleteAll(m_context.settings, m_context.user);
    fillList();
    tellLeft(left);
}

void ReportsWindow::deleteTicked() {
    if (!confirmed(this, u"阁下是否确定删除指定的(前面打勾的)历史盈亏纪录？删除后将永久性不可回收的删除！"_s))
        return;
    std::vector<int> ticked;
    for (int row = 0; row < m_list->count(); ++row)
        if (m_list->item(row)->checkState() == Qt::Checked)
            ticked.push_back(row);
    const auto left = m_reports.deleteTicked(ticked);
    fillList();
    showLast();
    tellLeft(left);
}

void ReportsWindow::tellLeft(const std::vector<std::filesystem::path>& files) {
    if (files.empty())
        return;
    QStringList names;
    for (const std::filesystem::path& file : files)
        names << workspace::toQString(file);
    toolkit::DialogBoxes(this).warn(
        {u"有 %1 份报告没有删除：文件不能删除。其余的已经删除，请检查文件夹的权限后重试。"_s.arg(files.size()),
         kDeleteTitle, names.join(u'\n')});
}

} // namespace prize
