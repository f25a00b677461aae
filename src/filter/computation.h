// How canshu is filled where one fixed statement will not do: parameters that depend on the ticks, and those that
// need per-number logic.
//
// Each function runs for the whole table, filtered rows included, with errors passed over one statement at a time: a
// refused statement leaves canshu as it was.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "filter/run_settings.h"
#include "history/history.h"
#include "sql/database.h"

namespace filter {

/// What a run works on. Everything referred to outlives the run.
struct Workbench {
    sql::Database& database;
    std::string_view table;
    const history::History& history;
    int Bitnum;
    int reds = history::kRedsDrawn; ///< red columns of a row: fig1 to fig{reds}, 6 or 7
    bool blue = true;               ///< the column after them is a blue number
};

using Compute = void (*)(const Workbench&, const RunSettings&);

/// Fills in {table}, {h} (half of Bitnum), {last} (the last draw's reds), {w1} to {w7} (a tick as 1 or 0), {w1w2} to
/// {w5w6} (both ticks). Other text stays as it is.
std::string fillTemplate(std::string_view statement, const Workbench& bench, const RunSettings& settings);

/// 最大差值 over the ticked positions. With exactly two the statement has a bracket too many, is refused, and canshu
/// keeps what the parameter before left there; with more than three one further statement names a column that does
/// not exist. Both are deliberate.
void computeLargestGap(const Workbench& bench, const RunSettings& settings);
/// 首尾差值: last ticked position less first; without a tick nothing runs.
void computeSpan(const Workbench& bench, const RunSettings& settings);
/// 自定区间 (reds in the interval) or, in list mode, 指定号码 (reds in the given list, rows in play only).
void computeInterval(const Workbench& bench, const RunSettings& settings);

void computeAcValue(const Workbench& bench, const RunSettings& settings);
void computeSameLastDigits(const Workbench& bench, const RunSettings& settings);
void computeOmissionSum(const Workbench& bench, const RunSettings& settings);
void computeOmissionRange(const Workbench& bench, const RunSettings& settings);

} // namespace filter
