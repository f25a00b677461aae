#include "history/reading_support.h"
#include "history/store.h"
#include "same_history.h"

namespace {

using history::Draw;
using history::Reading;
using AppendedReading = ReadingTest;

constexpr const char* kThreeMore = "2003001 10 11 12 13 26 28 11\n"
                                   "2003002 04 09 19 20 21 26 12\n"
                                   "2003003 01 07 10 23 28 32 16\n"
                                   "2003005 04 06 07 10 13 25 03\n";

TEST_F(AppendedReading, AddsTheDrawsBehindTheLastOne) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(append(write(u"b.txt"_s, kThreeMore)), Reading::Done);
    EXPECT_EQ(history.Lsnum, 4);
    EXPECT_EQ(history.Lshm[3], (Draw{2003003, 1, 7, 10, 23, 28, 32, 16}));
    EXPECT_EQ(history.Lshm[4][0], 2003005);
    EXPECT_EQ(history.derived[3].Cnum, 0);
    EXPECT_EQ(history.derived[4].Cnum, 2); // 07 and 10 stood in the draw before
    for (const char* table : {"fig", "Ylqs", "YlqsB"})
        EXPECT_EQ(stored(table), 4) << table;
    EXPECT_EQ(fresh.workspace.dbFilnum->rowCount("fig"), 4);
    EXPECT_EQ(history.Glcount, 4);
    EXPECT_DOUBLE_EQ(history.Gailvred[10], 3.0 / 24 * 100);
}

TEST_F(AppendedReading, LeavesWhatAWholeReadingOfAllWouldLeave) {
    read(write(u"a.txt"_s, kTwoDraws));
    append(write(u"b.txt"_s, kThreeMore));
    FreshWorkspace other;
    history::History whole;
    Answers yes;
    yes.picked = texts.filePath(u"b.txt"_s);
    ASSERT_EQ(readWhole(whole, other.workspace, yes, kNow), Reading::Done);
    expectSameHistory(history, whole);
    EXPECT_EQ(contents(standard()), contents(workspace::toQString(history::historyTextFile(other.workspace))));
}

TEST_F(AppendedReading, AsksItsOwnQuestionUnderTheSameTitle) {
    EXPECT_EQ(append(write(u"a.txt"_s, kTwoDraws), {false}), Reading::Cancelled);
    EXPECT_EQ(
        answers.questions,
        QStringList{u"确实要读入追加历史号码吗？读入时只需要检索历史号码文本中没有灌装如电脑的部分，已灌装期号之前部"
                    u"分将不读取，"
                    u"读取部分将追加到原来所输入/读入的历史号后面！点击'确认'读入,点击'取消'放弃该操作。"
                    u"确要读入请保证安装目录下存在历史号码的文本文件文件。读取时可能要花费一段时间,请耐心等候！"_s});
    EXPECT_EQ(answers.titles, QStringList{u"读入历史"_s});
    EXPECT_EQ(history.Lsnum, 0);
}

TEST_F(AppendedReading, OntoAnEmptyHistoryTakesEveryDraw) {
    EXPECT_EQ(append(write(u"a.txt"_s, "01 02 03 04 05 06 07\n08 09 10 11 12 13 14\n")), Reading::Done);
    EXPECT_EQ(history.Lsnum, 2);
    EXPECT_EQ(history.Lshm[1][0], 1);
    EXPECT_EQ(history.Lshm[2][0], 2);
}

TEST_F(AppendedReading, ALineWithoutAnIssueContinuesTheLineBeforeIt) {
    read(write(u"a.txt"_s, kTwoDraws));
    // 2003001 and the line after it are not behind 2003002; the third continues the second and is.
    append(write(u"b.txt"_s, "2003001 10 11 12 13 26 28 11\n04 09 19 20 21 26 12\n01 07 10 23 28 32 16\n"));
    ASSERT_EQ(history.Lsnum, 3);
    EXPECT_EQ(history.Lshm[3], (Draw{2003003, 1, 7, 10, 23, 28, 32, 16}));
}

