// A column of the history's table fig, read from memory: a number of a draw, or a value derived from it.
#pragma once

#include <optional>
#include <string_view>

#include "history/history.h"

namespace filter {

/// Reads one column draw after draw; the name is looked up once.
class HistoryColumn {
  public:
    /// \param name  its case does not count
    /// \return nothing when the table has no such column
    static std::optional<HistoryColumn> find(std::string_view name);

    /// \param draw  1 to history.Lsnum
    int at(const history::History& history, int draw) const {
        const auto row = static_cast<std::size_t>(draw);
        return m_derived ? m_derived->get(history.derived[row]) : history.Lshm[row][m_place];
    }

  private:
    const history::DerivedColumn* m_derived = nullptr; ///< nullptr: a number of the draw
    std::size_t m_place = 0;                           ///< in the draw, 1..7
};

} // namespace filter
