// Random numbers that are the same on every machine, so that a table can be made again from its seed.
#pragma once

#include <cstdint>

namespace wheels {

/// SplitMix64 (Steele, Lea, Flood 2014).
class Random {
  public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}
    std::uint64_t next() {
        std::uint64_t value = (m_state += 0x9E3779B97F4A7C15U);
        value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
        value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
        return value ^ (value >> 31U);
    }
    /// 0..limit-1; limit at least 1. The tiny bias of the multiplication does not matter here.
    std::uint32_t below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(((next() >> 32U) * std::uint64_t{limit}) >> 32U);
    }
    int between(int low, int high) {
        return low + static_cast<int>(below(static_cast<std::uint32_t>(high - low + 1)));
    }
    /// Any of a list that is not empty.
    template <class List> const auto& oneOf(const List& list) {
        return list[below(static_cast<std::uint32_t>(list.size()))];
    }
    double unit() { return static_cast<double>(next() >> 11U) * 0x1.0p-53; }

  private:
    std::uint64_t m_state;
};

} // namespace wheels
