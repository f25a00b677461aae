#include "sql/plan.h"

#include <algorithm>
#include <optional>
#include <set>

#include "sql/scalar.h"
#include "sql/text_recipe.h"

namespace sql {

namespace {

constexpr double kWordLow = kIntegerLow;
constexpr double kWordHigh = kIntegerHigh;

// Sums, counts and digits of bets spread over a few hundred values. A table of 4096 results stays in the first-level
// cache; beyond that a number is as often met once, and a loop over the rows is the better way.
constexpr std::size_t kWidestTable = 4096;

bool fitsInts(const Range& range) {
    return range.low >= kWordLow && range.high <= kWordHigh;
}

struct Reads {
    std::set<int> columns;
    bool subselect = false;
};

void collectReads(const Expr& expr, Reads& reads) {
    if (expr.kind == ExprKind::Column)
        reads.columns.insert(expr.column);
    reads.subselect |= expr.kind == ExprKind::InSelect;
    for (const ExprPtr& arg : expr.args)
        collectReads(*arg, reads);
}

/// Sums and products of whole numbers: the loops over arrays do these faster than any table.
bool isPlainArithmetic(const Expr& expr) {
    if (expr.kind == ExprKind::Column || expr.kind == ExprKind::Literal)
        return expr.type == ExprType::Integer;
    const bool plain =
        expr.kind == ExprKind::Binary &&
        (expr.binary == BinaryOp::Add || expr.binary == BinaryOp::Subtract || expr.binary == BinaryOp::Multiply) &&
        expr.type == ExprType::Integer;
    return plain && isPlainArithmetic(*expr.args[0]) && isPlainArithmetic(*expr.args[1]);
}

class Planner {
  public:
    explicit Planner(PlanContext& context) : m_context(context) {}

    Planned plan(const Expr& expr) {
        Reads reads;
        collectReads(expr, reads);
        if (reads.columns.empty() && !reads.subselect)
            return constant(expr);
        if (expr.kind == ExprKind::Column)
            return column(expr);
        if (auto test = bitTest(expr))
            return std::move(*test);
        if (!reads.subselect && reads.columns.size() == 1 && isNarrow(*reads.columns.begin()) &&
            !isPlainArithmetic(expr))
            return lookupNode(expr, m_context.table, *reads.columns.begin(), m_context.pool, m_context.evaluations);
        return general(expr);
    }

  private:
    const Column& columnAt(int place) const { return m_context.table.columns[static_cast<std::size_t>(place)]; }

    /// Whether a table of results by the column's values is worth its making.
    bool isNarrow(int place) const {
        const Column& column = columnAt(place);
        switch (column.def.type) {
        case ColumnType::Bit:
        case ColumnType::Real:
            return false;
        case ColumnType::Text:
            return !column.recipe &&
                   column.dictionary->size() <= std::max<std::size_t>(4 * m_context.table.rows, 256);
        default:
            break;
        }
        const auto spread = static_cast<std::size_t>(std::int64_t{column.numbers.high()} - column.numbers.low());
        return spread < kWidestTable && spread <= std::max<std::size_t>(m_context.table.rows, 256);
    }

    static Storage storageOf(const Expr& expr, const Range& range) {
        if (expr.type == ExprType::Text)
            return Storage::Texts;
        return expr.type == ExprType::Real || !fitsInts(range) ? Storage::Reals : Storage::Ints;
    }

    Planned constant(const Expr& expr) {
        const Value value = evaluate(expr, [](int) { return Value(); });
        const double number = toReal(value);
        Planned planned{nullptr, storageOf(expr, {number, number}), {number, number}};
        planned.node = constantNode(value, planned.storage, m_context.pool);
        return planned;
    }

    Planned column(const Expr& expr) {
        settleText(m_context.table, expr.column);
        const Column& source = columnAt(expr.column);
        Planned planned{columnNode(m_context.table, expr.column, m_context.pool), Storage::Ints, {-1, 0}};
        if (source.def.type == ColumnType::Text)
            planned.storage = Storage::Texts;
        else if (source.def.type == ColumnType::Real)
            planned.storage = Storage::Reals;
        else if (source.def.type != ColumnType::Bit)
            planned.range = {static_cast<double>(source.numbers.low()), static_cast<double>(source.numbers.high())};
        return planned;
    }

