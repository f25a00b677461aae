// The super filters as steps of a session: their statements, plain loops beside them, the told corners, the words.
#include <algorithm>
#include <array>
#include <numeric>
#include <random>
#include <utility>

#include <gtest/gtest.h>

#include "environment_number.h"
#include "executor_names.h"
#include "filter/bench_table.h"
#include "filter/group_template.h"
#include "filter/session.h"
#include "filter/super_run.h"
#include "workspace/templates.h"

namespace filter_test {
namespace {

using filter::FilterGroups;
using filter::FilterMember;
using filter::FilterNumbers;
using filter::MatchHistory;
using filter::NumberRule;
using filter::Session;
using filter::SuperFilter;
using filter::SuperKind;
using filter::TakeOutTemplate;
using Ints = std::vector<int>;
using Texts = std::vector<std::string>;

/// A table of one of the families with a session on it.
class Family {
  public:
    Family(sql::Executor executor, std::string_view form)
        : engine({.combinations = executor}), database(engine.create(folder.file("filnum.mdb"))),
          member(*filter::findMember(form)) {
        history.Lsnum = 1;
        history.Lshm.push_back({2026001, 2, 5, 11, 17, 25, 33, 6});
        database->setListener([this](std::string_view statement) { m_statements.emplace_back(statement); });
    }

    void hold(const std::vector<Ints>& bets) {
        sql::passOver(*database, "DROP TABLE " + name());
        database->execute(workspace::createCombinationTable(name()));
        std::vector<std::vector<std::int32_t>> columns(bets.at(0).size() + 1);
        sql::RowBlock block;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            for (std::size_t row = 0; row < bets.size(); ++row)
                columns[column].push_back(column == 0 ? static_cast<int>(row + 1) : bets[row][column - 1]);
            block.columns.push_back(column == 0 ? "idx" : "fig" + std::to_string(column));
        }
        block.values.assign(columns.begin(), columns.end());
        database->appendRows(name(), block);
        session.generate(keep);
        m_statements.clear();
    }
    void holdRandom(std::mt19937& random, int count) {
        Ints all(15); // few numbers: many hits
        std::iota(all.begin(), all.end(), 1);
        m_bets.clear();
        for (int bet = 0; bet < count; ++bet) {
            std::ranges::shuffle(all, random);
            m_bets.emplace_back(all.begin(), all.begin() + member.reds);
            std::ranges::sort(m_bets.back());
            if (member.blue)
                m_bets.back().push_back(static_cast<int>(random() % 15) + 1);
        }
        hold(m_bets);
    }
    const std::vector<Ints>& bets() const { return m_bets; }
    std::string name() const { return std::string(member.table); }
    filter::Workbench bench() const { return {*database, member.table, history, 33, member.reds, member.blue}; }

    filter::Outcome run(const filter::Step& step, workspace::Progress* progress = nullptr) {
        return session.run(step, filter::defaultState(member.catalogue()), progress);
    }
    filter::Outcome run(std::string_view option, Ints numbers) {
        return run(FilterNumbers{&filterOf(option), std::move(numbers)});
    }
    const SuperFilter& filterOf(std::string_view option) const {
        const auto filters = superFiltersOf(member);
        return *std::ranges::find(filters, option, &SuperFilter::option);
    }
    Texts texts(const std::string& column) {
        const sql::Rows rows = database->query("SELECT [" + column + "] FROM [" + name() + "]");
        Texts values;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            values.push_back(rows.textAt(row, 0));
        return values;
    }
    Texts everything() {
        const sql::Rows rows = database->query("SELECT * FROM [" + name() + "]");
        Texts lines;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            lines.emplace_back();
            for (int column = 0; column < rows.columnCount(); ++column)
                lines.back() += rows.textAt(row, column) + '|';
        }
        return lines;
    }
    std::vector<bool> out() {
        std::vector<bool> states;
        for (const std::string& text : texts("unslt"))
            states.push_back(text != "0");
        return states;
    }
    Texts takeStatements() { return std::exchange(m_statements, {}); }

    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> database;
    history::History history;
    const FilterMember& member;
    std::int16_t Baoliu = filter::kKeep;
    Session session{member, {*database, history, 33, Baoliu}};
    selection::Keep keep;

