#include "sql/bind.h"

#include <algorithm>
#include <cmath>

#include "sql/lexer.h"
#include "sql/scalar.h"

namespace sql {

namespace {

// Whole numbers are kept whole as long as they print without an exponent and a double holds them exactly.
constexpr double kWidest = 1e15;

bool fits(const Range& range) {
    return range.low >= -kWidest && range.high <= kWidest;
}

Range spanning(std::initializer_list<double> values) {
    return {std::min(values), std::max(values)};
}

Range moduloRange(const Range& left, const Range& right) {
    const double most = std::max(std::fabs(right.low), std::fabs(right.high)) - 1;
    const double bound = std::max(0.0, std::min(most, std::max(std::fabs(left.low), std::fabs(left.high))));
    return {left.low < 0 ? -bound : 0, left.high > 0 ? bound : 0};
}

Range binaryRange(BinaryOp op, const Range& a, const Range& b) {
    switch (op) {
    case BinaryOp::Add:
        return {a.low + b.low, a.high + b.high};
    case BinaryOp::Subtract:
        return {a.low - b.high, a.high - b.low};
    case BinaryOp::Multiply:
        return spanning({a.low * b.low, a.low * b.high, a.high * b.low, a.high * b.high});
    case BinaryOp::Mod:
        return moduloRange(a, b);
    default:
        return {-1, 0};
    }
}

Range columnRange(ColumnType type) {
    switch (type) {
    case ColumnType::Bit:
        return {-1, 0};
    case ColumnType::Short:
        return {-32768, 32767};
    default:
        return {kIntegerLow, kIntegerHigh};
    }
}

ExprType exprType(ColumnType type) {
    switch (type) {
    case ColumnType::Real:
        return ExprType::Real;
    case ColumnType::Text:
        return ExprType::Text;
    default:
        return ExprType::Integer;
    }
}

void typeColumn(Expr& expr, ColumnType type) {
    expr.type = exprType(type);
    expr.isBit = type == ColumnType::Bit;
    expr.range = columnRange(type);
}

class Binder {
  public:
    Binder(const TableShape& shape, const ShapeOf& shapeOf) : m_shape(shape), m_shapeOf(shapeOf) {}

    /// \param aggregates  whether an aggregate may stand here
    void bindExpr(Expr& expr, bool aggregates) {
        if (expr.kind == ExprKind::Aggregate && !aggregates)
            throw SqlError(error::kSyntax, "这里不能使用合计函数", expr.span);
        const bool below = aggregates && expr.kind != ExprKind::Aggregate;
        for (const ExprPtr& arg : expr.args)
            bindExpr(*arg, below);
        setType(expr);
    }

    void bindSelect(Select& select) {
        bool aggregated = false;
        for (SelectItem& item : select.items)
            if (item.expr) {
                refuseSubselect(*item.expr);
                bindExpr(*item.expr, true);
                aggregated |= hasAggregate(*item.expr);
            }
        if (aggregated)
            refuseLooseColumns(select);
        if (select.where)
            bindCondition(*select.where);
        for (OrderItem& order : select.order)
            bindOrder(order, select);
    }

    void bindCondition(Expr& expr) {
        bindExpr(expr, false);
        requireNumber(expr);
    }

    static void requireNumber(const Expr& expr) {
        if (expr.type == ExprType::Text)
            throw SqlError(error::kTypeMismatch, "表达式的数据类型不符", expr.span);
    }

  private:
    void setType(Expr& expr) {
        switch (expr.kind) {
        case ExprKind::Literal:
            return literal(expr);
        case ExprKind::Column:
            return column(expr);
        case ExprKind::Unary:
            return unary(expr);
        case ExprKind::Binary:
            return binary(expr);
        case ExprKind::Function:
            return function(expr);
        case ExprKind::InSelect:
            inSelect(expr);
            return truth(expr);
        case ExprKind::Like:
        case ExprKind::IsNull:
            return truth(expr);
        case ExprKind::Aggregate:
            return aggregate(expr);
        }
    }

    static void truth(Expr& expr) { integer(expr, {-1, 0}); }

    /// A whole number of this range, or a real one when it is too wide.
    static void integer(Expr& expr, const Range& range) {
        expr.type = fits(range) ? ExprType::Integer : ExprType::Real;
        expr.range = range;
    }

