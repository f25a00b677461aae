// What every filter test works on: a fresh database with a generated table, a small history, the log of statements.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "filter/member.h"
#include "filter/parameter_run.h"
#include "filter/plain_values.h"
#include "filter/result_view.h"
#include "filter/row_states.h"

namespace filter_test {

/// A folder that is removed at the end.
class ScratchFolder {
  public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    std::filesystem::path file(const std::string& name) const { return m_folder / name; }

  private:
    std::filesystem::path m_folder;
};

class BenchTable {
  public:
    /// \param form  of the member of the family that it is the table of
    explicit BenchTable(sql::Executor executor = sql::Executor::Column, std::string_view form = "GAgan");

    /// Enumerates reds 1..highest with these blues.
    void enumerate(int highest, const std::vector<int>& blues);
    /// Makes the table hold exactly these bets (the reds, then the blue if there is one), idx from 1.
    void hold(const std::vector<std::vector<int>>& bets);

    void press(const std::string& option, const filter::RowInput& row, const filter::RunSettings& settings = {});
    void accumulate(const std::string& option, const filter::RowInput& row, const filter::RunSettings& settings = {});
    std::int64_t inPlay() { return view().inPlay().rows.count(); }
    /// One column of all rows, in order.
    std::vector<int> column(const std::string& name);
    std::vector<std::string> texts(const std::string& name);
    plain::Bet bet(const sql::Rows& rows, std::int64_t row) const;
    plain::Rule rule(const filter::RunSettings& settings = {}) const;

    /// Statements run since the last call.
    std::vector<std::string> takeStatements();

    filter::RowStates states() { return {*database, member.table}; }
    filter::ResultView view() { return {*database, member}; }
    filter::Workbench bench() { return {*database, member.table, history, Bitnum, member.reds, member.blue}; }
    const filter::Parameter& parameter(std::string_view option) const;

    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> database;
    history::History history; ///< one draw, 2 5 11 17 25 33 + 6, and an omission for each red
    const filter::FilterMember& member;
    int Bitnum = 33;

  private:
    std::vector<std::string> m_statements;
};

/// Of the windows with six reds and a blue.
const filter::Parameter& parameter(const std::string& option);
/// Range boxes, with a list for the other mode.
filter::RowInput range(const std::string& low, const std::string& high);
filter::RowInput list(const std::string& numbers);
filter::RunSettings settings(filter::Mode mode, std::int16_t Baoliu);
std::int64_t choose(int n, int k);

inline constexpr sql::Executor kExecutors[] = {sql::Executor::Sqlite, sql::Executor::Column};

} // namespace filter_test
