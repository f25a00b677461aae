#include "workspace/combination_files.h"

#include <fstream>

#include <QTemporaryDir>
#include <gtest/gtest.h>

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

} // namespace
