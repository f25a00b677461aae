#include "history/derive.h"

#include <algorithm>
#include <cstdlib>

namespace history {

namespace {

constexpr int kBlue = 7;            // place of the blue in a draw
constexpr int kZoneWidth = 11;      // numbers a zone
constexpr int kOddZone = 3;         // this counter also counts the multiples of three
constexpr int kSmallestStart = 100; // no smallest omission above this is noticed

int lastDigit(int number) {
    return std::abs(number % 10);
}
bool isEven(int number) {
    return number % 2 == 0;
}
bool inLowerHalf(int number, int range) {
    return 2 * number <= range;
}

void add(std::int16_t& sum, int value) {
    sum = static_cast<std::int16_t>(sum + value);
}

int omissionOf(std::span<const std::int16_t> omission, int red) {
    return red >= 0 && red < static_cast<int>(omission.size()) ? omission[static_cast<std::size_t>(red)] : 0;
}

void sumReds(Derived& row, std::span<const std::int32_t> reds, std::span<const std::int16_t> omission) {
    int smallest = kSmallestStart;
    int largest = 0;
    for (const int red : reds) {
        const int absent = omissionOf(omission, red);
        add(row.Znum, red);
        add(row.Zynum, absent);
        add(row.Zgnum, lastDigit(red));
        smallest = std::min(smallest, absent);
        largest = std::max(largest, absent);
    }
    row.intYljz = static_cast<std::int16_t>(largest - smallest);
}

void countZone(Derived& row, int red) {
    const int zone = (red - 1) / kZoneWidth;
    if (zone >= 0 && zone <= kOddZone)
        ++row.Qnum[static_cast<std::size_t>(zone)];
    if (red % 3 == 0)
        ++row.Qnum[kOddZone];
}

void countReds(Derived& row, std::span<const std::int32_t> reds, int range) {
    for (const int red : reds) {
        countZone(row, red);
        ++(isEven(red) ? row.Onum : row.Jnum);
        add(isEven(red) ? row.Zonum : row.Zjnum, red);
        ++(lastDigit(red) >= 5 ? row.Bignum : row.Smlnum);
        ++(inLowerHalf(red, range) ? row.Ltlnum : row.Mornum);
        add(inLowerHalf(red, range) ? row.XZnumB : row.DZnumB, red);
    }
}

std::int16_t repeatedLastDigits(std::span<const std::int32_t> reds) {
    std::array<bool, 10> seen{};
    for (const int red : reds)
        seen[static_cast<std::size_t>(lastDigit(red))] = true;
    return static_cast<std::int16_t>(kRedsDrawn - std::count(seen.begin(), seen.end(), true));
}

void measureGaps(Derived& row, std::span<const std::int32_t> reds) {
    std::int16_t run = 0;
    for (std::size_t red = 1; red < reds.size(); ++red) {
        const int gap = reds[red] - reds[red - 1];
        row.Mxzounum = static_cast<std::int16_t>(std::max<int>(row.Mxzounum, gap));
        row.Lnum = static_cast<std::int16_t>(row.Lnum + (gap == 1));
        run = static_cast<std::int16_t>(gap == 1 ? run + 1 : 0);
        row.Lxnum = std::max(row.Lxnum, run);
    }
    row.Apzounum = static_cast<std::int16_t>(reds.back() - reds.front());
}

std::int16_t commonReds(std::span<const std::int32_t> reds, std::span<const std::int32_t> before) {
    std::int16_t common = 0;
    for (const int red : reds)
        add(common, static_cast<int>(std::count(before.begin(), before.end(), red)));
    return common;
}

void addBlue(Derived& row, const Draw& draw, const Draw& previous, int range) {
    const int blue = draw[kBlue];
    row.ZnumB = static_cast<std::int16_t>(row.Znum + blue);
    row.OnumB = static_cast<std::int16_t>(row.Onum + isEven(blue));
    row.JnumB = static_cast<std::int16_t>(row.Jnum + !isEven(blue));
    row.SumjonumB = isEven(row.ZnumB);
    row.SumgwnumB = static_cast<std::int16_t>(lastDigit(row.ZnumB));
    const auto sameDigit = [&](int red) { return lastDigit(red) == lastDigit(blue); };
    row.ModenumB = static_cast<std::int16_t>(row.Modenum + std::count_if(&draw[1], &draw[kBlue], sameDigit));
    row.CnumB = static_cast<std::int16_t>(row.Cnum + (blue == previous[kBlue]));
    row.LtlnumB = static_cast<std::int16_t>(row.Ltlnum + inLowerHalf(blue, range));
    row.MornumB = static_cast<std::int16_t>(row.Mornum + !inLowerHalf(blue, range));
}

} // namespace

Differences redDifferences(const Draw& draw) {
    Differences differences{};
    std::size_t place = 0;
    for (std::size_t upper = 2; upper <= kRedsDrawn; ++upper)
        for (std::size_t lower = 1; lower < upper; ++lower)
            differences[place++] = static_cast<std::int16_t>(draw[upper] - draw[lower]);
    return differences;
}

std::int16_t acValue(const Differences& differences) {
    std::int16_t value = kDifferences - (kRedsDrawn - 1);
    for (auto place = differences.begin() + 1; place != differences.end(); ++place)
        if (std::find(differences.begin(), place, *place) != place)
            --value;
    return value;
}

Derived deriveDraw(const Draw& draw, const Draw& previous, std::span<const std::int16_t> omission,
                   const workspace::Rule& rule) {
    const std::span<const std::int32_t> reds(&draw[1], kRedsDrawn);
    Derived row;
    sumReds(row, reds, omission);
    row.differences = redDifferences(draw);
    row.Fcodp = acValue(row.differences);
    countReds(row, reds, rule.reds);
    row.Sumjonum = isEven(row.Znum);
    row.Sumgwnum = static_cast<std::int16_t>(lastDigit(row.Znum));
    row.Modenum = repeatedLastDigits(reds);
    measureGaps(row, reds);
    row.Cnum = commonReds(reds, std::span<const std::int32_t>(&previous[1], kRedsDrawn));
    addBlue(row, draw, previous, rule.blues);
    return row;
}

} // namespace history
