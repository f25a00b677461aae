// The number filters and the group filters: bets go or stay by numbers that the user gives.
//
// They search the text of all numbers of a bet (numstring.h), so a blue matches like a red. Each takes the snapshot;
// what the database refuses is passed over. The history filters are in history_match.h, the filter by the group
// template in group_template.h.
#pragma once

#include <span>
#include <string>

#include "filter/computation.h"
#include "filter/step.h"

namespace filter {

/// 相克: bets with all the numbers go. 相生: bets with some of them but not all go. 保留: bets without all of them
/// go. 相生 takes one statement for all numbers; every column is left as one for each leaves it.
void filterNumbers(const Workbench& bench, const SuperFilter& filter, std::span<const int> numbers);
/// The same with a statement for each number: what the one is tested against.
void filterNumbersByStatements(const Workbench& bench, const SuperFilter& filter, std::span<const int> numbers);

/// 相克分组: bets with so many of the numbers go; then every bet that is out and lacks a banker comes back, whatever
/// took it out. 保留分组: bets with fewer go; bankers change only the reason of bets that are out. Both deliberate.
/// The hits are counted in one pass, where one can tell them; every column is left as the statements leave it.
void filterGroups(const Workbench& bench, const FilterGroups& groups);
/// The same with a statement for each number: what the pass is tested against.
void filterGroupsByStatements(const Workbench& bench, const FilterGroups& groups);

/// Adds the columns that super filters use and the table of seven reds lacks.
void addSuperColumns(const Workbench& bench);

/// "历史同5过滤 前 100 期", "相克号过滤 03 17 28", "保留分组过滤 8 个，3 个一组，胆 05"
std::string superText(const MatchHistory& step);
std::string superText(const FilterNumbers& step);
std::string superText(const FilterGroups& step);

} // namespace filter
