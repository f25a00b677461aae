// A filter window over a small table, for tests with real clicks.
#pragma once

#include <memory>

#include <gtest/gtest.h>

#include "filter/windows/filter_window.h"
#include "support/controls.h"
#include "support/fresh_home.h"
#include "toolkit/data_grid.h"

namespace filter {

/// 14 bets: the six sets of seven reds that leave out 7, 6, … 1, each with the blues 3 and 9.
class FilterWindowLookTest : public testing::Test {
  protected:
    FilterWindowLookTest() : m_database(m_engine.create(m_home.folder() / "filnum.mdb")) {
        m_history.Lsnum = 1;
        m_history.Lshm.push_back({2026001, 2, 5, 11, 17, 25, 33, 6});
        m_database->setListener([this](std::string_view text) { m_statements.push_back(std::string(text)); });
        m_window =
            std::make_unique<FilterWindow>(kFilterMembers[0], FilterContext{*m_database, m_history, 33, m_Baoliu});
        selection::GenerationInput input;
        for (int red = 1; red <= 7; ++red)
            input.chosen.reds.push_back(red);
        input.chosen.blues = {3, 9};
        input.Genreds = 7;
        selection::Enumeration source(input);
        m_window->load(source);
        m_window->show();
        m_statements.clear();
    }

    template <class Control> Control& part(const QString& name) {
        return *test_support::controlAs<Control>(*m_window, name);
    }
    toolkit::DataGrid& grid() { return part<toolkit::DataGrid>(QStringLiteral("MSFlexGrid1")); }
    QModelIndex cell(int row, int column) { return grid().model()->index(row, column); }

    test_support::FreshHome m_home;
    sql::Engine m_engine;
    std::unique_ptr<sql::Database> m_database;
    history::History m_history;
    std::int16_t m_Baoliu = kRemove;
    std::vector<std::string> m_statements;
    std::unique_ptr<FilterWindow> m_window;
};

} // namespace filter
