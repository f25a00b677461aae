#include "sql/bitmap.h"

#include <algorithm>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace sql {

void Bitmap::resize(std::size_t size, bool value) {
    const std::size_t old = m_size;
    m_words.resize(wordsFor(size), value ? ~0ULL : 0);
    m_size = size;
    if (value && size > old && old % 64 != 0)
        m_words[old / 64] |= ~lowBits(old % 64);
    clearTail();
}

void Bitmap::fill(bool value) {
    std::fill(m_words.begin(), m_words.end(), value ? ~0ULL : 0);
    clearTail();
}

void Bitmap::clearTail() {
    if (m_size % 64 != 0)
        m_words.back() &= lowBits(m_size % 64);
}

std::size_t Bitmap::count() const {
    std::size_t total = 0;
    for (const std::uint64_t word : m_words)
        total += static_cast<std::size_t>(std::popcount(word));
    return total;
}

void Bitmap::read(std::size_t first, std::size_t count, std::uint64_t* out) const {
    const std::size_t words = wordsFor(count);
    const std::size_t shift = first % 64;
    const std::size_t at = first / 64;
    if (shift == 0) {
        std::memcpy(out, m_words.data() + at, words * sizeof(std::uint64_t));
    } else {
        for (std::size_t word = 0; word < words; ++word) {
            const std::uint64_t next = at + word + 1 < m_words.size() ? m_words[at + word + 1] : 0;
            out[word] = (m_words[at + word] >> shift) | (next << (64 - shift));
        }
    }
    if (count % 64 != 0)
        out[words - 1] &= lowBits(count % 64);
}

void Bitmap::write(std::size_t first, std::size_t count, const std::uint64_t* values, const std::uint64_t* mask) {
    const std::size_t shift = first % 64;
    std::uint64_t* target = m_words.data() + first / 64;
    for (std::size_t word = 0; word < wordsFor(count); ++word) {
        target[word] = (target[word] & ~(mask[word] << shift)) | ((values[word] & mask[word]) << shift);
        if (shift == 0 || (mask[word] >> (64 - shift)) == 0)
            continue;
        const std::size_t back = 64 - shift;
        target[word + 1] = (target[word + 1] & ~(mask[word] >> back)) | ((values[word] & mask[word]) >> back);
    }
}

namespace {

/// 64 bytes of 0 and 1.
std::uint64_t packWord(const std::uint8_t* bytes) {
    std::uint64_t bits = 0;
#if defined(__SSE2__)
    for (unsigned part = 0; part < 4; ++part) {
        const __m128i sixteen = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + std::size_t{16} * part));
        const int tops = _mm_movemask_epi8(_mm_slli_epi16(sixteen, 7)); // the low bit of each byte becomes its top
        bits |= static_cast<std::uint64_t>(static_cast<unsigned>(tops)) << (16 * part);
    }
#else
    for (std::size_t group = 0; group < 64; group += 8) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, bytes + group, 8);
        // The product gathers the low bit of each of the eight bytes in its top byte, the first byte lowest.
        bits |= ((eight * 0x0102040810204080ULL) >> 56) << group;
    }
#endif
    return bits;
}

} // namespace

void packBits(const std::uint8_t* bytes, std::size_t count, std::uint64_t* out) {
    for (std::size_t word = 0; word < count / 64; ++word)
        out[word] = packWord(bytes + word * 64);
    if (count % 64 == 0)
        return;
    std::uint8_t rest[64] = {};
    std::memcpy(rest, bytes + count / 64 * 64, count % 64);
    out[count / 64] = packWord(rest);
}

} // namespace sql
