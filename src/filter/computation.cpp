#include "filter/computation.h"

#include <vector>

#include "base/number_text.h"
#include "filter/kernels.h"
#include "filter/quiet.h"

namespace filter {
namespace {

Positions tickedPositions(const Workbench& bench, const RunSettings& settings) {
    Positions positions;
    for (int position = 1; position <= bench.reds; ++position)
        if (settings.ticked[static_cast<std::size_t>(position)])
            positions.push_back(position - 1);
    return positions;
}

/// The reds of the last draw, each between blanks; no draw yet reads as zeros.
std::string lastReds(const history::History& history) {
    std::string text = " ";
    for (std::size_t slot = 1; slot <= history::kRedsDrawn; ++slot)
        text += std::to_string(history.Lshm[static_cast<std::size_t>(history.Lsnum)][slot]) + " ";
    return text;
}

/// "w3" or "w3w4" as 1 or 0. \return empty when the name is neither
std::string weightText(std::string_view name, const RunSettings& settings) {
    bool all = true;
    for (std::size_t at = 0; at < name.size(); at += 2) {
        if (name[at] != 'w' || at + 1 >= name.size() || name[at + 1] < '1' || name[at + 1] > '7')
            return {};
        all = all && settings.ticked[static_cast<std::size_t>(name[at + 1] - '0')];
    }
    return all ? "1" : "0";
}

std::string valueOf(std::string_view name, const Workbench& bench, const RunSettings& settings) {
    if (name == "table")
        return std::string(bench.table);
    if (name == "h")
        return base::numberText(bench.Bitnum / 2.0);
    if (name == "last")
        return lastReds(bench.history);
    return weightText(name, settings);
}

std::string update(const Workbench& bench) {
    return "UPDATE [" + std::string(bench.table) + "] SET [canshu]=";
}

std::string fig(int position) {
    return "[fig" + std::to_string(position) + "]";
}

void runKernel(const Workbench& bench, const sql::RowKernel& kernel) {
    std::vector<std::string> reds;
    for (int position = 1; position <= bench.reds; ++position)
        reds.push_back("fig" + std::to_string(position));
    quietly([&] { bench.database.computeColumn(bench.table, reds, "canshu", kernel); });
}

/// The larger of two neighbouring gaps of positions c < b < a.
std::string largerGap(int a, int b, int c) {
    const std::string upper = fig(a) + "-" + fig(b);
    const std::string lower = fig(b) + "-" + fig(c);
    return "IIf(" + upper + ">" + lower + "," + upper + "," + lower + ")";
}

void computePickedNumbers(const Workbench& bench, const RunSettings& settings) {
    sql::passOver(bench.database, update(bench) + "0");
    for (int position = 1; position <= bench.reds; ++position)
        sql::passOver(bench.database, update(bench) + "[canshu] + 1 WHERE [unslt]=false AND \" " +
                                          settings.pickedNumbers + " \" LIKE \"* \"&" + fig(position) + "&\" *\"");
}

} // namespace

std::string fillTemplate(std::string_view statement, const Workbench& bench, const RunSettings& settings) {
    std::string filled;
    while (!statement.empty()) {
        const std::size_t open = statement.find('{');
        filled += statement.substr(0, open);
        if (open == std::string_view::npos)
            break;
        const std::size_t close = statement.find('}', open);
        filled += valueOf(statement.substr(open + 1, close - open - 1), bench, settings);
        statement.remove_prefix(close + 1);
    }
    return filled;
}

void computeLargestGap(const Workbench& bench, const RunSettings& settings) {
    const Positions ticked = tickedPositions(bench, settings);
    const int count = static_cast<int>(ticked.size());
    // Places count from 1; a place without a tick is 0, and there is no fig0.
    const auto position = [&](int place) {
        return place >= 1 && place <= count ? ticked[static_cast<std::size_t>(place - 1)] + 1 : 0;
    };
    if (count == 2)
        sql::passOver(bench.database, update(bench) + fig(position(2)) + "-" + fig(position(1)) + ")");
    if (count < 3)
        return;
    sql::passOver(bench.database,
                  update(bench) + largerGap(position(count), position(count - 1), position(count - 2)));
    for (int place = count; count > 3 && place >= 1; --place) {
        const std::string gap = fig(position(place + 1)) + "-" + fig(position(place));
        sql::passOver(bench.database, update(bench) + "IIf([canshu]>" + gap + ",[canshu]," + gap + ")");
    }
}

void computeSpan(const Workbench& bench, const RunSettings& settings) {
    const Positions ticked = tickedPositions(bench, settings);
    if (!ticked.empty())
        sql::passOver(bench.database,
                      update(bench) + "(" + fig(ticked.back() + 1) + "-" + fig(ticked.front() + 1) + ")");
}

void computeInterval(const Workbench& bench, const RunSettings& settings) {
    if (settings.mode == Mode::List) {
        computePickedNumbers(bench, settings);
        return;
    }
    const std::string above = base::numberText(base::val(settings.intervalAbove));
    const std::string to = base::numberText(base::val(settings.intervalTo));
    std::string sum;
    for (int position = 1; position <= bench.reds; ++position) {
        sum += position == 1 ? "(" : position == 2 ? " +  (" : " + (";
        sum += fig(position) + ">" + above + "and " + fig(position) + "<=" + to + ")* {w" + std::to_string(position) +
               "}";
    }
    sql::passOver(bench.database, update(bench) + "-(" + fillTemplate(sum, bench, settings) + ")");
}

void computeAcValue(const Workbench& bench, const RunSettings& settings) {
    runKernel(bench, acValueKernel(tickedPositions(bench, settings)));
}

void computeSameLastDigits(const Workbench& bench, const RunSettings& settings) {
    runKernel(bench, sameLastDigitsKernel(tickedPositions(bench, settings)));
}

void computeOmissionSum(const Workbench& bench, const RunSettings& settings) {
    runKernel(bench, omissionSumKernel(tickedPositions(bench, settings), bench.history));
}

void computeOmissionRange(const Workbench& bench, const RunSettings& settings) {
    runKernel(bench, omissionRangeKernel(tickedPositions(bench, settings), bench.history));
}

} // namespace filter