    static void literal(Expr& expr) {
        if (const auto* whole = std::get_if<std::int64_t>(&expr.literal))
            return integer(expr, {static_cast<double>(*whole), static_cast<double>(*whole)});
        if (std::holds_alternative<double>(expr.literal))
            expr.type = ExprType::Real;
        else
            expr.type = isNull(expr.literal) ? ExprType::Null : ExprType::Text;
    }

    void column(Expr& expr) {
        expr.column = expr.table.empty() || sameName(expr.table, m_shape.name) ? m_shape.find(expr.name) : -1;
        if (expr.column < 0)
            throw SqlError(error::kColumnNotFound, "找不到字段 " + expr.name, expr.span);
        typeColumn(expr, m_shape.columns[static_cast<std::size_t>(expr.column)].type);
    }

    static bool whole(const Expr& expr) { return expr.type == ExprType::Integer || expr.type == ExprType::Null; }

    static void unary(Expr& expr) {
        const Expr& operand = *expr.args[0];
        requireNumber(operand);
        if (expr.unary == UnaryOp::Not)
            return truth(expr);
        if (whole(operand))
            return integer(expr, {-operand.range.high, -operand.range.low});
        expr.type = ExprType::Real;
    }

    static bool isArithmetic(BinaryOp op) {
        return op == BinaryOp::Add || op == BinaryOp::Subtract || op == BinaryOp::Multiply;
    }
    static bool isComparison(BinaryOp op) { return op >= BinaryOp::Equal && op <= BinaryOp::GreaterEqual; }

    static void binary(Expr& expr) {
        const Expr& left = *expr.args[0];
        const Expr& right = *expr.args[1];
        if (expr.binary == BinaryOp::Join) {
            expr.type = ExprType::Text;
            return;
        }
        if (isComparison(expr.binary)) {
            requireAlike(left, right);
            return truth(expr);
        }
        requireNumber(left);
        requireNumber(right);
        if (expr.binary == BinaryOp::Mod)
            return modulo(expr);
        if (expr.binary == BinaryOp::And || expr.binary == BinaryOp::Or)
            return truth(expr);
        if (isArithmetic(expr.binary) && whole(left) && whole(right))
            return integer(expr, binaryRange(expr.binary, left.range, right.range));
        expr.type = ExprType::Real;
    }

    static void modulo(Expr& expr) {
        const Range wide{kIntegerLow, kIntegerHigh};
        const Range& left = whole(*expr.args[0]) ? expr.args[0]->range : wide;
        const Range& right = whole(*expr.args[1]) ? expr.args[1]->range : wide;
        integer(expr, moduloRange(left, right));
    }

    static void requireAlike(const Expr& left, const Expr& right) {
        const bool leftText = left.type == ExprType::Text;
        const bool rightText = right.type == ExprType::Text;
        if (leftText != rightText && left.type != ExprType::Null && right.type != ExprType::Null)
            throw SqlError(error::kTypeMismatch, "表达式的数据类型不符", left.span);
    }

    static void function(Expr& expr) {
        const Expr& first = *expr.args[0];
        switch (expr.function) {
        case FunctionId::IIf:
            requireNumber(first);
            return choice(expr);
        case FunctionId::InStr:
            return integer(expr, {0, 1e6});
        case FunctionId::Format:
            requireNumber(first);
            requireZeroPattern(*expr.args[1]);
            expr.type = ExprType::Text;
            return;
        case FunctionId::Chr:
            requireNumber(first);
            expr.type = ExprType::Text;
            return;
        case FunctionId::Int:
            requireNumber(first);
            if (whole(first))
                return integer(expr, first.range);
            expr.type = ExprType::Real;
            return;
        }
    }

    static void requireZeroPattern(const Expr& pattern) {
        const auto* text = std::get_if<std::string>(&pattern.literal);
        if (pattern.kind != ExprKind::Literal || !text || !isZeroPattern(*text))
            throw SqlError(error::kSyntax, "不支持的格式", pattern.span);
    }

    static void choice(Expr& expr) {
        const Expr& then = *expr.args[1];
        const Expr& otherwise = *expr.args[2];
        requireAlike(then, otherwise);
        if (then.type == ExprType::Text || otherwise.type == ExprType::Text)
            expr.type = ExprType::Text;
        else if (whole(then) && whole(otherwise))
            integer(expr, spanning({then.range.low, then.range.high, otherwise.range.low, otherwise.range.high}));
        else
            expr.type = ExprType::Real;
    }

