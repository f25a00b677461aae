#include <algorithm>

#include "fuzz/targets.h"
#include "sql/parser.h"

namespace {

bool same(const sql::Select& left, const sql::Select& right);

bool same(const sql::ExprPtr& left, const sql::ExprPtr& right) {
    if (!left || !right)
        return !left && !right;
    const sql::Expr& a = *left;
    const sql::Expr& b = *right;
    if (a.kind != b.kind || a.literal != b.literal || a.table != b.table || a.name != b.name || a.unary != b.unary ||
        a.binary != b.binary || a.function != b.function || a.aggregate != b.aggregate || a.negated != b.negated)
        return false;
    if (!a.subquery != !b.subquery || (a.subquery && !same(*a.subquery, *b.subquery)))
        return false;
    return std::equal(a.args.begin(), a.args.end(), b.args.begin(), b.args.end(),
                      [](const sql::ExprPtr& x, const sql::ExprPtr& y) { return same(x, y); });
}

bool same(const sql::SelectItem& a, const sql::SelectItem& b) {
    return a.star == b.star && a.alias == b.alias && same(a.expr, b.expr);
}
bool same(const sql::OrderItem& a, const sql::OrderItem& b) {
    return a.descending == b.descending && same(a.expr, b.expr);
}
bool same(const sql::ColumnDef& a, const sql::ColumnDef& b) {
    return a.name == b.name && a.type == b.type;
}
bool same(const sql::Assignment& a, const sql::Assignment& b) {
    return a.column == b.column && same(a.value, b.value);
}

template <class Item> bool same(const std::vector<Item>& left, const std::vector<Item>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const Item& a, const Item& b) { return same(a, b); });
}

bool same(const sql::Select& a, const sql::Select& b) {
    return a.distinct == b.distinct && a.into == b.into && a.from == b.from && same(a.items, b.items) &&
           same(a.where, b.where) && same(a.order, b.order);
}

bool same(const sql::Statement& a, const sql::Statement& b) {
    return a.kind == b.kind && a.table == b.table && a.column == b.column && same(a.select, b.select) &&
           same(a.assignments, b.assignments) && same(a.where, b.where) && same(a.columns, b.columns);
}

/// \return whether it parses
bool parseInto(sql::Statement& statement, std::string_view text, std::string& refusal) {
    try {
        statement = sql::parse(text);
        return true;
    } catch (const sql::SqlError& error) {
        if (error.number() != sql::error::kSyntax)
            fuzz::broken("refused with " + std::to_string(error.number()) + ": " + error.what());
        if (error.span().first > text.size() || error.span().first + error.span().length > text.size())
            fuzz::broken("the bytes at fault lie outside of the statement");
        refusal = error.what();
        return false;
    }
}

} // namespace

void fuzz::parser(std::string_view input) {
    sql::Statement first;
    std::string refusal;
    if (!parseInto(first, input, refusal))
        return;
    const std::string printed = sql::print(first);
    sql::Statement second;
    if (!parseInto(second, printed, refusal)) {
        // The print has brackets around every operator: a long chain may print deeper than a statement may nest.
        if (refusal != "表达式嵌套过深")
            broken("the print does not parse (" + refusal + "): " + printed);
        return;
    }
    if (!same(first, second))
        broken("the print parses to another tree: " + printed);
}
