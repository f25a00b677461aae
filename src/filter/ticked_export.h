// The export of ticked parameters (多选参数导出): the bets in play, numbered from 1, and a column of values for each
// tick.
//
// Parameters are computed one after the other on the member's table, in the order of their ticks; their values are
// read from the wheel table (zuheRote, of six reds zuheRoteR), whatever it holds, also where the window works on
// another table: deliberate. So only a wheel's own window gets the values of its bets. Positions are not exported.
// Column after column may be longer or shorter than the list of bets.
#pragma once

#include <filesystem>
#include <vector>

#include "filter/member.h"
#include "filter/window_state.h"
#include "output/sheet.h"
#include "sql/database.h"

namespace filter {

/// The rows of the export, each column read once, when it is made.
class TickedExport final : public output::SheetRows {
  public:
    /// Computes the values: canshu of the member's table is that of the last ticked parameter then.
    TickedExport(const FilterMember& member, const Workbench& bench, const WindowState& state);

    /// Reads the rows where they lie: no longer than they.
    output::Sheet sheet() const { return {m_columns, *this}; }
    std::int64_t count() const override;
    output::SheetCell cell(std::int64_t row, int column) const override;

  private:
    using Values = std::vector<sql::Value>;

    void addNumbers(const FilterMember& member);
    void addValues(const Workbench& bench, const Parameter& parameter, const WindowState& state,
                   const std::string& wheelTable, bool own);

    int m_numbers; ///< of a bet
    std::vector<output::SheetColumn> m_columns;
    sql::Rows m_bets;
    sql::Rows m_wheel;           ///< canshu of the wheel table, when that is another one
    std::vector<Values> m_owned; ///< a copy for each tick when it is the member's own: the next tick overwrites it
    std::int64_t m_longest = 0;
};

} // namespace filter
