// A combination table with bets of our choice, and the statements that a query of it runs.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "prize/query.h"
#include "scratch_folder.h"
#include "sql/database.h"
#include "workspace/templates.h"

namespace prize_tests {

using namespace Qt::StringLiterals;

/// 3 9 14 20 27 33 + 8
inline constexpr history::Draw kDraw{2026113, 3, 9, 14, 20, 27, 33, 8};

struct Bet {
    std::array<std::int32_t, 7> numbers;
    bool out = false;
};

/// The rules of an empty store.
prize::Rules defaultRules();
const prize::QueryEntry& entryOf(std::u16string_view command);

class QueryTable {
  public:
    explicit QueryTable(std::u16string_view command = u"mnuzhInq", sql::Executor executor = sql::Executor::Column);

    /// idx from 1. Bets that are out have the reason 和值.
    void hold(const std::vector<Bet>& bets);
    prize::Query opened(const prize::Rules& rules = defaultRules());
    std::vector<std::string> takeStatements() { return std::exchange(m_statements, {}); }

    ScratchFolder folder;
    sql::Engine engine;
    const prize::QueryEntry& entry;
    std::unique_ptr<sql::Database> database;

  private:
    std::vector<std::string> m_statements;
};

/// The cells of a list, a line a row: "1|3|9|…|"; NULL reads as ~.
std::vector<std::string> linesOf(const sql::Rows& rows);
/// Levels of a summary: "四等奖 2 x 200 = 400".
std::vector<std::string> linesOf(const std::vector<prize::LevelRow>& levels);

} // namespace prize_tests
