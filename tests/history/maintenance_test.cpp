#include "history/maintenance.h"

#include <algorithm>
#include <stdexcept>

#include <QFile>
#include <gtest/gtest.h>

#include "history/draws_support.h"
#include "history/store.h"
#include "history/text_file.h"
#include "same_history.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace {

using history::Draw;
using history::History;

const std::vector<Draw> kThree{
    {2003001, 10, 11, 12, 13, 26, 28, 11}, {2003002, 4, 9, 19, 20, 21, 26, 12}, {2003003, 1, 7, 10, 23, 28, 32, 16}};

class Maintenance : public ::testing::Test {
  protected:
    Maintenance() { replaceHistory(history, fresh.workspace, kThree); }

    std::int64_t count(const char* table) { return fresh.workspace.dbUser->rowCount(table); }
    std::int64_t number(const std::string& select) {
        return sql::toInteger(fresh.workspace.dbUser->queryValue(select));
    }
    double real(const std::string& select) { return sql::toReal(fresh.workspace.dbUser->queryValue(select)); }
    QByteArray text() {
        QFile file(workspace::toQString(history::historyTextFile(fresh.workspace)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }
    void type(const Draw& draw) { typeDraw(history, fresh.workspace, draw); }
    void deleteLast() { deleteLastDraw(history, fresh.workspace); }
    void correct(int row, int slot, std::int32_t value) { correctNumber(history, fresh.workspace, row, slot, value); }

    /// What the next start finds is what is in memory, but for Glcount, and Ylnow where a table of it is empty.
    void expectTablesAsMemory(bool omissions = true) {
        History loaded;
        loadHistory(loaded, fresh.workspace);
        if (omissions)
            expectSameHistory(loaded, history);
        else
            expectSameDraws(loaded, history);
    }

    FreshWorkspace fresh;
    History history;
};

TEST_F(Maintenance, ATypedDrawReachesEveryTableAndTheText) {
    type({2003004, 4, 6, 7, 10, 13, 25, 3});
    EXPECT_EQ(history.Lsnum, 4);
    for (const char* table : {"fig", "Ylqs", "YlqsB"})
        EXPECT_EQ(count(table), 4) << table;
    EXPECT_EQ(fresh.workspace.dbFilnum->rowCount("fig"), 4);
    EXPECT_EQ(history.derived[4].Cnum, 2);  // 07 and 10 again
    EXPECT_EQ(history.derived[4].Zynum, 9); // 04 1, 06 3, 07 0, 10 0, 13 2, 25 3
    EXPECT_EQ(history.derived[4].intYljz, 3);
    EXPECT_DOUBLE_EQ(history.Gailvred[10], 3.0 / 24 * 100); // the reading had left Glcount at 3
    EXPECT_TRUE(text().endsWith("2003004 04 06 07 10 13 25 03 \n"));
    expectTablesAsMemory();
}

TEST_F(Maintenance, AfterAStartTypedDrawsAloneAreCounted) {
    fresh.reopen();
    loadHistory(history, fresh.workspace);
    EXPECT_EQ(history.Glcount, 0);
    type({2003004, 4, 6, 7, 10, 13, 25, 3});
    EXPECT_EQ(history.Glcount, 1);
    EXPECT_DOUBLE_EQ(history.Gailvred[10], 3.0 / 6 * 100); // three hits in one draw's reds
    type({2003005, 4, 6, 7, 10, 13, 25, 3});
    EXPECT_DOUBLE_EQ(real("SELECT [gailv] FROM [Gailv] WHERE [Number]=10"), 4.0 / 12 * 100);
    deleteLast();
    EXPECT_EQ(history.Glcount, 4); // all draws again
    EXPECT_DOUBLE_EQ(history.Gailvred[10], 3.0 / 24 * 100);
}

TEST_F(Maintenance, DeletingTheLastDrawTakesBackWhatItLeft) {
    const History before = history;
    const QByteArray textBefore = (writeHistoryText(history, fresh.workspace), text());
    type({2003004, 4, 6, 7, 10, 13, 25, 3});
    deleteLast();
    EXPECT_EQ(history.Lsnum, 3);
    EXPECT_EQ(history.Lshm, before.Lshm);
    EXPECT_TRUE(history.derived == before.derived);
    EXPECT_EQ(history.Ylnow, before.Ylnow);
    EXPECT_EQ(history.YlnowB, before.YlnowB);
    EXPECT_EQ(history.Gailvred, before.Gailvred);
    EXPECT_EQ(history.Glcount, 3);
    for (const char* table : {"fig", "Ylqs", "YlqsB"})
        EXPECT_EQ(count(table), 3) << table;
    EXPECT_EQ(fresh.workspace.dbFilnum->rowCount("fig"), 4); // the bare numbers stay there
    EXPECT_EQ(text(), textBefore);
    expectTablesAsMemory();
}

TEST_F(Maintenance, DeletingTheOnlyDrawKeepsItsOmissionsAndWritesZeros) {
    deleteLast();
    deleteLast();
    const History one = history;
    EXPECT_EQ(one.Ylnow[1], 1);
    deleteLast();
    EXPECT_EQ(history.Lsnum, 0);
    EXPECT_EQ(history.Lshm, std::vector<Draw>{Draw{}});
    EXPECT_EQ(history.Ylnow, one.Ylnow);
    EXPECT_EQ(history.YlnowB, one.YlnowB);
    EXPECT_EQ(history.Glcount, 0);
    EXPECT_EQ(number("SELECT SUM([Glnum]) FROM [Gailv]"), 0);
    EXPECT_EQ(real("SELECT SUM([gailv]) FROM [Gailv]"), 0);
    EXPECT_EQ(real("SELECT SUM([gailv]) FROM [GailvB]"), 0);
    EXPECT_EQ(text(), QByteArray());
    expectTablesAsMemory(false);
}

TEST_F(Maintenance, ClearingLeavesTheBlueOmissionsAndTheBareNumbers) {
    type({2003004, 4, 6, 7, 10, 13, 25, 3});
    const History before = history;
    clearHistory(history, fresh.workspace);
    EXPECT_EQ(history.Lsnum, 0);
    EXPECT_EQ(history.Lshm, std::vector<Draw>{Draw{}});
    EXPECT_EQ(count("fig"), 0);
    EXPECT_EQ(count("Ylqs"), 0);
    EXPECT_EQ(count("YlqsB"), 4);
    EXPECT_EQ(fresh.workspace.dbFilnum->rowCount("fig"), 4);
    EXPECT_EQ(history.Ylnow, before.Ylnow);
    EXPECT_EQ(history.YlnowB, before.YlnowB);
    EXPECT_EQ(number("SELECT SUM([Glnum]) FROM [Gailv]"), 0);
    EXPECT_EQ(real("SELECT SUM([gailv]) FROM [GailvB]"), 0);
    EXPECT_EQ(text(), QByteArray());
}

TEST_F(Maintenance, DrawsTypedAfterAClearContinueTheOmissions) {
    clearHistory(history, fresh.workspace);
    type({1, 1, 7, 10, 23, 28, 33, 1});
    EXPECT_EQ(history.derived[1].Zynum,
              3); // only 33 was absent from the three draws, the others stood in the last one
    EXPECT_EQ(history.derived[1].Cnum, 0);
    EXPECT_EQ(history.Ylnow[2], 4);
    EXPECT_EQ(history.YlnowB[16], 1);
    EXPECT_EQ(count("Ylqs"), 1);
    EXPECT_EQ(count("YlqsB"), 4);
    expectTablesAsMemory();
    deleteLast();
    EXPECT_EQ(history.Ylnow[2], 4);   // Ylqs is empty: they stay
    EXPECT_EQ(history.YlnowB[16], 0); // YlqsB is not: the third draw's
}

TEST_F(Maintenance, ClearingUnderANarrowerRuleKeepsTheNumbersAboveIt) {
    fresh.workspace.Bitnum = 28;
    fresh.workspace.BitnumB = 12;
    clearHistory(history, fresh.workspace);
    EXPECT_EQ(history.Glred[28], 0);
    EXPECT_EQ(history.Glred[32], 1);
    EXPECT_EQ(number("SELECT [Glnum] FROM [Gailv] WHERE [Number]=32"), 1);
    EXPECT_EQ(number("SELECT [Glnum] FROM [GailvB] WHERE [Number]=16"), 1);
    EXPECT_EQ(number("SELECT [Glnum] FROM [GailvB] WHERE [Number]=12"), 0);
}

TEST_F(Maintenance, ACorrectedRedMovesItsHitAndTheSharesReadASixth) {
    correct(3, 2, 8); // 07 becomes 08
    EXPECT_EQ(history.Lshm[3], (Draw{2003003, 1, 8, 10, 23, 28, 32, 16}));
    EXPECT_EQ(history.Glred[7], 0);
    EXPECT_EQ(history.Glred[8], 1);
    EXPECT_EQ(history.Glcount, 18);
    EXPECT_DOUBLE_EQ(history.Gailvred[10], 2.0 / 108 * 100); // 2 / (Lsnum * 36)
    EXPECT_DOUBLE_EQ(real("SELECT [gailv] FROM [GailvB] WHERE [Number]=16"), 1.0 / 18 * 100);
    EXPECT_EQ(number("SELECT [fig2] FROM [fig] WHERE [Idx]=3"), 8);
    EXPECT_EQ(sql::toInteger(fresh.workspace.dbFilnum->queryValue("SELECT [fig2] FROM [fig] WHERE [Idx]=3")), 8);
    EXPECT_EQ(number("SELECT [Znum] FROM [fig] WHERE [Idx]=3"), 102);
    EXPECT_EQ(history.derived[3].Zonum, 78); // 8 10 28 32
    EXPECT_TRUE(text().endsWith("2003003 01 08 10 23 28 32 16 \n"));
    expectTablesAsMemory();
    deleteLast();
    EXPECT_DOUBLE_EQ(history.Gailvred[10], 1.0 / 12 * 100); // counted again
}

TEST_F(Maintenance, ADrawTypedAfterACorrectionRestsOnTheSixfoldCount) {
    correct(3, 7, 15);
    EXPECT_EQ(history.GlBlue[16], 0);
    EXPECT_EQ(history.GlBlue[15], 1);
    type({2003004, 4, 6, 7, 10, 13, 25, 15});
    EXPECT_EQ(history.Glcount, 19);
    EXPECT_DOUBLE_EQ(history.GailvBlue[15], 2.0 / 19 * 100);
}

TEST_F(Maintenance, AnOldDrawIsDerivedFromTheOmissionsBeforeIt) {
    // Before the second draw 04 and 09 were absent once each, 26 not at all.
    EXPECT_EQ(history.derived[2].Zynum, 5);
    correct(2, 6, 28); // 26 becomes 28, which stood in the first draw as well
    EXPECT_EQ(history.derived[2].Zynum, 5);
    EXPECT_EQ(history.derived[2].Cnum, 1);
    correct(2, 6, 30);
    EXPECT_EQ(history.derived[2].Zynum, 6);
    EXPECT_EQ(history.derived[2].Cnum, 0);
    EXPECT_EQ(history.derived[3].Cnum, 0) << "the draw behind it is not derived again";
    EXPECT_EQ(history.Ylnow[30], 3) << "and the omissions stay";
    expectTablesAsMemory();
}

TEST_F(Maintenance, TheFirstDrawIsDerivedWithoutOmissions) {
    correct(1, 1, 9);
    EXPECT_EQ(history.derived[1].Zynum, 0);
    EXPECT_EQ(history.derived[1].Znum, 99);
    EXPECT_EQ(history.derived[2].Cnum, 1) << "09 stands in both now, but the second is as it was derived: 26";
}

TEST_F(Maintenance, ACorrectedIssueRenumbersTheLaterDraws) {
    const History before = history;
    correct(2, 0, 2010050);
    EXPECT_EQ(history.Lshm[1][0], 2003001);
    EXPECT_EQ(history.Lshm[2][0], 2010050);
    EXPECT_EQ(history.Lshm[3][0], 2010051);
    EXPECT_EQ(history.Glred, before.Glred);
    EXPECT_EQ(history.Glcount, before.Glcount); // no hits are touched
    EXPECT_EQ(history.Gailvred, before.Gailvred);
    const auto bare = [this](int row) {
        return sql::toInteger(
            fresh.workspace.dbFilnum->queryValue("SELECT [fig0] FROM [fig] WHERE [Idx]=" + std::to_string(row)));
    };
    EXPECT_EQ(bare(2), 2010050);
    EXPECT_EQ(bare(3), 2003003); // later rows are renumbered in dbUser alone
    EXPECT_EQ(number("SELECT [Qihao] FROM [Ylqs] WHERE [Qihao]=2003003"), 2003003);
    EXPECT_EQ(text(), QByteArray("2003001 10 11 12 13 26 28 11 \n2010050 04 09 19 20 21 26 12 \n"
                                 "2010051 01 07 10 23 28 32 16 \n"));
    expectTablesAsMemory();
}

TEST_F(Maintenance, RenumberingInOneStatementLeavesWhatOneForEachDrawDoes) {
    for (int draw = 0; draw < 40; ++draw)
        type(kThree[static_cast<std::size_t>(draw) % 3]);
    sql::Database& dbUser = *fresh.workspace.dbUser;
    dbUser.execute("UPDATE [fig] SET [Idx]=20 WHERE [Idx]=9"); // two rows of one number, as after a refused text
    const auto issues = [&] {
        const sql::Rows rows = dbUser.query("SELECT [Idx],[fig0] FROM [fig]");
        std::vector<std::pair<std::int64_t, std::int64_t>> all;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            all.emplace_back(rows.integerAt(row, 0), rows.integerAt(row, 1));
        return all;
    };
    correct(7, 0, 2010050);
    const auto together = issues();
    dbUser.execute("UPDATE [fig] SET [fig0]=0 WHERE [Idx]>6");
    for (int row = 7; row <= history.Lsnum; ++row)
        dbUser.execute("UPDATE [fig] SET [fig0]=" + std::to_string(2010050 + row - 7) +
                       " WHERE [Idx]=" + std::to_string(row));
    EXPECT_EQ(together, issues());
    EXPECT_EQ(together.back().second, 2010050 + 43 - 7);
}

TEST_F(Maintenance, ACorrectionRunsItsStatements) {
    std::vector<std::string> user;
    std::vector<std::string> bare;
    fresh.workspace.dbUser->setListener([&](std::string_view text) { user.emplace_back(text); });
    fresh.workspace.dbFilnum->setListener([&](std::string_view text) { bare.emplace_back(text); });
    correct(2, 3, 18);
    EXPECT_EQ(bare, std::vector<std::string>{"UPDATE [fig] SET [fig3]=18 WHERE [Idx]=2"});
    EXPECT_NE(std::find(user.begin(), user.end(), bare.front()), user.end());
}

TEST_F(Maintenance, ManyCorrectionsLeaveTheHitsOfTheDraws) {
    std::mt19937 random(99);
    for (int round = 0; round < 60; ++round) {
        const int row = static_cast<int>(random() % 3) + 1;
        const int slot = static_cast<int>(random() % 7) + 1;
        const Draw& draw = history.Lshm[static_cast<std::size_t>(row)];
        const int low = slot == 7 || slot == 1 ? 1 : draw[static_cast<std::size_t>(slot) - 1] + 1;
        const int high = slot == 7 ? 16 : slot == 6 ? 33 : draw[static_cast<std::size_t>(slot) + 1] - 1;
        correct(row, slot, low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1)));
    }
    std::array<int, 39> hits{};
    for (int row = 1; row <= 3; ++row)
        for (std::size_t place = 1; place <= 6; ++place)
            ++hits[static_cast<std::size_t>(history.Lshm[static_cast<std::size_t>(row)][place])];
    for (std::size_t red = 1; red <= 33; ++red) {
        EXPECT_EQ(history.Glred[red], hits[red]) << red;
        EXPECT_DOUBLE_EQ(history.Gailvred[red], hits[red] / 108.0 * 100);
    }
    expectTablesAsMemory();
}

