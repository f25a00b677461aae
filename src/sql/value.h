// One value of a table cell: Null, a whole number (truth is -1 and 0), a real number, or text in UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace sql {

using Null = std::monostate;
using Value = std::variant<Null, std::int64_t, double, std::string>;

inline bool isNull(const Value& value) {
    return std::holds_alternative<Null>(value);
}

/// The value as a whole number; Null and text read as 0, a real number is rounded half to even.
std::int64_t toInteger(const Value& value);
/// The value as a real number; Null and text read as 0.
double toReal(const Value& value);
/// The value as the dialect's `&` would join it: Null is empty, numbers without trailing zeros.
std::string toText(const Value& value);

} // namespace sql
