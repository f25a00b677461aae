// The text of a bet's numbers (Numstring) that super filters search, and the patterns that they search it with.
//
// "02 05 11 17 25 33": two digits a number, blanks between. The reds alone, or all numbers of the row: a blue then
// sits at the end and matches like a red.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "sql/database.h"

namespace filter {

/// "05", "17", "-03"
std::string twoDigits(std::int64_t number);
/// "*05*"
std::string numberPattern(std::int64_t number);
/// "03 17 28"
std::string numberList(std::span<const int> numbers);
/// The statement that writes the text of fig1 to fig{numbers} into Numstring, for all rows.
std::string numstringStatement(std::string_view table, int numbers);

/// Whether the table has the column: a search without it finds nothing.
bool hasNumstring(const sql::Database& database, std::string_view table);

/// The two-digit numbers below 64 that the text of a number holds, as bits: 5 is "05", 123 is "123" and holds 12 and
/// 23. For passes that take the place of LIKE.
std::uint64_t slowNumbersInText(std::int32_t number);
inline std::uint64_t numbersInText(std::int32_t number) {
    return number >= 0 && number < 64 ? std::uint64_t{1} << number : slowNumbersInText(number);
}

} // namespace filter
