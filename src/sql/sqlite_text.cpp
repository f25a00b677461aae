#include "sql/sqlite_text.h"

#include <array>
#include <cstdio>

#include "sql/lexer.h"

namespace sql {

namespace {

constexpr std::array<const char*, 14> kOperators = {"+",  "-", "*",  "/", "",   "",    "=",
                                                    "<>", "<", "<=", ">", ">=", "AND", "OR"};

std::string literalText(const Value& value) {
    if (isNull(value))
        return "NULL";
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return "(" + std::to_string(*whole) + ")";
    if (const auto* real = std::get_if<double>(&value)) {
        char buffer[40];
        std::snprintf(buffer, sizeof buffer, "(%.17g)", *real);
        return "CAST" + std::string(buffer, std::string_view(buffer).size() - 1) + " AS REAL)";
    }
    std::string text = "'";
    for (const char c : std::get<std::string>(value)) {
        if (c == '\'')
            text += c;
        if (c != '\0')
            text += c;
    }
    return text + "'";
}

class Printer {
  public:
    Printer(const TableShape& shape, const ShapeOf& shapeOf) : m_shape(shape), m_shapeOf(shapeOf) {}

    std::string text(const Expr& expr) const {
        switch (expr.kind) {
        case ExprKind::Literal:
            return literalText(expr.literal);
        case ExprKind::Column:
            return sqliteName(m_shape.columns[static_cast<std::size_t>(expr.column)].name);
        case ExprKind::Unary:
            return unary(expr);
        case ExprKind::Binary:
            return binary(expr);
        case ExprKind::Function:
            return function(expr);
        case ExprKind::Like:
            return "(" + std::string(expr.negated ? "-1-" : "") + call("ssq_like", expr) + ")";
        case ExprKind::InSelect:
            return inSelect(expr);
        case ExprKind::IsNull:
            return "(-(" + text(*expr.args[0]) + (expr.negated ? " IS NOT NULL))" : " IS NULL))");
        case ExprKind::Aggregate:
            return aggregate(expr);
        }
        return {};
    }

  private:
    std::string call(const char* name, const Expr& expr) const {
        std::string result = std::string(name) + "(";
        for (std::size_t place = 0; place < expr.args.size(); ++place)
            result += (place ? ", " : "") + text(*expr.args[place]);
        return result + ")";
    }

    std::string unary(const Expr& expr) const {
        const std::string operand = text(*expr.args[0]);
        return expr.unary == UnaryOp::Not ? "(-(" + operand + " = 0))" : "(-" + real(expr, operand) + ")";
    }

    static std::string real(const Expr& expr, const std::string& operand) {
        return expr.type == ExprType::Real ? "CAST(" + operand + " AS REAL)" : operand;
    }

    std::string binary(const Expr& expr) const {
        const char* symbol = kOperators[static_cast<std::size_t>(expr.binary)];
        if (expr.binary == BinaryOp::Join)
            return call("ssq_join", expr);
        if (expr.binary == BinaryOp::Mod)
            return call("ssq_mod", expr);
        const std::string left = text(*expr.args[0]);
        const std::string right = text(*expr.args[1]);
        if (expr.binary >= BinaryOp::Equal) {
            const bool isText = expr.args[0]->type == ExprType::Text && expr.binary < BinaryOp::And;
            return "(-(" + left + " " + symbol + " " + right + (isText ? " COLLATE NOCASE))" : "))");
        }
        const std::string result = "(" + real(expr, left) + symbol + real(expr, right) + ")";
        return expr.type == ExprType::Real ? "ssq_finite" + result : result;
    }

    std::string function(const Expr& expr) const {
        switch (expr.function) {
        case FunctionId::IIf:
            return "(CASE WHEN " + text(*expr.args[0]) + " THEN " + real(expr, text(*expr.args[1])) + " ELSE " +
                   real(expr, text(*expr.args[2])) + " END)";
        case FunctionId::InStr:
            return call("ssq_instr", expr);
        case FunctionId::Format:
            return call("ssq_format", expr);
        case FunctionId::Chr:
            return call("ssq_chr", expr);
        case FunctionId::Int:
            return expr.type == ExprType::Integer ? text(*expr.args[0]) : call("ssq_floor", expr);
        }
        return {};
    }

    std::string inSelect(const Expr& expr) const {
        const TableShape inner = m_shapeOf(expr.subquery->from);
        const bool isText = expr.args[0]->type == ExprType::Text;
        const std::string found = text(*expr.args[0]) + (isText ? " COLLATE NOCASE" : "") + " IN (" +
                                  sqliteText(*expr.subquery, inner, m_shapeOf) + ")";
        return expr.negated ? "(-(NOT (" + found + ")))" : "(-(" + found + "))";
    }

