#include "selection/row_writer.h"

#include <algorithm>
#include <numeric>

namespace selection {
namespace {

// 65,536 rows of eight 32-bit columns are 2 MiB: they stay in the second-level cache until the engine has packed
// them.
constexpr std::size_t kBlockRows = 65536;
constexpr std::size_t kMostBlues = 64; // more than any rule has; room that a set of reds may need past the block

} // namespace

RowWriter::RowWriter(sql::Database& database, const TableShape& shape, std::int64_t expected,
                     workspace::Progress* progress)
    : m_database(database), m_table(shape.table), m_blue(shape.blue), m_progress(progress),
      m_step(std::max<std::int64_t>(expected / kProgressScale, 1)) {
    const std::size_t columns = 1 + static_cast<std::size_t>(shape.reds) + (shape.blue ? 1 : 0);
    m_columns.assign(columns, std::vector<std::int32_t>(kBlockRows + kMostBlues));
}

std::size_t RowWriter::append(std::span<const std::int32_t> reds, std::span<const std::int32_t> blues) {
    const std::size_t count = m_blue ? blues.size() : 1;
    for (std::size_t position = 0; position < reds.size(); ++position)
        std::fill_n(m_columns[position + 1].begin() + static_cast<std::ptrdiff_t>(m_filled), count, reds[position]);
    if (m_blue)
        std::copy(blues.begin(), blues.end(), m_columns.back().begin() + static_cast<std::ptrdiff_t>(m_filled));
    return count;
}

void RowWriter::write(std::span<const std::int32_t> reds, std::span<const std::int32_t> blues) {
    const std::size_t count = append(reds, blues);
    const auto first = m_columns[0].begin() + static_cast<std::ptrdiff_t>(m_filled);
    std::iota(first, first + static_cast<std::ptrdiff_t>(count), static_cast<std::int32_t>(m_rows + 1));
    m_filled += count;
    m_rows += static_cast<std::int64_t>(count);
    if (m_filled >= kBlockRows)
        flush();
}

void RowWriter::writeNumbered(std::int32_t idx, std::span<const std::int32_t> reds,
                              std::span<const std::int32_t> blues) {
    const std::size_t count = append(reds, blues);
    std::fill_n(m_columns[0].begin() + static_cast<std::ptrdiff_t>(m_filled), count, idx);
    m_filled += count;
    m_rows += static_cast<std::int64_t>(count);
    if (m_filled >= kBlockRows)
        flush();
}

void RowWriter::finish() {
    if (m_filled > 0)
        flush();
}

void RowWriter::flush() {
    sql::RowBlock block;
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        block.columns.push_back(column == 0 ? "idx" : "fig" + std::to_string(column));
        block.values.emplace_back(m_columns[column].data(), m_filled);
    }
    m_filled = 0;
    try {
        m_database.appendRows(m_table, block);
    } catch (const sql::SqlError&) {
        // A row that cannot be written does not stop the run.
    }
    report();
}

void RowWriter::report() {
    if (!m_progress)
        return;
    while (!m_cancelled && (m_reported + 1) * m_step <= m_rows)
        m_cancelled = !m_progress->advance(static_cast<double>(++m_reported) / kProgressScale);
}

} // namespace selection
