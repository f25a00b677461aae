#include "sql/sqlite_executor.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "sql/lexer.h"
#include "sql/scalar.h"
#include "sql/sqlite_savepoint.h"
#include "sql/sqlite_text.h"

namespace sql {

namespace {

/// Names that the column store keeps its own data under are not tables of anybody.
bool isInternal(const std::string& table) {
    const std::string name = foldedName(table);
    return name.starts_with("column_store_") || name.starts_with("sqlite_");
}

/// Rows that are kept whole: distinct ones and aggregates.
class KeptRows final : public Rows::Source {
  public:
    KeptRows(const SqliteFile& file, const std::string& statement, std::vector<std::string> columns)
        : m_columns(std::move(columns)) {
        SqliteQuery query(file, statement);
        while (query.step())
            for (int column = 0; column < static_cast<int>(m_columns.size()); ++column)
                m_values.push_back(query.column(column));
    }

    std::int64_t count() const override { return static_cast<std::int64_t>(m_values.size() / m_columns.size()); }
    const std::vector<std::string>& columns() const override { return m_columns; }
    Value at(std::int64_t row, int column) const override {
        return m_values[static_cast<std::size_t>(row) * m_columns.size() + static_cast<std::size_t>(column)];
    }

  private:
    std::vector<std::string> m_columns;
    std::vector<Value> m_values;
};

/// Rows by their places in the table; one row at a time is read and kept.
class PlacedRows final : public Rows::Source {
  public:
    PlacedRows(std::shared_ptr<SqliteFile> file, const std::string& places, std::string oneRow,
               std::vector<std::string> columns)
        : m_file(std::move(file)), m_oneRow(std::move(oneRow)), m_columns(std::move(columns)) {
        SqliteQuery query(*m_file, places);
        const int last = query.columnCount() - 1;
        while (query.step())
            m_places.push_back(query.integer(last));
    }

    std::int64_t count() const override { return static_cast<std::int64_t>(m_places.size()); }
    const std::vector<std::string>& columns() const override { return m_columns; }

    /// Null when the row, or its whole table, is gone.
    Value at(std::int64_t row, int column) const override {
        try {
            SqliteQuery& query = standOn(row);
            return m_found ? query.column(column) : Value();
        } catch (const SqlError&) {
            return {};
        }
    }

    /// Forgets the row that is kept: it may have changed.
    void refresh() { m_row = -1; }
    std::vector<std::int64_t>& places() { return m_places; }

  private:
    SqliteQuery& standOn(std::int64_t row) const {
        if (!m_query)
            m_query = std::make_unique<SqliteQuery>(*m_file, m_oneRow);
        if (m_row != row) {
            m_query->reset();
            m_query->bind(0, m_places[static_cast<std::size_t>(row)]);
            m_found = m_query->step();
            m_row = row;
        }
        return *m_query;
    }

    std::shared_ptr<SqliteFile> m_file;
    std::string m_oneRow;
    std::vector<std::string> m_columns;
    std::vector<std::int64_t> m_places;
    mutable std::unique_ptr<SqliteQuery> m_query;
    mutable std::int64_t m_row = -1;
    mutable bool m_found = false;
};

std::vector<std::string> namesOf(const TableShape& shape) {
    std::vector<std::string> names;
    for (const ColumnDef& column : shape.columns)
        names.push_back(column.name);
    return names;
}

std::unique_ptr<PlacedRows> tableRows(const std::shared_ptr<SqliteFile>& file, const TableShape& shape) {
    const std::string table = sqliteName(shape.name);
    return std::make_unique<PlacedRows>(file, "SELECT rowid FROM " + table,
                                        "SELECT * FROM " + table + " WHERE rowid = ?1", namesOf(shape));
}

/// A record set over a whole table.
class TableBackend final : public Recordset::Backend {
  public:
    TableBackend(std::shared_ptr<SqliteFile> file, TableShape shape)
        : m_file(std::move(file)), m_shape(std::move(shape)), m_rows(tableRows(m_file, m_shape)) {}

    std::int64_t count() const override { return m_rows->count(); }
    const std::vector<std::string>& columns() const override { return m_rows->columns(); }
    Value at(std::int64_t row, int column) const override { return m_rows->at(row, column); }

