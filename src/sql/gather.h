// Values of an expression for chosen rows, side by side: what DISTINCT, ORDER BY, IN and SELECT INTO work on.
//
// The expression runs batch by batch like any other; the chosen rows of each batch are then pushed together. Nothing
// looks at a row by itself.
#pragma once

#include <vector>

#include "sql/plan.h"

namespace sql {

struct Gathered {
    Storage storage = Storage::Ints;
    bool wholeNumbers = true;       ///< Reals that hold whole numbers
    std::vector<std::int32_t> ints; ///< or codes of the pool
    std::vector<double> reals;
    std::vector<std::uint8_t> nulls; ///< empty when no value is Null

    std::size_t size() const { return storage == Storage::Reals ? reals.size() : ints.size(); }
    bool isNull(std::size_t at) const { return !nulls.empty() && nulls[at] != 0; }
};

/// One bit a row of `chosen`.
Gathered gather(const Expr& expr, const Bitmap& chosen, PlanContext& context, std::size_t batchRows);
/// The values as texts, numbers printed; Null stays Null.
Gathered gatherTexts(const Expr& expr, const Bitmap& chosen, PlanContext& context, std::size_t batchRows);

/// The items of a bound SELECT with `*` opened up into the table's columns.
class OpenedItems {
  public:
    OpenedItems(const Select& select, const TableShape& shape);
    const std::vector<const Expr*>& items() const { return m_items; }

  private:
    std::vector<ExprPtr> m_opened;
    std::vector<const Expr*> m_items;
};

/// Numbers that are equal for equal values (texts without regard to case) and in the order of the values; Null is the
/// least. For sorting and for finding doubles.
std::vector<double> sortKeys(const Gathered& values, const TextPool& pool);

/// The value set of an IN.
ValueSet valueSet(const Gathered& values, const TextPool& pool);

} // namespace sql
