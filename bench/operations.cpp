#include "operations.h"

#include <map>
#include <stdexcept>
#include <string>

#include "expected.h"
#include "figures.h"

namespace bench {
namespace {

constexpr std::int64_t kTwoEvens = 285600;   // sets with two even reds: C(16, 2) * C(17, 4)
constexpr std::int64_t kAcOfEight = 339540;  // sets with AC value 8
constexpr std::int64_t kWithTwoReds = 31465; // sets with two given reds: C(31, 4)
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

/// Takes out the bets that hold both 05 and 11.
std::int64_t numberFilter(RuleTable& table) {
    table.run("UPDATE [zuhe] SET [preunslt]=[unslt]");
    table.run(
        "UPDATE [zuhe] SET [Numstring]= format([fig1],\"00\")  & Chr(32) & format([fig2],\"00\")  & Chr(32) & "
        "format([fig3],\"00\")  & Chr(32) & format([fig4],\"00\")   & Chr(32) & format([fig5],\"00\")   & Chr(32) "
        "& format([fig6],\"00\")");
    table.run("UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"相克号过滤\" WHERE [unslt]=false AND [NumString] LIKE "
              "\"*05**11*\"");
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
    {"number filter on Numstring (05 and 11)", reset, numberFilter,
     [](const RuleTable& table) { return (kSets - kWithTwoReds) * table.blues(); }, 50, 500},
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
