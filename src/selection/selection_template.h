// The selection template: steps that choose numbers, kept in table Xhmb and replayed in one go on the pad.
//
// A replay adds to the pad and clears nothing. It ranks on the whole history, whatever range the menus were given.
// Everything is read before the first number is pressed, so a statement that fails leaves the pad as it was.
// The kinds of steps are the rows of kStepKinds; their codes are stored, so a row keeps its place.
#pragma once

#include <vector>

#include "selection/ranked_numbers.h"
#include "workspace/workspace.h"

namespace selection {

/// A kind of step; its code is its place in kStepKinds.
struct StepKind {
    QStringView text;
    const RankedSelection* ranked; ///< nullptr: the reds of a saved selection
};

// add a kind of step here, at the end
inline constexpr StepKind kStepKinds[] = {
    {u"红球多个高频号码", &kRankedSelections[0]},
    {u"红球多个低频号码", &kRankedSelections[1]},
    {u"红球遗漏高次号码", &kRankedSelections[2]},
    {u"红球遗漏低次号码", &kRankedSelections[3]},
    {u"添加历史选号号码", nullptr},
    {u"蓝球多个高频号码", &kRankedSelections[4]},
    {u"蓝球多个低频号码", &kRankedSelections[5]},
    {u"蓝球遗漏高次号码", &kRankedSelections[6]},
    {u"蓝球遗漏低次号码", &kRankedSelections[7]},
};

inline constexpr int kSavedStep = 4;
static_assert(!kStepKinds[kSavedStep].ranked);

/// A row of Xhmb.
struct TemplateStep {
    int Idx = 0; ///< gaps stay where steps were deleted
    int cmd = 0; ///< place in kStepKinds
    int nmb = 0; ///< how many numbers, how many draws of absence, or the Idx of a saved selection
};

/// What the step of this code is called; a code that no kind has reads "未知步骤 {cmd}".
QString stepText(int cmd);

/// Makes sure of Xhmb. When filnum.mdb is not found (error 3024) it is opened again with its table canshu.
/// \throws sql::SqlError for any other error, and for a file that cannot be opened again
void openTemplate(sql::Engine& engine, workspace::Workspace& workspace);

/// All steps, first to last. \throws sql::SqlError
std::vector<TemplateStep> templateSteps(sql::Database& dbFilnum);
/// Behind the last step. \throws sql::SqlError
void addStep(sql::Database& dbFilnum, int cmd, int nmb);
/// \throws sql::SqlError
void deleteStep(sql::Database& dbFilnum, int Idx);

/// What a replay has pressed.
struct Replayed {
    int steps = 0;
    int reds = 0;
    int blues = 0;
};

/// Runs the steps on the pad; steps of an unknown code are passed over. \throws sql::SqlError
Replayed replayTemplate(Pad& pad, const workspace::Workspace& workspace, int Lsnum);

} // namespace selection
