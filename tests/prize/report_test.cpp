#include "prize/report.h"

#include <QFile>

#include "prize/query_support.h"
#include "workspace/safe_file.h"

namespace prize_tests {
namespace {

const QDateTime kWhen({2026, 11, 2}, {9, 5, 7});

std::string contents(const std::filesystem::path& path) {
    QFile file(workspace::toQString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return file.readAll().toStdString();
}

class Report : public testing::Test {
  protected:
    std::filesystem::path write(const prize::Query& query) { return writeReport(user.path(), query, kWhen); }
    static std::string nameOf(const std::filesystem::path& path) { return path.filename().string(); }

    ScratchFolder user;
};

const std::vector<Bet> kBets{
    {{3, 9, 14, 20, 27, 33, 8}}, {{1, 3, 9, 14, 20, 27, 16}}, {{1, 2, 4, 5, 6, 7, 9}}, {{1, 2, 4, 5, 6, 7, 8}, true}};

TEST_F(Report, HasTheToldLines) {
    QueryTable table;
    table.hold(kBets);
    const auto file = write(table.opened());
    EXPECT_EQ(file, user.path() / "duijiang" / "26-11-2日9.5.7秒兑奖.txt");
    EXPECT_EQ(contents(file), "兑奖日期:2026-11-02\r\n"
                              "兑奖时间:09:05:07\r\n"
                              "组号方式:复选/胆拖组合缩水\r\n"
                              "开奖期数:2026113\r\n"
                              "开奖结果3 9 14 20 27 33  +  8\r\n"
                              "一等奖中出1注\r\n"
                              "二等奖中出0注\r\n"
                              "三等奖中出0注\r\n"
                              "四等奖中出1注\r\n"
                              "五等奖中出0注\r\n"
                              "六等奖中出0注\r\n"
                              "购买3注\r\n"
                              "支出6圆\r\n"
                              "收入5000200圆\r\n"
                              "盈亏5000194圆\r\n"
                              "个人购买情况如下:\r\n"
                              "    03 09 14 20 27 33 08         01 03 09 14 20 27 16     \r\n"
                              "    01 02 04 05 06 07 09     \r\n");
}

TEST_F(Report, NamesHowTheBetsOfEachTableWereMade) {
    const std::pair<std::u16string_view, const char*> methods[] = {{u"mnuXzInq", "组号方式:旋转矩阵组合缩水\r\n"},
                                                                   {u"mnuWbInq", "组号方式:调用文本组合缩水\r\n"},
                                                                   {u"mnuMbInq", "组号方式:组号模版组合缩水\r\n"}};
    for (const auto& [command, line] : methods) {
        QueryTable table(command);
        table.hold(kBets);
        EXPECT_NE(contents(write(table.opened())).find(line), std::string::npos) << line;
    }
}

TEST_F(Report, ALabelOfTheLastRowAloneHasNoLine) {
    QueryTable table;
    table.hold(kBets);
    prize::Rules rules = defaultRules();
    rules.Prizerank[10] = u"十等"_s;
    rules.Prizerank[2] = QString();
    const std::string text = contents(write(table.opened(rules)));
    EXPECT_EQ(text.find("十等"), std::string::npos);
    EXPECT_EQ(text.find("二等奖"), std::string::npos);
    EXPECT_NE(text.find("一等奖中出1注\r\n三等奖中出0注\r\n"), std::string::npos);
}

TEST_F(Report, ListsTheBetsThatWereOpenedLast) {
    QueryTable table;
    table.hold(kBets);
    prize::Query query = table.opened();
    query.pageOut(u"1"_s);
    EXPECT_TRUE(contents(write(query)).ends_with("个人购买情况如下:\r\n    01 02 04 05 06 07 08     \r\n"));
    query.sort();
    EXPECT_NE(contents(write(query)).find("个人购买情况如下:\r\n    03 09"), std::string::npos);
}

TEST_F(Report, WithoutABetItEndsBehindItsHeading) {
    QueryTable table;
    const std::string text = contents(write(table.opened()));
    EXPECT_TRUE(text.ends_with("购买0注\r\n支出0圆\r\n收入0圆\r\n盈亏0圆\r\n个人购买情况如下:\r\n")) << text;
}

TEST_F(Report, TheSecondWithinASecondGetsANameOfItsOwn) {
    QueryTable table;
    table.hold(kBets);
    const prize::Query query = table.opened();
    const std::string first = contents(write(query));
    EXPECT_EQ(nameOf(write(query)), "26-11-2日9.5.7秒 (2)兑奖.txt");
    EXPECT_EQ(nameOf(write(query)), "26-11-2日9.5.7秒 (3)兑奖.txt");
    EXPECT_EQ(contents(user.path() / "duijiang" / "26-11-2日9.5.7秒兑奖.txt"), first);
}

class GivenUpAt : public workspace::Progress {
  public:
    explicit GivenUpAt(int calls) : m_calls(calls) {}
    bool advance(double) override { return m_calls-- > 0; }

  private:
    int m_calls;
};

TEST_F(Report, GivenUpThereIsNoFile) {
    QueryTable table;
    table.hold(std::vector<Bet>(20000, kBets[2]));
    const prize::Query query = table.opened();
    GivenUpAt progress(2);
    EXPECT_EQ(writeReport(user.path(), query, kWhen, &progress), std::filesystem::path());
    EXPECT_TRUE(std::filesystem::is_empty(user.path() / "duijiang"));
}

TEST_F(Report, ThatCannotBeWrittenThrows) {
    QFile inTheWay(workspace::toQString(user.path() / "duijiang"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    QueryTable table;
    EXPECT_THROW(write(table.opened()), std::exception);
}

} // namespace
} // namespace prize_tests
