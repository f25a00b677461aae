#include "mainwin/menu_rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

struct BetCaption {
    QStringView name;
    QStringView before; ///< the caption up to the form of the bets
    QStringView redForm;
    QStringView blueForm;
    QStringView after;
};

constexpr QStringView kSixRed = u"6红球排列";
constexpr QStringView kSixBlue = u"6红+1蓝排列";

constexpr BetCaption kBetCaptions[] = {
    {u"meuAgn", u"红球摇奖复选选择（", kSixRed, kSixBlue, u"）(&M)"},
    {u"mnuDantuo", u"红球摇奖胆拖选择（", kSixRed, kSixBlue, u"）(&T)"},
    {u"mnuRt", u"红球基本旋转矩阵（", kSixRed, kSixBlue, u"）(&R)"},
    {u"mnuExra", u"红球扩展旋转矩阵（", kSixRed, kSixBlue, u"）(&E)"},
    {u"mnuQnjz", u"红球超级旋转矩阵（", kSixRed, kSixBlue, u"）(&A)"},
    {u"mnuDtxj", u"红球胆拖旋转矩阵（", kSixRed, kSixBlue, u"）(&D)"},
    {u"mnuFuxj", u"红球复7式旋转矩阵（", u"7红球排列", u"7红+1蓝排列", u"）(&F)"},
    {u"mnuLst", u"红球复选组合排列（", kSixRed, kSixBlue, u"）(&L)"},
    {u"mnuDtlst", u"红球胆拖组合排列（", kSixRed, kSixBlue, u"）(&S)"},
};

Obstacle unless(bool holds, const QString& words) {
    return holds ? Obstacle() : Obstacle{{}, words};
}

/// Numbers that are missing, none where there are enough. Reds are counted without the bankers.
Obstacle stillNeeded(int reds, int bankers) {
    Obstacle missing;
    if (reds > 0)
        missing.needed << u"%1 红"_s.arg(reds);
    if (bankers > 0)
        missing.needed << u"%1 胆"_s.arg(bankers);
    return missing;
}

constexpr int kFewestForADraw = 7; // reds and bankers together

Obstacle startObstacle(const ProgramState& state) {
    const int missing = kFewestForADraw - state.reds - state.bankers;
    if (missing > 0)
        return stillNeeded(missing, 0);
    if (state.drawRunning)
        return {{}, u"摇奖正在进行"_s};
    return {{}, u"要选多于 %1 个红球才有可摇的"_s.arg(state.drawPicks)};
}

} // namespace

QString Obstacle::text() const {
    return needed.isEmpty() ? words : u"还需：%1"_s.arg(needed.join(u"、"_s));
}

Obstacle obstacle(Needs needs, const ProgramState& state, int index) {
    switch (needs) {
    case Needs::Nothing:
        return {};
    case Needs::History:
        return unless(state.draws > 0, u"还没有历史：先读取或输入"_s);
    case Needs::DrawStart:
        return state.draw.start ? Obstacle() : startObstacle(state);
    case Needs::DrawPause:
        return unless(state.draw.pause, u"摇奖没有进行"_s);
    case Needs::DrawReset:
        return unless(state.draw.reset, u"摇奖还没有开始"_s);
    case Needs::DrawResult:
        return unless(state.draw.arrange,
                      state.drawRunning ? u"摇奖正在进行：等到结果或先暂停"_s : u"还没有摇奖结果"_s);
    case Needs::DrawAndArrange:
        return state.draw.start || state.draw.arrange ? Obstacle() : startObstacle(state);
    case Needs::SevenReds:
        return stillNeeded(7 - state.reds, 0);
    case Needs::EightReds:
        return stillNeeded(8 - state.reds, 0);
    case Needs::Bankers:
        return stillNeeded(0, 1 - state.bankers);
    case Needs::SevenRedsAndBankers:
        return stillNeeded(7 - state.reds, 1 - state.bankers);
    case Needs::EightRedsAndBankers:
        return stillNeeded(8 - state.reds, 1 - state.bankers);
    case Needs::BasicWheel:
        return unless(state.reds == index && index > 8,
                      index > 8 ? u"要选 %1 红"_s.arg(index) : u"%1 红没有基本矩阵"_s.arg(index));
    case Needs::ExtendedWheel:
        return unless(state.reds == index, u"要选 %1 红"_s.arg(index));
    }
    return {};
}

std::optional<QString> drawCaption(const QString& name, const selection::DrawControls& draw) {
    if (name == u"ComSta")
        return draw.goOn ? u"继续(&G)"_s : u"开始(&G)"_s;
    if (name == u"meuSta")
        return draw.goOn ? u"继续(&G)"_s : u"开始(&S)"_s;
    return std::nullopt;
}

std::optional<QString> drawToolTip(const QString& name, const selection::DrawControls& draw) {
    if (name == u"sta")
        return draw.goOn ? u"继续摇奖分析"_s : u"开始摇奖分析"_s;
    return std::nullopt;
}

std::optional<QString> betCaption(const QString& name, int blues) {
    for (const BetCaption& entry : kBetCaptions)
        if (entry.name == name)
            return u"%1%2%3"_s.arg(entry.before, blues == 0 ? entry.redForm : entry.blueForm, entry.after);
    return std::nullopt;
}

} // namespace mainwin
