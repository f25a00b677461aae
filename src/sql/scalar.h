// The dialect's operators and functions on single values: the one place that says what they mean.
//
// The column executor calls these once per distinct input, never once per row; the sqlite executor registers the
// functions that SQLite lacks. Truth is -1 and 0, unknown is Null.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "sql/tree.h"

namespace sql {

inline constexpr std::size_t kTextLimit = 255; ///< characters that a text column holds

/// Smallest and largest whole number that a 32-bit column holds.
inline constexpr double kIntegerLow = -2147483648.0;
inline constexpr double kIntegerHigh = 2147483647.0;

/// Order of two texts with ASCII letters taken without case: negative, 0 or positive.
int compareText(std::string_view left, std::string_view right);

/// LIKE: `*` stands for any text, `?` for one character, all else for itself; case of ASCII letters is ignored.
bool likeText(std::string_view text, std::string_view pattern);

/// Position of the first character of `part` in `text`, from 1; 0 when it is absent or the text is empty; an empty
/// part is found at 1. Case of ASCII letters is ignored.
std::int64_t inStr(std::string_view text, std::string_view part);

/// `format` with a pattern of zeros: the number rounded to a whole one, half away from zero, padded to as many digits
/// as the pattern has zeros. Null gives the empty text. The pattern has been checked by isZeroPattern.
std::string formatNumber(const Value& number, std::size_t digits);
bool isZeroPattern(std::string_view pattern);

/// The character of a code 0..127 (0 gives the empty text); Null for any other.
Value chr(const Value& code);

/// Remainder of the operands rounded to whole numbers, with the sign of the left one; Null for a right one of 0 and
/// for operands beyond 32 bits.
Value modulo(const Value& left, const Value& right);

/// The first 255 characters.
std::string cutText(std::string text);

/// What a column of the type keeps of a value: Integer and Short round half to even and turn what does not fit into
/// Null, Text is cut, a Bit is -1 for anything but 0 and Null.
Value storedValue(const Value& value, ColumnType type);

/// Result of one bound node from the values of its operands. Not for columns, sub-selects and aggregates.
Value applyNode(const Expr& expr, std::span<const Value> args);

/// Value of a bound expression. \param column  gives the value of a column by its place
Value evaluate(const Expr& expr, const std::function<Value(int)>& column);

/// Truth of a value: 1 true, 0 false, -1 unknown.
int truthOf(const Value& value);

} // namespace sql
