#include "sql/column_write.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "sql/scalar.h"
#include "sql/text_recipe.h"

namespace sql {

namespace {

Range limitsOf(ColumnType type) {
    return type == ColumnType::Short ? Range{-32768, 32767} : Range{kIntegerLow, kIntegerHigh};
}

} // namespace

ColumnWriter::ColumnWriter(ColumnTable& table, int place, const Expr& value, PlanContext& context, bool whole)
    : m_table(table), m_place(static_cast<std::size_t>(place)), m_type(column().def.type), m_whole(whole),
      m_pool(context.pool) {
    planValue(value, context);
    prepareRoom();
}

void ColumnWriter::planValue(const Expr& value, PlanContext& context) {
    if (m_type != ColumnType::Text) {
        m_planned = plan(value, context);
        return;
    }
    const int place = static_cast<int>(m_place);
    std::optional<TextRecipe> tail = m_whole ? std::nullopt : appendedTo(place, value, m_table);
    if (tail && TextAppend::isSingle(*tail))
        m_append.emplace(m_table, place, std::move(*tail), context.textBytes);
    else
        m_planned = planAsText(value, context);
}

void ColumnWriter::prepareRoom() {
    if (m_type == ColumnType::Bit || m_type == ColumnType::Real)
        return;
    if (m_type == ColumnType::Text) {
        m_dictionary = m_whole ? std::make_shared<Dictionary>() : column().dictionary;
        if (m_whole)
            m_fresh.rebuild(m_table.rows, 0, 0);
        return;
    }
    const Range limits = limitsOf(m_type);
    Range range = m_planned.storage == Storage::Ints ? m_planned.range : limits;
    range = {std::clamp(range.low, limits.low, limits.high), std::clamp(range.high, limits.low, limits.high)};
    const auto low = static_cast<std::int32_t>(range.low);
    const auto high = static_cast<std::int32_t>(range.high);
    if (m_whole)
        m_fresh.rebuild(m_table.rows, low, high);
    else
        column().numbers.makeRoom(low, high);
}

void ColumnWriter::evaluate(const Batch& batch) {
    if (m_append)
        return m_append->read(batch.first, batch.count);
    if (m_type == ColumnType::Bit)
        return m_planned.node->select(batch, m_truth);
    m_vec = m_planned.node->values(batch);
    if (m_type == ColumnType::Integer || m_type == ColumnType::Short)
        toInts(batch);
}

/// Real numbers are rounded half to even; what does not fit the column becomes Null.
void ColumnWriter::toInts(const Batch& batch) {
    const Range limits = limitsOf(m_type);
    const bool fits = m_planned.storage == Storage::Ints && m_planned.range.low >= limits.low &&
                      m_planned.range.high <= limits.high;
    if (fits)
        return coverNulls(batch);
    const double* reals = asReals(m_vec, batch.count, m_buffer->reals.data());
    bool anyNull = false;
    for (std::size_t row = 0; row < batch.count; ++row) {
        const double whole = base::roundHalfEven(reals[row]);
        const bool known = !(m_vec.nulls && m_vec.nulls[row]) && whole >= limits.low && whole <= limits.high;
        m_buffer->ints[row] = known ? static_cast<std::int32_t>(whole) : static_cast<std::int32_t>(limits.low);
        m_buffer->nulls[row] = !known;
        anyNull |= !known;
    }
    m_vec = {.ints = m_buffer->ints.data(), .nulls = anyNull ? m_buffer->nulls.data() : nullptr};
}

/// Under a Null stands a number within the column's bounds: tables of results are made for those only.
void ColumnWriter::coverNulls(const Batch& batch) {
    if (!m_vec.nulls)
        return;
    const std::int32_t low = m_whole ? m_fresh.low() : column().numbers.low();
    for (std::size_t row = 0; row < batch.count; ++row)
        m_buffer->ints[row] = m_vec.nulls[row] ? low : m_vec.ints[row];
    m_vec.ints = m_buffer->ints.data();
}

void ColumnWriter::write(const Batch& batch, const std::uint64_t* mask) {
    if (m_append)
        return writeAppended(batch, mask);
    if (m_type == ColumnType::Bit)
        column().bits.write(batch.first, batch.count, m_truth.yes.data(), mask);
    else if (m_type == ColumnType::Real)
        writeReals(batch, mask);
    else if (m_type == ColumnType::Text)
        writeTexts(batch, mask);
    else
        (m_whole ? m_fresh : column().numbers).write(batch.first, batch.count, m_vec.ints, m_whole ? nullptr : mask);
    if (m_type != ColumnType::Bit)
        writeNulls(batch, mask);
    if (!m_whole)
        column().markDirty(batch.first, batch.count);
}

void ColumnWriter::writeReals(const Batch& batch, const std::uint64_t* mask) {
    const double* reals = asReals(m_vec, batch.count, m_buffer->reals.data());
    forEachBit(mask, batch.count,
               [&](std::size_t row) { column().reals[batch.first + row] = reals[row] + 0.0; }); // no -0
}

void ColumnWriter::writeTexts(const Batch& batch, const std::uint64_t* mask) {
    Numbers& codes = m_whole ? m_fresh : column().numbers;
    if (m_codes.size() < m_pool.size())
        m_codes.resize(m_pool.size(), -1);
    std::int32_t* out = m_buffer->ints.data();
    std::fill_n(out, batch.count, 0);
    forEachBit(mask, batch.count, [&](std::size_t row) {
        if (m_vec.nulls && m_vec.nulls[row])
            return;
        std::int32_t& code = m_codes[static_cast<std::size_t>(m_vec.codes[row])];
        if (code < 0)
            code = m_dictionary->intern(cutText(m_pool.text(m_vec.codes[row])));
        out[row] = code;
    });
    codes.makeRoom(0, std::max<std::int32_t>(static_cast<std::int32_t>(m_dictionary->size()) - 1, 0));
    codes.write(batch.first, batch.count, out, m_whole ? nullptr : mask);
}

void ColumnWriter::writeAppended(const Batch& batch, const std::uint64_t* mask) {
    std::int32_t* codes = m_buffer->ints.data();
    column().numbers.makeRoom(0, m_append->append(*m_dictionary, mask, batch.count, codes));
    column().numbers.write(batch.first, batch.count, codes, mask);
    column().nulls.write(batch.first, batch.count, nullptr, mask, m_table.rows);
    column().markDirty(batch.first, batch.count);
}

void ColumnWriter::writeNulls(const Batch& batch, const std::uint64_t* mask) {
    NullMap& nulls = m_whole ? m_freshNulls : column().nulls;
    if (!m_vec.nulls)
        return nulls.write(batch.first, batch.count, nullptr, mask, m_table.rows);
    std::uint64_t bits[kBatchWords];
    packBits(m_vec.nulls, batch.count, bits);
    nulls.write(batch.first, batch.count, bits, mask, m_table.rows);
}

void assignConstant(ColumnTable& table, int place, const Value& value) {
    Column& column = table.columns[static_cast<std::size_t>(place)];
    column.markAllDirty(table.rows);
    if (column.def.type == ColumnType::Bit)
        return column.bits.fill(toInteger(value) != 0);
    column.recipe.reset();
    isNull(value) ? column.nulls.setAll() : column.nulls.setNone();
    if (column.def.type == ColumnType::Real) {
        column.reals.assign(table.rows, toReal(value));
        return;
    }
    if (column.def.type == ColumnType::Text)
        column.replaceDictionary();
    const std::int32_t number = isNull(value)                         ? 0
                                : column.def.type == ColumnType::Text ? column.dictionary->intern(toText(value))
                                                                      : static_cast<std::int32_t>(toInteger(value));
    column.numbers.rebuild(table.rows, number, number);
}

void ColumnWriter::finish() {
    if (!m_whole)
        return;
    if (m_type != ColumnType::Bit && m_type != ColumnType::Real)
        column().numbers = std::move(m_fresh);
    if (m_type == ColumnType::Text) {
        column().replaceDictionary();
        column().dictionary = m_dictionary;
        column().recipe.reset();
    }
    if (m_type != ColumnType::Bit)
        column().nulls = std::move(m_freshNulls);
    column().markAllDirty(m_table.rows);
}

} // namespace sql
