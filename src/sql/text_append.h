// Appending to a text: "[Fliter] = [Fliter] & "偶数个数大小:" & [canshu] & " 保留2~4"".
//
// The integrated run appends a reason to the rows that violate a parameter, one parameter after the other. As any
// expression this would be worked for all rows of a batch, and every text that the column ever held would be looked
// at again. Here the rows that are written go from the code of their text to that of the longer one, which is made
// once for each pair of text and number. A text that is full already stays what it is.
//
// Reasons of many parameters with a number in each make a text of its own for nearly every row. Once the texts of the
// column take too much memory, none is made longer: the run goes on, with the reasons that it has.
#pragma once

#include "sql/column.h"
#include "sql/pair_table.h"

namespace sql {

class TextAppend {
  public:
    /// \param tail       what is appended: texts and at most one number (isSingle)
    /// \param textBytes  memory of the column's texts from which on nothing is appended
    TextAppend(const ColumnTable& table, int place, TextRecipe tail, std::size_t textBytes);
    static bool isSingle(const TextRecipe& tail);

    /// Reads what the batch's rows are made of. Before any column is written.
    void read(std::size_t first, std::size_t count);
    /// codes[row] := the code of the longer text, for the rows in `mask`; 0 for others. \return the highest code
    std::int32_t append(Dictionary& dictionary, const std::uint64_t* mask, std::size_t count, std::int32_t* codes);

  private:
    std::int32_t appended(Dictionary& dictionary, std::int32_t code, std::int32_t number);
    std::int32_t longer(Dictionary& dictionary, std::int32_t code, std::int32_t number);

    const ColumnTable& m_table;
    std::size_t m_place;
    TextRecipe m_tail;
    std::size_t m_textBytes;
    int m_number = -1;                   ///< column of the number; -1: there is none
    std::vector<std::int32_t> m_codes;   ///< of the batch, -1 where the text is Null
    std::vector<std::int32_t> m_numbers; ///< of the batch
    PairTable<std::uint32_t> m_pairs;
    std::vector<std::int32_t> m_longer; ///< by pair
    std::string m_text;
};

} // namespace sql
