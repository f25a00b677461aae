// One column of a combination table, and the table.
//
// Whole numbers and texts are Numbers (a text is the code of its place in the column's dictionary), real numbers a
// plain vector, bits a bitmap. Null has a bitmap of its own that is absent while it has nothing to say.
// Rows are stored in the file in chunks of kChunkRows; a column knows which chunks have changed since.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "sql/bind.h"
#include "sql/bitmap.h"
#include "sql/numbers.h"

namespace sql {

/// Rows of a stored chunk. Big enough that a full table has 271 chunks a column, small enough that the one row that a
/// double click changes rewrites little.
inline constexpr std::size_t kChunkRows = 65536;

/// Rows of a table. The widest rule has 49,692,258 bets (38 reds by 6, times 18 blues); a number far beyond that in a
/// file is damage, and would ask for gigabytes before anything else could tell.
inline constexpr std::size_t kMostRows = std::size_t{1} << 26;

/// The different texts of a column, each with its code.
class Dictionary {
  public:
    std::int32_t intern(std::string_view text);
    const std::string& text(std::int32_t code) const { return m_texts[static_cast<std::size_t>(code)]; }
    std::size_t size() const { return m_texts.size(); }
    /// About the memory that they take.
    std::size_t bytes() const { return m_bytes; }

    /// A text with as many characters as a column holds: what is appended to it changes nothing.
    bool isFull(std::int32_t code) const {
        return static_cast<std::size_t>(code) < m_full.size() && m_full[static_cast<std::size_t>(code)];
    }
    void markFull(std::int32_t code);

  private:
    static constexpr std::size_t kBytesBeside =
        112; // of a text: its string, its entry in the map, what allocation adds

    std::deque<std::string> m_texts; // a deque: the map's keys look into the strings
    std::unordered_map<std::string_view, std::int32_t> m_codes;
    std::vector<bool> m_full; // by code; those behind the last are not
    std::size_t m_bytes = 0;
};

/// A text that is put together from other columns of its row: the column holds no texts of its own then.
struct TextRecipe {
    struct Part {
        std::string literal;
        int column = -1;         ///< a whole-number column without Nulls; -1: only the literal
        std::int64_t field = 0;  ///< id of the column, in the file
        std::uint8_t digits = 0; ///< padded with zeros to as many; 0: as the number is
        bool operator==(const Part&) const = default;
    };
    std::vector<Part> parts; ///< the literal, then the number
    bool operator==(const TextRecipe&) const = default;
};

/// Which rows of a column are Null.
class NullMap {
  public:
    bool none() const { return m_state == State::None; }
    bool all() const { return m_state == State::All; }
    bool get(std::size_t row) const { return m_state == State::All || (m_state == State::Some && m_bits.get(row)); }
    void setNone();
    void setAll();
    /// \return whether any of the rows is Null; `out` is filled only then
    bool read(std::size_t first, std::size_t count, std::uint64_t* out) const;
    /// Rows in `mask` become Null where `values` has a bit (no bit anywhere when `values` is null). \param size all
    /// rows
    void write(std::size_t first, std::size_t count, const std::uint64_t* values, const std::uint64_t* mask,
               std::size_t size);
    void append(std::size_t size, std::size_t count, bool null);

  private:
    enum class State { None, Some, All };
    State m_state = State::None;
    Bitmap m_bits; // of State::Some
};

struct Column {
    ColumnDef def;
    std::int64_t id = 0; ///< of the column in the file; never used again when the column is dropped
    Numbers numbers;     ///< Integer, Short; codes of Text
    std::vector<double> reals;
    Bitmap bits;
    NullMap nulls;                                                           ///< never of a Bit
    std::shared_ptr<Dictionary> dictionary = std::make_shared<Dictionary>(); ///< Text
    std::shared_ptr<const TextRecipe> recipe; ///< Text: the rows' texts follow from other columns
    std::vector<bool> dirtyChunks;
    std::size_t storedTexts = 0; ///< texts of the dictionary that the file holds
    bool dictionaryReplaced = false;

    /// What the rows hold, apart from what the file knows of them.
    struct Values {
        Numbers numbers;
        std::vector<double> reals;
        Bitmap bits;
        NullMap nulls;
        std::shared_ptr<Dictionary> dictionary;
        std::shared_ptr<const TextRecipe> recipe;
    };
    Values values() const;
    /// \param values  of as many rows as the table has
    void setValues(Values values, std::size_t size);

    /// Not of a column with a recipe: ask the table.
    Value at(std::size_t row) const;
    /// Rows of default value (Null, or false of a Bit) at the end.
    void appendDefaults(std::size_t size, std::size_t count);
    void markDirty(std::size_t first, std::size_t count);
    void markAllDirty(std::size_t size);
    /// Forgets all texts before the column is rewritten whole.
    void replaceDictionary();
};

struct ColumnTable;
/// \throws SqlError kStorage when the table cannot take `more` rows
void requireRoom(const ColumnTable& table, std::size_t more);

struct ColumnTable {
    std::string name;
    std::int64_t id = 0;
    std::size_t rows = 0;
    std::vector<Column> columns;
    bool shapeDirty = true; ///< rows or columns differ from the file's list

    TableShape shape() const;
    Value at(std::size_t row, int column) const;
    /// Debug check: lengths, codes, tails. Our own mistakes only.
    void verify() const;
};

} // namespace sql
