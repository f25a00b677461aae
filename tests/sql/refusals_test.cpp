// What the engine refuses, so that both executors and the file underneath never come to see it.
#include <cmath>

#include <gtest/gtest.h>

#include "executor_names.h"
#include "scratch_folder.h"
#include "sql/database.h"
#include "sql/parser.h"

namespace {

template <class Action> int errorOf(Action action) {
    try {
        action();
        return 0;
    } catch (const sql::SqlError& error) {
        return error.number();
    }
}

class Refusals : public ::testing::TestWithParam<sql::Executor> {
  protected:
    ScratchFolder folder;
    sql::Engine engine{{.combinations = GetParam()}};
    std::unique_ptr<sql::Database> db = engine.create(folder.path() / "a.mdb");
};

TEST_P(Refusals, ATableKeepsItsLastColumn) {
    db->execute("CREATE TABLE [zuhe]([idx] integer,[fig1] integer)");
    db->execute("INSERT INTO [zuhe] ([idx]) VALUES (1)");
    db->execute("ALTER TABLE [zuhe] DROP COLUMN [idx]");
    EXPECT_EQ(errorOf([&] { db->execute("ALTER TABLE [zuhe] DROP COLUMN [fig1]"); }), sql::error::kStorage);
    EXPECT_EQ(db->columnNames("zuhe"), std::vector<std::string>{"fig1"});
}

TEST_P(Refusals, MinusZeroIsStoredAsZero) {
    db->execute("CREATE TABLE [zuhe]([r] double)");
    db->execute("INSERT INTO [zuhe] ([r]) VALUES (1)");
    db->execute("UPDATE [zuhe] SET [r]=0/-4 WHERE [r]=1");
    EXPECT_FALSE(std::signbit(sql::toReal(db->queryValue("SELECT [r] FROM [zuhe]"))));
}

TEST_P(Refusals, AnOuterTransactionCannotCommitWhatAnInnerOneTookBack) {
    db->execute("CREATE TABLE [fig]([idx] integer)");
    {
        sql::Transaction outer(*db);
        db->execute("INSERT INTO [fig] ([idx]) VALUES (1)");
        { const sql::Transaction inner(*db); }
        EXPECT_EQ(errorOf([&] { outer.commit(); }), sql::error::kStorage);
    }
    EXPECT_EQ(db->rowCount("fig"), 0);
    {
        const sql::Transaction later(*db); // a transaction again, not a statement after the other
        db->execute("INSERT INTO [fig] ([idx]) VALUES (2)");
    }
    EXPECT_EQ(db->rowCount("fig"), 0);
}

INSTANTIATE_TEST_SUITE_P(Both, Refusals, ::testing::Values(sql::Executor::Column, sql::Executor::Sqlite));

TEST(ZeroByte, BreaksItsStatementWhereverItStands) {
    for (const std::string_view statement : {std::string_view("UPDATE [t] SET [a]=\"x\0y\"", 23),
                                             std::string_view("DROP TABLE [t\0]", 15), std::string_view("\0", 1)})
        EXPECT_EQ(errorOf([&] { sql::parse(statement); }), sql::error::kSyntax);
}

} // namespace
