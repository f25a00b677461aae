#include "sql/database.h"

#include <algorithm>
#include <array>
#include <map>
#include <system_error>

#include "sql/executor.h"
#include "sql/lexer.h"
#include "sql/store.h"

namespace sql {

namespace {

constexpr std::array<std::string_view, 10> kCombinationTables = {
    "zuhe", "zuheR", "zuheRote", "zuheRoteR", "zuheRead", "zuheReadR", "zuheMoban", "zuheMobanR", "zuhef", "Tmp"};

std::string bareName(std::string_view table) {
    if (table.size() > 2 && table.front() == '[' && table.back() == ']')
        table = table.substr(1, table.size() - 2);
    return std::string(table);
}

} // namespace

bool isCombinationTable(std::string_view table) {
    return std::any_of(kCombinationTables.begin(), kCombinationTables.end(),
                       [&](std::string_view known) { return sameName(known, table); });
}

// ---- Rows

Rows::Rows(std::shared_ptr<const Source> source) : m_source(std::move(source)) {}
std::int64_t Rows::count() const {
    return m_source ? m_source->count() : 0;
}
int Rows::columnCount() const {
    return m_source ? static_cast<int>(m_source->columns().size()) : 0;
}
const std::string& Rows::columnName(int column) const {
    return m_source->columns()[static_cast<std::size_t>(column)];
}
Value Rows::at(std::int64_t row, int column) const {
    return m_source->at(row, column);
}
std::int64_t Rows::integerAt(std::int64_t row, int column) const {
    return m_source->integerAt(row, column);
}
std::string Rows::textAt(std::int64_t row, int column) const {
    return toText(at(row, column));
}

// ---- Database

Database::Database(std::shared_ptr<Store> store) : m_store(std::move(store)) {}
Database::~Database() = default;

const std::filesystem::path& Database::path() const {
    return m_store->path();
}

bool Database::isReadOnly() const {
    return m_store->isReadOnly();
}

void Database::execute(std::string_view statement) {
    if (m_listener)
        m_listener(statement);
    m_store->execute(statement);
}

Rows Database::query(std::string_view select) {
    if (m_listener)
        m_listener(select);
    return Rows(m_store->query(select));
}

Value Database::queryValue(std::string_view select) {
    const Rows rows = query(select);
    return rows.count() > 0 ? rows.at(0, 0) : Value();
}

Recordset Database::openRecordset(std::string_view tableOrSelect) {
    if (m_listener)
        m_listener(tableOrSelect);
    return Recordset(m_store->open(tableOrSelect));
}

bool Database::hasTable(std::string_view table) const {
    const std::string name = bareName(table);
    return m_store->keeperOf(name).hasTable(name);
}

std::vector<std::string> Database::columnNames(std::string_view table) const {
    const std::string name = bareName(table);
    std::vector<std::string> names;
    for (const ColumnDef& column : m_store->keeperOf(name).shape(name).columns)
        names.push_back(column.name);
    return names;
}

std::int64_t Database::rowCount(std::string_view table) const {
    const std::string name = bareName(table);
    return m_store->keeperOf(name).rowCount(name);
}

void Database::appendRows(std::string_view table, const RowBlock& block) {
    const std::string name = bareName(table);
    m_store->keeperOf(name).appendRows(name, block);
}

void Database::computeColumn(std::string_view table, std::span<const std::string> inputs, std::string_view output,
                             const RowKernel& kernel) {
    const std::string name = bareName(table);
    m_store->keeperOf(name).computeColumn(name, inputs, std::string(output), kernel);
}

void Database::computeColumns(std::string_view table, std::span<const std::string> inputs,
                              std::span<const std::string> outputs, const BatchKernel& kernel) {
    const std::string name = bareName(table);
    m_store->keeperOf(name).computeColumns(name, inputs, outputs, kernel);
}

void Database::setListener(Listener listener) {
    m_listener = std::move(listener);
}
void Database::begin() {
    m_store->begin();
}
void Database::commit() {
    m_store->commit();
}
void Database::rollback() {
    m_store->rollback();
}
void Database::store() {
    m_store->store();
}
bool Database::storePending() const {
    return m_store->storePending();
}
std::int64_t Database::evaluations() const {
    return m_store->evaluations();
}

TableHold::TableHold(Database& database, std::string_view table) {
    const std::string name = bareName(table);
    m_backend = database.m_store->keeperOf(name).hold(name);
}
TableHold::~TableHold() = default;

void TableHold::release() {
    m_backend->release();
}

ValueHold::ValueHold(Database& database, std::string_view table, std::span<const std::string_view> columns) {
    const std::string name = bareName(table);
    m_backend = database.m_store->keeperOf(name).holdValues(name, columns);
}
ValueHold::~ValueHold() = default;

void ValueHold::release() {
    m_backend->release();
}

Transaction::~Transaction() {
    if (!m_database)
        return;
    try {
        m_database->rollback();
    } catch (const SqlError&) {
        // The file rolls back by itself when it is next opened.
    }
}

void Transaction::commit() {
    m_database->commit();
    m_database = nullptr;
}

bool passOver(Database& database, std::string_view statement) {
    try {
        database.execute(statement);
        return true;
    } catch (const SqlError&) {
        return false;
    }
}

// ---- Engine

struct Engine::State {
    EngineOptions options;
    std::map<std::filesystem::path, std::weak_ptr<Store>> stores;

    bool isOpen(const std::filesystem::path& file) const {
        const auto found = stores.find(std::filesystem::weakly_canonical(file));
        return found != stores.end() && !found->second.expired();
    }

    std::unique_ptr<Database> handle(const std::filesystem::path& file, bool mustExist) {
        const std::filesystem::path key = std::filesystem::weakly_canonical(file);
        std::shared_ptr<Store> store = stores[key].lock();
        if (!store) {
            store = std::make_shared<Store>(file, options, mustExist);
            stores[key] = store;
        }
        return std::make_unique<Database>(std::move(store));
    }
};

namespace {

void requireFolder(const std::filesystem::path& file) {
    std::error_code ignored;
    const std::filesystem::path folder = file.parent_path();
    if (!folder.empty() && !std::filesystem::is_directory(folder, ignored))
        throw SqlError(error::kPathNotFound, "路径不存在 " + folder.string());
}

} // namespace

Engine::Engine(EngineOptions options) : m_state(std::make_unique<State>()) {
    m_state->options = options;
}
Engine::~Engine() = default;

std::unique_ptr<Database> Engine::open(const std::filesystem::path& file) {
    requireFolder(file);
    std::error_code unknown; // then SQLite says what is wrong
    const std::filesystem::file_status status = std::filesystem::status(file, unknown);
    const bool empty = std::filesystem::is_regular_file(status) && std::filesystem::file_size(file, unknown) == 0;
    // An empty file is a database without tables to SQLite: what a failed copy leaves, and never a workspace's.
    if (status.type() == std::filesystem::file_type::not_found || (empty && !m_state->isOpen(file)))
        throw SqlError(error::kFileNotFound, "找不到文件 " + file.string());
    return m_state->handle(file, true);
}

std::unique_ptr<Database> Engine::create(const std::filesystem::path& file) {
    requireFolder(file);
    std::error_code ignored;
    m_state->stores.erase(std::filesystem::weakly_canonical(file));
    std::filesystem::remove(file, ignored);
    std::filesystem::remove(file.string() + "-journal", ignored); // a journal of the file that was replaced
    return m_state->handle(file, false);
}

} // namespace sql
