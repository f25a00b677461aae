// The super filters: they work on the numbers of a bet, not on a parameter. One row a control of the window.
//
// Three tables, one a catalogue of parameters. A row says which control it is, which kind of filter, and by which
// code a step of a filter template (moban) names it. To add one, add a row; what a kind does is a step (step.h), what
// it asks for stands in super_questions.h.
#pragma once

#include <span>
#include <string_view>

namespace filter {

enum class SuperKind {
    History, ///< bets that share many numbers with a draw of the history go
    Numbers, ///< bets that hold all, some or not all of the given numbers go
    Groups,  ///< bets that hold so many of the given numbers stay, or go
    Template ///< bets that the group template holds go
};

/// What a number filter does: the place in the control array Option25.
enum class NumberRule {
    Exclusive, ///< 相克: a bet with all the numbers goes
    Together,  ///< 相生: a bet with some of the numbers, but not all, goes
    Keep       ///< 保留: a bet without all the numbers goes
};

struct SuperFilter {
    SuperKind kind;
    std::string_view option;                 ///< name of the control
    std::string_view caption;                ///< its text
    int code;                                ///< intCmdnb of a template step
    int equal = 0;                           ///< History: a bet with so many numbers of one draw goes
    std::string_view reasonCaption{};        ///< History: what its reasons say
    NumberRule rule = NumberRule::Exclusive; ///< Numbers
    bool keeps = false;                      ///< Groups: bets with so many of the numbers stay; else they go
    std::string_view explains{};             ///< what it does, in one sentence for the tool tip
};

/// In the order in which a window shows them, kind after kind.
std::span<const SuperFilter> sixAndBlueSuperFilters();
std::span<const SuperFilter> sixRedSuperFilters();
std::span<const SuperFilter> sevenRedSuperFilters();

/// The filter that template steps name by `code`. Codes that no filter has stand for the first of the number filters:
/// what a replay does with them. \return nullptr only for an empty table
const SuperFilter* superFilterOf(std::span<const SuperFilter> filters, int code);

} // namespace filter
