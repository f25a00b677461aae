#include "sql/value.h"

#include <cmath>

#include "base/number_text.h"

namespace sql {

namespace {

/// Beyond 64 bits the limit; what is no number is 0.
std::int64_t wholeOf(double real) {
    constexpr double kLimit = 9223372036854775808.0; // 2^63
    const double whole = base::roundHalfEven(real);
    if (whole >= kLimit)
        return INT64_MAX;
    return whole >= -kLimit ? static_cast<std::int64_t>(whole) : std::isnan(whole) ? 0 : INT64_MIN;
}

} // namespace

std::int64_t toInteger(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return *whole;
    if (const auto* real = std::get_if<double>(&value))
        return wholeOf(*real);
    return 0;
}

double toReal(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&value))
        return *real;
    return 0;
}

std::string toText(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return std::to_string(*whole);
    if (const auto* real = std::get_if<double>(&value))
        return base::numberText(*real);
    return {};
}

} // namespace sql
