// The text of a bet's numbers (Numstring) that super filters search, and the patterns that they search it with.
//
// "02 05 11 17 25 33": two digits a number, blanks between. The reds alone, or all numbers of the row: a blue then
// sits at the end and matches like a red.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace filter {

/// "05", "17", "-03"
std::string twoDigits(std::int64_t number);
/// "*05*"
std::string numberPattern(std::int64_t number);
/// "03 17 28"
std::string numberList(std::span<const int> numbers);
/// The statement that writes the text of fig1 to fig{numbers} into Numstring, for all rows.
std::string numstringStatement(std::string_view table, int numbers);

} // namespace filter
