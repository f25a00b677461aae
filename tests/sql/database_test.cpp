#include "sql/database.h"

#include <fstream>

#include <gtest/gtest.h>

#include "scratch_folder.h"

namespace {

using sql::Value;

class DatabaseTest : public ::testing::Test {
  protected:
    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> db = engine.create(folder.path() / "a.mdb");
};

int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const sql::SqlError& error) {
        return error.number();
    }
    return 0;
}

TEST_F(DatabaseTest, OpeningTellsAMissingFolderFromAMissingFile) {
    EXPECT_EQ(errorOf([&] { engine.open(folder.path() / "none" / "a.mdb"); }), sql::error::kPathNotFound);
    EXPECT_EQ(errorOf([&] { engine.open(folder.path() / "none.mdb"); }), sql::error::kFileNotFound);
}

TEST_F(DatabaseTest, AFileThatIsNoDatabaseIsRefused) {
    const auto file = folder.path() / "garbage.mdb";
    std::ofstream(file) << std::string(5000, 'x');
    EXPECT_EQ(errorOf([&] { engine.open(file); }), sql::error::kNotADatabase);
}

/// Files that this process holds open.
std::ptrdiff_t openFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(DatabaseTest, AHandleThatIsGoneHoldsNoFileOpen) {
    const auto garbage = folder.path() / "garbage.mdb";
    std::ofstream(garbage) << std::string(5000, 'x');
    const std::ptrdiff_t before = openFiles();
    {
        sql::Engine another;
        const auto first = another.create(folder.path() / "b.mdb");
        first->execute("CREATE TABLE [fig]([idx] integer)");
        EXPECT_GT(openFiles(), before);
    }
    EXPECT_EQ(openFiles(), before);
    EXPECT_EQ(errorOf([&] { engine.open(garbage); }), sql::error::kNotADatabase);
    EXPECT_EQ(openFiles(), before);
}

TEST_F(DatabaseTest, AStatementOverACombinationTableAndAnOrdinaryOneIsRefused) {
    db->execute("CREATE TABLE [zuhe]([idx] integer,[fig1] integer,[canshu] integer)");
    db->execute("INSERT INTO [zuhe] ([idx],[fig1],[canshu]) VALUES (1,5,0)");
    db->execute("CREATE TABLE [fig]([idx] integer,[fig1] integer)");
    db->execute("INSERT INTO [fig] ([idx],[fig1]) VALUES (1,5)");
    for (const char* statement :
         {"UPDATE [zuhe] SET [canshu]=1 WHERE [fig1] IN (SELECT [fig1] FROM [fig])",
          "SELECT [idx] FROM [zuhe] WHERE [idx]=1 AND NOT [fig1] NOT IN (SELECT [fig1] FROM [fig] WHERE [idx]=1)",
          "SELECT [fig1] FROM [fig] WHERE [fig1] IN (SELECT [fig1] FROM [zuhe])",
          "DELETE FROM [fig] WHERE [fig1] IN (SELECT [fig1] FROM [zuhe])"})
        EXPECT_EQ(errorOf([&] { db->execute(statement); }), sql::error::kMixedStores) << statement;
    EXPECT_EQ(sql::toInteger(db->queryValue("SELECT [canshu] FROM [zuhe]")), 0);
    EXPECT_EQ(db->rowCount("fig"), 1);
}

TEST_F(DatabaseTest, AMissingTableHasItsOwnErrorNumber) {
    EXPECT_EQ(errorOf([&] { db->openRecordset("Ylqs"); }), sql::error::kTableNotFound);
    EXPECT_EQ(errorOf([&] { db->query("SELECT * FROM [Ylqs]"); }), sql::error::kTableNotFound);
    EXPECT_EQ(errorOf([&] { db->execute("DROP TABLE [Lishi]"); }), sql::error::kTableNotFound);
}

TEST_F(DatabaseTest, RecordsAreAddedEditedAndDeletedByFieldName) {
    db->execute("CREATE TABLE [Gailv]([Number] short,[gailv] double,[Glnum] short)");
    auto records = db->openRecordset("Gailv");
    EXPECT_TRUE(records.bof());
    EXPECT_TRUE(records.eof());
    for (int number = 1; number <= 3; ++number) {
        records.addNew();
        records.set("number", std::int64_t{number});
        records.set("GAILV", 0.5 * number);
        records.update();
    }
    EXPECT_EQ(records.recordCount(), 3);
    records.moveFirst();
    records.moveNext();
    EXPECT_EQ(records.field("Number"), Value(std::int64_t{2}));
    EXPECT_TRUE(sql::isNull(records.field("Glnum")));
    records.edit();
    records.set("Glnum", std::int64_t{7});
    records.update();
    EXPECT_EQ(records.field("Glnum"), Value(std::int64_t{7}));
    records.remove();
    EXPECT_EQ(errorOf([&] { records.field("Number"); }), sql::error::kNoCurrentRecord);
    records.moveNext();
    EXPECT_EQ(records.field("Number"), Value(std::int64_t{3}));
    records.moveNext();
    EXPECT_TRUE(records.eof());
    EXPECT_EQ(db->rowCount("Gailv"), 2);
}

