// A row of bits, 64 to a word, read and written a batch at a time.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace sql {

inline constexpr std::size_t kBatchLimit = 2048; ///< most rows of a batch
inline constexpr std::size_t kBatchWords = kBatchLimit / 64;

constexpr std::size_t wordsFor(std::size_t bits) {
    return (bits + 63) / 64;
}

/// The lowest `bits` bits set, 0..64.
constexpr std::uint64_t lowBits(std::size_t bits) {
    return bits >= 64 ? ~0ULL : (1ULL << bits) - 1;
}

class Bitmap {
  public:
    Bitmap() = default;
    explicit Bitmap(std::size_t size, bool value = false) { resize(size, value); }

    std::size_t size() const { return m_size; }
    bool get(std::size_t at) const { return (m_words[at / 64] >> (at % 64)) & 1; }
    void set(std::size_t at, bool value) {
        const std::uint64_t bit = 1ULL << (at % 64);
        m_words[at / 64] = value ? m_words[at / 64] | bit : m_words[at / 64] & ~bit;
    }
    /// New bits get the value.
    void resize(std::size_t size, bool value = false);
    void fill(bool value);
    std::size_t count() const;

    /// Copies bits first..first+count-1 to the words at `out`; bits behind the last are 0.
    void read(std::size_t first, std::size_t count, std::uint64_t* out) const;
    /// Writes those bits of `values` whose bit in `mask` is set. Bits of `mask` behind the last must be 0.
    void write(std::size_t first, std::size_t count, const std::uint64_t* values, const std::uint64_t* mask);

    std::vector<std::uint64_t>& words() { return m_words; }
    const std::vector<std::uint64_t>& words() const { return m_words; }

  private:
    void clearTail();

    std::size_t m_size = 0;
    std::vector<std::uint64_t> m_words; // bits behind the last are 0
};

/// Packs bytes of 0 and 1 into bits; bits behind the last are 0.
void packBits(const std::uint8_t* bytes, std::size_t count, std::uint64_t* out);

/// Calls visit(row) for every set bit of a batch, rows counted from 0.
template <class Visit> void forEachBit(const std::uint64_t* words, std::size_t count, Visit visit) {
    for (std::size_t word = 0; word < wordsFor(count); ++word)
        for (std::uint64_t rest = words[word]; rest != 0; rest &= rest - 1)
            visit(word * 64 + static_cast<std::size_t>(std::countr_zero(rest)));
}

} // namespace sql
