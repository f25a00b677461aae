#include "filter/value_range.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace filter {
namespace {

constexpr int kZone = 11;             // numbers of an interval
constexpr int kTen = 10;              // numbers of an interval of the windows with seven reds
constexpr int kDigits = 10;           // last digits
constexpr int kSmallestOmission = 99; // where the search for the smallest omission starts: none above it is noticed

struct Basis {
    const workspace::Rule& rule;
    const history::History& history;
    int reds; ///< reds of a bet
};

/// What a number adds to a value that is a sum over the numbers of a bet.
using Share = int (*)(int number, const Basis&);

template <int Zone> int inZone(int number, const Basis&) {
    return number > Zone * kZone && number <= (Zone + 1) * kZone;
}
template <int Zone> int inTen(int number, const Basis&) {
    return number > Zone * kTen && number <= (Zone + 1) * kTen;
}
template <int Divisor> int divisible(int number, const Basis&) {
    return number % Divisor == 0;
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
    const auto end = last.begin() + 1 + history::kRedsDrawn;
    return std::find(last.begin() + 1, end, number) != end;
}
int omission(int number, const Basis& basis) {
    return basis.history.Ylnow[static_cast<std::size_t>(number)];
}

// By the column of the history; where a parameter has none, by its caption.
constexpr struct {
    std::string_view name;
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
    {"Qnum3", divisible<3>},
    {"Qnum4", divisible<5>},
    {"XZnumB", [](int number, const Basis& basis) { return big(number, basis) ? 0 : number; }},
    {"DZnumB", [](int number, const Basis& basis) { return big(number, basis) ? number : 0; }},
    {"Cnum", repeated},
    {"Zynum", omission},
    {"ZnumB", itself},
    {"OnumB", even},
    {"MornumB", big},
    {"CnumB", repeated},
    {"1~10区间", inTen<0>},
    {"11~20区间", inTen<1>},
    {"21~30区间", inTen<2>},
    {"31~40区间", inTen<3>}, // no red reaches 40, which would be out
    {"41以上", [](int number, const Basis&) { return static_cast<int>(number > 40); }},
};

std::vector<int> sortedShares(int highest, Share share, const Basis& basis) {
    std::vector<int> shares;
    for (int number = 1; number <= highest; ++number)
        shares.push_back(share(number, basis));
    std::ranges::sort(shares);
    return shares;
}

/// The reds that add least, the reds that add most; the blue comes from numbers of its own.
ValueRange rangeOfSum(Share share, bool blue, const Basis& basis) {
    const std::vector<int> reds = sortedShares(basis.rule.reds, share, basis);
    ValueRange range{std::accumulate(reds.begin(), reds.begin() + basis.reds, 0),
                     std::accumulate(reds.end() - basis.reds, reds.end(), 0)};
    if (blue) {
        const std::vector<int> blues = sortedShares(basis.rule.blues, share, basis);
        range.low += blues.front();
        range.high += blues.back();
    }
    return range;
}

/// The numbers with the commonest last digits repeat most.
ValueRange repeatedDigits(const Basis& basis) {
    std::array<int, kDigits> numbers{};
    for (int red = 1; red <= basis.rule.reds; ++red)
        ++numbers[static_cast<std::size_t>(red % kDigits)];
    std::ranges::sort(numbers, std::greater());
    int digits = 0;
    for (int taken = 0; taken < basis.reds; ++digits)
        taken += numbers[static_cast<std::size_t>(digits)];
    return {0, basis.reds - digits};
}

/// With a given smallest one, the next in order are the closest.
ValueRange omissionSpread(const Basis& basis) {
    const std::vector<int> all = sortedShares(basis.rule.reds, omission, basis);
    const auto spread = [](int smallest, int largest) { return largest - std::min(smallest, kSmallestOmission); };
    ValueRange range{spread(all.front(), all.back()), spread(all.front(), all.back())};
    const auto reds = static_cast<std::size_t>(basis.reds);
    for (std::size_t first = 0; first + reds <= all.size(); ++first)
        range.low = std::min(range.low, spread(all[first], all[first + reds - 1]));
    return range;
}

constexpr struct {
    std::string_view name;
    ValueRange (*range)(const Basis&);
} kOthers[] = {
    {"Sumgwnum",
     [](const Basis&) {
         return ValueRange{0, kDigits - 1};
     }},
    {"Lxnum",
     // Every second number has no neighbour; when more reds than those are drawn, pairs are left over.
     [](const Basis& basis) {
         return ValueRange{std::max(0, 2 * basis.reds - 1 - basis.rule.reds), basis.reds - 1};
     }},
    {"Modenum", repeatedDigits},
    {"Mxzounum",
     [](const Basis& basis) {
         return ValueRange{1, basis.rule.reds - basis.reds + 1};
     }},
    {"Apzounum",
     [](const Basis& basis) {
         return ValueRange{basis.reds - 1, basis.rule.reds - 1};
     }},
    // 01 to 06 have five differences. 01 02 05 11 13 18 have fifteen, no two alike, and 01 02 04 09 18 22 28 have
    // twenty-one: both stand in the least rule.
    {"Fcodp",
     [](const Basis& basis) {
         return ValueRange{0, basis.reds * (basis.reds - 1) / 2 - (basis.reds - 1)};
     }},
    {"intyljz", omissionSpread},
    {"intYljz", omissionSpread},
};

ValueRange rangeOfPlace(const Parameter& parameter, const workspace::Rule& rule) {
    if (parameter.kind == Kind::Blue)
        return {1, rule.blues};
    return {parameter.place, rule.reds - parameter.reds + parameter.place};
}

} // namespace

std::optional<ValueRange> possibleRange(const Parameter& parameter, const workspace::Rule& rule,
                                        const history::History& history) {
    if (parameter.isPosition())
        return rangeOfPlace(parameter, rule);
    const Basis basis{rule, history, parameter.reds};
    const std::string_view name = parameter.history.empty() ? parameter.caption : parameter.history;
    for (const auto& sum : kSums)
        if (sum.name == name)
            return rangeOfSum(sum.share, parameter.wholeBet, basis);
    for (const auto& other : kOthers)
        if (other.name == name)
            return other.range(basis);
    return std::nullopt;
}

} // namespace filter
