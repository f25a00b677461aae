#include "base/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace base {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The text without blanks, tabs and line ends: the classic Val passes over them anywhere.
std::string withoutBlanks(std::string_view text) {
    std::string kept;
    for (const char c : text)
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r')
            kept += c;
    return kept;
}

std::size_t digitsEnd(std::string_view text, std::size_t first) {
    while (first < text.size() && isDigit(text[first]))
        ++first;
    return first;
}

/// End of "E+5" or "d3" at `first`, or `first` when there is no whole exponent.
std::size_t exponentEnd(std::string_view text, std::size_t first) {
    if (first >= text.size() || std::string_view("eEdD").find(text[first]) == std::string_view::npos)
        return first;
    std::size_t digits = first + 1;
    if (digits < text.size() && (text[digits] == '+' || text[digits] == '-'))
        ++digits;
    const std::size_t end = digitsEnd(text, digits);
    return end == digits ? first : end;
}

} // namespace

double val(std::string_view text) {
    std::string kept = withoutBlanks(text);
    std::size_t end = (!kept.empty() && (kept[0] == '-' || kept[0] == '+')) ? 1 : 0;
    const std::size_t whole = end;
    end = digitsEnd(kept, end);
    std::size_t digits = end - whole;
    if (end < kept.size() && kept[end] == '.') {
        const std::size_t fraction = digitsEnd(kept, end + 1);
        digits += fraction - end - 1;
        end = fraction;
    }
    if (digits == 0)
        return 0;
    end = exponentEnd(kept, end);
    kept.resize(end);
    for (char& c : kept)
        if (c == 'd' || c == 'D')
            c = 'e';
    const char* first = kept.c_str() + (kept[0] == '+' ? 1 : 0);
    double number = 0;
    const auto [stop, status] = std::from_chars(first, kept.c_str() + kept.size(), number);
    return status == std::errc() ? number : std::strtod(first, nullptr); // out of range: 0 or infinity
}

std::string numberText(double number) {
    if (number == 0)
        return "0"; // also for -0.0
    char buffer[40];
    const double size = std::fabs(number);
    if (size >= 1e15 || size < 1e-5) {
        std::snprintf(buffer, sizeof buffer, "%.14E", number);
        std::string text = buffer;
        const std::size_t mark = text.find('E');
        std::string mantissa = text.substr(0, mark);
        if (mantissa.find('.') != std::string::npos) {
            mantissa.erase(mantissa.find_last_not_of('0') + 1);
            if (mantissa.back() == '.')
                mantissa.pop_back();
        }
        return mantissa + text.substr(mark);
    }
    const int before = size >= 1 ? static_cast<int>(std::floor(std::log10(size))) + 1 : 0;
    std::snprintf(buffer, sizeof buffer, "%.*f", 15 - before < 0 ? 0 : 15 - before, number);
    std::string text = buffer;
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    return text;
}

double roundHalfEven(double number) {
    return std::nearbyint(number);
}

} // namespace base
