// The history in memory: every draw with its derived parameters, and the running statistics of every number.
//
// Row i belongs to draw i; row 0 is an empty row before the first draw. Readers never recompute: the derived values
// are read from the table or computed once when a draw comes in.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <QByteArray>

#include "history/draw_record.h"

namespace history {

inline constexpr int kMostReds = 38;
inline constexpr int kMostBlues = 18;
inline constexpr int kMostDraws = 32767;

/// How the user's default text file stands to the history (default_text.h).
struct TextState {
    bool pending = false; ///< the last writing failed: the file is older than the history
    QByteArray left;      ///< what stood there then, empty for nothing
};

struct History {
    int Lsnum = 0;                  ///< draws held
    std::vector<Draw> Lshm{Draw{}}; ///< rows 0..Lsnum
    std::vector<Derived> derived{Derived{}};

    std::array<std::int16_t, kMostReds + 1> Ylnow{};   ///< current omission of each red, by number
    std::array<std::int16_t, kMostBlues + 1> YlnowB{}; ///< of each blue
    std::array<std::int16_t, kMostReds + 1> Glred{};   ///< hits of each red
    std::array<std::int16_t, kMostBlues + 1> GlBlue{};
    std::array<double, kMostReds + 1> Gailvred{}; ///< share of each red in percent
    std::array<double, kMostBlues + 1> GailvBlue{};
    std::int32_t Glcount = 0; ///< draws that the shares rest on; not stored, 0 at every start

    TextState text; ///< not stored
};

} // namespace history
