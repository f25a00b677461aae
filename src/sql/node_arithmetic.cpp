// Arithmetic and comparisons: one operator is one struct, one loop serves all of them.
#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "sql/node.h"
#include "sql/scalar.h"
#include "sql/vector_loop.h"

namespace sql {

namespace {

struct Plus {
    template <class T> static T apply(T a, T b) { return a + b; }
};
struct Minus {
    template <class T> static T apply(T a, T b) { return a - b; }
};
struct Times {
    template <class T> static T apply(T a, T b) { return a * b; }
};

/// out[i] = Op(left[i], right[i]). The caller has chosen a type that cannot overflow.
template <class Op, class T> SSQ_VECTOR_LOOP void compute(const T* left, const T* right, std::size_t count, T* out) {
    for (std::size_t row = 0; row < count; ++row)
        out[row] = Op::apply(left[row], right[row]);
}

template <class T> void compute(BinaryOp op, const T* left, const T* right, std::size_t count, T* out) {
    switch (op) {
    case BinaryOp::Add:
        return compute<Plus>(left, right, count, out);
    case BinaryOp::Subtract:
        return compute<Minus>(left, right, count, out);
    default:
        return compute<Times>(left, right, count, out);
    }
}

class ArithmeticNode final : public ValueNode {
  public:
    ArithmeticNode(BinaryOp op, bool wholeResult, Planned left, Planned right, Storage storage)
        : m_op(op), m_wholeResult(wholeResult), m_left(std::move(left)), m_right(std::move(right)),
          m_storage(storage) {}

    Vec values(const Batch& batch) override {
        const Vec left = m_left.node->values(batch);
        const Vec right = m_right.node->values(batch);
        Vec vec{m_storage, m_out->ints.data(), m_out->reals.data(), nullptr,
                mergedNulls(left, right, batch.count, m_out->nulls.data())};
        if (m_storage == Storage::Ints) {
            compute(m_op, left.ints, right.ints, batch.count, m_out->ints.data());
            return vec;
        }
        const double* a = asReals(left, batch.count, m_leftReals.data());
        const double* b = asReals(right, batch.count, m_rightReals.data());
        if (m_op == BinaryOp::Divide)
            for (std::size_t row = 0; row < batch.count; ++row)
                m_out->reals[row] = a[row] / b[row];
        else
            compute(m_op, a, b, batch.count, m_out->reals.data());
        if (!m_wholeResult)
            vec.nulls = withoutInfinities(vec.nulls, batch.count);
        return vec;
    }

  private:
    /// A division by 0 and a number too large are Null.
    const std::uint8_t* withoutInfinities(const std::uint8_t* nulls, std::size_t count) {
        std::uint8_t any = 0;
        for (std::size_t row = 0; row < count; ++row) {
            m_out->flags[row] = !std::isfinite(m_out->reals[row]);
            any |= m_out->flags[row];
        }
        if (!any)
            return nulls;
        for (std::size_t row = 0; row < count; ++row)
            m_out->nulls[row] = m_out->flags[row] | (nulls ? nulls[row] : 0);
        return m_out->nulls.data();
    }

    BinaryOp m_op;
    bool m_wholeResult;
    Planned m_left;
    Planned m_right;
    Storage m_storage;
    std::unique_ptr<Buffer> m_out = std::make_unique<Buffer>();
    std::array<double, kBatchLimit> m_leftReals;
    std::array<double, kBatchLimit> m_rightReals;
};

/// Remainders of whole numbers beyond the narrow columns, where there is no table of results.
class ModuloNode final : public ValueNode {
  public:
    ModuloNode(Planned left, Planned right)
        : m_left(std::move(left)), m_right(std::move(right)),
          m_whole(m_left.storage == Storage::Ints && m_right.storage == Storage::Ints && m_right.range.low >= 1) {}

    Vec values(const Batch& batch) override {
        const Vec left = m_left.node->values(batch);
        const Vec right = m_right.node->values(batch);
        const std::uint8_t* nulls = mergedNulls(left, right, batch.count, m_out->nulls.data());
        if (m_whole)
            return {.ints = remainders(left.ints, right.ints, batch.count), .nulls = nulls};
        const double* a = asReals(left, batch.count, m_leftReals.data());
        const double* b = asReals(right, batch.count, m_rightReals.data());
        bool anyNull = false;
        for (std::size_t row = 0; row < batch.count; ++row) {
            const double whole = base::roundHalfEven(a[row]);
            const double by = base::roundHalfEven(b[row]);
            const bool known = !(nulls && nulls[row]) && fits(whole) && fits(by) && by != 0;
            m_out->flags[row] = !known;
            anyNull |= !known;
            m_out->ints[row] =
                known ? static_cast<std::int32_t>(static_cast<std::int64_t>(whole) % static_cast<std::int64_t>(by))
                      : 0;
        }
        return {.ints = m_out->ints.data(), .nulls = anyNull ? m_out->flags.data() : nullptr};
    }

