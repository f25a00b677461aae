#include "selection/wheel_tables.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace selection {

namespace {

constexpr std::array<WheelFamilyInfo, 5> kFamilies = {{
    {WheelFamily::Basic, "Xuanzhuanjb", "基本", 6},
    {WheelFamily::Extended, "XuanzhuanF6", "扩展", 6},
    {WheelFamily::Super, "Xuanzhuancj", "超级", 6},
    {WheelFamily::Banker, "XuanzhuanDT", "胆拖", 6},
    {WheelFamily::Seven, "xuanzhuanF7", "复7", 7},
}};

constexpr Guarantee kExtendedPairs[] = {{4, 4}, {5, 4}, {5, 5}, {6, 4}, {6, 5}, {7, 6}};
constexpr Guarantee kSuperPairs[] = {{5, 4}, {6, 4}, {7, 4}, {5, 5}, {6, 5}, {7, 5}, {7, 6}};
constexpr Guarantee kBankerPairs[] = {{4, 4}, {5, 4}, {5, 5}, {6, 5}};
constexpr Guarantee kSevenPairs[] = {{4, 4}, {5, 4}, {6, 4}, {7, 4}, {5, 5}, {6, 5}, {7, 5}, {6, 6}, {7, 6}};
constexpr Guarantee kBasicPair = {6, 5};
constexpr int kBasicNeverOffered = 8; // its entry is there, and is not offered, on purpose
constexpr int kRow = 6;
constexpr int kSevenRow = 7;
constexpr int kMostWithBankers = 20; ///< N + D

std::string twoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string pairText(const Guarantee& pair) {
    return std::to_string(pair.chosen) + std::to_string(pair.common);
}

std::string nameOf(WheelFamily family, int n, int d, const Guarantee& pair) {
    switch (family) {
    case WheelFamily::Basic:
        return std::to_string(n);
    case WheelFamily::Extended:
        return "56" + twoDigits(n) + pairText(pair);
    case WheelFamily::Banker:
        return std::to_string(d) + "6" + std::to_string(n + d) + pairText(pair);
    case WheelFamily::Super:
    case WheelFamily::Seven:
        break;
    }
    return twoDigits(n) + pairText(pair);
}

WheelTable tableOf(WheelFamily family, int n, int d, const Guarantee& pair) {
    const int row = family == WheelFamily::Seven ? kSevenRow : kRow;
    return {family, nameOf(family, n, d, pair), {n, row - d, pair.chosen - d, pair.common - d}, d};
}

void addAll(std::vector<WheelTable>& tables, WheelFamily family, int first, int last,
            std::span<const Guarantee> pairs) {
    for (int n = first; n <= last; ++n)
        for (const Guarantee& pair : pairs)
            tables.push_back(tableOf(family, n, 0, pair));
}

void addExtended(std::vector<WheelTable>& tables) {
    tables.push_back(tableOf(WheelFamily::Extended, 8, 0, {7, 6}));
    tables.push_back(tableOf(WheelFamily::Extended, 9, 0, {5, 5}));
    tables.push_back(tableOf(WheelFamily::Extended, 9, 0, {7, 6}));
    addAll(tables, WheelFamily::Extended, 10, 18, kExtendedPairs);
}

/// Where x is not above D the bankers alone fulfil x: such a guarantee says nothing, and there is no table.
void addBanker(std::vector<WheelTable>& tables) {
    for (int d = 1; d < kRow; ++d)
        for (int n = kRow + 1 - d; n + d <= kMostWithBankers; ++n)
            for (const Guarantee& pair : kBankerPairs)
                if (pair.chosen > d)
                    tables.push_back(tableOf(WheelFamily::Banker, n, d, pair));
}

/// The number that some digits spell; 0 for anything else.
int numberFrom(std::string_view digits) {
    int number = 0;
    for (const char digit : digits)
        number = digit >= '0' && digit <= '9' && number < 1000 ? number * 10 + (digit - '0') : 1000;
    return number < 1000 ? number : 0;
}

/// N and D out of what stands before the pair in a name.
std::pair<int, int> sizesFrom(WheelFamily family, std::string_view front) {
    if (family == WheelFamily::Extended)
        return {numberFrom(front.substr(std::min<std::size_t>(2, front.size()))), 0};
    if (family != WheelFamily::Banker)
        return {numberFrom(front), 0};
    const int d = numberFrom(front.substr(0, 1));
    return {numberFrom(front.substr(std::min<std::size_t>(2, front.size()))) - d, d};
}

bool saysSomething(const WheelTable& table) {
    const auto& [positions, row, chosen, common] = table.problem;
    return row >= 1 && positions > row && positions + table.bankers <= kMostPositions && chosen >= 1 && common >= 0 &&
           common <= row && common <= chosen && chosen <= positions;
}

} // namespace

