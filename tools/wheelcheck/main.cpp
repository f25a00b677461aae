// wheelcheck: proves every wheel of data/wheels by exhaustion and sets its size beside what is known.
//
//   wheelcheck FOLDER [--published FILE] [--write docs/wheels.md]
//
// Prints a line a table; with --write it also renews what follows the line <!-- sizes --> in that page. Ends with 1
// when a table is not proven, or when one that should be there is missing.
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "wheels/report.h"

namespace {

using namespace wheels;

constexpr const char* kMarker = "<!-- sizes -->";

void renew(const std::string& page, const std::vector<Verdict>& verdicts) {
    std::ostringstream text;
    text << std::ifstream(page).rdbuf();
    const std::size_t marker = text.str().find(kMarker);
    if (marker == std::string::npos)
        throw std::runtime_error(page + " has no line " + kMarker);
    std::ofstream out(page);
    out << text.str().substr(0, marker) << kMarker << '\n';
    writeMarkdown(out, verdicts);
}

/// Proven, and there: a table may be missing only from the super family, where it is too long.
bool isGood(const Verdict& verdict) {
    return verdict.proven() && (verdict.rows != 0 || verdict.table.family == selection::WheelFamily::Super);
}

int check(int count, char** words) {
    if (count < 2)
        throw std::runtime_error("wheelcheck FOLDER [--published FILE] [--write PAGE]");
    std::string published, page;
    for (int place = 2; place + 1 < count; place += 2)
        (std::strcmp(words[place], "--write") == 0 ? page : published) = words[place + 1];
    const std::vector<Verdict> verdicts = judge(WheelStore(words[1]), readPublished(published));
    printVerdicts(std::cout, verdicts);
    if (!page.empty())
        renew(page, verdicts);
    int bad = 0;
    for (const Verdict& verdict : verdicts)
        bad += isGood(verdict) ? 0 : 1;
    std::cout << verdicts.size() << " tables, " << bad << " not proven or missing\n";
    return bad == 0 ? 0 : 1;
}

} // namespace

int main(int count, char** words) {
    try {
        return check(count, words);
    } catch (const std::exception& error) {
        std::cerr << "wheelcheck: " << error.what() << '\n';
        return 2;
    }
}
