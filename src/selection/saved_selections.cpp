#include "selection/saved_selections.h"

#include <algorithm>
#include <span>
#include <string>

#include "workspace/quoted_text.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

std::string column(int place) {
    return "f" + std::to_string(place);
}

std::string tableName(SavedTable table) {
    return table == SavedTable::Reds ? "SAVE" : "SAVEB";
}

/// Entries 1..count of a list of the pad.
template <class List> std::span<const std::int16_t> entries(const List& list, int count) {
    return std::span(list).subspan(1, static_cast<std::size_t>(count));
}

void addMissingColumns(sql::Database& dbNumsave, const std::string& table, int numbers) {
    const std::vector<std::string> there = dbNumsave.columnNames(table);
    for (int place = 1; place <= numbers; ++place)
        if (std::find(there.begin(), there.end(), column(place)) == there.end())
            dbNumsave.execute("ALTER TABLE [" + table + "] ADD COLUMN [" + column(place) + "] short");
}

void append(sql::Database& dbNumsave, const std::string& table, const QString& name,
            std::span<const std::int16_t> numbers) {
    addMissingColumns(dbNumsave, table, static_cast<int>(numbers.size()));
    const std::int64_t idx = dbNumsave.rowCount(table) + 1;
    sql::Recordset rows = dbNumsave.openRecordset(table);
    rows.addNew();
    rows.set("Name", name.toStdString());
    rows.set("BitR", static_cast<std::int64_t>(numbers.size()));
    rows.set("Idx", idx);
    int place = 0;
    for (const std::int16_t number : numbers)
        rows.set(column(++place), std::int64_t{number});
    rows.update();
}

/// BitR numbers from f1 on, as far as the table has columns for them.
std::vector<int> numbersOf(const sql::Recordset& row) {
    std::vector<int> numbers;
    const int first = row.fieldIndex("f1");
    const std::int64_t count = sql::toInteger(row.field("BitR"));
    for (int field = first; field < row.fieldCount() && field - first < count; ++field)
        numbers.push_back(static_cast<int>(sql::toInteger(row.field(field))));
    return numbers;
}

/// The numbers of the first row with this Idx.
std::vector<int> numbersAt(sql::Database& dbNumsave, const std::string& table, int idx) {
    const sql::Recordset row =
        dbNumsave.openRecordset("SELECT * FROM [" + table + "] WHERE [idx] = " + std::to_string(idx));
    return row.eof() ? std::vector<int>() : numbersOf(row);
}

/// A number outside the rule must not leave mnuDan() on the red that was pressed before it.
void makeBankers(Pad& pad, const std::vector<int>& numbers) {
    for (const int number : numbers) {
        if (number < 1 || number > pad.reds())
            continue;
        pad.pointAtRed(number);
        pad.mnuDan();
    }
}

bool isSelected(std::span<const bool> marks, int number) {
    return number >= 0 && static_cast<std::size_t>(number) < marks.size() && marks[static_cast<std::size_t>(number)];
}

} // namespace

QString proposedSaveName(const QDateTime& now) {
    return u"选号保存于"_s + now.toString(u"yy-M-d日h.m.s秒"_s);
}

QString proposedNewName(const QDateTime& now) {
    return u"选号名字修改于"_s + now.toString(u"yy-M-d日 h.m.s秒"_s);
}

void saveSelection(sql::Database& dbNumsave, const Pad& pad, const QString& name) {
    sql::Transaction whole(dbNumsave);
    append(dbNumsave, "SAVE", name, entries(pad.Redlist, pad.Redcnt));
    append(dbNumsave, "SAVEdan", name, entries(pad.Danlist, pad.Dancnt));
    append(dbNumsave, "SAVEB", name, entries(pad.Bluelist, pad.Bluecnt));
    whole.commit();
}

SavedNumbers savedNumbers(sql::Database& dbNumsave, int idx) {
    return {savedReds(dbNumsave, idx), numbersAt(dbNumsave, "SaveDan", idx), numbersAt(dbNumsave, "SaveB", idx)};
}

std::vector<int> savedReds(sql::Database& dbNumsave, int idx) {
    return numbersAt(dbNumsave, "Save", idx);
}

void callSelection(Pad& pad, const SavedNumbers& saved) {
    pad.clearReds();
    for (const int red : saved.reds)
        pad.pressRed(red);
    makeBankers(pad, saved.bankers);
    pad.clearBlues();
    for (const int blue : saved.blues)
        pad.pressBlue(blue);
}

void addSelection(Pad& pad, const SavedNumbers& saved) {
    for (const int red : saved.reds)
        if (!isSelected(pad.Redsel, red))
            pad.pressRed(red);
    for (const int blue : saved.blues)
        if (!isSelected(pad.Bluesel, blue))
            pad.pressBlue(blue);
    makeBankers(pad, saved.bankers);
}

std::vector<SavedRow> savedRows(sql::Database& dbNumsave, SavedTable table) {
    std::vector<SavedRow> rows;
    sql::Recordset records = dbNumsave.openRecordset("SELECT * FROM " + tableName(table));
    for (; !records.eof(); records.moveNext())
        rows.push_back({QString::fromStdString(sql::toText(records.field("Name"))),
                        static_cast<int>(sql::toInteger(records.field("Idx"))), numbersOf(records)});
    return rows;
}

void deleteSaved(sql::Database& dbNumsave, SavedTable table, const QString& name) {
    dbNumsave.execute("DELETE FROM [" + tableName(table) + "]  WHERE [Name] = " + workspace::quotedText(name));
}

void renameSaved(sql::Database& dbNumsave, SavedTable table, const QString& name, const QString& newName) {
    dbNumsave.execute("UPDATE [" + tableName(table) + "] SET [Name]= " + workspace::quotedText(newName) +
                      " WHERE [Name] = " + workspace::quotedText(name));
}

} // namespace selection
