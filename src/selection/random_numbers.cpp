#include "selection/random_numbers.h"

#include <chrono>

namespace selection {

namespace {

/// The finisher of SplitMix64 (Steele, Lea, Flood 2014): seeds that lie close together become unrelated ones.
std::uint64_t mixed(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9U;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebU;
    return value ^ (value >> 31);
}

} // namespace

void ClockNumbers::reseed() {
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    ++m_seeds;
    m_engine.seed(static_cast<std::minstd_rand::result_type>(
        mixed(static_cast<std::uint64_t>(now) + m_seeds * 0x9e3779b97f4a7c15U)));
}

double ClockNumbers::next() {
    constexpr double range = static_cast<double>(std::minstd_rand::max() - std::minstd_rand::min()) + 1;
    return static_cast<double>(m_engine() - std::minstd_rand::min()) / range;
}

} // namespace selection
