// From a bound expression to a tree of nodes for one table.
#pragma once

#include <functional>
#include <optional>

#include "sql/node.h"
#include "sql/number_keys.h"

namespace sql {

struct PlanContext {
    ColumnTable& table; ///< planning may settle texts that have a recipe; their values stay
    TextPool& pool;
    std::function<ValueSet(const Select&)> runSubselect;
    /// The same as keys of numbers, where the texts are put together as this recipe puts them
    std::function<std::optional<NumberKeys>(const Select&, const TextRecipe&)> runSubselectOfNumbers;
    std::int64_t* evaluations = nullptr; ///< raised by one for each result that is worked by itself
    std::size_t textBytes = SIZE_MAX;    ///< EngineOptions::textBytes
};

Planned plan(const Expr& expr, PlanContext& context);

/// The value as text, Null staying Null: what a text column is given.
Planned planAsText(const Expr& expr, PlanContext& context);

} // namespace sql