    /// [bit] = literal and [bit] <> literal, either way round, answered from the bits.
    std::optional<Planned> bitTest(const Expr& expr) {
        if (expr.kind != ExprKind::Binary || (expr.binary != BinaryOp::Equal && expr.binary != BinaryOp::NotEqual))
            return std::nullopt;
        const Expr* bit = expr.args[0].get();
        const Expr* literal = expr.args[1].get();
        if (bit->kind == ExprKind::Literal)
            std::swap(bit, literal);
        const auto* number = std::get_if<std::int64_t>(&literal->literal);
        if (bit->kind != ExprKind::Column || !bit->isBit || literal->kind != ExprKind::Literal || !number)
            return std::nullopt;
        const bool equal = expr.binary == BinaryOp::Equal;
        if (*number != 0 && *number != -1)
            return equal ? Planned{bitTestNode(bit->column, true, false), Storage::Ints, {-1, 0}}
                         : Planned{notNode(bitTestNode(bit->column, true, false)), Storage::Ints, {-1, 0}};
        return Planned{bitTestNode(bit->column, (*number == -1) == equal, true), Storage::Ints, {-1, 0}};
    }

    Planned general(const Expr& expr) {
        switch (expr.kind) {
        case ExprKind::Unary:
            return unary(expr);
        case ExprKind::Binary:
            return binary(expr);
        case ExprKind::Function:
            return expr.function == FunctionId::IIf ? choice(expr) : memo(expr);
        case ExprKind::IsNull:
            return {isNullNode(plan(*expr.args[0]).node, expr.negated), Storage::Ints, {-1, 0}};
        case ExprKind::Like:
            return like(expr);
        case ExprKind::InSelect:
            if (const auto recipe = recipeOf(*expr.args[0]))
                return {recipeMember(recipe, expr), Storage::Ints, {-1, 0}};
            return {
                memberNode(plan(*expr.args[0]), m_context.runSubselect(*expr.subquery), expr.negated, m_context.pool),
                Storage::Ints,
                {-1, 0}};
        default:
            return memo(expr);
        }
    }

    /// The recipe of a text column that has one.
    std::shared_ptr<const TextRecipe> recipeOf(const Expr& expr) const {
        return expr.kind == ExprKind::Column ? columnAt(expr.column).recipe : nullptr;
    }

    NodePtr recipeMember(const std::shared_ptr<const TextRecipe>& recipe, const Expr& expr) {
        if (auto keys = m_context.runSubselectOfNumbers(*expr.subquery, *recipe))
            return numbersMemberNode(columnsOf(*recipe), std::move(*keys), expr.negated);
        return recipeMemberNode(recipe, m_context.runSubselect(*expr.subquery), expr.negated);
    }

    Planned like(const Expr& expr) {
        const auto* pattern = std::get_if<std::string>(&expr.args[1]->literal);
        const auto recipe = recipeOf(*expr.args[0]);
        if (recipe && expr.args[1]->kind == ExprKind::Literal && pattern) {
            const auto wanted = numbersOfPattern(*pattern);
            const auto columns = paddedColumns(m_context.table, *recipe);
            if (wanted && columns)
                return {numbersInOrderNode(*columns, *wanted, expr.negated), Storage::Ints, {-1, 0}};
        }
        return memo(expr);
    }

    Planned unary(const Expr& expr) {
        Planned operand = plan(*expr.args[0]);
        if (expr.unary == UnaryOp::Not)
            return {notNode(std::move(operand.node)), Storage::Ints, {-1, 0}};
        const Range range = rangeOf(expr, {operand.range});
        const Storage storage = operand.storage == Storage::Reals ? Storage::Reals : storageOf(expr, range);
        return {negateNode(std::move(operand), storage), storage, range};
    }

