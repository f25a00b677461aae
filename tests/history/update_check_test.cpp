// Files that are no history of a user, and one that is.
#include "history/update_check.h"

#include <gtest/gtest.h>

#include "history/update_source.h"
#include "history/update_support.h"

namespace {

using history::checkedDraws;
using history::UnfitDatabase;

class Checking : public ::testing::Test {
  protected:
    std::filesystem::path file() const { return published.file(history::kDatabasePaths[0].server); }

    /// Runs statements on a fresh copy of the published database and checks it.
    void changeAndCheck(std::initializer_list<const char*> statements) {
        std::filesystem::copy_file(published.file(history::kDatabasePaths[1].server), file(),
                                   std::filesystem::copy_options::overwrite_existing);
        const auto database = engine.open(file());
        for (const char* statement : statements)
            database->execute(statement);
        checkedDraws(engine, file());
    }

    std::vector<history::Draw> draws = madeUpDraws(40);
    PublishedFolder published{draws};
    sql::Engine engine;
};

TEST_F(Checking, PassesWhatThePublisherMade) {
    EXPECT_EQ(checkedDraws(engine, file()), draws);
}

TEST_F(Checking, RefusesADatabaseWithoutATable) {
    for (const char* drop :
         {"DROP TABLE [fig]", "DROP TABLE [Ylqs]", "DROP TABLE [YlqsB]", "DROP TABLE [Gailv]", "DROP TABLE [GailvB]"})
        EXPECT_THROW(changeAndCheck({drop}), sql::SqlError) << drop;
}

TEST_F(Checking, RefusesADatabaseThatLacksAnyColumn) {
    const std::pair<const char*, std::vector<std::string>> tables[] = {
        {"fig", engine.open(file())->columnNames("fig")}, {"Ylqs", {"Qihao", "ylqs1", "ylqs38"}},
        {"YlqsB", {"Qihao", "ylqs1", "ylqs18"}},          {"Gailv", {"Number", "gailv", "Glnum"}},
        {"GailvB", {"Number", "gailv", "Glnum"}},
    };
    EXPECT_EQ(tables[0].second.size(), 45u); // the row number, eight numbers, 36 derived values
    for (const auto& [table, columns] : tables)
        for (const std::string& column : columns) {
            const std::string drop = std::string("ALTER TABLE [") + table + "] DROP COLUMN [" + column + "]";
            EXPECT_THROW(changeAndCheck({drop.c_str()}), sql::SqlError) << drop;
        }
}

TEST_F(Checking, RefusesCountsOfRecordsThatDoNotAgree) {
    for (const char* change :
         {"DELETE FROM [fig] WHERE [Idx] = 40", "DELETE FROM [fig]", "DELETE FROM [Ylqs] WHERE [Qihao] = 2003001",
          "DELETE FROM [YlqsB] WHERE [Qihao] = 2003001", "DELETE FROM [Gailv] WHERE [Number] = 38",
          "DELETE FROM [GailvB] WHERE [Number] = 18"})
        EXPECT_THROW(changeAndCheck({change}), UnfitDatabase) << change;
}

TEST_F(Checking, RefusesAHistoryWithoutADraw) {
    EXPECT_THROW(changeAndCheck({"DELETE FROM [fig]", "DELETE FROM [Ylqs]", "DELETE FROM [YlqsB]"}), UnfitDatabase);
}

TEST_F(Checking, RefusesNumbersThatAHistoryCannotHold) {
    for (const char* change :
         {"UPDATE [fig] SET [fig6] = 39 WHERE [Idx] = 7", "UPDATE [fig] SET [fig1] = 0 WHERE [Idx] = 7",
          "UPDATE [fig] SET [fig7] = 19 WHERE [Idx] = 7", "UPDATE [fig] SET [Idx] = 9 WHERE [Idx] = 7",
          "UPDATE [fig] SET [Znum] = Null WHERE [Idx] = 7", "UPDATE [Ylqs] SET [ylqs5] = Null",
          "UPDATE [Gailv] SET [gailv] = Null WHERE [Number] = 3", "UPDATE [GailvB] SET [Glnum] = Null"})
        EXPECT_THROW(changeAndCheck({change}), UnfitDatabase) << change;
}

TEST_F(Checking, PassesTheExtremesOfEveryRule) {
    EXPECT_NO_THROW(changeAndCheck({"UPDATE [fig] SET [fig6] = 38 WHERE [Idx] = 7",
                                    "UPDATE [fig] SET [fig7] = 18 WHERE [Idx] = 7",
                                    "UPDATE [Ylqs] SET [Qihao] = 1 WHERE [Qihao] = 2003001"}));
}

TEST_F(Checking, RefusesWhatIsNoDatabase) {
    writeBytes(file(), QByteArray(50000, 'x'));
    EXPECT_THROW(checkedDraws(engine, file()), sql::SqlError);
    writeBytes(file(), {});
    EXPECT_THROW(checkedDraws(engine, file()), sql::SqlError); // an empty file is a database without a table
    EXPECT_THROW(checkedDraws(engine, file().parent_path() / "none.mdb"), sql::SqlError);
}

TEST_F(Checking, RefusesADatabaseCutAtAnyPage) {
    constexpr int kPage = 4096;
    const QByteArray whole = published.bytes(history::kDatabasePaths[1].server);
    ASSERT_EQ(whole.size() % kPage, 0);
    int passed = 0;
    for (qsizetype length = kPage; length < whole.size(); length += kPage) {
        writeBytes(file(), whole.left(length));
        try {
            EXPECT_EQ(checkedDraws(engine, file()), draws) << length;
            ++passed;
        } catch (const std::exception&) {
            continue;
        }
    }
    EXPECT_LE(passed, 3); // pages at the end may belong to tables that a history does not need
}

} // namespace
