// The report of a prize query: a dated text in the folder duijiang of a user.
//
// Lines end in CR LF. A report is there whole, or not at all; none overwrites another: the second one within a second
// gets " (2)" into its name, where the list of reports still finds it. It is written line by line, whatever the
// number of bets.
#pragma once

#include <filesystem>

#include <QDateTime>

#include "prize/query.h"
#include "workspace/dialogs.h"

namespace prize {

inline const QString kReportFolder = QStringLiteral("duijiang");
inline const QString kReportEnding = QStringLiteral("兑奖.txt");

/// "26-11-22日9.5.7秒兑奖.txt"
QString reportName(const QDateTime& when);

/// \param query  opened; of a kind with prizes  \param progress  may be null
/// \return the file; an empty path when the user gave up: there is none then
/// \throws std::exception when it cannot be written
std::filesystem::path writeReport(const std::filesystem::path& userFolder, const Query& query, const QDateTime& when,
                                  workspace::Progress* progress = nullptr);

} // namespace prize
