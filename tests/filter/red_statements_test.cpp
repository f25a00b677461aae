// Exactly which statements the windows of six reds alone and of seven reds execute.
//
// Those of six reds are the ones of the windows with a blue, whose text is tested there, over another table and under
// other captions; what they have of their own is written out.
#include <set>

#include <gtest/gtest.h>

#include "filter/bench_table.h"
#include "filter/expected_values.h"

namespace filter_test {
namespace {

using filter::kKeep;
using filter::kRemove;
using filter::Mode;
using filter::Parameter;
using Texts = std::vector<std::string>;

constexpr std::int16_t kSides[] = {kKeep, kRemove};

const filter::RowInput kRow{.low = "007", .high = "16.50x", .list = " 3  17 ", .odd = true, .even = false};

filter::RunSettings thirdClear(Mode mode, std::int16_t Baoliu) {
    filter::RunSettings run = settings(mode, Baoliu);
    run.ticked[3] = false;
    run.intervalAbove = "10";
    run.intervalTo = "20.0";
    run.pickedNumbers = "4 19";
    return run;
}

Texts statementsOf(BenchTable& table, const Parameter& parameter, const filter::RunSettings& run, bool accumulating) {
    table.takeStatements();
    const filter::ParameterRun runs(table.bench());
    if (accumulating)
        runs.accumulate(parameter, kRow, run);
    else
        runs.press(parameter, kRow, run);
    return table.takeStatements();
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// Of a parameter that the windows with a blue do not have.
Texts ownOfSixReds(const Parameter& p, Mode mode, std::int16_t Baoliu, bool accumulating) {
    Texts statements = kExpectedOfSixReds.at(std::string(p.option));
    if (!accumulating)
        statements.push_back("UPDATE [zuheR] SET [preunslt]=[unslt]");
    const std::string start = accumulating ? "UPDATE [zuheR] SET [Errnum]=[Errnum]+1 , [Fliter] = [Fliter] & \""
                                           : "UPDATE [zuheR] SET [unslt]=true , [Fliter] = \"";
    const std::string where = accumulating ? " WHERE " : " WHERE [unslt]=false AND ";
    const std::string head = start + std::string(p.caption) + "大小:\" & [canshu] & \"";
    if (mode == Mode::List)
        statements.push_back(head + (Baoliu == kKeep ? " 保留 3  17 \"" : " 排除 3  17 \"") + where +
                             "\"  3  17  \"" +
                             (Baoliu == kKeep ? " NOT LIKE "
                              : accumulating  ? " LIKE "
                                              : "  LIKE ") +
                             "\"* \"&[canshu]&\" *\"");
    else if (Baoliu == kKeep)
        statements.push_back(head + " 保留7~16.5\"" + where + "([canshu] <7 OR [canshu] >16.5)");
    else
        statements.push_back(head + " 排除7~16.5\"" + where + "[canshu] >=7 AND [canshu] <=16.5");
    return statements;
}

TEST(SixRedStatements, ArePreciselyTheseForEveryParameterModeAndSide) {
    BenchTable withBlue(sql::Executor::Sqlite);
    withBlue.hold({{1, 5, 11, 17, 25, 33, 6}});
    BenchTable table(sql::Executor::Sqlite, "GAganR");
    table.hold({{1, 5, 11, 17, 25, 33}});
    const sql::Transaction onDiskOnce(*table.database), withBlueOnDiskOnce(*withBlue.database);
    for (const Parameter& p : table.member.catalogue())
        for (const Mode mode : {Mode::Range, Mode::Mean, Mode::List})
            for (const std::int16_t Baoliu : kSides)
                for (const bool accumulating : {false, true}) {
                    const filter::RunSettings run = thirdClear(mode, Baoliu);
                    Texts expected;
                    if (const std::string_view other = plain::besideABlue(p.option); other.empty())
                        expected = ownOfSixReds(p, mode, Baoliu, accumulating);
                    else
                        for (const std::string& text :
                             statementsOf(withBlue, parameter(std::string(other)), run, accumulating))
                            expected.push_back(
                                replaced(replaced(text, "[zuhe]", "[zuheR]"),
                                         "\"" + std::string(parameter(std::string(other)).caption) + "大小:",
                                         "\"" + std::string(p.caption) + "大小:"));
                    EXPECT_EQ(statementsOf(table, p, run, accumulating), expected)
                        << p.option << " mode " << static_cast<int>(mode) << " Baoliu " << Baoliu;
                }
}

/// No reason, no parity; a list never.
Texts expectedOfSevenReds(const Parameter& p, std::int16_t Baoliu, bool accumulating) {
    Texts statements = kExpectedOfSevenReds.at(std::string(p.option));
    if (!accumulating)
        statements.push_back("UPDATE [zuhef] SET [preunslt]=[unslt]");
    const int place = p.option.size() == 8 ? p.option[7] - '2' : 0;
    const bool position = p.option >= "Option13" && p.option <= "Option19" && place > 0;
    const std::string value = position ? "[fig" + std::to_string(place) + "]" : "[canshu]";
    const std::string start = "UPDATE [zuhef] SET [unslt]=true WHERE [unslt]=false AND ";
    statements.push_back(Baoliu == kKeep ? start + "(" + value + " <7 OR " + value + " >16.5)"
                                         : start + value + " >=7 AND " + value + " <=16.5");
    return statements;
}

TEST(SevenRedStatements, ArePreciselyTheseForEveryParameterModeAndSide) {
    BenchTable table(sql::Executor::Sqlite, "GAganf");
    table.hold({{1, 5, 11, 17, 25, 31, 33}});
    ASSERT_EQ(table.member.catalogue().size(), kExpectedOfSevenReds.size());
    for (const Parameter& p : table.member.catalogue())
        for (const Mode mode : {Mode::Range, Mode::Mean, Mode::List})
            for (const std::int16_t Baoliu : kSides)
                for (const bool accumulating : {false, true})
                    EXPECT_EQ(statementsOf(table, p, thirdClear(mode, Baoliu), accumulating),
                              expectedOfSevenReds(p, Baoliu, accumulating))
                        << p.option << " mode " << static_cast<int>(mode) << " Baoliu " << Baoliu;
}

TEST(SevenRedStatements, AreAcceptedByTheDatabaseExceptTheOneThatIsMeantToFail) {
    BenchTable table(sql::Executor::Sqlite, "GAganf");
    table.hold({{1, 5, 11, 17, 25, 31, 33}});
    for (const auto& [option, statements] : kExpectedOfSevenReds)
        for (const std::string& statement : statements)
            EXPECT_EQ(sql::passOver(*table.database, statement), statement.find("[fig0]") == std::string::npos)
                << option << ": " << statement;
}

TEST(SevenRedStatements, ArePutIntoWordsWithoutListAndParity) {
    BenchTable table(sql::Executor::Sqlite, "GAganf");
    EXPECT_EQ(filter::pressText(table.parameter("Option13"), kRow, settings(Mode::List, kKeep)), "第1位 保留 7~16.5");
    EXPECT_EQ(filter::pressText(table.parameter("Option41"), kRow, settings(Mode::Range, kRemove)),
              "41以上 排除 7~16.5");
}

} // namespace
} // namespace filter_test
