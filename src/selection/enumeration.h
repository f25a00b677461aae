// Enumeration: turns the chosen numbers into the rows of a combination table.
//
// This is the whole load step of a filter window: it drops the table, makes it anew and fills it (bet_source.h: class
// Enumeration). The former rows and their filter states are lost, without a warning, once the new ones are complete;
// a generation that is given up, or fails, leaves them as they were. Rows come in lexicographic order over places in
// the list of reds, each set of reds once for every blue: the blue varies fastest.
//
//   reds 1..7, blues 3 9:   1: 1 2 3 4 5 6 + 3    2: 1 2 3 4 5 6 + 9    3: 1 2 3 4 5 7 + 3 …
//   bankers 3 20 | drags 1 10 25 30 31:   1: 1 3 10 20 25 30 …
//
// No upper limit is tested. Cost: one pass, written in blocks of columns; the reds of a set are worked out once.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "selection/combinations.h"
#include "sql/database.h"

namespace selection {

/// Scale width of the progress bar: a long run reports about this many steps.
inline constexpr int kProgressScale = 64;

/// Numbers chosen on the pad. The caller has sorted `reds`; bankers and blues stand in the order of the clicks.
struct Selection {
    std::vector<std::int32_t> reds;    ///< Redlist
    std::vector<std::int32_t> bankers; ///< Danlist
    std::vector<std::int32_t> blues;   ///< Bluelist
};

struct GenerationInput {
    Selection chosen;
    int Genreds = 0;                     ///< how many reds (drags, with bankers) the run uses
    bool Fromdraw = false;               ///< reds come from Drawnlist
    std::vector<std::int32_t> Drawnlist; ///< what the simulator drew, from entry 0
    bool Multirows = false;              ///< write the rows of Multitable; lasts for one generation
    int Multicount = 0;
    std::vector<std::array<std::int32_t, 8>> Multitable; ///< row 0 is unused; the reds are columns 1..6
};

/// What a generation writes to.
struct TableShape {
    std::string_view table;
    int reds = 6;         ///< numbers of a row: 6, or 7 in zuhef
    bool blue = true;     ///< fig7 is a blue number
    bool bankers = false; ///< every row holds all bankers
};

struct Generated {
    std::int64_t announced = 0; ///< the count that the window's title tells
    std::int64_t written = 0;   ///< rows in the table: none with six bankers, whatever is announced
    bool cancelled = false;     ///< given up: the table is what it was before
};

} // namespace selection
