// The search that fills in ranges and lists: by hand, against the statements that say what is looked for, and row by
// row of every window.
#include "filter/range_search.h"

#include <algorithm>
#include <numeric>
#include <random>

#include <QFile>

#include <gtest/gtest.h>

#include "base/number_text.h"
#include "filter/bench_table.h"
#include "filter/history_column.h"
#include "history/derive.h"
#include "history/draw_tables.h"
#include "history/statistics.h"
#include "history/text_lines.h"
#include "workspace/templates.h"

namespace filter_test {
namespace {

using filter::canshuRange;
using filter::canshuTopList;
using filter::FoundRange;
using filter::Mode;
using filter::Parameter;
using filter::WindowState;

constexpr const char* kForms[] = {"GAgan", "GAganR", "GAganf"};

void addDraw(history::History& history, const history::Draw& draw) {
    history.derived.push_back(history::deriveDraw(draw, history.Lshm.back(), history.Ylnow, {}));
    history.Lshm.push_back(draw);
    ++history.Lsnum;
    history::countDraw(history, draw, {});
}

history::History randomHistory(std::mt19937& random, int draws) {
    history::History history;
    for (int issue = 1; issue <= draws; ++issue) {
        std::array<int, 33> reds{};
        std::iota(reds.begin(), reds.end(), 1);
        std::ranges::shuffle(reds, random);
        std::sort(reds.begin(), reds.begin() + 6);
        addDraw(history, {2026000 + issue, reds[0], reds[1], reds[2], reds[3], reds[4], reds[5],
                          static_cast<int>(random() % 16) + 1});
    }
    return history;
}

history::History realHistory() {
    QFile file(QStringLiteral(SSQ_REAL_DATA "/draws.txt"));
    history::History history;
    if (file.open(QIODevice::ReadOnly))
        for (const history::Draw& draw : history::parseDraws(history::decodeText(file.readAll())).draws)
            addDraw(history, draw);
    return history;
}

/// The history in a database, and the search in statements.
class Told {
  public:
    explicit Told(const history::History& history) {
        workspace::makeMissingTemplates(m_engine, m_folder.file(""));
        m_dbUser = m_engine.open(m_folder.file("Lishihaoma.mdb"));
        const auto dbFilnum = m_engine.open(m_folder.file("filnum.mdb"));
        history::DrawBlock block;
        for (int draw = 1; draw <= history.Lsnum; ++draw)
            block.add(draw, history.Lshm[static_cast<std::size_t>(draw)],
                      history.derived[static_cast<std::size_t>(draw)], history);
        block.appendTo(*m_dbUser, *dbFilnum);
        m_onDiskOnce.emplace(*m_dbUser);
    }

    std::optional<FoundRange> range(const std::string& column, int from, bool mean) {
        const auto told = [&](const char* function) {
            return m_dbUser->queryValue("SELECT " + std::string(function) + "([" + column +
                                        "]) as [Minxnum] FROM [fig]"
                                        " WHERE [Idx] > " +
                                        std::to_string(from));
        };
        if (sql::isNull(told("Min")))
            return std::nullopt;
        if (mean) {
            const std::string average = base::numberText(sql::toReal(told("Avg")));
            return FoundRange{average, average};
        }
        return FoundRange{std::to_string(sql::toInteger(told("Min"))), std::to_string(sql::toInteger(told("Max")))};
    }

    /// All values of a column, those that came most often first. Equal counts come out in any order by that
    /// statement: here the smaller value first.
    std::vector<std::string> byCount(const std::string& column, int from) {
        const std::optional<FoundRange> span = range(column, from, false);
        if (!span)
            return {};
        sql::passOver(*m_dbUser, "DROP TABLE [CsGailvtmp]");
        m_dbUser->execute("CREATE TABLE [CsGailvtmp]([Number] integer,[gailv] integer)");
        std::vector<std::int32_t> numbers, times;
        for (int number = std::stoi(span->low); number <= std::stoi(span->high); ++number) {
            numbers.push_back(number);
            times.push_back(static_cast<std::int32_t>(sql::toInteger(
                m_dbUser->queryValue("SELECT COUNT(*) as [COUNT] FROM [fig] WHERE [" + column +
                                     "] = " + std::to_string(number) + " AND  [Idx] > " + std::to_string(from)))));
        }
        sql::RowBlock block;
        block.columns = {"Number", "gailv"};
        block.values.emplace_back(numbers);
        block.values.emplace_back(times);
        m_dbUser->appendRows("CsGailvtmp", block);
        const sql::Rows rows = m_dbUser->query("SELECT * FROM [CsGailvtmp] ORDER BY [Gailv] DESC,[Number]");
        std::vector<std::string> values;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            values.push_back(rows.textAt(row, 0));
        return values;
    }

