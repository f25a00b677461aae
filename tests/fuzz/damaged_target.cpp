// Kinds of damage, by the first byte of the input:
//   r  the rest is the file
//   p  bytes of a good file are changed: groups of three bytes of place and one of value
//   t  a good file is cut off at a place (three bytes), then bytes are changed as in p
//   c  a stored chunk of a good file becomes the rest (one byte chooses which)
//   z  the same, but an encoding byte, a width byte and compressed sections are made around the rest
//   x  stored texts become the rest (one byte chooses which)
//   y  the same, with sound compression around the rest
//   n  a number of the lists of tables and columns is changed: one byte chooses it, up to nine digits follow
// A capital letter does the same to a file with a table of two chunks a column, which takes a hundred times longer.
// A change that SQLite itself refuses is no damage; the whole file is read then.
#include <sqlite3.h>
#include <zstd.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <vector>

#include "fuzz/small_databases.h"
#include "fuzz/targets.h"

namespace {

constexpr std::int64_t kMostRowsRead = 300; // of a table, spread over all of it

std::size_t takePlace(std::string_view& input) {
    std::size_t place = 0;
    for (int byte = 0; byte < 3 && !input.empty(); ++byte) {
        place = place * 256 + static_cast<unsigned char>(input.front());
        input.remove_prefix(1);
    }
    return place;
}

unsigned takeByte(std::string_view& input) {
    if (input.empty())
        return 0;
    const auto byte = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    return byte;
}

std::string patched(std::string file, std::string_view input) {
    while (input.size() >= 4 && !file.empty()) {
        const std::size_t place = takePlace(input) % file.size();
        file[place] = static_cast<char>(takeByte(input));
    }
    return file;
}

std::string compressed(std::string_view plain) {
    std::string blob(ZSTD_compressBound(plain.size()), '\0');
    blob.resize(ZSTD_compress(blob.data(), blob.size(), plain.data(), plain.size(), 1));
    return blob;
}

void putNumber(std::string& blob, std::size_t number) {
    const auto word = static_cast<std::uint32_t>(number);
    blob.append(reinterpret_cast<const char*>(&word), sizeof word);
}

/// A chunk of 70 rows whose sections expand to the right lengths, filled from the input over and over.
std::string soundChunk(std::string_view input) {
    constexpr std::size_t kRows = 70;
    const unsigned encoding = takeByte(input) % 8;
    const unsigned width = takeByte(input) % 5;
    const bool bits = encoding == 3;
    const std::size_t each = encoding == 5 ? 8 : width == 1 ? 1 : width == 2 ? 2 : 4;
    std::string plain(bits ? 16 : kRows * each, '\0');
    for (std::size_t at = 0; at < plain.size() && !input.empty(); ++at)
        plain[at] = input[at % input.size()];
    std::string blob(1, static_cast<char>(encoding));
    const std::string section = compressed(plain);
    if (bits)
        return blob + section;
    if (encoding == 2)
        blob += static_cast<char>(width);
    putNumber(blob, section.size());
    blob += section;
    return input.size() % 2 == 0 ? blob : blob + compressed(plain.substr(0, 16));
}

std::string soundTexts(std::string_view input) {
    std::string plain;
    for (std::size_t first = 0; first < input.size(); first += 5) {
        const std::string_view text = input.substr(first, 5);
        putNumber(plain, text.size());
        plain += text;
    }
    std::string blob;
    putNumber(blob, plain.size());
    return blob + compressed(plain);
}

/// Runs one statement with a blob on a file, past the engine.
void change(const std::filesystem::path& file, const std::string& statement, std::string_view blob) {
    sqlite3* db = nullptr;
    sqlite3_open(file.c_str(), &db);
    sqlite3_exec(db, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
    sqlite3_stmt* query = nullptr;
    if (sqlite3_prepare_v2(db, statement.c_str(), -1, &query, nullptr) == SQLITE_OK) {
        sqlite3_bind_blob(query, 1, blob.data(), static_cast<int>(blob.size()), SQLITE_STATIC);
        sqlite3_step(query);
    }
    sqlite3_finalize(query);
    sqlite3_close(db);
}

std::string nth(const std::string& table, unsigned which) {
    return " WHERE rowid = (SELECT rowid FROM " + table + " ORDER BY rowid LIMIT 1 OFFSET " +
           std::to_string(which % 40) + " % (SELECT count(*) FROM " + table + "))";
}

void changeNumber(const std::filesystem::path& file, std::string_view input) {
    static constexpr const char* kNumbers[][2] = {
        {"column_store_tables", "rows"},  {"column_store_tables", "id"},       {"column_store_fields", "type"},
        {"column_store_fields", "place"}, {"column_store_fields", "table_id"}, {"column_store_fields", "id"},
        {"column_store_chunks", "chunk"}, {"column_store_chunks", "field_id"}, {"column_store_texts", "first"},
    };
    const unsigned which = takeByte(input);
    const auto& [table, column] = kNumbers[which % std::size(kNumbers)];
    std::string number(input.substr(0, 10));
    if (number.find_first_not_of("-0123456789") != std::string::npos || number.empty())
        number = "NULL";
    change(file, std::string("UPDATE ") + table + " SET " + column + " = " + number + nth(table, which / 9), {});
}

/// Every table is read, one is written to; what the engine refuses is passed over.
class Reader {
  public:
    explicit Reader(const std::filesystem::path& file) : m_db(m_engine.open(file)) {}

    void readAll() {
        for (const char* table : {"zuhe", "zuheR", "Tmp", "fig", "Gailv"}) {
            attempt([&] { readRows(m_db->query("SELECT * FROM [" + std::string(table) + "]")); });
            attempt([&] { readRecords(table); });
        }
        attempt([&] { m_db->execute("UPDATE [Tmp] SET [p]=NOT [q]"); });
        attempt(
            [&] { m_db->query("SELECT [a], [t] FROM [zuhe] WHERE [b] > 3 AND [u] LIKE \"*1*\" ORDER BY [t], [r]"); });
        attempt([&] { m_db->query("SELECT Min([r]), Max([t]), SUM([w]), Avg([h]) FROM [zuhe]"); });
        attempt([&] { m_db->execute("UPDATE [zuhe] SET [t]=[t] & [b], [h]=[h]*[h] mod 7, [p]=NOT [q]"); });
        attempt([&] { m_db->execute("UPDATE [fig] SET [fig1]=[fig1] + 1"); });
        attempt([&] { m_db->store(); });
    }

  private:
    template <class Action> static void attempt(Action action) {
        try {
            action();
        } catch (const sql::SqlError&) {
            // This is what a damaged file may do.
        }
    }

    static void readRows(const sql::Rows& rows) {
        const std::int64_t step = std::max<std::int64_t>(rows.count() / kMostRowsRead, 1);
        for (std::int64_t row = 0; row < rows.count(); row += step)
            for (int column = 0; column < rows.columnCount(); ++column)
                rows.textAt(row, column);
    }

    void readRecords(const char* table) {
        sql::Recordset records = m_db->openRecordset(table);
        for (int read = 0; read < 40 && !records.eof(); ++read, records.moveNext())
            for (int field = 0; field < records.fieldCount(); ++field)
                records.field(field);
    }

    sql::Engine m_engine;
    std::unique_ptr<sql::Database> m_db;
};

void damage(const std::filesystem::path& file, unsigned kind, const std::string& good, std::string_view input) {
    if (kind == 'r')
        return fuzz::putDatabase(file, input);
    if (kind == 'p')
        return fuzz::putDatabase(file, patched(good, input));
    if (kind == 't') {
        const std::size_t length = takePlace(input) % good.size();
        return fuzz::putDatabase(file, patched(good.substr(0, length), input));
    }
    fuzz::putDatabase(file, good);
    if (kind == 'n')
        return changeNumber(file, input);
    const bool texts = kind == 'x' || kind == 'y';
    const std::string table = texts ? "column_store_texts" : "column_store_chunks";
    const unsigned which = takeByte(input);
    const std::string blob = kind == 'z' ? soundChunk(input) : kind == 'y' ? soundTexts(input) : std::string(input);
    change(file, "UPDATE " + table + " SET data = ?1" + nth(table, which), blob);
}

} // namespace

void fuzz::damaged(std::string_view input) {
    static const FastFolder folder;
    static const std::string small = smallWorkspace();
    static const std::string twoChunks = workspaceOfTwoChunks();
    const std::filesystem::path file = folder.path() / "damaged.mdb";
    const unsigned kind = takeByte(input);
    const bool isCapital = kind >= 'A' && kind <= 'Z';
    damage(file, isCapital ? kind + ('a' - 'A') : kind, isCapital ? twoChunks : small, input);
    try {
        Reader(file).readAll();
    } catch (const sql::SqlError&) {
        return; // refused at once
    }
}
