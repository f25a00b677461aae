#include "selection/simulator.h"

#include <string>

#include <gtest/gtest.h>

#include "replayed_numbers.h"

namespace {

using selection::Pad;
using selection::Simulator;

/// A simulated draw over seven reds that always draws the first of them, so that its ranking never changes again.
class SimulatorTest : public testing::Test {
  protected:
    static constexpr int kTarget = 5;

    SimulatorTest() {
        QObject::connect(&simulator, &Simulator::finished, [this] { ++finished; });
        QObject::connect(&simulator, &Simulator::runsFull, [this] { ++full; });
    }

    void choose(std::initializer_list<int> reds) {
        for (const int red : reds)
            pad.pressRed(red);
        simulator.stability.Stabletarget = kTarget;
    }
    void chooseSeven() { choose({10, 11, 12, 13, 14, 15, 16}); }
    void makeBanker(int number) {
        pad.pointAtRed(number);
        pad.mnuDan();
    }
    /// Ticks as the timer does: while it runs. \return how many
    int runToTheEnd() {
        int ticks = 0;
        while (simulator.isRunning() && ticks < 1000) {
            simulator.tick();
            ++ticks;
        }
        return ticks;
    }
    /// "SPRAgr": start, pause, reset and arrangement are offered, the start says 继续, the draw runs; else a dash.
    std::string state() const {
        const selection::DrawControls& controls = simulator.controls();
        std::string text = "SPRAgr";
        const bool on[] = {controls.start,   controls.pause, controls.reset,
                           controls.arrange, controls.goOn,  simulator.isRunning()};
        for (std::size_t flag = 0; flag < text.size(); ++flag)
            if (!on[flag])
                text[flag] = '-';
        return text;
    }

    Pad pad;
    SameNumber random;
    Simulator simulator{pad, random};
    int finished = 0; ///< times that a run was said to be the last
    int full = 0;
};

// The states of the draw, and what each action makes of the controls.
struct StateCase {
    const char* from;
    const char* action;
    const char* expected;
};

constexpr StateCase kStateCases[] = {
    {"idle", "look", "S-----"},
    {"idle", "start", "-PR--r"},
    {"idle", "menu start", "-PRA-r"},
    {"idle", "pause", "S--Ag-"},
    {"idle", "reset", "-P---r"},
    {"idle", "clear", "------"},
    {"idle", "one more", "S-----"},
    {"idle", "one less", "------"},
    {"idle", "blue", "S-----"},
    {"idle", "banker", "S-----"},

    {"running", "look", "-PR--r"},
    {"running", "start", "-PR--r"},
    {"running", "menu start", "-PRA-r"},
    {"running", "pause", "S-RAg-"},
    {"running", "reset", "-PR--r"},
    {"running", "stop by itself", "S-RAg-"},
    {"running", "clear", "-PR---"},
    {"running", "one more", "SPR--r"},
    {"running", "one less", "-PR--r"},
    {"running", "blue", "SPR--r"},
    {"running", "banker", "SPR--r"},
    {"running", "invert to empty", "-PR--r"},

    {"paused", "look", "S-RAg-"},
    {"paused", "start", "-PR--r"},
    {"paused", "menu start", "-PRA-r"},
    {"paused", "pause", "S-RAg-"},
    {"paused", "reset", "-PR--r"},
    {"paused", "clear", "--RAg-"},
    {"paused", "one more", "S-RAg-"},
    {"paused", "one less", "--RAg-"},
    {"paused", "blue", "S-RAg-"},
    {"paused", "banker", "S-RAg-"},

    {"finished", "look", "S-RAg-"},
    {"finished", "start", "-PR--r"},
    {"finished", "menu start", "-PRA-r"},
    {"finished", "pause", "S-RAg-"},
    {"finished", "reset", "-PR--r"},
    {"finished", "clear", "--RAg-"},
    {"finished", "one more", "S-RAg-"},
    {"finished", "one less", "--RAg-"},

    {"nothing to rank", "look", "-P-A--"},
    {"nothing to rank", "menu start", "-PRA-r"},
    {"nothing to rank", "pause", "S--Ag-"},
    {"nothing to rank", "reset", "-P---r"},
    {"nothing to rank", "clear", "-P-A--"},
    {"nothing to rank", "one more", "SP-A--"},
    {"nothing to rank", "blue", "SP-A--"},
};

class SimulatorStates : public SimulatorTest, public testing::WithParamInterface<StateCase> {
  protected:
    void bring(const std::string& from) {
        chooseSeven();
        if (from == "nothing to rank")
            simulator.rank(7);
        if (from != "idle")
            simulator.start();
        if (from == "paused") {
            simulator.tick();
            simulator.pause();
        } else if (from == "finished") {
            ASSERT_GT(runToTheEnd(), 0);
        }
    }