    static bool isText(const Expr& expr) {
        return std::any_of(expr.args.begin(), expr.args.end(),
                           [](const ExprPtr& arg) { return arg->type == ExprType::Text; });
    }

    Planned binary(const Expr& expr) {
        if (expr.binary == BinaryOp::Join || (expr.binary < BinaryOp::And && isText(expr)))
            return memo(expr);
        Planned left = plan(*expr.args[0]);
        Planned right = plan(*expr.args[1]);
        if (expr.binary == BinaryOp::And || expr.binary == BinaryOp::Or)
            return {logicNode(expr.binary, std::move(left.node), std::move(right.node)), Storage::Ints, {-1, 0}};
        if (expr.binary >= BinaryOp::Equal)
            return {compareNode(expr.binary, std::move(left), std::move(right)), Storage::Ints, {-1, 0}};
        const bool whole = expr.type == ExprType::Integer;
        Range range = expr.binary == BinaryOp::Mod ? expr.range : rangeOf(expr, {left.range, right.range});
        Storage storage = whole ? storageOf(expr, range) : Storage::Reals;
        if (expr.binary == BinaryOp::Mod)
            storage = Storage::Ints;
        else if (left.storage == Storage::Reals || right.storage == Storage::Reals)
            storage = Storage::Reals;
        return {arithmeticNode(expr.binary, whole, std::move(left), std::move(right), storage), storage, range};
    }

    Planned choice(const Expr& expr) {
        Planned condition = plan(*expr.args[0]);
        Planned then = plan(*expr.args[1]);
        Planned otherwise = plan(*expr.args[2]);
        if (expr.type == ExprType::Text) { // a Null branch comes as a number
            then = planText(*expr.args[1], std::move(then));
            otherwise = planText(*expr.args[2], std::move(otherwise));
        }
        const Range range = rangeOf(expr, {condition.range, then.range, otherwise.range});
        Storage storage = storageOf(expr, range);
        if (storage == Storage::Ints && (then.storage == Storage::Reals || otherwise.storage == Storage::Reals))
            storage = Storage::Reals;
        return {chooseNode(std::move(condition.node), std::move(then), std::move(otherwise), storage), storage,
                range};
    }

    Planned planText(const Expr& expr, Planned planned) {
        if (planned.storage == Storage::Texts)
            return planned;
        std::vector<MemoOperand> operands;
        operands.push_back({std::move(planned), expr.type != ExprType::Real});
        const auto asText = [](std::span<const Value> args) {
            return isNull(args[0]) ? Value() : Value(toText(args[0]));
        };
        return {memoNode(asText, std::move(operands), Storage::Texts, m_context.pool, m_context.evaluations),
                Storage::Texts,
                {}};
    }

    /// A function of one or two operands; `format` has its pattern in the tree.
    Planned memo(const Expr& expr) {
        const bool oneOperand =
            expr.args.size() == 1 || (expr.kind == ExprKind::Function && expr.function == FunctionId::Format);
        std::vector<MemoOperand> operands;
        for (std::size_t place = 0; place < (oneOperand ? 1U : 2U); ++place)
            operands.push_back({plan(*expr.args[place]), expr.args[place]->type != ExprType::Real});
        const auto apply = [&expr](std::span<const Value> args) {
            if (args.size() == expr.args.size())
                return applyNode(expr, args);
            const std::array<Value, 2> both = {args[0], expr.args[1]->literal};
            return applyNode(expr, both);
        };
        const Storage storage = storageOf(expr, expr.range);
        return {memoNode(apply, std::move(operands), storage, m_context.pool, m_context.evaluations), storage,
                expr.range};
    }

    friend Planned sql::planAsText(const Expr& expr, PlanContext& context);

    PlanContext& m_context;
};

} // namespace

Planned plan(const Expr& expr, PlanContext& context) {
    return Planner(context).plan(expr);
}

Planned planAsText(const Expr& expr, PlanContext& context) {
    Planner planner(context);
    return planner.planText(expr, planner.plan(expr));
}

} // namespace sql
