#include "selection/windows/saved_picker.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

#include "selection/windows/saved_grid.h"
#include "toolkit/accent_button.h"
#include "toolkit/card.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

constexpr QSize kUsefulSize{760, 560};

QString listText(const QString& caption, const std::vector<int>& numbers) {
    QString text = caption + u"："_s;
    for (const int number : numbers)
        text += u' ' + QString::number(number);
    return numbers.empty() ? text + u" 无"_s : text;
}

QWidget* carded(const QString& name, const QString& heading, QWidget* grid) {
    auto* card = new toolkit::Card(name, heading);
    card->body().addWidget(grid);
    return card;
}

} // namespace

SavedPicker::SavedPicker(sql::Database& dbNumsave, const QString& title, const toolkit::PlaceStore& places,
                         QWidget* parent)
    : QDialog(parent), m_dbNumsave(dbNumsave), m_reds(new SavedGrid(dbNumsave, SavedTable::Reds, this)),
      m_blues(new SavedGrid(dbNumsave, SavedTable::Blues, this)), m_preview(new QLabel),
      m_ok(new toolkit::AccentButton(u"确定(&K)"_s)) {
    setObjectName(u"frmnmFind"_s);
    setWindowTitle(title);
    layOut();
    connectGrid(*m_reds, *m_blues);
    connectGrid(*m_blues, *m_reds);
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, places);
    SavedGrid* first = m_reds->rows() == 0 && m_blues->rows() > 0 ? m_blues : m_reds;
    first->markRow(first->rows() - 1); // the newest
    first->setFocus();
    showChosen();
}

void SavedPicker::layOut() {
    m_preview->setObjectName(u"Preview"_s);
    m_preview->setTextFormat(Qt::PlainText);
    m_preview->setWordWrap(true);
    m_ok->setObjectName(u"cmdOK"_s);
    m_ok->setDefault(true);
    auto* cancel = new QPushButton(u"取消"_s);
    cancel->setObjectName(u"cmdCancel"_s);
    connect(m_ok, &QPushButton::clicked, this, &SavedPicker::pick);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* grids = new QSplitter(Qt::Vertical);
    grids->setObjectName(u"Splitter1"_s);
    grids->setChildrenCollapsible(false);
    grids->addWidget(carded(u"CardReds"_s, u"红球"_s, m_reds));
    grids->addWidget(carded(u"CardBlues"_s, u"蓝球"_s, m_blues));
    auto* foot = new QHBoxLayout;
    foot->addWidget(m_preview, 1);
    foot->addWidget(m_ok);
    foot->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(grids, 1);
    layout->addLayout(foot);
}

void SavedPicker::connectGrid(SavedGrid& grid, SavedGrid& other) {
    grid.setToolTip(u"双击或按 Enter 选用；按右键可以删除或改名"_s);
    connect(&grid, &SavedGrid::doubleClicked, this, &SavedPicker::pick);
    connect(&grid, &SavedGrid::chosenChanged, this, [this, &grid, &other] {
        if (grid.selectionModel()->hasSelection())
            other.clearSelection(); // one mark, so that what Enter picks is plain to see
        showChosen();
    });
}

int SavedPicker::chosenIdx() const {
    for (const SavedGrid* grid : {m_reds, m_blues})
        if (const std::optional<SavedRow> row = grid->chosen())
            return row->idx;
    return 0;
}

void SavedPicker::showChosen() {
    const int idx = chosenIdx();
    m_ok->setEnabled(idx != 0);
    m_ok->setToolTip(idx != 0 ? QString() : u"先选中一行"_s);
    m_preview->clear();
    if (idx == 0)
        return;
    try {
        const SavedNumbers saved = savedNumbers(m_dbNumsave, idx);
        m_preview->setText(listText(u"红"_s, saved.reds) + u"　"_s + listText(u"胆"_s, saved.bankers) + u"　"_s +
                           listText(u"蓝"_s, saved.blues));
    } catch (const sql::SqlError& failed) {
        m_preview->setText(u"读不到这次选号：%1"_s.arg(workspace::causeOf(failed)));
    }
}

void SavedPicker::pick() {
    Savepick = chosenIdx();
    if (Savepick != 0)
        accept();
}

int pickSaved(sql::Database& dbNumsave, const QString& title, const toolkit::PlaceStore& places, QWidget* parent) {
    try {
        SavedPicker picker(dbNumsave, title, places, parent);
        picker.exec();
        return picker.Savepick;
    } catch (const sql::SqlError& failed) {
        toolkit::DialogBoxes(parent).warn(workspace::failureMessage(failed, u"读不到保存的选号"_s, title,
                                                                    u"主窗口的选号没有改变，请排除原因后重试。"_s));
        return 0;
    }
}

} // namespace selection
