// Nodes of a plan: an expression that has been prepared for one table.
//
// Prepare once (plan()), then ask batch by batch: values() for the values, select() for the rows that hold. Nothing
// here allocates for a batch or decides anything for a row; a text is made once for each distinct input.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <unordered_set>

#include "sql/batch.h"
#include "sql/number_keys.h"
#include "sql/tree.h"

namespace sql {

class Node {
  public:
    virtual ~Node() = default;
    virtual Vec values(const Batch& batch) = 0;
    virtual void select(const Batch& batch, Truth& truth) = 0;
};

using NodePtr = std::unique_ptr<Node>;

/// A node with what is known of its values: their storage, and the range of whole numbers.
struct Planned {
    NodePtr node;
    Storage storage = Storage::Ints;
    Range range;
};

/// A node that makes values; a row holds where its value is neither 0 nor Null.
class ValueNode : public Node {
  public:
    void select(const Batch& batch, Truth& truth) override;
};

/// A node that makes one flag a row, 1 where it holds.
class FlagNode : public Node {
  public:
    struct Flags {
        const std::uint8_t* flags;
        const std::uint8_t* nulls; ///< absent when no row is unknown
    };
    virtual Flags flags(const Batch& batch) = 0;
    Vec values(const Batch& batch) override;
    void select(const Batch& batch, Truth& truth) override;

  private:
    std::array<std::int32_t, kBatchLimit> m_ints;
};

/// A node that makes bits.
class TruthNode : public Node {
  public:
    Vec values(const Batch& batch) override;

  private:
    std::array<std::int32_t, kBatchLimit> m_ints;
    std::array<std::uint8_t, kBatchLimit> m_nulls;
};

// One source file a kind of node.
NodePtr constantNode(const Value& value, Storage storage, TextPool& pool);
NodePtr columnNode(const ColumnTable& table, int column, TextPool& pool);
NodePtr bitTestNode(int column, bool wanted, bool possible);
/// A subtree over one narrow column, answered from a table of its results.
/// \param evaluations  raised by one for each result that is worked, when given
Planned lookupNode(const Expr& expr, const ColumnTable& table, int column, TextPool& pool, std::int64_t* evaluations);
NodePtr arithmeticNode(BinaryOp op, bool wholeResult, Planned left, Planned right, Storage storage);
NodePtr negateNode(Planned operand, Storage storage);
NodePtr compareNode(BinaryOp op, Planned left, Planned right);
NodePtr logicNode(BinaryOp op, NodePtr left, NodePtr right);
NodePtr notNode(NodePtr operand);
NodePtr isNullNode(NodePtr operand, bool negated);
NodePtr chooseNode(NodePtr condition, Planned then, Planned otherwise, Storage storage);

/// Results of a function for each distinct pair of operands.
using ApplyFunction = std::function<Value(std::span<const Value>)>;
struct MemoOperand {
    Planned planned;
    bool wholeNumbers = true; ///< hand whole numbers to the function as such, also when stored as reals
};
NodePtr memoNode(ApplyFunction function, std::vector<MemoOperand> operands, Storage storage, TextPool& pool,
                 std::int64_t* evaluations);

/// The values that a sub-select gave.
struct ValueSet {
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    bool hasNull = false;
    std::unordered_set<std::string, TextHash, std::equal_to<>> texts; ///< folded
    std::unordered_set<double> numbers;
    bool empty() const { return !hasNull && texts.empty() && numbers.empty(); }
};
NodePtr memberNode(Planned operand, ValueSet set, bool negated, TextPool& pool);

/// LIKE over a text of two-digit numbers with blanks between them, answered from the numbers: the row holds when
/// these numbers stand in it in this order.
NodePtr numbersInOrderNode(std::vector<int> columns, std::vector<std::int32_t> wanted, bool negated);
/// IN over a text that is put together from other columns: among texts that are put together alike, and among any.
NodePtr numbersMemberNode(std::vector<int> columns, NumberKeys keys, bool negated);
NodePtr recipeMemberNode(std::shared_ptr<const TextRecipe> recipe, ValueSet set, bool negated);

// Helpers for nodes.
/// The values as real numbers; whole ones are copied to `buffer`.
const double* asReals(const Vec& vec, std::size_t count, double* buffer);
/// Null where either is; absent when neither has one.
const std::uint8_t* mergedNulls(const Vec& left, const Vec& right, std::size_t count, std::uint8_t* buffer);
/// Bits to bytes of 0 and 1.
void unpackBits(const std::uint64_t* bits, std::size_t count, std::uint8_t* out);

} // namespace sql
