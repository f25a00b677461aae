#include "history/maintenance.h"

#include <algorithm>
#include <vector>

#include "history/default_text.h"
#include "history/derive.h"
#include "history/draw_tables.h"
#include "history/statistics.h"
#include "history/store.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

const QString kCleared = u"清空历史号码之前，原有的历史数据库和默认历史文本保存在这里。"_s;
constexpr int kIssue = 0;
constexpr int kBlue = 7;

void deleteLastRecord(sql::Database& dbUser, const char* table) {
    sql::Recordset records = dbUser.openRecordset(table);
    if (records.recordCount() == 0)
        return;
    records.moveLast();
    records.remove();
}

template <std::size_t Size>
void zero(std::array<std::int16_t, Size>& hits, std::array<double, Size>& shares, int range) {
    for (std::size_t number = 1; number <= static_cast<std::size_t>(range); ++number) {
        hits[number] = 0;
        shares[number] = 0;
    }
}

/// Omissions of the reds as they stood before a draw.
std::array<std::int16_t, kMostReds + 1> omissionsBefore(sql::Database& dbUser, int row) {
    std::array<std::int16_t, kMostReds + 1> omission{};
    const sql::Rows records = dbUser.query(selectColumns(omissionColumns(kMostReds), "Ylqs"));
    const std::int64_t before = row - 2; // records count from 0, draws from 1
    if (before >= 0 && before < records.count())
        for (int red = 1; red <= kMostReds; ++red)
            omission[static_cast<std::size_t>(red)] = static_cast<std::int16_t>(records.integerAt(before, red));
    return omission;
}

std::string updateSlot(int slot, std::int32_t value, int row) {
    return "UPDATE [fig] SET [fig" + std::to_string(slot) + "]=" + std::to_string(value) +
           " WHERE [Idx]=" + std::to_string(row);
}

std::string updateDerived(const Derived& derived, int row) {
    std::string assignments;
    for (const DerivedColumn& column : kDerivedColumns)
        assignments += (assignments.empty() ? "[" : ",[") + std::string(column.name) +
                       "]=" + std::to_string(column.get(derived));
    return "UPDATE [fig] SET " + assignments + " WHERE [Idx]=" + std::to_string(row);
}

/// Puts the number into the draw. Every draw behind a new issue gets the next issue number.
void correctDraws(History& next, int row, int slot, std::int32_t value) {
    next.Lshm[static_cast<std::size_t>(row)][static_cast<std::size_t>(slot)] = value;
    if (slot == kIssue)
        for (int later = row + 1; later <= next.Lsnum; ++later)
            next.Lshm[static_cast<std::size_t>(later)][kIssue] = value + later - row;
}

/// The issues behind a draw as correctDraws() has them. One statement for all: there are up to 32,766 of them.
void storeIssuesBehind(const History& next, sql::Database& dbUser, int row) {
    const std::int32_t value = next.Lshm[static_cast<std::size_t>(row)][kIssue];
    dbUser.execute("UPDATE [fig] SET [fig0]=[Idx]+(" + std::to_string(value - row) + ") WHERE [Idx]>" +
                   std::to_string(row) + " AND [Idx]<=" + std::to_string(next.Lsnum));
}

} // namespace

void typeDraw(History& history, const workspace::Workspace& workspace, const Draw& draw) {
    std::vector<Draw> next(drawsOf(history).begin(), drawsOf(history).end());
    next.push_back(draw);
    if (draw[kIssue] == 0)
        next.back()[kIssue] = history.Lsnum + 1;
    guardHistoryText(history, next, workspace);
    storeDraw(history, workspace, draw);
    writeHistoryText(history, workspace);
}

void deleteLastDraw(History& history, const workspace::Workspace& workspace) {
    const workspace::Rule rule = ruleOf(workspace);
    sql::Database& dbUser = *workspace.dbUser;
    const auto left = static_cast<std::size_t>(std::max(history.Lsnum - 1, 0));
    guardHistoryText(history, drawsOf(history).first(left), workspace);
    History next = history;
    sql::Transaction truth(dbUser);
    for (const char* table : {"fig", "Ylqs", "YlqsB"})
        deleteLastRecord(dbUser, table);
    next.Lsnum = static_cast<int>(dbUser.rowCount("fig"));
    if (next.Lsnum == history.Lsnum - 1) {
        next.Lshm.pop_back();
        next.derived.pop_back();
    } else {
        loadDraws(next, workspace);
    }
    readOmissions(next, workspace);
    recountHits(next);
    computeShares(next, rule);
    writeShares(dbUser, next, rule.reds, rule.blues);
    truth.commit();
    history = std::move(next);
    writeHistoryText(history, workspace);
}

void clearHistory(History& history, const workspace::Workspace& workspace) {
    const workspace::Rule rule = ruleOf(workspace);
    sql::Database& dbUser = *workspace.dbUser;
    History next = history;
    next.Lsnum = 0;
    next.Lshm.assign(1, Draw{});
    next.derived.assign(1, Derived{});
    zero(next.Glred, next.Gailvred, rule.reds);
    zero(next.GlBlue, next.GailvBlue, rule.blues);
    if (history.Lsnum > 0)
        keepHistory(workspace, historyTextFile(workspace), kCleared);
    else
        guardHistoryText(history, {}, workspace);
    sql::Transaction truth(dbUser);
    dbUser.execute("DELETE FROM [fig]");
    dbUser.execute("DELETE FROM [Ylqs]");
    writeShares(dbUser, next, rule.reds, rule.blues);
    truth.commit();
    history = std::move(next);
    writeHistoryText(history, workspace);
}

void correctNumber(History& history, const workspace::Workspace& workspace, int row, int slot, std::int32_t value) {
    const workspace::Rule rule = ruleOf(workspace);
    sql::Database& dbUser = *workspace.dbUser;
    sql::Database& dbFilnum = *workspace.dbFilnum;
    const auto place = static_cast<std::size_t>(row);
    History next = history;
    correctDraws(next, row, slot, value);
    guardHistoryText(history, drawsOf(next), workspace);
    sql::Transaction bareNumbers(dbFilnum);
    sql::Transaction truth(dbUser);
    if (slot != kIssue) {
        correctHit(next, slot == kBlue, history.Lshm[place][static_cast<std::size_t>(slot)], value);
        computeShares(next, rule);
        writeShares(dbUser, next, rule.reds, rule.blues);
    }
    for (sql::Database* database : {&dbUser, &dbFilnum})
        database->execute(updateSlot(slot, value, row));
    next.derived[place] = deriveDraw(next.Lshm[place], next.Lshm[place - 1], omissionsBefore(dbUser, row), rule);
    dbUser.execute(updateDerived(next.derived[place], row));
    if (slot == kIssue)
        storeIssuesBehind(next, dbUser, row);
    bareNumbers.commit();
    truth.commit();
    history = std::move(next);
    writeHistoryText(history, workspace);
}

} // namespace history
