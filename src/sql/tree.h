// The statement tree: what the parser makes, what both executors read. Every node prints itself as a statement text
// that parses back to an equal tree.
//
// A tree is parsed once, then bound to a table (bind.h), which fills in the places, types and ranges; an executor
// reads only bound trees.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "sql/error.h"
#include "sql/value.h"

namespace sql {

/// Types of columns. Integer is 32 bits wide, Short 16; a Bit is -1 or 0 and never Null; Text holds 255 characters.
enum class ColumnType { Integer, Short, Real, Text, Bit };

/// Types of expressions. Null is the type of the word Null alone: it fits any other.
enum class ExprType { Null, Integer, Real, Text };

enum class ExprKind { Literal, Column, Unary, Binary, Function, Like, InSelect, IsNull, Aggregate };
enum class UnaryOp { Negate, Not };
enum class BinaryOp {
    Add,
    Subtract,
    Multiply,
    Divide,
    Mod,
    Join,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    And,
    Or
};
enum class FunctionId { IIf, InStr, Format, Chr, Int };
enum class AggregateId { CountRows, Count, Sum, Min, Max, Avg };

/// Smallest and largest value that a whole-number expression can take, from the types alone.
struct Range {
    double low = 0;
    double high = 0;
};

struct Select;

struct Expr {
    ExprKind kind = ExprKind::Literal;
    Span span;
    Value literal;         // Literal
    std::string table;     // Column: qualifier, empty when there is none
    std::string name;      // Column
    UnaryOp unary{};       // Unary
    BinaryOp binary{};     // Binary
    FunctionId function{}; // Function
    AggregateId aggregate{};
    bool negated = false; // Like, InSelect, IsNull
    std::vector<std::unique_ptr<Expr>> args;
    std::unique_ptr<Select> subquery; // InSelect

    // Filled in by bind():
    ExprType type = ExprType::Null;
    Range range;     // of type Integer
    int column = -1; // Column: its place in the table
    bool isBit = false;

    Expr() = default;
    ~Expr();
    Expr(Expr&&) noexcept = default;
    Expr& operator=(Expr&&) noexcept = default;
};

using ExprPtr = std::unique_ptr<Expr>;

struct SelectItem {
    bool star = false;
    ExprPtr expr;
    std::string alias; ///< empty: named after the column, or Expr1000, Expr1001, …
};

struct OrderItem {
    ExprPtr expr; ///< a whole-number literal is the place of an item, from 1
    bool descending = false;
};

struct Select {
    bool distinct = false;
    std::vector<SelectItem> items;
    std::string into; ///< table to make, or empty
    std::string from;
    ExprPtr where;
    std::vector<OrderItem> order;
};

struct ColumnDef {
    std::string name;
    ColumnType type = ColumnType::Integer;
};

struct Assignment {
    std::string column;
    Span span;
    ExprPtr value;
    int place = -1; ///< filled in by bind()
};

enum class StatementKind { Select, Update, Insert, InsertValues, Delete, Create, Drop, AddColumn, DropColumn };

struct Statement {
    StatementKind kind = StatementKind::Select;
    std::string table; ///< all but Select
    Span tableSpan;
    Select select;                       // Select, Insert
    std::vector<Assignment> assignments; // Update; InsertValues
    ExprPtr where;                       // Update, Delete
    std::vector<ColumnDef> columns;      // Create, AddColumn
    std::string column;                  // DropColumn
};

std::string print(const Expr& expr);
std::string print(const Select& select);
std::string print(const Statement& statement);

/// Calls visit for every table name that the statement reads or writes.
std::vector<std::string> tablesOf(const Statement& statement);
void collectTables(const Select& select, std::vector<std::string>& tables);

} // namespace sql
