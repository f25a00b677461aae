#include "mainwin/windows/draw_desk.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace mainwin {

DrawDesk::DrawDesk(MainContext& context) : m_context(context) {
    stability.load(std::max(0, context.settings.number(u"Initial"_s, u"Wd"_s, u"100"_s)));
    m_checked = checkedItem(stability.Wd);
    for (const StabilityItem& item : kStabilityItems) {
        const QString name = item.name.toString();
        context.commands.on(name, [this, item](int) { choose(item); });
        context.commands.mark(name, [this, item](int) { return m_checked && m_checked->name == item.name; });
    }
    context.commands.mark(u"meuDanxuan"_s, [this](int reds) { return reds == m_drawReds; });
    connect(&context.pad, &selection::Pad::redsCleared, this, [this] { m_drawReds = selection::Pad::kBetReds; });
}

void DrawDesk::choose(const StabilityItem& item) {
    stability.choose(item);
    m_checked = item;
    m_context.settings.set(u"Initial"_s, u"Wd"_s, stability.Wd);
}

} // namespace mainwin
