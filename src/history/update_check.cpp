#include "history/update_check.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "history/draw_tables.h"
#include "history/history.h"

namespace history {

namespace {

enum class Kind { Whole, Short, Bit, Red, Blue, Share };

struct Column {
    std::string name;
    Kind kind;
};

struct Limits {
    std::int64_t least;
    std::int64_t most;
};

Limits limitsOf(Kind kind) {
    switch (kind) {
    case Kind::Short:
        return {std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()};
    case Kind::Bit:
        return {-1, 0};
    case Kind::Red:
        return {1, kMostReds};
    case Kind::Blue:
        return {1, kMostBlues};
    default:
        return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
    }
}

bool isFit(const sql::Value& value, Kind kind) {
    if (kind == Kind::Share)
        return std::holds_alternative<double>(value) || std::holds_alternative<std::int64_t>(value);
    const auto* number = std::get_if<std::int64_t>(&value);
    const auto [least, most] = limitsOf(kind);
    return number && *number >= least && *number <= most;
}

std::vector<Column> figNeeds() {
    std::vector<Column> columns{{"Idx", Kind::Short}, {"fig0", Kind::Whole}};
    for (int place = 1; place <= kRedsDrawn; ++place)
        columns.push_back({"fig" + std::to_string(place), Kind::Red});
    columns.push_back({"fig7", Kind::Blue});
    for (const DerivedColumn& column : kDerivedColumns)
        columns.push_back({std::string(column.name), column.bit ? Kind::Bit : Kind::Short});
    return columns;
}

std::vector<Column> omissionNeeds(int numbers) {
    std::vector<Column> columns{{"Qihao", Kind::Whole}};
    for (int number = 1; number <= numbers; ++number)
        columns.push_back({"ylqs" + std::to_string(number), Kind::Short});
    return columns;
}

std::vector<Column> shareNeeds() {
    return {{"Number", Kind::Short}, {"gailv", Kind::Share}, {"Glnum", Kind::Short}};
}

sql::Rows readTable(sql::Database& database, const std::string& table, const std::vector<Column>& columns) {
    std::string select;
    for (const Column& column : columns)
        select += (select.empty() ? "SELECT [" : ",[") + column.name + "]";
    return database.query(select + " FROM [" + table + "]");
}

/// Reads every value of a table. \param records  how many records it has to have; nothing: any number
sql::Rows checkTable(sql::Database& database, const std::string& table, const std::vector<Column>& columns,
                     std::optional<std::int64_t> records) {
    const sql::Rows rows = readTable(database, table, columns);
    if (records && rows.count() != *records)
        throw UnfitDatabase(table + " has " + std::to_string(rows.count()) + " records");
    for (std::int64_t row = 0; row < rows.count(); ++row)
        for (std::size_t column = 0; column < columns.size(); ++column)
            if (!isFit(rows.at(row, static_cast<int>(column)), columns[column].kind))
                throw UnfitDatabase(table + "." + columns[column].name + " of record " + std::to_string(row + 1));
    return rows;
}

std::vector<Draw> drawsOf(const sql::Rows& fig) {
    std::vector<Draw> draws(static_cast<std::size_t>(fig.count()));
    for (std::int64_t row = 0; row < fig.count(); ++row) {
        if (fig.integerAt(row, 0) != row + 1)
            throw UnfitDatabase("fig.Idx of record " + std::to_string(row + 1));
        Draw& draw = draws[static_cast<std::size_t>(row)];
        for (std::size_t place = 0; place < draw.size(); ++place)
            draw[place] = static_cast<std::int32_t>(fig.integerAt(row, static_cast<int>(place) + 1));
    }
    return draws;
}

} // namespace

std::vector<Draw> checkedDraws(sql::Engine& engine, const std::filesystem::path& file) {
    const std::unique_ptr<sql::Database> database = engine.open(file);
    const sql::Rows fig = checkTable(*database, "fig", figNeeds(), std::nullopt);
    if (fig.count() == 0 || fig.count() > kMostDraws)
        throw UnfitDatabase("fig has " + std::to_string(fig.count()) + " records");
    checkTable(*database, "Ylqs", omissionNeeds(kMostReds), fig.count());
    checkTable(*database, "YlqsB", omissionNeeds(kMostBlues), fig.count());
    checkTable(*database, "Gailv", shareNeeds(), kMostReds);
    checkTable(*database, "GailvB", shareNeeds(), kMostBlues);
    return drawsOf(fig);
}

} // namespace history
