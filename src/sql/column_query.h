// Questions to combination tables: which rows hold, in which order, what they sum to; and rows gathered into another
// table.
#pragma once

#include <algorithm>
#include <functional>

#include "sql/column_rows.h"
#include "sql/plan.h"

namespace sql {

/// Finds a table. \throws SqlError kTableNotFound
using TableLookup = std::function<std::shared_ptr<ColumnTable>(const std::string&)>;

PlanContext planContext(const ColumnTable& table, TextPool& pool, TableLookup lookup, std::size_t batchRows);

/// Calls visit(batch, chosen) for every batch with at least one row that holds; all rows hold when `where` is null.
template <class Visit>
void forEachBatch(const ColumnTable& table, std::size_t batchRows, Node* where, Visit visit) {
    for (std::size_t first = 0; first < table.rows; first += batchRows) {
        const Batch batch{&table, first, std::min(batchRows, table.rows - first)};
        Truth truth;
        const std::size_t words = wordsFor(batch.count);
        if (where) {
            where->select(batch, truth);
            if (std::all_of(truth.yes.begin(), truth.yes.begin() + static_cast<std::ptrdiff_t>(words),
                            [](std::uint64_t word) { return word == 0; }))
                continue;
        } else {
            std::fill_n(truth.yes.begin(), words, ~0ULL);
            if (batch.count % 64 != 0)
                truth.yes[words - 1] = lowBits(batch.count % 64);
        }
        visit(batch, truth.yes.data());
    }
}

/// One bit a row.
Bitmap chosenRows(const ColumnTable& table, const Expr* where, const TableLookup& lookup, std::size_t batchRows);

/// The rows of a SELECT without aggregates: WHERE, DISTINCT, ORDER BY.
RowPlaces rowsOf(const std::shared_ptr<ColumnTable>& table, const Select& select, const TableLookup& lookup,
                 std::size_t batchRows);

bool isAggregate(const Select& select);
std::shared_ptr<const Rows::Source> aggregateRow(const std::shared_ptr<ColumnTable>& table, Select&& select,
                                                 const TableLookup& lookup, std::size_t batchRows);

/// Appends the select's items for the given rows of `source`; item k goes to column places[k].
void appendGathered(ColumnTable& target, const std::vector<int>& places, const ColumnTable& source,
                    const Select& select, const std::vector<std::uint32_t>& rows);

void appendRow(ColumnTable& table, const std::vector<std::pair<int, Value>>& fields);
void writeValue(ColumnTable& table, std::size_t row, int place, const Value& value);
/// The table shrinks to these rows.
void keepRows(ColumnTable& table, const std::vector<std::uint32_t>& rows);

} // namespace sql