  private:
    std::vector<Ints> m_bets;
    Texts m_statements;
};

class SuperRuns : public testing::TestWithParam<sql::Executor> {
  protected:
    Family six{GetParam(), "GAgan"};
};

const std::string kSixText =
    "UPDATE [zuhe] SET [Numstring]= format([fig1],\"00\")  & Chr(32) & format([fig2],\"00\")  "
    "& Chr(32) & format([fig3],\"00\")  & Chr(32) & format([fig4],\"00\")   & Chr(32) & "
    "format([fig5],\"00\")   & Chr(32) & format([fig6],\"00\")";
const std::string kSevenText = kSixText + "   & Chr(32) & format([fig7],\"00\")";
const std::string kSnapshot = "UPDATE [zuhe] SET [preunslt]=[unslt]";
const std::string kView =
    "SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [fig7] FROM [zuhe] WHERE [unslt] = false";

std::string in(std::string statement, const std::string& table) {
    for (std::size_t at = 0; (at = statement.find("[zuhe]", at)) != std::string::npos; at += table.size())
        statement.replace(at, 6, "[" + table + "]");
    return statement;
}

TEST_P(SuperRuns, NumberFiltersRunTheirStatements) {
    six.hold({{2, 5, 11, 17, 25, 33, 6}});
    const std::string out = "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"";
    six.run("Option25(0)", {17, 3});
    EXPECT_EQ(six.takeStatements(),
              (Texts{kSnapshot, kSevenText,
                     out + "相克号过滤\" WHERE [unslt]=false AND [NumString] LIKE \"*03**17*\"", kView}));
    filterNumbersByStatements(six.bench(), six.filterOf("Option25(1)"), Ints{17, 3});
    EXPECT_EQ(six.takeStatements(),
              (Texts{kSnapshot, kSevenText,
                     out + "相生号过滤\" WHERE [unslt]=false AND [NumString] LIKE \"*03*\" AND NOT [NumString] LIKE "
                           "\"*03**17*\"",
                     out + "相生号过滤\" WHERE [unslt]=false AND [NumString] LIKE \"*17*\" AND NOT [NumString] LIKE "
                           "\"*03**17*\""}));
    six.run("Option25(1)", {17, 3});
    EXPECT_EQ(six.takeStatements(),
              (Texts{kSnapshot, kSevenText,
                     out + "相生号过滤\" WHERE [unslt]=false AND NOT [NumString] LIKE \"*03**17*\" AND ([NumString] "
                           "LIKE \"*03*\" OR [NumString] LIKE \"*17*\")",
                     kView}))
        << "one statement in the place of both";
    six.run("Option25(2)", {8});
    EXPECT_EQ(six.takeStatements(),
              (Texts{kSnapshot, kSevenText,
                     out + "保留号过滤\" WHERE [unslt]=false AND NOT [NumString] LIKE \"*08*\"", kView}));
}

