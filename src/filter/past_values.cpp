#include "filter/past_values.h"

#include <algorithm>

#include "sql/lexer.h"

namespace filter {
namespace {

const history::DerivedColumn* derivedColumn(std::string_view name) {
    const auto found = std::ranges::find_if(history::kDerivedColumns, [&](const history::DerivedColumn& column) {
        return sql::sameName(column.name, name);
    });
    return found == history::kDerivedColumns.end() ? nullptr : &*found;
}

/// Reads one parameter draw after draw; looks the column up once.
class PastValues {
  public:
    PastValues(const history::History& history, const Parameter& parameter)
        : m_history(history), m_place(static_cast<std::size_t>(parameter.place)),
          m_column(parameter.isPosition() ? nullptr : derivedColumn(parameter.history)) {}

    bool any() const { return m_history.Lsnum > 0 && (m_place > 0 || m_column); }
    int at(int draw) const {
        const auto row = static_cast<std::size_t>(draw);
        return m_column ? m_column->get(m_history.derived[row]) : m_history.Lshm[row][m_place];
    }

  private:
    const history::History& m_history;
    std::size_t m_place;
    const history::DerivedColumn* m_column;
};

} // namespace

std::optional<int> pastValue(const history::History& history, const Parameter& parameter, int draw) {
    const PastValues values(history, parameter);
    if (!values.any() || draw < 1 || draw > history.Lsnum)
        return std::nullopt;
    return values.at(draw);
}

std::optional<double> pastShare(const history::History& history, const Parameter& parameter, double low,
                                double high) {
    const PastValues values(history, parameter);
    if (!values.any())
        return std::nullopt;
    int inside = 0;
    for (int draw = 1; draw <= history.Lsnum; ++draw)
        inside += values.at(draw) >= low && values.at(draw) <= high;
    return static_cast<double>(inside) / history.Lsnum;
}

} // namespace filter