TEST_F(AppendedReading, AFirstLineWithoutAnIssueContinuesTheLastDraw) {
    read(write(u"a.txt"_s, kTwoDraws));
    append(write(u"b.txt"_s, "01 07 10 23 28 32 16\n"));
    ASSERT_EQ(history.Lsnum, 3);
    EXPECT_EQ(history.Lshm[3][0], 2003003);
}

TEST_F(AppendedReading, EveryLineIsComparedWithTheLastDrawAtTheStart) {
    read(write(u"a.txt"_s, kTwoDraws));
    append(write(u"b.txt"_s, "2003009 01 02 03 04 05 06 07\n2003004 08 09 10 11 12 13 14\n"));
    ASSERT_EQ(history.Lsnum, 4); // both are behind 2003002, in whatever order
    EXPECT_EQ(history.Lshm[3][0], 2003009);
    EXPECT_EQ(history.Lshm[4][0], 2003004);
}

TEST_F(AppendedReading, ASkippedLineMayHoldAnything) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(
        append(write(u"b.txt"_s, "2003001 1 2 3\n2003002 01 02 03 04 05 06 07 08\n2003003 01 07 10 23 28 32 16")),
        Reading::Done);
    EXPECT_EQ(history.Lsnum, 3);
}

TEST_F(AppendedReading, AnIssueAloneIsAnIssueToTheNextLine) {
    read(write(u"a.txt"_s, kTwoDraws));
    append(write(u"b.txt"_s, "2003001        \n04 09 19 20 21 26 12\n01 07 10 23 28 32 16\n"));
    ASSERT_EQ(history.Lsnum, 3);
    EXPECT_EQ(history.Lshm[3], (Draw{2003003, 1, 7, 10, 23, 28, 32, 16}));
}

TEST_F(AppendedReading, ARefusedLineLeavesHistoryAndTablesAsTheyWere) {
    read(write(u"a.txt"_s, kTwoDraws));
    const history::History before = history;
    EXPECT_EQ(append(write(u"b.txt"_s, "2003003 01 07 10 23 28 32 16\n2003004 1 2 3\n")), Reading::Refused);
    EXPECT_EQ(answers.told, QStringList{u"请检查您的历史号码文本都是由6红+1蓝7个号码组成，中间由空格分开"_s});
    EXPECT_EQ(answers.titles.last(), u"历史号码文本错误"_s);
    EXPECT_EQ(history.Lshm, before.Lshm);
    EXPECT_EQ(stored(), 2);
}

TEST_F(AppendedReading, NothingNewSetsTheSharesRight) {
    read(write(u"a.txt"_s, kTwoDraws));
    fresh.reopen();
    loadHistory(history, fresh.workspace);
    storeDraw(history, fresh.workspace, {2003003, 1, 7, 10, 23, 28, 32, 16});
    EXPECT_DOUBLE_EQ(history.GailvBlue[16], 100); // over the one draw of this run
    EXPECT_EQ(append(write(u"b.txt"_s, kTwoDraws)), Reading::Done);
    EXPECT_EQ(history.Lsnum, 3);
    EXPECT_DOUBLE_EQ(history.GailvBlue[16], 100.0 / 3);
}

TEST_F(AppendedReading, RewritesTheDefaultFileFromAllDraws) {
    read(write(u"a.txt"_s, kTwoDraws));
    append(write(u"b.txt"_s, "2003003 01 07 10 23 28 32 16"), {true, true});
    EXPECT_EQ(contents(standard()), QByteArray("2003001 10 11 12 13 26 28 11 \n2003002 04 09 19 20 21 26 12 \n"
                                               "2003003 01 07 10 23 28 32 16 \n"));
}

TEST_F(AppendedReading, MoreDrawsThanAHistoryHoldsAreToldAndNoneIsTaken) {
    QByteArray many;
    for (int issue = 1; issue <= history::kMostDraws; ++issue)
        many += QByteArray::number(2000000 + issue) + " 01 02 03 04 05 06 07\n";
    read(write(u"a.txt"_s, "2000000 01 02 03 04 05 06 07"));
    EXPECT_EQ(append(write(u"b.txt"_s, many)), Reading::Failed);
    EXPECT_EQ(answers.titles.last(), u"输入错误"_s);
    EXPECT_EQ(history.Lsnum, 1);
    EXPECT_EQ(stored(), 1);
}

} // namespace
