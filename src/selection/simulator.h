// The simulated draw (摇奖分析): a Monte Carlo ranking of the reds on the pad.
//
// tick() draws Picknum numbers out of the selection, at random and with repetition, keeps the share of each number
// and ranks the numbers by share. When the ranked set has stayed the same for Stabletarget ticks the run stops by
// itself: that set is the prediction. History does not enter. Whoever shows the draw calls tick() while isRunning(),
// and listens.
//
// Three things look odd and are meant: low places of the list come up more often where the count of reds does not
// divide the highest red; a ranking starts from the numbers 0..Picknum-1; Stable outlives a reset and a
// continuation, and only the exact target stops, so that a run which goes on after its stop stops again only after
// the ranking has changed once.
//
// The state lies open under the names that the whole system uses; only the operations change it. Cost of a tick:
// about Picknum * highest red comparisons.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include <QObject>

#include "selection/pad.h"
#include "selection/random_numbers.h"
#include "selection/stability.h"

namespace selection {

/// Which controls of the draw are offered. Each is switched by what happens, not derived from it: a change of the pad
/// offers the start also while a draw runs.
struct DrawControls {
    bool start = false;
    bool pause = false;
    bool reset = false;
    bool arrange = false;
    bool goOn = false; ///< the start says that it continues

    bool operator==(const DrawControls&) const = default;
};

class Simulator : public QObject {
    Q_OBJECT
  public:
    static constexpr int kMostPicks = 16; ///< numbers of one tick
    static constexpr int kMostRuns = 11520;

    using Row = std::array<std::int32_t, 8>; ///< columns 1..6 hold the numbers

    /// Both outlive the simulator.
    Simulator(Pad& pad, RandomNumbers& random, QObject* parent = nullptr);

    std::int16_t Picknum = 6;  ///< numbers that one tick draws
    std::int32_t Ticks = 0;    ///< since the last reset
    std::int32_t Hittotal = 0; ///< numbers drawn since the last reset
    std::array<std::int32_t, Pad::kMostReds + 1> Hits{};
    std::array<double, Pad::kMostReds + 1> Share{}; ///< Hits / Hittotal * 100
    std::array<std::int16_t, kMostPicks> Drawn{};   ///< the numbers of the last tick, ascending
    std::array<std::int16_t, kMostPicks + 1> Top{}; ///< the ranked set, ascending
    std::array<double, kMostPicks> Topshare{};      ///< in the precision of Share: equal shares have to compare equal
    std::array<std::int16_t, kMostPicks> Prevtop{}; ///< Top as it was before the last tick
    std::int32_t Stable = 0;                        ///< ticks in a row with Top unchanged
    Stability stability;                            ///< Wd and Stabletarget
    std::int16_t Runs = 0;                          ///< finished runs
    std::int16_t Rungoal = 0;                       ///< runs wanted, 0 until the user sets it
    std::vector<Row> Runresults{1};                 ///< Top of each finished run, from row 1

    /// The numbers of the last tick in the order in which they were drawn, Picknum of them.
    const std::array<std::int16_t, kMostPicks>& drawnInOrder() const { return m_inOrder; }
    bool isRunning() const { return m_running; }
    /// Whether every ranked place holds a number: in the first ticks a 0 can be among them.
    bool hasRanking() const;
    /// Numbers that are ranked while there are no bankers.
    int wanted() const { return m_wanted; }
    const DrawControls& controls() const { return m_controls; }

    /// What a stored stability factor is read from when bankers change; at first the factor that holds.
    void readFactorBy(std::function<int()> stored) { m_storedFactor = std::move(stored); }

    /// Start or continue by the button. With nothing to rank (no more reds than a tick draws) no draw starts.
    void start();
    /// Start or continue by the menu: without that test, and the way to the arrangement is open meanwhile.
    void startUntested();
    void pause();
    /// Zeroes the counts and starts again.
    void reset();
    /// The runs that a multi-run is to make; Runs begin anew. \param goal  any 16-bit number
    void wantRuns(std::int16_t goal);
    /// Ranks so many numbers from now on; with bankers it stays at what they leave of six. \param picks  6..16
    void rank(int picks);

    void tick();

  signals:
    /// A tick was made: Drawn, Top, Share and Ticks are new, Prevtop is what Top was.
    void ticked();
    /// Everything was zeroed.
    void zeroed();
    void controlsChanged();
    /// Picknum is another.
    void picksChanged();
    /// Whoever shows the draw begins or ends to call tick().
    void runningChanged(bool running);
    /// A run has stopped by itself, and no other follows.
    void finished();
    /// A run has stopped, and Runresults has no room for it: the results so far stay.
    void runsFull();

  private:
    void drawNumbers();
    int drawnPlace();
    void count();
    void rankShares();
    bool isUnchanged() const;
    void stop();
    void record();
    void zero();
    void run(bool arrange);
    void setControls(const DrawControls& controls);
    void setRunning(bool running);
    void setPicks(int picks);
    void followReds();
    void followBankers();
    void followBlues();
    void forget();

    Pad& m_pad;
    RandomNumbers& m_random;
    std::function<int()> m_storedFactor;
    std::array<std::int16_t, kMostPicks> m_inOrder{};
    DrawControls m_controls;
    bool m_running = false;
    bool m_bankers = false;       ///< there were bankers at the last change of the reds
    int m_wanted = Pad::kBetReds; ///< numbers to rank while there are none
};

} // namespace selection
