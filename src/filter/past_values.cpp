#include "filter/past_values.h"

#include <algorithm>

#include "filter/history_column.h"

namespace filter {

std::optional<PastValues> pastValues(const history::History& history, const Parameter& parameter, double low,
                                     double high) {
    const std::optional<HistoryColumn> column = HistoryColumn::find(parameter.history);
    if (!column || history.Lsnum == 0)
        return std::nullopt;
    const int first = column->at(history, 1);
    PastValues past{.latest = {}, .seen = {first, first}, .draws = history.Lsnum};
    for (int draw = 1; draw <= history.Lsnum; ++draw) {
        const int value = column->at(history, draw);
        past.seen = {std::min(past.seen.low, value), std::max(past.seen.high, value)};
        past.inside += value >= low && value <= high;
    }
    for (int draw = history.Lsnum; draw > std::max(0, history.Lsnum - kLatestDraws); --draw)
        past.latest.push_back(column->at(history, draw));
    return past;
}

} // namespace filter
