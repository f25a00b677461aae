#include "sql/text_append.h"

#include <algorithm>

#include "sql/scalar.h"
#include "sql/text_recipe.h"

namespace sql {

bool TextAppend::isSingle(const TextRecipe& tail) {
    return std::ranges::count_if(tail.parts, [](const TextRecipe::Part& part) { return part.column >= 0; }) <= 1;
}

TextAppend::TextAppend(const ColumnTable& table, int place, TextRecipe tail, std::size_t textBytes)
    : m_table(table), m_place(static_cast<std::size_t>(place)), m_tail(std::move(tail)), m_textBytes(textBytes) {
    for (const TextRecipe::Part& part : m_tail.parts)
        m_number = std::max(m_number, part.column);
}

void TextAppend::read(std::size_t first, std::size_t count) {
    m_codes.resize(count);
    m_numbers.assign(count, 0);
    const Column& column = m_table.columns[m_place];
    column.numbers.read(first, count, m_codes.data());
    std::uint64_t bits[kBatchWords];
    if (column.nulls.read(first, count, bits))
        forEachBit(bits, count, [this](std::size_t row) { m_codes[row] = -1; });
    if (m_number >= 0)
        m_table.columns[static_cast<std::size_t>(m_number)].numbers.read(first, count, m_numbers.data());
}

std::int32_t TextAppend::append(Dictionary& dictionary, const std::uint64_t* mask, std::size_t count,
                                std::int32_t* codes) {
    std::int32_t highest = 0;
    std::fill_n(codes, count, 0);
    forEachBit(mask, count, [&](std::size_t row) {
        codes[row] = appended(dictionary, m_codes[row], m_numbers[row]);
        highest = std::max(highest, codes[row]);
    });
    return highest;
}

std::int32_t TextAppend::appended(Dictionary& dictionary, std::int32_t code, std::int32_t number) {
    if (code >= 0 && (dictionary.isFull(code) || dictionary.bytes() >= m_textBytes))
        return code;
    const auto [pair, isNew] = m_pairs.find(static_cast<std::uint32_t>(code), static_cast<std::uint32_t>(number));
    if (isNew)
        m_longer.push_back(longer(dictionary, code, number));
    return m_longer[pair];
}

std::int32_t TextAppend::longer(Dictionary& dictionary, std::int32_t code, std::int32_t number) {
    m_text.clear();
    if (code >= 0)
        m_text = dictionary.text(code);
    for (const TextRecipe::Part& part : m_tail.parts) {
        m_text += part.literal;
        if (part.column >= 0)
            appendNumber(number, part.digits, m_text);
    }
    const std::string cut = cutText(m_text);
    const std::int32_t found = dictionary.intern(cut);
    if (cut.size() < m_text.size())
        dictionary.markFull(found);
    return found;
}

} // namespace sql
