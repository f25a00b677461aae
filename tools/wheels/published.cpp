#include "wheels/published.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "selection/wheel_proof.h"

namespace wheels {

double allowance(const selection::WheelProblem& problem, std::int64_t published) {
    if (problem.row == 6 && published <= 100)
        return 0;
    if (problem.row == 6 && problem.positions <= 18)
        return 2;
    if (problem.row == 7 && problem.positions <= 16)
        return 5;
    return 12;
}

double excess(std::int64_t rows, std::int64_t published) {
    return 100.0 * static_cast<double>(rows - published) / static_cast<double>(published);
}

Published knownSizes(const selection::WheelProblem& problem,
                     const std::map<selection::WheelProblem, Published>& published) {
    Published known;
    if (const auto found = published.find(problem); found != published.end())
        known = found->second;
    known.lower = std::max(known.lower, selection::fewestRows(problem));
    return known;
}

std::map<selection::WheelProblem, Published> readPublished(const std::filesystem::path& file) {
    std::map<selection::WheelProblem, Published> published;
    std::ifstream in(file);
    std::string line;
    for (std::getline(in, line); std::getline(in, line);) {
        std::istringstream words(line);
        selection::WheelProblem problem;
        Published sizes;
        std::string upper;
        words >> problem.positions >> problem.row >> problem.chosen >> problem.common >> sizes.lower >> upper;
        if (!words)
            continue;
        sizes.upper = upper == "-" ? 0 : std::stoll(upper);
        published[problem] = sizes;
    }
    return published;
}

} // namespace wheels
