#include "filter/result_view.h"

#include "base/number_text.h"
#include "filter/quiet.h"

namespace filter {
namespace {

constexpr int kValueTwips = 1100;
constexpr int kReasonTwips = 12800;
constexpr std::string_view kShortTitle = "复选组合情况排列总表（每页至多显示10000注）   合计：";

} // namespace

std::string ResultView::bracketedColumns() const {
    std::string columns = "[idx] ,[fig1]";
    for (int number = 2; number <= m_member.numbers(); ++number)
        columns += " , [fig" + std::to_string(number) + "]";
    return columns;
}

std::string ResultView::plainColumns() const {
    std::string columns = "idx";
    for (int number = 1; number <= m_member.numbers(); ++number)
        columns += ",fig" + std::to_string(number);
    return columns;
}

std::string ResultView::select(const std::string& columns, const std::string& rest) const {
    return "SELECT " + columns + " FROM [" + std::string(m_member.table) + "]" + rest;
}

std::vector<GridColumn> ResultView::heads() const {
    const GridHeads& told = m_member.heads();
    std::vector<GridColumn> columns{{"号码索引", told.indexTwips}};
    for (int position = 0; position < m_member.reds; ++position)
        columns.push_back({std::string(told.reds[static_cast<std::size_t>(position)]), told.redTwips});
    if (m_member.blue)
        columns.push_back({"蓝球", told.blueTwips});
    return columns;
}

View ResultView::generated() const {
    return {queryQuietly(m_database, select(plainColumns(), "")), heads()};
}

View ResultView::opened() const {
    if (m_member.opensWhole())
        return generated();
    return {queryQuietly(m_database, select(plainColumns(), " WHERE [unslt] = false" + std::string(m_member.order))),
            heads()};
}

std::vector<GridColumn> ResultView::chosenHeads() const {
    std::vector<GridColumn> columns = heads();
    for (int position = 1; position <= m_member.reds; ++position)
        columns[static_cast<std::size_t>(position)].heading = "红" + std::to_string(position);
    return columns;
}

View ResultView::cleared() const {
    View view = opened();
    view.columns = chosenHeads();
    return view;
}

View ResultView::withState() const {
    View view{queryQuietly(m_database, select(plainColumns() + ",unslt", " WHERE [unslt]= FALSE")), chosenHeads()};
    if (m_member.blue)
        view.columns.back().widthTwips = kSixHeads.redTwips; // here as wide as a red
    view.columns.push_back({"选择", kValueTwips});
    return view;
}

View ResultView::inPlay() const {
    return {queryQuietly(m_database, select(bracketedColumns(), " WHERE [unslt] = false")), heads()};
}

View ResultView::inPlay(std::string_view gridTitle) const {
    View view{queryQuietly(m_database, select(bracketedColumns() + " , [canshu]", " WHERE [unslt] = false")),
              heads()};
    view.columns.push_back({std::string(gridTitle), kValueTwips});
    return view;
}

View ResultView::reasons() const {
    View view{queryQuietly(m_database, select(bracketedColumns() + " ,[canshu],[fliter]", "")), heads()};
    view.columns.push_back({"参数", kValueTwips});
    view.columns.push_back({"过滤缘故", kReasonTwips, true});
    return view;
}

sql::Rows ResultView::states() const {
    return queryQuietly(m_database, select("[unslt]", ""));
}

View ResultView::page(double page) const {
    const std::string first = base::numberText((page - 1) * kPageRows + 1);
    const std::string last = base::numberText(page * kPageRows);
    return {queryQuietly(m_database, select(plainColumns(),
                                            " WHERE [unslt] = false AND [idx] >=" + first + " AND [idx] <=" + last)),
            heads()};
}

std::int64_t ResultView::countInPlay() const {
    return queryQuietly(m_database, select(bracketedColumns() + " , [canshu]", " WHERE [unslt] = false")).count();
}

std::string ResultView::title(std::int64_t bets) const {
    return std::string(m_member.title) + (m_member.titleCounts ? std::to_string(bets) + "注" : std::string());
}

std::string ResultView::shortTitle(std::int64_t bets) const {
    return std::string(kShortTitle) + std::to_string(bets) + "注";
}

} // namespace filter
