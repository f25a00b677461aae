// Whether a file that came from elsewhere can be a user's history, and what it says.
//
// A history has exactly the tables and columns of the program's own template, and nothing else: no view, no trigger,
// no index. Every value of every record is read and must be one that the program could have computed: numbers within
// the widest rule and ascending, issues rising and none of the far future, omissions, hits and shares within their
// bounds. So a file that is damaged, cut off, forged or of another kind is refused before anything of the user's is
// touched. Derived values within 16 bits are taken as the server computed them.
#pragma once

#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <QDate>

#include "history/draw_record.h"
#include "sql/database.h"

namespace history {

/// A database that is no history. The text says in Chinese what is wrong with it.
struct UnfitDatabase : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Records of whole numbers, column by column; all columns are of one length.
struct TableRows {
    std::vector<std::string> columns;
    std::vector<std::vector<std::int32_t>> values;

    void appendTo(sql::Database& database, const std::string& table) const;
    /// Whether `longer` begins with these records, of the same columns.
    bool isStartOf(const TableRows& longer) const;
};

struct Share {
    double gailv = 0;
    std::int32_t Glnum = 0;
};

/// All that a history database says.
struct HistoryTables {
    std::vector<Draw> draws; ///< what stands in fig0..fig7
    TableRows fig;           ///< Idx, fig0..fig7 and all derived columns
    TableRows ylqs;
    TableRows ylqsB;
    std::vector<Share> gailv; ///< of red 1, 2, …
    std::vector<Share> gailvB;
};

/// \param today  the last issue is of its next year at the latest
/// \throws UnfitDatabase, sql::SqlError. The file is closed again
HistoryTables checkedHistory(sql::Engine& engine, const std::filesystem::path& file,
                             const QDate& today = QDate::currentDate());

/// The draws alone, oldest first, at least one.
std::vector<Draw> checkedDraws(sql::Engine& engine, const std::filesystem::path& file,
                               const QDate& today = QDate::currentDate());

} // namespace history
