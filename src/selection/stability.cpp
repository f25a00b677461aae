#include "selection/stability.h"

#include <cmath>

namespace selection {

namespace {

constexpr int kEndless = 8000;          // what 无穷大 stores
constexpr int kEndlessIfLoaded = 30000; // what would check it again

int ticksOf(double factor, int wd) {
    return static_cast<int>(std::floor(factor / 100 * wd * 20));
}

} // namespace

void Stability::load(int wd) {
    Wd = wd;
    Stabletarget = ticksOf(7, wd);
    checked = checkedItem(wd);
}

void Stability::choose(const StabilityItem& item) {
    Wd = item.wd;
    Stabletarget = item.target;
    checked = item;
}

void Stability::shorten() {
    Stabletarget = ticksOf(6, Wd);
}

void Stability::shorten(int wd) {
    Wd = wd;
    checked = checkedItem(wd);
    shorten();
}

std::optional<StabilityItem> checkedItem(int wd) {
    for (const StabilityItem& item : kStabilityItems)
        if (item.wd == kEndless ? wd == kEndlessIfLoaded : wd == item.wd)
            return item;
    return std::nullopt;
}

} // namespace selection
