// AND, OR, NOT, IS NULL and the choice of IIf, all on bits.
#include <algorithm>

#include "sql/node.h"

namespace sql {

namespace {

bool anyBit(const std::uint64_t* words, std::size_t count) {
    std::uint64_t all = 0;
    for (std::size_t word = 0; word < wordsFor(count); ++word)
        all |= words[word];
    return all != 0;
}

void clearUnknown(Truth& truth, std::size_t count) {
    if (!truth.hasUnknown)
        std::fill_n(truth.unknown.begin(), wordsFor(count), 0);
}

class LogicNode final : public TruthNode {
  public:
    LogicNode(BinaryOp op, NodePtr left, NodePtr right)
        : m_isAnd(op == BinaryOp::And), m_left(std::move(left)), m_right(std::move(right)) {}

    void select(const Batch& batch, Truth& truth) override {
        m_left->select(batch, truth);
        if (m_isAnd && !truth.hasUnknown && !anyBit(truth.yes.data(), batch.count))
            return; // the right side cannot change anything
        Truth right;
        m_right->select(batch, right);
        const bool unknown = truth.hasUnknown || right.hasUnknown;
        if (unknown) {
            clearUnknown(truth, batch.count);
            clearUnknown(right, batch.count);
        }
        for (std::size_t word = 0; word < wordsFor(batch.count); ++word)
            m_isAnd ? conjunction(truth, right, word, unknown) : disjunction(truth, right, word, unknown);
        truth.hasUnknown = unknown;
    }

  private:
    static void conjunction(Truth& left, const Truth& right, std::size_t word, bool unknown) {
        const std::uint64_t both = left.yes[word] & right.yes[word];
        if (unknown)
            left.unknown[word] =
                ((left.yes[word] | left.unknown[word]) & (right.yes[word] | right.unknown[word])) & ~both;
        left.yes[word] = both;
    }
    static void disjunction(Truth& left, const Truth& right, std::size_t word, bool unknown) {
        left.yes[word] |= right.yes[word];
        if (unknown)
            left.unknown[word] = (left.unknown[word] | right.unknown[word]) & ~left.yes[word];
    }

    bool m_isAnd;
    NodePtr m_left;
    NodePtr m_right;
};

class NotNode final : public TruthNode {
  public:
    explicit NotNode(NodePtr operand) : m_operand(std::move(operand)) {}

    void select(const Batch& batch, Truth& truth) override {
        m_operand->select(batch, truth);
        const std::size_t words = wordsFor(batch.count);
        for (std::size_t word = 0; word < words; ++word)
            truth.yes[word] = ~(truth.yes[word] | (truth.hasUnknown ? truth.unknown[word] : 0));
        if (batch.count % 64 != 0)
            truth.yes[words - 1] &= lowBits(batch.count % 64);
    }

  private:
    NodePtr m_operand;
};

class IsNullNode final : public FlagNode {
  public:
    IsNullNode(NodePtr operand, bool negated) : m_operand(std::move(operand)), m_negated(negated) {}

    Flags flags(const Batch& batch) override {
        const Vec vec = m_operand->values(batch);
        for (std::size_t row = 0; row < batch.count; ++row)
            m_flags[row] = (vec.nulls && vec.nulls[row]) != m_negated;
        return {m_flags.data(), nullptr};
    }

  private:
    NodePtr m_operand;
    bool m_negated;
    std::array<std::uint8_t, kBatchLimit> m_flags;
};

template <class T>
void choose(const std::uint8_t* first, const T* then, const T* otherwise, std::size_t count, T* out) {
    for (std::size_t row = 0; row < count; ++row)
        out[row] = first[row] ? then[row] : otherwise[row];
}

class ChooseNode final : public ValueNode {
  public:
    ChooseNode(NodePtr condition, Planned then, Planned otherwise, Storage storage)
        : m_condition(std::move(condition)), m_then(std::move(then)), m_otherwise(std::move(otherwise)),
          m_storage(storage) {}

    Vec values(const Batch& batch) override {
        Truth truth;
        m_condition->select(batch, truth);
        unpackBits(truth.yes.data(), batch.count, m_out->flags.data());
        const Vec then = m_then.node->values(batch);
        const Vec otherwise = m_otherwise.node->values(batch);
        const std::uint8_t* first = m_out->flags.data();
        if (m_storage == Storage::Ints)
            choose(first, then.ints, otherwise.ints, batch.count, m_out->ints.data());
        else if (m_storage == Storage::Texts)
            choose(first, then.codes, otherwise.codes, batch.count, m_out->ints.data());
        else
            choose(first, asReals(then, batch.count, m_thenReals.data()),
                   asReals(otherwise, batch.count, m_otherReals.data()), batch.count, m_out->reals.data());
        Vec vec{m_storage, m_out->ints.data(), m_out->reals.data(), m_out->ints.data(), nullptr};
        if (then.nulls || otherwise.nulls) {
            static constexpr std::array<std::uint8_t, kBatchLimit> kNone{};
            choose(first, then.nulls ? then.nulls : kNone.data(), otherwise.nulls ? otherwise.nulls : kNone.data(),
                   batch.count, m_out->nulls.data());
            vec.nulls = m_out->nulls.data();
        }
        return vec;
    }

  private:
    NodePtr m_condition;
    Planned m_then;
    Planned m_otherwise;
    Storage m_storage;
    std::unique_ptr<Buffer> m_out = std::make_unique<Buffer>();
    std::array<double, kBatchLimit> m_thenReals;
    std::array<double, kBatchLimit> m_otherReals;
};

} // namespace

NodePtr logicNode(BinaryOp op, NodePtr left, NodePtr right) {
    return std::make_unique<LogicNode>(op, std::move(left), std::move(right));
}
NodePtr notNode(NodePtr operand) {
    return std::make_unique<NotNode>(std::move(operand));
}
NodePtr isNullNode(NodePtr operand, bool negated) {
    return std::make_unique<IsNullNode>(std::move(operand), negated);
}
NodePtr chooseNode(NodePtr condition, Planned then, Planned otherwise, Storage storage) {
    return std::make_unique<ChooseNode>(std::move(condition), std::move(then), std::move(otherwise), storage);
}

} // namespace sql
