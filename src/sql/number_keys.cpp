#include "sql/number_keys.h"

#include <algorithm>
#include <bit>

#include "sql/vector_loop.h"

namespace sql {

namespace {

constexpr unsigned kBitsOfKey = 64;

SSQ_VECTOR_LOOP void addField(const std::int32_t* numbers, std::size_t count, std::int32_t low, std::uint32_t span,
                              unsigned shift, std::uint64_t* __restrict keys, std::uint8_t* __restrict outside) {
    for (std::size_t row = 0; row < count; ++row) {
        const std::uint32_t above = static_cast<std::uint32_t>(numbers[row]) - static_cast<std::uint32_t>(low);
        outside[row] |= above > span;
        keys[row] |= std::uint64_t{above} << shift;
    }
}

bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

} // namespace

bool sameNumbersSameText(const TextRecipe& one, const TextRecipe& other) {
    if (one.parts.size() != other.parts.size())
        return false;
    for (std::size_t place = 0; place < one.parts.size(); ++place) {
        const TextRecipe::Part& left = one.parts[place];
        const TextRecipe::Part& right = other.parts[place];
        if (left.literal != right.literal || left.digits != right.digits || (left.column < 0) != (right.column < 0))
            return false;
        if (place > 0 && (left.literal.empty() || isDigit(left.literal[0])))
            return false; // where one number ends and the next begins is not to be seen
    }
    return true;
}

std::vector<int> columnsOf(const TextRecipe& recipe) {
    std::vector<int> columns;
    for (const TextRecipe::Part& part : recipe.parts)
        if (part.column >= 0)
            columns.push_back(part.column);
    return columns;
}

std::optional<NumberKeys> NumberKeys::of(const ColumnTable& table, const TextRecipe& recipe, const Bitmap& chosen) {
    NumberKeys keys;
    unsigned shift = 0;
    const std::vector<int> columns = columnsOf(recipe);
    keys.m_fields.resize(columns.size());
    for (std::size_t place = columns.size();
         place-- > 0;) { // the first number highest: keys in the order of the rows
        const Numbers& numbers = table.columns[static_cast<std::size_t>(columns[place])].numbers;
        const std::uint32_t span =
            static_cast<std::uint32_t>(numbers.high()) - static_cast<std::uint32_t>(numbers.low());
        keys.m_fields[place] = {numbers.low(), span, shift};
        shift += static_cast<unsigned>(std::bit_width(span));
        if (shift >= kBitsOfKey)
            return std::nullopt;
    }
    std::uint64_t bits[kBatchWords];
    for (std::size_t first = 0; first < table.rows; first += kBatchLimit) {
        const std::size_t count = std::min(kBatchLimit, table.rows - first);
        keys.makeKeys(table, columns, first, count);
        chosen.read(first, count, bits);
        forEachBit(bits, count, [&](std::size_t row) { keys.m_sorted.push_back(keys.m_keys[row]); });
    }
    if (!std::ranges::is_sorted(keys.m_sorted))
        std::ranges::sort(keys.m_sorted);
    return keys;
}

void NumberKeys::makeKeys(const ColumnTable& table, const std::vector<int>& columns, std::size_t first,
                          std::size_t count) {
    m_numbers.resize(count);
    m_keys.assign(count, 0);
    m_outside.assign(count, 0);
    for (std::size_t place = 0; place < columns.size(); ++place) {
        const Field& field = m_fields[place];
        table.columns[static_cast<std::size_t>(columns[place])].numbers.read(first, count, m_numbers.data());
        addField(m_numbers.data(), count, field.low, field.span, field.shift, m_keys.data(), m_outside.data());
    }
}

void NumberKeys::find(const ColumnTable& table, const std::vector<int>& columns, std::size_t first, std::size_t count,
                      std::uint8_t* found) {
    makeKeys(table, columns, first, count);
    for (std::size_t row = 0; row < count; ++row)
        found[row] = m_outside[row] == 0 && contains(m_keys[row]);
}

/// Doubles its step from where the last question ended; a key that lies before it starts anew.
bool NumberKeys::contains(std::uint64_t key) {
    std::size_t from = m_at > 0 && m_sorted[m_at - 1] < key ? m_at : 0;
    std::size_t step = 1;
    while (from + step < m_sorted.size() && m_sorted[from + step - 1] < key) {
        from += step;
        step *= 2;
    }
    const auto end = m_sorted.begin() + static_cast<std::ptrdiff_t>(std::min(from + step, m_sorted.size()));
    const auto found = std::lower_bound(m_sorted.begin() + static_cast<std::ptrdiff_t>(from), end, key);
    m_at = static_cast<std::size_t>(found - m_sorted.begin());
    return m_at < m_sorted.size() && m_sorted[m_at] == key;
}

} // namespace sql
