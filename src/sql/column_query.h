// Questions to combination tables: which rows hold, in which order, what they sum to.
#pragma once

#include <algorithm>
#include <functional>

#include "sql/column_rows.h"
#include "sql/plan.h"

namespace sql {

/// Finds a table. \throws SqlError kTableNotFound
using TableLookup = std::function<std::shared_ptr<ColumnTable>(const std::string&)>;

/// What every question needs beside its table.
struct QueryTools {
    TableLookup lookup;
    std::size_t batchRows = kBatchLimit;
    std::int64_t* evaluations = nullptr; ///< counts results of expressions that were worked one by one
    std::size_t textBytes = SIZE_MAX;    ///< EngineOptions::textBytes
};

PlanContext planContext(ColumnTable& table, TextPool& pool, const QueryTools& tools);

/// Calls visit(batch, chosen) for every batch with at least one row that holds; all rows hold when `where` is null.
template <class Visit> void forEachBatch(const ColumnTable& table, std::size_t batchRows, Node* where, Visit visit) {
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
Bitmap chosenRows(ColumnTable& table, const Expr* where, const QueryTools& tools);

/// The rows of a SELECT without aggregates: WHERE, DISTINCT, ORDER BY.
RowPlaces rowsOf(ColumnTable& table, const Select& select, const QueryTools& tools);

bool isAggregate(const Select& select);
std::shared_ptr<const Rows::Source> aggregateRow(ColumnTable& table, Select&& select, const QueryTools& tools);

} // namespace sql
