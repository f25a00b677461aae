#include "prize/report_list.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "workspace/keeping.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace {

class ReportList : public testing::Test {
  protected:
    ReportList() { std::filesystem::create_directory(reports); }

    static std::filesystem::path write(const std::filesystem::path& file, const QByteArray& bytes) {
        EXPECT_TRUE(workspace::writeWholeFile(file, bytes));
        return file;
    }
    /// "甲" has the lines 兑奖日期:甲, 兑奖时间:…, 甲.
    std::filesystem::path addReport(const char* name, const QByteArray& word) {
        return write(reports / name, "兑奖日期:" + word + "\r\n兑奖时间:09:05:07\r\n" + word + "\r\n");
    }
    void addThree() {
        addReport("26-11-2日9.5.7秒兑奖.txt", "甲");
        addReport("26-11-10日9.5.7秒兑奖.txt", "丙");
        addReport("26-11-2日9.5.7秒 (2)兑奖.txt", "乙");
    }
    static std::string word(const std::optional<QString>& text) {
        return text ? text->section(u"\r\n"_s, 2, 2).toStdString() : "(stays)";
    }

    ScratchFolder user;
    const std::filesystem::path reports = user.path() / "duijiang";
    prize::ReportList list{user.path()};
};

TEST_F(ReportList, ListsReportsInTheOrderOfTime) {
    addThree();
    write(reports / "26-11-3日9.5.7秒.txt", "no report");
    list.open();
    EXPECT_EQ(list.entries(),
              (std::vector<QString>{u"兑奖日期:甲     兑奖时间:09:05:07"_s, u"兑奖日期:乙     兑奖时间:09:05:07"_s,
                                    u"兑奖日期:丙     兑奖时间:09:05:07"_s}));
    EXPECT_EQ(list.ReportCount, 3);
    EXPECT_EQ(word(list.last()), "丙");
}

TEST_F(ReportList, OfANationalEncodingIsReadToo) {
    write(reports / "1兑奖.txt", QByteArray::fromHex("b6d2bdb1c8d5c6da3a310d0a320d0a")); // 兑奖日期:1, 2
    list.open();
    EXPECT_EQ(list.entries().at(0), u"兑奖日期:1     2"_s);
}

TEST_F(ReportList, WithoutAFolderIsEmptyAndStepsNowhere) {
    std::filesystem::remove(reports);
    list.open();
    EXPECT_TRUE(list.entries().empty());
    EXPECT_EQ(list.last(), std::nullopt);
    EXPECT_EQ(list.next(), std::nullopt);
    EXPECT_EQ(list.previous(), std::nullopt);
    EXPECT_EQ(list.ReportIndex, 0);
}

TEST_F(ReportList, StepsFromTheFirstToOnePastTheLast) {
    addThree();
    list.open();
    EXPECT_EQ(word(list.previous()), "(stays)");
    EXPECT_EQ(word(list.next()), "乙") << "the index begins at the first";
    EXPECT_EQ(word(list.next()), "丙");
    EXPECT_EQ(word(list.next()), "(stays)");
    EXPECT_EQ(list.ReportIndex, 3);
    EXPECT_EQ(word(list.next()), "(stays)");
    EXPECT_EQ(list.ReportIndex, 3);
    EXPECT_EQ(word(list.previous()), "丙");
}

TEST_F(ReportList, AnEntryIsShownWithoutAStep) {
    addThree();
    list.open();
    EXPECT_EQ(word(list.chosen(2)), "丙");
    EXPECT_EQ(list.ReportIndex, 0);
}

TEST_F(ReportList, AFileThatIsGoneLeavesTheText) {
    addThree();
    list.open();
    std::filesystem::remove(list.ReportFiles[1]);
    EXPECT_EQ(list.chosen(1), std::nullopt);
}

TEST_F(ReportList, DeletingAllSparesTheReports) {
    addThree();
    list.open();
    const auto inUserFolder = write(user.path() / "26-1-1日1.1.1秒兑奖.txt", "x");
    QTemporaryDir configuration;
    workspace::Settings settings(configuration.path().toStdString());
    EXPECT_TRUE(list.deleteAll(settings, u"张三"_s).empty());
    EXPECT_TRUE(list.entries().empty());
    EXPECT_EQ(settings.value(u"张三"_s, u"Money"_s, u"Default"_s), u"0"_s);
    EXPECT_FALSE(std::filesystem::exists(inUserFolder));
    prize::ReportList again(user.path());
    again.open();
    EXPECT_EQ(again.entries().size(), 3u);
}

TEST_F(ReportList, DeletesTheTickedAndListsTheRest) {
    addThree();
    list.open();
    EXPECT_TRUE(list.deleteTicked({0, 2}).empty());
    EXPECT_EQ(list.entries(), std::vector<QString>{u"兑奖日期:乙     兑奖时间:09:05:07"_s});
    EXPECT_EQ(list.ReportCount, 4) << "the new path stands behind the old ones";
    EXPECT_EQ(word(list.last()), "乙");
    EXPECT_TRUE(workspace::unreadKeptFiles(user.path()).empty());
}

TEST_F(ReportList, AfterADeletionAnEntryCanStandForAnEarlierPath) {
    addThree();
    addReport("26-11-11日9.5.7秒兑奖.txt", "丁");
    list.open();
    list.deleteTicked({2}); // 丙; 丁 moves up
    ASSERT_EQ(list.entries().size(), 3u);
    EXPECT_EQ(list.entries()[2], u"兑奖日期:丁     兑奖时间:09:05:07"_s);
    EXPECT_EQ(list.chosen(2), std::nullopt) << "the path of what was deleted";
    EXPECT_EQ(word(list.chosen(1)), "乙");
}

TEST_F(ReportList, AReportThatNobodyTickedIsKept) {
    addThree();
    list.open();
    list.deleteTicked({0}); // 甲; the places are 甲 乙 丙, the entries 乙 丙
    EXPECT_TRUE(list.deleteTicked({1}).empty());
    EXPECT_EQ(list.entries(), std::vector<QString>{u"兑奖日期:丙     兑奖时间:09:05:07"_s})
        << "丙 was ticked, the place is that of 乙";
    const auto kept = workspace::unreadKeptFiles(user.path());
    ASSERT_EQ(kept.size(), 1u);
    ASSERT_EQ(kept[0].files.size(), 1u);
    EXPECT_EQ(kept[0].files[0].filename().string(), "26-11-2日9.5.7秒 (2)兑奖.txt");
}

TEST_F(ReportList, BeyondItsSlotsNothingIsListedAndNothingLost) {
    for (int report = 0; report < prize::kReportSlots + 2; ++report)
        write(reports / (std::to_string(report) + "兑奖.txt"), "a\r\nb\r\n");
    list.open();
    EXPECT_EQ(list.entries().size(), 1025u);
    EXPECT_EQ(list.ReportCount, 1025);
    EXPECT_EQ(list.unlisted(), 2);
}

} // namespace
