#include "sql/sqlite_file.h"

#include <sqlite3.h>

#include <cerrno>
#include <cmath>

#include "base/number_text.h"
#include "sql/error.h"
#include "sql/scalar.h"

namespace sql {

namespace {

Value argument(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return std::int64_t{sqlite3_value_int64(value)};
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    case SQLITE_NULL:
        return {};
    default:
        return std::string(reinterpret_cast<const char*>(sqlite3_value_text(value)),
                           static_cast<std::size_t>(sqlite3_value_bytes(value)));
    }
}

void answer(sqlite3_context* context, const Value& value) {
    if (isNull(value))
        sqlite3_result_null(context);
    else if (const auto* whole = std::get_if<std::int64_t>(&value))
        sqlite3_result_int64(context, *whole);
    else if (const auto* real = std::get_if<double>(&value))
        sqlite3_result_double(context, *real);
    else {
        const auto& text = std::get<std::string>(value);
        sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
}

using Function = Value (*)(const Value& first, const Value& second);

struct FunctionEntry {
    const char* name;
    int args;
    Function function;
};

Value finite(const Value& value) {
    return isNull(value) || !std::isfinite(toReal(value)) ? Value() : value;
}

constexpr FunctionEntry kFunctions[] = {
    {"ssq_join", 2, [](const Value& a, const Value& b) { return Value(toText(a) + toText(b)); }},
    {"ssq_like", 2,
     [](const Value& a, const Value& b) {
         return isNull(a) || isNull(b) ? Value() : Value(std::int64_t{likeText(toText(a), toText(b)) ? -1 : 0});
     }},
    {"ssq_instr", 2,
     [](const Value& a, const Value& b) {
         return isNull(a) || isNull(b) ? Value() : Value(inStr(toText(a), toText(b)));
     }},
    {"ssq_format", 2, [](const Value& a, const Value& b) { return Value(formatNumber(a, toText(b).size())); }},
    {"ssq_mod", 2, [](const Value& a, const Value& b) { return modulo(a, b); }},
    {"ssq_chr", 1, [](const Value& a, const Value&) { return chr(a); }},
    {"ssq_floor", 1, [](const Value& a, const Value&) { return isNull(a) ? a : Value(std::floor(toReal(a))); }},
    {"ssq_finite", 1, [](const Value& a, const Value&) { return finite(a); }},
    {"ssq_integer", 1, [](const Value& a, const Value&) { return storedValue(a, ColumnType::Integer); }},
    {"ssq_short", 1, [](const Value& a, const Value&) { return storedValue(a, ColumnType::Short); }},
    {"ssq_real", 1, [](const Value& a, const Value&) { return storedValue(a, ColumnType::Real); }},
    {"ssq_text", 1, [](const Value& a, const Value&) { return storedValue(a, ColumnType::Text); }},
    {"ssq_bit", 1, [](const Value& a, const Value&) { return storedValue(a, ColumnType::Bit); }},
};

void call(sqlite3_context* context, int count, sqlite3_value** values) {
    const auto* entry = static_cast<const FunctionEntry*>(sqlite3_user_data(context));
    answer(context, entry->function(argument(values[0]), count > 1 ? argument(values[1]) : Value()));
}

bool isLackOfRoom(int systemError) {
    return systemError == ENOSPC || systemError == EDQUOT || systemError == EFBIG;
}

/// Whether the system refused a write for want of room: a full disk, a used-up quota, a file at its size limit.
/// SQLite knows only the first as such. Its note of the system's error may be overwritten when it rolls back; the
/// file keeps its own.
bool lacksRoom(sqlite3* handle) {
    int ofFile = 0;
    if (sqlite3_extended_errcode(handle) == SQLITE_IOERR_WRITE)
        sqlite3_file_control(handle, "main", SQLITE_FCNTL_LAST_ERRNO, &ofFile);
    return isLackOfRoom(sqlite3_system_errno(handle)) || isLackOfRoom(ofFile);
}

int errorNumber(sqlite3* handle) {
    switch (sqlite3_errcode(handle) & 0xFF) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return error::kNotADatabase;
    case SQLITE_FULL:
        return error::kDiskFull;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return error::kLocked;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return error::kPermission;
    case SQLITE_IOERR:
        return lacksRoom(handle) ? error::kDiskFull : error::kInputOutput;
    case SQLITE_CANTOPEN: // the file, or its journal, when there is no room for it
        return lacksRoom(handle) ? error::kDiskFull : error::kPermission;
    default:
        return error::kStorage;
    }
}

} // namespace

