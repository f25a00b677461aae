#include "sql/tree.h"

#include <array>
#include <cstdio>

namespace sql {

Expr::~Expr() = default;

namespace {

constexpr std::array<const char*, 14> kBinaryText = {"+",    "-",   "*",    "/",   " mod ", " & ",   " = ",
                                                     " <> ", " < ", " <= ", " > ", " >= ",  " AND ", " OR "};
constexpr std::array<const char*, 5> kFunctionText = {"IIf", "InStr", "format", "Chr", "int"};
constexpr std::array<const char*, 6> kAggregateText = {"Count", "Count", "Sum", "Min", "Max", "Avg"};
constexpr std::array<const char*, 5> kTypeText = {"integer", "short", "double", "string", "bit"};

std::string bracketed(const std::string& name) {
    return "[" + name + "]";
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"')
            result += '"';
        result += c;
    }
    return result + "\"";
}

std::string printLiteral(const Value& value) {
    if (isNull(value))
        return "Null";
    if (const auto* text = std::get_if<std::string>(&value))
        return quoted(*text);
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return std::to_string(*whole);
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", std::get<double>(value));
    std::string text = buffer;
    return text.find_first_of(".e") == std::string::npos ? text + "." : text; // 5. is a real number, 5 is not
}

std::string printArgs(const Expr& expr) {
    std::string text;
    for (const ExprPtr& arg : expr.args)
        text += (text.empty() ? "" : ", ") + print(*arg);
    return "(" + text + ")";
}

std::string printTail(const ExprPtr& where) {
    return where ? " WHERE " + print(*where) : "";
}

std::string printItems(const Select& select) {
    std::string text;
    for (const SelectItem& item : select.items) {
        text += text.empty() ? "" : ", ";
        text += item.star ? "*" : print(*item.expr);
        if (!item.alias.empty())
            text += " AS " + bracketed(item.alias);
    }
    return text;
}

std::string printColumns(const std::vector<ColumnDef>& columns) {
    std::string text;
    for (const ColumnDef& column : columns)
        text += (text.empty() ? "" : ", ") + bracketed(column.name) + " " +
                kTypeText[static_cast<std::size_t>(column.type)];
    return text;
}

std::string printUpdate(const Statement& statement) {
    std::string text;
    for (const Assignment& assignment : statement.assignments)
        text += (text.empty() ? "" : ", ") + bracketed(assignment.column) + " = " + print(*assignment.value);
    return "UPDATE " + bracketed(statement.table) + " SET " + text + printTail(statement.where);
}

std::string printValues(const Statement& statement) {
    std::string names;
    std::string values;
    for (const Assignment& assignment : statement.assignments) {
        names += (names.empty() ? "" : ", ") + bracketed(assignment.column);
        values += (values.empty() ? "" : ", ") + print(*assignment.value);
    }
    return "INSERT INTO " + bracketed(statement.table) + " (" + names + ") VALUES (" + values + ")";
}

} // namespace

std::string print(const Expr& expr) {
    switch (expr.kind) {
    case ExprKind::Literal:
        return printLiteral(expr.literal);
    case ExprKind::Column:
        return (expr.table.empty() ? "" : bracketed(expr.table) + ".") + bracketed(expr.name);
    case ExprKind::Unary:
        return (expr.unary == UnaryOp::Not ? "(NOT " : "(-") + print(*expr.args[0]) + ")";
    case ExprKind::Binary:
        return "(" + print(*expr.args[0]) + kBinaryText[static_cast<std::size_t>(expr.binary)] +
               print(*expr.args[1]) + ")";
    case ExprKind::Function:
        return kFunctionText[static_cast<std::size_t>(expr.function)] + printArgs(expr);
    case ExprKind::Like:
        return "(" + print(*expr.args[0]) + (expr.negated ? " NOT LIKE " : " LIKE ") + print(*expr.args[1]) + ")";
    case ExprKind::InSelect:
        return "(" + print(*expr.args[0]) + (expr.negated ? " NOT IN (" : " IN (") + print(*expr.subquery) + "))";
    case ExprKind::IsNull:
        return "(" + print(*expr.args[0]) + (expr.negated ? " IS NOT NULL)" : " IS NULL)");
    case ExprKind::Aggregate:
        return kAggregateText[static_cast<std::size_t>(expr.aggregate)] +
               (expr.aggregate == AggregateId::CountRows ? std::string("(*)") : printArgs(expr));
    }
    return {};
}

std::string print(const Select& select) {
    std::string text = select.distinct ? "SELECT DISTINCT " : "SELECT ";
    text += printItems(select);
    if (!select.into.empty())
        text += " INTO " + bracketed(select.into);
    text += " FROM " + bracketed(select.from) + printTail(select.where);
    for (std::size_t item = 0; item < select.order.size(); ++item)
        text += (item == 0 ? " ORDER BY " : ", ") + print(*select.order[item].expr) +
                (select.order[item].descending ? " DESC" : "");
    return text;
}

std::string print(const Statement& statement) {
    const std::string table = bracketed(statement.table);
    switch (statement.kind) {
    case StatementKind::Select:
        return print(statement.select);
    case StatementKind::Update:
        return printUpdate(statement);
    case StatementKind::Insert:
        return "INSERT INTO " + table + " " + print(statement.select);
    case StatementKind::InsertValues:
        return printValues(statement);
    case StatementKind::Delete:
        return "DELETE FROM " + table + printTail(statement.where);
    case StatementKind::Create:
        return "CREATE TABLE " + table + " (" + printColumns(statement.columns) + ")";
    case StatementKind::Drop:
        return "DROP TABLE " + table;
    case StatementKind::AddColumn:
        return "ALTER TABLE " + table + " ADD COLUMN " + printColumns(statement.columns);
    case StatementKind::DropColumn:
        return "ALTER TABLE " + table + " DROP COLUMN " + bracketed(statement.column);
    }
    return {};
}

namespace {

void collectTables(const Expr* expr, std::vector<std::string>& tables) {
    if (!expr)
        return;
    for (const ExprPtr& arg : expr->args)
        collectTables(arg.get(), tables);
    if (expr->subquery)
        sql::collectTables(*expr->subquery, tables);
}

} // namespace

void collectTables(const Select& select, std::vector<std::string>& tables) {
    tables.push_back(select.from);
    if (!select.into.empty())
        tables.push_back(select.into);
    collectTables(select.where.get(), tables);
    for (const SelectItem& item : select.items)
        collectTables(item.expr.get(), tables);
}

std::vector<std::string> tablesOf(const Statement& statement) {
    std::vector<std::string> tables;
    if (!statement.table.empty())
        tables.push_back(statement.table);
    if (statement.kind == StatementKind::Select || statement.kind == StatementKind::Insert)
        collectTables(statement.select, tables);
    collectTables(statement.where.get(), tables);
    for (const Assignment& assignment : statement.assignments)
        collectTables(assignment.value.get(), tables);
    return tables;
}

} // namespace sql