TEST_P(SuperRuns, GroupFiltersRunTheirStatements) {
    six.hold({{2, 5, 11, 17, 25, 33, 6}});
    const filter::Workbench bench = six.bench();
    const std::string hit = "UPDATE [zuhe] SET [SKnum]= [SKnum] + 1 WHERE ";
    filterGroupsByStatements(bench, {&six.filterOf("Option35"), {5, 17}, 2, {9}});
    EXPECT_EQ(six.takeStatements(),
              (Texts{kSnapshot, kSevenText, "UPDATE [zuhe] SET [SKnum]= 0",
                     hit + "[unslt]=false AND [NumString] LIKE \"*05*\"",
                     hit + "[unslt]=false AND [NumString] LIKE \"*17*\"",
                     "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"相克分组过滤  2个一组\" WHERE [unslt]=false AND "
                     "[SKnum] >= 2",
                     "UPDATE [zuhe] SET [unslt]=false , [Fliter] = \" \" WHERE [unslt]=true AND [NumString] NOT LIKE "
                     "\"*09*\""}));
    filterGroupsByStatements(bench, {&six.filterOf("Option44"), {5, 17}, 2, {9, 11}});
    EXPECT_EQ(
        six.takeStatements(),
        (Texts{kSnapshot,
               "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"保留分组过滤2个一组\" WHERE [preunslt]=false",
               kSevenText, "UPDATE [zuhe] SET [SKnum]= 0", hit + "[preunslt]=false AND [NumString] LIKE \"*05*\"",
               hit + "[preunslt]=false AND [NumString] LIKE \"*17*\"",
               "UPDATE [zuhe] SET [unslt]=false , [Fliter] = \"\" WHERE [preunslt]=false AND [SKnum] >= 2",
               "UPDATE [zuhe] SET [unslt]=True , [Fliter] = \"保留分组过滤  2胆\" WHERE [unslt]=true AND "
               "[NumString] NOT LIKE \"*09*\"",
               "UPDATE [zuhe] SET [unslt]=True , [Fliter] = \"保留分组过滤  2胆\" WHERE [unslt]=true AND "
               "[NumString] NOT LIKE \"*11*\""}));
}

/// Odd tables too: a Null, a number of three digits, a missing column.
TEST_P(SuperRuns, GroupFiltersCountInOnePassAsTheStatementsDo) {
    std::mt19937 random(environmentNumber("SSQ_SEED", 562));
    const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    std::size_t counted = 0;
    for (int turn = 0; turn < 40; ++turn) {
        Family family(GetParam(), std::array{"GAgan", "GAganR", "GAganf"}[static_cast<std::size_t>(turn % 3)]);
        family.holdRandom(random, 40);
        const filter::Workbench bench = family.bench();
        filter::addSuperColumns(bench);
        const std::string update = "UPDATE [" + family.name() + "] SET ";
        family.database->execute(update + "[unslt]=true WHERE [idx] mod 3 = 1");
        const auto former = family.everything();
        const Texts odd{"[fig2]=Null WHERE [idx] mod 5 = 0", "[fig6]=105 WHERE [idx] mod 4 = 0",
                        "[fig1]=-7 WHERE [idx] mod 4 = 1", "[fig3]=64 WHERE [idx] > 9"};
        const std::string spoil = below(2) == 0 ? "" : update + odd[static_cast<std::size_t>(below(4))];
        const bool lacks = below(8) == 0;
        Ints numbers;
        for (int number = 0; number < 1 + below(9); ++number)
            numbers.push_back(below(12) == 0 ? 64 : 1 + below(15)); // now and then one twice
        const auto filters = superFiltersOf(family.member);
        const auto& filter = *std::ranges::find_if(filters, [keeps = below(2) == 0](const SuperFilter& filter) {
            return filter.kind == SuperKind::Groups && filter.keeps == keeps;
        });
        std::vector<Texts> results;
        for (const auto run : {&filter::filterGroups, &filter::filterGroupsByStatements}) {
            family.hold(family.bets());
            filter::addSuperColumns(bench);
            family.database->execute(update + "[unslt]=true WHERE [idx] mod 3 = 1");
            ASSERT_EQ(family.everything(), former);
            if (!spoil.empty())
                family.database->execute(spoil);
            if (lacks)
                family.database->execute("ALTER TABLE [" + family.name() + "] DROP COLUMN [Numstring]");
            run(bench, {&filter, numbers, 1 + turn % 3, {3}});
            results.push_back(family.everything());
            if (!lacks)
                counted += static_cast<std::size_t>(std::ranges::count(family.texts("SKnum"), "2"));
        }
        ASSERT_EQ(results[0], results[1]) << turn << " " << spoil;
    }
    EXPECT_GT(counted, 100U);
}

