// Small permutation groups of the positions, given by generators, that a search may impose on a wheel.
//
// A wheel that a group maps onto itself is a union of orbits, so the search chooses among orbits: hundreds in place
// of ten thousands. Which group suits a problem nobody knows beforehand; randomGroup() draws from kinds that have
// proved themselves:
//   cyclic       one permutation with cycle lengths that divide one order, such as 4 3 3 2 2 2 2
//   metacyclic   blocks Z_d x Z_m side by side, moved by x -> x + 1 and by (x, y) -> (ux, y + 1)
//   affine       copies of a field of 4, 8, 9 or 16 elements, moved by all sums and by a power of its generator
//   elementary   blocks of vectors over 2 or 3 elements; each generator adds a random vector in each block
//   coset        one small group on blocks of cosets of its subgroups, see coset_group.h
//   projective   x -> x + 1 and x -> ux on Z_q with a point at infinity, sometimes with x -> -1/x
// The rest of the positions stays fixed.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "wheels/random.h"
#include "wheels/subsets.h"

namespace wheels {

/// image[i] is where position i + 1 goes, less 1.
using Permutation = std::vector<std::uint8_t>;

Permutation identity(int positions);
bool isIdentity(const Permutation& image);
/// One after the other.
Permutation composed(const Permutation& first, const Permutation& second);

struct Group {
    std::vector<Permutation> generators; ///< none: the group of one element
};

/// Generators as letters (a is position 1), joined by '/': "bca" is 1 -> 2 -> 3 -> 1. "-" has none.
std::string toText(const Group& group);
/// \throws std::runtime_error  for a text that is not one of permutations of `positions` letters
Group groupFromText(std::string_view text, int positions);

/// A random group whose orbits on larger sets are mostly of about `order` members.
Group randomGroup(int positions, double order, Random& random);

/// The cyclic subgroup of the n-th power of the first generator, n a prime divisor of its order: a symmetry half
/// broken. Without a generator, or with one of prime order, the group of one element.
Group weakened(const Group& group, Random& random);

/// Applies a permutation to sets by two look-ups.
class SetMap {
  public:
    explicit SetMap(const Permutation& permutation);
    PositionSet operator()(PositionSet set) const { return m_low[set & (kHalfSets - 1)] | m_high[set >> kHalf]; }

  private:
    std::vector<PositionSet> m_low, m_high;
};

} // namespace wheels
