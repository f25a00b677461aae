// The integrated run: random set-ups against plain loops, the four readings, and the statements to the letter.
#include "filter/integrated_run.h"

#include <algorithm>
#include <numeric>
#include <random>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "environment_number.h"
#include "executor_names.h"
#include "filter/bench_table.h"
#include "filter/session.h"
#include "workspace/templates.h"

namespace filter_test {
namespace {

using filter::Integrated;
using filter::Kind;
using filter::Logic;
using filter::Mode;
using filter::Parameter;
using filter::Session;
using filter::WindowState;
using Ints = std::vector<int>;
using Texts = std::vector<std::string>;

struct Row {
    plain::Bet bet{};
    bool out = false;
    int violations = 0;
    std::string reason{};
};

bool holds(const std::string& list, int value) {
    std::istringstream numbers(list);
    for (std::string number; numbers >> number;)
        if (number == std::to_string(value))
            return true;
    return false;
}

/// The first 255 characters.
std::string cut(const std::string& text) {
    std::size_t end = 0;
    for (int character = 0; character < 255 && end < text.size(); ++character)
        do
            ++end;
        while (end < text.size() && (text[end] & 0xC0) == 0x80);
    return text.substr(0, end);
}

/// One parameter's judgement of a row, as the boxes say it.
class Judge {
  public:
    Judge(const WindowState& state, const Parameter& parameter, const plain::Rule& rule, bool countsOutside)
        : m_state(state), m_parameter(parameter), m_box(state.row(parameter)), m_rule(rule),
          m_countsOutside(countsOutside) {}

    void count(Row& row) const {
        const int value = valueOf(row.bet);
        if (m_parameter.isPosition() && !isList() &&
            (value % 2 == 1 ? m_box.even && !m_box.odd : m_box.odd && !m_box.even))
            note(row, std::string(m_parameter.parityReason));
        if (isInside(value) != m_countsOutside)
            note(row, reason(value));
    }

  private:
    bool isList() const { return m_state.mode == Mode::List; }
    static void note(Row& row, const std::string& reason) {
        ++row.violations;
        row.reason += reason;
    }
    int valueOf(const plain::Bet& bet) const {
        if (!m_parameter.isInterval() || !isList())
            return plain::value(m_parameter.option, bet, m_rule);
        return static_cast<int>(std::count_if(bet.begin() + 1, bet.begin() + 7,
                                              [this](int red) { return holds(m_state.pickedNumbers, red); }));
    }
    bool isInside(int value) const {
        if (!isList() || m_parameter.isInterval())
            return value >= std::stoi(m_box.low) && value <= std::stoi(m_box.high);
        if (m_parameter.kind == Kind::RedPosition)
            return m_box.list.find(std::to_string(value)) != std::string::npos;
        return holds(m_box.list, value);
    }
    std::string reason(int value) const {
        std::string head = std::string(m_parameter.caption) + (m_parameter.wholeBet ? "全体球大小:" : "大小:");
        if (m_parameter.isInterval())
            head = isList() ? "指定号码 " + m_state.pickedNumbers + "大小:"
                            : "自定区间" + m_state.intervalAbove + "~" + m_state.intervalTo + "大小:";
        return head + std::to_string(value) + (m_countsOutside ? " 保留" : " 排除") +
               (isList() && !m_parameter.isInterval() ? m_box.list : m_box.low + "~" + m_box.high);
    }

    const WindowState& m_state;
    const Parameter& m_parameter;
    const filter::RowState& m_box;
    const plain::Rule& m_rule;
    bool m_countsOutside;
};

class IntegratedRuns : public testing::TestWithParam<sql::Executor> {
  protected:
    IntegratedRuns() : table(GetParam()) {}

    int below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    void hold(std::size_t count) {
        std::vector<Ints> bets;
        Ints all(33);
        std::iota(all.begin(), all.end(), 1);
        rows.assign(count, {});
        for (Row& row : rows) {
            std::ranges::shuffle(all, random);
            bets.emplace_back(all.begin(), all.begin() + 6);
            std::ranges::sort(bets.back());
            bets.back().push_back(below(16) + 1);
            std::ranges::copy(bets.back(), row.bet.begin() + 1);
        }
        table.hold(bets);
        session.generate(keepTable);
        table.takeStatements();
    }

