// Tokens to a statement tree.
//
// From weak to strong: OR; AND; NOT; comparisons, LIKE, IN, IS NULL; &; + and -; mod; * and /; the sign.
#pragma once

#include <string_view>

#include "sql/tree.h"

namespace sql {

/// \throws SqlError kSyntax with the bytes at fault
Statement parse(std::string_view statement);

/// Expressions may nest this deep; deeper ones are refused, so that no statement exhausts the stack.
inline constexpr int kDeepestNesting = 200;

} // namespace sql