    void act(const std::string& action) {
        if (action == "start")
            simulator.start();
        else if (action == "menu start")
            simulator.startUntested();
        else if (action == "pause")
            simulator.pause();
        else if (action == "reset")
            simulator.reset();
        else if (action == "stop by itself")
            runToTheEnd();
        else if (action == "clear")
            pad.clearReds();
        else if (action == "one more")
            pad.pressRed(20);
        else if (action == "one less")
            pad.pressRed(10);
        else if (action == "blue")
            pad.pressBlue(1);
        else if (action == "banker")
            makeBanker(10);
        else if (action == "invert to empty") {
            pad.selectAllReds();
            pad.invertReds();
        } else
            ASSERT_EQ(action, "look");
    }
};

TEST_P(SimulatorStates, OfferWhatTheActionLeaves) {
    bring(GetParam().from);
    act(GetParam().action);
    EXPECT_EQ(state(), GetParam().expected) << GetParam().from << ", " << GetParam().action;
}

INSTANTIATE_TEST_SUITE_P(Table, SimulatorStates, testing::ValuesIn(kStateCases), [](const auto& info) {
    std::string name = std::string(info.param.from) + '_' + info.param.action;
    std::erase(name, ' ');
    return name;
});

TEST_F(SimulatorTest, OffersNothingBeforeSevenRedsAreChosen) {
    choose({1, 2, 3, 4, 5, 6});
    EXPECT_EQ(state(), "------");
    pad.pressBlue(1);
    EXPECT_EQ(state(), "------");
    pad.pressRed(7);
    EXPECT_EQ(state(), "S-----");
}

TEST_F(SimulatorTest, BankersCountForTheStart) {
    choose({1, 2, 3, 4, 5, 6});
    makeBanker(30);
    EXPECT_EQ(state(), "S-----");
    EXPECT_EQ(simulator.Picknum, 5);
}

TEST_F(SimulatorTest, StopsWhenTheRankingHasHeldForTheTargetExactly) {
    chooseSeven();
    simulator.start();
    EXPECT_EQ(runToTheEnd(), 1 + kTarget); // the first tick changes the ranking
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(simulator.Runs, 1);
    EXPECT_EQ(simulator.Ticks, 6);
    EXPECT_EQ(simulator.Hittotal, 36);
    EXPECT_EQ(simulator.Share[10], 100);
}

TEST_F(SimulatorTest, GoesPastTheTargetWhenContinuedAndStopsAfterTheNextChange) {
    chooseSeven();
    simulator.start();
    runToTheEnd();
    simulator.start();
    for (int tick = 0; tick < 100; ++tick)
        simulator.tick();
    EXPECT_TRUE(simulator.isRunning());
    EXPECT_EQ(simulator.Stable, kTarget + 100);
    random.number = 1 / 33.0 + 0.001; // the second red of the list from now on
    simulator.tick();
    EXPECT_EQ(simulator.Stable, 0);
    EXPECT_EQ(runToTheEnd(), kTarget);
    EXPECT_EQ(finished, 2);
}

TEST_F(SimulatorTest, KeepsStableOverAReset) {
    chooseSeven();
    simulator.start();
    runToTheEnd();
    simulator.reset();
    EXPECT_EQ(simulator.Stable, kTarget);
    EXPECT_EQ(simulator.Ticks, 0);
    EXPECT_EQ(simulator.Hittotal, 0);
    EXPECT_EQ(simulator.Share[10], 0);
    EXPECT_EQ(simulator.Top, (std::array<std::int16_t, 17>{}));
}

TEST_F(SimulatorTest, SaysWhenEveryRankedPlaceHoldsANumber) {
    choose({3, 11, 12, 13, 14, 15, 16});
    EXPECT_FALSE(simulator.hasRanking());
    simulator.start();
    simulator.tick();
    EXPECT_FALSE(simulator.hasRanking()) << "3 was drawn, and nothing takes the place of the 0";
    random.number = 1 / 33.0 + 0.001;
    simulator.tick();
    EXPECT_TRUE(simulator.hasRanking());
    simulator.reset();
    EXPECT_FALSE(simulator.hasRanking());
}

TEST_F(SimulatorTest, MakesAsManyRunsAsAreWantedByItself) {
    chooseSeven();
    simulator.wantRuns(5);
    simulator.start();
    EXPECT_EQ(runToTheEnd(), 5 * (1 + kTarget));
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(simulator.Runs, 5);
    ASSERT_EQ(simulator.Runresults.size(), 6U);
    for (std::size_t run = 1; run <= 5; ++run)
        EXPECT_EQ(simulator.Runresults[run], (Simulator::Row{0, 1, 2, 3, 4, 5, 10, 0})) << run;
    EXPECT_EQ(state(), "S-RAg-");
}

TEST_F(SimulatorTest, CountsOnWhenTheGoalIsReachedAndAnewWhenAnotherIsSet) {
    chooseSeven();
    simulator.start();
    runToTheEnd();
    simulator.reset();
    runToTheEnd();
    EXPECT_EQ(simulator.Runs, 2);
    EXPECT_EQ(finished, 2) << "without a goal every run is the last";
    simulator.wantRuns(2);
    EXPECT_EQ(simulator.Runs, 0);
    EXPECT_EQ(simulator.Runresults.size(), 1U);
    simulator.reset();
    runToTheEnd();
    EXPECT_EQ(simulator.Runs, 2);
    EXPECT_EQ(finished, 3);
}

TEST_F(SimulatorTest, KeepsAllResultsWhenTheirTableIsFull) {
    chooseSeven();
    simulator.wantRuns(12000);
    simulator.Runs = Simulator::kMostRuns - 1;
    simulator.Runresults.resize(Simulator::kMostRuns);
    simulator.start();
    EXPECT_EQ(runToTheEnd(), 2 * (1 + kTarget)) << "the last row, and the run that finds none";
    EXPECT_EQ(simulator.Runs, Simulator::kMostRuns);
    EXPECT_EQ(simulator.Runresults.size(), 11521U);
    EXPECT_EQ(simulator.Runresults.back()[6], 10);
    EXPECT_EQ(full, 1);
    EXPECT_EQ(finished, 0);
    EXPECT_EQ(state(), "S-RAg-");
}

TEST_F(SimulatorTest, RanksWhatBankersLeaveOfSix) {
    chooseSeven();
    for (int bankers = 1; bankers <= 6; ++bankers) {
        makeBanker(bankers);
        EXPECT_EQ(simulator.Picknum, 6 - bankers);
    }
    makeBanker(7);
    EXPECT_EQ(simulator.Picknum, 0);
    pad.selectAllReds();
    EXPECT_EQ(simulator.Picknum, 6);
}

TEST_F(SimulatorTest, RanksSixAgainWhenTheOnlyBankerGoesFromAnEmptyPad) {
    makeBanker(3);
    EXPECT_EQ(simulator.Picknum, 5);
    makeBanker(3);
    EXPECT_EQ(simulator.Picknum, 6);
}

TEST_F(SimulatorTest, RanksAsManyAsAreWantedWhenNoBankersAreLeft) {
    chooseSeven();
    simulator.rank(9);
    EXPECT_EQ(simulator.Picknum, 9);
    makeBanker(3);
    simulator.rank(8);
    EXPECT_EQ(simulator.Picknum, 5);
    makeBanker(3);
    EXPECT_EQ(simulator.Picknum, 8);
    pad.clearReds();
    EXPECT_EQ(simulator.Picknum, 6);
    EXPECT_EQ(simulator.wanted(), 6);
}

TEST_F(SimulatorTest, ForgetsThePlacesThatAShorterRankingHasNot) {
    pad.selectAllReds();
    simulator.rank(16);
    simulator.tick();
    simulator.rank(6);
    for (std::size_t place = 6; place < simulator.Top.size(); ++place)
        EXPECT_EQ(simulator.Top[place], 0);
    simulator.tick();
    EXPECT_EQ(simulator.Top, (std::array<std::int16_t, 17>{0, 1, 2, 3, 4, 5}));
}

TEST_F(SimulatorTest, ARuleThatKeepsAllChosenNumbersDisturbsNothing) {
    chooseSeven();
    simulator.start();
    simulator.tick();
    pad.setRule(38, 18);
    EXPECT_EQ(state(), "-PR--r");
    EXPECT_EQ(simulator.stability.Stabletarget, kTarget);
    makeBanker(10);
    simulator.tick();
    simulator.stability.Stabletarget = kTarget;
    pad.setRule(28, 12);
    EXPECT_EQ(simulator.Ticks, 1) << "bankers alone begin nothing anew";
    EXPECT_EQ(simulator.stability.Stabletarget, kTarget);
}

TEST_F(SimulatorTest, ARuleThatTakesNumbersAwayIsAChangeOfTheSelection) {
    choose({1, 2, 3, 4, 5, 6, 33});
    EXPECT_EQ(state(), "S-----");
    pad.setRule(32, 16);
    EXPECT_EQ(state(), "------");
    EXPECT_EQ(simulator.stability.Stabletarget, 120);
}

TEST_F(SimulatorTest, AChangeOfThePadShortensTheTarget) {
    simulator.stability.load(200);
    EXPECT_EQ(simulator.stability.Stabletarget, 280);
    pad.pressRed(1);
    EXPECT_EQ(simulator.stability.Stabletarget, 240);
    simulator.stability.load(200);
    pad.pressRed(1);
    EXPECT_EQ(simulator.stability.Stabletarget, 280) << "the selection is empty";
    pad.pressBlue(1);
    EXPECT_EQ(simulator.stability.Stabletarget, 280) << "blues are not drawn";
}

TEST_F(SimulatorTest, BankersReadTheStoredFactorAgain) {
    int stored = 400;
    simulator.readFactorBy([&stored] { return stored; });
    makeBanker(1);
    EXPECT_EQ(simulator.stability.Wd, 400);
    EXPECT_EQ(simulator.stability.Stabletarget, 480);
    EXPECT_EQ(simulator.stability.checked->name, u"meuSpd4");
    for (int banker = 2; banker <= 5; ++banker)
        makeBanker(banker);
    stored = 600;
    makeBanker(6);
    EXPECT_EQ(simulator.stability.Wd, 400) << "not with six bankers";
}

} // namespace