    void change(std::int64_t row, const std::vector<std::pair<int, Value>>& fields) override {
        if (fields.empty())
            return;
        std::string set;
        for (const auto& field : fields)
            set += (set.empty() ? "" : ", ") + name(field.first) + " = ?";
        m_rows->refresh();
        const std::string text = "UPDATE " + sqliteName(m_shape.name) + " SET " + set + " WHERE rowid = ?";
        if (!m_update || text != m_updateText)
            m_update = std::make_unique<SqliteQuery>(*m_file, text);
        m_updateText = text;
        bindFields(*m_update, fields);
        m_update->bind(static_cast<int>(fields.size()), m_rows->places()[static_cast<std::size_t>(row)]);
        m_update->run();
    }

    void append(const std::vector<std::pair<int, Value>>& fields) override {
        std::string names;
        std::string marks;
        for (const auto& field : fields) {
            names += (names.empty() ? "" : ", ") + name(field.first);
            marks += marks.empty() ? "?" : ", ?";
        }
        const std::string text = "INSERT INTO " + sqliteName(m_shape.name) +
                                 (fields.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + marks + ")") +
                                 " RETURNING rowid";
        if (!m_insert || text != m_insertText)
            m_insert = std::make_unique<SqliteQuery>(*m_file, text);
        m_insertText = text;
        bindFields(*m_insert, fields);
        m_insert->step();
        m_rows->places().push_back(m_insert->integer(0));
        m_insert->run();
    }

    void remove(std::int64_t row) override {
        SqliteQuery query(*m_file, "DELETE FROM " + sqliteName(m_shape.name) + " WHERE rowid = ?");
        query.bind(0, m_rows->places()[static_cast<std::size_t>(row)]);
        query.run();
        m_rows->places().erase(m_rows->places().begin() + row);
        m_rows->refresh();
    }

  private:
    std::string name(int field) const { return sqliteName(m_shape.columns[static_cast<std::size_t>(field)].name); }

    void bindFields(SqliteQuery& query, const std::vector<std::pair<int, Value>>& fields) const {
        for (std::size_t place = 0; place < fields.size(); ++place) {
            const ColumnType type = m_shape.columns[static_cast<std::size_t>(fields[place].first)].type;
            query.bind(static_cast<int>(place), fieldValue(fields[place].second, type));
        }
    }

    /// Text that is no number leaves a number field empty.
    static Value fieldValue(const Value& value, ColumnType type) {
        if (std::holds_alternative<std::string>(value) && type != ColumnType::Text)
            return storedValue(numberOrNull(std::get<std::string>(value)), type);
        return storedValue(value, type);
    }

    static Value numberOrNull(const std::string& text) {
        const std::size_t first = text.find_first_not_of(" \t\r\n");
        if (first == std::string::npos)
            return {};
        const char* end = text.data() + text.size();
        double number = 0;
        const auto [stop, status] = std::from_chars(text.data() + first + (text[first] == '+' ? 1 : 0), end, number);
        return status != std::errc() || stop != end || !std::isfinite(number) ? Value() : Value(number);
    }

