// wheeldraws: tries the built wheel databases on random draws, as their users will.
//
//   wheeldraws FOLDER [DRAWS [SEED]]      100,000 draws for each wheel
//
// It knows nothing of how wheels are made or proven: it opens a database, reads one table of each family and x y
// pair, and draws six of N + 3 numbers (so that some chosen numbers are missed). Whenever x of them are among the
// chosen, one row must have y. Banker wheels speak only of draws that hold all bankers, so these are taken as drawn.
// A guarantee of x = 7 asks for seven drawn numbers: then seven are drawn.
#include <algorithm>
#include <bit>
#include <filesystem>
#include <iostream>
#include <map>
#include <random>
#include <stdexcept>

#include "selection/wheel_tables.h"
#include "sql/database.h"

namespace {

using selection::PositionSet;

constexpr int kMisses = 3; ///< numbers in the pot that the user has not chosen

/// The largest table of each family, D and pair: the most rows to be wrong in.
std::vector<selection::WheelTable>
largestTables(const std::map<selection::WheelFamily, std::unique_ptr<sql::Database>>& databases) {
    std::map<std::tuple<selection::WheelFamily, int, int, int>, selection::WheelTable> largest;
    for (const selection::WheelTable& table : selection::wheelTables())
        if (databases.at(table.family)->hasTable(table.name))
            largest[{table.family, table.bankers, table.problem.chosen, table.problem.common}] = table;
    std::vector<selection::WheelTable> tables;
    for (const auto& [key, table] : largest)
        tables.push_back(table);
    return tables;
}

std::vector<PositionSet> rowsOf(sql::Database& database, const std::string& table) {
    std::vector<PositionSet> rows;
    for (sql::Recordset records = database.openRecordset("[" + table + "]"); !records.eof(); records.moveNext()) {
        PositionSet row = 0;
        for (int field = 0; field < records.fieldCount(); ++field)
            row |= PositionSet{1} << (sql::toInteger(records.field(field)) - 1);
        rows.push_back(row);
    }
    return rows;
}

PositionSet drawn(int numbers, int pot, std::mt19937& random) {
    PositionSet set = 0;
    while (std::popcount(set) < numbers)
        set |= PositionSet{1} << (random() % static_cast<unsigned>(pot));
    return set;
}

struct Outcome {
    int counting = 0; ///< draws in which the guarantee speaks
    int broken = 0;
};

Outcome tryOut(const selection::WheelTable& table, const std::vector<PositionSet>& rows, int draws,
               std::mt19937& random) {
    const int drags = table.problem.positions;
    const int chosen = table.problem.chosen + table.bankers;
    const int common = table.problem.common + table.bankers;
    const PositionSet mine = selection::firstPositions(drags);
    const PositionSet bankers = selection::firstPositions(table.bankers) << drags;
    const int rest = std::max(6, chosen) - table.bankers;
    Outcome outcome;
    for (int draw = 0; draw < draws; ++draw) {
        const PositionSet hits = (drawn(rest, drags + kMisses, random) & mine) | bankers;
        if (std::popcount(hits) < chosen)
            continue;
        ++outcome.counting;
        const bool served = std::any_of(rows.begin(), rows.end(),
                                        [&](PositionSet row) { return std::popcount(row & hits) >= common; });
        outcome.broken += served ? 0 : 1;
    }
    return outcome;
}

int tryAll(const std::filesystem::path& folder, int draws, unsigned seed) {
    sql::Engine engine;
    std::map<selection::WheelFamily, std::unique_ptr<sql::Database>> databases;
    for (const selection::WheelFamilyInfo& family : selection::wheelFamilies())
        databases[family.family] = engine.open(folder / family.file);
    std::mt19937 random(seed);
    int broken = 0;
    for (const selection::WheelTable& table : largestTables(databases)) {
        const std::vector<PositionSet> rows = rowsOf(*databases.at(table.family), table.name);
        const Outcome outcome = tryOut(table, rows, draws, random);
        std::cout << selection::wheelFamily(table.family).file << ' ' << table.name << ": " << rows.size()
                  << " rows, " << outcome.counting << " draws with enough hits, " << outcome.broken << " broken\n";
        broken += outcome.broken + (outcome.counting == 0 ? 1 : 0);
    }
    return broken == 0 ? 0 : 1;
}

} // namespace

int main(int count, char** words) {
    if (count < 2) {
        std::cerr << "wheeldraws FOLDER [DRAWS [SEED]]\n";
        return 2;
    }
    try {
        return tryAll(words[1], count > 2 ? std::stoi(words[2]) : 100'000,
                      count > 3 ? static_cast<unsigned>(std::stoul(words[3])) : 1U);
    } catch (const std::exception& error) {
        std::cerr << "wheeldraws: " << error.what() << '\n';
        return 2;
    }
}
