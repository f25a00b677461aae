// The search through the history that fills in a filter window's ranges and lists.
//
// canshuRange() and canshuTopList() look at one column of the history in the latest draws: the smallest and largest
// value, the average, or the values that came most often. The functions below them do what the window does with them:
// when it opens, when a period is picked in a row, and when one is picked for all rows together. Each takes the
// controls as they are and gives them back filled in; a column that the history lacks, or a history without draws,
// leaves ranges as they are and empties lists to one blank. A parameter without a column's name is left alone.
//
// Nothing is queried and nothing kept: a column is walked through where the history holds it in memory.
// Cost: with 3,400 draws about 20 µs a column, under 2 ms for all rows of a window (bench/search_bench).
#pragma once

#include <optional>
#include <string>

#include "filter/window_state.h"
#include "history/history.h"

namespace filter {

// The items of each period box (Combo1): all draws, then the latest 10, 20, … 200.
inline constexpr int kPeriods = 21;
inline constexpr int kPeriodStep = 10;
inline constexpr std::string_view kPeriodPrompt = "所有期"; ///< shown while none is picked
inline constexpr std::string_view kPeriodHint = "选择检索期数范围来检索历史号码参数最值或均值差幅自动设置过滤条件";

/// What an item says: "前所有期", "前10期".
std::string periodCaption(int item);
/// How many draws an item stands for; 0: all of them.
constexpr int periodDraws(int item) {
    return item > 0 ? item * kPeriodStep : 0;
}
/// The number of the draw before the first one that counts: Lsnum less the draws of the item, and 0 for all of them.
/// Negative for a period longer than the history, which again is all of it.
int searchStart(const history::History& history, int item);

/// The two bounds as a text box shows them.
struct FoundRange {
    std::string low;
    std::string high;
    bool operator==(const FoundRange&) const = default;
};

/// Smallest and largest value of a column in the draws after `from`; with `mean` both bounds are the average.
/// The margin around the average is 0 whatever the percentage beside 均值差幅 says: deliberate. A keep filter then
/// passes only what equals the average exactly.
/// \return nothing when no draw counts or the history has no such column
std::optional<FoundRange> canshuRange(const history::History& history, std::string_view column, int from, bool mean);

/// The values of a column that came most often in the draws after `from`, the smaller of equals first: a blank, then
/// each with a blank behind it. Every whole number between the smallest and the largest value is a value, those that
/// never came last.
/// \param count  how many at most
std::string canshuTopList(const history::History& history, std::string_view column, int from, double count);

/// When a window opens, after its table is filled: every range from all draws, then every list.
WindowState searchedAtOpening(WindowState state, std::span<const Parameter> catalogue,
                              const history::History& history);

/// A period was picked in the row of `parameter` (RowState::period): its list in list mode, else its range. The high
/// bound may go to another row (Parameter::highOfSearch).
WindowState searchedForRow(WindowState state, const Parameter& parameter, const history::History& history);

/// A period was picked for all rows (WindowState::allPeriods): every list in list mode, but for one
/// (Parameter::listFromAllPeriods), else every range.
WindowState searchedForAll(WindowState state, std::span<const Parameter> catalogue, const history::History& history);

} // namespace filter