    std::string aggregate(const Expr& expr) const {
        if (expr.aggregate == AggregateId::CountRows)
            return "COUNT(*)";
        static constexpr std::array<const char*, 6> kNames = {"COUNT", "COUNT", "SUM", "MIN", "MAX", "AVG"};
        const bool isText = expr.args[0]->type == ExprType::Text;
        const std::string result = std::string(kNames[static_cast<std::size_t>(expr.aggregate)]) + "(" +
                                   text(*expr.args[0]) + (isText ? " COLLATE NOCASE)" : ")");
        return expr.aggregate == AggregateId::Sum ? "CAST(" + result + " AS REAL)" : result;
    }

    const TableShape& m_shape;
    const ShapeOf& m_shapeOf;
};

std::string orderText(const Select& select, const Printer& printer) {
    std::string text;
    for (const OrderItem& order : select.order) {
        const bool isText = order.expr->type == ExprType::Text;
        const bool isPlace = order.expr->kind == ExprKind::Literal && order.expr->type == ExprType::Integer;
        text += text.empty() ? " ORDER BY " : ", ";
        text += isPlace ? std::to_string(std::get<std::int64_t>(order.expr->literal)) : printer.text(*order.expr);
        text += isText && !isPlace ? " COLLATE NOCASE" : "";
        text += order.descending ? " DESC" : "";
    }
    return text;
}

bool isPlain(const Select& select) {
    if (select.distinct)
        return false;
    for (const SelectItem& item : select.items)
        if (item.expr && hasAggregate(*item.expr))
            return false;
    return true;
}

} // namespace

std::string sqliteName(const std::string& name) {
    std::string text = "\"";
    for (const char c : name) {
        if (c == '"')
            text += c;
        text += c;
    }
    return text + "\"";
}

std::string sqliteText(const Expr& expr, const TableShape& shape, const ShapeOf& shapeOf) {
    return Printer(shape, shapeOf).text(expr);
}

const char* storeFunction(ColumnType type) {
    switch (type) {
    case ColumnType::Integer:
        return "ssq_integer";
    case ColumnType::Short:
        return "ssq_short";
    case ColumnType::Real:
        return "ssq_real";
    case ColumnType::Text:
        return "ssq_text";
    case ColumnType::Bit:
        return "ssq_bit";
    }
    return "";
}

std::string sqliteStored(const Expr& expr, ColumnType type, const TableShape& shape, const ShapeOf& shapeOf) {
    return std::string(storeFunction(type)) + "(" + sqliteText(expr, shape, shapeOf) + ")";
}

std::string sqliteItems(const Select& select, const TableShape& shape, const ShapeOf& shapeOf) {
    const Printer printer(shape, shapeOf);
    std::string text;
    for (const SelectItem& item : select.items) {
        if (item.star) {
            for (const ColumnDef& column : shape.columns)
                text += (text.empty() ? "" : ", ") + sqliteName(column.name);
            continue;
        }
        text += (text.empty() ? "" : ", ") + printer.text(*item.expr);
        if (select.distinct && item.expr->type == ExprType::Text)
            text += " COLLATE NOCASE";
    }
    return text;
}

std::string sqliteText(const Select& select, const TableShape& shape, const ShapeOf& shapeOf, bool onlyRowids) {
    const Printer printer(shape, shapeOf);
    std::string text = select.distinct ? "SELECT DISTINCT " : "SELECT ";
    // Places in ORDER BY count the items, so these stay in the list and the row's own place comes behind them.
    text += sqliteItems(select, shape, shapeOf) + (onlyRowids ? ", rowid" : "");
    text += " FROM " + sqliteName(shape.name);
    if (select.where)
        text += " WHERE " + printer.text(*select.where);
    text += orderText(select, printer);
    if (!select.order.empty() && isPlain(select))
        text += ", rowid"; // equal values keep the order of the table
    return text;
}

std::string sqliteColumn(const ColumnDef& column) {
    switch (column.type) {
    case ColumnType::Integer:
        return sqliteName(column.name) + " INTEGER";
    case ColumnType::Short:
        return sqliteName(column.name) + " SMALLINT";
    case ColumnType::Real:
        return sqliteName(column.name) + " DOUBLE";
    case ColumnType::Text:
        return sqliteName(column.name) + " TEXT COLLATE NOCASE";
    case ColumnType::Bit:
        return sqliteName(column.name) + " BIT NOT NULL DEFAULT 0";
    }
    return {};
}

ColumnType columnTypeOf(const std::string& declaration) {
    const std::string word = foldedName(declaration);
    if (word.find("smallint") != std::string::npos)
        return ColumnType::Short;
    if (word.find("bit") != std::string::npos || word.find("bool") != std::string::npos)
        return ColumnType::Bit;
    if (word.find("int") != std::string::npos)
        return ColumnType::Integer;
    if (word.find("doub") != std::string::npos || word.find("real") != std::string::npos ||
        word.find("floa") != std::string::npos)
        return ColumnType::Real;
    return ColumnType::Text;
}

} // namespace sql
