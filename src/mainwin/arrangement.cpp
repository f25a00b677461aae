#include "mainwin/arrangement.h"

#include <algorithm>

#include "mainwin/main_texts.h"
#include "selection/combinations.h"

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
    return u"满 %1 %2即可排 %3"_s.arg(QString::number(kFewestReds), state.bankers > 0 ? u"拖"_s : u"红"_s,
                                      state.blues > 0 ? u"6红+1蓝"_s : u"6红"_s);
}

std::int64_t arrangementBets(const ProgramState& state) {
    return selection::combinationCount(state.reds, selection::Pad::kBetReds - state.bankers) *
           std::max(state.blues, 1);
}

QString lastBets(sql::Database& dbFilnum) {
    try {
        const std::int64_t total = dbFilnum.rowCount("zuhe");
        if (total == 0)
            return {};
        const std::int64_t left = dbFilnum.query("SELECT [idx] FROM [zuhe] WHERE [unslt] = false").count();
        return u"复选胆拖 6红+1蓝，剩余 %1 / %2 注"_s.arg(thousandsApart(left), thousandsApart(total));
    } catch (const sql::SqlError&) {
        return {}; // no table that could be called back
    }
}

QString arrangementForm(const ProgramState& state) {
    return state.blues > 0 ? QString() : u"6红球；选 1 蓝可排 6红+1蓝"_s;
}

QString arrangementCost(std::int64_t bets) {
    return u"%1 注，%2 元"_s.arg(thousandsApart(bets), thousandsApart(kYuanPerBet * bets));
}

} // namespace mainwin
