#include "wheels/published.h"

#include <fstream>
#include <sstream>

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
