// The table of published wheel sizes, a tab-separated file with a heading:
// v, k, p, t (N, row, x, y), lower bound, best published size, source, how sure. A size that nobody published is "-".
#pragma once

#include <filesystem>
#include <map>

#include "selection/wheel_tables.h"

namespace wheels {

struct Published {
    std::int64_t lower = 0; ///< no wheel has fewer rows
    std::int64_t upper = 0; ///< 0: none published
};

/// Empty when there is no such file.
std::map<selection::WheelProblem, Published> readPublished(const std::filesystem::path& file);

} // namespace wheels
