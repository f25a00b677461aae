// A session without a window: random presses, resets, inverts and toggles against plain loops over plain rows, the
// statements that each step runs, and what it tells about them.
#include "filter/session.h"

#include <algorithm>
#include <numeric>
#include <random>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "executor_names.h"
#include "filter/bench_table.h"

namespace filter_test {
namespace {

using filter::Kind;
using filter::Mode;
using filter::Parameter;
using filter::Session;
using filter::Step;
using filter::Toggled;
using filter::WindowState;
using Texts = std::vector<std::string>;

/// A table row the plain way.
struct PlainRow {
    plain::Bet bet{};
    bool out = false;
    bool before = false;  ///< preunslt
    bool earlier = false; ///< tmpunslt
    std::string reason{};
};

/// What every step means, in loops.
class PlainTable {
  public:
    explicit PlainTable(std::vector<PlainRow> rows) : rows(std::move(rows)) {}

    void press(const Parameter& p, const WindowState& state, bool keep, const plain::Rule& rule) {
        const std::vector<int> values = valuesOf(p, state, rule);
        snapshot();
        if (p.isPosition() && state.mode != Mode::List)
            takeOut(
                [&](std::size_t row) {
                    return isOdd(values[row]) ? state.row(p).even && !state.row(p).odd
                                              : state.row(p).odd && !state.row(p).even;
                },
                [&](std::size_t) { return std::string(p.parityReason); });
        takeOut([&](std::size_t row) { return isInside(p, state, values[row]) != keep; },
                [&](std::size_t row) { return reasonOf(p, state, values[row], keep); });
    }
    void resetAll() {
        for (PlainRow& row : rows)
            row.out = false, row.reason.clear();
    }
    void restoreLast() {
        for (PlainRow& row : rows)
            if (!row.before && row.out)
                row.out = false, row.reason.clear();
    }
    void invertAll() {
        snapshot();
        for (PlainRow& row : rows)
            row.out = !row.out, row.reason = "全部反选-" + row.reason;
    }
    void invertLast() {
        for (PlainRow& row : rows)
            row.earlier = row.before;
        snapshot();
        for (PlainRow& row : rows)
            if (!row.earlier)
                row.out = !row.out, row.reason = "上次反选-" + row.reason;
    }
    void toggle(std::size_t idx) {
        snapshot();
        PlainRow& row = rows[idx - 1];
        row.out = !row.out;
        row.reason = row.out ? "手工删除" : "";
    }
    void addToTemplate() {
        for (const PlainRow& row : rows)
            if (!row.out)
                gathered.insert(row.bet);
    }
    std::int64_t inPlay() const {
        return std::ranges::count_if(rows, [](const PlainRow& row) { return !row.out; });
    }

    std::vector<PlainRow> rows;
    std::set<plain::Bet> gathered{}; ///< the group template

  private:
    static bool isOdd(int value) { return value % 2 == 1; }
    void snapshot() {
        for (PlainRow& row : rows)
            row.before = row.out;
    }
    template <class Fails, class Reason> void takeOut(Fails fails, Reason reason) {
        for (std::size_t row = 0; row < rows.size(); ++row)
            if (!rows[row].out && fails(row))
                rows[row].out = true, rows[row].reason = reason(row);
    }
    std::vector<int> valuesOf(const Parameter& p, const WindowState& state, const plain::Rule& rule) const {
        std::vector<int> values;
        for (const PlainRow& row : rows)
            values.push_back(p.isInterval() && state.mode == Mode::List ? picked(row, state)
                                                                        : plain::value(p.option, row.bet, rule));
        return values;
    }
    static int picked(const PlainRow& row, const WindowState& state) {
        int count = 0;
        for (std::size_t red = 1; red <= 6; ++red)
            count += !row.out && holds(state.pickedNumbers, row.bet[red]) ? 1 : 0;
        return count;
    }
    static bool holds(const std::string& list, int value) {
        std::istringstream numbers(list);
        for (std::string number; numbers >> number;)
            if (number == std::to_string(value))
                return true;
        return false;
    }
    static bool isInside(const Parameter& p, const WindowState& state, int value) {
        const filter::RowState& row = state.row(p);
        if (state.mode != Mode::List || p.isInterval())
            return value >= std::stoi(row.low) && value <= std::stoi(row.high);
        if (p.kind == Kind::RedPosition)
            return row.list.find(std::to_string(value)) != std::string::npos;
        return holds(row.list, value);
    }
    static std::string reasonOf(const Parameter& p, const WindowState& state, int value, bool keep) {
        const filter::RowState& row = state.row(p);
        const bool list = state.mode == Mode::List;
        std::string head = std::string(p.caption) + (p.caption.starts_with("红蓝") ? "全体球大小:" : "大小:");
        if (p.isInterval())
            head = list ? "指定号码 " + state.pickedNumbers + "大小:"
                        : "自定区间" + state.intervalAbove + "~" + state.intervalTo + "大小:";
        return head + std::to_string(value) + (keep ? " 保留" : " 排除") +
               (list && !p.isInterval() ? row.list : row.low + "~" + row.high);
    }
};

class Sessions : public testing::TestWithParam<sql::Executor> {
  protected:
    Sessions() : table(GetParam()) {}

