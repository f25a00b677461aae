// Opening and its repairs, each branch by the defect that leads to it.
#include <sqlite3.h>

#include <fstream>
#include <map>

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/templates.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

namespace {

using workspace::OpenResult;
using workspace::Workspace;

constexpr const char* kFatal = "数据库读写错误,程序即将退出!请您删除该用户名,然后新建用户进入.";

class Opening : public ::testing::Test {
  protected:
    Opening() {
        std::filesystem::create_directory(folder());
        workspace::createUserFiles(engine, folder(), u"张三"_s);
        mark();
    }
    std::filesystem::path folder() const { return workspace::toPath(dir.filePath(u"程序"_s)); }
    std::filesystem::path file(const char* name) const { return workspace::userFolder(folder(), u"张三"_s) / name; }
    std::filesystem::path userFile() const { return file("张三.mdb"); }

    /// One record in each of the three databases: a repair discards them.
    void mark() {
        engine.open(userFile())->execute("INSERT INTO [Ylqs] ([Qihao]) VALUES (1)");
        engine.open(file("filnum.mdb"))->execute("INSERT INTO [Xhmb] ([Idx]) VALUES (1)");
        engine.open(file("numsave.mdb"))->execute("INSERT INTO [SAVE] ([Idx]) VALUES (1)");
    }

    void name() {
        workspace = Workspace();
        workspace.Username = u"张三"_s;
        workspace.UserDbPath = workspace::userDbFragment(u"张三"_s);
        workspace.folder = folder();
    }

    OpenResult open() {
        name();
        return workspace::openWorkspace(engine, workspace);
    }

    /// Opens with the `attempt`-th opening of a file failing (from 1, counted for that file).
    OpenResult openWithFailure(const char* failing, int attempt, int error) {
        name();
        int attempts = 0;
        return workspace::openWorkspace(
            engine,
            [&](const std::filesystem::path& path) {
                if (path.filename() == failing && ++attempts == attempt)
                    throw sql::SqlError(error, "made to fail");
                return engine.open(path);
            },
            workspace);
    }

    std::array<std::int64_t, 3> marks() {
        return {workspace.dbUser->rowCount("Ylqs"), workspace.dbFilnum->rowCount("Xhmb"),
                workspace.dbNumsave->rowCount("SAVE")};
    }
    void expectRepaired(const OpenResult& result) {
        ASSERT_TRUE(result.opened);
        EXPECT_TRUE(result.repaired);
        EXPECT_EQ(marks(), (std::array<std::int64_t, 3>{0, 0, 0})); // a repair discards history and selections
        EXPECT_EQ(workspace.dbUser->rowCount("Gailv"), 38);
    }
    void expectFatal(const OpenResult& result) {
        EXPECT_FALSE(result.opened);
        EXPECT_EQ(result.message.text.toStdString(), kFatal);
        EXPECT_EQ(result.message.title, u"数据库错误"_s);
        EXPECT_TRUE(result.message.note.startsWith(u"原因："_s));
        EXPECT_FALSE(workspace.dbUser || workspace.dbFilnum || workspace.dbNumsave);
    }

    /// Every file of the user's folder by its name below it, with its bytes.
    std::map<std::string, std::string> allFiles() const {
        std::map<std::string, std::string> files;
        const std::filesystem::path own = workspace::userFolder(folder(), u"张三"_s);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(own))
            if (entry.is_regular_file()) {
                std::ifstream in(entry.path(), std::ios::binary);
                files[std::filesystem::relative(entry.path(), own)] = {std::istreambuf_iterator<char>(in), {}};
            }
        return files;
    }
    std::vector<workspace::KeptFiles> kept() const {
        return workspace::unreadKeptFiles(workspace::userFolder(folder(), u"张三"_s));
    }
    workspace::Restored restore(const workspace::KeptFiles& files) {
        name();
        return workspace::restoreFiles(engine, workspace, files, [](const Workspace& tried) {
            tried.dbUser->query("SELECT [Qihao] FROM [Ylqs]");
        });
    }

    QTemporaryDir dir;
    sql::Engine engine;
    Workspace workspace;
};

