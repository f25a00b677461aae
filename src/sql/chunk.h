// Rows of one column as a blob: an encoding byte, then its data. All numbers are little-endian.
#pragma once

#include <string>
#include <string_view>

#include "sql/column.h"

namespace sql {

/// \param first, count  the rows, count at most kChunkRows
std::string encodeChunk(const ColumnTable& table, const Column& column, std::size_t first, std::size_t count);

/// Appends the rows of a blob to a column that holds `size` rows.
/// \throws SqlError kNotADatabase when the blob is not one of `count` rows
void decodeChunk(std::string_view blob, Column& column, std::size_t size, std::size_t count);

/// After all columns of a table have been read: recipes find the places of the columns that they read.
/// \throws SqlError kNotADatabase when one is not there, or is none that a recipe may read
void resolveRecipes(ColumnTable& table);

/// Most texts of a blob: no blob expands to more than 16 MiB, whatever a damaged one says of itself.
inline constexpr std::size_t kTextsPerBlob = 16384;

/// `count` texts of a dictionary, at most kTextsPerBlob, as a blob, and back at the end of one.
std::string encodeTexts(const Dictionary& dictionary, std::size_t first, std::size_t count);
/// \throws SqlError kNotADatabase when the blob is not one of texts that the dictionary lacks
void decodeTexts(std::string_view blob, Dictionary& dictionary);

} // namespace sql
