#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <numeric>

#include "selection/wheel_proof.h"
#include "wheels/coset_group.h"
#include "wheels/improve.h"
#include "wheels/wheel_support.h"

#include "scratch_folder.h"

using namespace wheels;

TEST(Subsets, AreNumberedInAscendingOrder) {
    const SubsetIndex index(24, 5);
    ASSERT_EQ(index.count(), 42504u); // C(24, 5)
    for (std::uint32_t rank = 0; rank < index.count(); ++rank) {
        EXPECT_EQ(index.rank(index.at(rank)), rank);
        EXPECT_EQ(std::popcount(index.at(rank)), 5);
        EXPECT_TRUE(rank == 0 || index.at(rank - 1) < index.at(rank));
    }
}

TEST(Subsets, OfASetWithGapsStayInIt) {
    const PositionSet of = wheels_test::row({2, 5, 9, 20});
    EXPECT_EQ(subsetsOf(of, 2).size(), 6u);
    EXPECT_EQ(subsetsOf(of, 0), std::vector<PositionSet>{0});
    for (const PositionSet set : subsetsOf(of, 3))
        EXPECT_EQ(set & ~of, 0u);
}

TEST(Groups, ReadBackFromTheirText) {
    const Group group = groupFromText("bcade/abced", 5);
    ASSERT_EQ(group.generators.size(), 2u);
    EXPECT_EQ(group.generators[0], (Permutation{1, 2, 0, 3, 4}));
    EXPECT_EQ(toText(group), "bcade/abced");
    EXPECT_EQ(toText(groupFromText("-", 5)), "-");
    EXPECT_THROW(groupFromText("abcdd", 5), std::runtime_error);
    EXPECT_THROW(groupFromText("abcd", 5), std::runtime_error);
}

TEST(Groups, ThatAreDrawnAtRandomPermuteThePositions) {
    Random random(7);
    for (int round = 0; round < 3000; ++round) {
        const int positions = random.between(4, 24);
        const Group group = randomGroup(positions, 1.0 + 60.0 * random.unit(), random);
        for (const Group& one : {group, weakened(group, random)})
            EXPECT_EQ(toText(groupFromText(toText(one), positions)), toText(one)); // throws for anything else
    }
}

TEST(Groups, OfCosetsHaveNoMoreMembersThanTheGroupThatActs) {
    Random random(11);
    int drawn = 0;
    for (int round = 0; round < 500; ++round) {
        const int positions = random.between(4, 24);
        const double order = 1.0 + 40.0 * random.unit();
        const Group group = cosetGroup(positions, order, random);
        std::vector<Permutation> members{identity(positions)};
        for (std::size_t next = 0; next < members.size(); ++next)
            for (const Permutation& generator : group.generators) {
                const Permutation product = composed(members[next], generator);
                if (std::find(members.begin(), members.end(), product) == members.end())
                    members.push_back(product);
            }
        EXPECT_LE(static_cast<double>(members.size()), 2 * order);
        drawn += members.size() > 1;
    }
    EXPECT_GT(drawn, 350); // where the order is below 2 there are none
    EXPECT_TRUE(cosetGroup(10, 1.0, random).generators.empty());
}

TEST(Groups, WeakenedToTheEndLeaveNoSymmetry) {
    Random random(3);
    Group group = groupFromText("bcdefa", 6); // order 6: two steps
    group = weakened(group, random);
    EXPECT_EQ(group.generators.size(), 1u);
    EXPECT_TRUE(weakened(group, random).generators.empty());
}

TEST(Orbits, OfPairsUnderATurnOfSevenAreTheThreeDistances) {
    const ProblemSpace space({7, 3, 2, 2});
    const auto orbits = OrbitProblem::make(space, groupFromText("bcdefga", 7));
    ASSERT_TRUE(orbits);
    EXPECT_EQ(orbits->cover().elements(), 3u);
    EXPECT_EQ(orbits->cover().sets(), 5u); // 35 triples, no fixed one
    EXPECT_EQ(std::accumulate(orbits->cover().cost.begin(), orbits->cover().cost.end(), 0), 35);
    // 1 2 4 has each distance once: its seven turns are the lines of the Fano plane.
    const auto set = orbits->setsOf({wheels_test::row({1, 2, 4})});
    EXPECT_EQ(orbits->cover().elementsOf(set.at(0)).size(), 3u);
    EXPECT_FALSE(selection::firstUncovered(space.problem, orbits->rowsOf(set)));
}

TEST(Orbits, ThatNeedTooMuchMemoryAreNotMade) {
    const ProblemSpace space({12, 6, 5, 4});
    EXPECT_FALSE(OrbitProblem::make(space, {}, 1000));
}

TEST(CoverSearch, FindsTheLeastCostWhereGreedGoesAstray) {
    // Elements 0..5; the set of four tempts, but two sets of three cover everything for less.
    CoverInstance cover;
    cover.setStart = {0, 4, 7, 10, 11, 12};
    cover.setElements = {0, 1, 3, 4, /**/ 0, 1, 2, /**/ 3, 4, 5, /**/ 2, /**/ 5};
    cover.cost = {1, 1, 1, 1, 1};
    cover.transpose(6);
    CoverSearch search(cover, 1);
    search.startFrom({});
    search.run(10000);
    EXPECT_EQ(search.bestCost(), 2);
}

TEST(CoverSearch, MindsWhatASetCosts) {
    CoverInstance cover;
    cover.setStart = {0, 2, 3, 4};
    cover.setElements = {0, 1, 0, 1};
    cover.cost = {5, 2, 2};
    cover.transpose(2);
    CoverSearch search(cover, 1);
    search.startFrom({});
    search.run(10000);
    EXPECT_EQ(search.bestCost(), 4);
}

