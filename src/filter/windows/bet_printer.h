// The bets of a filter window for the paper: Print.txt in a text viewer of the desktop, or else in frmPrint; of a
// wheel's window Print.odt in the word processor. Each is written anew at each use.
#pragma once

#include <filesystem>
#include <functional>

#include "filter/member.h"
#include "sql/database.h"

class QWidget;

namespace filter {

/// How bets are printed.
struct PrintSetting {
    std::filesystem::path folder{}; ///< of the user: what is printed is written there
    int perLine = 5;                ///< Printrow: bets of a line
    /// Shows a text in a program of the desktop. \return whether one could be started; without it none can
    std::function<bool(const QString& file)> openText{};
};

/// \param rows  the index, then the numbers of a bet  \param issue  of the latest draw
/// \param window  of the member: messages stand above it
void printBets(const FilterMember& member, const sql::Rows& rows, std::int64_t issue, const PrintSetting& setting,
               QWidget& window);

} // namespace filter