  private:
    ScratchFolder m_folder;
    sql::Engine m_engine;
    std::unique_ptr<sql::Database> m_dbUser;
    std::optional<sql::Transaction> m_onDiskOnce;
};

std::vector<std::string> columnsSearched() {
    std::vector<std::string> columns;
    for (const char* form : kForms)
        for (const Parameter& p : filter::findMember(form)->catalogue())
            if (filter::HistoryColumn::find(p.history))
                columns.emplace_back(p.history);
    std::ranges::sort(columns);
    columns.erase(std::ranges::unique(columns).begin(), columns.end());
    return columns;
}

void expectAsTold(const history::History& history, const std::vector<int>& starts) {
    Told told(history);
    for (const std::string& column : columnsSearched())
        for (const int from : starts) {
            for (const bool mean : {false, true})
                EXPECT_EQ(canshuRange(history, column, from, mean), told.range(column, from, mean))
                    << column << " after " << from << " mean " << mean;
            const std::vector<std::string> values = told.byCount(column, from);
            for (const std::size_t count : {0U, 1U, 5U, 1000U}) {
                std::string list = " ";
                for (std::size_t taken = 0; taken < std::min(count, values.size()); ++taken)
                    list += values[taken] + " ";
                EXPECT_EQ(canshuTopList(history, column, from, static_cast<double>(count)), list)
                    << column << " after " << from << " count " << count;
            }
        }
}

TEST(RangeSearch, FindsWhatTheStatementsFindInEveryColumnFromEveryStart) {
    std::mt19937 random(20261122);
    std::vector<int> starts(18);
    std::iota(starts.begin(), starts.end(), -3);
    expectAsTold(randomHistory(random, 14), starts); // past its end too, where nothing counts
}

TEST(RangeSearch, FindsWhatTheStatementsFindInTheRealDraws) {
    const history::History history = realHistory();
    ASSERT_GT(history.Lsnum, 3000);
    expectAsTold(history, {0, history.Lsnum - 200, history.Lsnum - 10});
}

TEST(RangeSearch, LooksAtEveryColumnThatAWindowNamesButOne) {
    EXPECT_EQ(columnsSearched().size(), 33U + 1U); // intyljz and intYljz are one column under two spellings
    for (const char* form : kForms)
        for (const Parameter& p : filter::findMember(form)->catalogue())
            EXPECT_EQ(filter::HistoryColumn::find(p.history).has_value(), !p.history.empty() && p.history != "Qnum4")
                << form << ' ' << p.option;
}

/// Sums of the reds 90, 100, 90, 95, 100.
history::History fiveSums() {
    history::History history;
    for (const int sum : {90, 100, 90, 95, 100}) {
        history.Lshm.push_back({});
        history.derived.emplace_back().Znum = static_cast<std::int16_t>(sum);
        ++history.Lsnum;
    }
    return history;
}

TEST(RangeSearch, HandWorkedRangesAndLists) {
    const history::History history = fiveSums();
    EXPECT_EQ(canshuRange(history, "Znum", 0, false), (FoundRange{"90", "100"}));
    EXPECT_EQ(canshuRange(history, "Znum", 2, false), (FoundRange{"90", "100"}));
    EXPECT_EQ(canshuRange(history, "Znum", 3, false), (FoundRange{"95", "100"}));
    EXPECT_EQ(canshuRange(history, "Znum", -5, false), (FoundRange{"90", "100"})); // a period longer than the history
    EXPECT_EQ(canshuRange(history, "Znum", 0, true), (FoundRange{"95", "95"}));
    EXPECT_EQ(canshuRange(history, "Znum", 1, true), (FoundRange{"96.25", "96.25"}));
    EXPECT_EQ(canshuRange(history, "Znum", 5, false), std::nullopt);
    EXPECT_EQ(canshuRange(history, "Qnum4", 0, false), std::nullopt);
    EXPECT_EQ(canshuTopList(history, "Znum", 0, 3), " 90 100 95 "); // 90 and 100 twice: the smaller first
    EXPECT_EQ(canshuTopList(history, "Znum", 1, 2), " 100 90 ");
    EXPECT_EQ(canshuTopList(history, "Znum", 3, 99), " 95 100 96 97 98 99 "); // those that never came are last
    EXPECT_EQ(canshuTopList(history, "Znum", 0, 0), " ");
    EXPECT_EQ(canshuTopList(history, "Znum", 5, 3), " ");
    EXPECT_EQ(canshuTopList(history, "Qnum4", 0, 3), " ");
}

TEST(RangeSearch, AnAverageHasAtMostFifteenDigits) {
    history::History history = fiveSums();
    EXPECT_EQ(canshuRange(history, "Znum", 2, true)->low, "95"); // 285 / 3
    history.derived.back().Znum = 101;
    EXPECT_EQ(canshuRange(history, "Znum", 2, true)->low, "95.3333333333333"); // 286 / 3
    history.derived.back().Znum = -184;
    EXPECT_EQ(canshuRange(history, "Znum", 2, true)->low, "0.333333333333333");
}

TEST(RangeSearch, APeriodIsCountedFromTheLastDraw) {
    const history::History history = fiveSums();
    EXPECT_EQ(filter::searchStart(history, -1), 0); // none picked yet
    EXPECT_EQ(filter::searchStart(history, 0), 0);
    EXPECT_EQ(filter::searchStart(history, 1), -5);
    EXPECT_EQ(filter::searchStart(history, 20), 5 - 200);
    EXPECT_EQ(filter::periodCaption(0), "前所有期");
    EXPECT_EQ(filter::periodCaption(1), "前10期");
    EXPECT_EQ(filter::periodCaption(filter::kPeriods - 1), "前200期");
}

/// A window's rows with something in every box, and the search on 60 random draws.
struct SearchedWindow : testing::TestWithParam<const char*> {
    SearchedWindow() : member(*filter::findMember(GetParam())) {
        std::mt19937 random(11);
        history = randomHistory(random, 60);
        state = filter::defaultState(member.catalogue());
        for (const Parameter& p : member.catalogue())
            state.row(p).list = "own";
        state.weights[3] = false;
    }

