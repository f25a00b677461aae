// The stability factor (稳定系数) of the simulated draw: a run stops when its ranking has held for Stabletarget
// ticks.
#pragma once

#include <array>
#include <optional>

#include <QString>

namespace selection {

struct StabilityItem {
    QStringView name;
    int wd;     ///< the factor, as it is stored
    int target; ///< ticks, when the item is chosen
};

inline constexpr std::array<StabilityItem, 10> kStabilityItems{{
    {u"meuSpd1", 50, 70},
    {u"meuSpd2", 100, 140},
    {u"meuSpd3", 200, 280},
    {u"meuSpd4", 400, 560},
    {u"meuSpd5", 600, 840},
    {u"meuSpd6", 800, 1120},
    {u"meuSpd7", 1000, 1400},
    {u"meuSpd9", 1500, 2100},
    {u"meuSpd10", 2500, 3500},
    {u"meuSpd8", 8000, 30000},
}};

/// Two factors make ticks of it, on purpose: 7 when it is loaded or chosen, 6 when the pad changes.
struct Stability {
    int Wd = 100;
    int Stabletarget = 140;
    std::optional<StabilityItem> checked = kStabilityItems[1]; ///< the item that carries the check mark

    /// Takes over a stored factor. The target is Int(7 / 100 * Wd * 20), also for 8000, which an item would have set
    /// to 30000: 无穷大 does not come back as such at the next start, and that is meant.
    void load(int wd);
    /// Takes over an item of the menu.
    void choose(const StabilityItem& item);
    /// After a change of the pad without bankers: the target is Int(6 / 100 * Wd * 20).
    void shorten();
    /// After a change of the pad with bankers: the stored factor again, its target with 6, and its item checked.
    void shorten(int wd);
};

/// The item that is checked for a factor that was loaded; nothing for 8000 and for a factor that no item has. The
/// factor 30000, which nothing stores, checks the item 无穷大.
std::optional<StabilityItem> checkedItem(int wd);

} // namespace selection
