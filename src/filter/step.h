// One step on a combination table: what a button, a template row and a replay ask of a Session.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "filter/catalogue.h"
#include "filter/super_filters.h"

namespace filter {

/// One parameter at once, on the rows in play.
struct Press {
    const Parameter* parameter;
};
struct ResetAll {};    ///< 全部复位
struct RestoreLast {}; ///< 上次过滤复位
struct InvertAll {};   ///< 全部组号反选
struct InvertLast {};  ///< 上一步过滤反选
/// Double click on a row: takes it out, or puts it back.
struct Toggle {
    std::string idx; ///< text of the row's number as the grid shows it
};

/// Option29: all ticked parameters judged together, with the logic and the tolerance of the state.
struct Integrated {};

/// A history filter. \param draws  how many draws are searched, from the latest back
struct MatchHistory {
    const SuperFilter* filter;
    std::int64_t draws;
};
/// A number filter.
struct FilterNumbers {
    const SuperFilter* filter;
    std::vector<int> numbers; ///< 1 to 7 of them, in the order of the answers
};
/// A group filter.
struct FilterGroups {
    const SuperFilter* filter;
    std::vector<int> numbers;
    int groupSize = 0;
    std::vector<int> bankers{};
};
/// 组合模版同号滤
struct TakeOutTemplate {
    const SuperFilter* filter;
};

struct AddToTemplate {}; ///< 添加到组号模板: nothing of what is in play changes. For members that have a template
struct ClearTemplate {}; ///< 清空组号模板: for members that work on a template itself

// add a step here: its meaning is one function in session.cpp
using Step = std::variant<Press, ResetAll, RestoreLast, InvertAll, InvertLast, Toggle, AddToTemplate, ClearTemplate,
                          Integrated, MatchHistory, FilterNumbers, FilterGroups, TakeOutTemplate>;

/// Whether a step may take so long that it is seen and can be given up; the others report nothing.
inline bool reportsProgress(const Step& step) {
    return std::holds_alternative<Integrated>(step) || std::holds_alternative<MatchHistory>(step);
}

} // namespace filter
