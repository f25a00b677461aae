// The database engine as the rest of the system sees it: open a file, run statements, read rows.
//
// Order of use: one Engine for the process; open() or create() gives a handle; a handle runs statements until it is
// destroyed. Two handles on one file stand on one store, so each sees at once what the other wrote.
//
// Two kinds of tables live in one file. Tables of the combination family (isCombinationTable) are columns in memory
// and reach the file when store() is called; all others are SQLite tables, durable as soon as the statement (or the
// Transaction around it) is over. No statement works on both kinds at once.
//
// Everything throws SqlError. There are no threads here.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sql/error.h"
#include "sql/value.h"

namespace sql {

class Store;

/// Which executor runs statements on combination tables. Sqlite is the oracle of tests and the yardstick of bench/.
enum class Executor { Column, Sqlite };

struct EngineOptions {
    Executor combinations = Executor::Column;
    std::size_t batchRows = 2048; ///< rows a batch, 1..2048; four int32 columns of 2048 rows are 32 KiB
    /// About the memory that the different texts of a column may take. Beyond it a statement appends to no text more,
    /// as beyond the last character that a text column holds; what else it does to the row still happens.
    std::size_t textBytes = std::size_t{2} << 30;
};

/// zuhe, zuheR, zuheRote, zuheRoteR, zuheRead, zuheReadR, zuheMoban, zuheMobanR, zuhef and Tmp, in any case.
bool isCombinationTable(std::string_view table);

/// The rows that a SELECT gave. Cheap to copy. Rows of a combination table are read where they lie, on demand: there
/// is no copy of them. A row keeps its place when later statements change flags; values are those of now.
class Rows {
  public:
    class Source;
    Rows() = default;
    explicit Rows(std::shared_ptr<const Source> source);

    std::int64_t count() const;
    int columnCount() const;
    const std::string& columnName(int column) const;
    /// \param row 0..count()-1  \param column 0..columnCount()-1
    Value at(std::int64_t row, int column) const;
    std::int64_t integerAt(std::int64_t row, int column) const;
    std::string textAt(std::int64_t row, int column) const;

  private:
    std::shared_ptr<const Source> m_source;
};

/// A record set over a table (updatable) or a SELECT (read only; over a single ordinary table it is read whole).
/// A new record set stands on its first record, or at the end when there is none.
class Recordset {
  public:
    class Backend;
    explicit Recordset(std::unique_ptr<Backend> backend);
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();
    bool bof() const;
    bool eof() const;
    std::int64_t recordCount() const;

    /// Place of a column for the calls below, ignoring case. \throws SqlError kFieldNotFound
    int fieldIndex(std::string_view name) const;
    int fieldCount() const;
    const std::string& fieldName(int field) const;
    /// \throws SqlError kNoCurrentRecord at bof or eof
    Value field(int field) const;
    Value field(std::string_view name) const { return field(fieldIndex(name)); }

    /// addNew() or edit(), then set() for each field, then update(). Fields not set stay Null (addNew; bits false) or
    /// as they were (edit). After update() of a new record the record set stands where it stood before.
    void addNew();
    void edit();
    void set(int field, Value value);
    void set(std::string_view name, Value value) { set(fieldIndex(name), std::move(value)); }
    void update();
    /// Deletes the current record; the position is then between its neighbours: move before reading.
    void remove();

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// Columns of new rows for a bulk insertion: column names with one span of values each, all of one length.
struct RowBlock {
    std::vector<std::string> columns;
    std::vector<std::span<const std::int32_t>> values;
};

/// Computes one output value a row from some integer columns of a row. `inputs[k][row]` is input k (Null reads as 0).
using RowKernel =
    std::function<void(std::span<const std::span<const std::int32_t>> inputs, std::span<std::int32_t> output)>;

/// Some rows of a pass that writes several columns (computeColumns): read `inputs`, write `outputs`.
struct RowBatch {
    struct Output {
        std::span<std::int32_t> values;
        std::span<std::uint8_t>
            written; ///< 0 at first; 1: the row gets its value. Other rows keep theirs, Null or not
    };
    std::size_t rows;
    std::span<const std::span<const std::int32_t>> inputs; ///< inputs[k][row]: Null reads as 0, a bit as -1 or 0
    std::span<const Output> outputs;                       ///< outputs[k].values[row]
};
using BatchKernel = std::function<void(const RowBatch&)>;

using Listener = std::function<void(std::string_view statement)>;

class Database {
  public:
    explicit Database(std::shared_ptr<Store> store);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const std::filesystem::path& path() const;
    /// Whether the file can be read but not written: changes fail with kPermission.
    bool isReadOnly() const;

