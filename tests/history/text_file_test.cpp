#include "history/text_file.h"

#include "history/reading_support.h"
#include "history/store.h"

namespace {

using history::Draw;
using history::Reading;
using WholeReading = ReadingTest;

TEST_F(WholeReading, StoresTheDrawsOfThePickedFile) {
    EXPECT_EQ(read(write(u"开奖.txt"_s, kTwoDraws)), Reading::Done);
    EXPECT_EQ(history.Lsnum, 2);
    EXPECT_EQ(history.Lshm[2], (Draw{2003002, 4, 9, 19, 20, 21, 26, 12}));
    EXPECT_EQ(history.derived[2].Cnum, 1);
    EXPECT_EQ(history.Glcount, 2);
    EXPECT_EQ(stored(), 2);
    EXPECT_TRUE(QFile::exists(standard()));
    EXPECT_TRUE(standard().endsWith(u"/双色历史号码/张三 双色号码.TXT"_s));
    EXPECT_FALSE(QFile::exists(texts.filePath(u"开奖.txt By 张三.TXT"_s))); // the copy has become the default file
    EXPECT_TRUE(QFile::exists(texts.filePath(u"开奖.txt"_s)));
    EXPECT_TRUE(answers.shownFolder.endsWith(u"/双色历史号码"_s));
    EXPECT_EQ(answers.shownFilter, u"Text(*.txt)|*.txt"_s);
    EXPECT_EQ(answers.titles, QStringList{u"读入历史"_s});
}

TEST_F(WholeReading, CancelAtTheQuestionOrTheFileDialogChangesNothing) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(write(u"b.txt"_s, kOneDraw), {false}), Reading::Cancelled);
    EXPECT_EQ(read(QString()), Reading::Cancelled);
    EXPECT_TRUE(answers.told.isEmpty());
    EXPECT_EQ(history.Lsnum, 2);
    EXPECT_EQ(stored(), 2);
}

TEST_F(WholeReading, AnExistingDefaultFileIsPutAsideWhenTheUserAgrees) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(write(u"b.txt"_s, kOneDraw), {true, true}), Reading::Done);
    EXPECT_EQ(
        answers.questions.at(1),
        u"读取的历史号码将保存为名为: 张三 双色号码.TXT 的文本文件,张三 双色号码.TXT的文本已经存在,"
        u"将要改名为:2025-9-30 8:05:03 双色号码 再选择文本作为历史号码的文本,然后再次读如历史数据.确实要改名吗?"_s);
    EXPECT_EQ(history.Lsnum, 1);
    EXPECT_EQ(stored(), 1);
    EXPECT_EQ(fresh.workspace.dbUser->rowCount("Ylqs"), 1);
    QFile aside(workspace::toQString(fresh.folder()) + u"/双色历史号码/ 张三2025-9-30日前 双色号码 .TXT"_s);
    ASSERT_TRUE(aside.open(QIODevice::ReadOnly));
    EXPECT_EQ(aside.readAll(), QByteArray(kTwoDraws).replace('\n', " \n")); // as the program had written it
}

TEST_F(WholeReading, AnExistingDefaultFileIsReadWhenTheUserKeepsIt) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(write(u"b.txt"_s, kOneDraw), {true, false}), Reading::Done);
    EXPECT_EQ(history.Lsnum, 2); // the default file, not the picked one
    EXPECT_FALSE(QFile::exists(texts.filePath(u"b.txt By 张三.TXT"_s)));
}

TEST_F(WholeReading, TheDefaultFileItselfCanBePicked) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(standard(), {true, true}), Reading::Done);
    EXPECT_EQ(history.Lsnum, 2);
}

TEST_F(WholeReading, PuttingAsideTwiceADayIsANameConflict) {
    read(write(u"a.txt"_s, kTwoDraws));
    read(write(u"b.txt"_s, kOneDraw), {true, true});
    EXPECT_EQ(read(write(u"c.txt"_s, kOneDraw), {true, true}), Reading::Failed);
    EXPECT_EQ(answers.titles.last(), u"输入错误"_s);
    EXPECT_EQ(stored(), 1);
}

TEST_F(WholeReading, AFileOfAnotherNameLeavesTheDefaultFileToBeRead) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(write(u"b.dat"_s, kOneDraw)), Reading::Done);
    EXPECT_EQ(history.Lsnum, 2);
}

TEST_F(WholeReading, WithoutAnyFileToReadTheFailureIsTold) {
    EXPECT_EQ(read(write(u"b.dat"_s, kOneDraw)), Reading::Failed);
    ASSERT_EQ(answers.told.size(), 1);
    EXPECT_TRUE(answers.told.at(0).startsWith(u"文件不存在,名字有冲突或格式不正确,"_s));
    EXPECT_EQ(read(u"/不存在/没有.txt"_s), Reading::Failed);
}