/// A second program that holds a database file.
class Holder {
  public:
    explicit Holder(const std::filesystem::path& file) {
        sqlite3_open(file.c_str(), &m_handle);
        sqlite3_exec(m_handle, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    }
    ~Holder() { sqlite3_close(m_handle); }

  private:
    sqlite3* m_handle = nullptr;
};

TEST_F(Opening, AWholeWorkspaceOpensAsItIs) {
    const OpenResult result = open();
    EXPECT_TRUE(result.opened);
    EXPECT_FALSE(result.repaired);
    EXPECT_EQ(marks(), (std::array<std::int64_t, 3>{1, 1, 1}));
}

TEST_F(Opening, AFolderDeletedByHandIsRebuilt) { // 3044
    std::filesystem::remove_all(workspace::userFolder(folder(), u"张三"_s));
    expectRepaired(open());
    EXPECT_FALSE(std::filesystem::exists(file("filnumR.mdb"))); // three templates, not five
}

TEST_F(Opening, AMissingHistoryFileIsPutBackWithTheOthers) { // 3024
    std::filesystem::remove(userFile());
    expectRepaired(open());
}

TEST_F(Opening, AMissingTableOfTheHistoryDiscardsIt) { // 3078
    for (const char* table : {"Ylqs", "YlqsB", "Gailv", "GailvB", "fig"}) {
        engine.open(userFile())->execute(std::string("DROP TABLE [") + table + "]");
        expectRepaired(open());
        workspace = Workspace();
        mark();
    }
}

TEST_F(Opening, AHistoryFileOfGarbageIsReplaced) {
    std::ofstream(userFile(), std::ios::trunc) << "no database at all";
    expectRepaired(open());
}

TEST_F(Opening, AMissingCombinationFileDiscardsTheHistoryToo) {
    std::filesystem::remove(file("filnum.mdb"));
    expectRepaired(open());
}

TEST_F(Opening, ObjectNotFoundDeletesTheHistoryFileFirst) { // 3011
    expectRepaired(openWithFailure("张三.mdb", 1, sql::error::kObjectNotFound));
}

TEST_F(Opening, AnyOtherErrorOfTheHistoryIsRepairedTheSameWay) {
    expectRepaired(openWithFailure("张三.mdb", 1, sql::error::kStorage));
}

TEST_F(Opening, AJournalOfTheOldFileIsNotPlayedIntoTheNewOne) {
    std::filesystem::remove(userFile());
    for (const char* beside : {"张三.mdb-journal", "张三.mdb-wal"})
        std::ofstream(file(beside)) << "of another file";
    expectRepaired(open());
}

TEST_F(Opening, AMissingSelectionsFileDiscardsAllThree) { // 3024
    std::filesystem::remove(file("numsave.mdb"));
    expectRepaired(open());
}

TEST_F(Opening, AMissingTableOfTheSelectionsDiscardsAllThree) { // 3078
    for (const char* table : {"SAVE", "SAVEB", "SAVEdan"}) {
        engine.open(file("numsave.mdb"))->execute(std::string("DROP TABLE [") + table + "]");
        expectRepaired(open());
        workspace = Workspace();
        mark();
    }
}

TEST_F(Opening, AMissingPathOfTheSelectionsMakesTheFolder) { // 3044
    expectRepaired(openWithFailure("numsave.mdb", 1, sql::error::kPathNotFound));
}

TEST_F(Opening, AnyOtherErrorOfTheSelectionsIsTheEnd) {
    std::ofstream(file("numsave.mdb"), std::ios::trunc) << "no database at all";
    expectFatal(open());
    std::filesystem::copy_file(folder() / "numsave.mdb", file("numsave.mdb"),
                               std::filesystem::copy_options::overwrite_existing);
    expectFatal(openWithFailure("numsave.mdb", 1, sql::error::kObjectNotFound));
    EXPECT_TRUE(open().opened);
    EXPECT_EQ(marks()[0], 1); // nothing was discarded on the way
}

TEST_F(Opening, ASecondFailureIsTheEnd) {
    std::filesystem::remove(userFile());
    int attempts = 0;
    name();
    const OpenResult result = workspace::openWorkspace(
        engine,
        [&](const std::filesystem::path&) -> std::unique_ptr<sql::Database> {
            ++attempts;
            throw sql::SqlError(sql::error::kFileNotFound, "made to fail");
        },
        workspace);
    expectFatal(result);
    EXPECT_EQ(attempts, 2);
}

TEST_F(Opening, ATemplateThatIsMissingIsMadeForTheRepair) {
    std::filesystem::remove(folder() / "Lishihaoma.mdb");
    std::filesystem::remove(userFile());
    expectRepaired(open());
}

TEST_F(Opening, ANewUserHasCopiesOfAllFiveTemplates) {
    for (const char* name : {"张三.mdb", "filnum.mdb", "filnumR.mdb", "numsave.mdb", "Gailv.mdb"})
        EXPECT_TRUE(std::filesystem::exists(file(name))) << name;
}

TEST_F(Opening, DeletingAUserDeletesTheFilesButNotTheFolders) {
    std::filesystem::create_directory(file("duijiang"));
    std::ofstream(file("duijiang") / "兑奖.txt") << "kept";
    std::ofstream(folder() / "张三.mdb") << "beside the program";
    workspace::deleteUserFiles(folder(), u"张三"_s);
    EXPECT_FALSE(std::filesystem::exists(folder() / "张三.mdb"));
    EXPECT_FALSE(std::filesystem::exists(userFile()));
    EXPECT_FALSE(std::filesystem::exists(file("Gailv.mdb")));
    EXPECT_TRUE(std::filesystem::exists(file("duijiang") / "兑奖.txt"));
    workspace::deleteUserFiles(folder(), u"张三"_s); // nothing is missed the second time
    workspace::deleteUserFiles(folder(), u"没有"_s);
}

TEST_F(Opening, DeletingAUserNamedDotsTouchesNothingOutside) {
    std::ofstream(workspace::toPath(dir.path()) / "outside.txt") << "kept";
    workspace::deleteUserFiles(folder(), u".."_s);
    workspace::deleteUserFiles(folder(), u"../程序"_s);
    EXPECT_TRUE(std::filesystem::exists(workspace::toPath(dir.path()) / "outside.txt"));
    EXPECT_TRUE(std::filesystem::exists(folder() / "filnum.mdb"));
}

TEST_F(Opening, WhatARepairReplacesIsKeptToTheByte) {
    std::filesystem::remove(file("numsave.mdb"));
    const auto before = allFiles();
    expectRepaired(open());
    ASSERT_EQ(kept().size(), 1u);
    const workspace::KeptFiles keptFiles = kept().front();
    EXPECT_TRUE(keptFiles.what.contains(u"张三"_s) && keptFiles.what.contains(u"找不到文件"_s));
    const auto after = allFiles();
    const std::string prefix = keptFiles.folder.filename().string() + "/";
    for (const char* name : {"张三.mdb", "filnum.mdb"})
        EXPECT_EQ(after.at(prefix + name), before.at(name)) << name;
    EXPECT_EQ(keptFiles.files.size(), 2u);
}

TEST_F(Opening, ARestoreBringsBackWhatCanBeOpened) {
    std::ofstream(userFile(), std::ios::trunc) << "no database at all";
    expectRepaired(open());
    workspace = Workspace();
    const workspace::Restored restored = restore(kept().front());
    EXPECT_EQ(restored.files, (std::vector<QString>{u"filnum.mdb"_s, u"numsave.mdb"_s}));
    EXPECT_EQ(restored.refused, std::vector<QString>{u"张三.mdb"_s});
    EXPECT_TRUE(open().opened);
    EXPECT_EQ(marks(), (std::array<std::int64_t, 3>{0, 1, 1}));
    ASSERT_EQ(kept().size(), 1u); // what the restore replaced; the notice of the repair is closed
    workspace = Workspace();
    restore(kept().front()); // and back again
    EXPECT_TRUE(open().opened);
    EXPECT_EQ(marks(), (std::array<std::int64_t, 3>{0, 0, 0}));
}

TEST_F(Opening, AHistoryThatOnlyLooksSoundIsNotRestored) {
    std::filesystem::remove(file("numsave.mdb"));
    expectRepaired(open());
    workspace = Workspace();
    engine.open(kept().front().folder / "张三.mdb")->execute("DROP TABLE [Ylqs]");
    EXPECT_EQ(restore(kept().front()).refused, std::vector<QString>{u"张三.mdb"_s});
}

TEST_F(Opening, AnObstacleChangesNothing) {
    for (const int error :
         {sql::error::kLocked, sql::error::kPermission, sql::error::kInputOutput, sql::error::kDiskFull})
        for (const char* failing : {"张三.mdb", "filnum.mdb", "numsave.mdb"}) {
            const auto before = allFiles();
            expectFatal(openWithFailure(failing, 1, error));
            EXPECT_EQ(allFiles(), before) << error << ' ' << failing;
        }
    EXPECT_TRUE(open().opened);
    EXPECT_EQ(marks(), (std::array<std::int64_t, 3>{1, 1, 1}));
}

TEST_F(Opening, AFileThatAnotherProgramHoldsEndsTheStart) {
    const auto before = allFiles();
    {
        const Holder holder(userFile());
        const OpenResult result = open();
        expectFatal(result);
        EXPECT_TRUE(result.message.note.contains(u"文件正被另一个程序使用"_s));
    }
    {
        const Holder holder(file("filnum.mdb"));
        expectFatal(open());
    }
    EXPECT_EQ(allFiles(), before);
    EXPECT_TRUE(open().opened);
    EXPECT_EQ(marks(), (std::array<std::int64_t, 3>{1, 1, 1}));
}

TEST_F(Opening, AFolderInAFilesPlaceEndsTheStart) {
    std::filesystem::rename(userFile(), file("weg.mdb"));
    std::filesystem::create_directory(userFile());
    expectFatal(open());
    EXPECT_TRUE(kept().empty());
}

TEST_F(Opening, AFileOfNoBytesCountsAsMissing) {
    for (const char* name : {"filnum.mdb", "numsave.mdb", "张三.mdb"}) {
        std::ofstream(file(name), std::ios::trunc);
        expectRepaired(open());
        workspace = Workspace();
        mark();
    }
}

TEST_F(Opening, ACombinationFileWithoutTheDrawsGetsTheirTable) {
    engine.open(file("filnum.mdb"))->execute("DROP TABLE [fig]");
    const OpenResult result = open();
    EXPECT_TRUE(result.opened);
    EXPECT_FALSE(result.repaired);
    EXPECT_EQ(workspace.dbFilnum->rowCount("fig"), 0);
    EXPECT_EQ(marks(), (std::array<std::int64_t, 3>{1, 1, 1}));
}

TEST_F(Opening, ARepairThatCannotCopyPutsEverythingBack) {
    std::filesystem::remove(file("numsave.mdb"));
    std::filesystem::create_directory(file("filnum.mdb.new")); // where the copy would be written first
    const auto before = allFiles();
    expectFatal(open());
    EXPECT_EQ(allFiles(), before);
}

TEST_F(Opening, AHistoryThatCannotBeLoadedIsRepaired) {
    name();
    int loads = 0;
    const OpenResult result = workspace::openWorkspace(engine, workspace, [&](const Workspace&) {
        if (++loads == 1)
            throw sql::SqlError(sql::error::kNotADatabase, "made to fail");
    });
    expectRepaired(result);
    EXPECT_EQ(loads, 2);
}

TEST_F(Opening, ANewUserKeepsWhatHisFolderHolds) {
    const auto before = allFiles();
    workspace::createUserFiles(engine, folder(), u"张三"_s);
    ASSERT_EQ(kept().size(), 1u);
    EXPECT_EQ(kept().front().files.size(), 5u);
    EXPECT_TRUE(open().opened);
    EXPECT_EQ(marks(), (std::array<std::int64_t, 3>{0, 0, 0}));
    workspace = Workspace();
    EXPECT_EQ(restore(kept().front()).files.size(), 5u);
    for (const char* name : {"张三.mdb", "filnum.mdb", "numsave.mdb", "filnumR.mdb", "Gailv.mdb"})
        EXPECT_EQ(allFiles().at(name), before.at(name)) << name;
}

TEST_F(Opening, DeletingAUserFollowsNoLink) {
    const std::filesystem::path outside = workspace::toPath(dir.filePath(u"外面"_s));
    std::filesystem::create_directory(outside);
    std::ofstream(outside / "draws.txt") << "kept";
    std::filesystem::create_directory_symlink(outside, file("folder link"));
    std::filesystem::create_symlink(outside / "draws.txt", file("file link"));
    std::filesystem::create_directory_symlink(outside, workspace::userFolder(folder(), u"李四"_s));
    workspace::deleteUserFiles(folder(), u"张三"_s);
    workspace::deleteUserFiles(folder(), u"李四"_s);
    EXPECT_TRUE(std::filesystem::exists(outside / "draws.txt"));
    for (const auto& link : {file("folder link"), file("file link"), workspace::userFolder(folder(), u"李四"_s)})
        EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(link)));
}

