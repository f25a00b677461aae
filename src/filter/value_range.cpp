#include "filter/value_range.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace filter {
namespace {

constexpr int kReds = history::kRedsDrawn;
constexpr int kZone = 11;             // numbers of an interval
constexpr int kDigits = 10;           // last digits
constexpr int kSmallestOmission = 99; // where the search for the smallest omission starts: none above it is noticed

struct Basis {
    const workspace::Rule& rule;
    const history::History& history;
};

/// What a number adds to a value that is a sum over the numbers of a bet.
using Share = int (*)(int number, const Basis&);

template <int Zone> int inZone(int number, const Basis&) {
    return number > Zone * kZone && number <= (Zone + 1) * kZone;
}
int itself(int number, const Basis&) {
    return number;
}
int even(int number, const Basis&) {
    return number % 2 == 0;
}
// Half of the highest red is the boundary for the blue number too.
int big(int number, const Basis& basis) {
    return 2 * number > basis.rule.reds;
}
// A blue number too is looked up among the last draw's reds.
int repeated(int number, const Basis& basis) {
    const history::Draw& last = basis.history.Lshm[static_cast<std::size_t>(basis.history.Lsnum)];
    return std::find(last.begin() + 1, last.begin() + 1 + kReds, number) != last.begin() + 1 + kReds;
}
int omission(int number, const Basis& basis) {
    return basis.history.Ylnow[static_cast<std::size_t>(number)];
}

constexpr struct {
    std::string_view history;
    Share share;
} kSums[] = {
    {"Znum", itself},
    {"Zgnum", [](int number, const Basis&) { return number % kDigits; }},
    {"Zjnum", [](int number, const Basis&) { return number % 2 == 1 ? number : 0; }},
    {"Zonum", [](int number, const Basis&) { return number % 2 == 0 ? number : 0; }},
    {"Onum", even},
    {"Mornum", big},
    {"Bignum", [](int number, const Basis&) { return static_cast<int>(number % kDigits >= kDigits / 2); }},
    {"Qnum0", inZone<0>},
    {"Qnum1", inZone<1>},
    {"Qnum2", inZone<2>},
    {"Qnum3", [](int number, const Basis&) { return static_cast<int>(number % 3 == 0); }},
    {"Cnum", repeated},
    {"Zynum", omission},
    {"ZnumB", itself},
    {"OnumB", even},
    {"MornumB", big},
    {"CnumB", repeated},
};

std::vector<int> sortedShares(int highest, Share share, const Basis& basis) {
    std::vector<int> shares;
    for (int number = 1; number <= highest; ++number)
        shares.push_back(share(number, basis));
    std::ranges::sort(shares);
    return shares;
}

/// The six reds that add least, the six that add most; the blue comes from numbers of its own.
ValueRange rangeOfSum(Share share, bool blue, const Basis& basis) {
    const std::vector<int> reds = sortedShares(basis.rule.reds, share, basis);
    ValueRange range{std::accumulate(reds.begin(), reds.begin() + kReds, 0),
                     std::accumulate(reds.end() - kReds, reds.end(), 0)};
    if (blue) {
        const std::vector<int> blues = sortedShares(basis.rule.blues, share, basis);
        range.low += blues.front();
        range.high += blues.back();
    }
    return range;
}

/// Six of the numbers with the commonest last digits repeat most.
ValueRange repeatedDigits(const Basis& basis) {
    std::array<int, kDigits> numbers{};
    for (int red = 1; red <= basis.rule.reds; ++red)
        ++numbers[static_cast<std::size_t>(red % kDigits)];
    std::ranges::sort(numbers, std::greater());
    int digits = 0;
    for (int taken = 0; taken < kReds; ++digits)
        taken += numbers[static_cast<std::size_t>(digits)];
    return {0, kReds - digits};
}

/// With a given smallest one, the next five in order are the closest.
ValueRange omissionSpread(const Basis& basis) {
    const std::vector<int> all = sortedShares(basis.rule.reds, omission, basis);
    const auto spread = [](int smallest, int largest) { return largest - std::min(smallest, kSmallestOmission); };
    ValueRange range{spread(all.front(), all.back()), spread(all.front(), all.back())};
    for (std::size_t first = 0; first + kReds <= all.size(); ++first)
        range.low = std::min(range.low, spread(all[first], all[first + kReds - 1]));
    return range;
}

constexpr struct {
    std::string_view history;
    ValueRange (*range)(const Basis&);
} kOthers[] = {
    {"Sumgwnum",
     [](const Basis&) {
         return ValueRange{0, kDigits - 1};
     }},
    {"Lxnum",
     [](const Basis&) {
         return ValueRange{0, kReds - 1};
     }},
    {"Modenum", repeatedDigits},
    {"Mxzounum",
     [](const Basis& basis) {
         return ValueRange{1, basis.rule.reds - kReds + 1};
     }},
    {"Apzounum",
     [](const Basis& basis) {
         return ValueRange{kReds - 1, basis.rule.reds - 1};
     }},
    // 01 to 06 have five differences. 01 02 05 11 13 18 have fifteen, no two alike, and stand in the least rule.
    {"Fcodp",
     [](const Basis&) {
         return ValueRange{0, history::kDifferences - (kReds - 1)};
     }},
    {"intyljz", omissionSpread},
};

ValueRange rangeOfPlace(const Parameter& parameter, const workspace::Rule& rule) {
    if (parameter.kind == Kind::Blue)
        return {1, rule.blues};
    return {parameter.place, rule.reds - kReds + parameter.place};
}

} // namespace

std::optional<ValueRange> possibleRange(const Parameter& parameter, const workspace::Rule& rule,
                                        const history::History& history) {
    if (parameter.isPosition())
        return rangeOfPlace(parameter, rule);
    const Basis basis{rule, history};
    for (const auto& sum : kSums)
        if (sum.history == parameter.history)
            return rangeOfSum(sum.share, parameter.wholeBet, basis);
    for (const auto& other : kOthers)
        if (other.history == parameter.history)
            return other.range(basis);
    return std::nullopt;
}

} // namespace filter
