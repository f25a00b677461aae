// Views: their statements, headings, pages by block of idx, the title.
#include <gtest/gtest.h>

#include "executor_names.h"
#include "filter/bench_table.h"

namespace filter_test {
namespace {

using Texts = std::vector<std::string>;

Texts headings(const filter::View& view) {
    Texts found;
    for (const filter::GridColumn& column : view.columns)
        found.push_back(column.heading);
    return found;
}

class ResultView : public testing::TestWithParam<sql::Executor> {
  protected:
    ResultView() : table(GetParam()) {}
    BenchTable table;
};

TEST_P(ResultView, RunsPreciselyTheseStatements) {
    table.enumerate(7, {1, 2});
    table.view().generated();
    table.view().inPlay();
    table.view().inPlay("各位数和");
    table.view().reasons();
    table.view().page(2);
    EXPECT_EQ(table.takeStatements(),
              (Texts{"SELECT idx,fig1,fig2,fig3,fig4,fig5,fig6,fig7 FROM [zuhe]",
                     "SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [fig7] FROM [zuhe] WHERE "
                     "[unslt] = false",
                     "SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [fig7] , [canshu] FROM "
                     "[zuhe] WHERE [unslt] = false",
                     "SELECT [idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [fig7] ,[canshu],[fliter] "
                     "FROM [zuhe]",
                     "SELECT idx,fig1,fig2,fig3,fig4,fig5,fig6,fig7 FROM [zuhe] WHERE [unslt] = false AND [idx] "
                     ">=10001 AND [idx] <=20000"}));
}

TEST_P(ResultView, APageOfAnySizeIsEmptyWhenNoRowIsOnIt) {
    table.enumerate(7, {1, 2});
    for (const double page : {2.0, 0.0, -5.0, 1e15, 1e300, 1.7976931348623157e308, -1.7976931348623157e308})
        EXPECT_EQ(table.view().page(page).rows.count(), 0) << page;
    EXPECT_EQ(table.view().page(1).rows.count(), 14);
}

TEST_P(ResultView, HasAHeadingForEachColumn) {
    table.enumerate(7, {1, 2});
    const Texts plain{"号码索引", "1位", "2位", "3位", "4位", "5位", "6位", "蓝球"};
    EXPECT_EQ(headings(table.view().inPlay()), plain);
    Texts withValue = plain;
    withValue.push_back("数字复杂度");
    EXPECT_EQ(headings(table.view().inPlay("数字复杂度")), withValue);
    withValue.back() = "参数";
    withValue.push_back("过滤缘故");
    const filter::View reasons = table.view().reasons();
    EXPECT_EQ(headings(reasons), withValue);
    EXPECT_EQ(reasons.rows.columnCount(), 10);
    EXPECT_EQ(reasons.columns[0].widthTwips, 750);
    EXPECT_EQ(reasons.columns[1].widthTwips, 550);
    EXPECT_EQ(reasons.columns[7].widthTwips, 650);
    EXPECT_EQ(reasons.columns[9].widthTwips, 12800);
}

TEST_P(ResultView, APageIsABlockOfRowNumbersNotOfSurvivors) {
    table.enumerate(16, {1, 2, 3}); // 24,024 rows
    EXPECT_EQ(table.view().page(1).rows.count(), 10000);
    EXPECT_EQ(table.view().page(3).rows.count(), 4024);
    EXPECT_EQ(table.view().page(3).rows.integerAt(0, 0), 20001);
    table.press("Option19", range("1", "1"));
    EXPECT_EQ(table.view().page(1).rows.count(), 3334); // rows 1, 4, … 10000
    EXPECT_EQ(table.view().page(3).rows.count(), 1341); // rows 20002, 20005, … 24022
    table.press("Option13", range("5", "9"));           // the low page empties, the sets with 1 come first
    EXPECT_EQ(table.view().page(1).rows.count(), 0);
}

TEST_P(ResultView, PageZeroAndAPageBeyondTheLastAreEmpty) {
    table.enumerate(8, {1});
    EXPECT_EQ(table.view().page(0).rows.count(), 0);
    EXPECT_EQ(table.view().page(1).rows.count(), 28);
    EXPECT_EQ(table.view().page(2).rows.count(), 0);
    EXPECT_EQ(table.view().page(99999999).rows.count(), 0);
}

TEST_P(ResultView, ReasonsShowFilteredRowsToo) {
    table.enumerate(7, {1});
    table.press("Option13", range("2", "9"));
    const filter::View view = table.view().reasons();
    EXPECT_EQ(view.rows.count(), 7);
    EXPECT_EQ(view.rows.textAt(0, 9), "红1位大小:1 保留2~9");
    EXPECT_EQ(view.rows.textAt(6, 9), "");
    EXPECT_EQ(table.view().countInPlay(), 1);
}

TEST_P(ResultView, TheTitleTellsTheCount) {
    EXPECT_EQ(table.view().title(17721088),
              "复选组合情况排列总表（每页至多显示10000注，双击任意注可删除）   合计：17721088注");
}

INSTANTIATE_TEST_SUITE_P(Executors, ResultView, testing::ValuesIn(kExecutors));

} // namespace
} // namespace filter_test