    void hold(std::mt19937& random, std::size_t rows) {
        std::vector<std::vector<int>> bets;
        std::vector<PlainRow> plainRows(rows);
        std::vector<int> all(33);
        std::iota(all.begin(), all.end(), 1);
        for (std::size_t row = 0; row < rows; ++row) {
            std::ranges::shuffle(all, random);
            bets.emplace_back(all.begin(), all.begin() + 6);
            std::ranges::sort(bets.back());
            bets.back().push_back(static_cast<int>(random() % 16) + 1);
            std::ranges::copy(bets.back(), plainRows[row].bet.begin() + 1);
        }
        table.hold(bets);
        slow.emplace(std::move(plainRows));
        const filter::Outcome opened = session.generate(keepTable);
        ASSERT_EQ(opened.left, static_cast<std::int64_t>(rows));
        table.takeStatements();
    }

    /// As a user leaves the boxes: often narrow ranges, sometimes reversed ones, lists, ticks.
    WindowState randomState(std::mt19937& random) {
        const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
        WindowState state = filter::defaultState(table.member.catalogue());
        state.mode = std::array{Mode::Range, Mode::Mean, Mode::List}[static_cast<std::size_t>(below(3))];
        for (const Parameter& p : table.member.catalogue()) {
            filter::RowState& row = state.row(p);
            const int middle = p.group == filter::Group::Sums ? 60 : 3;
            row.low = std::to_string(below(middle));
            row.high = std::to_string(below(2 * middle));
            row.odd = below(2) == 0;
            row.even = below(2) == 0;
            for (int number = 0; number < 6; ++number)
                row.list += " " + std::to_string(below(2 * middle));
        }
        state.intervalAbove = std::to_string(below(20));
        state.intervalTo = std::to_string(below(34));
        state.pickedNumbers = "3 17  25 8 " + std::to_string(below(33) + 1);
        const std::size_t clear = 1 + random() % 12; // at most one of six, so that every gap has a value
        if (clear < state.weights.size())
            state.weights[clear] = false;
        return state;
    }

