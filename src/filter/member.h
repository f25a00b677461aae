// The family of filter windows: one row a member. One window class serves them all.
//
// A member is a source of bets and a table: everything in which its window differs from the others stands in its row,
// so that no code asks which member it is. To add a member, add a row (and a catalogue when its parameters differ).
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "filter/catalogue.h"
#include "filter/super_filters.h"
#include "selection/bet_source.h"
#include "workspace/combination_files.h"

namespace filter {

using workspace::CombinationFile;

/// How the table is filled when the window opens. Text and Keep leave it as it is: a text is read before.
enum class Fill { Enumerate, EnumerateBankers, Wheel, Text, Keep };

/// What a member's window offers.
struct Features {
    bool weights = true;     ///< position boxes ChkBt
    bool periods = true;     ///< Combo1
    bool reasons = true;     ///< filters leave a reason, and all rows can be shown with theirs
    bool tolerance = true;   ///< the integrated run counts violations
    bool templates = true;   ///< replay and its page
    bool doubleClick = true; ///< takes a bet out, or puts it back
    bool lists = true;       ///< runs can compare with value lists
};

/// Headings and widths of the grid's number columns.
struct GridHeads {
    std::array<std::string_view, 7> reds;
    int indexTwips; ///< 15 to a pixel
    int redTwips;
    int blueTwips;
};
inline constexpr GridHeads kSixHeads{{"1位", "2位", "3位", "4位", "5位", "6位"}, 750, 550, 650};
inline constexpr GridHeads kSevenHeads{
    {"第一位", "第二位", "第三位", "第四位", "第五位", "第六位", "第七位"}, 1000, 800, 800};

struct FilterMember {
    std::string_view form; ///< objectName of the window
    std::string_view table;
    CombinationFile file;
    int reds;  ///< 6; 7 for compound bets
    bool blue; ///< the column after the reds is a blue number
    Fill fill;
    std::string_view order; ///< what follows the condition in the view that opens a kept or wheel table, blanks too
    std::string_view title; ///< of the window
    bool titleCounts;       ///< the count and 注 follow it
    std::span<const Parameter> (*catalogue)();
    Features features;
    std::string_view exportName; ///< file of the export of many parameters; empty: there is none
    bool groupTemplate = false;  ///< works on the group template itself: nothing is added to it, it can be cleared

