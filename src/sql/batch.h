// What a node of a plan hands to its parent for one batch of rows.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "sql/bitmap.h"
#include "sql/column.h"

namespace sql {

struct Batch {
    const ColumnTable* table = nullptr;
    std::size_t first = 0;
    std::size_t count = 0;
};

enum class Storage { Ints, Reals, Texts };

/// Values of a batch, in memory of the node that made them, valid until that node is asked again.
struct Vec {
    Storage storage = Storage::Ints;
    const std::int32_t* ints = nullptr;
    const double* reals = nullptr;
    const std::int32_t* codes = nullptr; ///< into the plan's TextPool
    const std::uint8_t* nulls = nullptr; ///< 1 where Null; absent when no row is
};

/// Rows of a batch that hold, and those of which nothing is known.
struct Truth {
    std::array<std::uint64_t, kBatchWords> yes;
    std::array<std::uint64_t, kBatchWords> unknown;
    bool hasUnknown = false;
};

/// Memory of one node for one batch.
struct Buffer {
    std::array<std::int32_t, kBatchLimit> ints;
    std::array<double, kBatchLimit> reals;
    std::array<std::uint8_t, kBatchLimit> flags;
    std::array<std::uint8_t, kBatchLimit> nulls;
};

/// All texts that a statement meets or makes, each once.
using TextPool = Dictionary;

} // namespace sql