    BenchTable table;
    std::int16_t Baoliu = filter::kKeep;
    Session session{table.member, {*table.database, table.history, table.Bitnum, Baoliu}};
    selection::Keep keepTable;
    std::optional<PlainTable> slow;
};

/// A step and the same in plain loops.
Step randomStep(std::mt19937& random, const WindowState& state, bool keep, const plain::Rule& rule,
                std::span<const Parameter> catalogue, PlainTable& slow) {
    switch (random() % 13) {
    case 0:
        return slow.resetAll(), filter::ResetAll{};
    case 1:
        return slow.restoreLast(), filter::RestoreLast{};
    case 2:
        return slow.invertAll(), filter::InvertAll{};
    case 3:
        return slow.invertLast(), filter::InvertLast{};
    case 4:
    case 5: {
        const std::size_t idx = random() % slow.rows.size() + 1;
        slow.toggle(idx);
        return filter::Toggle{std::to_string(idx)};
    }
    case 6:
        return slow.addToTemplate(), filter::AddToTemplate{};
    default: {
        const Parameter& p = catalogue[random() % catalogue.size()];
        slow.press(p, state, keep, rule);
        return filter::Press{&p};
    }
    }
}

TEST_P(Sessions, EndWithTheRowStatesOfPlainLoopsWhateverTheSequence) {
    constexpr unsigned kSeed = 20261122;
    std::mt19937 random(kSeed);
    hold(random, 120);
    std::size_t steps = 0;
    std::set<std::size_t> kindsReached;
    std::set<const Parameter*> parametersThatTookOut;
    for (int turn = 0; turn < 200; ++turn) {
        const WindowState state = randomState(random);
        Baoliu = random() % 2 == 0 ? filter::kKeep : filter::kRemove;
        const std::int64_t before = slow->inPlay();
        const Step step = randomStep(random, state, Baoliu == filter::kKeep, table.rule(runSettings(state, Baoliu)),
                                     table.member.catalogue(), *slow);
        const filter::Outcome outcome = session.run(step, state);
        const std::vector<int> unslt = table.column("unslt");
        const std::vector<int> preunslt = table.column("preunslt");
        const Texts reasons = table.texts("Fliter");
        for (std::size_t row = 0; row < slow->rows.size(); ++row) {
            ASSERT_EQ(unslt[row] != 0, slow->rows[row].out) << turn << " row " << row << session.steps().back().what;
            ASSERT_EQ(preunslt[row] != 0, slow->rows[row].before) << turn << " row " << row;
            ASSERT_EQ(reasons[row], slow->rows[row].reason) << turn << " row " << row;
        }
        ASSERT_EQ(outcome.left, slow->inPlay());
        ASSERT_EQ(outcome.taken, before - slow->inPlay());
        ASSERT_EQ(session.inPlay(), slow->inPlay());
        const bool adds = std::holds_alternative<filter::AddToTemplate>(step);
        ASSERT_EQ(outcome.refill, !adds && !std::holds_alternative<filter::Toggle>(step));
        ASSERT_EQ(outcome.gathered.has_value(), adds);
        if (adds) {
            ASSERT_EQ(outcome.gathered->total, static_cast<std::int64_t>(slow->gathered.size()));
        }
        ASSERT_EQ(session.steps().size(), ++steps);
        ASSERT_EQ(session.steps().back().effect, slow->inPlay() - before);
        ASSERT_EQ(session.steps().back().left, slow->inPlay());
        kindsReached.insert(step.index());
        if (const auto* press = std::get_if<filter::Press>(&step); press && outcome.taken > 0)
            parametersThatTookOut.insert(press->parameter);
        if (slow->inPlay() == 0 || turn % 25 == 24) { // nothing would be left to filter
            slow->resetAll();
            filter::RowStates(*table.database, "zuhe").resetAll();
            session.generate(keepTable);
            steps = 0;
        }
    }
    EXPECT_EQ(kindsReached.size(), 7U) << "every step of one parameter or of row states";
    EXPECT_GE(parametersThatTookOut.size(), table.member.catalogue().size() / 2);
}

const Texts kSelects{
    "SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [fig7] FROM [zuhe] WHERE [unslt] = false",
    "SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [fig7] , [canshu] FROM [zuhe] WHERE "
    "[unslt] = false"};

TEST_P(Sessions, RunTheStatementsOfTheirOperationsAndNoneToCount) {
    std::mt19937 random(3);
    hold(random, 20);
    const WindowState state = filter::defaultState(table.member.catalogue());
    const auto statementsOf = [&](const Step& step) {
        session.run(step, state);
        session.inPlay();
        session.total();
        session.title();
        return table.takeStatements();
    };
    EXPECT_EQ(statementsOf(filter::Press{&parameter("Option7")}),
              (Texts{"UPDATE [zuhe] SET [canshu]=([fig6]-[fig1])", "UPDATE [zuhe] SET [preunslt]=[unslt]",
                     "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"首尾差值大小:\" & [canshu] & \" 保留0~99\" WHERE "
                     "[unslt]=false AND ([canshu] <0 OR [canshu] >99)",
                     kSelects[1]}));
    EXPECT_EQ(
        statementsOf(filter::Press{&parameter("Option19")}),
        (Texts{"UPDATE [zuhe] SET [preunslt]=[unslt]", "UPDATE [zuhe] SET [canshu]=([fig7] mod 2)",
               "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"蓝球奇偶性\" WHERE [unslt]=false AND ([canshu] <> "
               "0 AND [canshu]  = 0)",
               "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"蓝球大小:\" & [fig7] & \" 保留0~99\" WHERE "
               "[unslt]=false AND ([fig7] <0 OR [fig7] >99)",
               kSelects[0]}));
    EXPECT_EQ(statementsOf(filter::ResetAll{}),
              (Texts{"UPDATE [zuhe] SET [unslt]=false  , [Fliter] = \"\"", kSelects[0]}));
    EXPECT_EQ(statementsOf(filter::RestoreLast{}),
              (Texts{"UPDATE [zuhe] SET [unslt]=false  , [Fliter] = \"\" WHERE [preunslt]=false AND [unslt] = true",
                     kSelects[0]}));
    EXPECT_EQ(statementsOf(filter::InvertAll{}),
              (Texts{"UPDATE [zuhe] SET [preunslt]=[unslt]",
                     "UPDATE [zuhe] SET [unslt]=not [unslt]   , [Fliter] = \"全部反选-\" & [Fliter]", kSelects[0]}));
    EXPECT_EQ(statementsOf(filter::InvertLast{}),
              (Texts{"UPDATE [zuhe] SET [tmpunslt]=[preunslt]", "UPDATE [zuhe] SET [preunslt]=[unslt]",
                     "UPDATE [zuhe] SET [unslt]=NOT [unslt]   , [Fliter] = \"上次反选-\" & [Fliter]  WHERE "
                     "[tmpunslt]=false",
                     kSelects[0]}));
    EXPECT_EQ(statementsOf(filter::Toggle{"7"}),
              (Texts{"UPDATE [zuhe] SET [preunslt]=[unslt]", "SELECT * FROM [zuhe] WHERE [idx] = 7",
                     "UPDATE [zuhe] SET [unslt]=TRUE , [Fliter] = \"手工删除\" WHERE [unslt] = FALSE AND [idx]= 7",
                     kSelects[1]}));
    session.reasons();
    EXPECT_EQ(
        table.takeStatements(),
        (Texts{"SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [fig7] ,[canshu],[fliter] "
               "FROM [zuhe]",
               "SELECT [unslt] FROM [zuhe]"})); // which rows are out, for the marks: a restored row has no reason
    session.page(1);
    EXPECT_EQ(table.takeStatements().size(), 1U);
}

TEST_P(Sessions, SayInWordsWhatWasDoneAndWhatIsLeft) {
    table.hold({{1, 2, 3, 4, 5, 6, 7}, {1, 5, 11, 17, 25, 33, 6}, {28, 29, 30, 31, 32, 33, 16}});
    EXPECT_EQ(session.generate(keepTable).left, 3);
    WindowState state = filter::defaultState(table.member.catalogue());
    state.row(parameter("Option23")).low = "22";
    state.row(parameter("Option4")).list = " 3";
    state.pickedNumbers = "1 2 3";
    EXPECT_EQ(session.run(filter::Press{&parameter("Option23")}, state).taken, 1);
    Baoliu = filter::kRemove;
    state.mode = Mode::List;
    EXPECT_EQ(session.run(filter::Press{&parameter("Option4")}, state).taken, 1);
    session.run(filter::Press{&parameter("Option66")}, state);
    EXPECT_EQ(session.run(filter::Toggle{"17"}, state).toggled, Toggled::NotFound); // no step
    const filter::Outcome back = session.run(filter::Toggle{"1"}, state);
    EXPECT_EQ(back.toggled, Toggled::PutBack);
    EXPECT_EQ(back.taken, -1);
    EXPECT_EQ(back.view.columns.size(), 0U);
    EXPECT_EQ(session.run(filter::Toggle{"1"}, state).toggled, Toggled::TakenOut);
    session.run(filter::ResetAll{}, state);
    session.run(filter::InvertAll{}, state);
    session.run(filter::InvertLast{}, state);
    session.run(filter::RestoreLast{}, state);
    Texts told;
    for (const filter::DoneStep& step : session.steps())
        told.push_back(step.what + " | " + std::to_string(step.left) + " | " + std::to_string(step.effect));
    EXPECT_EQ(told, (Texts{"各码数和 保留 22~999 | 2 | -1", "偶数个数 排除  3 | 1 | -1", "指定号码 排除 0~9 | 0 | -1",
                           "手工恢复 第1注 | 1 | 1", "手工删除 第1注 | 0 | -1", "全部复位 | 3 | 3",
                           "全部组号反选 | 0 | -3", "上一步过滤反选 | 3 | 3", "上次过滤复位 | 3 | 0"}));
    EXPECT_EQ(session.title(), "复选组合情况排列总表（每页至多显示10000注，双击任意注可删除）   合计：3注");
    EXPECT_EQ(session.total(), 3);
    session.generate(keepTable);
    EXPECT_TRUE(session.steps().empty());
}

TEST_P(Sessions, ShowAllRowsAfterAGenerationAndThoseInPlayAfterAKeep) {
    selection::GenerationInput input;
    input.chosen = {.reds = {1, 2, 3, 4, 5, 6, 7, 8}, .bankers = {9, 10, 11, 12, 13, 14}, .blues = {1, 2}};
    input.Genreds = 8;
    selection::Enumeration enumeration(input);
    EXPECT_EQ(session.generate(enumeration).left, 56);
    EXPECT_NE(session.title().find("合计：56注"), std::string::npos);
    WindowState state = filter::defaultState(table.member.catalogue());
    state.row(parameter("Option13")).low = "2";
    state.row(parameter("Option13")).even = true;
    EXPECT_EQ(session.run(filter::Press{&parameter("Option13")}, state).left, 12); // 2 and five of 3 to 8, two blues
    EXPECT_EQ(session.steps().back().what, "红1位 保留 2~99 偶");
    EXPECT_NE(session.title().find("合计：12注"), std::string::npos) << "the title follows each step";
    Session again(*filter::findMember("GAganMb"), {*table.database, table.history, table.Bitnum, Baoliu});
    EXPECT_EQ(again.generate(keepTable).view.rows.count(), 12);
    EXPECT_EQ(again.inPlay(), 12);
    EXPECT_NE(again.title().find("12"), std::string::npos) << "what a keep has left";
    EXPECT_EQ(again.total(), 56);
    Session bankers(*filter::findMember("Gdanagan"), {*table.database, table.history, table.Bitnum, Baoliu});
    EXPECT_EQ(bankers.generate(enumeration).left, 0); // six bankers: none is written, but a title is told
    EXPECT_NE(bankers.title().find("合计：2注"), std::string::npos);
}

TEST_P(Sessions, KeepTableAndStepsWhenAGenerationIsGivenUp) {
    struct Giving final : workspace::Progress {
        bool advance(double) override { return false; }
    } up;
    selection::GenerationInput input;
    input.chosen = {.reds = {1, 2, 3, 4, 5, 6, 7, 8}, .bankers = {}, .blues = {1, 2}};
    input.Genreds = 8;
    selection::Enumeration enumeration(input);
    session.generate(enumeration);
    session.run(filter::Toggle{"5"}, {});
    const filter::Outcome outcome = session.generate(enumeration, &up);
    EXPECT_TRUE(outcome.cancelled);
    EXPECT_EQ(outcome.left, 55);
    EXPECT_EQ(outcome.view.rows.count(), 55);
    EXPECT_EQ(session.steps().size(), 1U);
    EXPECT_NE(session.title().find("合计：55注"), std::string::npos);
}

/// A workspace that has never generated has no such table yet: its window opens on nothing.
TEST_P(Sessions, CountNoRowsWhereThereIsNoTable) {
    EXPECT_EQ(session.total(), 0);
    EXPECT_EQ(session.generate(keepTable).left, 0);
}

TEST_P(Sessions, TellTheShareOfPastDrawsInTheRangeAndTheLatestValues) {
    const WindowState state = filter::defaultState(table.member.catalogue());
    const Parameter& sum = parameter("Option23");
    history::History none;
    const Session empty(table.member, {*table.database, none, table.Bitnum, Baoliu});
    EXPECT_FALSE(empty.past(sum, state));

    table.history.Lsnum = 4;
    table.history.Lshm = {{},
                          {1, 1, 2, 3, 4, 5, 6, 7},
                          {2, 3, 4, 5, 6, 7, 8, 9},
                          {3, 5, 6, 7, 8, 9, 10, 2},
                          {4, 7, 8, 9, 10, 11, 12, 16}};
    table.history.derived.resize(5);
    for (std::size_t draw = 1; draw <= 4; ++draw) {
        table.history.derived[draw].Znum = static_cast<std::int16_t>(draw * 20);
        table.history.derived[draw].intYljz = static_cast<std::int16_t>(draw);
        table.history.derived[draw].Qnum[1] = static_cast<std::int16_t>(draw + 1);
    }
    WindowState narrow = state;
    narrow.row(sum).low = "40";
    narrow.row(sum).high = "60.";
    const auto last = [&](const std::string& option) { return session.past(parameter(option), state)->latest[0]; };
    EXPECT_EQ(session.past(sum, narrow)->share(), 0.5); // 40 and 60: both ends belong to it
    EXPECT_EQ(session.past(sum, narrow)->inside, 2);
    EXPECT_EQ(session.past(sum, narrow)->latest, (std::vector{80, 60, 40, 20}));
    EXPECT_EQ(session.past(sum, narrow)->seen, (filter::ValueRange{20, 80}));
    narrow.row(sum).high = "39";
    EXPECT_EQ(session.past(sum, narrow)->share(), 0.0);
    EXPECT_EQ(session.past(sum, state)->share(), 1.0);
    EXPECT_EQ(last("Option42"), 4); // intyljz in the catalogue, intYljz in the table
    EXPECT_EQ(last("Option10"), 5);
    EXPECT_EQ(last("Option13"), 7);
    EXPECT_EQ(last("Option19"), 16);
    narrow.row(parameter("Option19")).low = "8";
    EXPECT_EQ(session.past(parameter("Option19"), narrow)->share(), 0.5);
    for (const Parameter& p : table.member.catalogue())
        EXPECT_EQ(session.past(p, state).has_value(), !p.isInterval()) << p.option;
}

TEST(WindowStates, HoldWhatTheBoxesSayWhenAWindowOpens) {
    const WindowState state = filter::defaultState(filter::sixAndBlueCatalogue());
    for (const Parameter& p : filter::sixAndBlueCatalogue()) {
        const filter::RowState& row = state.row(p);
        EXPECT_EQ(row, (filter::RowState{.low = std::to_string(p.defaults.low),
                                         .high = std::to_string(p.defaults.high),
                                         .count = p.isInterval() ? "" : std::to_string(p.defaults.count),
                                         .list = ""}))
            << p.option;
    }
    EXPECT_EQ(state.mode, Mode::Range);
    EXPECT_TRUE(state.keep);
    EXPECT_EQ(state.intervalAbove + " " + state.intervalTo + " " + state.pickedNumbers, "0 9 ");
    EXPECT_EQ(state.toleranceCount + " " + state.tolerancePercent, "1 10");
    EXPECT_EQ(state.percent, "100");
    EXPECT_FALSE(state.tolerance);
    EXPECT_EQ(state.logic, filter::Logic::And);
    WindowState other = state;
    EXPECT_EQ(other, state);
    other.rows[31].ticked = true;
    EXPECT_NE(other, state);
}

TEST(WindowStates, GiveARunItsSettingsAndItsRow) {
    WindowState state = filter::defaultState(filter::sixAndBlueCatalogue());
    state.mode = Mode::List;
    state.keep = true;
    state.weights[3] = false;
    state.intervalAbove = "4";
    state.intervalTo = "9";
    state.pickedNumbers = "5 6";
    const Parameter& red = parameter("Option14");
    state.row(red) = {.low = "3", .high = "x", .count = "2", .list = " 7 ", .odd = true};
    const filter::RunSettings run = runSettings(state, filter::kRemove); // Baoliu decides, not what Option1 shows
    EXPECT_EQ(run.mode, Mode::List);
    EXPECT_EQ(run.Baoliu, filter::kRemove);
    EXPECT_EQ(run.ticked, state.weights);
    EXPECT_EQ(run.intervalAbove + run.intervalTo + run.pickedNumbers, "495 6");
    const filter::RowInput row = rowInput(state, red);
    EXPECT_EQ(row.low + row.high + row.list, "3x 7 ");
    EXPECT_TRUE(row.odd);
    EXPECT_FALSE(row.even);
}

INSTANTIATE_TEST_SUITE_P(Executors, Sessions, testing::Values(sql::Executor::Sqlite, sql::Executor::Column));

} // namespace
} // namespace filter_test
