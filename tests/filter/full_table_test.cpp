// The whole rule: 33 reds and 16 blues, 17,721,088 rows. Every parameter is pressed once, in all modes, to keep and
// to remove; after each press the survivors are compared with an account of our own over the red sets times the
// blues.
#include <bit>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "filter/bench_table.h"

namespace filter_test {
namespace {

using filter::kKeep;
using filter::kRemove;
using filter::Mode;

constexpr int kReds = 33;
constexpr int kBlues = 16;
constexpr std::int64_t kSets = 1107568;

/// Which bets are in play, set by set: bit b - 1 stands for blue b.
class Account {
  public:
    Account() {
        m_sets.reserve(kSets);
        plain::Bet bet{};
        choose(bet, 1, 1);
        m_inPlay.assign(m_sets.size(), 0xFFFF);
    }

    /// Takes out the bets whose value is not `kept`. The red sets' values are worked out once each.
    template <class Kept> void filter(const std::string& option, bool needsBlue, const plain::Rule& rule, Kept kept) {
        for (std::size_t set = 0; set < m_sets.size(); ++set) {
            if (m_inPlay[set] == 0)
                continue;
            if (!needsBlue) {
                if (!kept(plain::value(option, bet(set, 1), rule)))
                    m_inPlay[set] = 0;
                continue;
            }
            for (int blue = 1; blue <= kBlues; ++blue)
                if (inPlay(set, blue) && !kept(plain::value(option, bet(set, blue), rule)))
                    m_inPlay[set] = static_cast<std::uint16_t>(m_inPlay[set] & ~(1U << (blue - 1)));
        }
    }

    std::int64_t count() const {
        std::int64_t bets = 0;
        for (const std::uint16_t blues : m_inPlay)
            bets += std::popcount(blues);
        return bets;
    }
    bool inPlay(std::size_t set, int blue) const { return (m_inPlay[set] >> (blue - 1) & 1) != 0; }
    void reset() { m_inPlay.assign(m_sets.size(), 0xFFFF); }
    plain::Bet bet(std::size_t set, int blue) const {
        plain::Bet bet{};
        std::copy(m_sets[set].begin(), m_sets[set].end(), bet.begin() + 1);
        bet[7] = blue;
        return bet;
    }
    std::size_t sets() const { return m_sets.size(); }

  private:
    void choose(plain::Bet& bet, int position, int from) {
        if (position == 7) {
            std::array<std::int8_t, 6>& set = m_sets.emplace_back();
            for (std::size_t place = 0; place < 6; ++place)
                set[place] = static_cast<std::int8_t>(bet[place + 1]);
            return;
        }
        for (int red = from; red <= kReds; ++red) {
            bet[static_cast<std::size_t>(position)] = red;
            choose(bet, position + 1, red + 1);
        }
    }

    std::vector<std::array<std::int8_t, 6>> m_sets;
    std::vector<std::uint16_t> m_inPlay;
};

struct Press {
    std::string option;
    Mode mode;
    std::int16_t Baoliu;
    int low; ///< range, or the ends of the list's run of numbers
    int high;
};

// Each parameter once, with ranges that leave enough for the next.
const std::vector<Press> kPresses{
    {"Option23", Mode::Range, kKeep, 70, 135},   {"Option3", Mode::List, kRemove, 3, 4},
    {"Option2", Mode::Range, kKeep, 0, 2},       {"Option4", Mode::Mean, kRemove, 0, 1},
    {"Option5", Mode::List, kKeep, 1, 5},        {"Option8", Mode::Range, kKeep, 1, 5},
    {"Option9", Mode::Range, kRemove, 5, 6},     {"Option10", Mode::List, kKeep, 0, 4},
    {"Option11", Mode::Mean, kKeep, 0, 4},       {"Option12", Mode::Range, kRemove, 0, 0},
    {"Option13", Mode::Range, kKeep, 1, 12},     {"Option14", Mode::Mean, kRemove, 25, 33},
    {"Option15", Mode::Range, kKeep, 4, 25},     {"Option16", Mode::List, kKeep, 10, 33},
    {"Option17", Mode::Range, kRemove, 1, 9},    {"Option18", Mode::List, kRemove, 30, 30},
    {"Option19", Mode::List, kKeep, 2, 15},      {"Option6", Mode::Range, kKeep, 3, 17},
    {"Option7", Mode::Mean, kKeep, 12, 31},      {"Option20", Mode::List, kKeep, 0, 2},
    {"Option24", Mode::Range, kKeep, 6, 10},     {"Option30", Mode::Range, kRemove, 4, 5},
    {"Option39", Mode::List, kKeep, 12, 45},     {"Option41", Mode::Range, kKeep, 10, 120},
    {"Option40", Mode::Mean, kRemove, 100, 199}, {"Option38", Mode::Range, kKeep, 40, 130},
    {"Option42", Mode::List, kRemove, 29, 30},   {"Option66", Mode::Range, kKeep, 1, 4},
    {"Option33", Mode::Range, kKeep, 60, 150},   {"Option31", Mode::List, kKeep, 1, 5},
    {"Option32", Mode::Mean, kKeep, 0, 4},       {"Option34", Mode::Range, kRemove, 3, 7}};

std::string run(int low, int high) {
    std::string text;
    for (int number = low; number <= high; ++number)
        text += " " + std::to_string(number);
    return text + " ";
}

/// Whether a value passes. A red position's list is searched without blanks: "1" is in "10".
bool passes(const Press& press, int value) {
    const bool loose = press.option >= "Option13" && press.option <= "Option18" && press.option.size() == 8;
    bool inside = value >= press.low && value <= press.high;
    if (press.mode == Mode::List && loose)
        inside = (" " + run(press.low, press.high) + " ").find(std::to_string(value)) != std::string::npos;
    return inside == (press.Baoliu == kKeep);
}

class FullTable : public testing::Test {
  protected:
    FullTable() {
        std::vector<int> blues;
        for (int blue = 1; blue <= kBlues; ++blue)
            blues.push_back(blue);
        table.enumerate(kReds, blues);
        settings.intervalAbove = "8";
        settings.intervalTo = "20";
    }