    void inSelect(Expr& expr) {
        const TableShape inner = m_shapeOf(expr.subquery->from);
        Binder(inner, m_shapeOf).bindSelect(*expr.subquery);
        const auto columns = resultColumns(*expr.subquery, inner);
        if (columns.size() != 1 || !expr.subquery->into.empty())
            throw SqlError(error::kSyntax, "子查询只能有一个字段", expr.span);
        const bool leftText = expr.args[0]->type == ExprType::Text;
        if (leftText != (columns[0].type == ColumnType::Text) && expr.args[0]->type != ExprType::Null)
            throw SqlError(error::kTypeMismatch, "表达式的数据类型不符", expr.span);
    }

    static void aggregate(Expr& expr) {
        switch (expr.aggregate) {
        case AggregateId::CountRows:
        case AggregateId::Count:
            return integer(expr, {0, kIntegerHigh});
        case AggregateId::Min:
        case AggregateId::Max:
            expr.type = expr.args[0]->type;
            expr.range = expr.args[0]->range;
            return;
        case AggregateId::Sum:
        case AggregateId::Avg:
            requireNumber(*expr.args[0]);
            expr.type = ExprType::Real; // a sum of whole numbers is shown whole all the same: see toText
            return;
        }
    }

    /// With an aggregate in the list every item is one, or a constant: there is no grouping in the dialect.
    void refuseLooseColumns(const Select& select) const {
        for (const SelectItem& item : select.items)
            if (item.star || hasLooseColumn(*item.expr))
                throw SqlError(error::kSyntax, "合计查询中有未合计的字段", item.star ? Span{} : item.expr->span);
    }

    /// A sub-select belongs into a condition; a list of rows is read row by row later, when its tables may be gone.
    static void refuseSubselect(const Expr& expr) {
        if (expr.kind == ExprKind::InSelect)
            throw SqlError(error::kSyntax, "子查询只能用在条件中", expr.span);
        for (const ExprPtr& arg : expr.args)
            refuseSubselect(*arg);
    }

    static bool hasLooseColumn(const Expr& expr) {
        if (expr.kind == ExprKind::Aggregate)
            return false;
        return expr.kind == ExprKind::Column || std::any_of(expr.args.begin(), expr.args.end(),
                                                            [](const ExprPtr& arg) { return hasLooseColumn(*arg); });
    }

    /// A place or an alias becomes a copy of nothing: the executors look the item up by the literal's number.
    void bindOrder(OrderItem& order, const Select& select) {
        Expr& expr = *order.expr;
        if (expr.kind == ExprKind::Column && expr.table.empty() && m_shape.find(expr.name) < 0)
            for (std::size_t item = 0; item < select.items.size(); ++item)
                if (sameName(select.items[item].alias, expr.name)) {
                    expr.kind = ExprKind::Literal;
                    expr.literal = static_cast<std::int64_t>(item + 1);
                }
        refuseSubselect(expr);
        bindExpr(expr, false);
        const auto* place = std::get_if<std::int64_t>(&expr.literal);
        if (expr.kind == ExprKind::Literal && place) {
            const auto count = static_cast<std::int64_t>(resultColumns(select, m_shape).size());
            if (*place < 1 || *place > count)
                throw SqlError(error::kSyntax, "ORDER BY 的序号超出范围", expr.span);
        }
    }

