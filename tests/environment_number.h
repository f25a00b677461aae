// A number that a developer sets for a run of the tests, such as a seed.
#pragma once

#include <cstdlib>

inline unsigned environmentNumber(const char* name, unsigned otherwise) {
    const char* text = std::getenv(name);
    return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : otherwise;
}
