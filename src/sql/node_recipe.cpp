// Questions to texts that are kept as recipes, answered from the numbers.
#include <algorithm>

#include "sql/lexer.h"
#include "sql/node.h"
#include "sql/text_recipe.h"
#include "sql/vector_loop.h"

namespace sql {

namespace {

/// found |= the row's number is the wanted one, and `before` holds; a stage with none before it gives no `before`.
template <class T>
SSQ_VECTOR_LOOP void addFound(const T* rows, std::size_t count, T wanted, std::uint8_t* __restrict found) {
    for (std::size_t row = 0; row < count; ++row)
        found[row] |= static_cast<std::uint8_t>(rows[row] == wanted);
}
template <class T>
SSQ_VECTOR_LOOP void addFound(const T* rows, std::size_t count, T wanted, const std::uint8_t* __restrict before,
                              std::uint8_t* __restrict found) {
    for (std::size_t row = 0; row < count; ++row)
        found[row] |= static_cast<std::uint8_t>(static_cast<std::uint8_t>(rows[row] == wanted) & before[row]);
}

SSQ_VECTOR_LOOP void invert(std::uint8_t* flags, std::size_t count) {
    for (std::size_t row = 0; row < count; ++row)
        flags[row] ^= 1;
}

/// found[k] says of each row whether the first k wanted numbers have been met, walking the columns left to right.
/// A number of the row can serve for one wanted number only, so the later stages look first.
class NumbersInOrderNode final : public FlagNode {
  public:
    NumbersInOrderNode(std::vector<int> columns, std::vector<std::int32_t> wanted, bool negated)
        : m_columns(std::move(columns)), m_wanted(std::move(wanted)), m_negated(negated), m_found(m_wanted.size()) {}

    Flags flags(const Batch& batch) override {
        for (auto& stage : m_found)
            std::fill_n(stage.begin(), batch.count, 0);
        for (const int column : m_columns)
            for (std::size_t stage = m_wanted.size(); stage-- > 0;)
                look(batch, column, stage);
        std::uint8_t* last = m_found.back().data();
        if (m_negated)
            invert(last, batch.count);
        return {last, nullptr};
    }

  private:
    void look(const Batch& batch, int column, std::size_t stage) {
        const Numbers& numbers = batch.table->columns[static_cast<std::size_t>(column)].numbers;
        if (m_wanted[stage] < numbers.low() || m_wanted[stage] > numbers.high())
            return;
        std::uint8_t* found = m_found[stage].data();
        const std::uint8_t* before = stage == 0 ? nullptr : m_found[stage - 1].data();
        if (numbers.width() == Width::Constant) {
            for (std::size_t row = 0; row < batch.count; ++row)
                found[row] |= before ? before[row] : 1;
            return;
        }
        numbers.visit([&](const auto* rows) {
            const auto wanted = static_cast<std::remove_cvref_t<decltype(*rows)>>(m_wanted[stage]);
            before ? addFound(rows + batch.first, batch.count, wanted, before, found)
                   : addFound(rows + batch.first, batch.count, wanted, found);
        });
    }

    std::vector<int> m_columns;
    std::vector<std::int32_t> m_wanted;
    bool m_negated;
    std::vector<std::array<std::uint8_t, kBatchLimit>> m_found;
};

class NumbersMemberNode final : public FlagNode {
  public:
    NumbersMemberNode(std::vector<int> columns, NumberKeys keys, bool negated)
        : m_columns(std::move(columns)), m_keys(std::move(keys)), m_negated(negated) {}

    Flags flags(const Batch& batch) override {
        m_keys.find(*batch.table, m_columns, batch.first, batch.count, m_flags.data());
        if (m_negated)
            invert(m_flags.data(), batch.count);
        return {m_flags.data(), nullptr};
    }

  private:
    std::vector<int> m_columns;
    NumberKeys m_keys;
    bool m_negated;
    std::array<std::uint8_t, kBatchLimit> m_flags;
};

class RecipeMemberNode final : public FlagNode {
  public:
    RecipeMemberNode(std::shared_ptr<const TextRecipe> recipe, ValueSet set, bool negated)
        : m_recipe(std::move(recipe)), m_set(std::move(set)), m_negated(negated) {}

    Flags flags(const Batch& batch) override {
        bool anyUnknown = false;
        for (std::size_t row = 0; row < batch.count; ++row) {
            composeText(*batch.table, *m_recipe, batch.first + row, m_text);
            const bool found = m_set.texts.contains(foldedName(m_text));
            const bool unknown = !found && m_set.hasNull;
            m_flags[row] = !unknown && found != m_negated;
            m_unknown[row] = unknown;
            anyUnknown |= unknown;
        }
        return {m_flags.data(), anyUnknown ? m_unknown.data() : nullptr};
    }

  private:
    std::shared_ptr<const TextRecipe> m_recipe;
    ValueSet m_set;
    bool m_negated;
    std::string m_text;
    std::array<std::uint8_t, kBatchLimit> m_flags;
    std::array<std::uint8_t, kBatchLimit> m_unknown;
};

} // namespace

NodePtr numbersInOrderNode(std::vector<int> columns, std::vector<std::int32_t> wanted, bool negated) {
    return std::make_unique<NumbersInOrderNode>(std::move(columns), std::move(wanted), negated);
}

NodePtr numbersMemberNode(std::vector<int> columns, NumberKeys keys, bool negated) {
    return std::make_unique<NumbersMemberNode>(std::move(columns), std::move(keys), negated);
}

NodePtr recipeMemberNode(std::shared_ptr<const TextRecipe> recipe, ValueSet set, bool negated) {
    return std::make_unique<RecipeMemberNode>(std::move(recipe), std::move(set), negated);
}

} // namespace sql