    /// What a search must leave in a row, by the two searches of a column alone.
    void fill(WindowState& expected, const Parameter& p, int from, bool list) const {
        filter::RowState& row = expected.row(p);
        if (list)
            row.list = canshuTopList(history, p.history, from, std::stod(row.count));
        else if (const auto found = canshuRange(history, p.history, from, expected.mode == Mode::Mean))
            row.low = found->low, row.high = found->high;
    }

    const filter::FilterMember& member;
    history::History history;
    WindowState state;
};

TEST_P(SearchedWindow, OpensWithTheRangesAndListsOfAllDraws) {
    for (const Mode mode : {Mode::Range, Mode::Mean}) {
        state.mode = mode;
        WindowState expected = state;
        for (const Parameter& p : member.catalogue()) {
            if (p.history.empty())
                continue;
            fill(expected, p, 0, false);
            if (member.reds == 6)
                fill(expected, p, 0, true);
        }
        EXPECT_EQ(filter::searchedAtOpening(state, member.catalogue(), history), expected);
        EXPECT_NE(expected, state);
    }
}

TEST_P(SearchedWindow, APeriodOfARowSearchesForThatRow) {
    for (const Parameter& p : member.catalogue())
        for (const Mode mode : {Mode::Range, Mode::Mean, Mode::List})
            for (const int item : {-1, 0, 2, 9}) {
                state.mode = mode;
                state.row(p).period = item;
                WindowState expected = state;
                const bool list = mode == Mode::List && member.reds == 6;
                if (!p.history.empty())
                    fill(expected, p, item == 2 ? 40 : item == 9 ? -30 : 0, list);
                if (p.history == "Modenum" && mode != Mode::List) { // its high bound goes to the row above
                    std::swap(expected.rows[17].high, expected.row(p).high);
                    expected.row(p).high = state.row(p).high;
                }
                EXPECT_EQ(filter::searchedForRow(state, p, history), expected)
                    << p.option << " mode " << static_cast<int>(mode) << " item " << item;
                state.row(p).period = -1;
            }
}

TEST_P(SearchedWindow, APeriodOfAllRowsSearchesForAllButOneList) {
    for (const Mode mode : {Mode::Range, Mode::Mean, Mode::List}) {
        state.mode = mode;
        state.allPeriods = 3;
        WindowState expected = state;
        for (const Parameter& p : member.catalogue())
            if (!p.history.empty() && (mode != Mode::List || (member.reds == 6 && p.history != "Lxnum")))
                fill(expected, p, 30, mode == Mode::List);
        EXPECT_EQ(filter::searchedForAll(state, member.catalogue(), history), expected) << static_cast<int>(mode);
    }
}

TEST_P(SearchedWindow, AnEmptyHistoryLeavesRangesAndEmptiesLists) {
    WindowState expected = state;
    for (const Parameter& p : member.catalogue())
        if (!p.history.empty() && member.reds == 6)
            expected.row(p).list = " ";
    EXPECT_EQ(filter::searchedAtOpening(state, member.catalogue(), {}), expected);
    EXPECT_EQ(filter::searchedForAll(state, member.catalogue(), {}), state);
}

INSTANTIATE_TEST_SUITE_P(Windows, SearchedWindow, testing::ValuesIn(kForms),
                         [](const auto& form) { return std::string(form.param); });

TEST(SearchedSixAndBlue, TheRowOfTheAcValueGetsTheHighBoundOfRepeatedDigits) {
    const filter::FilterMember& member = *filter::findMember("GAgan");
    history::History history;
    for (const int repeated : {1, 3}) {
        history.Lshm.push_back({});
        history.derived.emplace_back().Modenum = static_cast<std::int16_t>(repeated);
        ++history.Lsnum;
    }
    const WindowState state = filter::defaultState(member.catalogue());
    const Parameter& digits = parameter("Option30");
    const Parameter& acValue = parameter("Option24");
    const WindowState picked = filter::searchedForRow(state, digits, history);
    EXPECT_EQ(picked.row(digits).low, "1");
    EXPECT_EQ(picked.row(digits).high, "99");
    EXPECT_EQ(picked.row(acValue).low, "0");
    EXPECT_EQ(picked.row(acValue).high, "3");
    const WindowState all = filter::searchedForAll(state, member.catalogue(), history);
    EXPECT_EQ(all.row(digits).high, "3");
    EXPECT_EQ(all.row(acValue).high, "0");
}

} // namespace
} // namespace filter_test
