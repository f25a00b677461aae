// Rows for the tests of wheels, written as their users write them.
#pragma once

#include <initializer_list>

#include "selection/wheel_tables.h"

namespace wheels_test {

inline selection::PositionSet row(std::initializer_list<int> positions) {
    selection::PositionSet set = 0;
    for (const int position : positions)
        set |= selection::PositionSet{1} << (position - 1);
    return set;
}

} // namespace wheels_test