    /// Some rows are out, with a reason that says so.
    void putSomeOut() {
        const int rest = below(5);
        const std::string some = " WHERE [idx] mod 5 = " + std::to_string(rest);
        table.database->execute("UPDATE [zuhe] SET [unslt]=false , [Fliter]=\"\" , [preunslt]=true , [Errnum]=7");
        table.database->execute("UPDATE [zuhe] SET [unslt]=true , [Fliter]=\"手工删除\"" + some);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            rows[row].out = static_cast<int>(row + 1) % 5 == rest;
            rows[row].violations = 0;
            rows[row].reason = rows[row].out ? "手工删除" : "";
        }
        session.generate(keepTable);
    }

    WindowState randomState() {
        WindowState state = filter::defaultState(table.member.catalogue());
        state.mode = std::array{Mode::Range, Mode::Mean, Mode::List}[static_cast<std::size_t>(below(3))];
        state.keep = below(2) == 0;
        state.logic = below(2) == 0 ? Logic::And : Logic::Or;
        state.tolerance = below(2) == 0;
        state.toleranceCount = std::to_string(below(4));
        const int often = below(2) == 0 ? 1 : 1 + below(6); // few ticks or many
        for (const Parameter& p : table.member.catalogue()) {
            filter::RowState& row = state.row(p);
            const int middle = p.group == filter::Group::Sums ? 60 : 3;
            row.ticked = below(8) < often;
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
        if (const int clear = 1 + below(12); clear < 8) // at most one of six, so that every gap has a value
            state.weights[static_cast<std::size_t>(clear)] = false;
        return state;
    }

    /// The rows as the told logic leaves them.
    void runPlainly(const WindowState& state) {
        const bool same = state.keep == (state.logic == Logic::And);
        const bool outside = same ? state.keep : !state.keep;
        const plain::Rule rule = table.rule(runSettings(state, filter::kKeep));
        const int allowed = state.tolerance ? std::stoi(state.toleranceCount) : 0;
        for (int tick = 0; tick < 32; ++tick)
            if (const Parameter* p = filter::parameterAt(table.member.catalogue(), tick); p && state.row(*p).ticked)
                for (Row& row : rows)
                    Judge(state, *p, rule, outside).count(row);
        for (Row& row : rows)
            row.out = row.out || (row.violations > allowed) == same;
    }

    void expectRows(const std::vector<bool>& before) {
        const Ints unslt = table.column("unslt");
        const Ints preunslt = table.column("preunslt");
        const Ints violations = table.column("Errnum");
        const Texts reasons = table.texts("Fliter");
        for (std::size_t row = 0; row < rows.size(); ++row) {
            ASSERT_EQ(unslt[row] != 0, rows[row].out) << "row " << row << " " << rows[row].violations;
            ASSERT_EQ(preunslt[row] != 0, before[row]) << row;
            if (before[row]) // 指定号码 counts nothing in them
                continue;
            ASSERT_EQ(violations[row], rows[row].violations) << row;
            ASSERT_EQ(reasons[row], cut(rows[row].reason)) << row;
        }
    }

    filter::Outcome run(const WindowState& state) { return session.run(Integrated{}, state); }

    std::mt19937 random{environmentNumber("SSQ_SEED", 20261122)};
    BenchTable table;
    std::int16_t Baoliu = 5;
    Session session{*filter::findMember("GAganMb"), {*table.database, table.history, table.Bitnum, Baoliu}};
    selection::Keep keepTable;
    std::vector<Row> rows;
};

TEST_P(IntegratedRuns, LeaveTheRowsOfPlainLoopsWhateverTheSetUp) {
    SCOPED_TRACE("seed " + std::to_string(environmentNumber("SSQ_SEED", 20261122)));
    hold(40);
    std::set<std::string> readings;
    int keptAndWent = 0;
    for (int turn = 0; turn < 500 && !HasFatalFailure(); ++turn) {
        sql::Transaction together(*table.database); // SQLite waits for the disk after every statement otherwise
        const WindowState state = randomState();
        putSomeOut();
        std::vector<bool> before;
        for (const Row& row : rows)
            before.push_back(row.out);
        const std::int64_t inPlay = std::ranges::count(before, false);
        runPlainly(state);
        const filter::Outcome outcome = run(state);
        SCOPED_TRACE("turn " + std::to_string(turn) + " " + session.steps().back().what);
        expectRows(before);
        const std::int64_t left = std::ranges::count(rows, false, &Row::out);
        ASSERT_EQ(outcome.left, left);
        ASSERT_EQ(outcome.taken, inPlay - left);
        if (left > 0 && left < inPlay) {
            ++keptAndWent;
            readings.insert(std::to_string(state.keep) + std::to_string(state.logic == Logic::And) +
                            std::to_string(state.tolerance));
        }
        together.commit();
    }
    EXPECT_EQ(readings.size(), 8U) << "each reading with and without tolerance took out some bets and left some";
    EXPECT_GE(keptAndWent, 80);
}

/// Two parameters of which the row 1 2 3 4 5 6 + 7 fails 首尾差值 alone.
WindowState twoTicks(const BenchTable& table) {
    WindowState state = filter::defaultState(table.member.catalogue());
    state.row(parameter("Option7")).ticked = true; // tick 15: last less first, 5 in that row
    state.row(parameter("Option7")).low = "6";
    state.row(parameter("Option4")).ticked = true; // tick 3: three even reds
    return state;
}

TEST_P(IntegratedRuns, AToleratedViolationStaysWithItsReason) {
    hold(1);
    table.database->execute("DROP TABLE [zuhe]");
    table.hold({{1, 2, 3, 4, 5, 6, 7}});
    WindowState state = twoTicks(table);
    EXPECT_EQ(run(state).left, 0);
    session.run(filter::ResetAll{}, state);
    state.tolerance = true;
    state.toleranceCount = "1";
    EXPECT_EQ(run(state).left, 1);
    EXPECT_EQ(table.texts("Fliter"), (Texts{"首尾差值大小:5 保留6~99"}));
    EXPECT_EQ(table.column("Errnum"), (Ints{1}));
    state.toleranceCount = "0"; // as without
    EXPECT_EQ(run(state).left, 0);
    EXPECT_EQ(table.texts("Fliter"), (Texts{"首尾差值大小:5 保留6~99首尾差值大小:5 保留6~99"})) << "never cleared";
}

TEST_P(IntegratedRuns, AParityAloneMayUseUpTheTolerance) {
    table.hold({{2, 5, 11, 17, 25, 33, 6}, {3, 5, 11, 17, 25, 33, 6}, {30, 31, 32, 33, 1, 2, 6}});
    session.generate(keepTable);
    WindowState state = filter::defaultState(table.member.catalogue());
    state.row(parameter("Option13")) = {
        .low = "1", .high = "24", .count = {}, .list = {}, .odd = true, .ticked = true};
    state.tolerance = true;
    EXPECT_EQ(run(state).left, 2);
    EXPECT_EQ(table.column("Errnum"), (Ints{1, 0, 2}));
    EXPECT_EQ(table.texts("Fliter")[2], "红球1位奇偶性红1位大小:30 保留1~24");
}

struct Reading {
    bool keep;
    Logic logic;
    std::int16_t Baoliu;
    bool inverts;
};
constexpr Reading kReadings[] = {{true, Logic::And, filter::kKeep, false},
                                 {false, Logic::Or, filter::kRemove, false},
                                 {true, Logic::Or, filter::kRemove, true},
                                 {false, Logic::And, filter::kKeep, true}};

TEST_P(IntegratedRuns, LeaveBaoliuAsTheReadingHasItForTheNextPress) {
    hold(10);
    for (const Reading& reading : kReadings) {
        WindowState state = filter::defaultState(table.member.catalogue());
        state.keep = reading.keep;
        state.logic = reading.logic;
        run(state);
        EXPECT_EQ(Baoliu, reading.Baoliu);
        EXPECT_EQ(filter::inverts(state), reading.inverts);
        table.takeStatements();
        session.run(filter::Press{&parameter("Option7")}, state);
        const Texts statements = table.takeStatements();
        EXPECT_NE(statements[2].find(reading.Baoliu == filter::kKeep ? " 保留0~99" : " 排除0~99"), std::string::npos);
    }
}

TEST_P(IntegratedRuns, WithoutATickTheInvertingReadingsTakeOutAllInPlay) {
    for (const Reading& reading : kReadings) {
        sql::passOver(*table.database, "DROP TABLE [zuhe]");
        hold(10);
        table.database->execute("UPDATE [zuhe] SET [unslt]=true WHERE [idx] = 3");
        session.generate(keepTable);
        WindowState state = filter::defaultState(table.member.catalogue());
        state.keep = reading.keep;
        state.logic = reading.logic;
        EXPECT_EQ(run(state).left, reading.inverts ? 0 : 9);
        EXPECT_EQ(session.steps().back().what, std::string("整合过滤 0 项 ") + (reading.keep ? "保留 " : "排除 ") +
                                                   (reading.logic == Logic::And ? "逻辑和" : "逻辑或"));
    }
}

TEST_P(IntegratedRuns, RunTheirStatementsInTheOrderOfTheTicks) {
    hold(5);
    WindowState state = twoTicks(table);
    state.row(parameter("Option13")).ticked = true; // tick 9
    state.tolerance = true;
    state.toleranceCount = "1.5 or so";
    state.logic = Logic::Or;
    run(state);
    EXPECT_EQ(session.steps().back().what, "整合过滤 3 项 保留 逻辑或 容错 2");
    const std::string evens = table.takeStatements()[2];
    EXPECT_EQ(evens.find("UPDATE [zuhe] SET [canshu]="), 0U);
    run(state);
    EXPECT_EQ(
        table.takeStatements(),
        (Texts{"UPDATE [zuhe] SET [Errnum]=0", "UPDATE [zuhe] SET [preunslt]=[unslt]", evens,
               "UPDATE [zuhe] SET [Errnum]=[Errnum]+1 , [Fliter] = [Fliter] & \"偶数个数大小:\" & [canshu] & \" "
               "排除0~9\" WHERE [canshu] >=0 AND [canshu] <=9",
               "UPDATE [zuhe] SET [preunslt]=[unslt]", "UPDATE [zuhe] SET [canshu]=([fig1] mod 2)",
               "UPDATE [zuhe] SET [Errnum]=[Errnum]+1 , [Fliter] = [Fliter] & \"红球1位奇偶性\" WHERE ([canshu] "
               "<> 0 AND [canshu]  = 0)",
               "UPDATE [zuhe] SET [Errnum]=[Errnum]+1 , [Fliter] = [Fliter] & \"红1位大小:\" & [fig1] & \" "
               "排除0~99\" WHERE [fig1] >=0 AND [fig1] <=99",
               "UPDATE [zuhe] SET [canshu]=([fig6]-[fig1])",
               "UPDATE [zuhe] SET [Errnum]=[Errnum]+1 , [Fliter] = [Fliter] & \"首尾差值大小:\" & [canshu] & \" "
               "排除6~99\" WHERE [canshu] >=6 AND [canshu] <=99",
               "UPDATE [zuhe] SET [unslt]=TRUE WHERE [Errnum] > 2",
               "UPDATE [zuhe] SET [unslt]=NOT [unslt]  WHERE [preunslt]=false",
               "SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [fig7] FROM [zuhe] WHERE "
               "[unslt] = false"}));
    state.tolerance = false;
    state.logic = Logic::And;
    run(state);
    const Texts plain = table.takeStatements();
    EXPECT_EQ(plain[plain.size() - 2], "UPDATE [zuhe] SET [unslt]=TRUE WHERE [Errnum] > 0");
}

/// All that the table holds, as text.
Texts everything(sql::Database& database, const std::string& table) {
    const sql::Rows rows = database.query("SELECT * FROM [" + table + "]");
    Texts lines;
    for (std::int64_t row = 0; row < rows.count(); ++row) {
        lines.emplace_back();
        for (int column = 0; column < rows.columnCount(); ++column)
            lines.back() += rows.textAt(row, column) + '|';
    }
    return lines;
}

struct GivesUp final : workspace::Progress {
    explicit GivesUp(int call) : left(call) {}
    int left;
    bool advance(double) override { return --left >= 0; }
};

TEST_P(IntegratedRuns, GivenUpTheTableAndBaoliuAreWhatTheyWere) {
    hold(30);
    putSomeOut();
    WindowState state = twoTicks(table);
    state.logic = Logic::Or;
    const Texts before = everything(*table.database, "zuhe");
    const std::string title = session.title();
    const std::size_t steps = session.steps().size();
    for (int call = 0; call < 2; ++call) {
        GivesUp progress(call);
        const filter::Outcome outcome = session.run(Integrated{}, state, &progress);
        EXPECT_TRUE(outcome.cancelled);
        EXPECT_EQ(outcome.left, session.inPlay());
        EXPECT_EQ(outcome.taken, 0);
        EXPECT_EQ(everything(*table.database, "zuhe"), before);
        EXPECT_EQ(Baoliu, 5);
        EXPECT_EQ(session.title(), title);
        EXPECT_EQ(session.steps().size(), steps);
    }
    GivesUp patient(100);
    EXPECT_FALSE(session.run(Integrated{}, state, &patient).cancelled);
    EXPECT_NE(everything(*table.database, "zuhe"), before);
    EXPECT_EQ(patient.left, 98) << "asked after each parameter";
}

/// The table of seven reds has no Errnum: the states lie in Gpslt.
class SevenRedRuns : public testing::TestWithParam<sql::Executor> {
  protected:
    SevenRedRuns() : table(GetParam()) {
        table.database->execute(workspace::createCombinationTable("zuhef"));
        selection::GenerationInput input;
        input.chosen.reds = {1, 2, 3, 4, 5, 6, 7, 8, 9};
        input.Genreds = 9;
        selection::Enumeration source(input);
        session.generate(source);
        table.database->execute("UPDATE [zuhef] SET [unslt]=true WHERE [idx] mod 4 = 0");
        session.generate(keepTable);
        table.takeStatements();
    }
    std::int64_t count(const std::string& where) {
        return table.database->query("SELECT idx FROM [zuhef] WHERE " + where).count();
    }