/// Also with a Null, numbers of one and of three digits, a blue below the reds, and without the text.
TEST_P(SuperRuns, SomeNumbersGoInOneStatementAsInOneForEach) {
    std::mt19937 random(environmentNumber("SSQ_SEED", 563));
    const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    int split = 0;
    for (int turn = 0; turn < 60; ++turn) {
        Family family(GetParam(), std::array{"GAgan", "GAganR", "GAganf"}[static_cast<std::size_t>(turn % 3)]);
        family.holdRandom(random, 70); // more than a word of bits
        const std::string update = "UPDATE [" + family.name() + "] SET ";
        const Texts odd{"[fig2]=Null WHERE [idx] mod 5 = 0", "[fig6]=105 WHERE [idx] mod 4 = 0",
                        "[fig1]=-7 WHERE [idx] mod 4 = 1", "[fig3]=5"};
        const std::string spoil = below(2) == 0 ? "" : update + odd[static_cast<std::size_t>(below(4))];
        const bool lacks = below(8) == 0;
        Ints numbers;
        for (int number = 0; number < 1 + below(7); ++number)
            numbers.push_back(1 + below(15)); // now and then one twice
        const auto filters = superFiltersOf(family.member);
        const auto& filter = *std::ranges::find_if(filters, [](const SuperFilter& filter) {
            return filter.kind == SuperKind::Numbers && filter.rule == NumberRule::Together;
        });
        std::vector<Texts> results;
        for (const auto run : {&filter::filterNumbers, &filter::filterNumbersByStatements}) {
            family.hold(family.bets());
            family.database->execute(update + "[unslt]=true , [Fliter]=\"手工删除\" WHERE [idx] mod 3 = 1");
            if (!spoil.empty())
                family.database->execute(spoil);
            if (lacks)
                family.database->execute("ALTER TABLE [" + family.name() + "] DROP COLUMN [Numstring]");
            run(family.bench(), filter, numbers);
            results.push_back(family.everything());
        }
        ASSERT_EQ(results[0], results[1]) << turn << " " << spoil;
        const auto out = std::ranges::count(family.out(), true);
        split += out > 24 && out < 70 ? 1 : 0;
    }
    EXPECT_GT(split, 20);
}

TEST_P(SuperRuns, SixRedsAreSearchedWithoutABlueAndSevenRedsAddTheirColumnsFirst) {
    Family red(GetParam(), "GAganR");
    red.hold({{2, 5, 11, 17, 25, 33}});
    red.run("Option25(2)", {8});
    EXPECT_EQ(red.takeStatements()[1], in(kSixText, "zuheR"));
    red.hold({{2, 5, 11, 17, 25, 33}});
    red.run(MatchHistory{&red.filterOf("Option27"), 1});
    EXPECT_EQ(red.texts("canshu"), (Texts{"6"}));
    EXPECT_EQ(red.texts("Fliter"), (Texts{"历史同6号过滤 检索前 1 期2026001期 有6码相同"}));

    Family seven(GetParam(), "GAganf");
    seven.hold({{2, 5, 11, 17, 25, 31, 33}, {2, 5, 11, 17, 25, 30, 31}});
    seven.run(MatchHistory{&seven.filterOf("Option27"), 1});
    Texts statements = seven.takeStatements();
    EXPECT_EQ((Texts{statements[0], statements[1]}), (Texts{"ALTER TABLE [zuhef] ADD COLUMN [SKnum] integer",
                                                            "ALTER TABLE [zuhef] ADD COLUMN [JSqihao] long"}));
    EXPECT_EQ(statements[6], in(kSevenText, "zuhef"));
    EXPECT_EQ(seven.texts("canshu"), (Texts{"6", "5"}));
    EXPECT_EQ(seven.texts("Fliter"), (Texts{"历史同6号滤 检索前 1 期2026001期 有6码相同", ""}));
    seven.run(FilterGroups{&seven.filterOf("Option31"), {2, 30}, 2});
    EXPECT_EQ(seven.texts("Fliter")[1], "相克号分组过滤  2个一组");
    EXPECT_EQ(seven.session.inPlay(), 0);
}

/// What a bet must become, from the meaning of the filters.
struct PlainBet {
    bool out;
    std::string reason;
};

bool has(const Ints& bet, int number) {
    return std::ranges::find(bet, number) != bet.end();
}

