#include "history/statistics.h"

namespace history {

namespace {

template <std::size_t Size> void hit(std::array<std::int16_t, Size>& hits, int number, int times = 1) {
    if (number >= 0 && number < static_cast<int>(Size)) {
        std::int16_t& count = hits[static_cast<std::size_t>(number)];
        count = static_cast<std::int16_t>(count + times);
    }
}

void hitAll(History& history, const Draw& draw) {
    for (std::size_t place = 1; place <= kRedsDrawn; ++place)
        hit(history.Glred, draw[place]);
    hit(history.GlBlue, draw[7]);
    ++history.Glcount;
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
    for (std::size_t place = 1; place <= kRedsDrawn; ++place)
        drawn(history.Ylnow, draw[place]);
    drawn(history.YlnowB, draw[7]);
    hitAll(history, draw);
}

void recountHits(History& history) {
    history.Glcount = 0;
    history.Glred.fill(0);
    history.GlBlue.fill(0);
    for (std::size_t row = 1; row <= static_cast<std::size_t>(history.Lsnum); ++row)
        hitAll(history, history.Lshm[row]);
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

void correctHit(History& history, bool blue, int from, int to) {
    constexpr int kCountedSixfold = 6;
    if (blue) {
        hit(history.GlBlue, from, -1);
        hit(history.GlBlue, to);
    } else {
        hit(history.Glred, from, -1);
        hit(history.Glred, to);
    }
    history.Glcount = history.Lsnum * kCountedSixfold;
}

} // namespace history
