#include "mainwin/menu_rules.h"

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

} // namespace

bool allowed(Needs needs, const ProgramState& state, int index) {
    switch (needs) {
    case Needs::Nothing:
        return true;
    case Needs::History:
        return state.draws > 0;
    case Needs::EnoughForADraw:
        return state.startEnabled;
    case Needs::DrawRunning:
        return state.drawRunning;
    case Needs::DrawBegun:
        return state.drawBegun;
    case Needs::DrawResult:
        return state.drawResult;
    case Needs::SevenReds:
        return state.reds > 6;
    case Needs::EightReds:
        return state.reds > 7;
    case Needs::Bankers:
        return state.bankers > 0;
    case Needs::SevenRedsAndBankers:
        return state.reds > 6 && state.bankers > 0;
    case Needs::EightRedsAndBankers:
        return state.reds > 7 && state.bankers > 0;
    case Needs::BasicWheel:
        return state.reds == index && index > 8;
    case Needs::ExtendedWheel:
        return state.reds == index;
    }
    return false;
}

std::optional<QString> betCaption(const QString& name, int blues) {
    for (const BetCaption& entry : kBetCaptions)
        if (entry.name == name)
            return u"%1%2%3"_s.arg(entry.before, blues == 0 ? entry.redForm : entry.blueForm, entry.after);
    return std::nullopt;
}

} // namespace mainwin