    std::shared_ptr<SqliteFile> m_file;
    TableShape m_shape;
    std::unique_ptr<PlacedRows> m_rows;
    std::string m_updateText;
    std::string m_insertText;
    std::unique_ptr<SqliteQuery> m_update;
    std::unique_ptr<SqliteQuery> m_insert;
};

bool keepsPlaces(const Select& select) {
    return !select.distinct && std::none_of(select.items.begin(), select.items.end(), [](const SelectItem& item) {
        return item.expr && hasAggregate(*item.expr);
    });
}

} // namespace

bool SqliteExecutor::hasTable(const std::string& table) const {
    if (isInternal(table))
        return false;
    SqliteQuery query(*m_file, "SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = ?1 COLLATE NOCASE");
    query.bind(0, table);
    return query.step();
}

TableShape SqliteExecutor::shape(const std::string& table) const {
    if (!hasTable(table))
        throw SqlError(error::kTableNotFound, "找不到表 " + table);
    TableShape shape{table, {}};
    SqliteQuery query(*m_file, "SELECT name, type FROM pragma_table_info(?1)");
    query.bind(0, table);
    while (query.step())
        shape.columns.push_back({toText(query.column(0)), columnTypeOf(toText(query.column(1)))});
    return shape;
}

std::int64_t SqliteExecutor::rowCount(const std::string& table) const {
    SqliteQuery query(*m_file, "SELECT count(*) FROM " + sqliteName(shape(table).name));
    query.step();
    return query.integer(0);
}

void SqliteExecutor::requireNew(const std::string& table) const {
    if (isInternal(table))
        throw SqlError(error::kStorage, "表名不可用 " + table);
    if (hasTable(table))
        throw SqlError(error::kTableExists, "表已经存在 " + table);
}

void SqliteExecutor::create(const std::string& table, const std::vector<ColumnDef>& columns) {
    requireNew(table);
    std::string text;
    TableShape made{table, {}};
    for (const ColumnDef& column : columns) {
        if (made.find(column.name) >= 0)
            throw SqlError(error::kColumnExists, "字段已经存在 " + column.name);
        made.columns.push_back(column);
        text += (text.empty() ? "" : ", ") + sqliteColumn(column);
    }
    m_file->run("CREATE TABLE " + sqliteName(table) + " (" + text + ")");
}

void SqliteExecutor::dropColumn(const Statement& bound) {
    const TableShape table = shape(bound.table);
    if (table.find(bound.column) < 0)
        throw SqlError(error::kColumnMissing, "找不到字段 " + bound.column);
    m_file->run("ALTER TABLE " + sqliteName(table.name) + " DROP COLUMN " + sqliteName(bound.column));
}

void SqliteExecutor::insert(const Statement& bound) {
    const TableShape target = shape(bound.table);
    const ShapeOf shapeOf = [this](const std::string& name) { return shape(name); };
    const TableShape source = shape(bound.select.from);
    std::string names;
    std::string values;
    std::string picked;
    int place = 0;
    for (const ResultColumn& column : resultColumns(bound.select, source)) {
        const int field = target.find(column.name);
        if (field < 0)
            throw SqlError(error::kColumnNotFound, "找不到字段 " + column.name);
        const ColumnDef& into = target.columns[static_cast<std::size_t>(field)];
        const std::string separator = place == 0 ? "" : ", ";
        const std::string from = "c" + std::to_string(place++);
        names += separator + sqliteName(into.name);
        values += separator + storeFunction(into.type) + "(" + from + ")";
        picked += separator + from;
    }
    m_file->run("WITH picked(" + picked + ") AS (" + sqliteText(bound.select, source, shapeOf) + ") INSERT INTO " +
                sqliteName(target.name) + " (" + names + ") SELECT " + values + " FROM picked");
}

void SqliteExecutor::selectInto(const Select& select) {
    const TableShape source = shape(select.from);
    const ShapeOf shapeOf = [this](const std::string& name) { return shape(name); };
    std::vector<ColumnDef> columns;
    std::string values;
    std::string inner;
    for (const ResultColumn& column : resultColumns(select, source)) {
        const std::string name = "c" + std::to_string(columns.size());
        inner += (inner.empty() ? "" : ", ") + name;
        values += (values.empty() ? "" : ", ") + std::string(storeFunction(column.type)) + "(" + name + ")";
        columns.push_back({column.name, column.type});
    }
    Savepoint step(*m_file);
    create(select.into, columns);
    m_file->run("WITH picked(" + inner + ") AS (" + sqliteText(select, source, shapeOf) + ") INSERT INTO " +
                sqliteName(select.into) + " SELECT " + values + " FROM picked");
    step.release();
}

void SqliteExecutor::execute(Statement& bound) {
    const ShapeOf shapeOf = [this](const std::string& name) { return shape(name); };
    const std::string table = sqliteName(bound.table);
    switch (bound.kind) {
    case StatementKind::Create:
        return create(bound.table, bound.columns);
    case StatementKind::Drop:
        shape(bound.table);
        return m_file->run("DROP TABLE " + table);
    case StatementKind::AddColumn:
        if (shape(bound.table).find(bound.columns[0].name) >= 0)
            throw SqlError(error::kColumnExists, "字段已经存在 " + bound.columns[0].name);
        return m_file->run("ALTER TABLE " + table + " ADD COLUMN " + sqliteColumn(bound.columns[0]));
    case StatementKind::DropColumn:
        return dropColumn(bound);
    case StatementKind::Insert:
        return insert(bound);
    case StatementKind::Delete:
        return m_file->run("DELETE FROM " + table +
                           (bound.where ? " WHERE " + sqliteText(*bound.where, shape(bound.table), shapeOf) : ""));
    case StatementKind::Select:
        if (!bound.select.into.empty())
            selectInto(bound.select);
        return;
    case StatementKind::Update:
    case StatementKind::InsertValues:
        return assign(bound);
    }
}

void SqliteExecutor::assign(const Statement& bound) {
    const ShapeOf shapeOf = [this](const std::string& name) { return shape(name); };
    const TableShape target = shape(bound.table);
    const std::string table = sqliteName(target.name);
    std::string names;
    std::string values;
    std::string set;
    for (const Assignment& assignment : bound.assignments) {
        const ColumnDef& column = target.columns[static_cast<std::size_t>(assignment.place)];
        const std::string separator = set.empty() ? "" : ", ";
        const std::string value = sqliteStored(*assignment.value, column.type, target, shapeOf);
        names += separator + sqliteName(column.name);
        values += separator + value;
        set += separator + sqliteName(column.name) + " = " + value;
    }
    if (bound.kind == StatementKind::InsertValues)
        return m_file->run("INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")");
    const std::string where = bound.where ? " WHERE " + sqliteText(*bound.where, target, shapeOf) : std::string();
    m_file->run("UPDATE " + table + " SET " + set + where);
}

std::shared_ptr<const Rows::Source> SqliteExecutor::query(Select&& bound) {
    const TableShape table = shape(bound.from);
    const ShapeOf shapeOf = [this](const std::string& name) { return shape(name); };
    std::vector<std::string> names;
    for (const ResultColumn& column : resultColumns(bound, table))
        names.push_back(column.name);
    if (!keepsPlaces(bound))
        return std::make_shared<KeptRows>(*m_file, sqliteText(bound, table, shapeOf), std::move(names));
    const std::string oneRow =
        "SELECT " + sqliteItems(bound, table, shapeOf) + " FROM " + sqliteName(table.name) + " WHERE rowid = ?1";
    return std::make_shared<PlacedRows>(m_file, sqliteText(bound, table, shapeOf, true), oneRow, std::move(names));
}

std::unique_ptr<Recordset::Backend> SqliteExecutor::openTable(const std::string& table) {
    return std::make_unique<TableBackend>(m_file, shape(table));
}

void SqliteExecutor::appendRows(const std::string& table, const RowBlock& block) {
    const TableShape target = shape(table);
    std::string names;
    std::string marks;
    std::vector<std::size_t> used;
    for (std::size_t column = 0; column < block.columns.size(); ++column) {
        const int place = target.find(block.columns[column]);
        if (place < 0)
            continue;
        names += (names.empty() ? "" : ", ") + sqliteName(target.columns[static_cast<std::size_t>(place)].name);
        marks += marks.empty() ? "?" : ", ?";
        used.push_back(column);
    }
    if (used.empty())
        return;
    Savepoint step(*m_file);
    SqliteQuery insert(*m_file, "INSERT INTO " + sqliteName(target.name) + " (" + names + ") VALUES (" + marks + ")");
    for (std::size_t row = 0; row < block.values[used[0]].size(); ++row) {
        for (std::size_t place = 0; place < used.size(); ++place)
            insert.bind(static_cast<int>(place), std::int64_t{block.values[used[place]][row]});
        insert.run();
    }
    step.release();
}

namespace {

class HeldBySavepoint final : public TableHold::Backend {
  public:
    explicit HeldBySavepoint(std::shared_ptr<SqliteFile> file) : m_file(std::move(file)), m_savepoint(*m_file) {}
    void release() override { m_savepoint.release(); }

  private:
    std::shared_ptr<SqliteFile> m_file;
    Savepoint m_savepoint;
};

} // namespace

std::unique_ptr<TableHold::Backend> SqliteExecutor::hold(const std::string&) {
    return std::make_unique<HeldBySavepoint>(m_file);
}

std::unique_ptr<TableHold::Backend> SqliteExecutor::holdValues(const std::string& table,
                                                               std::span<const std::string_view>) {
    shape(table); // refuses a table that is not there
    return hold(table);
}

} // namespace sql