std::span<const WheelFamilyInfo> wheelFamilies() {
    return kFamilies;
}

const WheelFamilyInfo& wheelFamily(WheelFamily family) {
    return kFamilies[static_cast<std::size_t>(family)];
}

std::span<const Guarantee> guaranteesOf(WheelFamily family) {
    switch (family) {
    case WheelFamily::Basic:
        break;
    case WheelFamily::Extended:
        return kExtendedPairs;
    case WheelFamily::Super:
        return kSuperPairs;
    case WheelFamily::Banker:
        return kBankerPairs;
    case WheelFamily::Seven:
        return kSevenPairs;
    }
    return {&kBasicPair, 1};
}

std::string wheelTableName(WheelFamily family, int n, int d, const Guarantee& pair) {
    return nameOf(family, n, d, pair);
}

std::vector<WheelTable> wheelTables() {
    std::vector<WheelTable> tables;
    addAll(tables, WheelFamily::Basic, 8, 16, {&kBasicPair, 1});
    addExtended(tables);
    addAll(tables, WheelFamily::Super, 7, 24, kSuperPairs);
    addBanker(tables);
    addAll(tables, WheelFamily::Seven, 8, 20, kSevenPairs);
    return tables;
}

std::optional<WheelTable> wheelTableNamed(WheelFamily family, std::string_view name) {
    Guarantee pair = kBasicPair;
    std::string_view front = name;
    if (family != WheelFamily::Basic) {
        if (name.size() < 3)
            return std::nullopt;
        front.remove_suffix(2);
        pair = {numberFrom(name.substr(front.size(), 1)), numberFrom(name.substr(front.size() + 1))};
    }
    const auto [n, d] = sizesFrom(family, front);
    WheelTable table = tableOf(family, n, d, pair);
    return table.name == name && saysSomething(table) ? std::optional(std::move(table)) : std::nullopt;
}

std::optional<WheelTable> wheelTableOfMenu(WheelFamily family, int n, int d, const Guarantee& pair) {
    if (family != WheelFamily::Banker && d != 0)
        return std::nullopt;
    std::optional<WheelTable> table = wheelTableNamed(family, wheelTableName(family, n, d, pair));
    if (!table || (family != WheelFamily::Basic && family != WheelFamily::Extended))
        return table;
    const std::vector<WheelTable> listed = wheelTables();
    const bool asked = std::find(listed.begin(), listed.end(), *table) != listed.end();
    const bool neverOffered = family == WheelFamily::Basic && n == kBasicNeverOffered;
    return asked && !neverOffered ? table : std::nullopt;
}

std::vector<std::int32_t> positionsOf(PositionSet set) {
    std::vector<std::int32_t> positions;
    for (; set != 0; set &= set - 1)
        positions.push_back(std::countr_zero(set) + 1);
    return positions;
}

std::vector<std::int32_t> wheelCells(const WheelTable& table, PositionSet row) {
    std::vector<std::int32_t> cells = positionsOf(row);
    for (int banker = 1; banker <= table.bankers; ++banker)
        cells.push_back(table.problem.positions + banker);
    return cells;
}

std::string describe(const WheelProblem& problem) {
    return "(N=" + std::to_string(problem.positions) + ", rows of " + std::to_string(problem.row) + ", " +
           std::to_string(problem.chosen) + " chosen, " + std::to_string(problem.common) + " in one row)";
}

} // namespace selection
