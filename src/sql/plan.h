// From a bound expression to a tree of nodes for one table.
#pragma once

#include <functional>

#include "sql/node.h"

namespace sql {

struct PlanContext {
    const ColumnTable& table;
    TextPool& pool;
    std::function<ValueSet(const Select&)> runSubselect;
};

Planned plan(const Expr& expr, PlanContext& context);

/// The value as text, Null staying Null: what a text column is given.
Planned planAsText(const Expr& expr, PlanContext& context);

} // namespace sql
