#include "filter/plain_values.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <stdexcept>
#include <vector>

namespace plain {
namespace {

/// Numbers at ticked positions first..last.
std::vector<int> chosen(const Bet& bet, const Rule& rule, int last = 6) {
    std::vector<int> numbers;
    for (int position = 1; position <= last; ++position)
        if (rule.ticked[static_cast<std::size_t>(position)])
            numbers.push_back(bet[static_cast<std::size_t>(position)]);
    return numbers;
}

template <class Holds> int countOf(const std::vector<int>& numbers, Holds holds) {
    return static_cast<int>(std::count_if(numbers.begin(), numbers.end(), holds));
}

template <class Term> int sumOf(const std::vector<int>& numbers, Term term) {
    int sum = 0;
    for (const int number : numbers)
        sum += term(number);
    return sum;
}

int neighbours(const Bet& bet, const Rule& rule) {
    int pairs = 0;
    for (std::size_t position = 1; position < 6; ++position)
        if (rule.ticked[position] && rule.ticked[position + 1] && bet[position + 1] == bet[position] + 1)
            ++pairs;
    return pairs;
}

int largestGap(const std::vector<int>& numbers) {
    int largest = 0;
    for (std::size_t place = 1; place < numbers.size(); ++place)
        largest = std::max(largest, numbers[place] - numbers[place - 1]);
    return largest;
}

int acValue(const std::vector<int>& numbers) {
    std::set<int> differences;
    for (std::size_t later = 1; later < numbers.size(); ++later)
        for (std::size_t earlier = 0; earlier < later; ++earlier)
            differences.insert(numbers[later] - numbers[earlier]);
    return static_cast<int>(differences.size()) - (static_cast<int>(numbers.size()) - 1);
}

int sameLastDigits(const std::vector<int>& numbers) {
    std::set<int> digits;
    for (const int number : numbers)
        digits.insert(number % 10);
    return 6 - static_cast<int>(digits.size());
}

int omissionRange(const std::vector<int>& numbers, const Rule& rule) {
    int largest = 0;
    int smallest = 99;
    for (const int number : numbers) {
        largest = std::max(largest, rule.omission[static_cast<std::size_t>(number)]);
        smallest = std::min(smallest, rule.omission[static_cast<std::size_t>(number)]);
    }
    return largest - smallest;
}

} // namespace

int value(std::string_view option, const Bet& bet, const Rule& rule) {
    const std::vector<int> reds = chosen(bet, rule);
    const std::vector<int> all = chosen(bet, rule, 7);
    const auto same = [](int number) { return number; };
    const auto even = [](int number) { return number % 2 == 0; };
    const auto big = [&](int number) { return 2 * number > rule.Bitnum; };
    const auto repeated = [&](int number) {
        return std::find(rule.last.begin() + 1, rule.last.end(), number) != rule.last.end();
    };
    const auto between = [](int low, int high) {
        return [=](int number) { return number >= low && number <= high; };
    };
    if (option == "Option23")
        return sumOf(reds, same);
    if (option == "Option3")
        return sumOf(reds, same) % 10;
    if (option == "Option33")
        return sumOf(all, same);
    if (option == "Option2")
        return neighbours(bet, rule);
    if (option == "Option4")
        return countOf(reds, even);
    if (option == "Option31")
        return countOf(all, even);
    if (option == "Option5")
        return countOf(reds, big);
    if (option == "Option32")
        return countOf(all, big);
    if (option == "Option8")
        return countOf(reds, [](int number) { return number % 10 >= 5; });
    if (option == "Option9")
        return countOf(reds, between(1, 11));
    if (option == "Option10")
        return countOf(reds, between(12, 22));
    if (option == "Option11")
        return countOf(reds, between(23, 33));
    if (option == "Option12")
        return countOf(reds, [](int number) { return number % 3 == 0; });
    if (option == "Option39")
        return sumOf(reds, [](int number) { return number % 10; });
    if (option == "Option41")
        return sumOf(reds, [](int number) { return number % 2 == 1 ? number : 0; });
    if (option == "Option40")
        return sumOf(reds, [](int number) { return number % 2 == 0 ? number : 0; });
    if (option == "Option20")
        return countOf(reds, repeated);
    if (option == "Option34")
        return countOf(all, repeated);
    if (option == "Option6")
        return largestGap(reds);
    if (option == "Option7")
        return reds.empty() ? 0 : reds.back() - reds.front();
    if (option == "Option24")
        return acValue(reds);
    if (option == "Option30")
        return sameLastDigits(reds);
    if (option == "Option38")
        return sumOf(reds, [&](int number) { return rule.omission[static_cast<std::size_t>(number)]; });
    if (option == "Option42")
        return omissionRange(reds, rule);
    if (option == "Option66")
        return countOf(reds, between(rule.above + 1, rule.to));
    if (option >= "Option13" && option <= "Option19" && option.size() == 8)
        return bet[static_cast<std::size_t>(option[7] - '2')];
    throw std::invalid_argument("no such parameter");
}

std::string_view besideABlue(std::string_view sixRedOption) {
    static const std::map<std::string_view, std::string_view> others{
        {"Option32", "Option41"}, {"Option33", "Option40"}, {"Option34", "Option39"},
        {"Option35", "Option38"}, {"Option38", "Option42"}, {"Option41", "Option30"},
        {"Option19", ""},         {"Option39", ""},         {"Option40", ""}};
    const auto other = others.find(sixRedOption);
    return other == others.end() ? sixRedOption : other->second;
}

int sixRedValue(std::string_view option, const Bet& bet, const Rule& rule) {
    if (const std::string_view other = besideABlue(option); !other.empty())
        return value(other, bet, rule);
    const std::vector<int> reds = chosen(bet, rule);
    if (option == "Option19")
        return countOf(reds, [](int number) { return number % 5 == 0; });
    if (option == "Option39")
        return sumOf(reds, [&](int number) { return 2 * number <= rule.Bitnum ? number : 0; });
    if (option == "Option40")
        return sumOf(reds, [&](int number) { return 2 * number > rule.Bitnum ? number : 0; });
    throw std::invalid_argument("no such parameter");
}

int sevenRedValue(std::string_view option, const Bet& bet, const Rule& rule) {
    const std::vector<int> reds(bet.begin() + 1, bet.end());
    const auto above = [&](int low, int high) {
        return countOf(reds, [=](int number) { return number > low && number <= high; });
    };
    const auto lastHas = [&](int number) { return std::ranges::count(rule.last, number) > 0; };
    if (option == "Option23" || option == "Option3")
        return sumOf(reds, [](int number) { return number; }) % (option == "Option3" ? 10 : 1000);
    if (option == "Option2")
        return static_cast<int>(
            std::ranges::count_if(reds, [&](int number) { return std::ranges::count(reds, number + 1) > 0; }));
    if (option == "Option4")
        return countOf(reds, [](int number) { return number % 2 == 0; });
    if (option == "Option5")
        return countOf(reds, [&](int number) { return 2 * number > rule.Bitnum; });
    if (option == "Option8")
        return countOf(reds, [](int number) { return number % 10 >= 5; });
    if (option == "Option9")
        return above(0, 10);
    if (option == "Option10")
        return above(10, 20);
    if (option == "Option11")
        return above(20, 30);
    if (option == "Option12")
        return reds.front() < 40 ? above(30, 99) : 0;
    if (option == "Option41")
        return above(40, 99);
    if (option == "Option20")
        return countOf(reds, lastHas);
    if (option == "Option6")
        return largestGap(reds);
    if (option == "Option7")
        return reds.back() - reds.front();
    if (option == "Option24")
        return acValue(reds);
    if (option >= "Option13" && option <= "Option19" && option.size() == 8)
        return bet[static_cast<std::size_t>(option[7] - '2')];
    throw std::invalid_argument("no such parameter");
}

} // namespace plain