TEST_F(Opening, ADeletedUsersNoticesAreClosed) {
    workspace::createUserFiles(engine, folder(), u"张三"_s);
    ASSERT_EQ(kept().size(), 1u);
    const auto keptFile = kept().front().folder / "张三.mdb";
    workspace::deleteUserFiles(folder(), u"张三"_s);
    EXPECT_TRUE(kept().empty());
    EXPECT_TRUE(std::filesystem::exists(keptFile));
}

TEST_F(Opening, TheFilesOfANamelessUserGoWithHisNewName) {
    workspace::createUserFiles(engine, folder(), {});
    engine.open(folder() / "%" / "%.mdb")->execute("INSERT INTO [Ylqs] ([Qihao]) VALUES (7)");
    workspace::adoptNamelessFiles(folder(), u"新用户2"_s);
    EXPECT_FALSE(std::filesystem::exists(folder() / "%"));
    EXPECT_EQ(engine.open(folder() / "新用户2" / "新用户2.mdb")->rowCount("Ylqs"), 1);
    workspace::createUserFiles(engine, folder(), {});
    workspace::adoptNamelessFiles(folder(), u"张三"_s); // has a folder of his own
    EXPECT_TRUE(std::filesystem::exists(folder() / "%" / "%.mdb"));
}

TEST_F(Opening, EnteringReadsTheUsersRule) {
    workspace::Settings settings(workspace::toPath(dir.filePath(u"配置"_s)));
    Workspace entered = workspace::enterUser(settings, folder(), u"张三"_s);
    EXPECT_EQ(entered.Bitnum, 33);
    EXPECT_EQ(entered.BitnumB, 16);
    EXPECT_EQ(entered.UserDbPath, u"\\张三\\张三.mdb"_s);
    EXPECT_EQ(entered.UserDbPathR, u"\\张三\\张三R.mdb"_s);
    settings.set(u"张三QS"_s, u"Initial"_s, u"Bitnum"_s, 36);
    EXPECT_EQ(workspace::enterUser(settings, folder(), u"张三"_s).Bitnum, 36);
    EXPECT_EQ(workspace::enterUser(settings, folder(), u"李四"_s).Bitnum, 33);
    settings.set(u"张三QS"_s, u"Initial"_s, u"Bitnum"_s, 99);
    settings.set(u"张三QS"_s, u"Initial"_s, u"BitnumB"_s, -1);
    EXPECT_EQ(workspace::enterUser(settings, folder(), u"张三"_s).Bitnum, 38); // the arrays end there
    EXPECT_EQ(workspace::enterUser(settings, folder(), u"张三"_s).BitnumB, 12);
    settings.set(u"张三QS"_s, u"Initial"_s, u"BitnumB"_s, u"sixteen"_s);
    EXPECT_THROW(workspace::enterUser(settings, folder(), u"张三"_s), workspace::ConversionError);
}

} // namespace
