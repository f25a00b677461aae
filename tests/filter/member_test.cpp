// The family of windows against a plain list, and each row against its table.
#include "filter/member.h"

#include <algorithm>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "filter/bench_table.h"
#include "workspace/templates.h"

namespace filter_test {
namespace {

using filter::Fill;
using filter::FilterMember;
using Texts = std::vector<std::string>;

// form, table, file, numbers, where the rows come from, export
constexpr const char* kRows[] = {
    "GAgan zuhe filnum.mdb 6+1 enumerate Zuhe.xlsx",
    "Gdanagan zuhe filnum.mdb 6+1 bankers Zuhe.xlsx",
    "GAganMb zuhe filnum.mdb 6+1 keep Zuhe.xlsx",
    "GAganRead zuheRead filnum.mdb 6+1 text zuheRead.xlsx",
    "GAganRote zuheRote filnum.mdb 6+1 wheel zuheRote.xlsx",
    "GAganRoteMb zuheRote filnum.mdb 6+1 keep zuheRote.xlsx",
    "GAganZhMb zuheMoban filnum.mdb 6+1 keep ",
    "GAganR zuheR filnumR.mdb 6 enumerate zuheR.xlsx",
    "GdanaganR zuheR filnumR.mdb 6 bankers zuheR.xlsx",
    "GAganRMb zuheR filnumR.mdb 6 keep zuheR.xlsx",
    "GAganReadR zuheReadR filnumR.mdb 6 text zuheReadR.xlsx",
    "GAganRoteR zuheRoteR filnumR.mdb 6 wheel zuheRoteR.xlsx",
    "GAganRoteRMb zuheRoteR filnumR.mdb 6 keep zuheRoteR.xlsx",
    "GAganZhMbR zuheMobanR filnumR.mdb 6 keep ",
    "GAganf zuhef filnum.mdb 7 enumerate ",
    "Gdanaganf zuhef filnum.mdb 7 bankers ",
    "GAganfMb zuhef filnum.mdb 7 keep ",
};

std::string print(const FilterMember& member) {
    constexpr const char* kFills[] = {"enumerate", "bankers", "wheel", "text", "keep"};
    const bool sixReds = member.file == workspace::CombinationFile::SixReds;
    return std::string(member.form) + ' ' + std::string(member.table) + (sixReds ? " filnumR.mdb " : " filnum.mdb ") +
           std::to_string(member.reds) + (member.blue ? "+1 " : " ") + kFills[static_cast<int>(member.fill)] + ' ' +
           std::string(member.exportName);
}

TEST(Members, AreTheseSeventeen) {
    EXPECT_EQ(std::size(filter::kFilterMembers), 17U);
    for (const std::string_view row : kRows) {
        const FilterMember* member = filter::findMember(row.substr(0, row.find(' ')));
        ASSERT_NE(member, nullptr) << row;
        EXPECT_EQ(print(*member), row);
    }
    EXPECT_EQ(filter::findMember("GAganDj"), nullptr);
}

TEST(Members, HaveATableWithTheirNumbersAndTheRowStates) {
    for (const FilterMember& member : filter::kFilterMembers) {
        ScratchFolder folder;
        sql::Engine engine;
        const auto database = engine.create(folder.file("a.mdb"));
        database->execute(workspace::createCombinationTable(member.table));
        std::set<std::string> columns;
        for (std::string name : database->columnNames(member.table)) {
            std::ranges::transform(name, name.begin(), [](char letter) {
                return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 'a' - 'A') : letter;
            });
            columns.insert(name);
        }
        for (int number = 1; number <= 8; ++number)
            EXPECT_EQ(columns.contains("fig" + std::to_string(number)), number <= member.numbers()) << member.form;
        for (const char* needed : {"idx", "canshu", "numstring", "fliter", "unslt", "preunslt", "tmpunslt", "gpslt"})
            EXPECT_TRUE(columns.contains(needed)) << member.form << ' ' << needed;
        EXPECT_EQ(columns.contains("errnum"), member.features.tolerance) << member.form;
    }
}

TEST(Members, OpenWithTheirView) {
    std::map<std::string_view, std::string> rest{
        {"GAganRote", " WHERE [unslt] = false  ORDER BY fig1,fig2,fig3,fig4,fig5,fig6,fig7"},
        {"GAganRoteMb", " WHERE [unslt] = false  ORDER BY fig1,fig2,fig3,fig4,fig5,fig6,fig7"},
        {"GAganRoteR", " WHERE [unslt] = false  ORDER BY fig1,fig2,fig3,fig4,fig5,fig6"},
        {"GAganRoteRMb", " WHERE [unslt] = false  ORDER BY fig1,fig2,fig3,fig4,fig5,fig6"},
        {"GAganZhMb", " WHERE [unslt] = false "},
        {"GAganZhMbR", " WHERE [unslt] = false "}};
    for (const char* whole : {"GAgan", "Gdanagan", "GAganR", "GdanaganR", "GAganf", "Gdanaganf"})
        rest[whole] = "";
    for (const FilterMember& member : filter::kFilterMembers) {
        ScratchFolder folder;
        sql::Engine engine;
        const auto database = engine.create(folder.file("a.mdb"));
        database->execute(workspace::createCombinationTable(member.table));
        Texts statements;
        database->setListener([&](std::string_view statement) { statements.emplace_back(statement); });
        const filter::View view = filter::ResultView(*database, member).opened();
        const std::string numbers =
            member.numbers() == 7 ? "idx,fig1,fig2,fig3,fig4,fig5,fig6,fig7" : "idx,fig1,fig2,fig3,fig4,fig5,fig6";
        const std::string told = rest.contains(member.form) ? rest[member.form] : " WHERE [unslt] = false";
        EXPECT_EQ(statements, (Texts{"SELECT " + numbers + " FROM [" + std::string(member.table) + "]" + told}))
            << member.form;
        EXPECT_EQ(view.rows.columnCount(), 1 + member.numbers()) << member.form << ": the database refuses it";
        ASSERT_EQ(view.columns.size(), 1U + static_cast<std::size_t>(member.numbers())) << member.form;
        EXPECT_EQ(view.columns.back().heading, member.blue ? "蓝球" : member.reds == 7 ? "第七位" : "6位");
    }
}

TEST(Members, SayInTheTitleHowManyBetsAreLeft) {
    ScratchFolder folder;
    sql::Engine engine;
    const auto database = engine.create(folder.file("a.mdb"));
    for (const FilterMember& member : filter::kFilterMembers)
        EXPECT_EQ(filter::ResultView(*database, member).title(1234),
                  member.form == "Gdanaganf"
                      ? "胆拖组合情况排列总表（每页至多显示10000注）："
                      : "复选组合情况排列总表（每页至多显示10000注，双击任意注可删除）   合计：1234注");
}

TEST(Members, OfSevenRedsComputeOverAllSeven) {
    ScratchFolder folder;
    sql::Engine engine;
    const auto database = engine.create(folder.file("a.mdb"));
    const FilterMember& member = *filter::findMember("GAganf");
    selection::GenerationInput input;
    input.chosen.reds = {1, 2, 4, 8, 13, 21, 31};
    input.Genreds = 7;
    selection::Enumeration(input).fill(*database, shapeOf(member), nullptr);
    history::History history;
    history.Ylnow[31] = 9;
    const filter::Workbench bench{*database, member.table, history, 33, member.reds, member.blue};
    const auto value = [&](filter::Compute compute, const filter::RunSettings& run) {
        compute(bench, run);
        return database->query("SELECT [canshu] FROM [zuhef]").integerAt(0, 0);
    };
    // Differences: 1 3 7 12 20 30, 2 6 11 19 29, 4 9 17 27, 5 13 23, 8 18, 10: all 21 differ.
    EXPECT_EQ(value(filter::computeAcValue, {}), 21 - 6);
    EXPECT_EQ(value(filter::computeLargestGap, {}), 10);
    EXPECT_EQ(value(filter::computeSpan, {}), 30);
    EXPECT_EQ(value(filter::computeOmissionSum, {}), 9);
    EXPECT_EQ(value(filter::computeOmissionRange, {}), 9);
    filter::RunSettings run;
    run.ticked[7] = false;
    EXPECT_EQ(value(filter::computeAcValue, run), 15 - 5);
    EXPECT_EQ(value(filter::computeSpan, run), 20);
    run = {};
    run.intervalAbove = "20";
    run.intervalTo = "31";
    EXPECT_EQ(value(filter::computeInterval, run), 2);
}

} // namespace
} // namespace filter_test
