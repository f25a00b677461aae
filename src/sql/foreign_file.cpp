#include "sql/foreign_file.h"

#include "sql/error.h"
#include "sql/lexer.h"
#include "sql/sqlite_file.h"

namespace sql {

namespace {

enum SchemaField { kType, kName, kStatement };
enum ColumnField { kColumnName = 1, kColumnType = 2, kColumnHidden = 6 };

[[noreturn]] void refuse(const std::string& what) {
    throw SqlError(error::kNotADatabase, "数据库文件含有数据表以外的内容 " + what);
}

std::string quoted(const std::string& name) {
    std::string text = "\"";
    for (const char c : name)
        text += c == '"' ? "\"\"" : std::string(1, c);
    return text + '"';
}

ForeignColumns columnsOf(const SqliteFile& file, const std::string& table) {
    ForeignColumns columns;
    SqliteQuery fields(file, "PRAGMA table_xinfo(" + quoted(table) + ")");
    while (fields.step()) {
        const std::string name = toText(fields.column(kColumnName));
        if (fields.integer(kColumnHidden) != 0)
            refuse(table + "." + name);
        columns[foldedName(name)] = foldedName(toText(fields.column(kColumnType)));
    }
    return columns;
}

} // namespace

std::map<std::string, ForeignColumns> plainTables(const std::filesystem::path& path) {
    const SqliteFile file(path, true);
    std::map<std::string, ForeignColumns> tables;
    SqliteQuery schema(file, "SELECT type, name, sql FROM sqlite_schema");
    while (schema.step()) {
        const std::string name = toText(schema.column(kName));
        const std::string type = toText(schema.column(kType));
        const bool isAutomatic = type == "index" && isNull(schema.column(kStatement));
        if (isAutomatic)
            continue;
        if (type != "table" || !foldedName(toText(schema.column(kStatement))).starts_with("create table"))
            refuse(name);
        if (!tables.emplace(foldedName(name), columnsOf(file, name)).second)
            refuse(name);
    }
    return tables;
}

} // namespace sql
