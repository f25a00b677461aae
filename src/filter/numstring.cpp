#include "filter/numstring.h"

#include <algorithm>
#include <cstdlib>

#include "filter/quiet.h"
#include "sql/lexer.h"

namespace filter {

std::string twoDigits(std::int64_t number) {
    const std::string digits = std::to_string(std::abs(number));
    return (number < 0 ? "-" : "") + std::string(digits.size() < 2 ? "0" : "") + digits;
}

std::string numberPattern(std::int64_t number) {
    return "*" + twoDigits(number) + "*";
}

std::string numberList(std::span<const int> numbers) {
    std::string list;
    for (const int number : numbers)
        list += (list.empty() ? "" : " ") + twoDigits(number);
    return list;
}

std::string numstringStatement(std::string_view table, int numbers) {
    std::string text = "format([fig1],\"00\")";
    for (int place = 2; place <= numbers; ++place)
        text +=
            std::string(place < 5 ? "  " : "   ") + "& Chr(32) & format([fig" + std::to_string(place) + "],\"00\")";
    return "UPDATE [" + std::string(table) + "] SET [Numstring]= " + text;
}

bool hasNumstring(const sql::Database& database, std::string_view table) {
    std::vector<std::string> columns;
    quietly([&] { columns = database.columnNames(table); });
    return std::ranges::any_of(columns, [](const std::string& name) { return sql::sameName(name, "Numstring"); });
}

std::uint64_t slowNumbersInText(std::int32_t number) {
    std::uint64_t numbers = 0;
    std::int64_t rest = std::abs(std::int64_t{number});
    do {
        if (rest % 100 < 64)
            numbers |= std::uint64_t{1} << (rest % 100);
        rest /= 10;
    } while (rest >= 10);
    return numbers;
}

} // namespace filter
