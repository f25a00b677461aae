#include "filter/window_state.h"

#include "filter/parameter_run.h"

namespace filter {

WindowState defaultState(std::span<const Parameter> catalogue) {
    WindowState state;
    for (const Parameter& parameter : catalogue) {
        RowState& row = state.row(parameter);
        row.low = std::to_string(parameter.defaults.low);
        row.high = std::to_string(parameter.defaults.high);
        if (parameter.boxes.count >= 0)
            row.count = std::to_string(parameter.defaults.count);
        if (parameter.isInterval()) {
            state.intervalAbove = "0";
            state.intervalTo = "9";
        }
    }
    state.toleranceCount = "1";
    state.tolerancePercent = "10";
    state.percent = "100";
    return state;
}

std::string_view captionIn(const Parameter& parameter, const WindowState& state) {
    return parameter.isInterval() && state.mode == Mode::List && !state.listsLocked ? kPickedNumbersCaption
                                                                                    : parameter.caption;
}

RunSettings runSettings(const WindowState& state, std::int16_t Baoliu) {
    return {.mode = state.mode,
            .Baoliu = Baoliu,
            .ticked = state.weights,
            .intervalAbove = state.intervalAbove,
            .intervalTo = state.intervalTo,
            .pickedNumbers = state.pickedNumbers};
}

RowInput rowInput(const WindowState& state, const Parameter& parameter) {
    const RowState& row = state.row(parameter);
    return {.low = row.low, .high = row.high, .list = row.list, .odd = row.odd, .even = row.even};
}

} // namespace filter
