// For programs that use the helpers of the tests and are no tests themselves: what would fail a case ends them.
#pragma once

#include <functional>
#include <string>

namespace test_support {

/// From now on the first failure, of a missing control or of a dialog that nobody expected, is told, and the process
/// ends at once with exit code 1.
void endAtFirstFailure(std::function<void(const std::string& what)> tell);

} // namespace test_support
