#include "wheels/published.h"

#include <fstream>
#include <sstream>

namespace wheels {

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
