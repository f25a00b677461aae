#include "workspace/combination_files.h"

#include <fstream>

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "workspace/failure.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

namespace {

using workspace::combinationFile;
using workspace::CombinationFile;

class Combinations : public ::testing::Test {
  protected:
    Combinations() {
        workspace::createUserFiles(engine, folder(), u"张三"_s);
        workspace = workspace::enterUser(workspace::Settings(folder() / "config"), folder(), u"张三"_s);
        EXPECT_TRUE(workspace::openWorkspace(engine, workspace).opened);
    }
    std::filesystem::path folder() const { return workspace::toPath(dir.path()); }
    std::filesystem::path sixReds() const { return folder() / "张三" / "filnumR.mdb"; }

    QTemporaryDir dir;
    sql::Engine engine;
    workspace::Workspace workspace;
};

TEST_F(Combinations, BothFilesStandOpenSideBySide) {
    sql::Database& reds = combinationFile(engine, workspace, CombinationFile::SixReds);
    sql::Database& bets = combinationFile(engine, workspace, CombinationFile::WithBlue);
    EXPECT_EQ(&bets, workspace.dbFilnum.get());
    EXPECT_TRUE(reds.hasTable("zuheR"));
    EXPECT_TRUE(bets.hasTable("fig"));
    EXPECT_FALSE(reds.hasTable("fig"));
    EXPECT_EQ(&combinationFile(engine, workspace, CombinationFile::SixReds), &reds);
}

TEST_F(Combinations, AMissingFileOfSixRedsIsCopiedFromItsTemplate) {
    std::filesystem::remove(sixReds());
    EXPECT_EQ(combinationFile(engine, workspace, CombinationFile::SixReds).rowCount("zuheR"), 0);
}

TEST_F(Combinations, ATemplateThatIsMissingTooIsMadeFirst) {
    std::filesystem::remove(sixReds());
    std::filesystem::remove(folder() / "filnumR.mdb");
    EXPECT_EQ(combinationFile(engine, workspace, CombinationFile::SixReds).rowCount("zuheR"), 0);
}

TEST_F(Combinations, ACopyThatFailsIsToldAsAFileThatCannotBeWritten) {
    std::filesystem::remove(sixReds());
    std::filesystem::create_directory(std::filesystem::path(sixReds()) += ".new"); // in the way of the copy
    try {
        combinationFile(engine, workspace, CombinationFile::SixReds);
        FAIL() << "opened";
    } catch (const workspace::Failure& failure) {
        EXPECT_EQ(failure.cause(), u"不能写入文件 "_s + workspace::toQString(sixReds()));
    }
    EXPECT_FALSE(workspace.dbFilnumR);
}

TEST_F(Combinations, ADamagedFileOfSixRedsStays) {
    std::ofstream(sixReds(), std::ios::trunc) << "no database at all";
    EXPECT_THROW(combinationFile(engine, workspace, CombinationFile::SixReds), sql::SqlError);
    EXPECT_EQ(std::filesystem::file_size(sixReds()), 18u);
}

TEST_F(Combinations, WhatIsPendingInEitherFileIsStored) {
    EXPECT_FALSE(workspace::storePending(workspace));
    const std::vector<std::int32_t> one{1};
    combinationFile(engine, workspace, CombinationFile::SixReds).appendRows("zuheR", {{"idx"}, {one}});
    EXPECT_TRUE(workspace::storePending(workspace));
    workspace::storeAll(workspace);
    EXPECT_FALSE(workspace::storePending(workspace));
    sql::Engine other;
    EXPECT_EQ(other.open(sixReds())->rowCount("zuheR"), 1);
}

/// Another program may hold a file for writing: a store that has nothing to write must not wait for it.
TEST_F(Combinations, AFileWithNothingPendingIsLeftAlone) {
    const auto bets = folder() / "张三" / "filnum.mdb";
    sqlite3* holder = nullptr;
    ASSERT_EQ(sqlite3_open(bets.c_str(), &holder), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(holder, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    const std::vector<std::int32_t> one{1};
    combinationFile(engine, workspace, CombinationFile::SixReds).appendRows("zuheR", {{"idx"}, {one}});
    EXPECT_NO_THROW(workspace::storeAll(workspace));
    EXPECT_FALSE(workspace::storePending(workspace));
    sqlite3_close(holder);
}

} // namespace
