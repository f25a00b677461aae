// The steps of a session that gather bets in the group template and clear it, without a window.
#include <gtest/gtest.h>

#include "executor_names.h"
#include "filter/bench_table.h"
#include "filter/session.h"

namespace filter_test {
namespace {

using filter::AddToTemplate;
using filter::ClearTemplate;
using filter::Outcome;
using filter::Session;

class TemplateSteps : public testing::TestWithParam<sql::Executor> {
  protected:
    filter::SessionContext context() { return {*table.database, table.history, table.Bitnum, Baoliu}; }
    Session opened(const char* form) {
        Session session(*filter::findMember(form), context());
        session.generate(keep);
        return session;
    }
    std::string gathered() { return text(*table.database, "zuheMoban"); }
    static std::string text(sql::Database& database, const std::string& name) {
        const sql::Rows rows = database.query("SELECT idx,fig1,fig6,fig7 FROM [" + name + "]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            for (int column = 0; column < 4; ++column)
                all += rows.textAt(row, column) + (column < 3 ? ' ' : '|');
        return all;
    }

    BenchTable table{GetParam()};
    std::int16_t Baoliu = filter::kKeep;
    selection::Keep keep;
};

TEST_P(TemplateSteps, AddOnlyWhatIsInPlayAndChangeNothingOfIt) {
    table.hold({{1, 2, 3, 4, 5, 6, 7}, {1, 5, 11, 17, 25, 33, 6}, {28, 29, 30, 31, 32, 33, 16}});
    Session session = opened("GAganMb");
    session.run(filter::Toggle{"2"}, {});
    const std::vector<int> before = table.column("preunslt");
    const Outcome added = session.run(AddToTemplate{}, {});
    ASSERT_TRUE(added.gathered);
    EXPECT_EQ(added.gathered->added, 2);
    EXPECT_EQ(added.gathered->total, 2);
    EXPECT_FALSE(added.refill) << "the grid stays on what it shows";
    EXPECT_EQ(added.left, 2);
    EXPECT_EQ(added.taken, 0);
    EXPECT_EQ(gathered(), "1 1 6 7|2 28 33 16|");
    EXPECT_EQ(table.column("unslt"), (std::vector{0, -1, 0}));
    EXPECT_EQ(table.column("preunslt"), before) << "the step back is still that of the filter before";
    EXPECT_EQ(session.steps().back().what, "加入组号模板 2 注");
    EXPECT_EQ(session.steps().back().left, 2);
    EXPECT_EQ(session.steps().back().effect, 0);
}

TEST_P(TemplateSteps, ASecondAdditionAddsNothingAndSaysSo) {
    table.hold({{1, 2, 3, 4, 5, 6, 7}, {1, 5, 11, 17, 25, 33, 6}});
    Session session = opened("GAganMb");
    session.run(AddToTemplate{}, {});
    const Outcome again = session.run(AddToTemplate{}, {});
    ASSERT_TRUE(again.gathered);
    EXPECT_EQ(again.gathered->added, 0);
    EXPECT_EQ(again.gathered->total, 2);
    EXPECT_EQ(session.steps().back().what, "加入组号模板 0 注");
}

TEST_P(TemplateSteps, LargeCountsHaveTheirThousandsParted) {
    table.enumerate(12, {3, 9}); // 2 · C(12, 6)
    Session session = opened("GAganMb");
    session.run(AddToTemplate{}, {});
    EXPECT_EQ(session.steps().back().what, "加入组号模板 1,848 注");
}

TEST_P(TemplateSteps, AnAdditionKeepsTheTitleThatAGenerationAnnounced) {
    selection::GenerationInput input;
    input.chosen = {.reds = {1, 2}, .bankers = {9, 10, 11, 12, 13, 14}, .blues = {1, 2}};
    input.Genreds = 2;
    selection::Enumeration sixBankers(input);
    Session session(*filter::findMember("Gdanagan"), context());
    session.generate(sixBankers);
    const std::string announced = session.title();
    ASSERT_NE(announced.find("合计：2注"), std::string::npos);
    session.run(AddToTemplate{}, {});
    EXPECT_EQ(session.title(), announced);
}

TEST_P(TemplateSteps, ClearingReopensAnEmptyViewUnderTheHeadingsOfChosenBets) {
    table.hold({{1, 2, 3, 4, 5, 6, 7}, {1, 5, 11, 17, 25, 33, 6}});
    opened("GAganMb").run(AddToTemplate{}, {});
    Session own = opened("GAganZhMb");
    EXPECT_EQ(own.inPlay(), 2);
    const std::vector<filter::GridColumn> before = own.run(filter::ResetAll{}, {}).view.columns;
    const Outcome cleared = own.run(ClearTemplate{}, {});
    EXPECT_EQ(cleared.view.rows.count(), 0);
    EXPECT_EQ(cleared.left, 0);
    EXPECT_EQ(cleared.taken, 2);
    std::string headings;
    for (const filter::GridColumn& column : cleared.view.columns)
        headings += column.heading + ' ';
    EXPECT_EQ(headings, "号码索引 红1 红2 红3 红4 红5 红6 蓝球 ");
    EXPECT_EQ(before[1].heading, "1位");
    EXPECT_EQ(own.steps().back().what, "清空组号模板");
    EXPECT_EQ(own.steps().back().effect, -2);
    EXPECT_EQ(own.total(), 0);
    EXPECT_EQ(own.run(filter::ResetAll{}, {}).view.columns[1].heading, "1位") << "the next view has its own";
}

TEST_P(TemplateSteps, ClearingRunsItsTwoStatementsAndTheViewOfTheOpening) {
    Session own = opened("GAganZhMb");
    own.run(ClearTemplate{}, {});
    table.takeStatements();
    own.run(ClearTemplate{}, {});
    const std::vector<std::string> ran = table.takeStatements();
    ASSERT_EQ(ran.size(), 3U);
    EXPECT_EQ(ran[0], "DROP TABLE zuheMoban");
    EXPECT_EQ(ran[1].substr(0, 24), "CREATE TABLE [zuheMoban]");
    EXPECT_EQ(ran[2], "SELECT idx,fig1,fig2,fig3,fig4,fig5,fig6,fig7 FROM [zuheMoban] WHERE [unslt] = false ");
}

INSTANTIATE_TEST_SUITE_P(Executors, TemplateSteps, testing::Values(sql::Executor::Sqlite, sql::Executor::Column));

} // namespace
} // namespace filter_test
