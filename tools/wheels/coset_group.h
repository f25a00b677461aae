// Small groups that act on the positions in several ways at once: on one block as itself, on another more coarsely.
//
// A group moves the right cosets of any of its subgroups, as many of them as the subgroup fits into it. Blocks of
// such cosets side by side give every way at all in which the group can act; D6 moves 12 6 2 2 1 positions in blocks,
// or 6 6 3 2 1. Many of the best wheels have a symmetry of this kind.
#pragma once

#include "wheels/group.h"

namespace wheels {

/// A random action of a random group, not cyclic, of 0.6 to 2 times `order` members; without a generator where there
/// is no such group in the table, or where the action moves nothing.
Group cosetGroup(int positions, double order, Random& random);

} // namespace wheels
