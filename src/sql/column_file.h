// The combination tables of one file: in memory while they are used, as compressed chunks in the file.
//
// Three SQLite tables hold them: column_store_tables (name, rows), column_store_fields (columns with their
// dictionary) and column_store_chunks (one blob for kChunkRows rows of a column). A table is read when it is first
// asked for. store() writes only what has changed, in one transaction: the file always is in the state of some
// finished step.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "sql/column.h"
#include "sql/sqlite_file.h"

namespace sql {

class ColumnFile {
  public:
    explicit ColumnFile(std::shared_ptr<SqliteFile> file);

    bool has(const std::string& name) const;
    /// The table, read from the file when need be; null when there is none.
    /// \throws SqlError kNotADatabase when its chunks are damaged
    std::shared_ptr<ColumnTable> find(const std::string& name);
    void add(std::shared_ptr<ColumnTable> table);
    void drop(const std::string& name);

    /// Sets a table aside, if there is one: while it is held it can be dropped and another of its name added, and
    /// what is stored under the name still is the held one.
    void hold(const std::string& name);
    /// \param replaced  whether the table that now has the name stays; else the held one is back as if never dropped
    void endHold(const std::string& name, bool replaced);

    bool storePending() const;
    /// \throws SqlError when the file cannot take it; everything then still is pending
    void store();

  private:
    struct Entry {
        std::string name;
        std::int64_t id = 0; // 0: not in the file yet
        std::shared_ptr<ColumnTable> table;
    };

    struct Held {
        std::optional<Entry> former; // none: there was no such table
        bool dropped = false;
    };

    /// Every table as the file is to have it: held ones in place of those that are being made.
    template <class Self, class Action> static void forEachStored(Self& self, Action action);
    static bool isPending(const Entry& entry);
    void readNames();
    std::shared_ptr<ColumnTable> load(const Entry& entry);
    void loadColumn(const ColumnTable& table, Column& column);
    void storeTable(Entry& entry);
    void storeShape(ColumnTable& table);
    void storeColumn(const ColumnTable& table, Column& column);
    void storeTexts(const Column& column);
    void undo();
    void removeStored(std::int64_t id);
    void requireStoreTables();

    std::shared_ptr<SqliteFile> m_file;
    std::map<std::string, Entry> m_entries; // by folded name
    std::map<std::string, Held> m_held;     // by folded name
    std::vector<std::int64_t> m_dropped;    // ids that the file still holds
    std::vector<std::int64_t*> m_newIds;    // given in the running store(): taken back when it fails
    bool m_hasStoreTables = false;
};

} // namespace sql
