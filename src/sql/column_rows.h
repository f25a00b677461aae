// The rows of a SELECT over a combination table: where they are, not what they hold.
#pragma once

#include <optional>

#include "sql/column.h"
#include "sql/executor.h"

namespace sql {

/// Which rows of a table, in which order.
class RowPlaces {
  public:
    /// All rows in order.
    explicit RowPlaces(std::size_t count) : m_count(count) {}
    /// The rows whose bit is set, in order: the place of the n-th is found by counts kept for every block.
    explicit RowPlaces(Bitmap chosen);
    /// Any rows in any order.
    explicit RowPlaces(std::vector<std::uint32_t> order) : m_count(order.size()), m_order(std::move(order)) {}

    std::size_t count() const { return m_count; }
    std::size_t at(std::size_t place) const;
    std::vector<std::uint32_t> list() const;

  private:
    std::size_t m_count = 0;
    std::optional<Bitmap> m_chosen;
    std::vector<std::size_t> m_before; // chosen rows before each block of kBlockWords words
    std::vector<std::uint32_t> m_order;
};

class ColumnRows final : public Rows::Source {
  public:
    ColumnRows(std::shared_ptr<const ColumnTable> table, Select&& select, RowPlaces places);

    std::int64_t count() const override { return static_cast<std::int64_t>(m_places.count()); }
    const std::vector<std::string>& columns() const override { return m_names; }
    Value at(std::int64_t row, int column) const override;

  private:
    struct Item {
        int column = -1;            // a plain column
        const Expr* expr = nullptr; // or an expression
    };

    std::shared_ptr<const ColumnTable> m_table;
    Select m_select; // owns the expressions
    RowPlaces m_places;
    std::vector<std::string> m_names;
    std::vector<Item> m_items;
};

/// One row of values that are known already: aggregates.
std::shared_ptr<const Rows::Source> oneRow(std::vector<std::string> names, std::vector<Value> values);

} // namespace sql
