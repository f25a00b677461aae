// What the engine refuses, so that both executors and the file underneath never come to see it.
#include <algorithm>
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

TEST_P(Refusals, ATextThatIsNoPlainNumberLeavesANumberFieldEmpty) {
    db->execute("CREATE TABLE [t]([r] double,[n] integer)");
    sql::Recordset rows = db->openRecordset("t");
    for (const char* text : {"inf", "-inf", "nan", "0x10", "1e400", "", " ", "7x", "+"}) {
        rows.addNew();
        rows.set("r", std::string(text));
        rows.set("n", std::string(text));
        rows.update();
    }
    EXPECT_EQ(db->queryValue("SELECT Count(*) FROM [t] WHERE [r] is Null AND [n] is Null"),
              sql::Value(std::int64_t{9}));
    rows.addNew();
    rows.set("r", std::string(" +2.5"));
    rows.update();
    EXPECT_EQ(db->queryValue("SELECT [r] FROM [t] WHERE [r] > 0"), sql::Value(2.5));
}

TEST_P(Refusals, ALiteralTooLargeForANumberIsASyntaxError) {
    db->execute("CREATE TABLE [zuhe]([idx] integer,[canshu] integer)");
    db->execute("INSERT INTO [zuhe] ([idx]) VALUES (1)");
    for (const std::string& digits : {std::string(400, '9'), std::string(1 << 20, '8'), std::string("1E400")})
        EXPECT_EQ(errorOf([&] { db->execute("UPDATE [zuhe] SET [canshu]=1 WHERE [idx] < " + digits); }),
                  sql::error::kSyntax);
    db->execute("UPDATE [zuhe] SET [canshu]=1 WHERE [idx] < 99999999999999999999"); // beyond 64 bits: a real number
    EXPECT_EQ(db->queryValue("SELECT [canshu] FROM [zuhe]"), sql::Value(std::int64_t{1}));
    db->execute("UPDATE [zuhe] SET [canshu]=99999999999*[idx]");
    EXPECT_TRUE(sql::isNull(db->queryValue("SELECT [canshu] FROM [zuhe]")));
}

TEST_P(Refusals, SayInChineseWhatIsWrong) {
    db->execute("CREATE TABLE [zuhe]([idx] integer,[t] string)");
    db->execute("CREATE TABLE [fig]([idx] integer)");
    for (const char* statement : {"",
                                  "SELECT",
                                  "SELECT FROM [fig]",
                                  "UPDATE [fig] SET",
                                  "UPDATE [fig] SET [idx]=",
                                  "DROP [fig]",
                                  "CREATE TABLE",
                                  "CREATE TABLE [fig]([idx] integer)",
                                  "CREATE TABLE [zuhe]([idx] integer)",
                                  "CREATE TABLE [x]([a] blob)",
                                  "CREATE TABLE [x]([a] integer,[a] integer)",
                                  "DROP TABLE [none]",
                                  "SELECT * FROM [none]",
                                  "SELECT [none] FROM [zuhe]",
                                  "SELECT [none] FROM [fig]",
                                  "UPDATE [zuhe] SET [none]=1",
                                  "ALTER TABLE [zuhe] ADD COLUMN [t] string",
                                  "ALTER TABLE [fig] DROP COLUMN [none]",
                                  "ALTER TABLE [none] ADD COLUMN [t] string",
                                  "UPDATE [zuhe] SET [idx]=none(1)",
                                  "UPDATE [zuhe] SET [idx]=IIf(1)",
                                  "UPDATE [zuhe] SET [idx]=\"x",
                                  "UPDATE [zuhe] SET [idx]=[idx",
                                  "SELECT # FROM [fig]",
                                  "SELECT [idx] FROM [fig] ORDER BY 7",
                                  "INSERT INTO [fig] ([idx],[idx]) VALUES (1)",
                                  "INSERT INTO [zuhe] ([idx]) SELECT [idx],[idx] FROM [fig]",
                                  "SELECT [idx] INTO [fig] FROM [zuhe]",
                                  "UPDATE [zuhe] SET [idx]=1 WHERE [idx] IN (SELECT [idx] FROM [fig])",
                                  "SELECT SUM([t]) FROM [zuhe]",
                                  "SELECT Count(*), [idx] FROM [zuhe]",
                                  "UPDATE [zuhe] SET [idx]=SUM([idx])",
                                  "UPDATE [zuhe] SET [idx]=[t] + 1"}) {
        try {
            db->execute(statement);
        } catch (const sql::SqlError& error) {
            const std::string text = error.what();
            EXPECT_TRUE(
                std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0xE4; }))
                << statement << ": " << text;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Both, Refusals, ::testing::Values(sql::Executor::Column, sql::Executor::Sqlite));

TEST(ToInteger, GivesTheLimitBeyondSixtyFourBits) {
    EXPECT_EQ(sql::toInteger(sql::Value(1e300)), INT64_MAX);
    EXPECT_EQ(sql::toInteger(sql::Value(-1e300)), INT64_MIN);
    EXPECT_EQ(sql::toInteger(sql::Value(std::nan(""))), 0);
    EXPECT_EQ(sql::toInteger(sql::Value(2.5)), 2);
}

TEST(ZeroByte, BreaksItsStatementWhereverItStands) {
    for (const std::string_view statement : {std::string_view("UPDATE [t] SET [a]=\"x\0y\"", 23),
                                             std::string_view("DROP TABLE [t\0]", 15), std::string_view("\0", 1)})
        EXPECT_EQ(errorOf([&] { sql::parse(statement); }), sql::error::kSyntax);
}

} // namespace