SqliteFile::SqliteFile(const std::filesystem::path& file, bool mustExist) {
    const int flags = SQLITE_OPEN_READWRITE | (mustExist ? 0 : SQLITE_OPEN_CREATE);
    try {
        if (sqlite3_open_v2(file.c_str(), &m_handle, flags, nullptr) != SQLITE_OK)
            fail();
        // An unknown name in double quotes is an error, never silently a text.
        sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
        sqlite3_busy_timeout(m_handle, 2000);
        for (const FunctionEntry& entry : kFunctions)
            sqlite3_create_function(m_handle, entry.name, entry.args, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                    const_cast<FunctionEntry*>(&entry), call, nullptr, nullptr);
        // FULL: what a statement has committed survives a power cut. EXTRA would also sync the folder; the journal's
        // deletion is replayed the same way either way.
        run("PRAGMA synchronous=FULL");
        run("PRAGMA cache_size=-16000");
        // The file may be damaged: what its schema says is not run, and pages are checked before they are believed.
        run("PRAGMA trusted_schema=OFF");
        run("PRAGMA cell_size_check=ON");
        run("SELECT count(*) FROM sqlite_schema"); // a file that is no database shows here
    } catch (...) {
        close();
        throw;
    }
}

SqliteFile::~SqliteFile() {
    close();
}

void SqliteFile::close() {
    sqlite3_close_v2(m_handle);
}

void SqliteFile::run(const std::string& statement) {
    SqliteQuery(*this, statement).run();
}

void SqliteFile::fail() const {
    const int number = errorNumber(m_handle);
    const char* file = sqlite3_db_filename(m_handle, nullptr);
    const std::string place = file && *file ? std::string(" (") + file + ")" : std::string();
    if (number == error::kDiskFull)
        throw SqlError(number, "磁盘空间不足,数据没有写入" + place);
    throw SqlError(number, sqlite3_errmsg(m_handle) + place);
}

bool SqliteFile::isReadOnly() const {
    return sqlite3_db_readonly(m_handle, "main") == 1;
}

bool sqliteInTransaction(const SqliteFile& file) {
    return sqlite3_get_autocommit(file.handle()) == 0;
}

SqliteQuery::SqliteQuery(const SqliteFile& file, const std::string& statement) : m_file(&file) {
    if (sqlite3_prepare_v2(file.handle(), statement.c_str(), static_cast<int>(statement.size()), &m_statement,
                           nullptr) != SQLITE_OK)
        file.fail();
}

SqliteQuery::~SqliteQuery() {
    sqlite3_finalize(m_statement);
}

void SqliteQuery::bind(int place, const Value& value) {
    if (isNull(value))
        sqlite3_bind_null(m_statement, place + 1);
    else if (const auto* whole = std::get_if<std::int64_t>(&value))
        sqlite3_bind_int64(m_statement, place + 1, *whole);
    else if (const auto* real = std::get_if<double>(&value))
        sqlite3_bind_double(m_statement, place + 1, *real);
    else {
        const auto& text = std::get<std::string>(value);
        sqlite3_bind_text(m_statement, place + 1, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
}

void SqliteQuery::bindBlob(int place, const void* data, std::size_t size) {
    sqlite3_bind_blob64(m_statement, place + 1, data, size, SQLITE_TRANSIENT);
}

bool SqliteQuery::step() {
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        m_file->fail();
    return false;
}

void SqliteQuery::run() {
    while (step())
        ;
    reset();
}

void SqliteQuery::reset() {
    sqlite3_reset(m_statement);
}

Value SqliteQuery::column(int place) const {
    switch (sqlite3_column_type(m_statement, place)) {
    case SQLITE_INTEGER:
        return std::int64_t{sqlite3_column_int64(m_statement, place)};
    case SQLITE_FLOAT:
        return sqlite3_column_double(m_statement, place) + 0.0; // no -0
    case SQLITE_NULL:
        return {};
    default:
        return std::string(reinterpret_cast<const char*>(sqlite3_column_text(m_statement, place)),
                           static_cast<std::size_t>(sqlite3_column_bytes(m_statement, place)));
    }
}

std::int64_t SqliteQuery::integer(int place) const {
    return sqlite3_column_int64(m_statement, place);
}

std::string_view SqliteQuery::blob(int place) const {
    const auto* data = static_cast<const char*>(sqlite3_column_blob(m_statement, place));
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, place))};
}

int SqliteQuery::columnCount() const {
    return sqlite3_column_count(m_statement);
}

} // namespace sql
