// What a fuzzer feeds: each target takes any bytes and throws std::logic_error when the engine breaks a promise.
//
// The same functions run in two programs: fuzz_<name>, built by clang with libFuzzer (preset "fuzz"), and fuzz_tests,
// which replays the corpus in every build. An input that once broke a promise belongs into corpus/<name>.
#pragma once

#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace fuzz {

/// Statement text: parse, print and parse again gives an equal tree; a refusal is a syntax error and nothing else.
void parser(std::string_view input);

/// Statements, a line each, on a small database: both executors give the same error, rows and tables.
void statements(std::string_view input);

/// A damaged database file: reading all of it and writing to it gives an engine error at most.
/// The first byte chooses the kind of damage, the rest is the damage: see damaged_target.cpp.
void damaged(std::string_view input);

struct Target {
    const char* name; ///< also of its folder in corpus/
    void (*run)(std::string_view input);
    friend void PrintTo(const Target& target, std::ostream* out) { *out << target.name; }
};
inline constexpr Target kTargets[] = {
    {"parser", parser}, {"statements", statements}, {"damaged", damaged},
    // add a target here, and its name in CMakeLists.txt
};

[[noreturn]] inline void broken(const std::string& promise) {
    throw std::logic_error(promise);
}

} // namespace fuzz
