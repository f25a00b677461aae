// A draw as it is typed: the texts of the seven entry boxes, checked and put in order.
//
// The checks run in a fixed order and the first that fails is told; until all have passed nothing is touched. The
// blue may equal a red. The messages name a button that the window does not have; users know them so.
#pragma once

#include <array>
#include <optional>
#include <variant>

#include <QString>

#include "history/history.h"
#include "workspace/dialogs.h"
#include "workspace/rule.h"

namespace history {

/// What to tell the user, and under which title.
struct Complaint {
    QString text;
    QString title;
    int box = 0; ///< which of the seven boxes it is about, from 1; 0: none of them
};

/// "第3个红球", "蓝球"; empty for 0.
QString boxName(int box);

/// Six reds in any order, then the blue: two characters each, "_" in a place that holds no digit.
using TypedBoxes = std::array<QString, 7>;

/// The issue number of the draw behind the last one: the last one plus 1; nothing when that does not fit into 32
/// bits.
std::optional<std::int32_t> nextIssue(const History& history);

/// Asks for the issue number that nextIssue() does not have. \return nothing on Cancel
std::optional<std::int32_t> askIssue(workspace::Dialogs& dialogs);

/// The draw behind the last one: reds ascending, its issue number nextIssue(), or 0 where there is none. A box that
/// holds anything but two digits (full-width ones too) counts as one with an empty place.
std::variant<Draw, Complaint> readTypedDraw(const TypedBoxes& boxes, const History& history,
                                            const workspace::Rule& rule);

/// A number typed over one of a draw held.
/// \param draw  row in the history, 1..Lsnum
/// \param slot  0 the issue, 1..6 a red, 7 the blue
/// \param text  any number for the issue, as long as it and those of the later draws fit into 32 bits; a red between
///              its neighbours in the draw, none of which it may equal; a blue of the rule
std::variant<std::int32_t, Complaint> readCorrection(const QString& text, const History& history,
                                                     const workspace::Rule& rule, int draw, int slot);

} // namespace history
