// How tests that run on both executors call them in their output.
#pragma once

#include <ostream>

#include "sql/database.h"

namespace sql {

inline void PrintTo(Executor executor, std::ostream* out) {
    *out << (executor == Executor::Column ? "column executor" : "sqlite executor");
}

inline void PrintTo(const EngineOptions& options, std::ostream* out) {
    PrintTo(options.combinations, out);
    *out << " with batches of " << options.batchRows << " rows";
}

} // namespace sql
