#include "wheels/coset_group.h"

#include <algorithm>

namespace wheels {

namespace {

using Elements = std::vector<Permutation>;

struct SmallGroup {
    Elements generators;
    Elements elements;

    std::size_t indexOf(const Permutation& element) const {
        return static_cast<std::size_t>(std::find(elements.begin(), elements.end(), element) - elements.begin());
    }
};

/// Everything that the generators make; the identity is first.
Elements closure(const Elements& generators, std::size_t degree) {
    Elements elements{identity(static_cast<int>(degree))};
    for (std::size_t next = 0; next < elements.size(); ++next)
        for (const Permutation& generator : generators) {
            Permutation product = composed(elements[next], generator);
            if (std::find(elements.begin(), elements.end(), product) == elements.end())
                elements.push_back(std::move(product));
        }
    return elements;
}

/// The groups of up to 60 members that are not cyclic, as far as they have turned out to be of use. C is cyclic, D
/// dihedral (its number half its order), E elementary, F n the affine group of order n over a prime field.
constexpr std::string_view kGroups[] = {
    "badc/cdab",                           // E4
    "bca/bac",                             // D3
    "bcdaef/abcdfe",                       // C4 x C2
    "bcda/adcb",                           // D4
    "bcdahefg/efghcdab",                   // quaternions
    "bacdef/abdcef/abcdfe",                // E8
    "bcadef/abcefd",                       // E9
    "bcdea/aedcb",                         // D5
    "bcad/badc",                           // A4
    "bcade/bacde/abced",                   // D6
    "bcadefg/bacefgd",                     // C3 : C4
    "bcadefg/abcedfg/abcdegf",             // C6 x C2
    "bcdefga/agfedcb",                     // D7
    "bcdaefgh/abcdfghe",                   // C4 x C4
    "bcdefgha/ahgfedcb",                   // D8
    "bcdaef/adcbef/abcdfe",                // D4 x C2
    "bacdefgh/abdcefgh/abcdfegh/abcdefhg", // E16
    "bcadef/abcefd/acbdfe",                // E9 : C2
    "bcadef/bacdef/abcefd",                // D3 x C3
    "bcdefghia/aihgfedcb",                 // D9
    "bcdea/acebd",                         // F20
    "bcdefga/acegbdf",                     // F21
    "bcda/bacd",                           // S4
    "bcadef/badcef/abcdfe",                // A4 x C2
    "bcadefg/bacdefg/abcedfg/abcdegf",     // D6 x C2
    "bcadef/bacdef/abcefd/abcedf",         // D3 x D3
    "bcdefghijklma/adgjmcfilbehk",         // F39
    "bcdefga/adgcfbe",                     // F42
    "bcdefghijka/adgjbehkcfi",             // F55
    "bcdea/bcade",                         // A5
};

const std::vector<SmallGroup>& smallGroups() {
    static const std::vector<SmallGroup> groups = [] {
        std::vector<SmallGroup> all;
        for (const std::string_view text : kGroups) {
            const std::size_t degree = std::min(text.size(), text.find('/'));
            Elements generators = groupFromText(text, static_cast<int>(degree)).generators;
            Elements elements = closure(generators, degree);
            all.push_back({std::move(generators), std::move(elements)});
        }
        return all;
    }();
    return groups;
}

Elements randomSubgroup(const SmallGroup& group, Random& random) {
    Elements generators(random.below(static_cast<std::uint32_t>(group.generators.size() + 2)));
    for (Permutation& generator : generators)
        generator = random.oneOf(group.elements);
    return closure(generators, group.elements.front().size());
}

/// How each generator of the group moves the right cosets of the subgroup, by multiplication from the right.
Elements cosetAction(const SmallGroup& group, const Elements& subgroup) {
    constexpr std::uint8_t kNone = 0xFF;
    std::vector<std::uint8_t> cosetOf(group.elements.size(), kNone); // of each element
    Elements representatives;
    for (std::size_t element = 0; element < cosetOf.size(); ++element) {
        if (cosetOf[element] != kNone)
            continue;
        for (const Permutation& member : subgroup)
            cosetOf[group.indexOf(composed(member, group.elements[element]))] =
                static_cast<std::uint8_t>(representatives.size());
        representatives.push_back(group.elements[element]);
    }
    Elements action(group.generators.size());
    for (std::size_t generator = 0; generator < action.size(); ++generator)
        for (const Permutation& representative : representatives)
            action[generator].push_back(
                cosetOf[group.indexOf(composed(representative, group.generators[generator]))]);
    return action;
}

} // namespace

Group cosetGroup(int positions, double order, Random& random) {
    std::vector<const SmallGroup*> fitting;
    for (const SmallGroup& group : smallGroups()) {
        const auto members = static_cast<double>(group.elements.size());
        if (members >= 0.6 * order && members <= 2 * order)
            fitting.push_back(&group);
    }
    if (fitting.empty())
        return {};
    const SmallGroup& group = *random.oneOf(fitting);
    Elements images(group.generators.size(), identity(positions));
    for (std::size_t first = 0; first < static_cast<std::size_t>(positions);) {
        // Of two random subgroups the smaller: large blocks are the rule, fixed positions the exception.
        const Elements one = randomSubgroup(group, random);
        const Elements other = randomSubgroup(group, random);
        const Elements action = cosetAction(group, one.size() < other.size() ? one : other);
        const std::size_t length = action.front().size();
        if (first + length > static_cast<std::size_t>(positions))
            continue;
        for (std::size_t generator = 0; generator < images.size(); ++generator)
            for (std::size_t coset = 0; coset < length; ++coset)
                images[generator][first + coset] = static_cast<std::uint8_t>(first + action[generator][coset]);
        first += length;
    }
    std::erase_if(images, isIdentity);
    return {images};
}

} // namespace wheels
