// Bets for the paper: as the text file Print.txt, and as the lines of a document.
//
// The text: "购买期数:{issue}", lines of so many bets each, "打印时间:{date} {time}"; UTF-8, each line ends with CR
// LF. Within a bet one blank parts the numbers of two digits; nothing parts two bets of a line, on purpose. The
// document: the time, the issue, then lines of numbered bets, "<007>01 02 03 04 05 06  ", the numbers as wide as the
// last one. O(bets); the text is written in blocks, the document is held whole.
#pragma once

#include <filesystem>
#include <optional>

#include <QDateTime>
#include <QStringList>

#include "sql/database.h"
#include "workspace/dialogs.h"

namespace output {

/// What is printed. The rows outlive it.
struct PrintedBets {
    const sql::Rows& rows; ///< column 0 is the index, the numbers of the bet come next
    int numbers;           ///< of a bet: 6, or 7 with the blue or the seventh red
    std::int64_t issue;    ///< of the latest draw
    int perLine;           ///< 0: the output ends at the first bet
};

enum class Printed { Nothing, Whole, GivenUp, EndedAtFirstBet };

/// Writes the text file; without a bet it does nothing. With no bets per line the file holds the issue alone.
/// \throws std::system_error when it cannot be written; the former file then stays, as it does when it is given up
Printed writeBetsText(const PrintedBets& bets, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                      const QDateTime& now);

/// "打印时间:{date} {time}": the first line of the document, the last one of the text.
QString printTimeLine(const QDateTime& now);

/// What follows the time in the document: the issue, an empty line, the bets.
/// \param bets  with at least one bet per line  \return nothing when it is given up
std::optional<QStringList> betsDocumentLines(const PrintedBets& bets, workspace::Dialogs& dialogs);

} // namespace output
