// Whether a file that came from elsewhere can be a user's history.
//
// Every column that the program reads is read here for every record, so that a file that is damaged, cut off or of
// another kind is refused before anything of the user's is touched. What the numbers say is not judged, beyond what
// the arrays of a history can hold: a downloaded history is taken as the server computed it.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <vector>

#include "history/draw_record.h"
#include "sql/database.h"

namespace history {

/// A database that is no history.
struct UnfitDatabase : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The draws of a full history database, oldest first, at least one. It has fig with all derived columns, row numbers
/// counting from 1, reds of 1..38 and blues of 1..18; a record of Ylqs and YlqsB for each draw; Gailv with 38 and
/// GailvB with 18 records. The file is closed again.
/// \throws UnfitDatabase, sql::SqlError
std::vector<Draw> checkedDraws(sql::Engine& engine, const std::filesystem::path& file);

} // namespace history
