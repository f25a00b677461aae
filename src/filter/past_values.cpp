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
class Reader {
  public:
    Reader(const history::History& history, const Parameter& parameter)
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

std::optional<PastValues> pastValues(const history::History& history, const Parameter& parameter, double low,
                                     double high) {
    const Reader values(history, parameter);
    if (!values.any())
        return std::nullopt;
    PastValues past{.latest = {}, .seen = {values.at(1), values.at(1)}, .draws = history.Lsnum};
    for (int draw = 1; draw <= history.Lsnum; ++draw) {
        const int value = values.at(draw);
        past.seen = {std::min(past.seen.low, value), std::max(past.seen.high, value)};
        past.inside += value >= low && value <= high;
    }
    for (int draw = history.Lsnum; draw > std::max(0, history.Lsnum - kLatestDraws); --draw)
        past.latest.push_back(values.at(draw));
    return past;
}

} // namespace filter