TEST_F(Maintenance, AfterARefusedTextADeletionBringsTheTablesBack) {
    history.Lsnum = 0; // as a refused line of a whole reading leaves memory
    history.Lshm.assign(1, Draw{});
    history.derived.assign(1, history::Derived{});
    type({1, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(count("fig"), 4); // behind what stands in the tables
    deleteLast();
    EXPECT_EQ(history.Lsnum, 3);
    EXPECT_EQ(history.Lshm[3], kThree[2]);
    EXPECT_EQ(history.Glcount, 3);
    expectTablesAsMemory();
}

TEST_F(Maintenance, AFailureLeavesTablesMemoryAndTextAsTheyWere) {
    writeHistoryText(history, fresh.workspace);
    const QByteArray textBefore = text();
    const History before = history;
    fresh.workspace.dbUser->execute("DELETE FROM [GailvB] WHERE [Number] > 15"); // too few for 16 blues
    EXPECT_THROW(type({2003004, 4, 6, 7, 10, 13, 25, 3}), sql::SqlError);
    EXPECT_THROW(deleteLast(), sql::SqlError);
    EXPECT_THROW(clearHistory(history, fresh.workspace), sql::SqlError);
    EXPECT_THROW(correct(2, 7, 3), sql::SqlError);
    EXPECT_EQ(history.Lshm, before.Lshm);
    EXPECT_EQ(history.Glcount, before.Glcount);
    EXPECT_EQ(text(), textBefore);
    for (const char* table : {"fig", "Ylqs", "YlqsB"})
        EXPECT_EQ(count(table), 3) << table;
    EXPECT_EQ(number("SELECT [fig7] FROM [fig] WHERE [Idx]=2"), 12);
    EXPECT_EQ(number("SELECT SUM([Glnum]) FROM [Gailv]"), 18);
}

TEST_F(Maintenance, DrawNumber32768IsARangeError) {
    std::vector<Draw> full(history::kMostDraws, Draw{2003001, 1, 2, 3, 4, 5, 6, 7});
    replaceHistory(history, fresh.workspace, full);
    EXPECT_EQ(history.Lsnum, 32767);
    EXPECT_THROW(type({2003004, 4, 6, 7, 10, 13, 25, 3}), std::range_error);
    EXPECT_EQ(history.Lsnum, 32767);
    deleteLast();
    type({2003004, 4, 6, 7, 10, 13, 25, 3});
    EXPECT_EQ(history.Lsnum, 32767);
    correct(1, 0, 1);
    EXPECT_EQ(number("SELECT [fig0] FROM [fig] WHERE [Idx]=32767"), 32767);
}

} // namespace
