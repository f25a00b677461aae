// What the button 组合排列… does and says: the generation that fits the numbers on the pad.
#pragma once

#include <QString>

#include "mainwin/menu_rules.h"
#include "sql/database.h"

namespace mainwin {

/// The menu entry that generates from such a choice: the one of bankers as soon as there is one.
QString arrangementCommand(const ProgramState& state);

/// What can be done once nothing is missing: "满 7 红即可排 6红+1蓝"; without a blue "满 7 红即可排 6红".
QString arrangementOutlook(const ProgramState& state);

/// The bets of the numbers chosen: without a blue those of six reds.
std::int64_t arrangementBets(const ProgramState& state);

/// "56 注，112 元", with thousands separated.
QString arrangementCost(std::int64_t bets);

/// What else there would be: "6红球；选 1 蓝可排 6红+1蓝", empty with a blue.
QString arrangementForm(const ProgramState& state);

/// What the table of the last bets of six reds and a blue holds: "复选胆拖 6红+1蓝，剩余 18,480 / 40,040 注"; empty
/// when it holds none.
QString lastBets(sql::Database& dbFilnum);

} // namespace mainwin