PlainBet plainNumbers(const SuperFilter& filter, const Ints& numbers, const Ints& bet, bool wasOut) {
    const auto hits = std::ranges::count_if(numbers, [&](int number) { return has(bet, number); });
    const auto all = static_cast<std::ptrdiff_t>(numbers.size());
    const bool goes = filter.rule == NumberRule::Exclusive  ? hits == all
                      : filter.rule == NumberRule::Together ? hits > 0 && hits < all
                                                            : hits < all;
    if (wasOut)
        return {true, "手工删除"};
    return {goes, goes ? std::string(filter.caption) : ""};
}

PlainBet plainGroups(const FilterGroups& step, const Ints& bet, bool wasOut) {
    const auto hits = std::ranges::count_if(step.numbers, [&](int number) { return has(bet, number); });
    const bool lacksOne = std::ranges::any_of(step.bankers, [&](int banker) { return !has(bet, banker); });
    const std::string caption(step.filter->caption);
    PlainBet after{wasOut, wasOut ? "手工删除" : ""};
    if (step.filter->keeps) {
        if (!wasOut)
            after = hits >= step.groupSize ? PlainBet{false, ""}
                                           : PlainBet{true, caption + std::to_string(step.groupSize) + "个一组"};
        if (after.out && lacksOne)
            after.reason = caption + "  " + std::to_string(step.bankers.size()) + "胆";
        return after;
    }
    if (!wasOut && hits >= step.groupSize)
        after = {true, caption + "  " + std::to_string(step.groupSize) + "个一组"};
    if (after.out && lacksOne)
        after = {false, " "};
    return after;
}

/// A pattern of several numbers finds them in their order only, and the blue stands behind the reds: bets whose blue
/// is among several numbers are left to a case of their own.
TEST_P(SuperRuns, NumberAndGroupFiltersLeaveTheRowsOfPlainLoops) {
    const unsigned seed = environmentNumber("SSQ_SEED", 561);
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    const auto someNumbers = [&](int count) {
        Ints all(15);
        std::iota(all.begin(), all.end(), 1);
        std::ranges::shuffle(all, random);
        return Ints(all.begin(), all.begin() + count);
    };
    for (const char* form : {"GAgan", "GAganR", "GAganf"}) {
        Family family(GetParam(), form);
        int changed = 0;
        for (int turn = 0; turn < 60; ++turn) {
            family.holdRandom(random, 30);
            family.database->execute("UPDATE [" + family.name() +
                                     "] SET [unslt]=true , [Fliter]=\"手工删除\" WHERE [idx] mod 4 = 1");
            const auto filters = superFiltersOf(family.member);
            const SuperFilter* filter = &filters[static_cast<std::size_t>(below(static_cast<int>(filters.size())))];
            if (filter->kind != SuperKind::Numbers && filter->kind != SuperKind::Groups)
                continue;
            const FilterGroups groups{filter, someNumbers(1 + below(9)), 1 + below(4), someNumbers(below(3))};
            Ints numbers = someNumbers(1 + below(3));
            const bool isNumbers = filter->kind == SuperKind::Numbers;
            std::vector<PlainBet> expected;
            for (std::size_t row = 0; row < family.bets().size(); ++row) {
                const Ints& bet = family.bets()[row];
                expected.push_back(isNumbers ? plainNumbers(*filter, numbers, bet, row % 4 == 0)
                                             : plainGroups(groups, bet, row % 4 == 0));
            }
            const filter::Outcome outcome =
                family.run(isNumbers ? filter::Step(FilterNumbers{filter, numbers}) : filter::Step(groups));
            const std::vector<bool> out = family.out();
            const Texts reasons = family.texts("Fliter");
            const Texts before = family.texts("preunslt");
            for (std::size_t row = 0; row < expected.size(); ++row) {
                const Ints& bet = family.bets()[row];
                if (isNumbers && family.member.blue && numbers.size() > 1 && has(numbers, bet.back()))
                    continue;
                ASSERT_EQ(out[row], expected[row].out) << form << " " << filter->caption << " row " << row;
                ASSERT_EQ(reasons[row], expected[row].reason) << form << " " << filter->caption << " row " << row;
                ASSERT_EQ(before[row] != "0", row % 4 == 0);
            }
            ASSERT_EQ(outcome.left, std::ranges::count(out, false));
            changed += outcome.left > 0 && outcome.left < 30 ? 1 : 0;
        }
        EXPECT_GE(changed, 10) << form;
    }
}

