#include "selection/random_numbers.h"

#include <algorithm>
#include <array>
#include <set>

#include <gtest/gtest.h>

namespace {

TEST(ClockNumbers, LieBelowOne) {
    selection::ClockNumbers random;
    double least = 1;
    double most = 0;
    for (int draw = 0; draw < 100'000; ++draw) {
        const double number = random.next();
        least = std::min(least, number);
        most = std::max(most, number);
    }
    EXPECT_GE(least, 0);
    EXPECT_LT(most, 1);
    EXPECT_LT(least, 0.01); // each fails once in 10^436 runs
    EXPECT_GT(most, 0.99);
}

// The clock has not moved on between most of these.
TEST(ClockNumbers, TwoSeedsInOneStepOfTheClockDiffer) {
    selection::ClockNumbers random;
    std::set<std::array<double, 2>> starts;
    for (int seed = 0; seed < 1000; ++seed) {
        random.reseed();
        const double first = random.next();
        starts.insert({first, random.next()});
    }
    EXPECT_GT(starts.size(), 990U); // some 1000^2 / 2^32 of them alike by chance
}

} // namespace
