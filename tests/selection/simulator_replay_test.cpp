// Whole runs of the simulated draw against a second ranking, coded apart and in another shape: folds are remainders,
// the search for the smallest share turns the numbers along the line of its records, and the sort takes the zeros
// out.
#include "selection/simulator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

#include "replayed_numbers.h"

namespace {

using selection::Pad;
using selection::Simulator;

constexpr int kTicks = 2000;

using Shares = std::array<double, Pad::kMostReds + 1>; ///< by number

std::size_t at(int number) {
    return static_cast<std::size_t>(number);
}

/// Ascending, but a 0 keeps its place.
void sortAroundZeros(std::vector<int>& numbers) {
    std::vector<int> kept;
    std::copy_if(numbers.begin(), numbers.end(), std::back_inserter(kept), [](int number) { return number != 0; });
    std::sort(kept.begin(), kept.end());
    auto next = kept.begin();
    for (int& number : numbers)
        if (number != 0)
            number = *next++;
}

/// A run in plain words. What the pad holds is read at each tick.
class PlainRun {
  public:
    PlainRun(const Pad& pad, unsigned seed) : m_pad(pad), m_random(seed) {}

    int picks = 6;
    int target = 0;
    int ticks = 0;
    int stops = 0;
    int stable = 0;
    std::array<int, Pad::kMostReds + 1> hits{};
    std::vector<int> top = std::vector<int>(16);

    void zero() {
        ticks = 0;
        hits.fill(0);
        top.assign(top.size(), 0);
    }

    void tick() {
        ++ticks;
        const Shares before = shares();
        for (int pick = 0; pick < picks; ++pick) {
            const int ball = static_cast<int>(std::floor(m_random.next() * m_pad.reds()));
            if (m_pad.Redcnt > 0)
                ++hits[at(m_pad.Redlist[at(ball % m_pad.Redcnt + 1)])];
        }
        const std::vector<int> former = top;
        rank(before, shares());
        const bool same = std::equal(former.begin(), former.begin() + picks, top.begin());
        stable = same ? stable + 1 : 0;
        stops += stable == target;
    }

    Shares shares() const {
        const double total = std::accumulate(hits.begin(), hits.end(), 0);
        Shares result{};
        for (std::size_t number = 0; number < result.size() && total > 0; ++number)
            result[number] = hits[number] / total * 100;
        return result;
    }

  private:
    struct Candidate {
        double share;
        int number;
    };

    void rank(const Shares& before, const Shares& now) {
        std::vector<Candidate> candidates;
        for (int number = 0; number < picks; ++number)
            candidates.push_back({before[at(number)], number});
        for (int number = picks; number <= m_pad.reds() && picks > 0; ++number) {
            smallestToTheFront(candidates);
            if (now[at(number)] > candidates.front().share)
                candidates.front() = {now[at(number)], number};
        }
        for (std::size_t place = 0; place < candidates.size(); ++place)
            top[place] = candidates[place].number;
        sortAroundZeros(top);
    }

    /// Each place whose share is below all before it gets what stood in the last such place; the front the smallest.
    static void smallestToTheFront(std::vector<Candidate>& candidates) {
        Candidate carried = candidates.front();
        for (std::size_t place = 1; place < candidates.size(); ++place)
            if (candidates[place].share < carried.share)
                std::swap(carried, candidates[place]);
        candidates.front() = carried;
    }

    const Pad& m_pad;
    ReplayedNumbers m_random;
};

/// A simulator and a plain run side by side.
class Replay {
  public:
    explicit Replay(unsigned seed) : plain(pad, seed), m_random(seed) {
        QObject::connect(&simulator, &Simulator::finished, [this] { ++m_stops; });
    }

    Pad pad;
    PlainRun plain;

  private:
    ReplayedNumbers m_random;
    int m_stops = 0;

  public:
    Simulator simulator{pad, m_random};

    void choose(int reds, int bankers) {
        for (int number = reds; number >= 1; --number) // from above: the order of the list is that of the clicks
            pad.pressRed(number);
        for (int banker = 1; banker <= bankers; ++banker) {
            pad.pointAtRed(banker * 2);
            pad.mnuDan();
        }
        plain.picks = simulator.Picknum;
    }
    void setTarget(int target) { simulator.stability.Stabletarget = plain.target = target; }
    int stops() const { return m_stops; }
    int seeds() const { return m_random.seeds; }

    /// \return whether both came to the same
    bool tick() {
        simulator.tick();
        plain.tick();
        return compare();
    }
    void run(int ticks) {
        for (int tick = 0; tick < ticks && !testing::Test::HasFailure(); ++tick)
            ASSERT_TRUE(this->tick()) << "tick " << tick;
    }

