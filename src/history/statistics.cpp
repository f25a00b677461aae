#include "history/statistics.h"

namespace history {

namespace {

template <std::size_t Size> void hit(std::array<std::int16_t, Size>& hits, int number) {
    if (number >= 0 && number < static_cast<int>(Size))
        ++hits[static_cast<std::size_t>(number)];
}

template <std::size_t Size> void age(std::array<std::int16_t, Size>& omission, int range) {
    for (std::size_t number = 1; number <= static_cast<std::size_t>(range); ++number)
        ++omission[number];
}

template <std::size_t Size> void drawn(std::array<std::int16_t, Size>& omission, int number) {
    if (number >= 0 && number < static_cast<int>(Size))
        omission[static_cast<std::size_t>(number)] = 0;
}

template <std::size_t Size>
void share(std::array<double, Size>& shares, const std::array<std::int16_t, Size>& hits, int range, double numbers) {
    for (std::size_t number = 1; number <= static_cast<std::size_t>(range); ++number)
        shares[number] = numbers == 0 ? 0 : hits[number] / numbers * 100;
}

} // namespace

void countDraw(History& history, const Draw& draw, const workspace::Rule& rule) {
    age(history.Ylnow, rule.reds);
    age(history.YlnowB, rule.blues);
    for (std::size_t place = 1; place <= kRedsDrawn; ++place) {
        hit(history.Glred, draw[place]);
        drawn(history.Ylnow, draw[place]);
    }
    hit(history.GlBlue, draw[7]);
    drawn(history.YlnowB, draw[7]);
    ++history.Glcount;
}

void computeShares(History& history, const workspace::Rule& rule) {
    share(history.Gailvred, history.Glred, rule.reds, history.Glcount * 6.0);
    share(history.GailvBlue, history.GlBlue, rule.blues, history.Glcount);
}

void resetStatistics(History& history) {
    history.Glcount = 0;
    history.Glred.fill(0);
    history.GlBlue.fill(0);
    history.Ylnow.fill(0);
    history.YlnowB.fill(0);
}

} // namespace history