    void press(const Press& press) {
        settings.mode = press.mode;
        settings.Baoliu = press.Baoliu;
        filter::RowInput row = range(std::to_string(press.low), std::to_string(press.high));
        row.list = run(press.low, press.high);
        table.press(press.option, row, settings);
        const plain::Rule rule = table.rule(settings);
        const bool needsBlue = press.option == "Option19" || filter_test::parameter(press.option).wholeBet;
        std::vector<std::int8_t> known(1024, -1); // by value: the list search is slow text work
        account.filter(press.option, needsBlue, rule, [&](int value) {
            std::int8_t& passed = known[static_cast<std::size_t>(value + 200)];
            if (passed < 0)
                passed = passes(press, value) ? 1 : 0;
            return passed == 1;
        });
    }

    void checkSampledRows(const std::string& after) {
        const sql::Rows rows = table.database->query("SELECT [idx],[fig1],[fig6],[fig7],[unslt] FROM [zuhe]");
        ASSERT_EQ(rows.count(), kSets * kBlues);
        for (int sample = 0; sample < 2000; ++sample) {
            const auto row = static_cast<std::int64_t>(random() % (kSets * kBlues));
            const auto set = static_cast<std::size_t>(row / kBlues);
            const int blue = static_cast<int>(row % kBlues) + 1;
            ASSERT_EQ(rows.integerAt(row, 0), row + 1);
            ASSERT_EQ(rows.integerAt(row, 1), account.bet(set, blue)[1]);
            ASSERT_EQ(rows.integerAt(row, 2), account.bet(set, blue)[6]);
            ASSERT_EQ(rows.integerAt(row, 3), blue);
            ASSERT_EQ(rows.integerAt(row, 4), account.inPlay(set, blue) ? 0 : -1) << after << " row " << row;
        }
    }

    BenchTable table;
    Account account;
    filter::RunSettings settings;
    std::mt19937_64 random{20260712};
};

TEST_F(FullTable, EveryParameterLeavesExactlyTheBetsThatItShould) {
    ASSERT_EQ(account.count(), 17721088);
    ASSERT_EQ(table.inPlay(), 17721088);
    std::set<std::string> reached;
    for (const Press& p : kPresses) {
        press(p);
        const std::int64_t left = account.count();
        EXPECT_EQ(table.inPlay(), left) << p.option;
        checkSampledRows(p.option);
        EXPECT_GT(left, 0) << p.option << ": a press that leaves nothing proves nothing";
        reached.insert(p.option);
        if (left < 4'000'000) {
            table.states().resetAll();
            account.reset();
        }
    }
    for (const filter::Parameter& parameter : filter::sixAndBlueCatalogue())
        EXPECT_TRUE(reached.contains(std::string(parameter.option))) << parameter.option;
}

} // namespace
} // namespace filter_test
