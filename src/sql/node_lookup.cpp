// A subtree that reads one narrow column only: its result is worked once for each value that the column can have,
// and a batch is a walk through that table.
#include <algorithm>
#include <cstring>
#include <optional>

#include "sql/node.h"
#include "sql/scalar.h"
#include "sql/vector_loop.h"

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

/// Rows looked at together. Bets ascend, so that most of a bet's numbers are those of the bets before it; with all
/// blues, sixteen bets in a row have the same reds.
constexpr std::size_t kAlike = 16;

bool areAlike(const std::int8_t* rows) {
    std::uint64_t words[2];
    std::memcpy(words, rows, sizeof words);
    const std::uint64_t first = 0x0101010101010101ULL * static_cast<std::uint8_t>(rows[0]);
    return ((words[0] ^ first) | (words[1] ^ first)) == 0;
}

/// out[i] = table[low byte of rows[i]]
template <class Rows, class T> void pickByByte(const Rows* rows, std::size_t count, const T* table, T* out) {
    std::size_t row = 0;
    if constexpr (sizeof(Rows) == 1)
        for (; row + kAlike <= count; row += kAlike) {
            if (areAlike(rows + row))
                std::fill_n(out + row, kAlike, table[static_cast<std::uint8_t>(rows[row])]);
            else
#pragma GCC unroll 16
                for (std::size_t next = row; next < row + kAlike; ++next)
                    out[next] = table[static_cast<std::uint8_t>(rows[next])];
        }
#pragma GCC unroll 8
    for (; row < count; ++row)
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

/// The numbers that hold, where they lie together, or where those that do not hold do.
struct Interval {
    std::int32_t low = 0;
    std::int32_t high = -1; ///< below `low` where there are none
    bool inverted = false;
};

/// \param flags  of the numbers from `low` on
std::optional<Interval> intervalOf(const std::vector<std::uint8_t>& flags, std::int32_t low) {
    if (std::ranges::find(flags, 1) == flags.end())
        return Interval();
    for (const bool inverted : {false, true}) {
        const std::uint8_t wanted = inverted ? 0 : 1;
        const auto first = std::ranges::find(flags, wanted);
        const auto end = std::find(first, flags.end(), 1 - wanted);
        if (std::find(end, flags.end(), wanted) == flags.end())
            return Interval{low + static_cast<std::int32_t>(first - flags.begin()),
                            low + static_cast<std::int32_t>(end - flags.begin()) - 1, inverted};
    }
    return std::nullopt;
}

/// Whether each row lies in an interval; `inverted` is 1 where it shall not.
template <class T>
SSQ_VECTOR_LOOP void compareAll(const T* rows, std::size_t count, T low, T high, std::uint8_t inverted,
                                std::uint8_t* __restrict out) {
    for (std::size_t row = 0; row < count; ++row)
        out[row] = static_cast<std::uint8_t>((rows[row] >= low) & (rows[row] <= high)) ^ inverted;
}

class LookupNode final : public FlagNode {
  public:
    LookupNode(std::size_t place, std::int32_t low, Results results, Results ofNull, Storage storage)
        : m_place(place), m_low(low), m_results(std::move(results)), m_ofNull(std::move(ofNull)), m_storage(storage) {
        for (std::size_t entry = 0; entry < m_results.nulls.size(); ++entry)
            m_flags.push_back(holds(m_results, entry));
        m_interval = intervalOf(m_flags, low);
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

    /// Where no row can hold, none is read.
    void select(const Batch& batch, Truth& truth) override {
        const bool none = m_interval && m_interval->high < m_interval->low;
        if (!none || m_results.anyNull || !batch.table->columns[m_place].nulls.none())
            return FlagNode::select(batch, truth);
        truth.hasUnknown = false;
        std::fill_n(truth.yes.begin(), wordsFor(batch.count), 0);
    }

    Flags flags(const Batch& batch) override {
        const Column& column = batch.table->columns[m_place];
        pickFlags(column, batch);
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

    /// A comparison is quicker than a table.
    void pickFlags(const Column& column, const Batch& batch) {
        if (!m_interval || column.numbers.width() == Width::Constant)
            return pick(column, batch, m_flags.data(), m_buffer->flags.data());
        column.numbers.visit([&]<class T>(const T* rows) {
            compareAll(rows + batch.first, batch.count, static_cast<T>(m_interval->low),
                       static_cast<T>(m_interval->high), static_cast<std::uint8_t>(m_interval->inverted),
                       m_buffer->flags.data());
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
    std::optional<Interval> m_interval;
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
        const std::int64_t whole =
            m_storage == Storage::Texts ? (isNull(result) ? 0 : m_pool.intern(toText(result))) : toInteger(result);
        fits &= whole >= INT32_MIN && whole <= INT32_MAX;
        const auto number = static_cast<std::int32_t>(whole);
        results.ints.push_back(number);
        if (isNull(result) || !counts)
            return;
        low = m_any ? std::min(low, number) : number;
        high = m_any ? std::max(high, number) : number;
        m_any = true;
    }

    std::int32_t low = 0;
    std::int32_t high = 0;
    bool fits = true; ///< no whole number was beyond 32 bits

  private:
    const Expr& m_expr;
    Storage m_storage;
    TextPool& m_pool;
    std::int64_t* m_evaluations;
    bool m_any = false;
};

/// The results of one column, each worked once.
struct Filled {
    Results results;
    Results ofNull;
    Range range;
    bool fits;
};

Filled fill(const Expr& expr, const Column& column, Storage storage, TextPool& pool, std::int64_t* evaluations) {
    Filler filler(expr, storage, pool, evaluations);
    Filled filled{};
    if (column.def.type == ColumnType::Text) {
        for (std::size_t code = 0; code < column.dictionary->size(); ++code)
            filler.add(column.dictionary->text(static_cast<std::int32_t>(code)), filled.results, true);
        if (column.dictionary->size() == 0)
            filler.add(Value(), filled.results, false); // a column of Nulls: the entry is never shown
    } else {
        for (std::int64_t number = column.numbers.low(); number <= column.numbers.high(); ++number)
            filler.add(number, filled.results, true);
    }
    filler.add(Value(), filled.ofNull, !column.nulls.none());
    filled.range = {static_cast<double>(filler.low), static_cast<double>(filler.high)};
    filled.fits = filler.fits;
    return filled;
}

} // namespace

/// Whole numbers are tried as 32 bits whatever the expression could give: only what the column holds comes up.
Planned lookupNode(const Expr& expr, const ColumnTable& table, int place, TextPool& pool, std::int64_t* evaluations) {
    const Column& column = table.columns[static_cast<std::size_t>(place)];
    Planned planned;
    planned.storage = expr.type == ExprType::Text      ? Storage::Texts
                      : expr.type == ExprType::Integer ? Storage::Ints
                                                       : Storage::Reals;
    Filled filled = fill(expr, column, planned.storage, pool, evaluations);
    if (!filled.fits) {
        planned.storage = Storage::Reals;
        filled = fill(expr, column, planned.storage, pool, evaluations);
    }
    planned.range = filled.range;
    const std::int32_t low = column.def.type == ColumnType::Text ? 0 : column.numbers.low();
    planned.node = std::make_unique<LookupNode>(static_cast<std::size_t>(place), low, std::move(filled.results),
                                                std::move(filled.ofNull), planned.storage);
    return planned;
}

} // namespace sql
