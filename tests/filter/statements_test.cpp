// Exactly which statements a run executes: every parameter, mode, keep or remove, pressed and accumulating.
#include <set>

#include <gtest/gtest.h>

#include "filter/bench_table.h"
#include "filter/expected_values.h"

namespace filter_test {
namespace {

using filter::kKeep;
using filter::kRemove;
using filter::Mode;

constexpr const char* kSnapshot = "UPDATE [zuhe] SET [preunslt]=[unslt]";

struct Case {
    std::string option;
    Mode mode;
    std::int16_t Baoliu;
    bool accumulating;
};

bool isPosition(const std::string& option) {
    return !parameter(option).column.empty();
}
bool isWhole(const std::string& option) {
    return std::set<std::string>{"Option31", "Option32", "Option33", "Option34"}.contains(option);
}

/// The test's own account of the filter statements: captions and columns by name, the eight forms written out.
std::string expectedFilter(const Case& c, const std::string& head, const std::string& column, bool list,
                           const std::string& pattern) {
    const std::string start = c.accumulating ? "UPDATE [zuhe] SET [Errnum]=[Errnum]+1 , [Fliter] = [Fliter] & \""
                                             : "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"";
    const std::string where = c.accumulating ? " WHERE " : " WHERE [unslt]=false AND ";
    const std::string middle = head + "\" & " + column + " & \"";
    if (list && c.Baoliu == kKeep)
        return start + middle + " 保留 3  17 \"" + where + "\"  3  17  \" NOT LIKE " + pattern;
    if (list)
        return start + middle + " 排除 3  17 \"" + where + "\"  3  17  \"" + (c.accumulating ? " LIKE " : "  LIKE ") +
               pattern;
    if (c.Baoliu == kKeep)
        return start + middle + " 保留7~16.5\"" + where + "(" + column + " <7 OR " + column + " >16.5)";
    return start + middle + " 排除7~16.5\"" + where + column + " >=7 AND " + column + " <=16.5";
}

std::vector<std::string> expectedPosition(const Case& c) {
    const std::string column = "[" + std::string(parameter(c.option).column) + "]";
    const std::string reason = std::string(parameter(c.option).parityReason);
    std::vector<std::string> expected;
    if (!c.accumulating || c.option != "Option19")
        expected.push_back(kSnapshot);
    const bool list = c.mode == Mode::List;
    if (!list) {
        expected.push_back("UPDATE [zuhe] SET [canshu]=(" + column + " mod 2)");
        expected.push_back(c.accumulating ? "UPDATE [zuhe] SET [Errnum]=[Errnum]+1 , [Fliter] = [Fliter] & \"" +
                                                reason + "\" WHERE ([canshu] <> 1 AND [canshu]  = 0)"
                                          : "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"" + reason +
                                                "\" WHERE [unslt]=false AND ([canshu] <> 1 AND [canshu]  = 0)");
    }
    const std::string pattern =
        c.option == "Option19" ? "\"* \"&" + column + "&\" *\"" : "\"*\"&" + column + "&\"*\"";
    expected.push_back(expectedFilter(c, std::string(parameter(c.option).caption) + "大小:", column, list, pattern));
    return expected;
}

std::vector<std::string> expectedInterval(const Case& c) {
    std::vector<std::string> expected;
    std::string head = "自定区间10~20大小:";
    if (c.mode == Mode::List) {
        head = "指定号码 4 19大小:";
        expected.push_back("UPDATE [zuhe] SET [canshu]=0");
        for (int position = 1; position <= 6; ++position)
            expected.push_back(
                "UPDATE [zuhe] SET [canshu]=[canshu] + 1 WHERE [unslt]=false AND \" 4 19 \" LIKE \"* \"&[fig" +
                std::to_string(position) + "]&\" *\"");
    } else {
        expected = kExpectedValues.at("Option66");
    }
    if (!c.accumulating)
        expected.push_back(kSnapshot);
    expected.push_back(expectedFilter(c, head, "[canshu]", false, {}));
    return expected;
}

std::vector<std::string> expected(const Case& c) {
    if (isPosition(c.option))
        return expectedPosition(c);
    if (c.option == "Option66")
        return expectedInterval(c);
    std::vector<std::string> statements = kExpectedValues.at(c.option);
    if (!c.accumulating)
        statements.push_back(kSnapshot);
    const std::string caption(parameter(c.option).caption);
    statements.push_back(expectedFilter(c, caption + (isWhole(c.option) ? "全体球大小:" : "大小:"), "[canshu]",
                                        c.mode == Mode::List, "\"* \"&[canshu]&\" *\""));
    return statements;
}

TEST(Statements, ArePreciselyTheseForEveryParameterModeAndSide) {
    BenchTable table(sql::Executor::Sqlite);
    table.hold({{1, 5, 11, 17, 25, 33, 6}});
    const filter::RowInput row{.low = "007", .high = "16.50x", .list = " 3  17 ", .odd = true, .even = false};
    std::set<std::string> reached;
    for (const auto& [option, unused] : kExpectedValues)
        for (const Mode mode : {Mode::Range, Mode::Mean, Mode::List})
            for (const std::int16_t Baoliu : {kKeep, kRemove})
                for (const bool accumulating : {false, true}) {
                    filter::RunSettings run = settings(mode, Baoliu);
                    run.ticked[3] = false;
                    run.intervalAbove = "10";
                    run.intervalTo = "20.0";
                    run.pickedNumbers = "4 19";
                    table.takeStatements();
                    if (accumulating)
                        table.accumulate(option, row, run);
                    else
                        table.press(option, row, run);
                    EXPECT_EQ(table.takeStatements(), expected({option, mode, Baoliu, accumulating}))
                        << option << " mode " << static_cast<int>(mode) << " Baoliu " << Baoliu;
                    reached.insert(option);
                }
    for (const filter::Parameter& parameter : filter::sixAndBlueCatalogue())
        EXPECT_TRUE(reached.contains(std::string(parameter.option))) << "no case reached " << parameter.option;
}

// GCC's sanitizers take no function's address for a constant: this is no static_assert.
TEST(Catalogue, GivesEachParameterExactlyOneWayToItsValue) {
    for (const auto catalogue :
         {filter::sixAndBlueCatalogue(), filter::sixRedCatalogue(), filter::sevenRedCatalogue()})
        for (const filter::Parameter& parameter : catalogue) {
            const int ways = (parameter.statement.empty() ? 0 : 1) + (parameter.compute ? 1 : 0) +
                             (parameter.column.empty() ? 0 : 1);
            EXPECT_EQ(ways, 1) << parameter.option;
        }
}

TEST(Statements, AreAcceptedByTheDatabaseExceptTheTwoThatAreMeantToFail) {
    BenchTable table(sql::Executor::Sqlite);
    table.hold({{1, 5, 11, 17, 25, 33, 6}});
    for (const auto& [option, statements] : kExpectedValues)
        for (const std::string& statement : statements)
            EXPECT_EQ(sql::passOver(*table.database, statement), statement.find("[fig0]") == std::string::npos)
                << option << ": " << statement;
    EXPECT_FALSE(sql::passOver(*table.database, "UPDATE [zuhe] SET [canshu]=[fig2]-[fig1])"));
}

TEST(Statements, TheBoundaryOfBigRedsIsHalfTheHighestRed) {
    BenchTable table(sql::Executor::Sqlite);
    table.hold({{1, 5, 11, 17, 25, 33, 6}});
    table.Bitnum = 32;
    table.press("Option5", range("0", "9"));
    EXPECT_NE(table.takeStatements().front().find("([fig1] >16) * 1 +"), std::string::npos);
}

TEST(Statements, ParityWritesBothBoxesAsNumbers) {
    const filter::Parameter& blue = parameter("Option19");
    const auto tail = [&](bool odd, bool even) {
        const std::string whole = filter::parityStatement(
            "zuhe", blue, {.low = {}, .high = {}, .list = {}, .odd = odd, .even = even}, false);
        return whole.substr(whole.find("AND ("));
    };
    EXPECT_EQ(tail(false, false), "AND ([canshu] <> 0 AND [canshu]  = 0)");
    EXPECT_EQ(tail(false, true), "AND ([canshu] <> 0 AND [canshu]  = 1)");
    EXPECT_EQ(tail(true, false), "AND ([canshu] <> 1 AND [canshu]  = 0)");
    EXPECT_EQ(tail(true, true), "AND ([canshu] <> 1 AND [canshu]  = 1)");
}

TEST(Statements, TheLargestGapDependsOnTheTicks) {
    BenchTable table(sql::Executor::Sqlite);
    table.hold({{1, 5, 11, 17, 25, 33, 6}});
    const auto statementsFor = [&](std::vector<int> ticks) {
        filter::RunSettings run;
        for (std::size_t position = 1; position <= 6; ++position)
            run.ticked[position] = std::find(ticks.begin(), ticks.end(), static_cast<int>(position)) != ticks.end();
        table.takeStatements();
        table.press("Option6", range("0", "99"), run);
        auto all = table.takeStatements();
        all.resize(all.size() - 2); // less snapshot and filter
        return all;
    };
    EXPECT_TRUE(statementsFor({}).empty());
    EXPECT_TRUE(statementsFor({4}).empty());
    EXPECT_EQ(statementsFor({2, 5}), (std::vector<std::string>{"UPDATE [zuhe] SET [canshu]=[fig5]-[fig2])"}));
    EXPECT_EQ(statementsFor({1, 3, 6}),
              (std::vector<std::string>{"UPDATE [zuhe] SET [canshu]=IIf([fig6]-[fig3]>[fig3]-[fig1],[fig6]-[fig3],"
                                        "[fig3]-[fig1])"}));
    EXPECT_EQ(statementsFor({1, 2, 3, 6}).size(), 5U);
}

} // namespace
} // namespace filter_test
