#include "wheels/coset_group.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace wheels {

namespace {

std::uint8_t byte(int value) {
    return static_cast<std::uint8_t>(value);
}

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
        const auto pick = [&] { return random.oneOf(divisors); };
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
    for (int unit = 1; unit < std::max(2, n); ++unit) {
        if (std::gcd(unit, n) != 1)
            continue;
        int powers = 1;
        for (int power = unit % n; power != 1 % n; power = power * unit % n)
            ++powers;
        if (powers == order)
            units.push_back(unit);
    }
    return units;
}

/// Blocks Z_d x Z_m side by side, d a divisor of n and m one of `turns`: x -> x + 1 in each, and (x, y) -> (ux, y +
/// 1).
Group metacyclicGroup(int positions, double order, Random& random) {
    const int n = random.between(2, positions);
    const int turns = std::max(1, static_cast<int>(std::lround(order / n)));
    const std::vector<int> units = unitsOfOrder(n, random.oneOf(divisorsOf(turns)));
    const int unit = units.empty() ? 1 : random.oneOf(units);
    // Blocks of full length are the rule.
    const std::vector<int> lengths = divisorsOf(n);
    const std::vector<int> widths = divisorsOf(turns);
    Permutation shift = identity(positions);
    Permutation multiply = identity(positions);
    for (int first = 0; first < positions;) {
        const int length = random.below(4) != 0 && first + n <= positions ? n : random.oneOf(lengths);
        const int width = random.oneOf(widths);
        if (first + length * width > positions)
            continue;
        for (int y = 0; y < width; ++y)
            for (int x = 0; x < length; ++x) {
                const auto place = static_cast<std::size_t>(first + y * length + x);
                shift[place] = byte(first + y * length + (x + 1) % length);
                multiply[place] = byte(first + (y + 1) % width * length + x * unit % length);
            }
        first += length * width;
    }
    Group group;
    for (const Permutation& generator : {shift, multiply})
        if (!isIdentity(generator))
            group.generators.push_back(generator);
    return group;
}

/// A finite field of p^e elements, numbered by their coefficients; x times the generator is a shift of these.
struct Field {
    int prime;
    int degree;
    int reduction; ///< the number of what x^degree is equal to
    int size() const {
        int elements = 1;
        for (int power = 0; power < degree; ++power)
            elements *= prime;
        return elements;
    }
    int sum(int left, int right) const {
        int result = 0;
        for (int place = 1, power = 0; power < degree; ++power, place *= prime)
            result += (left / place + right / place) % prime * place;
        return result;
    }
    int timesGenerator(int element) const {
        const int top = element / (size() / prime);
        int result = element % (size() / prime) * prime;
        for (int step = 0; step < top; ++step)
            result = sum(result, reduction);
        return result;
    }
};

/// x^2 = x + 1, x^3 = x + 1, x^4 = x + 1 over two elements, x^2 = 2x + 1 over three: each x has all powers.
constexpr Field kFields[] = {{2, 2, 3}, {2, 3, 3}, {2, 4, 3}, {3, 2, 7}};

/// Copies of a field, moved by all sums and by a power of the generator, which may also change the copies about.
Group affineGroup(int positions, double order, Random& random) {
    std::vector<Field> fields;
    for (const Field& field : kFields)
        if (field.size() <= positions && field.size() < 3 * order)
            fields.push_back(field);
    if (fields.empty())
        return metacyclicGroup(positions, order, random);
    const Field field = random.oneOf(fields);
    const int size = field.size();
    const int copies = positions / size;
    Group group;
    for (int unit = 1; unit < size; unit *= field.prime) {
        Permutation add = identity(positions);
        for (int copy = 0; copy < copies; ++copy)
            for (int element = 0; element < size; ++element)
                add[static_cast<std::size_t>(copy * size + element)] = byte(copy * size + field.sum(element, unit));
        group.generators.push_back(add);
    }
    const int power = random.oneOf(divisorsOf(size - 1));
    const int move = random.below(2) == 0 ? 0 : 1;
    Permutation multiply = identity(positions);
    for (int copy = 0; copy < copies; ++copy)
        for (int element = 0; element < size; ++element) {
            int image = element;
            for (int step = 0; step < power; ++step)
                image = field.timesGenerator(image);
            multiply[static_cast<std::size_t>(copy * size + element)] = byte((copy + move) % copies * size + image);
        }
    const int left = positions - copies * size;
    if (left > 1 && random.below(2) == 0)
        turnCycle(multiply, copies * size, random.between(2, left));
    if (!isIdentity(multiply))
        group.generators.push_back(multiply);
    return group;
}

/// Blocks of sizes p, p^2, p^3 … as vectors over p elements; each generator adds a random vector in each block.
Group elementaryGroup(int positions, double order, Random& random) {
    const Field& field = random.below(4) == 0 ? kFields[3] : kFields[2];
    const double bits = std::log(std::max(2.0, order)) / std::log(field.prime);
    const int generators = std::clamp(static_cast<int>(std::lround(bits)), 1, 5);
    Group group;
    group.generators.assign(static_cast<std::size_t>(generators), identity(positions));
    for (int first = 0; first < positions;) {
        int size = field.prime;
        while (size * field.prime <= field.size() && random.below(3) != 0)
            size *= field.prime;
        if (first + field.prime > positions)
            break;
        if (first + size > positions)
            continue;
        for (Permutation& generator : group.generators) {
            const int vector = random.between(0, size - 1);
            for (int element = 0; element < size; ++element)
                generator[static_cast<std::size_t>(first + element)] = byte(first + field.sum(element, vector));
        }
        first += size;
    }
    std::erase_if(group.generators, isIdentity);
    return group;
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
    const int prime = random.oneOf(primes);
    Permutation turn = identity(positions);
    turnCycle(turn, 0, prime);
    Group group{{turn}};
    const std::vector<int> divisors = divisorsOf(prime - 1);
    const std::vector<int> units = unitsOfOrder(prime, random.oneOf(divisors));
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

Group randomGroup(int positions, double order, Random& random) {
    if (order < 1.5)
        return {};
    const std::uint32_t kind = random.below(30);
    if (order >= positions / 2.0 && kind < 3)
        return projectiveGroup(positions, order, random);
    if (order >= 3 && kind >= 3 && kind < 6)
        return affineGroup(positions, order, random);
    if (order >= 2 && kind >= 6 && kind < 8)
        return elementaryGroup(positions, order, random);
    if (order >= 3 && kind >= 8 && kind < 15)
        return metacyclicGroup(positions, order, random);
    if (kind >= 20)
        if (Group group = cosetGroup(positions, order, random); !group.generators.empty())
            return group;
    const int low = std::max(2, static_cast<int>(order * 0.6));
    const int high = std::max(low, static_cast<int>(std::lround(order * 1.5)));
    return cyclicGroup(positions, random.between(low, high), random);
}

} // namespace wheels