TEST(WheelSearch, FindsThePerfectWheels) {
    const std::pair<WheelProblem, std::size_t> perfect[] = {
        {{7, 3, 2, 2}, 7}, {{8, 4, 3, 3}, 14}, {{9, 6, 6, 5}, 7}, {{10, 6, 5, 4}, 7}};
    for (const auto& [problem, rows] : perfect) {
        const auto wheel = search(ProblemSpace(problem), {{}, 1, 30'000'000}, nullptr);
        ASSERT_TRUE(wheel);
        EXPECT_EQ(wheel->rows.size(), rows) << selection::describe(problem);
        EXPECT_FALSE(selection::firstUncovered(problem, wheel->rows));
    }
}

TEST(WheelSearch, GivesTheSameRowsAgainFromItsNotes) {
    const ScratchFolder folder;
    const WheelStore store(folder.path());
    const WheelProblem problem{11, 6, 6, 5};
    const ProblemSpace space(problem);
    const auto first = search(space, {groupFromText("bcadefghijk", 11), 5, 2'000'000}, nullptr);
    const auto second = search(space, {{}, 6, 2'000'000}, &*first);
    EXPECT_EQ(second->made.size(), 2u);
    EXPECT_EQ(remake(problem, second->made, store).rows, second->rows);
}

TEST(WheelData, ComesOutOfItsNotesAgain) {
    // Those that took little work and no other wheel: a few dozen, of all kinds of groups.
    constexpr std::uint64_t kLittleWork = 300'000;
    const WheelStore store(SSQ_WHEELS);
    int remade = 0;
    for (const auto& [problem, wheel] : store.wheels()) {
        if (problem.positions > 15 || wheel.made.size() != 1 || wheel.made[0].find("orbits") != 0)
            continue;
        if (std::stoull(wheel.made[0].substr(wheel.made[0].rfind(' '))) > kLittleWork)
            continue;
        Wheel again = remake(problem, wheel.made, store);
        sortRows(again.rows);
        EXPECT_EQ(again.rows, wheel.rows) << selection::describe(problem);
        ++remade;
    }
    EXPECT_GT(remade, 20);
}

TEST(WheelSearch, JoinsTwoPartsOfWhichOneMustHoldEnough) {
    const ScratchFolder folder;
    WheelStore store(folder.path());
    // Of seven out of twelve, four lie among the first six or four among the last six.
    bool seen = false;
    for (const Wheel& wheel : constructions({12, 6, 7, 4}, store)) {
        EXPECT_FALSE(selection::firstUncovered({12, 6, 7, 4}, wheel.rows)) << wheel.made.at(0);
        seen = seen || wheel.rows.size() == 2;
        std::vector<PositionSet> again = remake({12, 6, 7, 4}, wheel.made, store).rows;
        EXPECT_EQ(again, wheel.rows);
    }
    EXPECT_TRUE(seen);
}

TEST(WheelSearch, DropsAPositionInTheMiddleAndCompletesTheRest) {
    // Of the 14 blocks of four of eight positions that hold each triple once, 7 go without position 3. They hold 28
    // of the 35 triples of the other seven, and a row holds four at most: at least two rows more.
    const WheelStore store(SSQ_WHEELS);
    ASSERT_EQ(store.find({8, 4, 3, 3})->rows.size(), 14u);
    const WheelProblem problem{7, 4, 3, 3};
    EXPECT_EQ(remake(problem, {"drop 3"}, store).rows.size(), 7u);
    const Wheel completed = remake(problem, {"drop 3", "relax - seed 1 work 0"}, store);
    EXPECT_FALSE(selection::firstUncovered(problem, completed.rows));
    EXPECT_GE(completed.rows.size(), 9u);
    EXPECT_THROW(remake(problem, {"drop 1 2 3 4 5 6 7 8 9 10 11 12"}, store), std::runtime_error); // none of 19 such
    EXPECT_THROW(remake(problem, {"melt"}, store), std::runtime_error);
}

TEST(WheelSearch, EveryConstructionFromTheStoreHolds) {
    const WheelStore store(SSQ_WHEELS);
    std::map<std::string, int> tried;
    for (const WheelProblem& problem :
         {WheelProblem{12, 6, 6, 4}, WheelProblem{10, 5, 4, 3}, WheelProblem{12, 7, 7, 5}})
        for (const Wheel& wheel : constructions(problem, store)) {
            ++tried[wheel.made.at(0).substr(0, wheel.made.at(0).find(' '))];
            EXPECT_FALSE(selection::firstUncovered(problem, wheel.rows))
                << selection::describe(problem) << wheel.made.at(0);
        }
    EXPECT_GT(tried["shorten"], 0);
    EXPECT_GT(tried["lengthen"], 0);
    EXPECT_GT(tried["easier"], 0);
}

TEST(Improver, NeverMakesAWheelWorse) {
    const ScratchFolder folder;
    WheelStore store(folder.path());
    const WheelProblem problem{10, 6, 6, 5};
    std::size_t rows = SIZE_MAX;
    Improver improver(store, 11);
    for (int visit = 0; visit < 4; ++visit) {
        improver.visit(problem, 20'000'000);
        EXPECT_LE(store.find(problem)->rows.size(), rows);
        rows = store.find(problem)->rows.size();
        EXPECT_FALSE(selection::firstUncovered(problem, store.find(problem)->rows));
    }
    EXPECT_LE(rows, 15u); // 14 is the best that anybody has found
}
