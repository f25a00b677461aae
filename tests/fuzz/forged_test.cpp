// Files that say of themselves more than they hold: refused without a crash, and without memory for what is not
// there.
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zstd.h>

#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "fuzz/small_databases.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kCanLimitMemory = false; // the sanitizer reserves terabytes of addresses for itself
#else
constexpr bool kCanLimitMemory = true;
#endif

constexpr rlim_t kRoom = rlim_t{256} << 20; // beyond what the process has already

rlim_t addressesInUse() {
    std::ifstream pages("/proc/self/statm");
    rlim_t count = 0;
    pages >> count;
    return count * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

/// What a child with little memory makes of the file: the number of the error, 0 when all was read.
int readWithLittleMemory(const std::filesystem::path& file) {
    const pid_t child = fork();
    if (child == 0) {
        const rlim_t most = addressesInUse() + kRoom;
        const rlimit limit{most, most};
        setrlimit(RLIMIT_AS, &limit);
        int number = 0;
        try {
            sql::Engine engine;
            const auto db = engine.open(file);
            const sql::Rows rows = db->query("SELECT * FROM [zuhe]");
            for (std::int64_t row = 0; row < rows.count(); row += 4099)
                for (int column = 0; column < rows.columnCount(); ++column)
                    rows.textAt(row, column);
        } catch (const sql::SqlError& error) {
            number = error.number();
        } catch (...) {
            number = 1;
        }
        std::ofstream(std::filesystem::path(file) += ".answer") << number;
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status))
        return -1; // a crash
    int number = -2;
    std::ifstream(std::filesystem::path(file) += ".answer") >> number;
    return number;
}

class Forged : public ::testing::Test {
  protected:
    Forged() { fuzz::putDatabase(file, fuzz::smallTables(sql::Executor::Column)); }

    /// SQLite's own statements, on table zuhe of 70 rows, whose columns are fields 1..11.
    void run(const std::string& statement, std::string_view blob = {}) {
        sqlite3* raw = nullptr;
        ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
        sqlite3_exec(raw, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
        sqlite3_stmt* query = nullptr;
        ASSERT_EQ(sqlite3_prepare_v2(raw, statement.c_str(), -1, &query, nullptr), SQLITE_OK) << sqlite3_errmsg(raw);
        sqlite3_bind_blob(query, 1, blob.data(), static_cast<int>(blob.size()), SQLITE_STATIC);
        EXPECT_EQ(sqlite3_step(query), SQLITE_DONE) << sqlite3_errmsg(raw);
        EXPECT_GT(sqlite3_changes(raw), 0);
        sqlite3_finalize(query);
        sqlite3_close(raw);
    }

    /// As many rows, with a chunk of one blob for every 65,536 of them in every column.
    void forgeRows(std::int64_t rows, const std::string& blob) {
        run("UPDATE column_store_tables SET rows = " + std::to_string(rows));
        run("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string((rows - 1) / 65536) + ") INSERT OR REPLACE INTO column_store_chunks SELECT f.id, n.i, x'" +
            blob + "' FROM column_store_fields f, n");
    }

    static std::string framed(const std::string& plain) {
        std::string packed(ZSTD_compressBound(plain.size()), '\0');
        packed.resize(ZSTD_compress(packed.data(), packed.size(), plain.data(), plain.size(), 1));
        return number(plain.size()) + packed;
    }
    static std::string number(std::size_t value) {
        const auto word = static_cast<std::uint32_t>(value);
        return {reinterpret_cast<const char*>(&word), sizeof word};
    }

    fuzz::FastFolder folder;
    std::filesystem::path file = folder.path() / "forged.mdb";
};

TEST_F(Forged, TwoThousandMillionRowsOfNothingAreDamage) {
    forgeRows(2147483647, "00");
    EXPECT_EQ(readWithLittleMemory(file), sql::error::kNotADatabase);
}

TEST_F(Forged, AChunkForEveryRowOfTheWidestTableEndsInAnErrorWhenThereIsNoMemoryForIt) {
    if (!kCanLimitMemory)
        GTEST_SKIP() << "no limit of memory under this sanitizer";
    run("UPDATE column_store_fields SET type = 0");         // whole numbers
    forgeRows(std::int64_t{1} << 26, "010000000001000000"); // 0, 1, 2, … in every chunk
    EXPECT_EQ(readWithLittleMemory(file), sql::error::kStorage);
}

TEST_F(Forged, RowsOfOneValueTakeNoMemoryAtAll) {
    run("UPDATE column_store_fields SET type = 0");
    forgeRows(std::int64_t{1} << 26, "010700000000000000"); // 7 in every row
    EXPECT_EQ(readWithLittleMemory(file), 0);
}

TEST_F(Forged, ATextLongerThanAColumnHoldsIsDamage) {
    const std::string text(1021, 'x');
    run("UPDATE column_store_texts SET data = ?1", framed(number(text.size()) + text));
    EXPECT_EQ(readWithLittleMemory(file), sql::error::kNotADatabase);
}

TEST_F(Forged, ARecipeForLongerTextsThanAColumnHoldsIsDamage) {
    const std::string literal(200, 'x');
    const std::string part = number(literal.size()) + literal + number(1) + number(2);
    const std::string recipe = std::string(1, '\6') + part;
    run("UPDATE column_store_chunks SET data = ?1 WHERE field_id = 6", recipe);
    EXPECT_EQ(readWithLittleMemory(file), 0); // once it fits
    run("UPDATE column_store_chunks SET data = ?1 WHERE field_id = 6", recipe + part);
    EXPECT_EQ(readWithLittleMemory(file), sql::error::kNotADatabase);
    const std::string nothing = number(0) + number(0) + number(0);
    run("UPDATE column_store_chunks SET data = ?1 WHERE field_id = 6", recipe + nothing);
    EXPECT_EQ(readWithLittleMemory(file), sql::error::kNotADatabase);
}

} // namespace
