// Binding: names of a statement become places in a table, and every expression gets its type and range.
//
// The types follow from the statement and the table alone, never from the rows, so both executors run the same bound
// tree. What does not fit together is refused here: afterwards no statement can fail for its values.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "sql/tree.h"

namespace sql {

struct TableShape {
    std::string name;
    std::vector<ColumnDef> columns;

    /// Place of a column, ignoring case; -1 when there is none.
    int find(std::string_view column) const;
};

/// Gives the shape of a table. \throws SqlError kTableNotFound
using ShapeOf = std::function<TableShape(const std::string& table)>;

/// \throws SqlError kColumnNotFound, kTypeMismatch, kSyntax (an aggregate where none may stand), kTableNotFound
void bind(Statement& statement, const ShapeOf& shapeOf);

/// One result column of a bound SELECT.
struct ResultColumn {
    std::string name;
    ColumnType type = ColumnType::Integer; ///< what INTO would make of it
};
std::vector<ResultColumn> resultColumns(const Select& select, const TableShape& shape);

/// A bound expression that reads the column at a place of the table.
ExprPtr columnExpr(const TableShape& shape, int place);

/// Whether the expression is the same for every row.
bool readsNoColumn(const Expr& expr);

/// Whether the expression or anything below it is an aggregate.
bool hasAggregate(const Expr& expr);

/// Range of a whole-number node from the ranges of its operands; also used with the ranges that a table's rows really
/// have, which are narrower.
Range rangeOf(const Expr& expr, const std::vector<Range>& operands);

} // namespace sql