    BenchTable table;
    std::int16_t Baoliu = filter::kKeep;
    const filter::FilterMember& member = *filter::findMember("GAganf");
    Session session{member, {*table.database, table.history, table.Bitnum, Baoliu}};
    selection::Keep keepTable;
};

TEST_P(SevenRedRuns, KeepTheStatesInGpsltAndOfferNoTolerance) {
    WindowState state = filter::defaultState(member.catalogue());
    state.tolerance = true;
    state.toleranceCount = "9";
    EXPECT_EQ(session.run(Integrated{}, state).left, 27);
    const std::string select = "SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [fig7] FROM "
                               "[zuhef] WHERE [unslt] = false";
    EXPECT_EQ(table.takeStatements(),
              (Texts{"UPDATE [zuhef] SET [Gpslt]=TRUE", "UPDATE [zuhef] SET [Gpslt]=FALSE WHERE [unslt] = FALSE",
                     "UPDATE [zuhef] SET [preunslt]=[Gpslt]", select}));
    state.logic = Logic::Or;
    EXPECT_EQ(session.run(Integrated{}, state).left, 0);
    EXPECT_EQ(session.steps().back().what, "整合过滤 0 项 保留 逻辑或");
    EXPECT_EQ(table.takeStatements(),
              (Texts{"UPDATE [zuhef] SET [Gpslt]=TRUE", "UPDATE [zuhef] SET [Gpslt]=FALSE WHERE [unslt] = FALSE",
                     "UPDATE [zuhef] SET [unslt]=NOT [unslt]  WHERE [Gpslt]=false",
                     "UPDATE [zuhef] SET [preunslt]=[Gpslt]", select}));
    EXPECT_EQ(session.run(filter::RestoreLast{}, state).left, 27) << "what was in play before the run";
}

/// Bets of seven of 1..9 with this many even reds, of those in play: 1 to 4 are even.
TEST_P(SevenRedRuns, JudgeTheTickedParametersInAllFourReadings) {
    const Parameter* evens = filter::findParameter(member.catalogue(), "Option4");
    const Parameter* span = filter::findParameter(member.catalogue(), "Option7");
    ASSERT_TRUE(evens && span);
    WindowState state = filter::defaultState(member.catalogue());
    for (const auto& [p, low, high] : {std::tuple{evens, "3", "3"}, std::tuple{span, "7", "7"}}) {
        state.row(*p).ticked = true;
        state.row(*p).low = low;
        state.row(*p).high = high;
    }
    const auto inside = [](const sql::Rows& rows, std::int64_t row) {
        int even = 0;
        for (int place = 1; place <= 7; ++place)
            even += rows.integerAt(row, place) % 2 == 0 ? 1 : 0;
        return (even == 3 ? 1 : 0) + (rows.integerAt(row, 7) - rows.integerAt(row, 1) == 7 ? 1 : 0);
    };
    for (const Reading& reading : kReadings) {
        session.run(filter::ResetAll{}, state);
        table.database->execute("UPDATE [zuhef] SET [unslt]=true WHERE [idx] mod 4 = 0");
        state.keep = reading.keep;
        state.logic = reading.logic;
        std::int64_t expected = 0;
        const sql::Rows rows = table.database->query("SELECT * FROM [zuhef] WHERE [idx] mod 4 <> 0");
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            const int in = inside(rows, row);
            const bool holds = reading.logic == Logic::And ? in == 2 : in > 0;
            expected += holds == reading.keep ? 1 : 0;
        }
        EXPECT_EQ(session.run(Integrated{}, state).left, expected);
        EXPECT_GT(expected, 0);
        EXPECT_LT(expected, rows.count());
        EXPECT_EQ(count("[preunslt] = true"), 9);
    }
}

INSTANTIATE_TEST_SUITE_P(Executors, IntegratedRuns, testing::ValuesIn(kExecutors));
INSTANTIATE_TEST_SUITE_P(Executors, SevenRedRuns, testing::ValuesIn(kExecutors));

} // namespace
} // namespace filter_test
