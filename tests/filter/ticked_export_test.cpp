// The export of ticked parameters as rows of a sheet: which columns, in which order, and whose values.
#include "filter/ticked_export.h"

#include <gtest/gtest.h>

#include "filter/bench_table.h"

using namespace Qt::StringLiterals;

namespace filter_test {
namespace {

using filter::TickedExport;
using filter::WindowState;

std::vector<QString> headings(const output::Sheet& sheet) {
    std::vector<QString> all;
    for (const output::SheetColumn& column : sheet.columns)
        all.push_back(column.heading);
    return all;
}

/// A row as text, "-" for an empty cell.
std::string rowText(const output::Sheet& sheet, std::int64_t row) {
    std::string text;
    for (int column = 0; column < sheet.columnCount(); ++column) {
        const output::SheetCell cell = sheet.rows.cell(row, column);
        const auto* number = std::get_if<std::int64_t>(&cell);
        text += (text.empty() ? "" : " ") + (number ? std::to_string(*number) : "-");
    }
    return text;
}

WindowState tickedState(const filter::FilterMember& member, std::initializer_list<int> ticks) {
    WindowState state = filter::defaultState(member.catalogue());
    for (const int tick : ticks)
        state.rows[static_cast<std::size_t>(tick)].ticked = true;
    return state;
}

void holdWheel(BenchTable& table) {
    table.hold({{1, 2, 3, 4, 5, 6, 7}, {1, 5, 11, 17, 25, 33, 6}, {28, 29, 30, 31, 32, 33, 16}});
}

TEST(TickedExport, AWheelsWindowGetsTheValuesOfItsBets) {
    BenchTable table(sql::Executor::Column, "GAganRote");
    holdWheel(table);
    table.database->execute("UPDATE [zuheRote] SET [unslt]=true WHERE [idx]=2");
    const TickedExport rows(table.member, table.bench(), tickedState(table.member, {0, 3}));
    const output::Sheet sheet = rows.sheet();
    EXPECT_EQ(headings(sheet), (std::vector{u"序号"_s, u"红1位"_s, u"红2位"_s, u"红3位"_s, u"红4位"_s, u"红5位"_s,
                                            u"红6位"_s, u"蓝球位"_s, u"各位数和"_s, u"偶数个数"_s}));
    ASSERT_EQ(sheet.rows.count(), 2);
    EXPECT_EQ(rowText(sheet, 0), "1 1 2 3 4 5 6 7 21 3");
    EXPECT_EQ(rowText(sheet, 1), "2 28 29 30 31 32 33 16 183 3") << "numbered anew, without the bet that is out";
}

TEST(TickedExport, AnotherWindowGetsTheValuesThatTheWheelTableHolds) {
    BenchTable table(sql::Executor::Column, "GAgan");
    holdWheel(table);
    const TickedExport without(table.member, table.bench(), tickedState(table.member, {0, 3}));
    EXPECT_EQ(rowText(without.sheet(), 0), "1 1 2 3 4 5 6 7 - -") << "there is no wheel table";
    table.database->execute("CREATE TABLE [zuheRote]([idx] integer,[canshu] integer,[unslt] Bit)");
    for (int row = 1; row <= 4; ++row)
        table.database->execute("INSERT INTO [zuheRote] ([idx],[canshu]) VALUES (" + std::to_string(row) + "," +
                                std::to_string(row * 11) + ")");
    const TickedExport rows(table.member, table.bench(), tickedState(table.member, {0, 3}));
    ASSERT_EQ(rows.count(), 4) << "the column of values goes on below the bets";
    EXPECT_EQ(rowText(rows.sheet(), 0), "1 1 2 3 4 5 6 7 11 11");
    EXPECT_EQ(rowText(rows.sheet(), 3), "- - - - - - - - 44 44");
    EXPECT_EQ(table.column("canshu"), (std::vector{3, 0, 3})) << "computed on the window's own table all the same";
}

TEST(TickedExport, ThreeHeadingsDifferAndPositionsAreLeftOut) {
    BenchTable table(sql::Executor::Column, "GAganRote");
    holdWheel(table);
    const TickedExport rows(table.member, table.bench(),
                            tickedState(table.member, {9, 10, 11, 12, 13, 19, 20, 22, 23, 25, 30, 31}));
    const std::vector<QString> all = headings(rows.sheet());
    EXPECT_EQ(std::vector(all.begin() + 8, all.end()),
              (std::vector{u"遗漏极差"_s, u"大数个数"_s, u"遗漏极差"_s, u"遗漏极差"_s, u"自定义区间"_s}));
}

TEST(TickedExport, WithoutTicksTheBetsAlone) {
    BenchTable table(sql::Executor::Column, "GAganRote");
    holdWheel(table);
    const TickedExport rows(table.member, table.bench(), tickedState(table.member, {}));
    EXPECT_EQ(rows.sheet().columnCount(), 8);
    EXPECT_EQ(rows.count(), 3);
    EXPECT_EQ(rowText(rows.sheet(), 2), "3 28 29 30 31 32 33 16");
}

TEST(TickedExport, SixRedsReadTheirOwnWheelTable) {
    BenchTable table(sql::Executor::Column, "GAganRoteR");
    table.hold({{1, 2, 3, 4, 5, 6}, {5, 10, 15, 20, 25, 30}});
    const TickedExport rows(table.member, table.bench(), tickedState(table.member, {20, 22}));
    EXPECT_EQ(headings(rows.sheet()).back(), u"小数之和"_s);
    EXPECT_EQ(rowText(rows.sheet(), 1), "2 5 10 15 20 25 30 6 30");
}

} // namespace
} // namespace filter_test
