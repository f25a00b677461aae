#include <algorithm>
#include <limits>
#include <stdexcept>

#include "history/derive.h"
#include "history/draw_tables.h"
#include "history/store.h"

namespace history {

namespace {

constexpr int kFirstDerived = 9; // behind Idx and fig0..fig7

/// A number of a file as one of the program's: one that does not fit becomes the nearest that does. Nothing in the
/// program counts on it, but no sum of such numbers may overflow.
template <class Number> Number fitting(std::int64_t value) {
    using Limits = std::numeric_limits<Number>;
    return static_cast<Number>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

std::int16_t shortOf(const sql::Value& value) {
    return fitting<std::int16_t>(sql::toInteger(value));
}

void readDraw(History& history, const sql::Rows& rows, std::int64_t record) {
    Draw draw{fitting<std::int32_t>(rows.integerAt(record, 1))};
    for (int place = 1; place <= 7; ++place)
        draw[static_cast<std::size_t>(place)] = fitting<std::int16_t>(rows.integerAt(record, 1 + place));
    Derived derived;
    int field = kFirstDerived;
    for (const DerivedColumn& column : kDerivedColumns)
        column.set(derived, fitting<std::int16_t>(rows.integerAt(record, field++)));
    derived.differences = redDifferences(draw);
    history.Lshm.push_back(draw);
    history.derived.push_back(derived);
}

template <std::size_t Size>
void readLastOmissions(sql::Database& dbUser, const char* table, std::array<std::int16_t, Size>& omission) {
    sql::Recordset records = dbUser.openRecordset(table);
    if (records.recordCount() == 0)
        return;
    records.moveLast();
    for (std::size_t number = 1; number < Size; ++number)
        omission[number] = shortOf(records.field("ylqs" + std::to_string(number)));
}

/// Records that are missing count 0, those beyond the numbers are not read.
template <std::size_t Size>
void readShares(sql::Database& dbUser, const char* table, int numbers, std::array<std::int16_t, Size>& hits,
                std::array<double, Size>& shares) {
    sql::Recordset records = dbUser.openRecordset(table);
    for (std::size_t number = 1; number <= static_cast<std::size_t>(numbers); ++number) {
        const bool missing = records.eof();
        hits[number] = missing ? std::int16_t{0} : shortOf(records.field("Glnum"));
        shares[number] = missing ? 0 : sql::toReal(records.field("gailv"));
        if (!missing)
            records.moveNext();
    }
}

void readAll(History& history, const workspace::Workspace& workspace) {
    const workspace::Rule rule = ruleOf(workspace);
    loadDraws(history, workspace);
    readOmissions(history, workspace);
    readShares(*workspace.dbUser, "Gailv", rule.reds, history.Glred, history.Gailvred);
    readShares(*workspace.dbUser, "GailvB", rule.blues, history.GlBlue, history.GailvBlue);
}

} // namespace

void readOmissions(History& history, const workspace::Workspace& workspace) {
    readLastOmissions(*workspace.dbUser, "Ylqs", history.Ylnow);
    readLastOmissions(*workspace.dbUser, "YlqsB", history.YlnowB);
}

void loadDraws(History& history, const workspace::Workspace& workspace) {
    const sql::Rows rows = workspace.dbUser->query(selectColumns(figColumns(), "fig"));
    if (rows.count() > kMostDraws)
        throw std::range_error("more draws than a history holds");
    history.Lshm.assign(1, Draw{});
    history.derived.assign(1, Derived{});
    for (std::int64_t record = 0; record < rows.count(); ++record)
        readDraw(history, rows, record);
    history.Lsnum = static_cast<int>(rows.count());
}

void loadHistory(History& history, const workspace::Workspace& workspace) {
    History loaded;
    readAll(loaded, workspace);
    history = std::move(loaded);
}

void reloadHistory(History& history, const workspace::Workspace& workspace) {
    History loaded = history;
    readAll(loaded, workspace);
    history = std::move(loaded);
}

} // namespace history
