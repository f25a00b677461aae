#include "history/text_file.h"

#include <sys/stat.h>

#include <QDir>

#include "history/maintenance.h"
#include "history/reading_support.h"
#include "history/store.h"
#include "same_history.h"

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
    EXPECT_EQ(read(write(u"b.txt"_s, kOneDraw), {true, false}), Reading::DoneFromDefault);
    EXPECT_EQ(history.Lsnum, 2); // the default file, not the picked one
    EXPECT_FALSE(QFile::exists(texts.filePath(u"b.txt By 张三.TXT"_s)));
}

TEST_F(WholeReading, TheDefaultFileItselfCanBePicked) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(standard(), {true, true}), Reading::Done);
    EXPECT_EQ(history.Lsnum, 2);
}

TEST_F(WholeReading, EveryDefaultFileThatIsPutAsideInADayIsKept) {
    read(write(u"a.txt"_s, kTwoDraws));
    const QString folder = workspace::toQString(history::historyTextFolder(fresh.workspace));
    for (const char* name :
         {" 张三2025-9-30日前 双色号码 .TXT", " 张三2025-9-30 8时05分03秒日前 双色号码 .TXT",
          " 张三2025-9-30 8时05分03秒 (2)日前 双色号码 .TXT", " 张三2025-9-30 8时05分03秒 (3)日前 双色号码 .TXT"}) {
        const QByteArray before = contents(standard());
        const QString aside = folder + u'/' + QString::fromUtf8(name);
        ASSERT_FALSE(QFile::exists(aside)) << name;
        EXPECT_EQ(read(write(u"b.txt"_s, kOneDraw), {true, true}), Reading::Done);
        EXPECT_EQ(contents(aside), before) << name;
    }
    EXPECT_EQ(QDir(texts.path()).entryList(QDir::Files), (QStringList{u"a.txt"_s, u"b.txt"_s}));
}

TEST_F(WholeReading, TheCopyBesideThePickedFileOverwritesNothing) {
    const QString mine = write(u"a.txt By 张三.TXT"_s, "mine");
    const QString other = texts.filePath(u"other"_s);
    ASSERT_TRUE(QFile::link(other, texts.filePath(u"a.txt By 张三 (2).TXT"_s))); // leads nowhere yet
    EXPECT_EQ(read(write(u"a.txt"_s, kTwoDraws)), Reading::Done);
    EXPECT_EQ(history.Lsnum, 2);
    EXPECT_EQ(contents(mine), "mine");
    EXPECT_FALSE(QFile::exists(other));
    EXPECT_FALSE(QFile::exists(texts.filePath(u"a.txt By 张三 (3).TXT"_s)));
}

TEST_F(WholeReading, ACopyThatCannotTakeItsPlaceIsRemoved) {
    read(write(u"a.txt"_s, kTwoDraws));
    const auto folder = history::historyTextFolder(fresh.workspace);
    std::filesystem::rename(folder, folder.parent_path() / "elsewhere");
    std::filesystem::create_directory_symlink(workspace::toPath(texts.path()), folder); // out of the program's folder
    EXPECT_EQ(read(write(u"b.txt"_s, kOneDraw)), Reading::Failed);
    EXPECT_TRUE(answers.details.last().startsWith(u"默认历史文本的文件夹指向程序文件夹之外 "_s));
    EXPECT_EQ(QDir(texts.path()).entryList(QDir::Files), (QStringList{u"a.txt"_s, u"b.txt"_s}));
    EXPECT_EQ(history.Lsnum, 2);
}

TEST_F(WholeReading, APipeIsAFailureAndNoHang) {
    const QString pipe = texts.filePath(u"pipe.txt"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(read(pipe), Reading::Failed);
    ASSERT_EQ(::mkfifo(QFile::encodeName(standard()).constData(), 0600), 0);
    EXPECT_EQ(read(write(u"b.dat"_s, kOneDraw)), Reading::Failed);
}

TEST_F(WholeReading, AFileOfAnotherNameLeavesTheDefaultFileToBeRead) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(write(u"b.dat"_s, kOneDraw)), Reading::DoneFromDefault);
    EXPECT_EQ(history.Lsnum, 2);
}

TEST_F(WholeReading, WithoutAnyFileToReadTheFailureIsTold) {
    EXPECT_EQ(read(write(u"b.dat"_s, kOneDraw)), Reading::Failed);
    ASSERT_EQ(answers.told.size(), 1);
    EXPECT_TRUE(answers.told.at(0).startsWith(u"文件不存在,名字有冲突或格式不正确,"_s));
    EXPECT_EQ(read(u"/不存在/没有.txt"_s), Reading::Failed);
}

TEST_F(WholeReading, ARefusedLineLeavesTablesAndMemory) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(read(write(u"b.TXT"_s, "2010001 01 02 03 04 05 06 07\n2010002 1 2 3\n"), {true, true}),
              Reading::Refused);
    EXPECT_EQ(answers.told, QStringList{u"请检查您的历史号码文本都是由6红+1蓝7个号码组成，中间由空格分开"_s});
    EXPECT_EQ(answers.titles.last(), u"历史号码文本错误"_s);
    EXPECT_EQ(answers.details.last(), u"第2行：2010002 1 2 3\n这一行有0个号码，应为7个"_s);
    EXPECT_EQ(history.Lsnum, 2);
    EXPECT_EQ(history.Glcount, 2);
    EXPECT_EQ(stored(), 2);
    EXPECT_EQ(fresh.workspace.dbUser->rowCount("Ylqs"), 2);
    history::History again;
    loadHistory(again, fresh.workspace);
    expectSameHistory(again, history);
}

TEST_F(WholeReading, AfterAFailureMemoryHoldsWhatTheTablesHold) {
    read(write(u"a.txt"_s, kTwoDraws));
    const history::History before = history;
    for (const QByteArray& bytes : {QByteArray("1 2 3"), QByteArray(kOneDraw).repeated(32768)}) {
        history.Lsnum = 0; // out of step
        history.Lshm.resize(1);
        history.derived.resize(1);
        EXPECT_NE(read(write(u"b.txt"_s, bytes)), Reading::Done);
        expectSameHistory(history, before);
        EXPECT_EQ(history.Glcount, 2);
    }
    fresh.workspace.dbUser->execute("DELETE FROM [GailvB] WHERE [Number]>15"); // too few for 16 blues
    EXPECT_THROW(read(write(u"b.txt"_s, kOneDraw)), sql::SqlError);
    EXPECT_EQ(history.Lshm, before.Lshm);
}

TEST_F(WholeReading, ARefusedLineAfterAClearingLeavesTheOmissions) {
    read(write(u"a.txt"_s, kTwoDraws));
    clearHistory(history, fresh.workspace);
    EXPECT_EQ(read(write(u"b.txt"_s, "1 2 3")), Reading::Refused);
    EXPECT_EQ(history.Ylnow[1], 2); // a draw typed now continues it
}

TEST_F(WholeReading, ALineOfManyMegabytesIsRefusedWithItsStartOnly) {
    const QString file = write(u"a.txt"_s, {});
    ASSERT_TRUE(QFile::resize(file, 40'000'000)); // zeros, as a damaged file holds them
    EXPECT_EQ(read(file), Reading::Refused);
    EXPECT_LT(answers.details.last().size(), 300);
    EXPECT_TRUE(answers.details.last().endsWith(u"这一行太长"_s));
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
    EXPECT_TRUE(history.text.pending);
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
