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

/// What is known of a problem: the better of the published lower bound and fewestRows(), and the published size.
Published knownSizes(const selection::WheelProblem& problem,
                     const std::map<selection::WheelProblem, Published>& published);

/// Rows above a published size, in percent; below 0 for fewer.
double excess(std::int64_t rows, std::int64_t published);

/// How far above a published size we content ourselves for now, in percent: not at all for rows of six and at most
/// 100 of them, 2 up to 18 positions; 5 for rows of seven up to 16 positions; 12 for everything larger.
double allowance(const selection::WheelProblem& problem, std::int64_t published);

} // namespace wheels
