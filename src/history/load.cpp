#include <stdexcept>

#include "history/derive.h"
#include "history/draw_tables.h"
#include "history/store.h"

namespace history {

namespace {

constexpr int kFirstDerived = 9; // behind Idx and fig0..fig7

void readDraw(History& history, const sql::Rows& rows, std::int64_t record) {
    Draw draw{};
    for (int place = 0; place <= 7; ++place)
        draw[static_cast<std::size_t>(place)] = static_cast<std::int32_t>(rows.integerAt(record, 1 + place));
    Derived derived;
    int field = kFirstDerived;
    for (const DerivedColumn& column : kDerivedColumns)
        column.set(derived, static_cast<std::int16_t>(rows.integerAt(record, field++)));
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
        omission[number] = static_cast<std::int16_t>(sql::toInteger(records.field("ylqs" + std::to_string(number))));
}

template <std::size_t Size>
void readShares(sql::Database& dbUser, const char* table, int numbers, std::array<std::int16_t, Size>& hits,
                std::array<double, Size>& shares) {
    sql::Recordset records = dbUser.openRecordset(table);
    for (std::size_t number = 1; number <= static_cast<std::size_t>(numbers); ++number) {
        hits[number] = static_cast<std::int16_t>(sql::toInteger(records.field("Glnum")));
        shares[number] = sql::toReal(records.field("gailv"));
        records.moveNext();
    }
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
    sql::Database& dbUser = *workspace.dbUser;
    History loaded;
    loadDraws(loaded, workspace);
    readOmissions(loaded, workspace);
    readShares(dbUser, "Gailv", workspace.Bitnum, loaded.Glred, loaded.Gailvred);
    readShares(dbUser, "GailvB", workspace.BitnumB, loaded.GlBlue, loaded.GailvBlue);
    history = std::move(loaded);
}

} // namespace history
