// What a driver tells the test that will kill it: one line at a time, each written at once.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <string>

namespace crash {

inline void say(const std::string& line) {
    const std::string whole = line + "\n";
    if (::write(STDOUT_FILENO, whole.data(), whole.size()) != static_cast<ssize_t>(whole.size()))
        std::_Exit(3); // nobody listens any more
}

} // namespace crash
