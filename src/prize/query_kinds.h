// The prize queries as data: three kinds of windows, nine entries that open one of them on a table.
//
// A kind is what its bets are: six reds and a blue with prizes and money, six reds that are only counted, seven reds
// of which seven bets are made. Everything in which the kinds differ stands in their rows, so that no code asks which
// one it is. To query another table, add an entry; its command is registered by the desk.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "workspace/combination_files.h"

namespace prize {

/// A column of a list.
struct ListColumn {
    enum class Kind { Index, Red, Blue, Count, Label, Money, Reason };
    std::string_view heading;
    Kind kind;
};

/// One of the two lists of a query: what is selected, and its headings.
struct ListKind {
    std::string_view select; ///< columns with their blanks, up to FROM
    std::span<const ListColumn> columns;
};

struct QueryKind {
    std::string_view form;
    workspace::CombinationFile file;
    std::string_view workColumns; ///< "jiben,tebie": they exist only for the query
    std::string_view workTypes;   ///< as many
    std::string_view clear;       ///< what the work columns begin with
    int numbers;                  ///< reds that Numstring takes
    bool prizes;                  ///< matches the blue, gives labels and money, and can be reported
    int price;                    ///< yuan of a row; 0: rows are only counted
    ListKind kept;
    ListKind out;               ///< without columns: rows that are out are not listed
    std::string_view keptTitle; ///< a %1 in it is the count of rows
    std::string_view quit;      ///< caption of the button that closes the window
    std::string_view sort;      ///< tried first
    std::string_view sortElse;  ///< where a table has not all of its columns; may be empty
};

namespace detail {

using enum ListColumn::Kind;

// clang-format off
inline constexpr ListColumn kSixAndBlueOut[] = {
    {"号码索引", Index}, {"红1", Red}, {"红2", Red}, {"红3", Red}, {"红4", Red}, {"红5", Red}, {"红6", Red},
    {"蓝球", Blue}, {"中红", Count}, {"中蓝", Count}, {"奖级", Label}, {"奖金", Money}, {"过滤缘故", Reason},
};
inline constexpr ListColumn kSixRedKept[] = {
    {"索引", Index}, {"1位", Red}, {"2位", Red}, {"3位", Red}, {"4位", Red}, {"5位", Red}, {"6位", Red}, {"中基", Count},
};
inline constexpr ListColumn kSixRedOut[] = {
    {"号码索引", Index}, {"1位", Red}, {"2位", Red}, {"3位", Red}, {"4位", Red}, {"5位", Red}, {"6位", Red},
    {"中基号", Count}, {"过滤缘故", Reason},
};
inline constexpr ListColumn kSevenRedKept[] = {
    {"号码索引", Index}, {"第一位", Red}, {"第二位", Red}, {"第三位", Red}, {"第四位", Red}, {"第五位", Red},
    {"第六位", Red}, {"第七位", Red}, {"中基号", Count},
};
// clang-format on

inline constexpr std::string_view kListTitle = "投注组合情况排列总表(合计：%1注)";
inline constexpr std::string_view kByMatches = " ORDER BY [jiben] DESC,[tebie] DESC";
inline constexpr std::string_view kByReds = " ORDER BY [jiben] DESC";

} // namespace detail

inline constexpr QueryKind kSixAndBlue{
    .form = "GAganDj",
    .file = workspace::CombinationFile::WithBlue,
    .workColumns = "jiben,tebie,jiang,jing",
    .workTypes = "integer,integer,string,long",
    .clear = "[jiben]=0 ,[tebie]=0",
    .numbers = 6,
    .prizes = true,
    .price = 2,
    .kept = {"[idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6]  , [fig7] , [jiben] , [tebie]  , [jiang] , "
             "[jing]",
             std::span(detail::kSixAndBlueOut).first<12>()},
    .out = {"[idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6]  , [fig7] , [jiben] , [tebie]  , [jiang] , "
            "[jing] ,[fliter]",
            detail::kSixAndBlueOut},
    .keptTitle = detail::kListTitle,
    .quit = "添加到盈亏报告并返回(&E)",
    .sort = detail::kByMatches,
    .sortElse = "",
};

inline constexpr QueryKind kSixReds{
    .form = "GAganRDj",
    .file = workspace::CombinationFile::SixReds,
    .workColumns = "jiben",
    .workTypes = "integer",
    .clear = "[jiben]=0",
    .numbers = 6,
    .prizes = false,
    .price = 0,
    .kept = {"[idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [jiben]", detail::kSixRedKept},
    .out = {"[idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6] , [jiben] ,[fliter]", detail::kSixRedOut},
    .keptTitle = detail::kListTitle,
    .quit = "返回(&E)",
    .sort = detail::kByMatches, // on purpose, although no tebie is there
    .sortElse = detail::kByReds,
};

inline constexpr QueryKind kSevenReds{
    .form = "GAganfDj",
    .file = workspace::CombinationFile::WithBlue,
    .workColumns = "jiben,tebie",
    .workTypes = "integer,integer",
    .clear = "[jiben]=0 ,[tebie]=0",
    .numbers = 7,
    .prizes = false,
    .price = 14, // seven reds are seven bets
    .kept = {"[idx] ,[fig1] , [fig2] , [fig3] , [fig4] , [fig5] , [fig6]  , [fig7],[jiben]", detail::kSevenRedKept},
    .out = {},
    .keptTitle = "复选组合情况排列总表（每页至多显示10000注）：",
    .quit = "返回(&E)",
    .sort = detail::kByMatches,
    .sortElse = "",
};

/// An entry of the menu: a table and the kind of its bets.
struct QueryEntry {
    std::u16string_view command;
    std::string_view table; ///< QueryTable
    const QueryKind& kind;
    std::u16string_view title; ///< of the window
    std::string_view method{}; ///< how the bets were made, in a report; empty: no such line
};

// clang-format off
inline constexpr QueryEntry kQueryEntries[] = {
    {u"mnuzhInq",  "zuhe",       kSixAndBlue, u"6红+1蓝组合中奖查询", "复选/胆拖组合缩水"},
    {u"mnuXzInq",  "zuheRote",   kSixAndBlue, u"6红+1蓝旋转中奖查询", "旋转矩阵组合缩水"},
    {u"mnuWbInq",  "zuheRead",   kSixAndBlue, u"6红+1蓝文本组合查询", "调用文本组合缩水"},
    {u"mnuMbInq",  "zuheMoban",  kSixAndBlue, u"6红+1蓝模板中奖查询", "组号模版组合缩水"},
    {u"mnuzhInqR", "zuheR",      kSixReds,    u"6红球组合中奖查询"},
    {u"mnuXzInqR", "zuheRoteR",  kSixReds,    u"6红球旋转中奖查询"},
    {u"mnuWbInqR", "zuhereadR",  kSixReds,    u"6红球文本中奖查询"},
    {u"mnuMbInqR", "zuheMobanR", kSixReds,    u"6红球模板中奖查询"},
    {u"mnufsInq",  "zuhef",      kSevenReds,  u"7红球复式中奖查询"},
    // add a query here
};
// clang-format on

} // namespace prize
