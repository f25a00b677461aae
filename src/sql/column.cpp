#include "sql/column.h"

#include <algorithm>
#include <cassert>

#include "sql/error.h"
#include "sql/text_recipe.h"

namespace sql {

std::int32_t Dictionary::intern(std::string_view text) {
    const auto found = m_codes.find(text);
    if (found != m_codes.end())
        return found->second;
    const auto code = static_cast<std::int32_t>(m_texts.size());
    m_codes.emplace(m_texts.emplace_back(text), code);
    m_bytes += text.size() + kBytesBeside;
    return code;
}

void Dictionary::markFull(std::int32_t code) {
    m_full.resize(std::max(m_full.size(), static_cast<std::size_t>(code) + 1));
    m_full[static_cast<std::size_t>(code)] = true;
}

void NullMap::setNone() {
    m_state = State::None;
    m_bits = Bitmap();
}

void NullMap::setAll() {
    m_state = State::All;
    m_bits = Bitmap();
}

bool NullMap::read(std::size_t first, std::size_t count, std::uint64_t* out) const {
    if (m_state == State::None)
        return false;
    if (m_state == State::Some) {
        m_bits.read(first, count, out);
        return std::any_of(out, out + wordsFor(count), [](std::uint64_t word) { return word != 0; });
    }
    std::fill_n(out, wordsFor(count), ~0ULL);
    if (count % 64 != 0)
        out[wordsFor(count) - 1] = lowBits(count % 64);
    return count > 0;
}

void NullMap::write(std::size_t first, std::size_t count, const std::uint64_t* values, const std::uint64_t* mask,
                    std::size_t size) {
    if (!values && m_state == State::None)
        return;
    if (m_state != State::Some) {
        m_bits = Bitmap(size, m_state == State::All);
        m_state = State::Some;
    }
    static constexpr std::uint64_t kNoBits[kBatchWords] = {};
    m_bits.write(first, count, values ? values : kNoBits, mask);
}

void NullMap::append(std::size_t size, std::size_t count, bool null) {
    if (size == 0) {
        null ? setAll() : setNone();
        return;
    }
    if (m_state == (null ? State::All : State::None))
        return;
    if (m_state != State::Some)
        m_bits = Bitmap(size, m_state == State::All);
    m_state = State::Some;
    m_bits.resize(size + count, null);
}

Column::Values Column::values() const {
    return {numbers.copy(), reals, bits, nulls, dictionary, recipe};
}

void Column::setValues(Values values, std::size_t size) {
    numbers = std::move(values.numbers);
    reals = std::move(values.reals);
    bits = std::move(values.bits);
    nulls = std::move(values.nulls);
    dictionary = std::move(values.dictionary);
    recipe = std::move(values.recipe);
    storedTexts = 0; // the file may have been given other texts meanwhile
    dictionaryReplaced = true;
    markAllDirty(size);
}

Value Column::at(std::size_t row) const {
    if (def.type == ColumnType::Bit)
        return std::int64_t{bits.get(row) ? -1 : 0};
    if (nulls.get(row))
        return {};
    if (def.type == ColumnType::Real)
        return reals[row];
    const std::int32_t number = numbers.get(row);
    return def.type == ColumnType::Text ? Value(dictionary->text(number)) : Value(std::int64_t{number});
}

void Column::appendDefaults(std::size_t size, std::size_t count) {
    if (def.type == ColumnType::Bit)
        bits.resize(size + count);
    else if (def.type == ColumnType::Real)
        reals.resize(size + count);
    else
        numbers.appendCopies(count, numbers.low()); // any number will do under a Null
    if (def.type != ColumnType::Bit)
        nulls.append(size, count, true);
    markDirty(size, count);
}

void Column::markDirty(std::size_t first, std::size_t count) {
    if (count == 0)
        return;
    const std::size_t last = (first + count - 1) / kChunkRows;
    if (dirtyChunks.size() <= last)
        dirtyChunks.resize(last + 1, true);
    for (std::size_t chunk = first / kChunkRows; chunk <= last; ++chunk)
        dirtyChunks[chunk] = true;
}

void Column::markAllDirty(std::size_t size) {
    dirtyChunks.assign((size + kChunkRows - 1) / kChunkRows, true);
}

void Column::replaceDictionary() {
    dictionary = std::make_shared<Dictionary>();
    storedTexts = 0;
    dictionaryReplaced = true;
}

void requireRoom(const ColumnTable& table, std::size_t more) {
    if (more > kMostRows || table.rows > kMostRows - more)
        throw SqlError(error::kStorage, "组合表最多" + std::to_string(kMostRows) + "行 " + table.name);
}

Value ColumnTable::at(std::size_t row, int column) const {
    const Column& source = columns[static_cast<std::size_t>(column)];
    return source.recipe ? Value(composedText(*this, *source.recipe, row)) : source.at(row);
}

TableShape ColumnTable::shape() const {
    TableShape result{name, {}};
    for (const Column& column : columns)
        result.columns.push_back(column.def);
    return result;
}

void ColumnTable::verify() const {
#ifndef NDEBUG
    for (const Column& column : columns) {
        switch (column.def.type) {
        case ColumnType::Bit:
            assert(column.bits.size() == rows);
            break;
        case ColumnType::Real:
            assert(column.reals.size() == rows);
            break;
        default:
            assert(column.numbers.size() == rows);
            break;
        }
        assert(column.def.type != ColumnType::Text || rows == 0 || column.nulls.all() ||
               column.numbers.high() <
                   static_cast<std::int32_t>(std::max<std::size_t>(column.dictionary->size(), 1)));
    }
#endif
}

} // namespace sql
