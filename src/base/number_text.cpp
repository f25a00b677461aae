#include "base/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace base {

namespace {

constexpr double kLargestWritten = 1.79769313486231E+308; // 15 digits, the last one cut and not rounded

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

/// Power of ten of the first digit that is not 0 in "-012.5e3", which has no other characters; far below every
/// number's for a zero. An exponent of any length is taken: it stops counting where no digits before it could make up
/// for it.
long long magnitudeOf(std::string_view number) {
    constexpr long long kFar = 1LL << 40; // beyond the length of any text
    const std::size_t mark = number.find('e');
    const std::string_view digits = number.substr(0, mark);
    const std::size_t first = digits.find_first_of("123456789");
    if (first == std::string_view::npos)
        return -kFar;
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const long long place = static_cast<long long>(point) - static_cast<long long>(first) - (first < point ? 1 : 0);
    long long exponent = 0;
    if (mark != std::string_view::npos)
        for (const char c : number.substr(mark + 1))
            if (isDigit(c))
                exponent = std::min(exponent * 10 + (c - '0'), kFar);
    const bool negative = mark != std::string_view::npos && number[mark + 1] == '-';
    return place + (negative ? -exponent : exponent);
}

/// The value of a text such as "-012.5e3"; what is too large for a number becomes the largest, what is too small 0.
double valueOf(const std::string& text) {
    double number = 0;
    const auto [stop, status] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (status == std::errc() && std::isfinite(number))
        return number;
    if (magnitudeOf(text) < 0)
        return 0;
    return text.front() == '-' ? -kLargestNumber : kLargestNumber;
}

void dropTrailingZeros(std::string& text) {
    if (text.find('.') == std::string::npos)
        return;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
}

} // namespace

std::optional<double> leadingNumber(std::string_view text) {
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
        return std::nullopt;
    kept.resize(exponentEnd(kept, end));
    for (std::size_t place = end; place < kept.size(); ++place)
        if (std::string_view("EdD").find(kept[place]) != std::string_view::npos)
            kept[place] = 'e';
    return valueOf(kept[0] == '+' ? kept.substr(1) : kept);
}

double val(std::string_view text) {
    return leadingNumber(text).value_or(0);
}

int wholeWithin(double number, int low, int high) {
    return std::isnan(number) ? low : static_cast<int>(std::clamp<double>(roundHalfEven(number), low, high));
}

std::string numberText(double number) {
    if (number == 0 || std::isnan(number))
        return "0"; // also for -0.0
    // Rounded up to 15 digits the largest numbers of all would be beyond what a text can be read back to.
    number = std::clamp(number, -kLargestWritten, kLargestWritten);
    char buffer[40]; // 17 characters and a sign at most, or 15 digits behind "-0.0000"
    const double size = std::fabs(number);
    if (size >= 1e15 || size < 1e-5) {
        std::snprintf(buffer, sizeof buffer, "%.14E", number);
        std::string text = buffer;
        const std::size_t mark = text.find('E');
        std::string mantissa = text.substr(0, mark);
        dropTrailingZeros(mantissa);
        return mantissa + text.substr(mark);
    }
    const int before = size >= 1 ? static_cast<int>(std::floor(std::log10(size))) + 1 : 0;
    std::snprintf(buffer, sizeof buffer, "%.*f", std::max(15 - before, 0), number);
    std::string text = buffer;
    dropTrailingZeros(text);
    return text;
}

double roundHalfEven(double number) {
    return std::nearbyint(number);
}

} // namespace base
