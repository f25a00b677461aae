#include "filter/tolerance.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/number_text.h"
#include "filter/integrated_run.h"

namespace filter {
namespace {

/// What a run counts: a tick is one condition, and parity boxes that differ are one more.
struct Conditions {
    int ranges = 0;
    int parities = 0;
    int all() const { return ranges + parities; }
};

Conditions conditionsOf(std::span<const Parameter> catalogue, const WindowState& state, bool parity) {
    Conditions conditions;
    for (const Parameter& parameter : catalogue) {
        const RowState& row = state.row(parameter);
        if (!row.ticked)
            continue;
        ++conditions.ranges;
        if (parity && parameter.isPosition() && state.mode != Mode::List && row.odd != row.even)
            ++conditions.parities;
    }
    return conditions;
}

std::string count(int number) {
    return std::to_string(number);
}

/// Bets that are outside at most (or, inverted, more than) `allowed` of the conditions stay.
std::string keptOutside(const Conditions& conditions, int allowed, bool inverted) {
    const std::string of = count(conditions.all()) + (conditions.parities > 0 ? " 个条件（含奇偶）" : " 个范围");
    if (inverted)
        return of + (allowed == 0 ? "没有全部满足的注留下" : "中不满足的多于 " + count(allowed) + " 个的注留下");
    if (allowed == 0)
        return of + "全部满足的注留下";
    return of + "中至少满足 " + count(conditions.all() - allowed) + " 个的注留下";
}

/// Bets that are inside at most (or, inverted, more than) `allowed` of the ranges stay.
std::string keptInside(const Conditions& conditions, int allowed, bool inverted) {
    const std::string of = count(conditions.ranges) + " 个范围";
    const std::string note =
        conditions.parities > 0 ? "（" + count(conditions.parities) + " 个奇偶不符时也各算落入 1 个）" : "";
    if (inverted)
        return of + "中至少满足 " + count(allowed + 1) + " 个的注留下" + note;
    if (allowed == 0)
        return of + "一个也不落入的注留下" + note;
    return of + "中至多落入 " + count(allowed) + " 个的注留下" + note;
}

} // namespace

int toleranceTicks(const WindowState& state) {
    const auto counted = std::span(state.rows).first(WindowState::kRows - 1);
    return static_cast<int>(std::ranges::count(counted, true, &RowState::ticked));
}

std::string countAfterTick(const WindowState& state) {
    const double count = std::floor(toleranceTicks(state) * base::val(state.tolerancePercent) / 100 + 0.5);
    return count != 0 ? base::numberText(count) : state.toleranceCount;
}

std::string countAfterPercent(const WindowState& state) {
    return base::numberText(std::floor(base::val(state.tolerancePercent) / 100 * toleranceTicks(state)));
}

std::optional<std::string> percentAfterCount(const WindowState& state) {
    const int ticks = toleranceTicks(state);
    if (ticks == 0)
        return std::nullopt;
    return base::numberText(std::floor(base::val(state.toleranceCount) / ticks * 100));
}

int toleranceOf(const WindowState& state) {
    return state.tolerance ? base::wholeWithin(base::val(state.toleranceCount), INT16_MIN, INT16_MAX) : 0;
}

std::string keptByRun(std::span<const Parameter> catalogue, const WindowState& state, bool offersTolerance) {
    const int allowed = offersTolerance ? toleranceOf(state) : 0;
    const bool inverted = inverts(state);
    const Conditions conditions = conditionsOf(catalogue, state, offersTolerance);
    const std::string ticked = conditions.ranges == 0 ? "没有勾选参数：" : "容错 " + count(allowed) + " 个：";
    if (allowed >= conditions.all()) // no bet can be counted more often
        return ticked + (inverted ? "所有注都将滤去" : "所有注都留下");
    if (allowed < 0) // every bet is counted more often
        return ticked + (inverted ? "所有注都留下" : "所有注都将滤去");
    return integratedBaoliu(state) == kKeep ? keptOutside(conditions, allowed, inverted)
                                            : keptInside(conditions, allowed, inverted);
}

} // namespace filter
