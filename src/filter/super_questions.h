// What a super filter asks before it runs, as a chain of questions that ends in a step.
//
// Every question treats failures alike: what is no number is told ("请输入数字"), a number out of range is told with
// its limits, both under "输入错误" with OK and Cancel. OK asks again; Cancel, there or at a question, and an empty
// answer end the chain with nothing. A bad banker sends back to the numbers of the group.
#pragma once

#include <optional>

#include "filter/member.h"
#include "filter/step.h"
#include "workspace/dialogs.h"

namespace filter {

struct QuestionContext {
    const FilterMember& member;
    int Bitnum; ///< highest red number
    int Lsnum;  ///< draws of the history, proposed as the number to search
};

/// \return nothing when the user ended it; the filter by the group template asks nothing
std::optional<Step> askSuperFilter(const SuperFilter& filter, const QuestionContext& context,
                                   workspace::Dialogs& dialogs);

} // namespace filter
