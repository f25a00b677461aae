#include "sql/column_rows.h"

#include <algorithm>
#include <numeric>

#include "sql/scalar.h"

namespace sql {

namespace {

constexpr std::size_t kBlockWords = 32; // a search in the counts, then at most 32 words to walk

class OneRow final : public Rows::Source {
  public:
    OneRow(std::vector<std::string> names, std::vector<Value> values)
        : m_names(std::move(names)), m_values(std::move(values)) {}
    std::int64_t count() const override { return 1; }
    const std::vector<std::string>& columns() const override { return m_names; }
    Value at(std::int64_t, int column) const override { return m_values[static_cast<std::size_t>(column)]; }

  private:
    std::vector<std::string> m_names;
    std::vector<Value> m_values;
};

} // namespace

RowPlaces::RowPlaces(Bitmap chosen) : m_chosen(std::move(chosen)) {
    const auto& words = m_chosen->words();
    for (std::size_t word = 0; word < words.size(); ++word) {
        if (word % kBlockWords == 0)
            m_before.push_back(m_count);
        m_count += static_cast<std::size_t>(std::popcount(words[word]));
    }
}

std::size_t RowPlaces::at(std::size_t place) const {
    if (!m_order.empty())
        return m_order[place];
    if (!m_chosen)
        return place;
    const auto block = std::upper_bound(m_before.begin(), m_before.end(), place) - m_before.begin() - 1;
    std::size_t skip = place - m_before[static_cast<std::size_t>(block)];
    const auto& words = m_chosen->words();
    std::size_t word = static_cast<std::size_t>(block) * kBlockWords;
    for (std::size_t held; (held = static_cast<std::size_t>(std::popcount(words[word]))) <= skip; ++word)
        skip -= held;
    std::uint64_t rest = words[word];
    for (; skip > 0; --skip)
        rest &= rest - 1;
    return word * 64 + static_cast<std::size_t>(std::countr_zero(rest));
}

std::vector<std::uint32_t> RowPlaces::list() const {
    std::vector<std::uint32_t> result(m_count);
    if (!m_order.empty())
        return m_order;
    if (!m_chosen) {
        std::iota(result.begin(), result.end(), 0U);
        return result;
    }
    std::size_t place = 0;
    forEachBit(m_chosen->words().data(), m_chosen->size(),
               [&](std::size_t row) { result[place++] = static_cast<std::uint32_t>(row); });
    return result;
}

ColumnRows::ColumnRows(std::shared_ptr<const ColumnTable> table, Select&& select, RowPlaces places)
    : m_table(std::move(table)), m_select(std::move(select)), m_places(std::move(places)) {
    for (const ResultColumn& column : resultColumns(m_select, m_table->shape()))
        m_names.push_back(column.name);
    for (const SelectItem& item : m_select.items) {
        if (item.star)
            for (std::size_t column = 0; column < m_table->columns.size(); ++column)
                m_items.push_back({static_cast<int>(column), nullptr});
        else if (item.expr->kind == ExprKind::Column)
            m_items.push_back({item.expr->column, nullptr});
        else
            m_items.push_back({-1, item.expr.get()});
    }
}

Value ColumnRows::at(std::int64_t row, int column) const {
    const Item& item = m_items[static_cast<std::size_t>(column)];
    const std::size_t place = m_places.at(static_cast<std::size_t>(row));
    if (place >= m_table->rows)
        return {}; // the row has been deleted since
    if (!item.expr)
        return static_cast<std::size_t>(item.column) < m_table->columns.size() ? m_table->at(place, item.column)
                                                                               : Value();
    return evaluate(*item.expr, [&](int from) { return m_table->at(place, from); });
}

std::shared_ptr<const Rows::Source> oneRow(std::vector<std::string> names, std::vector<Value> values) {
    return std::make_shared<OneRow>(std::move(names), std::move(values));
}

} // namespace sql
