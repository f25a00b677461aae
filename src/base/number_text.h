// Numbers and text: the leading number of a typed text, how a number is printed, and the engine's rounding.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace base {

/// The leading number of a text, as the classic Val reads it: blanks, tabs and line ends are skipped everywhere, a
/// sign and one decimal point are taken, an exponent after E or D; the first character that fits nothing ends the
/// number. "007" is 7, "16.50" is 16.5, "" and "abc" are 0, "1 2" is 12, "-.5x" is -0.5. Never infinity: a number
/// beyond the largest is the largest, of its sign; one too small to be told from 0 is 0. Cost: one pass, whatever the
/// length.
double val(std::string_view text);
/// The same, or nothing for a text that does not start with a number.
std::optional<double> leadingNumber(std::string_view text);

inline constexpr double kLargestNumber = std::numeric_limits<double>::max();

/// A number in decimal without trailing zeros: at most 15 significant digits; 0.5 prints as "0.5", -0.0 as "0".
/// From 1e15 on, and below 1e-5, with an exponent that the statement lexer reads, such as "1E+15". Infinity prints as
/// the largest number, "1.79769313486231E+308", and what is no number as "0".
std::string numberText(double number);

/// Nearest whole number, a half to the even side: 0.5 is 0, 1.5 is 2, -2.5 is -2.
double roundHalfEven(double number);

/// The same as an int; a number beyond the limits gives the limit, what is no number the lower one.
int wholeWithin(double number, int low, int high);

} // namespace base
