#include "filter/result_view.h"

#include "base/number_text.h"
#include "filter/quiet.h"

namespace filter {
namespace {

constexpr int kIndexTwips = 750;
constexpr int kRedTwips = 550;
constexpr int kBlueTwips = 650;
constexpr int kValueTwips = 1100;
constexpr int kReasonTwips = 12800;

int numbersOf(const FilterMember& member) {
    return member.reds + (member.blue ? 1 : 0);
}

} // namespace

std::string ResultView::bracketedColumns() const {
    std::string columns = "[idx] ,[fig1]";
    for (int number = 2; number <= numbersOf(m_member); ++number)
        columns += " , [fig" + std::to_string(number) + "]";
    return columns;
}

std::string ResultView::plainColumns() const {
    std::string columns = "idx";
    for (int number = 1; number <= numbersOf(m_member); ++number)
        columns += ",fig" + std::to_string(number);
    return columns;
}

std::string ResultView::select(const std::string& columns, const std::string& rest) const {
    return "SELECT " + columns + " FROM [" + std::string(m_member.table) + "]" + rest;
}

std::vector<GridColumn> ResultView::heads() const {
    std::vector<GridColumn> columns{{"号码索引", kIndexTwips}};
    for (int position = 1; position <= m_member.reds; ++position)
        columns.push_back({std::to_string(position) + "位", kRedTwips});
    if (m_member.blue)
        columns.push_back({"蓝球", kBlueTwips});
    return columns;
}

View ResultView::generated() const {
    return {queryQuietly(m_database, select(plainColumns(), "")), heads()};
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
    return std::string(m_member.title) + std::to_string(bets) + "注";
}

} // namespace filter