    constexpr const GridHeads& heads() const { return reds == 7 ? kSevenHeads : kSixHeads; }
    constexpr int numbers() const { return reds + (blue ? 1 : 0); }
    /// Whether opening the window makes the table anew.
    constexpr bool generates() const { return fill != Fill::Text && fill != Fill::Keep; }
    /// Whether the opening view shows every row, as right after an enumeration: else the rows in play.
    constexpr bool opensWhole() const { return fill == Fill::Enumerate || fill == Fill::EnumerateBankers; }
};

inline constexpr std::string_view kRepeatTitle =
    "复选组合情况排列总表（每页至多显示10000注，双击任意注可删除）   合计：";
inline constexpr std::string_view kBankerTitle = "胆拖组合情况排列总表（每页至多显示10000注）：";

namespace detail {

inline constexpr std::string_view kByAll = "  ORDER BY fig1,fig2,fig3,fig4,fig5,fig6,fig7";
inline constexpr std::string_view kByReds = "  ORDER BY fig1,fig2,fig3,fig4,fig5,fig6";
// The smaller, older window.
inline constexpr Features kPlain{false, false, false, false, false, false, false};

} // namespace detail

// clang-format off
inline constexpr FilterMember kFilterMembers[] = {
    // form, table, file, reds, blue, rows come from, order, title, with count, parameters, features, export, template
    {"GAgan",        "zuhe",      CombinationFile::WithBlue, 6, true, Fill::Enumerate,        "",              kRepeatTitle, true, &sixAndBlueCatalogue, {}, "Zuhe.xlsx"},
    {"Gdanagan",     "zuhe",      CombinationFile::WithBlue, 6, true, Fill::EnumerateBankers, "",              kRepeatTitle, true, &sixAndBlueCatalogue, {}, "Zuhe.xlsx"},
    {"GAganMb",      "zuhe",      CombinationFile::WithBlue, 6, true, Fill::Keep,             "",              kRepeatTitle, true, &sixAndBlueCatalogue, {}, "Zuhe.xlsx"},
    {"GAganRead",    "zuheRead",  CombinationFile::WithBlue, 6, true, Fill::Text,             "",              kRepeatTitle, true, &sixAndBlueCatalogue, {}, "zuheRead.xlsx"},
    {"GAganRote",    "zuheRote",  CombinationFile::WithBlue, 6, true, Fill::Wheel,            detail::kByAll,  kRepeatTitle, true, &sixAndBlueCatalogue, {}, "zuheRote.xlsx"},
    {"GAganRoteMb",  "zuheRote",  CombinationFile::WithBlue, 6, true, Fill::Keep,             detail::kByAll,  kRepeatTitle, true, &sixAndBlueCatalogue, {}, "zuheRote.xlsx"},
    {"GAganZhMb",    "zuheMoban", CombinationFile::WithBlue, 6, true, Fill::Keep,             " ",             kRepeatTitle, true, &sixAndBlueCatalogue, {}, "", true},
    {"GAganR",       "zuheR",      CombinationFile::SixReds, 6, false, Fill::Enumerate,        "",              kRepeatTitle, true, &sixRedCatalogue, {}, "zuheR.xlsx"},
    {"GdanaganR",    "zuheR",      CombinationFile::SixReds, 6, false, Fill::EnumerateBankers, "",              kRepeatTitle, true, &sixRedCatalogue, {}, "zuheR.xlsx"},
    {"GAganRMb",     "zuheR",      CombinationFile::SixReds, 6, false, Fill::Keep,             "",              kRepeatTitle, true, &sixRedCatalogue, {}, "zuheR.xlsx"},
    {"GAganReadR",   "zuheReadR",  CombinationFile::SixReds, 6, false, Fill::Text,             "",              kRepeatTitle, true, &sixRedCatalogue, {}, "zuheReadR.xlsx"},
    {"GAganRoteR",   "zuheRoteR",  CombinationFile::SixReds, 6, false, Fill::Wheel,            detail::kByReds, kRepeatTitle, true, &sixRedCatalogue, {}, "zuheRoteR.xlsx"},
    {"GAganRoteRMb", "zuheRoteR",  CombinationFile::SixReds, 6, false, Fill::Keep,             detail::kByReds, kRepeatTitle, true, &sixRedCatalogue, {}, "zuheRoteR.xlsx"},
    {"GAganZhMbR",   "zuheMobanR", CombinationFile::SixReds, 6, false, Fill::Keep,             " ",             kRepeatTitle, true, &sixRedCatalogue, {}, "", true},
    {"GAganf",       "zuhef",     CombinationFile::WithBlue, 7, false, Fill::Enumerate,        "",              kRepeatTitle, true,  &sevenRedCatalogue, detail::kPlain, ""},
    {"Gdanaganf",    "zuhef",     CombinationFile::WithBlue, 7, false, Fill::EnumerateBankers, "",              kBankerTitle, false, &sevenRedCatalogue, detail::kPlain, ""},
    {"GAganfMb",     "zuhef",     CombinationFile::WithBlue, 7, false, Fill::Keep,             "",              kRepeatTitle, true,  &sevenRedCatalogue, detail::kPlain, ""},
    // add a member of the family here
};
// clang-format on

/// \return nullptr when the family has no such form
constexpr const FilterMember* findMember(std::string_view form) {
    for (const FilterMember& member : kFilterMembers)
        if (member.form == form)
            return &member;
    return nullptr;
}

namespace detail {

/// One form a row; members of one table agree on what a bet is; tables without a blue end in R or hold seven reds.
consteval bool membersAgree() {
    for (const FilterMember& member : kFilterMembers) {
        const bool sixReds = member.file == CombinationFile::SixReds;
        if (findMember(member.form) != &member || sixReds != member.table.ends_with('R') ||
            member.blue != (member.reds == 6 && !sixReds) || member.numbers() < 6 || member.numbers() > 7)
            return false;
        if (member.groupTemplate && !member.exportName.empty())
            return false;
        for (const FilterMember& other : kFilterMembers)
            if (other.table == member.table && (other.file != member.file || other.numbers() != member.numbers() ||
                                                other.exportName != member.exportName))
                return false;
    }
    return true;
}
static_assert(membersAgree());

} // namespace detail

/// The table of the wheels in the file of a member.
constexpr std::string_view wheelTableOf(const FilterMember& member) {
    return member.file == CombinationFile::SixReds ? "zuheRoteR" : "zuheRote";
}

/// The control that exports the ticked parameters of a member's bets.
constexpr std::string_view exportOptionOf(const FilterMember& member) {
    return member.blue ? "Option143" : "Option42";
}

/// The super filters of a member's window.
inline std::span<const SuperFilter> superFiltersOf(const FilterMember& member) {
    return member.reds == 7 ? sevenRedSuperFilters() : member.blue ? sixAndBlueSuperFilters() : sixRedSuperFilters();
}

constexpr selection::TableShape shapeOf(const FilterMember& member) {
    return {member.table, member.reds, member.blue, member.fill == Fill::EnumerateBankers};
}

} // namespace filter
