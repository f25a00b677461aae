#include "operations.h"

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>
#include <string>

#include "expected.h"
#include "figures.h"
#include "filter/group_template.h"
#include "filter/integrated_run.h"
#include "filter/super_run.h"

namespace bench {
namespace {

constexpr std::int64_t kTwoEvens = 285600;                          // sets with two even reds: C(16, 2) * C(17, 4)
constexpr std::int64_t kAcOfEight = 339540;                         // sets with AC value 8
constexpr std::int64_t kWithTwoReds = 31465;                        // sets with two given reds: C(31, 4)
constexpr std::int64_t kWithOneOfTwo = 169911;                      // sets with the one and not the other: C(31, 5)
constexpr std::array kNineReds{25, 26, 27, 28, 29, 30, 31, 32, 33}; // no blue is as high
const filter::SuperFilter& kSharingFive = filter::sixAndBlueSuperFilters()[1];

void reset(RuleTable& table) {
    table.states().resetAll();
}

std::int64_t pressEvens(RuleTable& table) {
    return table.press("Option4", {.low = "2", .high = "2", .list = {}});
}
std::int64_t pressAcValue(RuleTable& table) {
    return table.press("Option24", {.low = "8", .high = "8", .list = {}});
}
/// No sum of six reds is 1 or 2: every bet gets a reason, with its own sum in it.
std::int64_t pressSum(RuleTable& table) {
    return table.press("Option23", {.low = "1", .high = "2", .list = {}});
}
std::int64_t pressList(RuleTable& table) {
    filter::RunSettings run;
    run.mode = filter::Mode::List;
    return table.press("Option4", {.low = {}, .high = {}, .list = "2"}, run);
}

const filter::SuperFilter& superFilter(std::string_view option) {
    return *std::ranges::find(filter::sixAndBlueSuperFilters(), option, &filter::SuperFilter::option);
}

/// Takes out, or leaves, the bets that hold 05 and 11: with both reds, or with the red 05 before the blue 11.
std::int64_t filterTwo(RuleTable& table, std::string_view option) {
    filter::filterNumbers(table.workbench(), superFilter(option), std::array{5, 11});
    return table.inPlay();
}
std::int64_t withBoth(const RuleTable& table) {
    return kWithTwoReds * table.blues() + (table.blues() >= 11 ? kWithOneOfTwo : 0);
}
/// Without 05 and 11 among the reds, and without a blue of these.
std::int64_t withNeither(const RuleTable& table) {
    const std::int64_t otherBlues = table.blues() - (table.blues() >= 5 ? 1 : 0) - (table.blues() >= 11 ? 1 : 0);
    return choose(31, 6) * otherBlues;
}

std::int64_t filterNine(RuleTable& table, std::string_view option) {
    const std::vector<int> numbers(kNineReds.begin(), kNineReds.end());
    filter::filterGroups(table.workbench(), {&superFilter(option), numbers, 4, {}});
    return table.inPlay();
}
/// Bets with four or more of nine reds.
std::int64_t withFourOfNine(const RuleTable& table) {
    std::int64_t sets = 0;
    for (int hits = 4; hits <= 6; ++hits)
        sets += choose(9, hits) * choose(24, 6 - hits);
    return sets * table.blues();
}

/// All parameters ticked, each with the range that holds every bet, but for even reds.
filter::WindowState allTicks() {
    filter::WindowState state = filter::defaultState(filter::sixAndBlueCatalogue());
    for (const filter::Parameter& parameter : filter::sixAndBlueCatalogue()) {
        filter::RowState& row = state.row(parameter);
        row.ticked = true;
        row.low = "0";
        row.high = "9999";
    }
    state.row(*filter::findParameter(filter::sixAndBlueCatalogue(), "Option4")).low = "2";
    state.row(*filter::findParameter(filter::sixAndBlueCatalogue(), "Option4")).high = "2";
    return state;
}
std::int64_t integrated(RuleTable& table, const filter::WindowState& state) {
    std::int16_t Baoliu = filter::kKeep;
    filter::runIntegrated(RuleTable::member(), table.workbench(), state, Baoliu);
    return table.inPlay();
}
/// Six parameters fail in every bet, each with its own value in the reason.
std::int64_t integratedReasons(RuleTable& table) {
    filter::WindowState state = allTicks();
    for (const char* option : {"Option23", "Option7", "Option6", "Option24", "Option39", "Option38"}) {
        filter::RowState& row = state.row(*filter::findParameter(filter::sixAndBlueCatalogue(), option));
        row.low = "9000";
    }
    return integrated(table, state);
}

/// The bets with blue 1 are the template.
void fillTemplate(RuleTable& table) {
    reset(table);
    const filter::GroupTemplate gathered(table.database(), RuleTable::member());
    if (gathered.count() == kSets)
        return;
    table.run("UPDATE [zuhe] SET [unslt]=true WHERE [fig7] > 1");
    gathered.add();
    reset(table);
}
std::int64_t takeOutTemplate(RuleTable& table) {
    filter::GroupTemplate(table.database(), RuleTable::member()).takeOutMembers();
    return table.inPlay();
}

std::int64_t matchAll(RuleTable& table) {
    filter::matchHistory(table.workbench(), kSharingFive, kDraws);
    return table.inPlay();
}

/// The latest `draws` draws.
std::span<const history::Draw> latest(const RuleTable& table, int draws) {
    const std::span<const history::Draw> all = table.history().Lshm;
    return all.last(static_cast<std::size_t>(draws));
}

std::int64_t leftByHistory(const RuleTable& table) {
    static std::map<int, std::int64_t> known; // by blues: the count takes seconds
    const auto [place, isNew] = known.try_emplace(table.blues());
    if (isNew)
        place->second = betsSharingAtMost(kSharingFive.equal - 1, latest(table, kDraws), table.blues());
    return place->second;
}

double secondsOfStatements(RuleTable& table, int draws) {
    reset(table);
    const double start = now();
    filter::matchHistoryByStatements(table.workbench(), kSharingFive, draws);
    const double taken = now() - start;
    require("history match by statements", table.inPlay(),
            betsSharingAtMost(kSharingFive.equal - 1, latest(table, draws), table.blues()));
    return taken;
}

/// Every draw costs the same four statements: two draws and none tell what all would take.
double scaledHistorySeconds(RuleTable& table) {
    const double none = secondsOfStatements(table, 0);
    return none + (secondsOfStatements(table, 2) - none) / 2 * kDraws;
}

std::int64_t storeAfterPress(RuleTable& table) {
    table.database().store();
    return table.database().storePending() ? 1 : 0;
}

std::int64_t openAndShow(RuleTable& table) {
    table.open();
    return table.inPlay();
}

std::int64_t all(const RuleTable& table) {
    return table.rows();
}
std::int64_t none(const RuleTable&) {
    return 0;
}
std::int64_t twoEvens(const RuleTable& table) {
    return kTwoEvens * table.blues();
}

void nothing(RuleTable&) {}

void resetThenPress(RuleTable& table) {
    reset(table);
    pressEvens(table);
}

void storeThenPress(RuleTable& table) {
    reset(table);
    table.database().store();
    pressEvens(table);
}

void pressAndClose(RuleTable& table) {
    resetThenPress(table);
    table.close();
}

const Operation kOperations[] = {
    {"generate and show", nothing,
     [](RuleTable& table) {
         table.generate();
         return table.view().generated().rows.count();
     },
     all, 100, 1000},
    {"press a weighted parameter (偶数个数 2~2)", reset, pressEvens, twoEvens, 30, 250},
    {"press AC value (8~8)", reset, pressAcValue, [](const RuleTable& table) { return kAcOfEight * table.blues(); },
     30, 250},
    {"press that gives every bet a reason (各码数和 1~2)", reset, pressSum, none, 30, 250},
    {"press in list mode (偶数个数 “2”)", reset, pressList, twoEvens, 30, 250},
    {"integrated run of all ticks (偶数个数 2~2)", reset,
     [](RuleTable& table) { return integrated(table, allTicks()); }, twoEvens, 250, 3000, false},
    {"integrated run with six reasons for every bet", reset, integratedReasons, none, 250, 3000, false},
    {"相克号过滤 05 11", reset, [](RuleTable& table) { return filterTwo(table, "Option25(0)"); },
     [](const RuleTable& table) { return table.rows() - withBoth(table); }, 50, 500},
    {"相生号过滤 05 11", reset, [](RuleTable& table) { return filterTwo(table, "Option25(1)"); },
     [](const RuleTable& table) { return withBoth(table) + withNeither(table); }, 50, 500},
    {"保留号过滤 05 11", reset, [](RuleTable& table) { return filterTwo(table, "Option25(2)"); }, withBoth, 50, 500},
    {"相克分组过滤, four of nine", reset, [](RuleTable& table) { return filterNine(table, "Option35"); },
     [](const RuleTable& table) { return table.rows() - withFourOfNine(table); }, 50, 500},
    {"保留分组过滤, four of nine", reset, [](RuleTable& table) { return filterNine(table, "Option44"); },
     withFourOfNine, 50, 500},
    {"组合模版同号滤, a template of 1,107,568", fillTemplate, takeOutTemplate,
     [](const RuleTable& table) { return table.rows() - kSets; }, 100, 500},
    {"history match, 3,358 draws (历史同5)", reset, matchAll, leftByHistory, 2000, 10000, true, scaledHistorySeconds},
    {"reset all", resetThenPress,
     [](RuleTable& table) {
         reset(table);
         return table.inPlay();
     },
     all, 10, 50},
    {"invert all", reset,
     [](RuleTable& table) {
         table.states().invertAll();
         return table.inPlay();
     },
     none, 10, 50},
    {"snapshot", reset,
     [](RuleTable& table) {
         table.run(filter::snapshotStatement("zuhe"));
         return table.rows();
     },
     all, 10, 50},
    {"count bets in play", reset, [](RuleTable& table) { return table.view().countInPlay(); }, all},
    {"store after a press", storeThenPress, storeAfterPress, none, 0, 0, false},
    {"open a stored table and show", pressAndClose, openAndShow, twoEvens, 0, 1000},
};

} // namespace

std::span<const Operation> operations() {
    return kOperations;
}

void require(const char* what, std::int64_t got, std::int64_t expected) {
    if (got != expected)
        throw std::runtime_error(std::string(what) + ": counted " + std::to_string(got) + ", expected " +
                                 std::to_string(expected));
}

} // namespace bench
