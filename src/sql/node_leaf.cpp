// Leaves: constants, columns, and the test of a bit column.
#include <algorithm>

#include "sql/node.h"

namespace sql {

namespace {

class ConstantNode final : public ValueNode {
  public:
    ConstantNode(const Value& value, Storage storage, TextPool& pool) : m_storage(storage), m_null(isNull(value)) {
        m_buffer->nulls.fill(m_null ? 1 : 0);
        m_buffer->ints.fill(0);
        m_buffer->reals.fill(0);
        if (m_null)
            return;
        if (storage == Storage::Texts)
            m_buffer->ints.fill(pool.intern(toText(value)));
        else if (storage == Storage::Reals)
            m_buffer->reals.fill(toReal(value));
        else
            m_buffer->ints.fill(static_cast<std::int32_t>(toInteger(value)));
    }

    Vec values(const Batch&) override {
        return {m_storage, m_buffer->ints.data(), m_buffer->reals.data(), m_buffer->ints.data(),
                m_null ? m_buffer->nulls.data() : nullptr};
    }

  private:
    Storage m_storage;
    bool m_null;
    std::unique_ptr<Buffer> m_buffer = std::make_unique<Buffer>();
};

class ColumnNode final : public ValueNode {
  public:
    ColumnNode(const Column& column, std::size_t place, TextPool& pool)
        : m_place(place), m_type(column.def.type), m_pool(pool) {}

    Vec values(const Batch& batch) override {
        const Column& column = batch.table->columns[m_place];
        Vec vec;
        vec.nulls = nulls(column, batch);
        if (m_type == ColumnType::Real) {
            std::copy_n(column.reals.data() + batch.first, batch.count, m_buffer->reals.data());
            vec.storage = Storage::Reals;
            vec.reals = m_buffer->reals.data();
            return vec;
        }
        column.numbers.read(batch.first, batch.count, m_buffer->ints.data());
        vec.ints = m_buffer->ints.data();
        if (m_type == ColumnType::Text)
            toPool(column, batch.count, vec);
        return vec;
    }

  private:
    const std::uint8_t* nulls(const Column& column, const Batch& batch) {
        std::uint64_t bits[kBatchWords];
        if (!column.nulls.read(batch.first, batch.count, bits))
            return nullptr;
        unpackBits(bits, batch.count, m_buffer->nulls.data());
        return m_buffer->nulls.data();
    }

    /// Codes of the column's dictionary to codes of the statement's pool, each looked up once.
    void toPool(const Column& column, std::size_t count, Vec& vec) {
        for (std::size_t row = 0; row < count; ++row) {
            if (vec.nulls && vec.nulls[row])
                continue;
            const auto code = static_cast<std::size_t>(m_buffer->ints[row]);
            if (code >= m_poolCodes.size())
                m_poolCodes.resize(std::max(column.dictionary->size(), code + 1), -1);
            if (m_poolCodes[code] < 0)
                m_poolCodes[code] = m_pool.intern(column.dictionary->text(static_cast<std::int32_t>(code)));
            m_buffer->ints[row] = m_poolCodes[code];
        }
        vec.storage = Storage::Texts;
        vec.codes = m_buffer->ints.data();
    }

    std::size_t m_place;
    ColumnType m_type;
    TextPool& m_pool;
    std::vector<std::int32_t> m_poolCodes;
    std::unique_ptr<Buffer> m_buffer = std::make_unique<Buffer>();
};

/// A bit column compared with true or false; with any other number no row can hold.
class BitTestNode final : public TruthNode {
  public:
    BitTestNode(int column, bool wanted, bool possible)
        : m_place(static_cast<std::size_t>(column)), m_wanted(wanted), m_possible(possible) {}

    void select(const Batch& batch, Truth& truth) override {
        truth.hasUnknown = false;
        const std::size_t words = wordsFor(batch.count);
        if (!m_possible) {
            std::fill_n(truth.yes.begin(), words, 0);
            return;
        }
        batch.table->columns[m_place].bits.read(batch.first, batch.count, truth.yes.data());
        if (m_wanted)
            return;
        for (std::size_t word = 0; word < words; ++word)
            truth.yes[word] = ~truth.yes[word];
        if (batch.count % 64 != 0)
            truth.yes[words - 1] &= lowBits(batch.count % 64);
    }

  private:
    std::size_t m_place;
    bool m_wanted;
    bool m_possible;
};

} // namespace

NodePtr constantNode(const Value& value, Storage storage, TextPool& pool) {
    return std::make_unique<ConstantNode>(value, storage, pool);
}

NodePtr columnNode(const ColumnTable& table, int column, TextPool& pool) {
    const Column& source = table.columns[static_cast<std::size_t>(column)];
    if (source.def.type == ColumnType::Bit)
        return bitTestNode(column, true, true);
    return std::make_unique<ColumnNode>(source, static_cast<std::size_t>(column), pool);
}

NodePtr bitTestNode(int column, bool wanted, bool possible) {
    return std::make_unique<BitTestNode>(column, wanted, possible);
}

} // namespace sql
