// Rows of a combination table on their way into the engine: gathered as columns, handed over block by block.
//
// A block grows to kBlockRows rows, then it goes to the table and the next begins. finish() hands over the rest.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "selection/bet_source.h"

namespace selection {

class RowWriter {
  public:
    /// \param expected  rows that the run announces; the progress steps rest on it
    /// \param progress  may be null
    RowWriter(sql::Database& database, const TableShape& shape, std::int64_t expected, workspace::Progress* progress);

    /// One row for each blue (one row when the table has no blue); the row number goes up by 1 for each.
    void write(std::span<const std::int32_t> reds, std::span<const std::int32_t> blues);
    /// The same, but all these rows carry one number.
    void writeNumbered(std::int32_t idx, std::span<const std::int32_t> reds, std::span<const std::int32_t> blues);
    void finish();
    std::int64_t rows() const { return m_rows; }
    /// Whether the user has given up: asked after each block.
    bool isCancelled() const { return m_cancelled; }

  private:
    std::size_t append(std::span<const std::int32_t> reds, std::span<const std::int32_t> blues);
    void flush();
    void report();

    sql::Database& m_database;
    std::string m_table;
    bool m_blue;
    workspace::Progress* m_progress;
    std::int64_t m_step;
    int m_reported = 0;
    bool m_cancelled = false;
    std::int64_t m_rows = 0;
    std::size_t m_filled = 0;
    std::vector<std::vector<std::int32_t>> m_columns; ///< idx, then the numbers
};

} // namespace selection