TEST_P(SuperRuns, TheBlueMatchesLikeARedAtTheEndOfTheText) {
    six.hold({{2, 5, 11, 17, 25, 33, 8}, {2, 5, 11, 17, 25, 33, 9}});
    EXPECT_EQ(six.run("Option25(2)", {8}).left, 1);
    EXPECT_EQ(six.out(), (std::vector{false, true}));
    six.run(filter::ResetAll{});
    EXPECT_EQ(six.run("Option25(2)", {8, 17}).left, 0) << "the 8 stands behind the 17";
    six.run(filter::ResetAll{});
    EXPECT_EQ(six.run("Option25(0)", {33, 33}).left, 2) << "no bet holds a number twice";
}

TEST_P(SuperRuns, AGroupThatNoBetReachesTakesOutAllInPlay) {
    six.hold({{2, 5, 11, 17, 25, 33, 8}, {2, 5, 11, 17, 25, 32, 9}});
    EXPECT_EQ(six.run(FilterGroups{&six.filterOf("Option44"), {1, 3, 4}, 2, {33}}).left, 0);
    EXPECT_EQ(six.texts("Fliter"), (Texts{"保留分组过滤2个一组", "保留分组过滤  1胆"})) << "only its reason changes";
    six.run(filter::ResetAll{});
    six.run(filter::Toggle{"2"});
    EXPECT_EQ(six.run(FilterGroups{&six.filterOf("Option35"), {2, 5, 11}, 3, {33}}).left, 1);
    EXPECT_EQ(six.out(), (std::vector{true, false})) << "a bet without the banker comes back, whatever took it out";
    EXPECT_EQ(six.texts("Fliter")[1], " ");
}

TEST_P(SuperRuns, SayInWordsWhatWasDone) {
    six.hold({{2, 5, 11, 17, 25, 33, 8}});
    six.run(MatchHistory{&six.filterOf("Optio37"), 100});
    six.run("Option25(0)", {17, 3, 28});
    six.run(FilterGroups{&six.filterOf("Option44"), {1, 2, 3, 4, 5, 6, 7, 8}, 3});
    six.run(FilterGroups{&six.filterOf("Option35"), {1, 2}, 1, {5, 11}});
    six.run(TakeOutTemplate{&six.filterOf("Option43")});
    Texts told;
    for (const filter::DoneStep& step : six.session.steps())
        told.push_back(step.what);
    EXPECT_EQ(told, (Texts{"历史同4过滤 前 100 期", "相克号过滤 17 03 28", "保留分组过滤 8 个，3 个一组",
                           "相克分组过滤 2 个，1 个一组，胆 05 11", "组合模版同号滤"}));
}