TEST_F(DatabaseTest, DeletingFromTheLastToTheFirstEmptiesATable) {
    db->execute("CREATE TABLE [t]([a] integer)");
    auto records = db->openRecordset("t");
    for (int number = 0; number < 5; ++number) {
        records.addNew();
        records.set("a", std::int64_t{number});
        records.update();
    }
    for (records.moveLast(); !records.bof(); records.movePrevious())
        records.remove();
    EXPECT_EQ(db->rowCount("t"), 0);
}

TEST_F(DatabaseTest, ATableMayBeNamedByDigits) {
    db->execute("CREATE TABLE [0954]([fig1] integer)");
    db->execute("INSERT INTO [0954] ([fig1]) VALUES (7)");
    EXPECT_EQ(sql::toInteger(db->openRecordset("0954").field("fig1")), 7);
    EXPECT_EQ(sql::toInteger(db->openRecordset("[0954]").field("fig1")), 7);
    EXPECT_EQ(errorOf([&] { db->openRecordset("954"); }), sql::error::kTableNotFound);
}

TEST_F(DatabaseTest, ARecordSetOfASelectCannotBeWritten) {
    db->execute("CREATE TABLE [t]([a] integer)");
    db->execute("INSERT INTO [t] ([a]) VALUES (4)");
    auto records = db->openRecordset("SELECT [a] FROM [t]");
    records.edit();
    records.set("a", std::int64_t{1});
    EXPECT_EQ(errorOf([&] { records.update(); }), sql::error::kNotUpdatable);
    EXPECT_EQ(errorOf([&] { records.field("b"); }), sql::error::kFieldNotFound);
}

TEST_F(DatabaseTest, AFieldThatCannotHoldAValueStaysEmpty) {
    db->execute("CREATE TABLE [t]([a] short,[b] integer,[c] string,[d] bit)");
    auto records = db->openRecordset("t");
    records.addNew();
    records.set("a", std::int64_t{40000});
    records.set("b", std::string("abc"));
    records.set("c", std::string(300, 'x'));
    records.set("d", std::int64_t{5});
    records.update();
    records.moveFirst();
    EXPECT_TRUE(sql::isNull(records.field("a")));
    EXPECT_TRUE(sql::isNull(records.field("b")));
    EXPECT_EQ(records.field("c"), Value(std::string(255, 'x')));
    EXPECT_EQ(records.field("d"), Value(std::int64_t{-1}));
}

TEST_F(DatabaseTest, TwoHandlesOnOneFileStandOnOneStore) {
    const auto second = engine.open(folder.path() / "a.mdb");
    db->execute("CREATE TABLE [t]([a] integer)");
    db->execute("CREATE TABLE [zuhe]([idx] integer,[unslt] bit)");
    second->execute("INSERT INTO [t] ([a]) VALUES (1)");
    second->execute("INSERT INTO [zuhe] ([idx]) VALUES (1)");
    EXPECT_EQ(db->rowCount("t"), 1);
    EXPECT_EQ(db->rowCount("zuhe"), 1);
    db->execute("DROP TABLE [zuhe]");
    EXPECT_FALSE(second->hasTable("zuhe"));
}

TEST_F(DatabaseTest, ATransactionThatIsNotCommittedLeavesNothing) {
    db->execute("CREATE TABLE [t]([a] integer)");
    {
        sql::Transaction transaction(*db);
        db->execute("INSERT INTO [t] ([a]) VALUES (1)");
    }
    EXPECT_EQ(db->rowCount("t"), 0);
    {
        sql::Transaction outer(*db);
        sql::Transaction inner(*db);
        db->execute("INSERT INTO [t] ([a]) VALUES (1)");
        inner.commit();
        outer.commit();
    }
    EXPECT_EQ(db->rowCount("t"), 1);
}

TEST_F(DatabaseTest, TheListenerSeesEveryStatementAlsoTheOnesThatFail) {
    std::vector<std::string> seen;
    db->setListener([&](std::string_view statement) { seen.emplace_back(statement); });
    db->execute("CREATE TABLE [t]([a] integer)");
    EXPECT_FALSE(sql::passOver(*db, "UPDATE [none] SET [a]=1"));
    db->query("SELECT * FROM [t]");
    EXPECT_EQ(seen, (std::vector<std::string>{"CREATE TABLE [t]([a] integer)", "UPDATE [none] SET [a]=1",
                                              "SELECT * FROM [t]"}));
}

} // namespace
