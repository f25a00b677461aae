// Combination tables through the file: chunks, dictionaries, changes of shape, damage.
#include <fstream>
#include <random>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "combination_fixture.h"

namespace {

class StoredColumns : public ::testing::Test, protected CombinationFixture {
  protected:
    void fill(std::int32_t rows) {
        db->execute("CREATE TABLE [zuhe]([idx] integer,[fig1] integer,[canshu] integer,[Fliter] string,[unslt] bit)");
        std::vector<std::int32_t> idx(static_cast<std::size_t>(rows));
        std::vector<std::int32_t> fig(idx.size());
        for (std::size_t row = 0; row < idx.size(); ++row) {
            idx[row] = static_cast<std::int32_t>(row + 1);
            fig[row] = static_cast<std::int32_t>(row * 7919 % 33 + 1);
        }
        db->appendRows("zuhe", {{"idx", "fig1"}, {idx, fig}});
    }

    void reopen() {
        db->store();
        CombinationFixture::reopen();
    }
};

TEST_F(StoredColumns, ComeBackAsTheyWereAroundTheEndsOfChunks) {
    for (const std::int32_t rows : {0, 1, 65535, 65536, 65537, 140000}) {
        sql::passOver(*db, "DROP TABLE [zuhe]");
        fill(rows);
        db->execute(
            "UPDATE [zuhe] SET [canshu]=[idx] * 3 - 70000, [Fliter]=\"和\" & ([fig1] mod 5) WHERE [fig1] > 4");
        db->execute("UPDATE [zuhe] SET [unslt]=([idx] mod 3 = 0)");
        const auto before = everything();
        ASSERT_EQ(before.size(), static_cast<std::size_t>(rows));
        reopen();
        ASSERT_EQ(everything(), before) << rows;
        db->execute("UPDATE [zuhe] SET [unslt]=not [unslt] , [Fliter] = \"反-\" & [Fliter] WHERE [idx] = 65536");
        const auto changed = everything();
        reopen();
        ASSERT_EQ(everything(), changed) << rows;
    }
}

TEST_F(StoredColumns, NothingIsPendingAfterAStoreAndAnUpdateMakesItPending) {
    fill(10);
    EXPECT_TRUE(db->storePending());
    db->store();
    EXPECT_FALSE(db->storePending());
    db->query("SELECT * FROM [zuhe]");
    EXPECT_FALSE(db->storePending());
    db->execute("UPDATE [zuhe] SET [unslt]=true WHERE [idx]=3");
    EXPECT_TRUE(db->storePending());
}

TEST_F(StoredColumns, WhatWasNotStoredIsGoneAndWhatWasStoredIsWhole) {
    fill(100);
    db->execute("UPDATE [zuhe] SET [canshu]=1");
    db->store();
    const auto stored = everything();
    db->execute("UPDATE [zuhe] SET [canshu]=2");
    std::filesystem::copy_file(file, folder.path() / "b.mdb"); // what a kill would leave
    sql::Engine other;
    db = other.open(folder.path() / "b.mdb");
    EXPECT_EQ(everything(), stored);
}

TEST_F(StoredColumns, AddedAndDroppedColumnsAreRemembered) {
    fill(5);
    db->execute("ALTER TABLE [zuhe] ADD COLUMN [jiben] integer");
    db->execute("UPDATE [zuhe] SET [jiben]=[fig1]");
    reopen();
    EXPECT_EQ(sql::toInteger(db->queryValue("SELECT Count([jiben]) FROM [zuhe]")), 5);
    db->execute("ALTER TABLE [zuhe] DROP COLUMN [jiben]");
    db->execute("ALTER TABLE [zuhe] ADD COLUMN [jiben] integer");
    reopen();
    EXPECT_EQ(sql::toInteger(db->queryValue("SELECT Count([jiben]) FROM [zuhe]")), 0);
    EXPECT_EQ(db->columnNames("zuhe").back(), "jiben");
}

TEST_F(StoredColumns, ADroppedTableIsGoneFromTheFileToo) {
    fill(5);
    db->store();
    db->execute("DROP TABLE [zuhe]");
    reopen();
    EXPECT_FALSE(db->hasTable("zuhe"));
}

TEST_F(StoredColumns, RowsOfASelectOutliveTheirTable) {
    fill(200);
    const sql::Rows rows = db->query("SELECT [idx] FROM [zuhe] WHERE [idx] mod 2 = 0");
    db->execute("DROP TABLE [zuhe]");
    EXPECT_EQ(rows.count(), 100);
    EXPECT_EQ(rows.integerAt(99, 0), 200);
}

TEST_F(StoredColumns, ARecordSetOverACombinationTableReadsAndWrites) {
    fill(3);
    auto records = db->openRecordset("zuhe");
    int number = 0;
    for (records.moveFirst(); !records.eof(); records.moveNext()) {
        records.edit();
        records.set("Idx", std::int64_t{10 + number++});
        records.set("Fliter", std::string("x"));
        records.update();
    }
    records.addNew();
    records.set("fig1", std::int64_t{33});
    records.update();
    EXPECT_EQ(everything(), (std::vector<std::string>{"10|1|NULL|x|0|", "11|33|NULL|x|0|", "12|32|NULL|x|0|",
                                                      "NULL|33|NULL|NULL|0|"}));
}

TEST_F(StoredColumns, AKernelFillsAColumnFromOthers) {
    for (const sql::Executor executor : {sql::Executor::Column, sql::Executor::Sqlite}) {
        sql::Engine either({.combinations = executor});
        db = either.create(folder.path() / "k.mdb");
        fill(5000);
        db->execute("UPDATE [zuhe] SET [fig1]=Null WHERE [idx]=5000");
        const std::vector<std::string> inputs = {"idx", "fig1"};
        db->computeColumn("zuhe", inputs, "canshu", [](auto columns, auto output) {
            for (std::size_t row = 0; row < output.size(); ++row)
                output[row] = columns[0][row] * 100 + columns[1][row];
        });
        EXPECT_EQ(sql::toInteger(db->queryValue("SELECT Count(*) FROM [zuhe] WHERE [canshu]=[idx]*100+[fig1]")),
                  4999);
        EXPECT_EQ(sql::toInteger(db->queryValue("SELECT [canshu] FROM [zuhe] WHERE [idx]=5000")), 500000);
    }
}

/// Every answer of a damaged file is an engine error or some table; never a crash.
TEST_F(StoredColumns, ADamagedFileGivesAnEngineErrorAtMost) {
    fill(70000);
    db->execute("UPDATE [zuhe] SET [canshu]=[fig1] * [fig1] mod 17, [Fliter]=\"和\" & [fig1] WHERE [fig1] > 9");
    db->store();
    db.reset();
    std::ifstream input(file, std::ios::binary);
    const std::string whole((std::istreambuf_iterator<char>(input)), std::istreambuf_iterator<char>());
    std::mt19937 random(7);
    int refused = 0;
    for (int round = 0; round < 300; ++round) {
        std::string damaged = whole;
        if (round % 3 == 0)
            damaged.resize(random() % damaged.size());
        else
            for (int flip = 0; flip < 30; ++flip)
                damaged[random() % damaged.size()] = static_cast<char>(random());
        const auto copy = folder.path() / "damaged.mdb";
        std::filesystem::remove(copy);
        std::ofstream(copy, std::ios::binary) << damaged;
        try {
            sql::Engine other;
            const auto opened = other.open(copy);
            const sql::Rows rows = opened->query("SELECT * FROM [zuhe] WHERE [canshu] > 3 AND [Fliter] LIKE \"*1*\"");
            for (std::int64_t row = 0; row < rows.count(); row += 997)
                rows.textAt(row, 3);
        } catch (const sql::SqlError&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 50);
}

} // namespace