    /// Runs one statement that returns no rows; a SELECT is run and its rows are dropped.
    void execute(std::string_view statement);
    /// Runs a SELECT without INTO.
    Rows query(std::string_view select);
    /// First column of the first row; Null when there is no row.
    Value queryValue(std::string_view select);
    /// \param tableOrSelect  a table's name, with or without brackets, also one of digits, or a SELECT
    Recordset openRecordset(std::string_view tableOrSelect);

    bool hasTable(std::string_view table) const;
    std::vector<std::string> columnNames(std::string_view table) const;
    std::int64_t rowCount(std::string_view table) const;

    /// Appends rows to a table in order, as one step; columns not named are Null (bits false). A value of a column
    /// that the table lacks is passed over.
    void appendRows(std::string_view table, const RowBlock& block);
    /// output := kernel(inputs) for every row of a table, in batches. The output is an integer column.
    void computeColumn(std::string_view table, std::span<const std::string> inputs, std::string_view output,
                       const RowKernel& kernel);

    /// One pass over a table, in batches of any length, in the order of the rows: the kernel reads `inputs` (whole
    /// numbers or bits) and writes chosen rows of `outputs` (whole numbers). A column may be both: it is read first.
    /// \throws SqlError kTableNotFound, kColumnNotFound, kTypeMismatch before the first row
    void computeColumns(std::string_view table, std::span<const std::string> inputs,
                        std::span<const std::string> outputs, const BatchKernel& kernel);

    /// Called with the text of each statement of this handle before it runs.
    void setListener(Listener listener);

    /// Ordinary tables: begin/commit/rollback; use Transaction. Nested begins count.
    void begin();
    void commit();
    void rollback();

    /// Writes what changed in combination tables to the file, in one transaction.
    void store();
    bool storePending() const;

    /// Results of expressions over combination tables that were worked one by one since the file was opened: once for
    /// each distinct input, so the count must not grow with the rows. For tests and measurements.
    std::int64_t evaluations() const;

  private:
    friend class TableHold;
    friend class ValueHold;

    std::shared_ptr<Store> m_store;
    Listener m_listener;
};

/// Keeps a combination table safe while statements drop it and make another of its name. Unless release() is called
/// the former table is back at the end, every column of it, as if it had never gone. What is stored meanwhile is the
/// former table. It keeps what is dropped: changes of a table that is not dropped stay.
/// No Transaction begins in between, and a table is held once at a time.
class TableHold {
  public:
    class Backend;
    TableHold(Database& database, std::string_view table);
    ~TableHold();
    TableHold(const TableHold&) = delete;
    TableHold& operator=(const TableHold&) = delete;
    /// The new table is complete and takes the place of the former one.
    void release();

  private:
    std::unique_ptr<Backend> m_backend;
};

/// Keeps the values of some columns of a combination table while long work changes them. Unless release() is called
/// they are back at the end. Rows neither come nor go in between, no Transaction begins and no column is dropped.
/// Cost: a copy of the columns at their own width.
class ValueHold {
  public:
    /// \param columns  names that the table lacks are passed over  \throws SqlError kTableNotFound
    ValueHold(Database& database, std::string_view table, std::span<const std::string_view> columns);
    ~ValueHold();
    ValueHold(const ValueHold&) = delete;
    ValueHold& operator=(const ValueHold&) = delete;
    /// The new values stay.
    void release();

  private:
    std::unique_ptr<TableHold::Backend> m_backend;
};

/// Commits on commit(), rolls back when it is destroyed before.
class Transaction {
  public:
    explicit Transaction(Database& database) : m_database(&database) { database.begin(); }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

  private:
    Database* m_database;
};

/// Runs a statement and passes over its failure: the one helper for handlers that ignore errors.
/// \return whether the statement ran
bool passOver(Database& database, std::string_view statement);

class Engine {
  public:
    explicit Engine(EngineOptions options = {});
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Opens an existing file; one of 0 bytes counts as missing. \throws SqlError kPathNotFound (its folder is
    /// missing), kFileNotFound, kNotADatabase, kLocked, kPermission, kInputOutput
    std::unique_ptr<Database> open(const std::filesystem::path& file);
    /// Makes a new, empty database; an existing file is replaced. \throws SqlError kPathNotFound
    std::unique_ptr<Database> create(const std::filesystem::path& file);

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace sql
