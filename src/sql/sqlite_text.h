// Bound trees as texts of SQLite's dialect.
#pragma once

#include "sql/bind.h"

namespace sql {

std::string sqliteName(const std::string& name);
std::string sqliteText(const Expr& expr, const TableShape& shape, const ShapeOf& shapeOf);
/// The expression as a column of the type keeps it.
std::string sqliteStored(const Expr& expr, ColumnType type, const TableShape& shape, const ShapeOf& shapeOf);
/// SELECT without INTO. \param onlyRowids  the places of the rows instead of their values
std::string sqliteText(const Select& select, const TableShape& shape, const ShapeOf& shapeOf,
                       bool onlyRowids = false);
/// The items of a SELECT, for one row or all.
std::string sqliteItems(const Select& select, const TableShape& shape, const ShapeOf& shapeOf);
std::string sqliteColumn(const ColumnDef& column);
/// The type that a declaration of a SQLite column stands for.
ColumnType columnTypeOf(const std::string& declaration);
/// Name of the function that turns a value into what a column of the type keeps.
const char* storeFunction(ColumnType type);

} // namespace sql
