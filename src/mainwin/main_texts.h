// The texts and figures that the main window shows of the history.
#pragma once

#include <cstdint>

#include <QString>

#include "history/history.h"

namespace mainwin {

/// "在右输入 {next} 历史号码:", next being the last issue number plus 1; 1 for an empty history. Empty when there is
/// none.
QString nextDrawText(const history::History& history);

/// "17,721,088"
QString thousandsApart(std::int64_t number);

/// "01的概率:"
QString shareCaption(int number);
/// A share in percent with two decimals: "3.03%".
QString shareText(double percent);

/// The length of a share's bar on a scale of 0 to 6: 3 at the share that is expected of one of `numbers`, and 3 more
/// for each percentage point above it.
double shareBarLength(double percent, int numbers);

} // namespace mainwin
