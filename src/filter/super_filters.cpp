#include "filter/super_filters.h"

#include <algorithm>
#include <array>

namespace filter {
namespace {

constexpr SuperFilter history(std::string_view option, std::string_view caption, int code, int equal,
                              std::string_view reasonCaption) {
    return {.kind = SuperKind::History,
            .option = option,
            .caption = caption,
            .code = code,
            .equal = equal,
            .reasonCaption = reasonCaption,
            .explains = "与检索期内某一期历史号码相同够数的组合滤去。"};
}

constexpr SuperFilter numbers(NumberRule rule, std::string_view option, std::string_view caption, int code,
                              std::string_view explains) {
    return {.kind = SuperKind::Numbers,
            .option = option,
            .caption = caption,
            .code = code,
            .rule = rule,
            .explains = explains};
}

constexpr SuperFilter groups(bool keeps, std::string_view option, std::string_view caption, int code,
                             std::string_view explains) {
    return {.kind = SuperKind::Groups,
            .option = option,
            .caption = caption,
            .code = code,
            .keeps = keeps,
            .explains = explains};
}

constexpr SuperFilter kKeepNumbers =
    numbers(NumberRule::Keep, "Option25(2)", "保留号过滤", 12, "只留下含有全部所填号码的组合。");
constexpr SuperFilter kTogether = numbers(NumberRule::Together, "Option25(1)", "相生号过滤", 11,
                                          "所填号码全含或全不含的组合留下，只含一部分的滤去。");
constexpr SuperFilter kExclusive =
    numbers(NumberRule::Exclusive, "Option25(0)", "相克号过滤", 10, "含有全部所填号码的组合滤去。");
constexpr std::string_view kKeepGroups = "至少含有每组数目个所填号码的组合留下，其余滤去。";
constexpr std::string_view kExclusiveGroups = "含有每组数目个或更多所填号码的组合滤去。";
constexpr SuperFilter kTemplate{.kind = SuperKind::Template,
                                .option = "Option43",
                                .caption = "组合模版同号滤",
                                .code = 15,
                                .explains = "与组号模板相同的组合将其过滤掉"};

// A filter by 4 reports itself as 历史同6: deliberate.
constexpr std::array kSixAndBlue{
    history("Optio37", "历史同4过滤", 7, 4, "历史同6过滤"),
    history("Option26", "历史同5过滤", 6, 5, "历史同5过滤"),
    history("Option28", "历史同6过滤", 5, 6, "历史同6过滤"),
    history("Option27", "历史同7过滤", 4, 7, "历史同7过滤"),
    kKeepNumbers,
    kTogether,
    kExclusive,
    groups(true, "Option44", "保留分组过滤", 14, kKeepGroups),
    groups(false, "Option35", "相克分组过滤", 13, kExclusiveGroups),
    kTemplate,
};

constexpr std::array kSixRed{
    history("Option26", "历史同4号过滤", 6, 4, "历史同4号过滤"),
    history("Option28", "历史同5号过滤", 5, 5, "历史同5号过滤"),
    history("Option27", "历史同6号过滤", 4, 6, "历史同6号过滤"),
    kKeepNumbers,
    kTogether,
    kExclusive,
    groups(true, "Option30", "保留号分组过滤", 14, kKeepGroups),
    groups(false, "Option31", "相克号分组过滤", 13, kExclusiveGroups),
    kTemplate,
};

constexpr std::array kSevenRed{
    history("Option27", "历史同6号滤", 4, 6, "历史同6号滤"),
    kKeepNumbers,
    kTogether,
    kExclusive,
    groups(true, "Option30", "保留号分组过滤", 14, kKeepGroups),
    groups(false, "Option31", "相克号分组过滤", 13, kExclusiveGroups),
};

} // namespace

std::span<const SuperFilter> sixAndBlueSuperFilters() {
    return kSixAndBlue;
}

std::span<const SuperFilter> sixRedSuperFilters() {
    return kSixRed;
}

std::span<const SuperFilter> sevenRedSuperFilters() {
    return kSevenRed;
}

const SuperFilter* superFilterOf(std::span<const SuperFilter> filters, int code) {
    const auto found = std::ranges::find(filters, code, &SuperFilter::code);
    if (found != filters.end())
        return &*found;
    const auto first = std::ranges::find(filters, SuperKind::Numbers, &SuperFilter::kind);
    return first == filters.end() ? nullptr : &*first;
}

} // namespace filter
