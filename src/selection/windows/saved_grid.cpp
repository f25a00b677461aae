#include "selection/windows/saved_grid.h"

#include <algorithm>

#include <QAction>
#include <QHeaderView>

#include "selection/windows/cell_table.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

/// What the two grids differ in.
struct GridTexts {
    const char16_t* name;
    const char16_t* numbers; ///< in words
    const char16_t* heading; ///< behind the place of a number
    const char16_t* deleteName;
    const char16_t* renameName;
    toolkit::CellStyle style;
};

constexpr GridTexts kTexts[] = {
    {u"MSFlexGrid1", u"红球", u"红", u"mnuDel", u"mnuName", toolkit::CellStyle::Red},
    {u"MSFlexGrid2", u"蓝球", u"蓝", u"mnuDelB", u"mnuNameB", toolkit::CellStyle::Blue},
};

constexpr int kNameWidth = 240;
constexpr int kCountWidth = 116;
constexpr int kNumberWidth = 52;
constexpr qsizetype kNameInQuestion = 40;

const GridTexts& textsOf(SavedTable table) {
    return kTexts[static_cast<std::size_t>(table)];
}

QString string(const char16_t* text) {
    return QString::fromUtf16(text);
}

/// A name within a sentence: a long one is cut.
QString shortened(const QString& name) {
    return name.size() > kNameInQuestion ? name.left(kNameInQuestion) + u'…' : name;
}

} // namespace

SavedGrid::SavedGrid(sql::Database& dbNumsave, SavedTable table, QWidget* parent)
    : DataGrid(parent), m_dbNumsave(dbNumsave), m_table(table), m_cells(new CellTable(this)) {
    const GridTexts& texts = textsOf(table);
    setObjectName(string(texts.name));
    setAccessibleName(u"保存的%1"_s.arg(string(texts.numbers)));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection); // several rows can be copied
    setEmptyText(u"还没有保存的%1：在主窗口选好号码，再用“保存该次选号号码”保存。"_s.arg(string(texts.numbers)));
    setModel(m_cells);
    addEntry(string(texts.deleteName), u"删除选号(&D)"_s, QKeySequence::Delete, &SavedGrid::deleteChosen);
    addEntry(string(texts.renameName), u"修改选号名字(&N)"_s, Qt::Key_F2, &SavedGrid::renameChosen);
    const auto tell = [this] {
        for (QAction* entry : m_entries)
            entry->setEnabled(chosen().has_value());
        emit chosenChanged();
    };
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, tell);
    connect(m_cells, &QAbstractItemModel::modelReset, this, tell);
    reload();
}

void SavedGrid::addEntry(const QString& name, const QString& caption, const QKeySequence& keys,
                         void (SavedGrid::*act)()) {
    auto* entry = new QAction(caption, this);
    entry->setObjectName(name);
    entry->setShortcut(keys);
    entry->setShortcutContext(Qt::WidgetShortcut);
    connect(entry, &QAction::triggered, this, act);
    addAction(entry);
    addMenuEntry(entry);
    m_entries << entry;
}

void SavedGrid::reload() {
    m_rows = savedRows(m_dbNumsave, m_table);
    const GridTexts& texts = textsOf(m_table);
    std::size_t most = 0;
    std::vector<CellTable::Row> cells;
    for (const SavedRow& saved : m_rows) {
        CellTable::Row row{saved.name, static_cast<int>(saved.numbers.size())};
        row.insert(row.end(), saved.numbers.begin(), saved.numbers.end());
        most = std::max(most, saved.numbers.size());
        cells.push_back(std::move(row));
    }
    std::vector<CellTable::Column> columns{{u"选号保存名"_s, toolkit::CellStyle::Text},
                                           {u"选号个(不含胆)"_s, toolkit::CellStyle::Number}};
    for (std::size_t place = 1; place <= most; ++place)
        columns.push_back({u"选%1%2"_s.arg(place).arg(string(texts.heading)), texts.style});
    m_cells->show(std::move(columns), std::move(cells));
    setColumnWidths({kNameWidth, kCountWidth});
    for (int column = 2; column < m_cells->columnCount(); ++column)
        setColumnWidth(column, kNumberWidth);
}

std::optional<SavedRow> SavedGrid::chosen() const {
    const QModelIndexList marked = selectionModel()->selectedRows();
    if (marked.size() != 1)
        return std::nullopt;
    return m_rows[static_cast<std::size_t>(marked.front().row())];
}

void SavedGrid::markRow(int row) {
    if (rows() == 0)
        return;
    setCurrentIndex(m_cells->index(std::clamp(row, 0, rows() - 1), 0));
    scrollTo(currentIndex());
}

void SavedGrid::tellFailure(const std::exception& failed, const QString& happened, const QString& advice) {
    toolkit::DialogBoxes(this).warn(workspace::failureMessage(failed, happened, window()->windowTitle(), advice));
}

template <class Change> void SavedGrid::change(const QString& happened, Change run) {
    const int row = currentIndex().row();
    try {
        run();
        reload();
        markRow(row);
    } catch (const workspace::Failure& refused) { // a name that no statement can hold
        tellFailure(refused, happened, u"保存的选号都没有改变，仍可以调用。取新名字时请不要用双引号。"_s);
    } catch (const sql::SqlError& failed) {
        tellFailure(failed, happened, u"保存的选号和主窗口的选号都没有改变，请排除原因后重试。"_s);
    }
}

void SavedGrid::deleteChosen() {
    const std::optional<SavedRow> row = chosen();
    if (!row)
        return;
    const QString numbers = string(textsOf(m_table).numbers);
    const auto namesakes = std::count_if(m_rows.begin(), m_rows.end(), [&](const SavedRow& each) {
        return each.name.compare(row->name, Qt::CaseInsensitive) == 0; // as the table compares them
    });
    workspace::Message question{u"确实要删除“%1”的%2吗？"_s.arg(shortened(row->name), numbers), u"删除选号"_s};
    question.note = (namesakes > 1 ? u"叫这个名字的 %1 次%2都会删除，不能恢复。"_s.arg(namesakes).arg(numbers)
                                   : u"删除后不能恢复。"_s) +
                    u"同一次保存的其余号码保留。"_s;
    if (toolkit::DialogBoxes(this).confirm(question, workspace::Risk::Loss))
        change(u"选号没有删除"_s, [&] { deleteSaved(m_dbNumsave, m_table, row->name); });
}

void SavedGrid::renameChosen() {
    const std::optional<SavedRow> row = chosen();
    if (!row)
        return;
    const QString name = toolkit::DialogBoxes(this)
                             .askText(u"请输入本次修改的选号名字："_s, u"选号名字修改"_s,
                                      proposedNewName(QDateTime::currentDateTime()))
                             .value_or(QString());
    if (!name.isEmpty())
        change(u"选号名字没有修改"_s, [&] { renameSaved(m_dbNumsave, m_table, row->name, name); });
}

} // namespace selection
