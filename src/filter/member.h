// The family of filter windows: one row a member. One window class serves them all.
//
// A member is a source of bets and a table: its name, its table and file, the numbers of a bet, how the rows come
// when it opens, and its catalogue of parameters. To add a member, add a row (and a catalogue when its parameters
// differ).
#pragma once

#include <span>
#include <string_view>

#include "filter/catalogue.h"
#include "selection/enumeration.h"

namespace filter {

/// How the table is filled when the window opens.
enum class Fill { Enumerate, Bankers };

struct FilterMember {
    std::string_view form; ///< objectName of the window
    std::string_view table;
    std::string_view file; ///< database in the user's folder
    int reds;              ///< 6; 7 for compound bets
    bool blue;
    Fill fill;
    std::string_view title; ///< of the window; the count and 注 follow
    std::span<const Parameter> (*catalogue)();
};

inline constexpr std::string_view kRepeatTitle =
    "复选组合情况排列总表（每页至多显示10000注，双击任意注可删除）   合计：";

inline constexpr FilterMember kFilterMembers[] = {
    // form      table   file          reds blue  rows come from    title         parameters
    {"GAgan", "zuhe", "filnum.mdb", 6, true, Fill::Enumerate, kRepeatTitle, &sixAndBlueCatalogue},
    {"Gdanagan", "zuhe", "filnum.mdb", 6, true, Fill::Bankers, kRepeatTitle, &sixAndBlueCatalogue},
    // add a member of the family here
};

/// \return nullptr when the family has no such form
constexpr const FilterMember* findMember(std::string_view form) {
    for (const FilterMember& member : kFilterMembers)
        if (member.form == form)
            return &member;
    return nullptr;
}
static_assert(findMember("GAgan") == &kFilterMembers[0]);

constexpr selection::TableShape shapeOf(const FilterMember& member) {
    return {member.table, member.reds, member.blue, member.fill == Fill::Bankers};
}

} // namespace filter