  private:
    bool compare() {
        EXPECT_EQ(simulator.Ticks, plain.ticks);
        EXPECT_EQ(simulator.Stable, plain.stable);
        EXPECT_EQ(m_stops, plain.stops);
        EXPECT_TRUE(std::equal(plain.top.begin(), plain.top.end(), simulator.Top.begin()));
        const Shares shares = plain.shares();
        for (std::size_t number = 1; number <= at(pad.reds()); ++number) {
            EXPECT_EQ(simulator.Hits[number], plain.hits[number]) << number;
            EXPECT_EQ(simulator.Share[number], shares[number]) << number;
        }
        return !testing::Test::HasFailure();
    }
};

TEST(SimulatorReplay, EveryTickRanksAsThePlainRunDoes) {
    int stops = 0;
    for (const unsigned seed : {1U, 2U, 77U}) {
        for (const int reds : {7, 12, 33}) {
            for (int picks = 6; picks <= Simulator::kMostPicks; ++picks) {
                SCOPED_TRACE(testing::Message() << "seed " << seed << ", reds " << reds << ", picks " << picks);
                Replay replay(seed);
                replay.simulator.rank(picks);
                replay.choose(reds, 0);
                ASSERT_EQ(replay.simulator.Picknum, picks);
                replay.setTarget(20);
                replay.run(kTicks);
                EXPECT_EQ(replay.seeds(), kTicks);
                stops += replay.stops();
            }
        }
    }
    EXPECT_GT(stops, 100) << "runs that go on after their stops";
}

TEST(SimulatorReplay, BankersLeaveFewerNumbersToRank) {
    for (const int reds : {7, 12, 33}) {
        for (int bankers = 1; bankers <= 3; ++bankers) {
            SCOPED_TRACE(testing::Message() << "reds " << reds << ", bankers " << bankers);
            Replay replay(5);
            replay.choose(reds, bankers);
            ASSERT_EQ(replay.simulator.Picknum, 6 - bankers);
            ASSERT_EQ(replay.pad.Redcnt, reds - bankers);
            replay.setTarget(20);
            replay.run(kTicks);
        }
    }
}

TEST(SimulatorReplay, SixBankersLeaveNothingToRank) {
    Replay replay(5);
    replay.choose(33, 6);
    ASSERT_EQ(replay.simulator.Picknum, 0);
    replay.setTarget(20);
    replay.run(100);
    EXPECT_EQ(replay.simulator.Hittotal, 0);
    EXPECT_EQ(replay.stops(), 1);
}

TEST(SimulatorReplay, TheSelectionAndTheRuleMayChangeMeanwhile) {
    Replay replay(9);
    replay.choose(12, 0);
    replay.setTarget(1'000'000);
    replay.run(200);
    replay.pad.pressRed(30);
    replay.pad.pressRed(11);
    replay.setTarget(1'000'000);
    replay.run(200);
    replay.pad.setRule(38, 16);
    replay.pad.invertReds();
    replay.setTarget(1'000'000);
    replay.run(200);
    replay.pad.setRule(28, 16); // 31..38 leave the selection
    replay.setTarget(1'000'000);
    replay.run(200);
    replay.pad.invertReds();
    replay.pad.selectAllReds();
    replay.pad.invertReds();
    ASSERT_EQ(replay.pad.Redcnt, 0);
    const int hits = replay.simulator.Hittotal;
    replay.setTarget(1'000'000);
    replay.run(50);
    EXPECT_EQ(replay.simulator.Hittotal, hits) << "nothing is chosen, so nothing is drawn";
}

TEST(SimulatorReplay, ABankerDuringARunBeginsTheCountsAnew) {
    Replay replay(3);
    replay.choose(12, 0);
    replay.setTarget(1'000'000);
    replay.run(100);
    replay.pad.pointAtRed(4);
    replay.pad.mnuDan();
    EXPECT_EQ(replay.simulator.Ticks, 0);
    EXPECT_EQ(replay.simulator.Hittotal, 0);
    replay.plain.zero();
    replay.plain.picks = 5;
    replay.setTarget(1'000'000);
    replay.run(200);
}

TEST(SimulatorReplay, AResetBeginsTheCountsAnewButNotStable) {
    Replay replay(3);
    replay.choose(12, 0);
    replay.setTarget(20);
    while (replay.stops() == 0)
        ASSERT_TRUE(replay.tick());
    replay.simulator.reset();
    replay.plain.zero();
    EXPECT_EQ(replay.simulator.Stable, 20);
    replay.run(kTicks);
    EXPECT_GT(replay.stops(), 1);
}

// A draw of 33 folded onto 7 places: 33 = 4 * 7 + 5, so places 1..5 come up five times in 33, places 6 and 7 four
// times.
TEST(SimulatorReplay, TheFoldFavoursTheFirstPlaces) {
    Pad pad;
    ReplayedNumbers random(20240101);
    Simulator simulator(pad, random);
    for (const int number : {31, 2, 17, 9, 25, 4, 12})
        pad.pressRed(number);
    simulator.stability.Stabletarget = -1;
    while (simulator.Hittotal < 1'000'000)
        simulator.tick();
    const double draws = simulator.Hittotal;
    for (std::size_t place = 1; place <= 7; ++place) {
        const double chance = (place <= 5 ? 5 : 4) / 33.0;
        const double sigma = std::sqrt(draws * chance * (1 - chance));
        const auto number = static_cast<std::size_t>(pad.Redlist[place]);
        EXPECT_NEAR(simulator.Hits[number], draws * chance, 5 * sigma) << "place " << place;
    }
}

} // namespace
