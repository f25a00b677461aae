// Single damages of a stored combination table: each is found when the table is read, and told as a damaged file.
#include <sqlite3.h>

#include <gtest/gtest.h>

#include "fuzz/small_databases.h"

namespace {

struct Damage {
    const char* name;
    const char* statement; ///< SQLite's own, on table zuhe of 70 rows: id a b w s t u p q r h
    friend void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.name; }
};

// zuhe is table 1; its columns are fields 1..11 in this order.
constexpr Damage kDamages[] = {
    {"MoreRowsThanAreThere", "UPDATE column_store_tables SET rows = 2147483647"},
    {"MoreRowsInTheLastChunk", "UPDATE column_store_tables SET rows = 71"},
    {"LessThanNoRows", "UPDATE column_store_tables SET rows = -1"},
    {"NoColumns", "DELETE FROM column_store_fields"},
    {"AColumnOfNoType", "UPDATE column_store_fields SET type = 9 WHERE id = 2"},
    {"AColumnWithoutChunks", "DELETE FROM column_store_chunks WHERE field_id = 3"},
    {"TextsLost", "DELETE FROM column_store_texts"},
    {"TextsTwice", "INSERT INTO column_store_texts SELECT field_id, 999, data FROM column_store_texts"},
    {"TextsOfTwoGigabytes", "UPDATE column_store_texts SET data = x'FFFFFF7F' || substr(data, 5)"},
    {"NumbersTooWideForAShort", "UPDATE column_store_chunks SET data = x'01FFFFFF7F00000000' WHERE field_id = 11"},
    {"AnEncodingThatIsNone", "UPDATE column_store_chunks SET data = x'09' WHERE field_id = 1"},
    {"ASequenceThatLeavesTheNumbers",
     "UPDATE column_store_chunks SET data = x'01FFFFFF7F01000000' WHERE field_id = 1"},
    {"AnEmptyChunk", "UPDATE column_store_chunks SET data = x'' WHERE field_id = 8"},
    {"ANullChunk", "UPDATE column_store_chunks SET data = NULL WHERE field_id = 10"},
};

class Damaged : public ::testing::TestWithParam<Damage> {};

TEST_P(Damaged, IsFoundWhenTheTableIsRead) {
    const fuzz::FastFolder folder;
    const auto file = folder.path() / "damaged.mdb";
    fuzz::putDatabase(file, fuzz::smallTables(sql::Executor::Column));
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw, GetParam().statement, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(raw);
    EXPECT_GT(sqlite3_changes(raw), 0);
    sqlite3_close(raw);
    sql::Engine engine;
    const auto db = engine.open(file);
    try {
        db->query("SELECT * FROM [zuhe]");
        FAIL() << "was read";
    } catch (const sql::SqlError& error) {
        EXPECT_EQ(error.number(), sql::error::kNotADatabase) << error.what();
    }
}

INSTANTIATE_TEST_SUITE_P(Each, Damaged, ::testing::ValuesIn(kDamages),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
