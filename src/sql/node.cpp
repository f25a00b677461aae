#include "sql/node.h"

#include <algorithm>
#include <cstring>

#include "sql/vector_loop.h"

namespace sql {

namespace {

template <class T> SSQ_VECTOR_LOOP void nonZero(const T* values, std::size_t count, std::uint8_t* out) {
    for (std::size_t row = 0; row < count; ++row)
        out[row] = values[row] != 0;
}

/// Takes the unknown rows out of those that hold.
void settle(const std::uint8_t* nulls, std::size_t count, Truth& truth) {
    truth.hasUnknown = nulls != nullptr;
    if (!nulls)
        return;
    packBits(nulls, count, truth.unknown.data());
    for (std::size_t word = 0; word < wordsFor(count); ++word)
        truth.yes[word] &= ~truth.unknown[word];
}

} // namespace

const double* asReals(const Vec& vec, std::size_t count, double* buffer) {
    if (vec.storage == Storage::Reals)
        return vec.reals;
    for (std::size_t row = 0; row < count; ++row)
        buffer[row] = vec.ints[row];
    return buffer;
}

const std::uint8_t* mergedNulls(const Vec& left, const Vec& right, std::size_t count, std::uint8_t* buffer) {
    if (!left.nulls || !right.nulls)
        return left.nulls ? left.nulls : right.nulls;
    for (std::size_t row = 0; row < count; ++row)
        buffer[row] = left.nulls[row] | right.nulls[row];
    return buffer;
}

void unpackBits(const std::uint64_t* bits, std::size_t count, std::uint8_t* out) {
    for (std::size_t first = 0; first < count; first += 8) {
        const std::uint64_t byte = bits[first / 64] >> (first % 64) & 0xFF;
        // Each byte of the product keeps its own bit; adding 7F raises the top bit of those that are not 0.
        const std::uint64_t kept = byte * 0x0101010101010101ULL & 0x8040201008040201ULL;
        const std::uint64_t eight = (kept + 0x7F7F7F7F7F7F7F7FULL) >> 7 & 0x0101010101010101ULL;
        std::memcpy(out + first, &eight, std::min<std::size_t>(8, count - first));
    }
}

void ValueNode::select(const Batch& batch, Truth& truth) {
    const Vec vec = values(batch);
    std::array<std::uint8_t, kBatchLimit> flags;
    if (vec.storage == Storage::Reals)
        nonZero(vec.reals, batch.count, flags.data());
    else
        nonZero(vec.ints, batch.count, flags.data());
    packBits(flags.data(), batch.count, truth.yes.data());
    settle(vec.nulls, batch.count, truth);
}

void FlagNode::select(const Batch& batch, Truth& truth) {
    const Flags result = flags(batch);
    packBits(result.flags, batch.count, truth.yes.data());
    settle(result.nulls, batch.count, truth);
}

Vec FlagNode::values(const Batch& batch) {
    const Flags result = flags(batch);
    for (std::size_t row = 0; row < batch.count; ++row)
        m_ints[row] = -static_cast<std::int32_t>(result.flags[row]);
    return {.ints = m_ints.data(), .nulls = result.nulls};
}

Vec TruthNode::values(const Batch& batch) {
    Truth truth;
    select(batch, truth);
    unpackBits(truth.yes.data(), batch.count, m_nulls.data());
    for (std::size_t row = 0; row < batch.count; ++row)
        m_ints[row] = -static_cast<std::int32_t>(m_nulls[row]);
    if (!truth.hasUnknown)
        return {.ints = m_ints.data()};
    unpackBits(truth.unknown.data(), batch.count, m_nulls.data());
    return {.ints = m_ints.data(), .nulls = m_nulls.data()};
}

} // namespace sql
