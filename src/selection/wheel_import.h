// A user's own wheel on its way into the program: the text of a file, and the database that gets the table.
//
// The database in the program's folder goes before the one that lies beside the program, so a user's wheels live in
// the first; it is made as a copy of the other when the first wheel comes. The new database is written beside its
// place and renamed into it: a kill or a failure leaves the former one. What is replaced stays beside it, "{name}
// 保存 {time}".
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include <QDateTime>

#include "selection/wheel_tables.h"
#include "sql/database.h"

namespace selection {

/// The text of a file, as UTF-8. \throws workspace::Failure for a file that cannot be read, or is no wheel by its
/// size
std::string readWheelFile(const std::filesystem::path& file);

/// Where a family's database lies.
struct WheelPlaces {
    std::filesystem::path own;     ///< in the program's folder: the one that is written
    std::filesystem::path shipped; ///< beside the program: may be the same, or missing
};

/// Writes a table that has been proven. Nobody may hold the database open.
/// \param rows  over the drags  \return the former database under its new name; empty when there was none
/// \throws workspace::Failure, sql::SqlError: everything is as it was then
std::filesystem::path installWheel(sql::Engine& engine, const WheelPlaces& places, const WheelTable& table,
                                   std::span<const PositionSet> rows,
                                   const QDateTime& now = QDateTime::currentDateTime());

} // namespace selection
