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
    case Needs::EnoughForADraw:
        return state.startEnabled ? Obstacle() : stillNeeded(std::max(1, 7 - state.reds - state.bankers), 0);
    case Needs::DrawRunning:
        return unless(state.drawRunning, u"摇奖没有进行"_s);
    case Needs::DrawBegun:
        return unless(state.drawBegun, u"摇奖还没有开始"_s);
    case Needs::DrawResult:
        return unless(state.drawResult, u"还没有摇奖结果"_s);
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

std::optional<QString> betCaption(const QString& name, int blues) {
    for (const BetCaption& entry : kBetCaptions)
        if (entry.name == name)
            return u"%1%2%3"_s.arg(entry.before, blues == 0 ? entry.redForm : entry.blueForm, entry.after);
    return std::nullopt;
}

} // namespace mainwin
