// Rows of the tables of draws, column by column, on their way into the databases.
//
// One DrawBlock collects the rows of a batch for fig, Ylqs and YlqsB in the engine's bulk form. Add each draw when
// its statistics have been counted, then append the whole to the open transactions.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "history/history.h"
#include "sql/database.h"

namespace history {

/// A table's rows as named columns of 32-bit numbers.
class ColumnBlock {
  public:
    explicit ColumnBlock(std::vector<std::string> columns);

    /// Begins a row: add() then gives the value of the first column, of the second, …
    void beginRow() { m_next = 0; }
    void add(std::int32_t value) { m_values[m_next++].push_back(value); }
    /// \param columns  how many of the columns, from the first, the table gets
    void appendTo(sql::Database& database, const std::string& table, std::size_t columns) const;
    void appendTo(sql::Database& database, const std::string& table) const {
        appendTo(database, table, m_columns.size());
    }

  private:
    std::vector<std::string> m_columns;
    std::vector<std::vector<std::int32_t>> m_values;
    std::size_t m_next = 0;
};

class DrawBlock {
  public:
    DrawBlock();

    /// \param index    the draw's row number in the history, from 1
    /// \param history  statistics as they stand after the draw
    void add(int index, const Draw& draw, const Derived& derived, const History& history);
    void appendTo(sql::Database& dbUser, sql::Database& dbFilnum) const;

  private:
    ColumnBlock m_fig;
    ColumnBlock m_ylqs;
    ColumnBlock m_ylqsB;
};

/// "Idx", "fig0" … "fig7" and the derived columns: table fig of dbUser in its order.
std::vector<std::string> figColumns();

/// "Qihao", "ylqs1" … up to the number: table Ylqs or YlqsB in its order.
std::vector<std::string> omissionColumns(int numbers);

/// "SELECT [Idx],[fig0] FROM [fig]"
std::string selectColumns(const std::vector<std::string>& columns, const char* table);

/// Rewrites the records of the rule's numbers in Gailv and GailvB; later records stay as they are.
/// \throws sql::SqlError kNoCurrentRecord for a table with fewer records
void writeShares(sql::Database& dbUser, const History& history, int reds, int blues);

} // namespace history
