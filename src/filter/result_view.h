// What the grid of a filter window shows: the SELECTs, the headings and widths, the title.
//
// Views are lazy rows over the table. A view that the database refuses is empty.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "filter/member.h"
#include "sql/database.h"

namespace filter {

/// Bets a page; a page is a block of idx values, not of survivors.
inline constexpr std::int64_t kPageRows = 10000;

struct GridColumn {
    std::string heading;
    int widthTwips;      ///< 15 to a pixel
    bool isText = false; ///< stands at the left, heading too; numbers stand in the middle
};

/// A view: its rows, the heading of each column, and in a view of all rows whether each is out.
struct View {
    sql::Rows rows;
    std::vector<GridColumn> columns;
    sql::Rows states{}; ///< unslt of the same rows; empty where all rows are in play
};

class ResultView {
  public:
    ResultView(sql::Database& database, const FilterMember& member) : m_database(database), m_member(member) {}

    /// All rows, right after a generation.
    View generated() const;
    /// What a window shows first: all rows right after an enumeration, else the rows in play in the member's order.
    View opened() const;
    /// What is shown of a group template that was cleared: headings as when bets are chosen, 红1 for 1位.
    View cleared() const;
    /// Rows in play, without a value column: after resets, inverts and position parameters.
    View inPlay() const;
    /// Rows in play after 组合模版同号滤: headings as when bets are chosen, and the state in a column of its own.
    View withState() const;
    /// Rows in play with canshu under the parameter's grid title.
    View inPlay(std::string_view gridTitle) const;
    /// All rows with the value and the reason.
    View reasons() const;
    /// Whether each row is out, in the order of reasons().
    sql::Rows states() const;
    /// Rows in play with idx in page `page`, 1 the first: (page - 1) * 10000 + 1 to page * 10000. Page 0 is empty.
    View page(double page) const;
    /// Bets in play, as counted after a double click.
    std::int64_t countInPlay() const;
    /// The window's title with the count of bets, for members whose title tells it.
    std::string title(std::int64_t bets) const;
    /// The title after 组合模版同号滤: no word of the double click.
    std::string shortTitle(std::int64_t bets) const;

  private:
    std::string bracketedColumns() const;
    std::string plainColumns() const;
    std::string select(const std::string& columns, const std::string& rest) const;
    std::vector<GridColumn> heads() const;
    std::vector<GridColumn> chosenHeads() const;

    sql::Database& m_database;
    const FilterMember& m_member;
};

} // namespace filter