TEST_F(WholeReading, ARefusedLineLeavesTheTablesAndEmptiesTheMemory) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(write(u"b.TXT"_s, "2010001 01 02 03 04 05 06 07\n2010002 1 2 3\n"), {true, true}),
              Reading::Refused);
    EXPECT_EQ(answers.told, QStringList{u"请检查您的历史号码文本都是由6红+1蓝7个号码组成，中间由空格分开"_s});
    EXPECT_EQ(answers.titles.last(), u"历史号码文本错误"_s);
    EXPECT_EQ(history.Lsnum, 0);
    EXPECT_EQ(stored(), 2);
    EXPECT_EQ(fresh.workspace.dbUser->rowCount("Ylqs"), 2);
    history::History again;
    loadHistory(again, fresh.workspace);
    EXPECT_EQ(again.Lsnum, 2);
}

TEST_F(WholeReading, TakesGb18030AndUnsortedReds) {
    EXPECT_EQ(read(write(u"a.txt"_s, "2003001\xC6\xDA 28 26 13 12 11 10 11\n")), Reading::Done);
    EXPECT_EQ(history.Lshm[1], (Draw{2003001, 28, 26, 13, 12, 11, 10, 11}));
    EXPECT_EQ(history.derived[1].Apzounum, -18);
}

TEST_F(WholeReading, AnEmptyFileGivesAnEmptyHistory) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(write(u"b.txt"_s, ""), {true, true}), Reading::Done);
    EXPECT_EQ(history.Lsnum, 0);
    EXPECT_EQ(stored(), 0);
    EXPECT_EQ(history.Gailvred[10], 0);
}

TEST_F(WholeReading, MoreDrawsThanAHistoryHoldsAreTold) {
    EXPECT_EQ(read(write(u"a.txt"_s, kOneDraw.repeated(32768))), Reading::Failed);
    EXPECT_EQ(stored(), 0);
}

TEST_F(WholeReading, RewritesTheDefaultFileFromMemory) {
    read(write(u"a.txt"_s, "\xEF\xBB\xBF"
                           "2003001期10红11.12,13 26\t28 11\r\n04 09 19 20 21 26 12"));
    EXPECT_EQ(contents(standard()), QByteArray("2003001 10 11 12 13 26 28 11 \n2003002 04 09 19 20 21 26 12 \n"));
}

TEST_F(WholeReading, ADefaultFileThatCannotBeWrittenIsPassedOver) {
    read(write(u"a.txt"_s, kTwoDraws));
    QFile::remove(standard());
    std::filesystem::create_directory(workspace::toPath(standard()));
    writeHistoryText(history, fresh.workspace);
    EXPECT_TRUE(std::filesystem::is_directory(workspace::toPath(standard())));
}

/// Odd files that users have: each reads as the two draws, or is refused and leaves the stored one.
TEST_F(WholeReading, ReadsOrRefusesOddFilesWhole) {
    const QByteArray full = "2003001 10 11 12 13 26 28 11\n2003002 04 09 19 20 21 26 12";
    const struct {
        const char* defect;
        QByteArray bytes;
        Reading expected;
    } files[] = {
        {"no line end at the end", full, Reading::Done},
        {"cut in the middle of the last number", full.chopped(1), Reading::Refused},
        {"cut in the middle of an issue", full.left(full.indexOf('\n') + 5), Reading::Refused},
        {"byte order mark", "\xEF\xBB\xBF" + full, Reading::Done},
        {"ends of lines of another system", QByteArray(full).replace('\n', "\r\n"), Reading::Done},
        {"ends of lines of an old system", QByteArray(full).replace('\n', '\r'), Reading::Done},
        {"tabs", QByteArray(full).replace(' ', '\t'), Reading::Done},
        {"full-width blanks in UTF-8", QByteArray(full).replace(' ', "\xE3\x80\x80"), Reading::Done},
        {"full-width blanks in GB18030", QByteArray(full).replace(' ', "\xA1\xA1"), Reading::Done},
        {"a line of blanks", QByteArray(full).replace('\n', "\n  \n"), Reading::Refused},
        {"empty lines", QByteArray(full).replace('\n', "\n\n\n"), Reading::Done},
        {"an eighth number", full + " 13", Reading::Refused},
        {"a number of one digit", QByteArray(full).replace(" 09 ", " 9 "), Reading::Refused},
        {"an issue alone", full + "\n2003003        ", Reading::Refused},
    };
    for (const auto& file : files) {
        SCOPED_TRACE(file.defect);
        QFile::remove(standard());
        ASSERT_EQ(read(write(u"a.txt"_s, kOneDraw)), Reading::Done);
        QFile::remove(standard());
        ASSERT_EQ(read(write(u"b.txt"_s, file.bytes)), file.expected);
        const bool done = file.expected == Reading::Done;
        EXPECT_EQ(stored(), done ? 2 : 1);
        EXPECT_EQ(stored("YlqsB"), done ? 2 : 1);
        if (done) {
            EXPECT_EQ(history.Lshm[2], (Draw{2003002, 4, 9, 19, 20, 21, 26, 12}));
        } else {
            EXPECT_EQ(answers.titles.last(), u"历史号码文本错误"_s);
        }
    }
}

} // namespace
