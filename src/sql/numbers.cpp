#include "sql/numbers.h"

#include <algorithm>
#include <new>

#include "sql/bitmap.h"
#include "sql/vector_loop.h"

namespace sql {

namespace {

template <class T> SSQ_VECTOR_LOOP void widen(const T* from, std::size_t count, std::int32_t* out) {
    for (std::size_t row = 0; row < count; ++row)
        out[row] = from[row];
}

template <class T> SSQ_VECTOR_LOOP void storeAll(T* to, std::size_t count, const std::int32_t* values) {
    for (std::size_t row = 0; row < count; ++row)
        to[row] = static_cast<T>(values[row]);
}

template <class T> void store(T* to, std::size_t count, const std::int32_t* values, const std::uint64_t* mask) {
    if (!mask)
        return storeAll(to, count, values);
    for (std::size_t word = 0; word < wordsFor(count); ++word) {
        const std::size_t at = word * 64;
        if (mask[word] == ~0ULL)
            storeAll(to + at, 64, values + at);
        else
            for (std::uint64_t rest = mask[word]; rest != 0; rest &= rest - 1) {
                const std::size_t row = at + static_cast<std::size_t>(std::countr_zero(rest));
                to[row] = static_cast<T>(values[row]);
            }
    }
}

} // namespace

Numbers Numbers::copy() const {
    Numbers same;
    same.m_size = m_size;
    same.m_width = m_width;
    same.m_low = m_low;
    same.m_high = m_high;
    if (m_width != Width::Constant) {
        const std::size_t bytes = m_size * bytesOf(m_width);
        same.m_capacity = m_size;
        same.m_bytes = allocate(bytes);
        std::copy_n(m_bytes.get(), bytes, same.m_bytes.get());
    }
    return same;
}

Width Numbers::widthFor(std::int32_t low, std::int32_t high) {
    if (low == high)
        return Width::Constant;
    if (low >= INT8_MIN && high <= INT8_MAX)
        return Width::One;
    return low >= INT16_MIN && high <= INT16_MAX ? Width::Two : Width::Four;
}

std::size_t Numbers::bytesOf(Width width) {
    switch (width) {
    case Width::One:
        return 1;
    case Width::Two:
        return 2;
    default:
        return 4;
    }
}

Numbers::Bytes Numbers::allocate(std::size_t bytes) {
    auto* memory = static_cast<std::byte*>(std::aligned_alloc(64, std::max<std::size_t>((bytes + 63) / 64, 1) * 64));
    if (!memory)
        throw std::bad_alloc();
    return Bytes(memory);
}

std::int32_t Numbers::get(std::size_t row) const {
    if (m_width == Width::Constant)
        return m_low;
    return visit([row](const auto* rows) { return static_cast<std::int32_t>(rows[row]); });
}

void Numbers::read(std::size_t first, std::size_t count, std::int32_t* out) const {
    if (m_width == Width::Constant) {
        std::fill_n(out, count, m_low);
        return;
    }
    visit([=](const auto* rows) { widen(rows + first, count, out); });
}

void Numbers::grow(std::size_t rows) {
    if (m_width == Width::Constant || rows <= m_capacity)
        return;
    const std::size_t each = bytesOf(m_width);
    const std::size_t capacity = std::max(rows, m_capacity + m_capacity / 2);
    Bytes bytes = allocate(capacity * each);
    if (m_bytes)
        std::copy_n(m_bytes.get(), m_size * each, bytes.get());
    m_bytes = std::move(bytes);
    m_capacity = capacity;
}

void Numbers::reserve(std::size_t rows) {
    grow(rows);
}

void Numbers::makeRoom(std::int32_t low, std::int32_t high) {
    if (m_size > 0) {
        low = std::min(low, m_low);
        high = std::max(high, m_high);
    }
    const Width wanted = widthFor(low, high);
    if (wanted > m_width) {
        Numbers wider;
        wider.rebuild(m_size, low, high);
        std::int32_t batch[kBatchLimit];
        for (std::size_t first = 0; first < m_size; first += kBatchLimit) {
            const std::size_t count = std::min(kBatchLimit, m_size - first);
            read(first, count, batch);
            wider.write(first, count, batch, nullptr);
        }
        *this = std::move(wider);
    }
    m_low = low;
    m_high = high;
}

void Numbers::write(std::size_t first, std::size_t count, const std::int32_t* values, const std::uint64_t* mask) {
    switch (m_width) {
    case Width::Constant:
        return; // room was made for this one value only
    case Width::One:
        return store(rows<std::int8_t>() + first, count, values, mask);
    case Width::Two:
        return store(rows<std::int16_t>() + first, count, values, mask);
    case Width::Four:
        return store(rows<std::int32_t>() + first, count, values, mask);
    }
}

void Numbers::fill(std::int32_t value) {
    m_width = Width::Constant;
    m_low = m_high = value;
    m_capacity = 0;
    m_bytes.reset();
}

void Numbers::rebuild(std::size_t size, std::int32_t low, std::int32_t high) {
    const Width wanted = widthFor(low, high);
    if (wanted != m_width || m_capacity < size) {
        fill(low);
        m_width = wanted;
        m_size = 0;
        grow(size);
    }
    m_size = size;
    m_low = low;
    m_high = high;
}

void Numbers::append(std::span<const std::int32_t> values) {
    if (values.empty())
        return;
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    if (m_size == 0)
        fill(*low);
    makeRoom(*low, *high);
    grow(m_size + values.size());
    write(m_size, values.size(), values.data(), nullptr);
    m_size += values.size();
}

void Numbers::appendCopies(std::size_t count, std::int32_t value) {
    if (m_size == 0)
        fill(value);
    makeRoom(value, value);
    if (m_width != Width::Constant) {
        grow(m_size + count);
        std::int32_t batch[kBatchLimit];
        std::fill_n(batch, kBatchLimit, value);
        for (std::size_t done = 0; done < count; done += kBatchLimit)
            write(m_size + done, std::min(kBatchLimit, count - done), batch, nullptr);
    }
    m_size += count;
}

} // namespace sql