    const TableShape& m_shape;
    const ShapeOf& m_shapeOf;
};

void bindAssignments(Statement& statement, const TableShape& shape, Binder& binder) {
    for (Assignment& assignment : statement.assignments) {
        assignment.place = shape.find(assignment.column);
        if (assignment.place < 0)
            throw SqlError(error::kColumnNotFound, "找不到字段 " + assignment.column, assignment.span);
        binder.bindExpr(*assignment.value, false);
        const bool textColumn = shape.columns[static_cast<std::size_t>(assignment.place)].type == ColumnType::Text;
        if (!textColumn)
            Binder::requireNumber(*assignment.value);
    }
}

/// Columns are matched by name. A number goes into a text column as text; no text goes into a number column.
void bindInsert(const Statement& statement, const TableShape& source, const TableShape& target) {
    for (const ResultColumn& column : resultColumns(statement.select, source)) {
        const int place = target.find(column.name);
        if (place < 0)
            throw SqlError(error::kColumnNotFound, "找不到字段 " + column.name, statement.tableSpan);
        const bool textTarget = target.columns[static_cast<std::size_t>(place)].type == ColumnType::Text;
        if (column.type == ColumnType::Text && !textTarget)
            throw SqlError(error::kTypeMismatch, "数据类型不符 " + column.name, statement.tableSpan);
    }
}

} // namespace

ExprPtr columnExpr(const TableShape& shape, int place) {
    ExprPtr expr = std::make_unique<Expr>();
    const ColumnDef& def = shape.columns[static_cast<std::size_t>(place)];
    expr->kind = ExprKind::Column;
    expr->name = def.name;
    expr->column = place;
    typeColumn(*expr, def.type);
    return expr;
}

int TableShape::find(std::string_view column) const {
    for (std::size_t place = 0; place < columns.size(); ++place)
        if (sameName(columns[place].name, column))
            return static_cast<int>(place);
    return -1;
}

void bind(Statement& statement, const ShapeOf& shapeOf) {
    if (statement.kind == StatementKind::Select || statement.kind == StatementKind::Insert) {
        const TableShape shape = shapeOf(statement.select.from);
        Binder(shape, shapeOf).bindSelect(statement.select);
        if (statement.kind == StatementKind::Insert)
            bindInsert(statement, shape, shapeOf(statement.table));
        return;
    }
    if (statement.kind == StatementKind::Create || statement.kind == StatementKind::Drop ||
        statement.kind == StatementKind::AddColumn || statement.kind == StatementKind::DropColumn)
        return;
    const TableShape shape = shapeOf(statement.table);
    const TableShape none;
    Binder binder(statement.kind == StatementKind::InsertValues ? none : shape, shapeOf);
    bindAssignments(statement, shape, binder);
    if (statement.where)
        binder.bindCondition(*statement.where);
}

bool readsNoColumn(const Expr& expr) {
    return expr.kind != ExprKind::Column && expr.kind != ExprKind::InSelect &&
           std::all_of(expr.args.begin(), expr.args.end(), [](const ExprPtr& arg) { return readsNoColumn(*arg); });
}

bool hasAggregate(const Expr& expr) {
    return expr.kind == ExprKind::Aggregate ||
           std::any_of(expr.args.begin(), expr.args.end(), [](const ExprPtr& arg) { return hasAggregate(*arg); });
}

std::vector<ResultColumn> resultColumns(const Select& select, const TableShape& shape) {
    std::vector<ResultColumn> columns;
    int unnamed = 1000;
    for (const SelectItem& item : select.items) {
        if (item.star) {
            for (const ColumnDef& column : shape.columns)
                columns.push_back({column.name, column.type});
            continue;
        }
        const Expr& expr = *item.expr;
        ResultColumn column;
        if (expr.kind == ExprKind::Column)
            column = {shape.columns[static_cast<std::size_t>(expr.column)].name,
                      shape.columns[static_cast<std::size_t>(expr.column)].type};
        else
            column = {"Expr" + std::to_string(unnamed++),
                      expr.type == ExprType::Text
                          ? ColumnType::Text
                          : (expr.type == ExprType::Real ? ColumnType::Real : ColumnType::Integer)};
        if (!item.alias.empty())
            column.name = item.alias;
        columns.push_back(std::move(column));
    }
    return columns;
}

Range rangeOf(const Expr& expr, const std::vector<Range>& operands) {
    switch (expr.kind) {
    case ExprKind::Literal:
    case ExprKind::Column:
        return expr.range;
    case ExprKind::Unary:
        if (expr.unary == UnaryOp::Negate)
            return {-operands[0].high, -operands[0].low};
        return {-1, 0};
    case ExprKind::Binary:
        return binaryRange(expr.binary, operands[0], operands[1]);
    case ExprKind::Function:
        if (expr.function == FunctionId::IIf)
            return spanning({operands[1].low, operands[1].high, operands[2].low, operands[2].high});
        return expr.function == FunctionId::Int ? operands[0] : expr.range;
    default:
        return expr.range;
    }
}

} // namespace sql
