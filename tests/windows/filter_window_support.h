// A filter window over a small table, for tests with real clicks.
#pragma once

#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include "filter/windows/filter_window.h"
#include "support/controls.h"
#include "support/fresh_home.h"
#include "toolkit/data_grid.h"

namespace filter {

/// 14 bets: the six sets of seven reds that leave out 7, 6, … 1, each with the blues 3 and 9.
class FilterWindowFixture : public testing::Test {
  protected:
    FilterWindowFixture() : m_database(m_engine.create(m_home.folder() / "filnum.mdb")) {
        m_history.Lsnum = 1;
        m_history.Lshm.push_back({2026001, 2, 5, 11, 17, 25, 33, 6});
        m_history.derived.emplace_back(); // the window shows the last draw's values
        m_database->setListener([this](std::string_view text) { m_statements.push_back(std::string(text)); });
        m_window =
            std::make_unique<FilterWindow>(kFilterMembers[0], FilterContext{*m_database, m_history, 33, m_Baoliu});
        generate(7, {3, 9});
        m_window->show();
    }

    void generate(int reds, std::vector<std::int32_t> blues) {
        selection::GenerationInput input;
        for (int red = 1; red <= reds; ++red)
            input.chosen.reds.push_back(red);
        input.chosen.blues = std::move(blues);
        input.Genreds = reds;
        load(input);
        m_statements.clear();
    }

    /// The history has no draw meanwhile: the boxes keep what they open with before they have looked at it.
    void load(selection::GenerationInput& input) {
        selection::Enumeration source(input);
        load(source);
    }
    void load(selection::BetSource& source) {
        const int draws = std::exchange(m_history.Lsnum, 0);
        m_window->load(source);
        m_history.Lsnum = draws;
    }

    toolkit::DataGrid& grid() {
        return *test_support::controlAs<toolkit::DataGrid>(*m_window, QStringLiteral("MSFlexGrid1"));
    }

    test_support::FreshHome m_home;
    sql::Engine m_engine;
    std::unique_ptr<sql::Database> m_database;
    history::History m_history;
    std::int16_t m_Baoliu = kRemove;
    std::vector<std::string> m_statements;
    std::unique_ptr<FilterWindow> m_window;
};

class FilterWindowLookTest : public FilterWindowFixture {
  protected:
    template <class Control> Control& part(const QString& name) {
        return *test_support::controlAs<Control>(*m_window, name);
    }
    QModelIndex cell(int row, int column) { return grid().model()->index(row, column); }
};

} // namespace filter
