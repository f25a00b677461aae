// A subtree that reads one narrow column only: its result is worked once for each value that the column can have,
// and a batch is a walk through that table.
#include <algorithm>

#include "sql/node.h"
#include "sql/scalar.h"

namespace sql {

namespace {

/// Results by the column's number, from its lowest on.
struct Results {
    std::vector<std::int32_t> ints; // or pool codes, or truth as -1 and 0
    std::vector<double> reals;
    std::vector<std::uint8_t> nulls;
    bool anyNull = false;
};

// Plain loads in both: gathering instructions are slower on many processors.

/// out[i] = table[low byte of rows[i]]
template <class Rows, class T> void pickByByte(const Rows* rows, std::size_t count, const T* table, T* out) {
#pragma GCC unroll 8
    for (std::size_t row = 0; row < count; ++row)
        out[row] = table[static_cast<std::uint8_t>(rows[row])];
}

/// out[i] = table[rows[i] - low]
template <class Rows, class T>
void pickFromLow(const Rows* rows, std::size_t count, const T* table, std::int32_t low, T* out) {
#pragma GCC unroll 8
    for (std::size_t row = 0; row < count; ++row)
        out[row] = table[rows[row] - low];
}

/// Entries for low, low + 1, … moved to the places of their low bytes.
template <class T> void layOutByByte(std::vector<T>& entries, std::int32_t low) {
    if (entries.empty())
        return;
    std::vector<T> table(256);
    for (std::size_t entry = 0; entry < entries.size(); ++entry)
        table[static_cast<std::uint8_t>(low + static_cast<std::int32_t>(entry))] = entries[entry];
    entries = std::move(table);
}

class LookupNode final : public FlagNode {
  public:
    LookupNode(std::size_t place, std::int32_t low, Results results, Results ofNull, Storage storage)
        : m_place(place), m_low(low), m_results(std::move(results)), m_ofNull(std::move(ofNull)), m_storage(storage) {
        for (std::size_t entry = 0; entry < m_results.nulls.size(); ++entry)
            m_flags.push_back(holds(m_results, entry));
        m_byByte = low >= INT8_MIN && low + static_cast<std::int64_t>(m_flags.size()) - 1 <= INT8_MAX;
        if (!m_byByte)
            return;
        layOutByByte(m_flags, low);
        layOutByByte(m_results.ints, low);
        layOutByByte(m_results.reals, low);
        layOutByByte(m_results.nulls, low);
    }

    Vec values(const Batch& batch) override {
        const Column& column = batch.table->columns[m_place];
        Vec vec;
        vec.storage = m_storage;
        vec.ints = vec.codes = m_buffer->ints.data();
        vec.reals = m_buffer->reals.data();
        if (m_storage == Storage::Reals)
            pick(column, batch, m_results.reals.data(), m_buffer->reals.data());
        else
            pick(column, batch, m_results.ints.data(), m_buffer->ints.data());
        vec.nulls = nulls(column, batch);
        patchNullRows(column, batch);
        return vec;
    }

    Flags flags(const Batch& batch) override {
        const Column& column = batch.table->columns[m_place];
        pick(column, batch, m_flags.data(), m_buffer->flags.data());
        const std::uint8_t* unknown = nulls(column, batch);
        std::uint64_t bits[kBatchWords];
        if (column.nulls.read(batch.first, batch.count, bits))
            forEachBit(bits, batch.count, [&](std::size_t row) { m_buffer->flags[row] = holds(m_ofNull, 0); });
        return {m_buffer->flags.data(), unknown};
    }

  private:
    static std::uint8_t holds(const Results& results, std::size_t entry) {
        if (results.nulls[entry])
            return 0;
        return results.reals.empty() ? results.ints[entry] != 0 : results.reals[entry] != 0;
    }

    template <class T> void pick(const Column& column, const Batch& batch, const T* table, T* out) const {
        const Numbers& numbers = column.numbers;
        if (numbers.width() == Width::Constant) {
            const std::int32_t number = numbers.low();
            std::fill_n(out, batch.count, table[m_byByte ? static_cast<std::uint8_t>(number) : number - m_low]);
            return;
        }
        numbers.visit([&](const auto* rows) {
            if (m_byByte)
                pickByByte(rows + batch.first, batch.count, table, out);
            else
                pickFromLow(rows + batch.first, batch.count, table, m_low, out);
        });
    }

