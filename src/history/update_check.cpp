#include "history/update_check.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "history/draw_tables.h"
#include "history/history.h"
#include "history/update_build.h"
#include "sql/foreign_file.h"

namespace history {

namespace {

struct Limits {
    std::int32_t least;
    std::int32_t most;
};

struct Needed {
    std::string name;
    Limits limits;
};

constexpr Limits kShort{std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()};
constexpr Limits kCount{0, std::numeric_limits<std::int16_t>::max()};
constexpr Limits kTruth{-1, 0};
constexpr Limits kIssue{1, 9'999'999};
constexpr Limits kRow{1, kMostDraws};
constexpr std::int32_t kFirstLongIssue = 1'000'000; // of seven digits, yyyynnn: the first four are the year
constexpr int kIssuesAYear = 1000;
constexpr double kMostShare = 100; // percent

std::vector<Needed> figNeeds() {
    std::vector<Needed> columns{{"Idx", kRow}, {"fig0", kIssue}};
    for (int place = 1; place <= kRedsDrawn; ++place)
        columns.push_back({"fig" + std::to_string(place), {1, kMostReds}});
    columns.push_back({"fig7", {1, kMostBlues}});
    for (const DerivedColumn& column : kDerivedColumns)
        columns.push_back({std::string(column.name), column.bit ? kTruth : kShort});
    return columns;
}

std::vector<Needed> omissionNeeds(int numbers) {
    std::vector<Needed> columns{{"Qihao", kIssue}};
    for (int number = 1; number <= numbers; ++number)
        columns.push_back({"ylqs" + std::to_string(number), kCount});
    return columns;
}

[[noreturn]] void refuse(const std::string& table, std::int64_t row, const std::string& column) {
    throw UnfitDatabase("数据表" + table + "第" + std::to_string(row + 1) + "行的" + column + "不对");
}

/// Tables and columns are those of the template; tables that a history does without may be missing.
void checkTables(sql::Engine& engine, const std::filesystem::path& file) {
    const auto known = sql::plainTables(NewHistory(engine).file());
    const auto found = sql::plainTables(file);
    for (const auto& [table, columns] : found)
        if (const auto own = known.find(table); own == known.end() || own->second != columns)
            throw UnfitDatabase("数据表" + table + "不是历史号码数据库的数据表");
    for (const char* table : {"fig", "ylqs", "ylqsb", "gailv", "gailvb"})
        if (!found.contains(table))
            throw UnfitDatabase(std::string("缺少数据表") + table);
}

void checkCount(sql::Database& database, const std::string& table, std::int64_t least, std::int64_t most) {
    const std::int64_t records = database.rowCount(table);
    if (records < least || records > most)
        throw UnfitDatabase("数据表" + table + "有" + std::to_string(records) + "行");
}

TableRows readTable(sql::Database& database, const std::string& table, const std::vector<Needed>& needs) {
    TableRows read;
    for (const Needed& need : needs)
        read.columns.push_back(need.name);
    read.values.resize(needs.size());
    const sql::Rows rows = database.query(selectColumns(read.columns, table.c_str()));
    for (std::int64_t row = 0; row < rows.count(); ++row)
        for (std::size_t column = 0; column < needs.size(); ++column) {
            const sql::Value value = rows.at(row, static_cast<int>(column));
            const auto* number = std::get_if<std::int64_t>(&value);
            if (!number || *number < needs[column].limits.least || *number > needs[column].limits.most)
                refuse(table, row, needs[column].name);
            read.values[column].push_back(static_cast<std::int32_t>(*number));
        }
    return read;
}

std::vector<Share> readShares(sql::Database& database, const std::string& table, int numbers) {
    checkCount(database, table, numbers, numbers);
    const sql::Rows rows = database.query("SELECT [Number],[gailv],[Glnum] FROM [" + table + "]");
    std::vector<Share> shares;
    for (std::int64_t row = 0; row < rows.count(); ++row) {
        const sql::Value share = rows.at(row, 1);
        const sql::Value hits = rows.at(row, 2);
        const bool isShare = !sql::isNull(share) && !std::holds_alternative<std::string>(share) &&
                             sql::toReal(share) >= 0 && sql::toReal(share) <= kMostShare;
        const auto* count = std::get_if<std::int64_t>(&hits);
        if (rows.at(row, 0) != sql::Value(row + 1))
            refuse(table, row, "Number");
        if (!isShare)
            refuse(table, row, "gailv");
        if (!count || *count < kCount.least || *count > kCount.most)
            refuse(table, row, "Glnum");
        shares.push_back({sql::toReal(share), static_cast<std::int32_t>(*count)});
    }
    return shares;
}

std::vector<Draw> drawsOf(const TableRows& fig) {
    std::vector<Draw> draws(fig.values[0].size());
    for (std::size_t row = 0; row < draws.size(); ++row) {
        if (fig.values[0][row] != static_cast<std::int32_t>(row) + 1)
            refuse("fig", static_cast<std::int64_t>(row), "Idx");
        for (std::size_t place = 0; place < draws[row].size(); ++place)
            draws[row][place] = fig.values[place + 1][row];
    }
    return draws;
}

void checkDraws(const std::vector<Draw>& draws, const QDate& today) {
    for (std::size_t row = 0; row < draws.size(); ++row) {
        const auto place = static_cast<std::int64_t>(row);
        if (row > 0 && draws[row][0] <= draws[row - 1][0])
            refuse("fig", place, "fig0");
        const auto reds = std::span(draws[row]).subspan(1, kRedsDrawn);
        if (std::adjacent_find(reds.begin(), reds.end(), std::greater_equal()) != reds.end())
            refuse("fig", place, "fig1~fig6");
    }
    const std::int32_t last = draws.back()[0];
    if (last >= kFirstLongIssue && last / kIssuesAYear > today.year() + 1)
        throw UnfitDatabase("最后一期的期号" + std::to_string(last) + "还没有到");
}

} // namespace

void TableRows::appendTo(sql::Database& database, const std::string& table) const {
    database.appendRows(table, {columns, {values.begin(), values.end()}});
}

bool TableRows::isStartOf(const TableRows& longer) const {
    return columns == longer.columns &&
           std::equal(values.begin(), values.end(), longer.values.begin(), [](const auto& own, const auto& other) {
               return own.size() <= other.size() && std::equal(own.begin(), own.end(), other.begin());
           });
}

HistoryTables checkedHistory(sql::Engine& engine, const std::filesystem::path& file, const QDate& today) {
    checkTables(engine, file);
    const std::unique_ptr<sql::Database> database = engine.open(file);
    checkCount(*database, "fig", 1, kMostDraws);
    HistoryTables history;
    history.fig = readTable(*database, "fig", figNeeds());
    history.draws = drawsOf(history.fig);
    checkDraws(history.draws, today);
    const auto records = static_cast<std::int64_t>(history.draws.size());
    checkCount(*database, "Ylqs", records, records);
    checkCount(*database, "YlqsB", records, records);
    history.ylqs = readTable(*database, "Ylqs", omissionNeeds(kMostReds));
    history.ylqsB = readTable(*database, "YlqsB", omissionNeeds(kMostBlues));
    history.gailv = readShares(*database, "Gailv", kMostReds);
    history.gailvB = readShares(*database, "GailvB", kMostBlues);
    return history;
}

std::vector<Draw> checkedDraws(sql::Engine& engine, const std::filesystem::path& file, const QDate& today) {
    return checkedHistory(engine, file, today).draws;
}

} // namespace history
