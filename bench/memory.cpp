#include "memory.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <numeric>
#include <string>

#include "expected.h"
#include "filter/integrated_run.h"
#include "rule_table.h"

namespace bench {
namespace {

constexpr long kMostWithReasons = 4096; // MiB: texts of 2 GiB, and what is there beside them

template <class Holds> int countIf(const Reds& reds, Holds holds) {
    return static_cast<int>(std::count_if(reds.begin(), reds.end(), holds));
}

/// A press and its value worked out the plain way.
struct Press {
    const char* option;
    int low;
    int high;
    int (*value)(const Reds&);
};

const Press kPresses[] = {
    {"Option4", 1, 5, [](const Reds& reds) { return countIf(reds, [](int red) { return red % 2 == 0; }); }},
    {"Option5", 1, 5, [](const Reds& reds) { return countIf(reds, [](int red) { return red >= 17; }); }},
    {"Option23", 60, 145, [](const Reds& reds) { return std::accumulate(reds.begin(), reds.end(), 0); }},
    {"Option12", 0, 4, [](const Reds& reds) { return countIf(reds, [](int red) { return red % 3 == 0; }); }},
    {"Option9", 0, 4, [](const Reds& reds) { return countIf(reds, [](int red) { return red <= 11; }); }},
    {"Option13", 1, 15, [](const Reds& reds) { return reds[0]; }},
    {"Option18", 15, 33, [](const Reds& reds) { return reds[5]; }},
    {"Option7", 12, 31, [](const Reds& reds) { return reds[5] - reds[0]; }},
    {"Option39", 12, 45,
     [](const Reds& reds) {
         return std::accumulate(reds.begin(), reds.end(), 0, [](int sum, int red) { return sum + red % 10; });
     }},
    {"Option41", 5, 125,
     [](const Reds& reds) {
         return std::accumulate(reds.begin(), reds.end(), 0, [](int sum, int red) { return sum + red % 2 * red; });
     }},
};
static_assert(std::size(kPresses) == 10);

std::int64_t survivingSets() {
    std::int64_t sets = 0;
    forEachSet([&sets](const Reds& reds) {
        sets += std::all_of(std::begin(kPresses), std::end(kPresses), [&](const Press& press) {
            const int value = press.value(reds);
            return value >= press.low && value <= press.high;
        });
    });
    return sets;
}

/// The most memory that this process ever held, in MiB.
long mostMemory() {
    std::ifstream status("/proc/self/status");
    std::string word;
    long kibibytes = 0;
    while (status >> word)
        if (word == "VmHWM:")
            status >> kibibytes;
    return kibibytes / 1024;
}

} // namespace

bool printMemoryOfTenPresses(int blues) {
    RuleTable table(sql::Executor::Column, blues);
    std::int64_t left = 0;
    for (const Press& press : kPresses)
        left = table.press(press.option,
                           {.low = std::to_string(press.low), .high = std::to_string(press.high), .list = {}});
    table.database().store();
    const long most = mostMemory();
    const std::int64_t expected = survivingSets() * blues;
    if (left != expected || left == 0) {
        std::fprintf(stderr, "ten presses: counted %lld, expected %lld\n", static_cast<long long>(left),
                     static_cast<long long>(expected));
        return false;
    }
    const long limit = blues == 1 ? 400 : 2048;
    std::printf("| %lld rows, ten presses and a store (%lld bets left) | %ld MiB | %s %ld MiB |\n",
                static_cast<long long>(table.rows()), static_cast<long long>(left), most,
                most <= limit ? "✓ under" : "✗ over", limit);
    return true;
}

bool printMemoryOfReasons(int blues) {
    RuleTable table(sql::Executor::Column, blues);
    filter::WindowState state = filter::defaultState(filter::sixAndBlueCatalogue());
    for (const filter::Parameter& parameter : filter::sixAndBlueCatalogue())
        state.row(parameter) = {.low = "9000", .high = "9999", .count = {}, .list = {}, .ticked = true};
    std::int16_t Baoliu = filter::kKeep;
    filter::runIntegrated(RuleTable::member(), table.workbench(), state, Baoliu);
    const long most = mostMemory();
    const std::int64_t left = table.inPlay();
    std::printf("| %lld rows, %zu reasons for every bet | %ld MiB | %s %ld MiB |\n",
                static_cast<long long>(table.rows()), filter::sixAndBlueCatalogue().size(), most,
                most <= kMostWithReasons ? "✓ under" : "✗ over", kMostWithReasons);
    return left == 0;
}

} // namespace bench
