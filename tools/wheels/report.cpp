#include "wheels/report.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "selection/wheel_proof.h"

namespace wheels {

namespace {

using selection::WheelFamily;

std::string markOf(const Verdict& verdict) {
    if (verdict.rows == 0)
        return "left out";
    if (static_cast<std::int64_t>(verdict.rows) == verdict.lower)
        return "least possible";
    if (verdict.published == 0)
        return "";
    const std::int64_t difference = static_cast<std::int64_t>(verdict.rows) - verdict.published;
    if (difference <= 0)
        return difference == 0 ? "equal" : "**better** by " + std::to_string(-difference);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "+%lld (%.1f %%)%s", static_cast<long long>(difference), verdict.excess(),
                  verdict.isReached() ? "" : ", not reached");
    return text.data();
}

std::string sizeText(std::int64_t size) {
    return size == 0 ? "–" : std::to_string(size);
}

std::string guaranteeText(const Verdict& verdict) {
    const auto& [family, name, problem, bankers] = verdict.table;
    return "中" + std::to_string(problem.chosen + bankers) + "保" + std::to_string(problem.common + bankers);
}

/// How many tables stand where.
struct Tally {
    const char* what;
    bool (*counts)(const Verdict&);
};
constexpr Tally kTallies[] = {
    {"tables with rows", [](const Verdict& verdict) { return verdict.rows != 0; }},
    {"left out of the super family (more than 5,000 rows)", [](const Verdict& verdict) { return verdict.rows == 0; }},
    {"with as few rows as is possible at all",
     [](const Verdict& verdict) { return static_cast<std::int64_t>(verdict.rows) == verdict.lower; }},
    {"with a published size", [](const Verdict& verdict) { return verdict.isCompared(); }},
    {"of these better than published",
     [](const Verdict& verdict) { return verdict.isCompared() && verdict.excess() < 0; }},
    {"of these equal to it", [](const Verdict& verdict) { return verdict.isCompared() && verdict.excess() == 0; }},
    {"of these above it but within the allowance",
     [](const Verdict& verdict) { return verdict.isCompared() && verdict.excess() > 0 && verdict.isReached(); }},
    {"not reached", [](const Verdict& verdict) { return verdict.isCompared() && !verdict.isReached(); }},
};

Verdict verdictOn(const selection::WheelTable& table, const WheelStore& store,
                  const std::map<WheelProblem, Published>& published) {
    const Published known = knownSizes(table.problem, published);
    Verdict verdict{table, 0, known.lower, known.upper, 0};
    const Wheel* wheel = store.find(table.problem);
    if (!isShipped(table, wheel))
        return verdict;
    verdict.rows = wheel->rows.size();
    verdict.uncovered = selection::firstUncovered(table.problem, wheel->rows).value_or(0);
    return verdict;
}

} // namespace

bool Verdict::isCompared() const {
    return rows != 0 && published != 0;
}

bool Verdict::isReached() const {
    return excess() <= allowance(table.problem, published);
}

double Verdict::excess() const {
    return wheels::excess(static_cast<std::int64_t>(rows), published);
}

std::vector<Verdict> judge(const WheelStore& store, const std::map<WheelProblem, Published>& published) {
    std::vector<Verdict> verdicts;
    for (const selection::WheelTable& table : selection::wheelTables())
        verdicts.push_back(verdictOn(table, store, published));
    return verdicts;
}

void printVerdicts(std::ostream& out, const std::vector<Verdict>& verdicts) {
    for (const Verdict& verdict : verdicts) {
        const selection::WheelTable& table = verdict.table;
        std::array<char, 200> line{};
        std::snprintf(line.data(), line.size(), "%-12s %-7s %6zu rows, at least %5lld, published %5s  %s\n",
                      std::string(selection::wheelFamily(table.family).file).c_str(), table.name.c_str(),
                      verdict.rows, static_cast<long long>(verdict.lower), sizeText(verdict.published).c_str(),
                      verdict.proven() ? markOf(verdict).c_str() : "NOT PROVEN");
        out << line.data();
    }
}

void writeMarkdown(std::ostream& out, const std::vector<Verdict>& verdicts) {
    out << "\n| | tables |\n| --- | ---: |\n";
    for (const Tally& tally : kTallies) {
        int count = 0;
        for (const Verdict& verdict : verdicts)
            count += tally.counts(verdict) ? 1 : 0;
        out << "| " << tally.what << " | " << count << " |\n";
    }
    for (const selection::WheelFamilyInfo& family : selection::wheelFamilies()) {
        const bool bankers = family.family == WheelFamily::Banker;
        out << "\n### " << family.title << ": `" << family.file << "`\n\n| table |" << (bankers ? " D |" : "")
            << " N | | rows | at least | published | |\n| --- |" << (bankers ? " ---: |" : "")
            << " ---: | --- | ---: | ---: | ---: | --- |\n";
        for (const Verdict& verdict : verdicts) {
            if (verdict.table.family != family.family)
                continue;
            out << "| " << verdict.table.name << " | ";
            if (bankers)
                out << verdict.table.bankers << " | ";
            out << verdict.table.problem.positions << " | " << guaranteeText(verdict) << " | "
                << sizeText(static_cast<std::int64_t>(verdict.rows)) << " | " << verdict.lower << " | "
                << sizeText(verdict.published) << " | " << markOf(verdict) << " |\n";
        }
    }
}

} // namespace wheels
