#include "filter/draw_bits.h"

#include <algorithm>
#include <bit>

#include "sql/vector_loop.h"

namespace filter {
namespace {

constexpr std::size_t kBitsOfWord = 64;
constexpr std::size_t kWordsOfStep = 4; // rows of bits are padded to the widest vector that compilers use here

/// Which numbers of hits occur, as the three digits of the draws allow: each is an OR over all words.
struct Occurring {
    std::uint64_t ones = 0, twos = 0, threes = 0, fours = 0, fives = 0, sixes = 0;
};

/// Adds six rows of bits: hits[draw] = ones + 2 twos + 4 fours. A plain loop that the compiler vectorises.
SSQ_VECTOR_LOOP Occurring addSix(const std::array<const std::uint64_t*, 6>& rows, std::size_t words,
                                 std::uint64_t* __restrict ones, std::uint64_t* __restrict twos,
                                 std::uint64_t* __restrict fours) {
    const auto [a, b, c, d, e, f] = rows;
    Occurring occurring;
    for (std::size_t word = 0; word < words; ++word) {
        const std::uint64_t ab = a[word] ^ b[word];
        const std::uint64_t lowOnes = ab ^ c[word];
        const std::uint64_t lowTwos = (a[word] & b[word]) | (ab & c[word]);
        const std::uint64_t de = d[word] ^ e[word];
        const std::uint64_t highOnes = de ^ f[word];
        const std::uint64_t highTwos = (d[word] & e[word]) | (de & f[word]);
        const std::uint64_t carry = lowOnes & highOnes;
        const std::uint64_t bothTwos = lowTwos ^ highTwos;
        const std::uint64_t one = lowOnes ^ highOnes;
        const std::uint64_t two = bothTwos ^ carry;
        const std::uint64_t four = (lowTwos & highTwos) | (bothTwos & carry);
        ones[word] = one;
        twos[word] = two;
        fours[word] = four;
        occurring.ones |= one;
        occurring.twos |= two;
        occurring.threes |= one & two;
        occurring.fours |= four;
        occurring.fives |= four & one;
        occurring.sixes |= four & two;
    }
    return occurring;
}

/// Adds one more row of bits to the digits.
SSQ_VECTOR_LOOP Occurring addOne(const std::uint64_t* row, std::size_t words, std::uint64_t* __restrict ones,
                                 std::uint64_t* __restrict twos, std::uint64_t* __restrict fours) {
    Occurring occurring;
    for (std::size_t word = 0; word < words; ++word) {
        const std::uint64_t carry = ones[word] & row[word];
        const std::uint64_t one = ones[word] ^ row[word];
        const std::uint64_t four = fours[word] ^ (twos[word] & carry);
        const std::uint64_t two = twos[word] ^ carry;
        ones[word] = one;
        twos[word] = two;
        fours[word] = four;
        occurring.ones |= one;
        occurring.twos |= two;
        occurring.threes |= one & two;
        occurring.fours |= four;
        occurring.fives |= four & one;
        occurring.sixes |= four & two;
    }
    return occurring;
}

/// out := rows of bits, some of them inverted, that all hold.
SSQ_VECTOR_LOOP void select(std::array<const std::uint64_t*, 3> digits, std::array<std::uint64_t, 3> inverted,
                            const std::uint64_t* valid, std::size_t words, std::uint64_t* __restrict out) {
    const auto [ones, twos, fours] = digits;
    for (std::size_t word = 0; word < words; ++word)
        out[word] =
            (ones[word] ^ inverted[0]) & (twos[word] ^ inverted[1]) & (fours[word] ^ inverted[2]) & valid[word];
}

} // namespace

bool isRegularDraw(const history::Draw& draw) {
    NumberMask reds = 0;
    for (std::size_t slot = 1; slot <= 7; ++slot)
        if (draw[slot] < 1 || draw[slot] > 63)
            return false;
    for (std::size_t slot = 1; slot <= 6; ++slot)
        reds |= NumberMask{1} << draw[slot];
    return std::popcount(reds) == history::kRedsDrawn;
}

DrawBits::DrawBits(std::span<const history::Draw> draws)
    : m_words((draws.size() + kBitsOfWord * kWordsOfStep - 1) / (kBitsOfWord * kWordsOfStep) * kWordsOfStep),
      m_numbers(64 * m_words), m_valid(m_words), m_slotOfDraw(draws.size()), m_lastBlue(draws.back()[7]),
      m_lastDraw(draws.size() - 1), m_ones(m_words), m_twos(m_words), m_fours(m_words), m_selected(m_words) {
    for (std::size_t draw = 0; draw < draws.size(); ++draw) {
        const std::size_t word = draw / kBitsOfWord;
        const std::uint64_t bit = std::uint64_t{1} << (draw % kBitsOfWord);
        m_valid[word] |= bit;
        for (std::size_t slot = 1; slot <= 6; ++slot)
            m_numbers[static_cast<std::size_t>(draws[draw][slot]) * m_words + word] |= bit;
        std::uint8_t& blue = m_slotOfBlue[static_cast<std::size_t>(draws[draw][7])];
        if (blue == 0)
            blue = static_cast<std::uint8_t>(m_slots++);
        m_slotOfDraw[draw] = blue;
    }
}

void DrawBits::match(NumberMask reds) {
    addReds(reds & ~NumberMask{1});
    m_most = mostHits();
    findBest();
    findOneLess();
    const std::size_t word = m_lastDraw / kBitsOfWord;
    const auto digit = [&](const std::vector<std::uint64_t>& row) {
        return static_cast<std::int32_t>(row[word] >> (m_lastDraw % kBitsOfWord) & 1);
    };
    m_lastReds = digit(m_ones) + 2 * digit(m_twos) + 4 * digit(m_fours);
}

void DrawBits::addReds(NumberMask reds) {
    std::array<const std::uint64_t*, 6> rows;
    rows.fill(rowOf(0));
    for (std::size_t place = 0; place < rows.size() && reds != 0; ++place, reds &= reds - 1)
        rows[place] = rowOf(static_cast<std::uint32_t>(std::countr_zero(reds)));
    Occurring occurring = addSix(rows, m_words, m_ones.data(), m_twos.data(), m_fours.data());
    // A bet of seven reds has one more, a row with odd numbers more still; a draw holds six of them at most, so that
    // three digits do.
    for (; reds != 0; reds &= reds - 1)
        occurring = addOne(rowOf(static_cast<std::uint32_t>(std::countr_zero(reds))), m_words, m_ones.data(),
                           m_twos.data(), m_fours.data());
    m_occurs = {false,
                occurring.ones != 0,
                occurring.twos != 0,
                occurring.threes != 0,
                occurring.fours != 0,
                occurring.fives != 0,
                occurring.sixes != 0};
}

/// The highest number of hits that occurs. Below it the marks say too much (5 hits set the mark of 1), above it
/// nothing.
std::int32_t DrawBits::mostHits() const {
    std::int32_t hits = 6;
    while (hits > 0 && !m_occurs[static_cast<std::size_t>(hits)])
        --hits;
    return hits;
}

/// The draws with exactly so many hits, in the first words.
void DrawBits::selectHits(std::int32_t hits, std::size_t words) {
    const auto inverted = [hits](std::int32_t digit) { return hits & digit ? 0 : ~std::uint64_t{0}; };
    select({m_ones.data(), m_twos.data(), m_fours.data()}, {inverted(1), inverted(2), inverted(4)}, m_valid.data(),
           words, m_selected.data());
}

void DrawBits::findBest() {
    std::fill_n(m_mostWithBlue.begin(), m_slots, kNone);
    selectHits(m_most, m_words);
    m_firstMost = kNone;
    std::size_t missing = m_slots - 1;
    for (std::size_t word = 0; word < m_words && missing > 0; ++word) {
        for (std::uint64_t rest = m_selected[word]; rest != 0; rest &= rest - 1) {
            const std::size_t draw = word * kBitsOfWord + static_cast<std::size_t>(std::countr_zero(rest));
            std::int32_t& first = m_mostWithBlue[m_slotOfDraw[draw]];
            if (first != kNone)
                continue;
            first = static_cast<std::int32_t>(draw);
            m_firstMost = std::min(m_firstMost, first);
            --missing;
        }
    }
}

/// With its blue a draw with one hit less draws level; it counts only when it comes before the first of the most.
void DrawBits::findOneLess() {
    std::fill_n(m_lessWithBlue.begin(), m_slots, kNone);
    if (m_most == 0)
        return;
    const auto end = static_cast<std::size_t>(m_firstMost);
    selectHits(m_most - 1, end / kBitsOfWord + 1);
    std::size_t missing = m_slots - 1;
    for (std::size_t word = 0; word * kBitsOfWord < end && missing > 0; ++word) {
        for (std::uint64_t rest = m_selected[word]; rest != 0; rest &= rest - 1) {
            const std::size_t draw = word * kBitsOfWord + static_cast<std::size_t>(std::countr_zero(rest));
            std::int32_t& first = m_lessWithBlue[m_slotOfDraw[draw]];
            if (draw >= end || first != kNone)
                continue;
            first = static_cast<std::int32_t>(draw);
            --missing;
        }
    }
}

std::size_t DrawBits::slotOf(std::int32_t blue) const {
    return blue >= 0 && blue < 64 ? m_slotOfBlue[static_cast<std::size_t>(blue)] : 0;
}

Match DrawBits::best(std::int32_t blue) const {
    const std::size_t slot = slotOf(blue); // slot 0 holds no draw
    if (m_mostWithBlue[slot] != kNone)
        return {m_most + 1, m_mostWithBlue[slot]};
    return {m_most, std::min(m_firstMost, m_lessWithBlue[slot])};
}

} // namespace filter
