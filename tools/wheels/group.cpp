#include "wheels/group.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

namespace wheels {

namespace {

Permutation identity(int positions) {
    Permutation image(static_cast<std::size_t>(positions));
    std::iota(image.begin(), image.end(), std::uint8_t{0});
    return image;
}

bool isIdentity(const Permutation& image) { return image == identity(static_cast<int>(image.size())); }

Permutation composed(const Permutation& first, const Permutation& second) {
    Permutation image(first.size());
    for (std::size_t position = 0; position < image.size(); ++position)
        image[position] = second[first[position]];
    return image;
}

int orderOf(const Permutation& permutation) {
    int order = 1;
    for (Permutation power = permutation; !isIdentity(power); power = composed(power, permutation))
        ++order;
    return order;
}

std::uint8_t byte(int value) { return static_cast<std::uint8_t>(value); }

void turnCycle(Permutation& image, int first, int length) {
    for (int step = 0; step < length; ++step)
        image[static_cast<std::size_t>(first + step)] = byte(first + (step + 1) % length);
}

std::vector<int> divisorsOf(int order) {
    std::vector<int> divisors;
    for (int divisor = 1; divisor <= order; ++divisor)
        if (order % divisor == 0)
            divisors.push_back(divisor);
    return divisors;
}

Group cyclicGroup(int positions, int order, Random& random) {
    const std::vector<int> divisors = divisorsOf(order);
    Permutation image = identity(positions);
    for (int first = 0; first < positions;) {
        // Of two random divisors the larger: long cycles are the rule, fixed positions the exception.
        const auto pick = [&] { return divisors[random.below(static_cast<std::uint32_t>(divisors.size()))]; };
        const int length = std::max(pick(), pick());
        if (first + length > positions)
            continue;
        turnCycle(image, first, length);
        first += length;
    }
    if (isIdentity(image))
        return {};
    return {{image}};
}

/// Units u of Z_n whose powers number `order`.
std::vector<int> unitsOfOrder(int n, int order) {
    std::vector<int> units;
    for (int unit = 1; unit < n; ++unit) {
        if (std::gcd(unit, n) != 1)
            continue;
        int powers = 1;
        for (int power = unit; power != 1 % n; power = power * unit % n)
            ++powers;
        if (powers == order)
            units.push_back(unit);
    }
    return units;
}

Group multiplierGroup(int positions, double order, Random& random) {
    const int length = random.between(3, positions);
    const int copies = random.between(std::max(1, positions / length - 1), positions / length);
    Permutation turn = identity(positions);
    for (int copy = 0; copy < copies; ++copy)
        turnCycle(turn, copy * length, length);
    Group group{{turn}};
    const int wanted = std::max(1, static_cast<int>(std::lround(order / length)));
    const std::vector<int> units = unitsOfOrder(length, wanted);
    if (wanted == 1 || units.empty())
        return group;
    const int unit = units[random.below(static_cast<std::uint32_t>(units.size()))];
    // Either each cycle goes into itself, or the cycles change places as well.
    const int shift = random.below(2) == 0 ? 0 : random.between(0, copies - 1);
    Permutation multiply = identity(positions);
    for (int copy = 0; copy < copies; ++copy)
        for (int step = 0; step < length; ++step)
            multiply[static_cast<std::size_t>(copy * length + step)] =
                byte((copy + shift) % copies * length + step * unit % length);
    group.generators.push_back(multiply);
    return group;
}

Group productGroup(int positions, double order, Random& random) {
    const int rows = random.between(2, 4);
    const int columns = std::clamp(static_cast<int>(std::lround(order / rows)), 2, positions / rows);
    const int copies = positions / (rows * columns);
    Permutation across = identity(positions);
    Permutation down = identity(positions);
    const auto place = [&](int copy, int row, int column) {
        return static_cast<std::size_t>((copy * rows + row % rows) * columns + column % columns);
    };
    for (int copy = 0; copy < copies; ++copy)
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column) {
                across[place(copy, row, column)] = byte(static_cast<int>(place(copy, row, column + 1)));
                down[place(copy, row, column)] = byte(static_cast<int>(place(copy, row + 1, column)));
            }
    // What is left over may turn along with one of the two.
    const int left = positions - copies * rows * columns;
    if (left >= rows && random.below(2) == 0)
        turnCycle(down, positions - rows, rows);
    return {{across, down}};
}

int inverse(int value, int prime) {
    for (int candidate = 1; candidate < prime; ++candidate)
        if (candidate * value % prime == 1)
            return candidate;
    return 0;
}

Group projectiveGroup(int positions, double order, Random& random) {
    constexpr int kPrimes[] = {5, 7, 11, 13, 17, 19, 23};
    std::vector<int> primes;
    for (const int prime : kPrimes)
        if (prime <= positions && prime + 4 >= positions)
            primes.push_back(prime);
    if (primes.empty())
        return cyclicGroup(positions, std::max(2, static_cast<int>(order)), random);
    const int prime = primes[random.below(static_cast<std::uint32_t>(primes.size()))];
    Permutation turn = identity(positions);
    turnCycle(turn, 0, prime);
    Group group{{turn}};
    const std::vector<int> divisors = divisorsOf(prime - 1);
    const std::vector<int> units =
        unitsOfOrder(prime, divisors[random.below(static_cast<std::uint32_t>(divisors.size()))]);
    Permutation multiply = identity(positions);
    for (int step = 0; step < prime; ++step)
        multiply[static_cast<std::size_t>(step)] = byte(step * units[0] % prime);
    if (!isIdentity(multiply))
        group.generators.push_back(multiply);
    if (prime < positions && order > 4.0 * prime) {
        Permutation invert = identity(positions);
        for (int step = 1; step < prime; ++step)
            invert[static_cast<std::size_t>(step)] = byte((prime - inverse(step, prime)) % prime);
        invert[0] = byte(prime);
        invert[static_cast<std::size_t>(prime)] = 0;
        group.generators.push_back(invert);
    }
    return group;
}

} // namespace

