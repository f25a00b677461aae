#include "filter/history_column.h"

#include <algorithm>
#include <string>

#include "sql/lexer.h"

namespace filter {

std::optional<HistoryColumn> HistoryColumn::find(std::string_view name) {
    HistoryColumn column;
    for (std::size_t place = 1; place < history::Draw{}.size(); ++place)
        if (sql::sameName(name, "fig" + std::to_string(place))) {
            column.m_place = place;
            return column;
        }
    const auto derived = std::ranges::find_if(
        history::kDerivedColumns, [&](const history::DerivedColumn& each) { return sql::sameName(each.name, name); });
    if (derived == history::kDerivedColumns.end())
        return std::nullopt;
    column.m_derived = &*derived;
    return column;
}

} // namespace filter
