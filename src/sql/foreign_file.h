// What a database file of unknown origin says of itself, looked at before anything in it is believed.
//
// Nothing of the file is run: only its list of tables and their columns is read.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace sql {

/// Types by column, both as they are written, names in small letters.
using ForeignColumns = std::map<std::string, std::string>;

/// The tables of a file by their names in small letters, those that the engine keeps for itself with them.
/// \throws SqlError kNotADatabase for a file that holds anything but plain tables: a view, a trigger, an index that
///         somebody has created, a virtual table, a column that is computed; also for a file that is no database
std::map<std::string, ForeignColumns> plainTables(const std::filesystem::path& file);

} // namespace sql
