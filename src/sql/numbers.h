// Whole numbers of a column at the narrowest width that holds them: none (all rows alike), 8, 16 or 32 bits.
//
// The width follows the bounds, which never are narrower than the rows. Writing a batch asks for room first
// (makeRoom); a column that is rewritten whole is built anew at its own width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace sql {

enum class Width : std::uint8_t { Constant, One, Two, Four };

class Numbers {
  public:
    std::size_t size() const { return m_size; }
    Width width() const { return m_width; }
    std::int32_t low() const { return m_low; }
    std::int32_t high() const { return m_high; }

    /// The same numbers in memory of their own.
    Numbers copy() const;
    std::int32_t get(std::size_t row) const;
    /// Copies `count` rows to `out`.
    void read(std::size_t first, std::size_t count, std::int32_t* out) const;

    /// Widens the rows if need be, so that numbers low..high can be written.
    void makeRoom(std::int32_t low, std::int32_t high);
    /// Writes `count` rows, or those whose bit in `mask` is set. Room must have been made.
    void write(std::size_t first, std::size_t count, const std::int32_t* values, const std::uint64_t* mask);

    /// All rows become `value`; the number of rows stays.
    void fill(std::int32_t value);
    /// `size` rows with room for low..high, their values not yet written.
    void rebuild(std::size_t size, std::int32_t low, std::int32_t high);
    void append(std::span<const std::int32_t> values);
    void appendCopies(std::size_t count, std::int32_t value);
    void reserve(std::size_t rows);

    template <class T> const T* data() const { return reinterpret_cast<const T*>(m_bytes.get()); }

    /// Calls visit with a pointer to the rows of the right type, or with one to the constant (then width() tells).
    template <class Visit> decltype(auto) visit(Visit visit) const {
        switch (m_width) {
        case Width::One:
            return visit(data<std::int8_t>());
        case Width::Two:
            return visit(data<std::int16_t>());
        default:
            return visit(data<std::int32_t>());
        }
    }

    static Width widthFor(std::int32_t low, std::int32_t high);

  private:
    struct Free {
        void operator()(std::byte* bytes) const { std::free(bytes); }
    };
    using Bytes = std::unique_ptr<std::byte[], Free>;

    static std::size_t bytesOf(Width width);
    static Bytes allocate(std::size_t bytes);
    void grow(std::size_t rows);
    template <class T> T* rows() { return reinterpret_cast<T*>(m_bytes.get()); }

    std::size_t m_size = 0;
    std::size_t m_capacity = 0; // rows at the present width; 0 for a constant
    Width m_width = Width::Constant;
    std::int32_t m_low = 0;
    std::int32_t m_high = 0;
    Bytes m_bytes; // never initialised by us: a fresh column of 17 million rows is written once, not twice
};

} // namespace sql
