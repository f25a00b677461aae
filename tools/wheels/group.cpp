#include "wheels/group.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace wheels {

namespace {

int orderOf(const Permutation& permutation) {
    int order = 1;
    for (Permutation power = permutation; !isIdentity(power); power = composed(power, permutation))
        ++order;
    return order;
}

} // namespace

Permutation identity(int positions) {
    Permutation image(static_cast<std::size_t>(positions));
    std::iota(image.begin(), image.end(), std::uint8_t{0});
    return image;
}

bool isIdentity(const Permutation& image) {
    return image == identity(static_cast<int>(image.size()));
}

Permutation composed(const Permutation& first, const Permutation& second) {
    Permutation image(first.size());
    for (std::size_t position = 0; position < image.size(); ++position)
        image[position] = second[first[position]];
    return image;
}

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
            image.push_back(static_cast<std::uint8_t>(letter - 'a'));
        const Permutation same = identity(positions);
        if (!std::is_permutation(image.begin(), image.end(), same.begin(), same.end()))
            throw std::runtime_error("not a permutation of the positions: " + std::string(letters));
        group.generators.push_back(image);
    }
    return group;
}

Group weakened(const Group& group, Random& random) {
    if (group.generators.empty())
        return {};
    if (group.generators.size() > 1) { // leave out one generator
        Group fewer = group;
        fewer.generators.erase(fewer.generators.begin() +
                               random.below(static_cast<std::uint32_t>(fewer.generators.size())));
        return fewer;
    }
    const Permutation& generator = group.generators.front();
    const int order = orderOf(generator);
    std::vector<int> primes;
    for (int factor = 2, rest = order; rest > 1; ++factor)
        for (bool fresh = true; rest % factor == 0; rest /= factor, fresh = false)
            if (fresh)
                primes.push_back(factor);
    const int prime = random.oneOf(primes);
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
