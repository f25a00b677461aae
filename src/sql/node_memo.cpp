// Functions of text, and everything else that has no loop of its own: worked once for each distinct pair of operands,
// then found again by a hash of the operands.
#include <bit>

#include "sql/lexer.h"
#include "sql/node.h"
#include "sql/pair_table.h"

namespace sql {

namespace {

constexpr std::uint64_t kNullKey = 0xFFF8DEADDEADDEADULL; // a not-a-number that no arithmetic here yields

std::uint64_t keyOf(const Vec& vec, std::size_t row) {
    if (vec.nulls && vec.nulls[row])
        return kNullKey;
    if (vec.storage == Storage::Reals)
        return std::bit_cast<std::uint64_t>(vec.reals[row] + 0.0); // -0 and 0 are one
    return static_cast<std::uint32_t>(vec.storage == Storage::Ints ? vec.ints[row] : vec.codes[row]);
}

Value valueOf(const Vec& vec, std::size_t row, bool wholeNumbers, const TextPool& pool) {
    if (vec.nulls && vec.nulls[row])
        return {};
    if (vec.storage == Storage::Texts)
        return pool.text(vec.codes[row]);
    if (vec.storage == Storage::Ints)
        return std::int64_t{vec.ints[row]};
    return wholeNumbers ? Value(static_cast<std::int64_t>(vec.reals[row])) : Value(vec.reals[row]);
}

class MemoNode final : public ValueNode {
  public:
    MemoNode(ApplyFunction function, std::vector<MemoOperand> operands, Storage storage, TextPool& pool,
             std::int64_t* evaluations)
        : m_function(std::move(function)), m_operands(std::move(operands)), m_storage(storage), m_pool(pool),
          m_evaluations(evaluations) {}

    Vec values(const Batch& batch) override {
        std::array<Vec, 2> args;
        for (std::size_t place = 0; place < m_operands.size(); ++place)
            args[place] = m_operands[place].planned.node->values(batch);
        const bool pair = m_operands.size() == 2;
        bool anyNull = false;
        for (std::size_t row = 0; row < batch.count; ++row) {
            const auto [number, isNew] = m_table.find(keyOf(args[0], row), pair ? keyOf(args[1], row) : 0);
            if (isNew)
                work(args, row);
            m_out->ints[row] = m_ints[number];
            if (m_storage == Storage::Reals)
                m_out->reals[row] = m_reals[number];
            m_out->nulls[row] = m_nulls[number];
            anyNull |= m_nulls[number] != 0;
        }
        return {m_storage, m_out->ints.data(), m_out->reals.data(), m_out->ints.data(),
                anyNull ? m_out->nulls.data() : nullptr};
    }

  private:
    void work(const std::array<Vec, 2>& args, std::size_t row) {
        std::array<Value, 2> values;
        for (std::size_t place = 0; place < m_operands.size(); ++place)
            values[place] = valueOf(args[place], row, m_operands[place].wholeNumbers, m_pool);
        if (m_evaluations)
            ++*m_evaluations;
        const Value result = m_function(std::span(values).first(m_operands.size()));
        m_nulls.push_back(isNull(result));
        if (m_storage == Storage::Reals)
            m_reals.push_back(toReal(result));
        if (m_storage == Storage::Texts)
            m_ints.push_back(isNull(result) ? 0 : m_pool.intern(toText(result)));
        else
            m_ints.push_back(m_storage == Storage::Ints ? static_cast<std::int32_t>(toInteger(result)) : 0);
    }

    ApplyFunction m_function;
    std::vector<MemoOperand> m_operands;
    Storage m_storage;
    TextPool& m_pool;
    std::int64_t* m_evaluations;
    PairTable<std::uint64_t> m_table;
    std::vector<std::int32_t> m_ints;
    std::vector<double> m_reals;
    std::vector<std::uint8_t> m_nulls;
    std::unique_ptr<Buffer> m_out = std::make_unique<Buffer>();
};

/// IN: whether the value is among those of a sub-select; a Null on either side makes "not found" unknown.
class MemberNode final : public FlagNode {
  public:
    MemberNode(Planned operand, ValueSet set, bool negated, TextPool& pool)
        : m_operand(std::move(operand)), m_set(std::move(set)), m_negated(negated), m_pool(pool) {}

    Flags flags(const Batch& batch) override {
        const Vec vec = m_operand.node->values(batch);
        bool anyNull = false;
        for (std::size_t row = 0; row < batch.count; ++row) {
            const bool isNullRow = vec.nulls && vec.nulls[row];
            const bool found = !isNullRow && isMember(vec, row);
            const bool unknown = !found && (isNullRow ? !m_set.empty() : m_set.hasNull);
            m_out->nulls[row] = unknown;
            m_out->flags[row] = !unknown && found != m_negated;
            anyNull |= unknown;
        }
        return {m_out->flags.data(), anyNull ? m_out->nulls.data() : nullptr};
    }

  private:
    bool isMember(const Vec& vec, std::size_t row) {
        if (vec.storage == Storage::Reals)
            return m_set.numbers.contains(vec.reals[row]);
        if (vec.storage == Storage::Ints)
            return m_set.numbers.contains(vec.ints[row]);
        const auto code = static_cast<std::size_t>(vec.codes[row]);
        if (code >= m_known.size())
            m_known.resize(m_pool.size(), kNotAsked);
        if (m_known[code] == kNotAsked)
            m_known[code] = m_set.texts.contains(foldedName(m_pool.text(vec.codes[row])));
        return m_known[code] != 0;
    }

    static constexpr std::uint8_t kNotAsked = 2;

    Planned m_operand;
    ValueSet m_set;
    bool m_negated;
    TextPool& m_pool;
    std::vector<std::uint8_t> m_known; // by pool code
    std::unique_ptr<Buffer> m_out = std::make_unique<Buffer>();
};

} // namespace

NodePtr memoNode(ApplyFunction function, std::vector<MemoOperand> operands, Storage storage, TextPool& pool,
                 std::int64_t* evaluations) {
    return std::make_unique<MemoNode>(std::move(function), std::move(operands), storage, pool, evaluations);
}

NodePtr memberNode(Planned operand, ValueSet set, bool negated, TextPool& pool) {
    return std::make_unique<MemberNode>(std::move(operand), std::move(set), negated, pool);
}

} // namespace sql