std::string toText(const Group& group) {
    std::string text;
    for (const Permutation& generator : group.generators) {
        if (!text.empty())
            text += '/';
        for (const std::uint8_t image : generator)
            text += static_cast<char>('a' + image);
    }
    return text.empty() ? "-" : text;
}

Group groupFromText(std::string_view text, int positions) {
    Group group;
    while (!text.empty() && text != "-") {
        const std::string_view letters = text.substr(0, text.find('/'));
        text.remove_prefix(std::min(text.size(), letters.size() + 1));
        Permutation image;
        for (const char letter : letters)
            image.push_back(byte(letter - 'a'));
        const Permutation same = identity(positions);
        if (!std::is_permutation(image.begin(), image.end(), same.begin(), same.end()))
            throw std::runtime_error("not a permutation of the positions: " + std::string(letters));
        group.generators.push_back(image);
    }
    return group;
}

Group randomGroup(int positions, double order, Random& random) {
    if (order < 1.5)
        return {};
    const std::uint32_t kind = random.below(20);
    if (order >= positions && kind >= 4 && kind < 8)
        return projectiveGroup(positions, order, random);
    if (order >= 5 && kind >= 8 && kind < 14)
        return multiplierGroup(positions, order, random);
    if (order >= 4 && kind >= 14 && kind < 17)
        return productGroup(positions, order, random);
    const int low = std::max(2, static_cast<int>(order * 0.6));
    const int high = std::max(low, static_cast<int>(std::lround(order * 1.5)));
    return cyclicGroup(positions, random.between(low, high), random);
}

Group weakened(const Group& group, Random& random) {
    if (group.generators.empty())
        return {};
    if (group.generators.size() > 1) { // leave out one generator
        Group fewer = group;
        fewer.generators.erase(fewer.generators.begin() + random.below(static_cast<std::uint32_t>(fewer.generators.size())));
        return fewer;
    }
    const Permutation& generator = group.generators.front();
    const int order = orderOf(generator);
    std::vector<int> primes;
    for (int factor = 2, rest = order; rest > 1; ++factor)
        for (bool fresh = true; rest % factor == 0; rest /= factor, fresh = false)
            if (fresh)
                primes.push_back(factor);
    const int prime = primes[random.below(static_cast<std::uint32_t>(primes.size()))];
    Permutation power = generator;
    for (int step = 1; step < prime; ++step)
        power = composed(power, generator);
    return isIdentity(power) ? Group{} : Group{{power}};
}

SetMap::SetMap(const Permutation& permutation) : m_low(kHalfSets), m_high(kHalfSets) {
    for (std::uint32_t half = 0; half < kHalfSets; ++half)
        for (std::size_t position = 0; position < permutation.size(); ++position) {
            const PositionSet image = PositionSet{1} << permutation[position];
            if (position < kHalf && (half >> position & 1U) != 0)
                m_low[half] |= image;
            if (position >= kHalf && (half >> (position - kHalf) & 1U) != 0)
                m_high[half] |= image;
        }
}

} // namespace wheels
