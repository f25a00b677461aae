#include "mainwin/arrangement.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kFewestReds = 7; // without the bankers
constexpr qint64 kYuanPerBet = 2;

} // namespace

QString arrangementCommand(const ProgramState& state) {
    return state.bankers > 0 ? u"mnuDtlst"_s : u"mnuLst"_s;
}

QString arrangementOutlook(const ProgramState& state) {
    if (state.reds < kFewestReds)
        return u"满 %1 %2即可排 6红+1蓝"_s.arg(kFewestReds).arg(state.bankers > 0 ? u"拖"_s : u"红"_s);
    return u"选 1 蓝即可排 6红+1蓝"_s;
}

QString arrangementCost(int bets) {
    const QLocale plain(QLocale::Chinese); // thousands apart
    return u"%1 注，%2 元"_s.arg(plain.toString(bets), plain.toString(kYuanPerBet * bets));
}

} // namespace mainwin
