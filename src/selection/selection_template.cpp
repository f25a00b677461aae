#include "selection/selection_template.h"

#include <iterator>
#include <limits>
#include <optional>
#include <string>

#include "selection/saved_selections.h"
#include "workspace/paths.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

const StepKind* kindOf(int cmd) {
    return cmd >= 0 && cmd < static_cast<int>(std::size(kStepKinds)) ? &kStepKinds[cmd] : nullptr;
}

sql::Database& filnumOf(const workspace::Workspace& workspace) {
    if (!workspace.dbFilnum)
        throw sql::SqlError(sql::error::kFileNotFound, "filnum.mdb");
    return *workspace.dbFilnum;
}

/// What a step offers the pad; nothing for an unknown kind.
std::optional<RankedPick> pickStep(const Pad& pad, const workspace::Workspace& workspace, int Lsnum,
                                   const TemplateStep& step) {
    const StepKind* kind = kindOf(step.cmd);
    if (!kind)
        return std::nullopt;
    if (kind->ranked)
        return pickNumbers({*workspace.dbUser, Lsnum, {}}, *kind->ranked, step.nmb,
                           highestNumber(pad, kind->ranked->colour));
    RankedPick pick{Colour::Red, {}, std::numeric_limits<int>::max()};
    if (step.nmb != 0)
        for (const int red : savedReds(*workspace.dbNumsave, step.nmb))
            if (red >= 1 && red <= pad.reds())
                pick.numbers.push_back(red);
    return pick;
}

} // namespace

QString stepText(int cmd) {
    const StepKind* kind = kindOf(cmd);
    return kind ? kind->text.toString() : u"未知步骤 %1"_s.arg(cmd);
}

void openTemplate(sql::Engine& engine, workspace::Workspace& workspace) {
    try {
        filnumOf(workspace).openRecordset("Xhmb");
    } catch (const sql::SqlError& failed) {
        if (failed.number() != sql::error::kFileNotFound)
            throw;
        workspace.dbFilnum = engine.open(workspace::underFolder(
            workspace.folder, workspace::userFileFragment(workspace.Username, u"filnum.mdb"_s)));
        workspace.dbFilnum->openRecordset("canshu");
    }
}

std::vector<TemplateStep> templateSteps(sql::Database& dbFilnum) {
    std::vector<TemplateStep> steps;
    sql::Recordset rows = dbFilnum.openRecordset("Xhmb");
    for (; !rows.eof(); rows.moveNext())
        steps.push_back({static_cast<int>(sql::toInteger(rows.field("Idx"))),
                         static_cast<int>(sql::toInteger(rows.field("cmd"))),
                         static_cast<int>(sql::toInteger(rows.field("nmb")))});
    return steps;
}

void addStep(sql::Database& dbFilnum, int cmd, int nmb) {
    const std::vector<TemplateStep> steps = templateSteps(dbFilnum);
    sql::Recordset rows = dbFilnum.openRecordset("Xhmb");
    rows.addNew();
    rows.set("Idx", std::int64_t{steps.empty() ? 0 : steps.back().Idx} + 1);
    rows.set("cmd", std::int64_t{cmd});
    rows.set("nmb", std::int64_t{nmb});
    rows.update();
}

void deleteStep(sql::Database& dbFilnum, int Idx) {
    dbFilnum.execute("DELETE FROM [Xhmb]  WHERE [IDX] = " + std::to_string(Idx));
}

Replayed replayTemplate(Pad& pad, const workspace::Workspace& workspace, int Lsnum) {
    std::vector<RankedPick> picks;
    for (const TemplateStep& step : templateSteps(filnumOf(workspace)))
        if (std::optional<RankedPick> pick = pickStep(pad, workspace, Lsnum, step))
            picks.push_back(std::move(*pick));
    Replayed done{static_cast<int>(picks.size())};
    for (const RankedPick& pick : picks)
        (pick.colour == Colour::Red ? done.reds : done.blues) += pressNumbers(pad, pick);
    return done;
}

} // namespace selection
