#include "sql/column_compute.h"

#include <algorithm>

#include "sql/column_query.h"
#include "sql/vector_loop.h"

namespace sql {

namespace {

/// A column by its name and one of the types that fit.
Column& columnOf(ColumnTable& table, const std::string& name, std::initializer_list<ColumnType> types) {
    const int place = table.shape().find(name);
    if (place < 0)
        throw SqlError(error::kColumnNotFound, "找不到字段 " + name);
    Column& column = table.columns[static_cast<std::size_t>(place)];
    if (std::find(types.begin(), types.end(), column.def.type) == types.end())
        throw SqlError(error::kTypeMismatch, "字段不是整数 " + name);
    return column;
}

struct Bounds {
    std::int32_t low = INT32_MAX;
    std::int32_t high = INT32_MIN;
};

/// Of the rows that are marked.
SSQ_VECTOR_LOOP Bounds boundsOf(const std::int32_t* values, const std::uint8_t* written, std::size_t count) {
    Bounds bounds;
    for (std::size_t row = 0; row < count; ++row) {
        bounds.low = std::min(bounds.low, written[row] ? values[row] : INT32_MAX);
        bounds.high = std::max(bounds.high, written[row] ? values[row] : INT32_MIN);
    }
    return bounds;
}

SSQ_VECTOR_LOOP Bounds boundsOf(const std::int32_t* values, std::size_t count) {
    Bounds bounds;
    for (std::size_t row = 0; row < count; ++row) {
        bounds.low = std::min(bounds.low, values[row]);
        bounds.high = std::max(bounds.high, values[row]);
    }
    return bounds;
}

/// The input columns of one batch after the other.
class Inputs {
  public:
    Inputs(ColumnTable& table, std::span<const std::string> names, std::size_t batchRows)
        : m_buffers(names.size(), std::vector<std::int32_t>(batchRows)), m_spans(names.size()) {
        for (const std::string& name : names)
            m_columns.push_back(&columnOf(table, name, {ColumnType::Integer, ColumnType::Short, ColumnType::Bit}));
    }

    std::span<const std::span<const std::int32_t>> read(const Batch& batch) {
        for (std::size_t input = 0; input < m_columns.size(); ++input) {
            readColumn(*m_columns[input], batch, m_buffers[input].data());
            m_spans[input] = std::span(m_buffers[input]).first(batch.count);
        }
        return m_spans;
    }

  private:
    static void readColumn(const Column& column, const Batch& batch, std::int32_t* out) {
        std::uint64_t bits[kBatchWords];
        if (column.def.type == ColumnType::Bit) {
            column.bits.read(batch.first, batch.count, bits);
            for (std::size_t row = 0; row < batch.count; ++row)
                out[row] = -static_cast<std::int32_t>(bits[row / 64] >> (row % 64) & 1);
            return;
        }
        column.numbers.read(batch.first, batch.count, out);
        if (column.nulls.read(batch.first, batch.count, bits))
            forEachBit(bits, batch.count, [&](std::size_t row) { out[row] = 0; });
    }

    std::vector<const Column*> m_columns;
    std::vector<std::vector<std::int32_t>> m_buffers;
    std::vector<std::span<const std::int32_t>> m_spans;
};

/// One output column: a batch of values, the marks of the rows that have one, and their way into the column.
class Output {
  public:
    Output(ColumnTable& table, const std::string& name, std::size_t batchRows)
        : m_table(table), m_column(columnOf(table, name, {ColumnType::Integer})), m_values(batchRows),
          m_written(batchRows) {}

    RowBatch::Output cleared(std::size_t rows) {
        std::fill_n(m_written.begin(), rows, std::uint8_t{0});
        return {std::span(m_values).first(rows), std::span(m_written).first(rows)};
    }

    void write(const Batch& batch) {
        std::uint64_t mask[kBatchWords];
        packBits(m_written.data(), batch.count, mask);
        const std::size_t rows = countBits(mask, batch.count);
        if (rows == 0)
            return;
        m_rows += rows;
        const Bounds bounds = boundsOf(m_values.data(), m_written.data(), batch.count);
        m_column.numbers.makeRoom(bounds.low, bounds.high);
        m_column.numbers.write(batch.first, batch.count, m_values.data(), mask);
        m_column.nulls.write(batch.first, batch.count, nullptr, mask, m_table.rows);
        markDirty(batch, mask);
    }

    /// A column with a value in every row needs no bitmap that says so.
    void finish() {
        if (m_rows == m_table.rows)
            m_column.nulls.setNone();
    }

  private:
    static std::size_t countBits(const std::uint64_t* mask, std::size_t count) {
        std::size_t bits = 0;
        for (std::size_t word = 0; word < wordsFor(count); ++word)
            bits += static_cast<std::size_t>(std::popcount(mask[word]));
        return bits;
    }

    /// From the first written row to the last: a batch may lie across the border of two chunks.
    void markDirty(const Batch& batch, const std::uint64_t* mask) {
        std::size_t first = 0;
        while (mask[first] == 0)
            ++first;
        std::size_t last = wordsFor(batch.count) - 1;
        while (mask[last] == 0)
            --last;
        const std::size_t from = first * 64 + static_cast<std::size_t>(std::countr_zero(mask[first]));
        const std::size_t to = last * 64 + 63 - static_cast<std::size_t>(std::countl_zero(mask[last]));
        m_column.markDirty(batch.first + from, to - from + 1);
    }

    ColumnTable& m_table;
    Column& m_column;
    std::vector<std::int32_t> m_values;
    std::vector<std::uint8_t> m_written;
    std::size_t m_rows = 0;
};

} // namespace

void computeColumn(ColumnTable& table, std::span<const std::string> inputs, const std::string& output,
                   const RowKernel& kernel, std::size_t batchRows) {
    Inputs from(table, inputs, batchRows);
    Column& target = columnOf(table, output, {ColumnType::Integer});
    std::vector<std::int32_t> results(batchRows);
    Numbers fresh;
    fresh.rebuild(table.rows, 0, 0);
    forEachBatch(table, batchRows, nullptr, [&](const Batch& batch, const std::uint64_t*) {
        kernel(from.read(batch), std::span(results).first(batch.count));
        const Bounds bounds = boundsOf(results.data(), batch.count);
        fresh.makeRoom(bounds.low, bounds.high);
        fresh.write(batch.first, batch.count, results.data(), nullptr);
    });
    target.numbers = std::move(fresh);
    target.nulls.setNone();
    target.markAllDirty(table.rows);
}

void computeColumns(ColumnTable& table, std::span<const std::string> inputs, std::span<const std::string> outputs,
                    const BatchKernel& kernel, std::size_t batchRows) {
    Inputs from(table, inputs, batchRows);
    std::vector<Output> to;
    to.reserve(outputs.size());
    for (const std::string& name : outputs)
        to.emplace_back(table, name, batchRows);
    std::vector<RowBatch::Output> asked(outputs.size());
    forEachBatch(table, batchRows, nullptr, [&](const Batch& batch, const std::uint64_t*) {
        for (std::size_t output = 0; output < to.size(); ++output)
            asked[output] = to[output].cleared(batch.count);
        kernel({batch.count, from.read(batch), asked});
        for (Output& output : to)
            output.write(batch);
    });
    for (Output& output : to)
        output.finish();
    table.verify();
}

} // namespace sql
