#include "sql/column_file.h"

#include <algorithm>
#include <cassert>
#include <new>

#include "sql/chunk.h"
#include "sql/error.h"
#include "sql/lexer.h"

namespace sql {

namespace {

std::size_t chunksOf(std::size_t rows) {
    return (rows + kChunkRows - 1) / kChunkRows;
}

} // namespace

ColumnFile::ColumnFile(std::shared_ptr<SqliteFile> file) : m_file(std::move(file)) {
    readNames();
}

void ColumnFile::readNames() {
    SqliteQuery schema(*m_file, "SELECT 1 FROM sqlite_schema WHERE name = 'column_store_tables'");
    m_hasStoreTables = schema.step();
    if (!m_hasStoreTables)
        return;
    SqliteQuery names(*m_file, "SELECT id, name FROM column_store_tables");
    while (names.step()) {
        const std::string name = toText(names.column(1));
        m_entries[foldedName(name)] = {name, names.integer(0), nullptr};
    }
}

bool ColumnFile::has(const std::string& name) const {
    return m_entries.contains(foldedName(name));
}

std::shared_ptr<ColumnTable> ColumnFile::find(const std::string& name) {
    const auto found = m_entries.find(foldedName(name));
    if (found == m_entries.end())
        return nullptr;
    if (!found->second.table)
        found->second.table = load(found->second);
    return found->second.table;
}

void ColumnFile::add(std::shared_ptr<ColumnTable> table) {
    const std::string name = table->name;
    m_entries[foldedName(name)] = Entry{name, 0, std::move(table)};
}

void ColumnFile::drop(const std::string& name) {
    const auto found = m_entries.find(foldedName(name));
    if (found == m_entries.end())
        return;
    if (const auto held = m_held.find(found->first); held != m_held.end())
        held->second.dropped = true;
    else if (found->second.id != 0)
        m_dropped.push_back(found->second.id);
    m_entries.erase(found);
}

void ColumnFile::hold(const std::string& name) {
    const std::string key = foldedName(name);
    assert(!m_held.contains(key));
    const auto found = m_entries.find(key);
    m_held[key] = {found == m_entries.end() ? std::nullopt : std::optional(found->second)};
}

void ColumnFile::endHold(const std::string& name, bool replaced) {
    const std::string key = foldedName(name);
    const Held held = m_held.extract(key).mapped();
    if (!held.former) {
        if (!replaced)
            m_entries.erase(key);
    } else if (!held.dropped) {
        if (held.former->table)
            m_entries[key] = *held.former; // stored meanwhile, it may have got its id
    } else if (!replaced) {
        m_entries[key] = *held.former;
    } else if (held.former->id != 0) {
        m_dropped.push_back(held.former->id);
    }
}

template <class Self, class Action> void ColumnFile::forEachStored(Self& self, Action action) {
    for (auto& [key, entry] : self.m_entries)
        if (entry.table && !self.m_held.contains(key))
            action(entry);
    for (auto& [key, held] : self.m_held)
        if (held.former && held.former->table)
            action(*held.former);
}

std::shared_ptr<ColumnTable> ColumnFile::load(const Entry& entry) {
    auto table = std::make_shared<ColumnTable>();
    table->name = entry.name;
    table->id = entry.id;
    table->shapeDirty = false;
    SqliteQuery rows(*m_file, "SELECT rows FROM column_store_tables WHERE id = ?1");
    rows.bind(0, entry.id);
    if (!rows.step() || rows.integer(0) < 0 || rows.integer(0) > static_cast<std::int64_t>(kMostRows))
        throw SqlError(error::kNotADatabase, "数据库文件已损坏");
    table->rows = static_cast<std::size_t>(rows.integer(0));
    SqliteQuery fields(*m_file, "SELECT id, name, type FROM column_store_fields WHERE table_id = ?1 ORDER BY place");
    fields.bind(0, entry.id);
    while (fields.step()) {
        Column column;
        column.id = fields.integer(0);
        column.def = {toText(fields.column(1)), static_cast<ColumnType>(fields.integer(2))};
        column.nulls.setAll();
        if (fields.integer(2) < 0 || fields.integer(2) > static_cast<int>(ColumnType::Bit))
            throw SqlError(error::kNotADatabase, "数据库文件已损坏");
        table->columns.push_back(std::move(column));
    }
    if (table->columns.empty())
        throw SqlError(error::kNotADatabase, "数据库文件已损坏");
    try {
        for (Column& column : table->columns)
            loadColumn(*table, column);
        resolveRecipes(*table);
    } catch (const std::bad_alloc&) { // a sound table too large for this machine, or a damaged one: both can be
        throw SqlError(error::kStorage, "内存不足，不能读取数据表 " + entry.name);
    }
    return table;
}

void ColumnFile::loadColumn(const ColumnTable& table, Column& column) {
    SqliteQuery texts(*m_file, "SELECT data FROM column_store_texts WHERE field_id = ?1 ORDER BY first");
    texts.bind(0, column.id);
    while (texts.step())
        decodeTexts(texts.blob(0), *column.dictionary);
    column.storedTexts = column.dictionary->size();
    SqliteQuery chunks(*m_file, "SELECT chunk, data FROM column_store_chunks WHERE field_id = ?1 ORDER BY chunk");
    chunks.bind(0, column.id);
    std::size_t size = 0;
    for (std::size_t chunk = 0; chunk < chunksOf(table.rows); ++chunk) {
        if (!chunks.step() || chunks.integer(0) != static_cast<std::int64_t>(chunk))
            throw SqlError(error::kNotADatabase, "数据库文件已损坏");
        const std::size_t count = std::min(kChunkRows, table.rows - size);
        decodeChunk(chunks.blob(1), column, size, count);
        size += count;
    }
    column.dirtyChunks.assign(chunksOf(table.rows), false);
}

bool ColumnFile::storePending() const {
    bool pending = !m_dropped.empty();
    forEachStored(*this, [&](const Entry& entry) { pending = pending || isPending(entry); });
    return pending;
}

bool ColumnFile::isPending(const Entry& entry) {
    const auto changed = [](const Column& column) {
        return column.dictionaryReplaced || column.storedTexts != column.dictionary->size() ||
               std::ranges::find(column.dirtyChunks, true) != column.dirtyChunks.end();
    };
    return entry.id == 0 || entry.table->shapeDirty || std::ranges::any_of(entry.table->columns, changed);
}

void ColumnFile::requireStoreTables() {
    if (m_hasStoreTables)
        return;
    m_file->run("CREATE TABLE column_store_tables (id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT, rows INTEGER)");
    m_file->run("CREATE TABLE column_store_fields (id INTEGER PRIMARY KEY AUTOINCREMENT, table_id INTEGER, "
                "place INTEGER, name TEXT, type INTEGER)");
    m_file->run("CREATE TABLE column_store_texts (field_id INTEGER, first INTEGER, data BLOB, "
                "PRIMARY KEY (field_id, first))");
    m_file->run("CREATE TABLE column_store_chunks (field_id INTEGER, chunk INTEGER, data BLOB, "
                "PRIMARY KEY (field_id, chunk))");
}

void ColumnFile::store() {
    m_file->run("BEGIN IMMEDIATE");
    try {
        requireStoreTables();
        for (const std::int64_t id : m_dropped)
            removeStored(id);
        forEachStored(*this, [this](Entry& entry) { storeTable(entry); });
        m_file->run("COMMIT");
    } catch (...) {
        for (std::int64_t* id : m_newIds)
            *id = 0;
        m_newIds.clear();
        undo();
        throw;
    }
    m_newIds.clear();
    m_hasStoreTables = true;
    m_dropped.clear();
    forEachStored(*this, [](Entry& entry) {
        entry.id = entry.table->id;
        entry.table->shapeDirty = false;
        for (Column& column : entry.table->columns) {
            column.dirtyChunks.assign(column.dirtyChunks.size(), false);
            column.storedTexts = column.dictionary->size();
            column.dictionaryReplaced = false;
        }
    });
}

/// Nothing of the failed store() stays in the file, nor open on it.
void ColumnFile::undo() {
    try {
        if (sqliteInTransaction(*m_file))
            m_file->run("ROLLBACK");
    } catch (const SqlError&) {
        // SQLite rolls back by itself when the file is next used; what made store() fail is what the caller learns.
    }
}

void ColumnFile::removeStored(std::int64_t id) {
    for (const char* statement :
         {"DELETE FROM column_store_chunks WHERE field_id IN (SELECT id FROM column_store_fields WHERE table_id = "
          "?1)",
          "DELETE FROM column_store_texts WHERE field_id IN (SELECT id FROM column_store_fields WHERE table_id = ?1)",
          "DELETE FROM column_store_fields WHERE table_id = ?1", "DELETE FROM column_store_tables WHERE id = ?1"}) {
        SqliteQuery query(*m_file, statement);
        query.bind(0, id);
        query.run();
    }
}

void ColumnFile::storeTable(Entry& entry) {
    ColumnTable& table = *entry.table;
    if (table.id == 0) {
        SqliteQuery insert(*m_file, "INSERT INTO column_store_tables (name, rows) VALUES (?1, 0) RETURNING id");
        insert.bind(0, table.name);
        insert.step();
        table.id = insert.integer(0);
        m_newIds.push_back(&table.id);
        insert.run();
        for (Column& column : table.columns)
            column.id = 0;
        table.shapeDirty = true;
    }
    if (table.shapeDirty)
        storeShape(table);
    for (Column& column : table.columns)
        storeColumn(table, column);
}

/// The list of columns is written anew; a column that is new gets its place in the file, one that is gone loses it.
void ColumnFile::storeShape(ColumnTable& table) {
    SqliteQuery rows(*m_file, "UPDATE column_store_tables SET rows = ?2 WHERE id = ?1");
    rows.bind(0, table.id);
    rows.bind(1, static_cast<std::int64_t>(table.rows));
    rows.run();
    std::string kept = "0";
    SqliteQuery insert(*m_file,
                       "INSERT INTO column_store_fields (table_id, place, name, type) VALUES (?1, ?2, ?3, ?4) "
                       "RETURNING id");
    for (std::size_t place = 0; place < table.columns.size(); ++place) {
        Column& column = table.columns[place];
        if (column.id == 0) {
            insert.bind(0, table.id);
            insert.bind(1, static_cast<std::int64_t>(place));
            insert.bind(2, column.def.name);
            insert.bind(3, static_cast<std::int64_t>(column.def.type));
            insert.step();
            column.id = insert.integer(0);
            m_newIds.push_back(&column.id);
            insert.run();
            column.markAllDirty(table.rows);
            column.storedTexts = 0;
        }
        kept += ", " + std::to_string(column.id);
    }
    const std::string gone = "SELECT id FROM column_store_fields WHERE table_id = " + std::to_string(table.id) +
                             " AND id NOT IN (" + kept + ")";
    m_file->run("DELETE FROM column_store_chunks WHERE field_id IN (" + gone + ")");
    m_file->run("DELETE FROM column_store_texts WHERE field_id IN (" + gone + ")");
    m_file->run("DELETE FROM column_store_fields WHERE table_id = " + std::to_string(table.id) + " AND id NOT IN (" +
                kept + ")");
}

/// The texts that the file lacks.
void ColumnFile::storeTexts(const Column& column) {
    SqliteQuery insert(*m_file, "INSERT OR REPLACE INTO column_store_texts VALUES (?1, ?2, ?3)");
    const std::size_t end = column.dictionary->size();
    for (std::size_t first = column.dictionaryReplaced ? 0 : column.storedTexts; first < end;
         first += kTextsPerBlob) {
        const std::string blob = encodeTexts(*column.dictionary, first, std::min(kTextsPerBlob, end - first));
        insert.bind(0, column.id);
        insert.bind(1, static_cast<std::int64_t>(first));
        insert.bindBlob(2, blob.data(), blob.size());
        insert.run();
    }
}

void ColumnFile::storeColumn(const ColumnTable& table, Column& column) {
    if (column.dictionaryReplaced) {
        SqliteQuery remove(*m_file, "DELETE FROM column_store_texts WHERE field_id = ?1");
        remove.bind(0, column.id);
        remove.run();
    }
    storeTexts(column);
    SqliteQuery put(*m_file, "INSERT OR REPLACE INTO column_store_chunks VALUES (?1, ?2, ?3)");
    for (std::size_t chunk = 0; chunk < chunksOf(table.rows); ++chunk) {
        if (chunk < column.dirtyChunks.size() && !column.dirtyChunks[chunk])
            continue;
        const std::size_t first = chunk * kChunkRows;
        const std::string blob = encodeChunk(table, column, first, std::min(kChunkRows, table.rows - first));
        put.bind(0, column.id);
        put.bind(1, static_cast<std::int64_t>(chunk));
        put.bindBlob(2, blob.data(), blob.size());
        put.run();
    }
    if (table.shapeDirty) {
        SqliteQuery remove(*m_file, "DELETE FROM column_store_chunks WHERE field_id = ?1 AND chunk >= ?2");
        remove.bind(0, column.id);
        remove.bind(1, static_cast<std::int64_t>(chunksOf(table.rows)));
        remove.run();
    }
}

} // namespace sql
