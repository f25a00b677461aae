// Random numbers that come again: a run of the simulated draw that can be told beforehand.
#pragma once

#include <random>

#include "selection/random_numbers.h"

/// Uniform from a fixed seed. Seeding anew goes on with the same numbers, and is counted.
class ReplayedNumbers final : public selection::RandomNumbers {
  public:
    explicit ReplayedNumbers(unsigned seed) : m_engine(seed) {}
    void reseed() override { ++seeds; }
    double next() override { return static_cast<double>(m_engine()) / 4294967296.0; }

    int seeds = 0;

  private:
    std::mt19937 m_engine;
};

/// Always the same number.
class SameNumber final : public selection::RandomNumbers {
  public:
    void reseed() override {}
    double next() override { return number; }

    double number = 0;
};
