#include "mainwin/stability.h"

#include <cmath>

namespace mainwin {

namespace {

constexpr int kEndless = 8000;          // what 无穷大 stores
constexpr int kEndlessIfLoaded = 30000; // what would check it again

} // namespace

void Stability::load(int wd) {
    Wd = wd;
    Stabletarget = static_cast<int>(std::floor(7.0 / 100 * wd * 20));
}

void Stability::choose(const StabilityItem& item) {
    Wd = item.wd;
    Stabletarget = item.target;
}

std::optional<StabilityItem> checkedItem(int wd) {
    for (const StabilityItem& item : kStabilityItems)
        if (item.wd == kEndless ? wd == kEndlessIfLoaded : wd == item.wd)
            return item;
    return std::nullopt;
}

} // namespace mainwin
