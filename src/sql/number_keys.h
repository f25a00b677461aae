// IN between two texts that are put together from numbers in the same way, answered from the numbers.
//
//   '(' & fig1 & '!' & fig2 & ')'  IN  (SELECT Numstring FROM [zuheMoban])
//
// Where every number ends at a character that is no digit, two such texts are equal only when all their numbers are.
// So a text becomes one 64-bit key, its numbers side by side in as many bits as they need, and no text is made. The
// keys are sorted; a question goes on from where the last one ended, so rows that come in order, as generated tables
// have them, cost a step each, and others a binary search.
#pragma once

#include <optional>
#include <vector>

#include "sql/column.h"

namespace sql {

/// Whether texts of the two recipes are equal exactly when their numbers are. They may lie in different tables.
bool sameNumbersSameText(const TextRecipe& one, const TextRecipe& other);

class NumberKeys {
  public:
    /// The keys of the chosen rows. \return nothing when a key would not fit 64 bits
    static std::optional<NumberKeys> of(const ColumnTable& table, const TextRecipe& recipe, const Bitmap& chosen);

    /// found[row] := whether the rows first.. of a table have a key among these.
    /// \param columns  the columns of its recipe, in the order of this recipe's
    void find(const ColumnTable& table, const std::vector<int>& columns, std::size_t first, std::size_t count,
              std::uint8_t* found);

  private:
    struct Field {
        std::int32_t low;
        std::uint32_t span; ///< highest less lowest
        unsigned shift;
    };

    void makeKeys(const ColumnTable& table, const std::vector<int>& columns, std::size_t first, std::size_t count);
    bool contains(std::uint64_t key);

    std::vector<Field> m_fields;
    std::vector<std::uint64_t> m_sorted;
    std::size_t m_at = 0; ///< the first key that is not below the one asked for last
    // Of a batch:
    std::vector<std::int32_t> m_numbers;
    std::vector<std::uint64_t> m_keys;
    std::vector<std::uint8_t> m_outside; ///< a number beyond those of any key
};

/// The columns of a recipe's numbers, left to right.
std::vector<int> columnsOf(const TextRecipe& recipe);

} // namespace sql
