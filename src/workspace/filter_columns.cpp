#include "workspace/filter_columns.h"

#include <algorithm>

#include "sql/database.h"
#include "sql/lexer.h"

namespace workspace {

namespace {

struct Column {
    std::string name;
    std::string_view type;
};
using Columns = std::vector<Column>;

/// What a setting and a template step have in common.
void addSettingColumns(Columns& columns, FilterFamily family) {
    columns.push_back({"opt36", "Bit"});
    const auto addBoxes = [&](const auto& boxes) {
        for (const BoxColumn& box : boxes)
            if (const std::string_view name = nameIn(family, box); !name.empty())
                columns.push_back({std::string(name), "string"});
    };
    addBoxes(kExtremeColumns);
    addBoxes(kRangeColumns);
    for (const std::string_view flag : kPositionFlags)
        columns.push_back({std::string(flag), "Bit"});
    columns.push_back({"RCperct", "string"});
    columns.push_back({"RCcount", "string"});
}

Columns canshu(FilterFamily family) {
    Columns columns{{"Name", "string"}};
    addSettingColumns(columns, family);
    return columns;
}

Columns moban(FilterFamily family) {
    Columns columns{{"Idx", "integer"}, {"intCmdnb", "integer"}};
    addSettingColumns(columns, family);
    for (int tick = 1; tick <= kStoredTicks; ++tick)
        columns.push_back({"chk" + std::to_string(tick), "integer"});
    columns.push_back({"ljh", "Bit"});
    columns.push_back({"baoliu", "Bit"});
    columns.push_back({"sknum", "integer"});
    columns.push_back({"skzu", "integer"});
    for (int number = 0; number < kStepNumbers; ++number)
        columns.push_back({"sk" + std::to_string(number), "integer"});
    return columns;
}

std::string definition(const Column& column) {
    return "[" + column.name + "] " + std::string(column.type);
}

std::string listOf(const Columns& columns) {
    std::string list;
    for (const Column& column : columns)
        list += (list.empty() ? "" : ",") + definition(column);
    return list;
}

void complete(sql::Database& database, const std::string& table, const Columns& wanted) {
    if (!database.hasTable(table)) {
        sql::passOver(database, "CREATE TABLE [" + table + "](" + listOf(wanted) + ")");
        return;
    }
    const std::vector<std::string> there = database.columnNames(table);
    for (const Column& column : wanted)
        if (std::ranges::none_of(there, [&](const std::string& name) { return sql::sameName(name, column.name); }))
            sql::passOver(database, "ALTER TABLE [" + table + "] ADD COLUMN " + definition(column));
}

} // namespace

std::string canshuColumns(FilterFamily family) {
    return listOf(canshu(family));
}

std::string mobanColumns(FilterFamily family) {
    return listOf(moban(family));
}

void completeFilterTables(sql::Database& database, FilterFamily family) {
    complete(database, "Canshu", canshu(family));
    complete(database, "moban", moban(family));
}

} // namespace workspace
