#include "selection/bet_source.h"

namespace selection {

Generated Keep::fill(sql::Database& database, const TableShape& shape, workspace::Progress*) {
    try {
        const std::int64_t rows = database.rowCount(shape.table);
        return {rows, rows};
    } catch (const sql::SqlError&) {
        return {}; // no table yet: there are no rows to keep
    }
}

} // namespace selection
