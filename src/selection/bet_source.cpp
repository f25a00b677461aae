#include "selection/bet_source.h"

namespace selection {

Generated Enumeration::fill(sql::Database& database, const TableShape& shape, workspace::Progress* progress) {
    Progress report;
    if (progress)
        report = [progress](int step) { progress->advance(static_cast<double>(step) / kProgressScale); };
    return generate(database, shape, m_input, report);
}

Generated Keep::fill(sql::Database& database, const TableShape& shape, workspace::Progress*) {
    try {
        const std::int64_t rows = database.rowCount(shape.table);
        return {rows, rows};
    } catch (const sql::SqlError&) {
        return {}; // no table yet: there are no rows to keep
    }
}

} // namespace selection
