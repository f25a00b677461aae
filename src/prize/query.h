// A prize query: every row of a combination table against one draw, without its window.
//
// The query adds work columns to the table and fills them by a fixed number of statements, however many rows there
// are: matches, then prizes from row 10 up to row 1, so that of two rules with one match the first prevails. Rows in
// play are the bets that the user kept.
// Order: construct, open(), then sort(), pageKept(), pageOut() as they come. What the database refuses is passed
// over: the first query of a table begins with columns to drop that are not there. The lists are lazy rows of the
// table.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include <QString>

#include "history/draw_record.h"
#include "prize/query_kinds.h"
#include "prize/rules.h"
#include "sql/database.h"

namespace prize {

/// A page that is turned to reaches one page further, on purpose: page 1 is idx 1 to 20000.
inline constexpr int kPageRows = 10000;

/// What one level won.
struct LevelRow {
    QString label;
    std::int64_t bets;
    std::optional<std::int32_t> money; ///< of one bet; nothing where rules of the level differ in it
    std::int64_t won;
};

struct Summary {
    std::vector<LevelRow> kept;
    std::vector<LevelRow> out;
};

class Query {
  public:
    /// \param entry  of kQueryEntries  \param database  the file of its kind; it outlives the query
    Query(sql::Database& database, const QueryEntry& entry, const history::Draw& draw, const Rules& rules);

    void open();
    /// Hits first, in both lists.
    void sort();
    /// \param page  as typed: what is no number is page 0
    void pageKept(const QString& page);
    void pageOut(const QString& page);

    const QueryEntry& entry() const { return m_entry; }
    const history::Draw& draw() const { return m_draw; }
    const Rules& rules() const { return m_rules; }
    const sql::Rows& kept() const { return m_kept; }
    const sql::Rows& out() const { return m_out; }
    /// The list that was opened last: its bets are reported.
    const sql::Rows& lastOpened() const { return m_lastIsOut ? m_out : m_kept; }
    /// Rows in play, and rows that are out, whatever page is shown.
    std::int64_t keptCount() const { return m_keptCount; }
    std::int64_t outCount() const { return m_outCount; }
    const Summary& summary() const { return m_summary; }

    std::int64_t Cost = 0;                             ///< yuan of the rows in play
    std::int64_t Income = 0;                           ///< yuan that they won
    std::array<std::int64_t, kRules + 1> PrizeCount{}; ///< rows in play by rule row; 0 for one that begins no level

  private:
    void run(const std::string& afterTable);
    void makeColumns();
    void writeNumbers();
    void matchDraw();
    void applyRules();
    void summarise();
    std::vector<LevelRow> levels(bool out);
    LevelRow level(int row, bool out);
    sql::Rows list(const ListKind& kind, bool out, const std::string& rest) const;
    sql::Rows sorted(const ListKind& kind, bool out) const;
    static std::string pageOf(const QString& page);
    std::int64_t number(const std::string& select) const;

    sql::Database& m_database;
    const QueryEntry& m_entry;
    const std::string m_table;
    const history::Draw m_draw;
    const Rules m_rules;
    sql::Rows m_kept;
    sql::Rows m_out;
    std::int64_t m_keptCount = 0;
    std::int64_t m_outCount = 0;
    bool m_lastIsOut = false;
    Summary m_summary;
};

} // namespace prize