TEST_P(SuperRuns, TheFilterByTheTemplateShowsTheStateUnderAShortTitle) {
    six.hold({{2, 5, 11, 17, 25, 33, 8}, {2, 5, 11, 17, 25, 33, 9}, {1, 5, 11, 17, 25, 33, 9}});
    six.run(filter::Toggle{"2"});
    six.run(filter::AddToTemplate{});
    six.run(filter::ResetAll{});
    six.database->execute("UPDATE [zuhe] SET [preunslt]=true , [Fliter]=\"旧\"");
    six.takeStatements();
    const filter::Outcome outcome = six.run(TakeOutTemplate{&six.filterOf("Option43")});
    EXPECT_EQ(outcome.left, 1);
    EXPECT_EQ(outcome.taken, 2);
    EXPECT_EQ(six.texts("Fliter"), (Texts{"旧", "旧", "旧"})) << "no reason";
    EXPECT_EQ(six.texts("preunslt"), (Texts{"-1", "-1", "-1"})) << "no snapshot";
    Texts heads;
    Ints widths;
    for (const filter::GridColumn& column : outcome.view.columns)
        heads.push_back(column.heading), widths.push_back(column.widthTwips);
    EXPECT_EQ(heads, (Texts{"号码索引", "红1", "红2", "红3", "红4", "红5", "红6", "蓝球", "选择"}));
    EXPECT_EQ((Ints{widths.begin(), widths.begin() + 8}), (Ints{750, 550, 550, 550, 550, 550, 550, 550}));
    EXPECT_EQ(outcome.view.rows.columnCount(), 9);
    EXPECT_EQ(six.session.title(), "复选组合情况排列总表（每页至多显示10000注）   合计：1注");
    const Texts statements = six.takeStatements();
    const auto view = std::ranges::find(
        statements, "SELECT idx,fig1,fig2,fig3,fig4,fig5,fig6,fig7,unslt FROM [zuhe] WHERE [unslt]= FALSE");
    ASSERT_NE(view, statements.end());
    EXPECT_EQ(
        Texts(view + 1, view + 7),
        (Texts{"ALTER TABLE [zuhe] ADD COLUMN [unslt] bit", "ALTER TABLE [zuhe] ADD COLUMN [canshu] integer",
               "ALTER TABLE [zuhe] ADD COLUMN [Numstring] string", "ALTER TABLE [zuhe] ADD COLUMN [SKnum] integer",
               "ALTER TABLE [zuhe] ADD COLUMN [preunslt] bit", "ALTER TABLE [zuhe] ADD COLUMN [tmpunslt] bit"}));
    six.run(filter::ResetAll{});
    EXPECT_EQ(six.session.title(), "复选组合情况排列总表（每页至多显示10000注，双击任意注可删除）   合计：3注");
    Family red(GetParam(), "GAganR");
    red.hold({{2, 5, 11, 17, 25, 33}});
    const filter::Outcome sixReds = red.run(TakeOutTemplate{&red.filterOf("Option43")});
    EXPECT_EQ(sixReds.left, 1) << "without a group template nothing changes";
    EXPECT_EQ(sixReds.view.columns.size(), 8U);
    EXPECT_EQ(sixReds.view.columns.back().heading, "选择");
}

struct GivesUp final : workspace::Progress {
    explicit GivesUp(int call) : left(call) {}
    int left;
    bool advance(double) override { return --left >= 0; }
};

TEST_P(SuperRuns, AHistoryFilterThatIsGivenUpLeavesTheTableAsItWas) {
    std::mt19937 random(5);
    for (const bool regular : {true, false}) { // one pass, or statements draw by draw
        six.history.Lshm = {{}, {101, 1, 2, 3, 4, 5, 6, 7}, {102, 2, 3, 4, 5, 6, 7, 8}, {103, 3, 4, 5, 6, 7, 8, 9}};
        six.history.Lsnum = 3;
        if (!regular)
            six.history.Lshm[3][1] = 0;
        six.holdRandom(random, 100);
        six.run("Option25(0)", {2, 3});
        const Texts before = six.everything();
        const std::size_t steps = six.session.steps().size();
        GivesUp progress(0);
        const filter::Outcome outcome = six.run(MatchHistory{&six.filterOf("Optio37"), 3}, &progress);
        EXPECT_TRUE(outcome.cancelled);
        EXPECT_EQ(outcome.left, six.session.inPlay());
        EXPECT_EQ(six.everything(), before);
        EXPECT_EQ(six.session.steps().size(), steps);
        GivesUp patient(1000);
        EXPECT_FALSE(six.run(MatchHistory{&six.filterOf("Optio37"), 3}, &patient).cancelled);
        EXPECT_LT(patient.left, 1000);
        EXPECT_NE(six.everything(), before);
    }
}

INSTANTIATE_TEST_SUITE_P(Executors, SuperRuns, testing::ValuesIn(kExecutors));

} // namespace
} // namespace filter_test
