// The table that every figure is about: all sets of 6 of 33 reds with some blues, on one executor, with a history of
// made-up draws.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "filter/history_match.h"
#include "filter/member.h"
#include "filter/parameter_run.h"
#include "filter/result_view.h"
#include "filter/row_states.h"

namespace bench {

inline constexpr int kReds = 33;
inline constexpr std::int64_t kSets = 1107568; ///< 6 of 33
inline constexpr int kDraws = 3358;            ///< as many as 2003 to 2026 brought

class RuleTable {
  public:
    /// Makes the file and its table; both are gone at the end.
    RuleTable(sql::Executor executor, int blues);
    ~RuleTable();
    RuleTable(const RuleTable&) = delete;
    RuleTable& operator=(const RuleTable&) = delete;

    sql::Executor executor() const { return m_executor; }
    int blues() const { return m_blues; }
    std::int64_t rows() const { return kSets * m_blues; }
    sql::Database& database() { return *m_database; }
    const history::History& history() const { return m_history; }

    /// Drops, makes and fills the table. \return rows written
    std::int64_t generate();
    /// One parameter: compute, snapshot, filter, count and view. \return bets in play
    std::int64_t press(std::string_view option, const filter::RowInput& row, const filter::RunSettings& run = {});
    std::int64_t inPlay() { return view().inPlay().rows.count(); }
    void run(std::string_view statement) { m_database->execute(statement); }
    /// Closes the file, stored, and opens it again when the table is asked for next.
    void close();
    void open();

    filter::RowStates states() { return {*m_database, member().table}; }
    filter::ResultView view() { return {*m_database, member()}; }
    filter::Workbench workbench() { return {*m_database, member().table, m_history, kReds}; }

    static const filter::FilterMember& member() { return filter::kFilterMembers[0]; }

  private:
    sql::Executor m_executor;
    int m_blues;
    std::filesystem::path m_folder;
    sql::Engine m_engine;
    std::unique_ptr<sql::Database> m_database;
    history::History m_history;
};

} // namespace bench
