#include "filter/range_search.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "base/number_text.h"
#include "filter/history_column.h"

namespace filter {
namespace {

/// The values of a column in the draws after `from`; none when the history has no such column.
std::vector<int> valuesAfter(const history::History& history, std::string_view name, int from) {
    std::vector<int> values;
    const std::optional<HistoryColumn> column = HistoryColumn::find(name);
    if (!column)
        return values;
    const int first = std::max(from, 0) + 1;
    values.reserve(static_cast<std::size_t>(std::max(history.Lsnum - first + 1, 0)));
    for (int draw = first; draw <= history.Lsnum; ++draw)
        values.push_back(column->at(history, draw));
    return values;
}

/// Fills in the range of a row; its high bound goes into `high`.
void fillRange(WindowState& state, const Parameter& parameter, std::string& high, const history::History& history,
               int from) {
    if (const auto found = canshuRange(history, parameter.history, from, state.mode == Mode::Mean)) {
        state.row(parameter).low = found->low;
        high = found->high;
    }
}

void fillList(WindowState& state, const Parameter& parameter, const history::History& history, int from) {
    RowState& row = state.row(parameter);
    row.list = canshuTopList(history, parameter.history, from, base::val(row.count));
}

bool isSearched(const Parameter& parameter) {
    return !parameter.history.empty();
}

void fillRanges(WindowState& state, std::span<const Parameter> catalogue, const history::History& history, int from) {
    for (const Parameter& parameter : catalogue)
        if (isSearched(parameter))
            fillRange(state, parameter, state.row(parameter).high, history, from);
}

} // namespace

std::string periodCaption(int item) {
    return item > 0 ? "前" + std::to_string(periodDraws(item)) + "期" : "前所有期";
}

int searchStart(const history::History& history, int item) {
    return periodDraws(item) > 0 ? history.Lsnum - periodDraws(item) : 0;
}

std::optional<FoundRange> canshuRange(const history::History& history, std::string_view column, int from, bool mean) {
    const std::vector<int> values = valuesAfter(history, column, from);
    if (values.empty())
        return std::nullopt;
    if (mean) {
        const auto sum = std::accumulate(values.begin(), values.end(), std::int64_t{0});
        const std::string average = base::numberText(static_cast<double>(sum) / static_cast<double>(values.size()));
        return FoundRange{average, average};
    }
    const auto [low, high] = std::ranges::minmax(values);
    return FoundRange{std::to_string(low), std::to_string(high)};
}

std::string canshuTopList(const history::History& history, std::string_view column, int from, double count) {
    std::string list = " ";
    const std::vector<int> values = valuesAfter(history, column, from);
    if (values.empty())
        return list;
    const auto [low, high] = std::ranges::minmax(values);
    std::vector<int> times(static_cast<std::size_t>(high - low + 1));
    for (const int value : values)
        ++times[static_cast<std::size_t>(value - low)];
    std::vector<std::size_t> order(times.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, std::greater(), [&](std::size_t place) { return times[place]; });
    for (std::size_t taken = 0; taken < order.size() && static_cast<double>(taken) < count; ++taken)
        list += std::to_string(low + static_cast<int>(order[taken])) + " ";
    return list;
}

WindowState searchedAtOpening(WindowState state, std::span<const Parameter> catalogue,
                              const history::History& history) {
    fillRanges(state, catalogue, history, 0);
    for (const Parameter& parameter : catalogue)
        if (isSearched(parameter) && parameter.hasList())
            fillList(state, parameter, history, 0);
    return state;
}

WindowState searchedForRow(WindowState state, const Parameter& parameter, const history::History& history) {
    if (!isSearched(parameter))
        return state;
    const int from = searchStart(history, state.row(parameter).period);
    if (state.mode == Mode::List && parameter.hasList())
        fillList(state, parameter, history, from);
    else if (parameter.highOfSearch >= 0)
        fillRange(state, parameter, state.rows[static_cast<std::size_t>(parameter.highOfSearch)].high, history, from);
    else
        fillRange(state, parameter, state.row(parameter).high, history, from);
    return state;
}

WindowState searchedForAll(WindowState state, std::span<const Parameter> catalogue, const history::History& history) {
    const int from = searchStart(history, state.allPeriods);
    if (state.mode != Mode::List) {
        fillRanges(state, catalogue, history, from);
        return state;
    }
    for (const Parameter& parameter : catalogue)
        if (isSearched(parameter) && parameter.hasList() && parameter.listFromAllPeriods)
            fillList(state, parameter, history, from);
    return state;
}

} // namespace filter
