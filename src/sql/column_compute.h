// Passes that are not statements: a kernel reads columns of a combination table and fills others, batch by batch.
//
// Nothing is allocated per row; a batch is read at the columns' own widths into 32 bits, and written back narrow.
#pragma once

#include "sql/column.h"
#include "sql/database.h"

namespace sql {

/// See Database::computeColumn. The output is made anew at the width that its values need.
void computeColumn(ColumnTable& table, std::span<const std::string> inputs, const std::string& output,
                   const RowKernel& kernel, std::size_t batchRows);

/// See Database::computeColumns. Outputs are written in place; only chunks with a written row become dirty.
void computeColumns(ColumnTable& table, std::span<const std::string> inputs, std::span<const std::string> outputs,
                    const BatchKernel& kernel, std::size_t batchRows);

} // namespace sql
