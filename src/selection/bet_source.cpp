#include "selection/bet_source.h"

#include <optional>
#include <vector>

#include "selection/row_writer.h"
#include "workspace/templates.h"

namespace selection {

namespace {

std::optional<sql::Rows> betsOf(sql::Database& database, const TableShape& shape) {
    std::string columns = "[idx]";
    for (int place = 1; place <= shape.reds + (shape.blue ? 1 : 0); ++place)
        columns += ",[fig" + std::to_string(place) + "]";
    try {
        return database.query("SELECT " + columns + " FROM [" + std::string(shape.table) + "]");
    } catch (const sql::SqlError&) {
        return std::nullopt;
    }
}

} // namespace

Generated Keep::fill(sql::Database& database, const TableShape& shape, workspace::Progress*) {
    try {
        const std::int64_t rows = database.rowCount(shape.table);
        return {rows, rows};
    } catch (const sql::SqlError&) {
        return {}; // no table yet: there are no rows to keep
    }
}

Generated CopiedBets::fill(sql::Database& database, const TableShape& shape, workspace::Progress* progress) {
    const std::optional<sql::Rows> bets = betsOf(m_from, shape);
    if (!bets)
        return {.cancelled = true};
    sql::TableHold former(database, shape.table);
    sql::passOver(database, "DROP TABLE [" + std::string(shape.table) + "]");
    sql::passOver(database, workspace::createCombinationTable(shape.table));
    RowWriter writer(database, shape, bets->count(), progress);
    std::vector<std::int32_t> reds(static_cast<std::size_t>(shape.reds));
    std::vector<std::int32_t> blue(shape.blue ? 1 : 0);
    for (std::int64_t row = 0; row < bets->count(); ++row) {
        for (int place = 0; place < shape.reds; ++place)
            reds[static_cast<std::size_t>(place)] = static_cast<std::int32_t>(bets->integerAt(row, place + 1));
        if (shape.blue)
            blue.front() = static_cast<std::int32_t>(bets->integerAt(row, shape.reds + 1));
        writer.writeNumbered(static_cast<std::int32_t>(bets->integerAt(row, 0)), reds, blue);
        if (writer.isCancelled())
            return {.cancelled = true};
    }
    writer.finish();
    if (writer.isCancelled()) // the last block asks, too
        return {.cancelled = true};
    former.release();
    return {writer.rows(), writer.rows()};
}

} // namespace selection
