// The draws of the history as bits, and the best match of a set of reds among them.
//
// A match of every bet with every draw is billions of comparisons, taken one by one. Here 64 draws stand in a word:
// for each number a row of bits says which draws hold it. The reds of a bet add up their six rows of bits as one adds
// binary numbers by hand, and get the hits of all draws at once as three rows of bits (ones, twos, fours):
//
//   draws, latest first      a b c d …        number 05   1 0 0 1 …
//                                             number 11   1 0 1 1 …   ones 0 0 1 1 … twos 1 0 0 1 …: 2 0 1 3 …
//                                             number 17   0 0 0 1 …
//
// Cost: a set of reds among 3,358 draws takes some hundred word operations; a bet with one of its blues, two
// look-ups.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "history/draw_record.h"

namespace filter {

/// Numbers as bits: bit n stands for number n. A draw's numbers lie in 1..63.
using NumberMask = std::uint64_t;

/// Whether a draw can be matched here: six different reds and a blue, all in 1..63.
bool isRegularDraw(const history::Draw& draw);

/// A draw and the numbers that a bet shares with it.
struct Match {
    std::int32_t count = 0; ///< 0..7
    std::int32_t draw = 0;  ///< place among the draws, from 0; of no meaning when count is 0
};

class DrawBits {
  public:
    /// \param draws  regular draws, at least one, in the order of the search: of equals the first one counts
    explicit DrawBits(std::span<const history::Draw> draws);

    /// Works out the matches of these reds: ask best() and last() then. A red beyond 0..63 hits nothing and has no
    /// bit.
    void match(NumberMask reds);
    /// The best match with the blue. \param blue  any number; 0 when the bet has none
    Match best(std::int32_t blue) const;
    /// Hits in the last draw of the search.
    std::int32_t last(std::int32_t blue) const { return m_lastReds + (blue == m_lastBlue ? 1 : 0); }

  private:
    static constexpr std::int32_t kNone = INT32_MAX;

    void addReds(NumberMask reds);
    std::int32_t mostHits() const;
    void selectHits(std::int32_t hits, std::size_t words);
    void findBest();
    void findOneLess();
    std::size_t slotOf(std::int32_t blue) const;
    const std::uint64_t* rowOf(std::uint32_t number) const { return &m_numbers[number * m_words]; }

    std::size_t m_words;                  // of a row of bits; a multiple of four
    std::vector<std::uint64_t> m_numbers; // 64 rows; that of number 0 is empty
    std::vector<std::uint64_t> m_valid;   // the bits that stand for a draw
    std::vector<std::uint8_t> m_slotOfDraw;
    std::array<std::uint8_t, 64> m_slotOfBlue{}; // blues that were drawn count from 1; 0: never drawn
    std::size_t m_slots = 1;
    std::int32_t m_lastBlue = 0;
    std::size_t m_lastDraw = 0;

    // Of the reds matched last:
    std::vector<std::uint64_t> m_ones, m_twos, m_fours; // hits of each draw, as binary digits
    std::vector<std::uint64_t> m_selected;              // draws with the hits that were asked for last
    std::array<bool, 7> m_occurs{};                     // whether some draw has that many hits, 1..6
    std::int32_t m_most = 0;
    std::int32_t m_firstMost = kNone;              // first draw with the most hits
    std::array<std::int32_t, 64> m_mostWithBlue{}; // and this blue, by slot
    std::array<std::int32_t, 64> m_lessWithBlue{}; // first draw before m_firstMost with one hit less and this blue
    std::int32_t m_lastReds = 0;
};

} // namespace filter
