// Changes of a combination table's rows outside of UPDATE: rows of a SELECT added, single rows added and written,
// rows taken out.
#pragma once

#include "sql/column_query.h"

namespace sql {

/// Appends the select's items for its rows; item k goes to column places[k], the other columns get their defaults.
void appendSelected(ColumnTable& target, const std::vector<int>& places, ColumnTable& source, const Select& select,
                    const QueryTools& tools);

void appendRow(ColumnTable& table, const std::vector<std::pair<int, Value>>& fields);
void writeValue(ColumnTable& table, std::size_t row, int place, const Value& value);
/// The table shrinks to these rows, in this order.
void keepRows(ColumnTable& table, const std::vector<std::uint32_t>& rows);

} // namespace sql
