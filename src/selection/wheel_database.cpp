#include "selection/wheel_database.h"

#include <algorithm>
#include <bit>

#include "selection/wheel_proof.h"

namespace selection {

namespace {

constexpr std::string_view kBetween = " ,\t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string column(int place) {
    return "fig" + std::to_string(place);
}

std::string createStatement(const WheelTable& table) {
    std::string statement = "CREATE TABLE [" + table.name + "] (";
    for (int place = 1; place <= wheelFamily(table.family).cells; ++place)
        statement += (place == 1 ? "[" : ", [") + column(place) + "] integer";
    return statement + ")";
}

/// The next line, without its end.
std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

/// All positions of a line; nothing when a word is no position or stands twice.
std::optional<PositionSet> setFromLine(std::string_view line) {
    PositionSet set = 0;
    while (true) {
        const std::size_t begin = line.find_first_not_of(kBetween);
        if (begin == std::string_view::npos)
            return set;
        line.remove_prefix(begin);
        int position = 0;
        for (; !line.empty() && kBetween.find(line.front()) == std::string_view::npos; line.remove_prefix(1)) {
            if (line.front() < '0' || line.front() > '9')
                return std::nullopt;
            position = position * 10 + (line.front() - '0');
            if (position > kMostPositions)
                return std::nullopt;
        }
        const PositionSet bit = position == 0 ? 0 : PositionSet{1} << (position - 1);
        if (bit == 0 || (set & bit) != 0)
            return std::nullopt;
        set |= bit;
    }
}

/// The drags of a row that has as many as the table wants, and all bankers.
std::optional<PositionSet> dragsOf(const WheelTable& table, PositionSet row) {
    const PositionSet drags = row & firstPositions(table.problem.positions);
    const PositionSet bankers = firstPositions(table.bankers) << table.problem.positions;
    if ((row & ~drags) != bankers || std::popcount(drags) != table.problem.row)
        return std::nullopt;
    return drags;
}

std::string joined(const std::vector<std::int32_t>& positions) {
    std::string text;
    for (const std::int32_t position : positions)
        text += (text.empty() ? "" : " ") + std::to_string(position);
    return text;
}

} // namespace

void writeWheel(sql::Database& database, const WheelTable& table, std::span<const PositionSet> rows) {
    sql::Transaction transaction(database);
    if (database.hasTable(table.name))
        database.execute("DROP TABLE [" + table.name + "]");
    database.execute(createStatement(table));
    const auto cells = static_cast<std::size_t>(wheelFamily(table.family).cells);
    std::vector<std::vector<std::int32_t>> columns(cells);
    for (const PositionSet row : rows) {
        const std::vector<std::int32_t> values = wheelCells(table, row);
        for (std::size_t cell = 0; cell < cells; ++cell)
            columns[cell].push_back(values[cell]);
    }
    sql::RowBlock block;
    for (std::size_t cell = 0; cell < cells; ++cell) {
        block.columns.push_back(column(static_cast<int>(cell) + 1));
        block.values.emplace_back(columns[cell]);
    }
    database.appendRows(table.name, block);
    transaction.commit();
}

std::string WheelRefusal::message(const WheelTable& table) const {
    if (tooMany)
        return "table " + table.name + " has more rows than " + std::to_string(kMostWheelRows);
    if (line != 0)
        return "line " + std::to_string(line) + " is no row of table " + table.name + ": " + text;
    return "table " + table.name + " does not hold what it claims: of the positions " + joined(uncovered) +
           " no row has " + std::to_string(table.problem.common + table.bankers);
}

WheelText readWheelText(const WheelTable& table, std::string_view text) {
    WheelText result;
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = takeLine(text);
        const std::size_t begin = line.find_first_not_of(kBetween);
        if (begin == std::string_view::npos || line[begin] == '#')
            continue;
        const std::optional<PositionSet> row = setFromLine(line);
        const std::optional<PositionSet> drags = row ? dragsOf(table, *row) : std::nullopt;
        if (!drags || result.rows.size() == kMostWheelRows) {
            result.refusal = {number, std::string(line), {}, drags.has_value()};
            return result;
        }
        result.rows.push_back(*drags);
    }
    return result;
}

WheelProof proveWheel(const WheelTable& table, std::string_view text, workspace::Progress* progress) {
    WheelText read = readWheelText(table, text);
    WheelProof proof{std::move(read.rows), std::move(read.refusal)};
    if (proof.refusal)
        return proof;
    const auto missed = firstUncovered(table.problem, proof.rows, [&](double share) {
        proof.cancelled = progress && !progress->advance(share);
        return !proof.cancelled;
    });
    if (missed)
        proof.refusal = WheelRefusal{0, {}, wheelCells(table, *missed)};
    return proof;
}

WheelMeasure measureWheel(std::string_view text) {
    WheelMeasure measure;
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const std::size_t begin = line.find_first_not_of(kBetween);
        if (begin == std::string_view::npos || line[begin] == '#')
            continue;
        const PositionSet row = setFromLine(line).value_or(0);
        if (measure.cells == 0)
            measure.cells = std::popcount(row);
        measure.largest = std::max(measure.largest, static_cast<int>(std::bit_width(row)));
    }
    return measure;
}

std::optional<WheelRefusal> importWheel(sql::Database& database, const WheelTable& table, std::string_view text) {
    WheelProof proof = proveWheel(table, text, nullptr);
    if (!proof.refusal)
        writeWheel(database, table, proof.rows);
    return std::move(proof.refusal);
}

} // namespace selection
