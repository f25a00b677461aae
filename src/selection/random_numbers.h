// Random numbers for the simulated draw, through an interface, so that a run can be played again.
#pragma once

#include <cstdint>
#include <random>

namespace selection {

class RandomNumbers {
  public:
    virtual ~RandomNumbers() = default;
    /// Begins anew from another seed. The simulated draw asks for it at every tick.
    virtual void reseed() = 0;
    /// Uniform on [0, 1).
    virtual double next() = 0;
};

/// Seeded from the clock. A counter goes into the seed too, so that two seeds within one step of the clock differ.
class ClockNumbers final : public RandomNumbers {
  public:
    ClockNumbers() { reseed(); }
    void reseed() override;
    double next() override;

  private:
    std::uint64_t m_seeds = 0;
    std::minstd_rand m_engine; ///< seeded in a moment, as the draw does at every tick
};

} // namespace selection