    /// Null results, from the values and from rows of the column that are Null themselves.
    const std::uint8_t* nulls(const Column& column, const Batch& batch) {
        std::uint64_t bits[kBatchWords];
        const bool nullRows = column.nulls.read(batch.first, batch.count, bits);
        if (!m_results.anyNull && !(nullRows && m_ofNull.anyNull))
            return nullptr;
        pick(column, batch, m_results.nulls.data(), m_buffer->nulls.data());
        if (nullRows)
            forEachBit(bits, batch.count, [&](std::size_t row) { m_buffer->nulls[row] = m_ofNull.nulls[0]; });
        return m_buffer->nulls.data();
    }

    void patchNullRows(const Column& column, const Batch& batch) {
        std::uint64_t bits[kBatchWords];
        if (m_ofNull.anyNull || !column.nulls.read(batch.first, batch.count, bits))
            return;
        forEachBit(bits, batch.count, [&](std::size_t row) {
            if (m_storage == Storage::Reals)
                m_buffer->reals[row] = m_ofNull.reals[0];
            else
                m_buffer->ints[row] = m_ofNull.ints[0];
        });
    }

    std::size_t m_place;
    std::int32_t m_low;
    bool m_byByte = false; // every value of the column fits a byte
    Results m_results;
    Results m_ofNull;
    Storage m_storage;
    std::vector<std::uint8_t> m_flags;
    std::unique_ptr<Buffer> m_buffer = std::make_unique<Buffer>();
};

class Filler {
  public:
    Filler(const Expr& expr, Storage storage, TextPool& pool, std::int64_t* evaluations)
        : m_expr(expr), m_storage(storage), m_pool(pool), m_evaluations(evaluations) {}

    void add(const Value& input, Results& results, bool counts) {
        if (m_evaluations)
            ++*m_evaluations;
        const Value result = evaluate(m_expr, [&](int) { return input; });
        results.nulls.push_back(isNull(result));
        results.anyNull |= isNull(result);
        if (m_storage == Storage::Reals)
            return results.reals.push_back(toReal(result));
        const std::int32_t number = m_storage == Storage::Texts ? (isNull(result) ? 0 : m_pool.intern(toText(result)))
                                                                : static_cast<std::int32_t>(toInteger(result));
        results.ints.push_back(number);
        if (isNull(result) || !counts)
            return;
        low = m_any ? std::min(low, number) : number;
        high = m_any ? std::max(high, number) : number;
        m_any = true;
    }

    std::int32_t low = 0;
    std::int32_t high = 0;

  private:
    const Expr& m_expr;
    Storage m_storage;
    TextPool& m_pool;
    std::int64_t* m_evaluations;
    bool m_any = false;
};

} // namespace

Planned lookupNode(const Expr& expr, const ColumnTable& table, int place, TextPool& pool, std::int64_t* evaluations) {
    const Column& column = table.columns[static_cast<std::size_t>(place)];
    const bool isText = column.def.type == ColumnType::Text;
    const std::int32_t low = isText ? 0 : column.numbers.low();
    const std::int32_t high =
        isText ? std::max<std::int32_t>(static_cast<std::int32_t>(column.dictionary->size()) - 1, 0)
               : column.numbers.high();
    Planned planned;
    planned.storage =
        expr.type == ExprType::Text ? Storage::Texts
        : expr.type == ExprType::Integer && expr.range.low >= kIntegerLow && expr.range.high <= kIntegerHigh
            ? Storage::Ints
            : Storage::Reals;
    Filler filler(expr, planned.storage, pool, evaluations);
    Results results;
    for (std::int64_t number = low; number <= high; ++number)
        if (isText && column.dictionary->size() == 0)
            filler.add(Value(), results, false); // a column of Nulls: the entry is never shown
        else
            filler.add(isText ? Value(column.dictionary->text(static_cast<std::int32_t>(number))) : Value(number),
                       results, true);
    Results ofNull;
    filler.add(Value(), ofNull, !column.nulls.none());
    planned.range = {static_cast<double>(filler.low), static_cast<double>(filler.high)};
    planned.node = std::make_unique<LookupNode>(static_cast<std::size_t>(place), low, std::move(results),
                                                std::move(ofNull), planned.storage);
    return planned;
}

} // namespace sql
