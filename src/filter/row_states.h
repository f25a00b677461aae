// Row states of a combination table: which bets are in play, and the one step back.
//
// A filter deletes nothing; it flips `unslt`. `preunslt` holds the state before the last operation. The operations
// here undo, invert and toggle; filters are in parameter_run.h. Resets take no snapshot, on purpose: restoreLast()
// twice does nothing more the second time, and resetAll() cannot be undone. Cost: each is one to three passes over
// bit columns and the reasons. What the database refuses is passed over.
#pragma once

#include <string>
#include <string_view>

#include "sql/database.h"

namespace filter {

enum class Toggled { NotFound, TakenOut, PutBack };

class RowStates {
  public:
    RowStates(sql::Database& database, std::string_view table) : m_database(database), m_table(table) {}

    /// 全部复位: every row is in play, without a reason.
    void resetAll() const;
    /// 上次过滤复位: what the last operation took out comes back.
    void restoreLast() const;
    /// 全部组号反选
    void invertAll() const;
    /// 上一步过滤反选: inverts the rows that were in play before the last operation.
    void invertLast() const;
    /// Double click on a row: takes it out, or puts it back.
    /// \param idx  text of the row's number as the grid shows it; a text that is no row's number hits no row
    Toggled toggle(const std::string& idx) const;

  private:
    void run(std::string_view afterTable) const;
    std::string update() const { return "UPDATE [" + m_table + "] SET "; }

    sql::Database& m_database;
    std::string m_table;
};

} // namespace filter
