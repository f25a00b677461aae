// What the tests that kill have in common: how often, at which moments, and the folder in which one life follows the
// other.
#pragma once

#include <chrono>
#include <cstdio>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "environment_number.h"
#include "scratch_folder.h"

namespace crash {

class KillFixture : public testing::Test {
  protected:
    /// \param usualKills  where SSQ_KILLS says nothing
    explicit KillFixture(unsigned usualKills) : kills(environmentNumber("SSQ_KILLS", usualKills)) {
        std::printf("SSQ_SEED=%u, %u kills\n", seed, kills);
    }

    std::chrono::microseconds upTo(std::chrono::microseconds limit) {
        return std::chrono::microseconds(std::uniform_int_distribution<long>(0, limit.count())(random));
    }
    std::string seedText() const { return "SSQ_SEED=" + std::to_string(seed); }

    const unsigned seed = environmentNumber("SSQ_SEED", std::random_device()());
    const unsigned kills;
    std::mt19937 random{seed};
    ScratchFolder folder;
};

} // namespace crash
