#include "sql/value.h"

#include "base/number_text.h"

namespace sql {

std::int64_t toInteger(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return *whole;
    if (const auto* real = std::get_if<double>(&value))
        return static_cast<std::int64_t>(base::roundHalfEven(*real));
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