  private:
    static bool fits(double number) { return number >= kIntegerLow && number <= kIntegerHigh; }

    /// Of whole numbers by numbers above 0. What stands under a Null divides by 1.
    const std::int32_t* remainders(const std::int32_t* a, const std::int32_t* b, std::size_t count) {
        std::int32_t* out = m_out->ints.data();
        for (std::size_t row = 0; row < count; ++row)
            out[row] = a[row] % std::max(b[row], 1);
        return out;
    }

    Planned m_left;
    Planned m_right;
    bool m_whole; // neither rounding nor a division by 0 can come up
    std::unique_ptr<Buffer> m_out = std::make_unique<Buffer>();
    std::array<double, kBatchLimit> m_leftReals;
    std::array<double, kBatchLimit> m_rightReals;
};

class NegateNode final : public ValueNode {
  public:
    NegateNode(Planned operand, Storage storage) : m_operand(std::move(operand)), m_storage(storage) {}

    Vec values(const Batch& batch) override {
        const Vec vec = m_operand.node->values(batch);
        if (m_storage == Storage::Ints) {
            for (std::size_t row = 0; row < batch.count; ++row)
                m_out->ints[row] = -vec.ints[row];
        } else {
            const double* reals = asReals(vec, batch.count, m_reals.data());
            for (std::size_t row = 0; row < batch.count; ++row)
                m_out->reals[row] = -reals[row];
        }
        return {m_storage, m_out->ints.data(), m_out->reals.data(), nullptr, vec.nulls};
    }

  private:
    Planned m_operand;
    Storage m_storage;
    std::unique_ptr<Buffer> m_out = std::make_unique<Buffer>();
    std::array<double, kBatchLimit> m_reals;
};

struct Equal {
    template <class T> static bool holds(T a, T b) { return a == b; }
};
struct NotEqual {
    template <class T> static bool holds(T a, T b) { return a != b; }
};
struct Less {
    template <class T> static bool holds(T a, T b) { return a < b; }
};
struct LessEqual {
    template <class T> static bool holds(T a, T b) { return a <= b; }
};

template <class Op, class T>
SSQ_VECTOR_LOOP void test(const T* left, const T* right, std::size_t count, std::uint8_t* out) {
    for (std::size_t row = 0; row < count; ++row)
        out[row] = Op::holds(left[row], right[row]);
}

/// a > b is asked as b < a.
template <class T> void test(BinaryOp op, const T* a, const T* b, std::size_t count, std::uint8_t* out) {
    switch (op) {
    case BinaryOp::Equal:
        return test<Equal>(a, b, count, out);
    case BinaryOp::NotEqual:
        return test<NotEqual>(a, b, count, out);
    case BinaryOp::Less:
        return test<Less>(a, b, count, out);
    case BinaryOp::LessEqual:
        return test<LessEqual>(a, b, count, out);
    case BinaryOp::Greater:
        return test<Less>(b, a, count, out);
    default:
        return test<LessEqual>(b, a, count, out);
    }
}

class CompareNode final : public FlagNode {
  public:
    CompareNode(BinaryOp op, Planned left, Planned right)
        : m_op(op), m_left(std::move(left)), m_right(std::move(right)) {}

    Flags flags(const Batch& batch) override {
        const Vec left = m_left.node->values(batch);
        const Vec right = m_right.node->values(batch);
        if (left.storage == Storage::Ints && right.storage == Storage::Ints)
            test(m_op, left.ints, right.ints, batch.count, m_out->flags.data());
        else
            test(m_op, asReals(left, batch.count, m_leftReals.data()),
                 asReals(right, batch.count, m_rightReals.data()), batch.count, m_out->flags.data());
        return {m_out->flags.data(), mergedNulls(left, right, batch.count, m_out->nulls.data())};
    }

  private:
    BinaryOp m_op;
    Planned m_left;
    Planned m_right;
    std::unique_ptr<Buffer> m_out = std::make_unique<Buffer>();
    std::array<double, kBatchLimit> m_leftReals;
    std::array<double, kBatchLimit> m_rightReals;
};

} // namespace

NodePtr arithmeticNode(BinaryOp op, bool wholeResult, Planned left, Planned right, Storage storage) {
    if (op == BinaryOp::Mod)
        return std::make_unique<ModuloNode>(std::move(left), std::move(right));
    return std::make_unique<ArithmeticNode>(op, wholeResult, std::move(left), std::move(right), storage);
}

NodePtr negateNode(Planned operand, Storage storage) {
    return std::make_unique<NegateNode>(std::move(operand), storage);
}

NodePtr compareNode(BinaryOp op, Planned left, Planned right) {
    return std::make_unique<CompareNode>(op, std::move(left), std::move(right));
}

} // namespace sql
