#include "prize/query.h"

#include "prize/query_support.h"

namespace prize_tests {
namespace {

using Lines = std::vector<std::string>;

/// One bet for each rule from row 1 to 10, then three that win nothing: three reds, none, two reds.
const std::vector<Bet> kWinners{
    {{3, 9, 14, 20, 27, 33, 8}}, {{3, 9, 14, 20, 27, 33, 7}}, {{3, 9, 14, 20, 27, 30, 8}},
    {{1, 3, 9, 14, 20, 27, 16}}, {{1, 3, 9, 14, 20, 28, 8}},  {{1, 2, 3, 9, 14, 20, 1}},
    {{1, 2, 3, 9, 14, 21, 8}},   {{1, 2, 4, 5, 27, 33, 8}},   {{1, 2, 4, 5, 6, 33, 8}},
    {{1, 2, 4, 5, 6, 7, 8}},     {{1, 2, 4, 20, 27, 33, 9}},  {{1, 2, 4, 5, 6, 7, 9}},
    {{1, 2, 4, 5, 27, 33, 10}},
};

std::vector<Bet> winnersOutFrom(std::size_t first) {
    std::vector<Bet> bets = kWinners;
    for (std::size_t bet = first; bet < bets.size(); ++bet)
        bets[bet].out = true;
    return bets;
}

const std::string kSixReds = "[Numstring]= format([fig1],\"00\")  & Chr(32) & format([fig2],\"00\")  & Chr(32) & "
                             "format([fig3],\"00\")  & Chr(32) & format([fig4],\"00\")   & Chr(32) & "
                             "format([fig5],\"00\")   & Chr(32) & format([fig6],\"00\")";

Lines matches(const std::string& update, const std::string& table) {
    Lines lines;
    for (const char* red : {"03", "09", "14", "20", "27", "33"})
        lines.push_back(update + "[jiben]=[jiben]+1 WHERE " + table + ".[NumString] LIKE \"*" + red + "*\"");
    return lines;
}

void append(Lines& lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

class AllEntries : public testing::TestWithParam<int> {};

TEST_P(AllEntries, OpenByTheStatementsOfTheirKind) {
    const prize::QueryEntry& entry = prize::kQueryEntries[GetParam()];
    QueryTable table(entry.command);
    table.takeStatements();
    table.opened();
    const std::string name = "[" + std::string(entry.table) + "]";
    const std::string alter = "ALTER TABLE " + name;
    const std::string update = "UPDATE " + name + " SET ";
    const std::string first = "SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6]";
    const std::string kept = " FROM " + name + " WHERE [unslt] = false";
    const std::string out = " FROM " + name + " WHERE [unslt] = true";
    Lines told;
    if (entry.kind.form == "GAganDj") {
        told = {alter + " DROP COLUMN [jiben]",
                alter + " DROP COLUMN [tebie]",
                alter + " DROP COLUMN [jiang]",
                alter + " DROP COLUMN [jing]",
                alter + " ADD COLUMN [jiben] integer",
                alter + " ADD COLUMN [tebie] integer",
                alter + " ADD COLUMN [jiang] string",
                alter + " ADD COLUMN [jing] long",
                update + kSixReds,
                update + "[jiben]=0 ,[tebie]=0"};
        append(told, matches(update, name));
        told.push_back(update + "[tebie]=1 WHERE " + name + ".[fig7] = 8");
        const char* rules[][4] = {{"六", "5", "0", "1"},      {"六", "5", "1", "1"},    {"六", "5", "2", "1"},
                                  {"五", "10", "3", "1"},     {"五", "10", "4", "0"},   {"四", "200", "4", "1"},
                                  {"四", "200", "5", "0"},    {"三", "3000", "5", "1"}, {"二", "50000", "6", "0"},
                                  {"一", "5000000", "6", "1"}};
        for (const auto& [level, money, reds, blue] : rules)
            told.push_back(update + "[jiang]=\"" + level + "等奖\" ,[jing]= " + money + " WHERE " + name +
                           ".[jiben]=" + reds + "AND " + name + ".[tebie]=" + blue);
        const std::string columns = first + "  , [fig7] , [jiben] , [tebie]  , [jiang] , [jing]";
        append(told, {columns + " ,[fliter]" + out, columns + kept});
        for (const std::string& rows : {kept, out})
            for (const char* level : {"一", "二", "三", "四", "五", "六"})
                told.push_back("SELECT COUNT(*) as [countzhu]" + rows + " AND [jiang] = \"" + level + "等奖\"");
        told.push_back("SELECT SUM([jing]) as [sumnum] FROM " + name + " WHERE [unslt] = FALSE");
    } else if (entry.kind.form == "GAganRDj") {
        told = {alter + " DROP COLUMN [jiben]", alter + " ADD COLUMN [jiben] integer", update + kSixReds,
                update + "[jiben]=0"};
        append(told, matches(update, name));
        append(told, {first + " , [jiben] ,[fliter]" + out, first + " , [jiben]" + kept});
    } else {
        told = {alter + " DROP COLUMN [jiben]",
                alter + " DROP COLUMN [tebie]",
                alter + " ADD COLUMN [jiben] integer",
                alter + " ADD COLUMN [tebie] integer",
                update + kSixReds + "   & Chr(32) & format([fig7],\"00\")",
                update + "[jiben]=0 ,[tebie]=0"};
        append(told, matches(update, name));
        told.push_back(first + "  , [fig7],[jiben]" + kept);
    }
    EXPECT_EQ(table.takeStatements(), told);
}

INSTANTIATE_TEST_SUITE_P(Query, AllEntries, testing::Range(0, 9),
                         [](const auto& entry) { return std::string(prize::kQueryEntries[entry.param].table); });

class Query : public testing::TestWithParam<sql::Executor> {
  protected:
    static Lines prizesOf(const sql::Rows& rows) {
        Lines lines;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            lines.push_back(rows.textAt(row, 0) + ": " + rows.textAt(row, 8) + "+" + rows.textAt(row, 9) + " " +
                            rows.textAt(row, 10) + " " + rows.textAt(row, 11));
        return lines;
    }
};

TEST_P(Query, GivesEachRuleItsLabelAndMoney) {
    QueryTable table(u"mnuzhInq", GetParam());
    table.hold(kWinners);
    const prize::Query query = table.opened();
    EXPECT_EQ(prizesOf(query.kept()),
              (Lines{"1: 6+1 一等奖 5000000", "2: 6+0 二等奖 50000", "3: 5+1 三等奖 3000", "4: 5+0 四等奖 200",
                     "5: 4+1 四等奖 200", "6: 4+0 五等奖 10", "7: 3+1 五等奖 10", "8: 2+1 六等奖 5",
                     "9: 1+1 六等奖 5", "10: 0+1 六等奖 5", "11: 3+0  ", "12: 0+0  ", "13: 2+0  "}));
    EXPECT_TRUE(sql::isNull(query.kept().at(10, 10))) << "what won nothing is Null, not empty";
    EXPECT_TRUE(sql::isNull(query.kept().at(10, 11)));
    EXPECT_EQ(query.out().count(), 0);
}

TEST_P(Query, PartsWhatIsKeptFromWhatIsOut) {
    QueryTable table(u"mnuzhInq", GetParam());
    table.hold(winnersOutFrom(7));
    const prize::Query query = table.opened();
    EXPECT_EQ(query.keptCount(), 7);
    EXPECT_EQ(query.outCount(), 6);
    EXPECT_EQ(linesOf(query.out()).front(), "8|1|2|4|5|27|33|8|2|1|六等奖|5|和值|");
    EXPECT_EQ(linesOf(query.kept()).front(), "1|3|9|14|20|27|33|8|6|1|一等奖|5000000|");
    EXPECT_EQ(linesOf(query.summary().kept),
              (Lines{"一等奖 1 x 5000000 = 5000000", "二等奖 1 x 50000 = 50000", "三等奖 1 x 3000 = 3000",
                     "四等奖 2 x 200 = 400", "五等奖 2 x 10 = 20", "六等奖 0 x 5 = 0"}));
    EXPECT_EQ(linesOf(query.summary().out),
              (Lines{"一等奖 0 x 5000000 = 0", "二等奖 0 x 50000 = 0", "三等奖 0 x 3000 = 0", "四等奖 0 x 200 = 0",
                     "五等奖 0 x 10 = 0", "六等奖 3 x 5 = 15"}));
    EXPECT_EQ(query.Cost, 14);
    EXPECT_EQ(query.Income, 5053420);
    EXPECT_EQ(query.PrizeCount, (std::array<std::int64_t, 11>{0, 1, 1, 1, 2, 0, 2, 0, 0, 0, 0}));
}

TEST_P(Query, OfTwoRulesWithOneMatchTheFirstPrevails) {
    QueryTable table(u"mnuzhInq", GetParam());
    table.hold(kWinners);
    prize::Rules rules = defaultRules();
    rules.PrizeMatch[9] = rules.PrizeMatch[3]; // 5 + 1; nothing has 1 + 1 now
    const prize::Query query = table.opened(rules);
    EXPECT_EQ(prizesOf(query.kept())[2], "3: 5+1 三等奖 3000");
    EXPECT_EQ(prizesOf(query.kept())[8], "9: 1+1  ");
}

TEST_P(Query, AClearedLabelStaysInForceAndAnEmptyOneIsNoLevel) {
    QueryTable table(u"mnuzhInq", GetParam());
    table.hold(kWinners);
    prize::Rules rules = defaultRules();
    rules.Prizerank[2] = u"    "_s;
    rules.Prizerank[3] = QString();
    rules.PrizeMoney[1] = 0;
    const prize::Query query = table.opened(rules);
    EXPECT_EQ(prizesOf(query.kept())[0], "1: 6+1 一等奖 0");
    EXPECT_EQ(prizesOf(query.kept())[1], "2: 6+0      50000");
    EXPECT_EQ(linesOf(query.summary().kept),
              (Lines{"一等奖 1 x 0 = 0", "     1 x 50000 = 50000", "四等奖 2 x 200 = 400", "五等奖 2 x 10 = 20",
                     "六等奖 3 x 5 = 15"}));
    EXPECT_EQ(query.Income, 50000 + 3000 + 400 + 20 + 15) << "a level without a name pays all the same";
}

TEST_P(Query, OnlyNeighboursWithOneLabelAreMerged) {
    QueryTable table(u"mnuzhInq", GetParam());
    table.hold(kWinners);
    prize::Rules rules = defaultRules();
    rules.Prizerank[6] = u"一等奖"_s; // as row 1, and not beside it
    const prize::Query query = table.opened(rules);
    EXPECT_EQ(linesOf(query.summary().kept),
              (Lines{"一等奖 2 x ? = 5000010", "二等奖 1 x 50000 = 50000", "三等奖 1 x 3000 = 3000",
                     "四等奖 2 x 200 = 400", "一等奖 2 x ? = 5000010", "五等奖 1 x 10 = 10", "六等奖 3 x 5 = 15"}));
    EXPECT_EQ(query.PrizeCount[1], 2);
    EXPECT_EQ(query.PrizeCount[6], 2) << "bets of all rows with the label count in each";
}

TEST_P(Query, WithNothingKeptItHasNoIncome) {
    QueryTable table(u"mnuzhInq", GetParam());
    table.hold(winnersOutFrom(0));
    const prize::Query query = table.opened();
    EXPECT_EQ(query.Cost, 0);
    EXPECT_EQ(query.Income, 0);
    EXPECT_EQ(query.summary().out.front().bets, 1);
}

TEST_P(Query, AMissingTableIsEmpty) {
    QueryTable table(u"mnuzhInq", GetParam());
    table.database->execute("DROP TABLE [zuhe]");
    const prize::Query query = table.opened();
    EXPECT_EQ(query.kept().count() + query.out().count() + query.Cost + query.Income, 0);
    EXPECT_EQ(query.summary().kept.size(), 6u);
}

TEST_P(Query, OpenedAgainWithOtherRulesItKeepsNothingOfBefore) {
    QueryTable table(u"mnuzhInq", GetParam());
    table.hold(kWinners);
    table.opened();
    prize::Rules rules = defaultRules();
    for (auto& match : rules.PrizeMatch)
        match = {0, 0};
    rules.Prizerank[1] = u"安慰"_s;
    const prize::Query query = table.opened(rules);
    EXPECT_EQ(prizesOf(query.kept())[0], "1: 6+1  ");
    EXPECT_EQ(prizesOf(query.kept())[11], "12: 0+0 安慰 5000000");
    EXPECT_EQ(query.Income, 5000000);
}

TEST_P(Query, SortsHitsFirst) {
    QueryTable table(u"mnuzhInq", GetParam());
    std::vector<Bet> bets = kWinners;
    std::reverse(bets.begin(), bets.end());
    bets[0].out = bets[1].out = bets[2].out = true; // 2+0, 0+0, 3+0
    table.hold(bets);
    prize::Query query = table.opened();
    table.takeStatements();
    query.sort();
    const auto statements = table.takeStatements();
    ASSERT_EQ(statements.size(), 2u);
    EXPECT_TRUE(statements[0].ends_with("] WHERE [unslt] = true ORDER BY [jiben] DESC,[tebie] DESC"));
    EXPECT_TRUE(statements[1].ends_with("] WHERE [unslt] = false ORDER BY [jiben] DESC,[tebie] DESC"));
    std::string kept;
    for (const std::string& line : prizesOf(query.kept()))
        kept += line.substr(line.find(' ') + 1, 4);
    EXPECT_EQ(kept, "6+1 6+0 5+1 5+0 4+1 4+0 3+1 2+1 1+1 0+1 ");
    EXPECT_EQ(query.out().integerAt(0, 8), 3);
    EXPECT_EQ(query.out().integerAt(2, 8), 0);
    EXPECT_EQ(query.lastOpened().count(), query.kept().count());
}

TEST_P(Query, APageReachesOneFurther) {
    QueryTable table(u"mnuzhInq", GetParam());
    std::vector<Bet> bets(30005, Bet{{1, 2, 4, 5, 6, 7, 9}});
    table.hold(bets);
    table.database->execute("UPDATE [zuhe] SET [unslt]=true WHERE [idx] > 29990");
    prize::Query query = table.opened();
    const auto span = [](const sql::Rows& rows) {
        return std::to_string(rows.integerAt(0, 0)) + ".." + std::to_string(rows.integerAt(rows.count() - 1, 0));
    };
    query.pageKept(u"1"_s);
    EXPECT_EQ(span(query.kept()), "1..20000");
    table.takeStatements();
    query.pageKept(u"2"_s);
    EXPECT_TRUE(
        table.takeStatements().at(0).ends_with("] WHERE [unslt] = false AND [idx] >=10001 AND [idx] <=30000"));
    EXPECT_EQ(span(query.kept()), "10001..29990");
    EXPECT_EQ(query.keptCount(), 29990) << "the cost is that of all";
    query.pageOut(u"3"_s);
    EXPECT_TRUE(table.takeStatements().at(0).ends_with("] WHERE [unslt] = true AND [idx] >=20001 AND [idx] <=40000"));
    EXPECT_EQ(span(query.lastOpened()), "29991..30005") << "the page that is out is what would be reported";
    query.pageKept(u"words"_s);
    EXPECT_EQ(span(query.lastOpened()), "1..10000");
}

TEST_P(Query, ALabelWithAQuoteIsPassedOver) {
    QueryTable table(u"mnuzhInq", GetParam());
    table.hold(kWinners);
    prize::Rules rules = defaultRules();
    rules.Prizerank[1] = u"x\", [unslt]=true, [fliter]=\"y"_s;
    const prize::Query query = table.opened(rules);
    EXPECT_EQ(query.keptCount(), 13);
    EXPECT_EQ(prizesOf(query.kept())[0], "1: 6+1  ");
    EXPECT_EQ(query.summary().kept.front().bets, 0);
}

TEST_P(Query, SixRedsAreCountedAndSortedByTheirMatches) {
    QueryTable table(u"mnuMbInqR", GetParam());
    table.hold({{{1, 2, 4, 5, 6, 7}}, {{3, 9, 14, 20, 27, 33}}, {{1, 3, 4, 5, 6, 33}, true}});
    prize::Query query = table.opened();
    EXPECT_EQ(linesOf(query.kept()), (Lines{"1|1|2|4|5|6|7|0|", "2|3|9|14|20|27|33|6|"}));
    EXPECT_EQ(linesOf(query.out()), (Lines{"3|1|3|4|5|6|33|2|和值|"}));
    EXPECT_EQ(query.Cost, 0);
    EXPECT_TRUE(query.summary().kept.empty());
    query.sort();
    EXPECT_EQ(linesOf(query.kept()), (Lines{"2|3|9|14|20|27|33|6|", "1|1|2|4|5|6|7|0|"}));
}

TEST_P(Query, SevenRedsCostFourteenAndMatchInAllSeven) {
    QueryTable table(u"mnufsInq", GetParam());
    table.hold({{{1, 3, 9, 14, 20, 27, 33}}, {{1, 2, 4, 5, 6, 7, 33}}, {{2, 3, 4, 5, 6, 8, 10}}});
    prize::Query query = table.opened();
    EXPECT_EQ(query.Cost, 42);
    table.takeStatements();
    query.sort();
    EXPECT_EQ(
        table.takeStatements(),
        Lines{"SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6]  , [fig7],[jiben] FROM [zuhef] "
              "WHERE [unslt] = false ORDER BY [jiben] DESC,[tebie] DESC"});
    EXPECT_EQ(linesOf(query.kept()), (Lines{"1|1|3|9|14|20|27|33|6|", "2|1|2|4|5|6|7|33|1|", "3|2|3|4|5|6|8|10|1|"}));
}

INSTANTIATE_TEST_SUITE_P(OnEither, Query, testing::Values(sql::Executor::Column, sql::Executor::Sqlite),
                         [](const auto& executor) {
                             return executor.param == sql::Executor::Column ? "Column" : "Sqlite";
                         });

} // namespace
} // namespace prize_tests
