#include "selection/wheel_tables.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "wheels/wheel_support.h"

using namespace selection;
using wheels_test::row;

namespace {

std::map<std::string, WheelTable> tablesOf(WheelFamily family) {
    std::map<std::string, WheelTable> tables;
    for (const WheelTable& table : wheelTables())
        if (table.family == family)
            tables[table.name] = table;
    return tables;
}

} // namespace

TEST(WheelTables, TheFiveDatabasesHaveTheirNamesAndColumns) {
    const std::pair<std::string_view, int> expected[] = {
        {"Xuanzhuanjb", 6}, {"XuanzhuanF6", 6}, {"Xuanzhuancj", 6}, {"XuanzhuanDT", 6}, {"xuanzhuanF7", 7}};
    ASSERT_EQ(wheelFamilies().size(), 5u);
    for (std::size_t place = 0; place < 5; ++place) {
        EXPECT_EQ(wheelFamilies()[place].file, expected[place].first);
        EXPECT_EQ(wheelFamilies()[place].cells, expected[place].second);
        EXPECT_EQ(&wheelFamily(wheelFamilies()[place].family), &wheelFamilies()[place]);
    }
}

TEST(WheelTables, BasicTablesAreNamedByTheirNumberWithoutALeadingZero) {
    const auto tables = tablesOf(WheelFamily::Basic);
    EXPECT_EQ(tables.size(), 9u); // 8..16
    EXPECT_EQ(tables.at("9").problem, (WheelProblem{9, 6, 6, 5}));
    EXPECT_EQ(tables.at("16").problem, (WheelProblem{16, 6, 6, 5}));
    EXPECT_EQ(tables.count("08"), 0u);
}

TEST(WheelTables, TheExtendedFamilyHasFiftySevenTables) {
    const auto tables = tablesOf(WheelFamily::Extended);
    EXPECT_EQ(tables.size(), 57u);
    EXPECT_EQ(tables.at("560876").problem, (WheelProblem{8, 6, 7, 6}));
    EXPECT_EQ(tables.at("560955").problem, (WheelProblem{9, 6, 5, 5}));
    EXPECT_EQ(tables.at("561865").problem, (WheelProblem{18, 6, 6, 5}));
    EXPECT_EQ(tables.count("560976"), 1u);
    EXPECT_EQ(tables.count("560944"), 0u);
}

TEST(WheelTables, TheSuperFamilyRunsFromSevenToTwentyFour) {
    const auto tables = tablesOf(WheelFamily::Super);
    EXPECT_EQ(tables.size(), 18u * 7u);
    EXPECT_EQ(tables.at("0954").problem, (WheelProblem{9, 6, 5, 4}));
    EXPECT_EQ(tables.count("2476"), 1u);
    EXPECT_EQ(tables.count("1044"), 0u);
}

TEST(WheelTables, TheSevenRedFamilyHasRowsOfSeven) {
    const auto tables = tablesOf(WheelFamily::Seven);
    EXPECT_EQ(tables.size(), 13u * 9u);
    EXPECT_EQ(tables.at("1044").problem, (WheelProblem{10, 7, 4, 4}));
    EXPECT_EQ(tables.at("2076").problem, (WheelProblem{20, 7, 7, 6}));
}

TEST(WheelTables, BankersFallAwayOnBothSidesOfTheGuarantee) {
    const auto tables = tablesOf(WheelFamily::Banker);
    // Two bankers, ten drags: named after the twelve numbers together.
    EXPECT_EQ(tables.at("261244").problem, (WheelProblem{10, 4, 2, 2}));
    EXPECT_EQ(tables.at("261244").bankers, 2);
    EXPECT_EQ(tables.at("16754").problem, (WheelProblem{6, 5, 4, 3}));
}

TEST(WheelTables, WithAsManyBankersAsChosenThereIsNoTable) {
    const auto tables = tablesOf(WheelFamily::Banker);
    // N from 7 - D up to N + D = 20: fourteen for each D; all four pairs for D up to 3, three for 4, one for 5.
    EXPECT_EQ(tables.size(), 14u * (4 + 4 + 4 + 3 + 1));
    EXPECT_EQ(tables.count("462044"), 0u);
    EXPECT_EQ(tables.count("462054"), 1u);
    EXPECT_EQ(tables.count("562054"), 0u);
    EXPECT_EQ(tables.count("562065"), 1u);
    for (const auto& [name, table] : tables)
        EXPECT_GT(table.problem.chosen, 0) << name;
}

TEST(WheelTables, NamesAreUniqueInTheirDatabaseAndReadBack) {
    std::set<std::pair<WheelFamily, std::string>> names;
    for (const WheelTable& table : wheelTables()) {
        EXPECT_TRUE(names.insert({table.family, table.name}).second) << table.name;
        EXPECT_EQ(wheelTableNamed(table.family, table.name), table) << table.name;
    }
}

TEST(WheelTables, ANameBeyondTheMenusListIsStillATable) {
    const auto table = wheelTableNamed(WheelFamily::Super, "3064");
    ASSERT_TRUE(table);
    EXPECT_EQ(table->problem, (WheelProblem{30, 6, 6, 4}));
}

TEST(WheelTables, AWordThatIsNoNameOfTheFamilyIsNone) {
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Basic, "08"));
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Basic, ""));
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Basic, "6"));    // nothing to leave out
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Super, "954"));  // N has two digits
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Super, "0945")); // four chosen never give five
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Super, "3376")); // more positions than a set holds
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Extended, "660955"));
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Banker, "462044")); // the bankers alone fulfil it
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Banker, "x61244"));
    EXPECT_FALSE(wheelTableNamed(WheelFamily::Seven, "10a4"));
}

TEST(WheelTables, ARowOfABankerTableEndsWithItsBankers) {
    // D = 2, N = 4: positions 5 and 6 are the bankers.
    const WheelTable table{WheelFamily::Banker, "26644", {4, 4, 2, 2}, 2};
    EXPECT_EQ(wheelCells(table, row({1, 2, 3, 4})), (std::vector<std::int32_t>{1, 2, 3, 4, 5, 6}));
}

TEST(WheelTables, APositionSetReadsAsItsAscendingPositions) {
    EXPECT_EQ(positionsOf(row({24, 1, 7})), (std::vector<std::int32_t>{1, 7, 24}));
    EXPECT_TRUE(positionsOf(0).empty());
}
