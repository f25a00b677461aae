#include "history/store.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include <QByteArray>

#include <gtest/gtest.h>

#include "history/derive.h"
#include "history/draw_tables.h"
#include "history/draws_support.h"
#include "history/statistics.h"
#include "same_history.h"
#include "workspace/combination_files.h"

namespace {

using history::Draw;
using history::History;

std::vector<Draw> randomDraws(int count) {
    std::mt19937 random(4711);
    std::vector<Draw> draws;
    for (int draw = 0; draw < count; ++draw)
        draws.push_back(randomDraw(random, 2003001 + draw));
    return draws;
}

class Store : public ::testing::Test {
  protected:
    std::int64_t count(const char* table) { return fresh.workspace.dbUser->rowCount(table); }
    std::int64_t number(const std::string& select) {
        return sql::toInteger(fresh.workspace.dbUser->queryValue(select));
    }
    History loaded() {
        History again;
        loadHistory(again, fresh.workspace);
        return again;
    }

    FreshWorkspace fresh;
    History history;
};

TEST_F(Store, AnEmptyWorkspaceLoadsAsAnEmptyHistory) {
    const History empty = loaded();
    EXPECT_EQ(empty.Lsnum, 0);
    EXPECT_EQ(empty.Lshm, std::vector<Draw>{Draw{}});
    EXPECT_EQ(empty.Ylnow, History().Ylnow);
}

/// The files of combinations stand side by side: which one was opened last says nothing about where draws go.
TEST_F(Store, ADrawGoesToTheFileThatHoldsFigAfterASixRedTableWasTheLast) {
    using workspace::CombinationFile;
    sql::Database& sixReds = combinationFile(fresh.engine, fresh.workspace, CombinationFile::SixReds);
    const std::vector<std::int32_t> one{1};
    sixReds.appendRows("zuheR", {{"idx"}, {one}});
    storeDraw(history, fresh.workspace, randomDraws(1).front());
    EXPECT_EQ(history.Lsnum, 1);
    EXPECT_EQ(combinationFile(fresh.engine, fresh.workspace, CombinationFile::WithBlue).rowCount("fig"), 1);
    EXPECT_FALSE(sixReds.hasTable("fig"));
}

TEST_F(Store, WhatIsStoredIsLoadedAtTheNextStart) {
    storeBatch(history, fresh.workspace, randomDraws(200));
    EXPECT_EQ(history.Lsnum, 200);
    fresh.reopen();
    const History again = loaded();
    expectSameHistory(again, history);
    EXPECT_EQ(again.Glcount, 0); // not stored
}

TEST_F(Store, TheTablesHoldARecordADrawInOrder) {
    const std::vector<Draw> draws = randomDraws(20);
    storeBatch(history, fresh.workspace, draws);
    for (const char* table : {"fig", "Ylqs", "YlqsB"})
        EXPECT_EQ(count(table), 20) << table;
    EXPECT_EQ(fresh.workspace.dbFilnum->rowCount("fig"), 20);
    EXPECT_EQ(number("SELECT [fig0] FROM [fig] WHERE [Idx] = 7"), draws[6][0]);
    EXPECT_EQ(number("SELECT [Znum] FROM [fig] WHERE [Idx] = 7"), history.derived[7].Znum);
    EXPECT_EQ(number("SELECT COUNT(*) FROM [fig] WHERE [Sumjonum] = -1") +
                  number("SELECT COUNT(*) FROM [fig] WHERE [Sumjonum] = 0"),
              20);
    EXPECT_EQ(number("SELECT [ylqs" + std::to_string(draws[19][1]) +
                     "] FROM [Ylqs] WHERE [Qihao] = " + std::to_string(draws[19][0])),
              0);
    EXPECT_EQ(number("SELECT [Glnum] FROM [Gailv] WHERE [Number] = " + std::to_string(draws[19][1])),
              history.Glred[static_cast<std::size_t>(draws[19][1])]);
}

TEST_F(Store, TheTableHasAColumnForEveryDerivedValueAndNoOther) {
    EXPECT_EQ(fresh.workspace.dbUser->columnNames("fig"), history::figColumns());
}

TEST_F(Store, AnIssueOfZeroBecomesTheRowNumber) {
    storeBatch(history, fresh.workspace, std::vector<Draw>{{0, 1, 2, 3, 4, 5, 6, 7}, {0, 1, 2, 3, 4, 5, 6, 7}});
    EXPECT_EQ(number("SELECT [fig0] FROM [fig] WHERE [Idx] = 2"), 2);
    EXPECT_EQ(sql::toInteger(fresh.workspace.dbFilnum->queryValue("SELECT [fig0] FROM [fig] WHERE [idx] = 2")), 2);
}

TEST_F(Store, ABatchEndsAtTheTrueCountOfDrawsAlsoAfterAStart) {
    storeBatch(history, fresh.workspace, randomDraws(30));
    History again = loaded(); // Glcount is 0 now
    storeBatch(again, fresh.workspace, randomDraws(12));
    EXPECT_EQ(again.Lsnum, 42);
    EXPECT_EQ(again.Glcount, 42);
}

TEST_F(Store, ADrawTypedAfterAStartMakesTheSharesOvershoot) {
    storeBatch(history, fresh.workspace, std::vector<Draw>(10, Draw{0, 1, 2, 3, 4, 5, 6, 7}));
    History again = loaded();
    storeDraw(again, fresh.workspace, {11, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(again.Glcount, 1);
    EXPECT_DOUBLE_EQ(again.Gailvred[1], 11.0 / 6 * 100); // eleven hits over one draw
    EXPECT_DOUBLE_EQ(again.GailvBlue[7], 1100);
    EXPECT_DOUBLE_EQ(
        sql::toReal(fresh.workspace.dbUser->queryValue("SELECT [gailv] FROM [GailvB] WHERE [Number] = 7")), 1100);
}

TEST_F(Store, AWholeNewHistoryStartsEveryStatisticAtZero) {
    storeBatch(history, fresh.workspace, randomDraws(50));
    replaceHistory(history, fresh.workspace, std::vector<Draw>{{5, 1, 2, 3, 4, 5, 6, 7}});
    EXPECT_EQ(history.Lsnum, 1);
    EXPECT_EQ(history.Glcount, 1);
    EXPECT_EQ(history.Ylnow[33], 1);
    EXPECT_EQ(history.derived[1].Zynum, 0);
    EXPECT_EQ(count("fig"), 1);
    EXPECT_EQ(count("YlqsB"), 1);
    EXPECT_EQ(fresh.workspace.dbFilnum->rowCount("fig"), 51); // only ever added to
    expectSameHistory(loaded(), history);
}

TEST_F(Store, AWholeNewHistoryWithoutDrawsWritesSharesOfZero) {
    storeBatch(history, fresh.workspace, randomDraws(5));
    replaceHistory(history, fresh.workspace, {});
    EXPECT_EQ(history.Lsnum, 0);
    EXPECT_EQ(number("SELECT SUM([Glnum]) FROM [Gailv]"), 0);
    EXPECT_EQ(number("SELECT SUM([gailv]) FROM [Gailv]"), 0);
    EXPECT_EQ(count("fig"), 0);
}

TEST_F(Store, RecordsAboveANarrowerRuleStayUntouched) {
    storeBatch(history, fresh.workspace, std::vector<Draw>{{1, 28, 29, 30, 31, 32, 33, 16}});
    fresh.workspace.Bitnum = 28;
    fresh.workspace.BitnumB = 12;
    storeBatch(history, fresh.workspace, std::vector<Draw>{{2, 1, 2, 3, 4, 5, 28, 1}});
    EXPECT_DOUBLE_EQ(sql::toReal(fresh.workspace.dbUser->queryValue("SELECT [gailv] FROM [Gailv] WHERE [Number]=33")),
                     1.0 / 6 * 100); // of one draw
    EXPECT_DOUBLE_EQ(sql::toReal(fresh.workspace.dbUser->queryValue("SELECT [gailv] FROM [Gailv] WHERE [Number]=28")),
                     2.0 / 12 * 100);
    EXPECT_EQ(number("SELECT [Glnum] FROM [GailvB] WHERE [Number] = 16"), 1);
}

TEST_F(Store, AFailureInTheMiddleLeavesTablesAndMemoryAsTheyWere) {
    storeBatch(history, fresh.workspace, randomDraws(8));
    fresh.workspace.dbUser->execute("DELETE FROM [GailvB] WHERE [Number] > 15"); // too few for 16 blues
    const History before = history;
    EXPECT_THROW(storeBatch(history, fresh.workspace, randomDraws(3)), sql::SqlError);
    EXPECT_THROW(replaceHistory(history, fresh.workspace, randomDraws(3)), sql::SqlError);
    expectSameHistory(history, before);
    EXPECT_EQ(count("fig"), 8);
    EXPECT_EQ(count("Ylqs"), 8);
    EXPECT_EQ(fresh.workspace.dbFilnum->rowCount("fig"), 8);
}

TEST_F(Store, DrawNumber32768IsARangeError) {
    const std::vector<Draw> draws(32768, Draw{1, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_THROW(storeBatch(history, fresh.workspace, draws), std::range_error);
    EXPECT_EQ(history.Lsnum, 0);
    EXPECT_EQ(count("fig"), 0);
}

TEST_F(Store, NumbersBeyondTheRuleAreStoredAsTheyAre) {
    storeBatch(history, fresh.workspace, std::vector<Draw>{{1, 33, 1, 40, 99, 0, 6, 77}});
    EXPECT_EQ(number("SELECT [fig4] FROM [fig]"), 99);
    EXPECT_EQ(number("SELECT [fig7] FROM [fig]"), 77);
}

TEST_F(Store, RecordsThatAreMissingInTheSharesCountZeroAndMoreAreNotRead) {
    storeBatch(history, fresh.workspace, randomDraws(200));
    sql::Database& dbUser = *fresh.workspace.dbUser;
    dbUser.execute("DELETE FROM [Gailv] WHERE [Number]>20");
    dbUser.execute("DELETE FROM [GailvB]");
    const History fewer = loaded();
    EXPECT_EQ(fewer.Lshm, history.Lshm);
    EXPECT_EQ(fewer.Glred[20], history.Glred[20]);
    EXPECT_EQ(fewer.Glred[21], 0);
    EXPECT_EQ(fewer.Gailvred[33], 0);
    EXPECT_EQ(fewer.GlBlue, History().GlBlue);
    for (int more = 0; more < 100; ++more)
        dbUser.execute("INSERT INTO [GailvB] ([Number],[Glnum],[gailv]) VALUES (99,777,1)");
    const History more = loaded();
    EXPECT_EQ(more.GlBlue[16], 777);
    EXPECT_EQ(more.GlBlue[17], 0);
}

/// Whatever a damaged file holds, it is loaded, and the next draws are counted and derived.
TEST_F(Store, NumbersThatDoNotFitDoNoHarm) {
    std::string assignments;
    for (const std::string& column : history::figColumns())
        assignments += (assignments.empty() ? "[" : ",[") + column + "]=#";
    for (const int value : {-1, 0, -40, 39, 77, 32768, -32769, 2147483647, -2147483647}) {
        replaceHistory(history, fresh.workspace, randomDraws(3));
        std::string all = assignments;
        for (std::size_t place = all.find('#'); place != std::string::npos; place = all.find('#'))
            all.replace(place, 1, std::to_string(value));
        fresh.workspace.dbUser->execute("UPDATE [fig] SET " + all);
        History odd = loaded();
        ASSERT_EQ(odd.Lsnum, 3) << value;
        EXPECT_EQ(odd.Lshm[3][0], value);
        EXPECT_EQ(odd.Lshm[3][7], std::clamp(value, -32768, 32767));
        EXPECT_EQ(odd.derived[3].Znum, std::abs(value) < 32768 ? value : 0); // a short column holds no more
        recountHits(odd);
        EXPECT_EQ(odd.Glcount, 3);
        storeDraw(odd, fresh.workspace, {2010001, 1, 2, 3, 4, 5, 6, 7});
        EXPECT_EQ(odd.Lsnum, 4);
        history::deriveDraw(odd.Lshm[3], odd.Lshm[2], odd.Ylnow, {33, 16});
    }
}

TEST_F(Store, ARuleBeyondTheArraysReachesTheirEnd) {
    for (const auto& [reds, blues] : {std::pair{99, 99}, {-5, -5}, {32767, -32768}}) {
        fresh.workspace.Bitnum = reds;
        fresh.workspace.BitnumB = blues;
        const workspace::Rule rule = history::ruleOf(fresh.workspace);
        EXPECT_EQ(rule.reds, std::clamp(reds, 0, 38));
        EXPECT_EQ(rule.blues, std::clamp(blues, 0, 18));
        storeBatch(history, fresh.workspace, randomDraws(2));
        loaded();
    }
}

TEST_F(Store, TheRealDrawsComeBackAsTheyWereStored) {
    ASSERT_EQ(realDraws().size(), 3358u);
    replaceHistory(history, fresh.workspace, realDraws());
    fresh.reopen();
    expectSameHistory(loaded(), history);
    EXPECT_EQ(history.Lsnum, 3358);
}

} // namespace
