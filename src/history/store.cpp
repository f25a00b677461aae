#include "history/store.h"

#include <algorithm>
#include <stdexcept>

#include "history/derive.h"
#include "history/draw_tables.h"
#include "history/statistics.h"

namespace history {

namespace {

/// Derives and counts the draws behind the last one of `next`, and collects their rows.
void addDraws(History& next, DrawBlock& block, std::span<const Draw> draws, const workspace::Rule& rule) {
    if (next.Lsnum + static_cast<std::int64_t>(draws.size()) > kMostDraws)
        throw std::range_error("more draws than a history holds");
    for (Draw draw : draws) {
        const int index = next.Lsnum + 1;
        if (draw[0] == 0)
            draw[0] = index;
        const Derived derived = deriveDraw(draw, next.Lshm.back(), next.Ylnow, rule);
        countDraw(next, draw, rule);
        block.add(index, draw, derived, next);
        next.Lshm.push_back(draw);
        next.derived.push_back(derived);
        next.Lsnum = index;
    }
    computeShares(next, rule);
}

/// \param next   what the history is to become, less the draws; its rows behind Lsnum are gone
/// \param whole  the tables of draws are emptied first
void store(History& history, History next, const workspace::Workspace& workspace, std::span<const Draw> draws,
           bool whole) {
    const workspace::Rule rule = ruleOf(workspace);
    DrawBlock block;
    addDraws(next, block, draws, rule);
    sql::Database& dbUser = *workspace.dbUser;
    sql::Database& dbFilnum = *workspace.dbFilnum;
    sql::Transaction bareNumbers(dbFilnum);
    sql::Transaction truth(dbUser);
    if (whole)
        for (const char* table : {"DELETE FROM [fig]", "DELETE FROM [Ylqs]", "DELETE FROM [YlqsB]"})
            dbUser.execute(table);
    block.appendTo(dbUser, dbFilnum);
    writeShares(dbUser, next, rule.reds, rule.blues);
    bareNumbers.commit();
    truth.commit();
    history = std::move(next);
}

/// A copy of the history whose rows end at Lsnum.
History copyOf(const History& history) {
    History copy = history;
    copy.Lshm.resize(static_cast<std::size_t>(history.Lsnum) + 1);
    copy.derived.resize(copy.Lshm.size());
    return copy;
}

} // namespace

workspace::Rule ruleOf(const workspace::Workspace& workspace) {
    return {std::clamp(workspace.Bitnum, 0, kMostReds), std::clamp(workspace.BitnumB, 0, kMostBlues)};
}

void storeDraw(History& history, const workspace::Workspace& workspace, const Draw& draw) {
    store(history, copyOf(history), workspace, std::span(&draw, 1), false);
}

void storeBatch(History& history, const workspace::Workspace& workspace, std::span<const Draw> draws) {
    History next = copyOf(history);
    next.Glcount = next.Lsnum;
    store(history, std::move(next), workspace, draws, false);
}

void replaceHistory(History& history, const workspace::Workspace& workspace, std::span<const Draw> draws) {
    History next;
    next.Gailvred = history.Gailvred;
    next.GailvBlue = history.GailvBlue;
    next.text = history.text;
    resetStatistics(next);
    store(history, std::move(next), workspace, draws, true);
}

} // namespace history
