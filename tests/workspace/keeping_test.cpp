#include "workspace/keeping.h"

#include <fstream>

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace {

using workspace::closeNotice;
using workspace::Keeping;
using workspace::KeptFiles;
using workspace::unreadKeptFiles;

class Kept : public ::testing::Test {
  protected:
    std::filesystem::path folder() const { return workspace::toPath(dir.path()); }
    std::filesystem::path write(const std::string& name, const std::string& text) const {
        std::ofstream(folder() / name) << text;
        return folder() / name;
    }
    static std::string read(const std::filesystem::path& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    QTemporaryDir dir;
    QDateTime now{QDate(2026, 3, 5), QTime(9, 7, 1)};
};

TEST_F(Kept, AMovedFileLiesInAFolderNamedByTheTime) {
    const auto file = write("a.mdb", "draws");
    {
        Keeping keeping(folder(), u"换上了模板。"_s, now);
        keeping.move(file);
        EXPECT_FALSE(keeping.isEmpty());
    }
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(read(folder() / "保存 2026-03-05 090701" / "a.mdb"), "draws");
    const auto unread = unreadKeptFiles(folder());
    ASSERT_EQ(unread.size(), 1u);
    EXPECT_EQ(unread[0].what, u"换上了模板。"_s);
    EXPECT_EQ(unread[0].files, std::vector{folder() / "保存 2026-03-05 090701" / "a.mdb"});
}

TEST_F(Kept, ASecondKeepingOfTheSameSecondHasAFolderOfItsOwn) {
    for (const char* text : {"one", "two", "three"}) {
        Keeping keeping(folder(), u"x"_s, now);
        keeping.move(write("a.mdb", text));
    }
    EXPECT_EQ(read(folder() / "保存 2026-03-05 090701" / "a.mdb"), "one");
    EXPECT_EQ(read(folder() / "保存 2026-03-05 090701 (2)" / "a.mdb"), "two");
    EXPECT_EQ(read(folder() / "保存 2026-03-05 090701 (3)" / "a.mdb"), "three");
    EXPECT_EQ(unreadKeptFiles(folder()).front().folder.filename(), "保存 2026-03-05 090701 (3)"); // newest first
}

TEST_F(Kept, WhereNothingIsThereNothingIsMade) {
    {
        Keeping keeping(folder(), u"x"_s, now);
        keeping.move(folder() / "none.mdb");
        keeping.copy(folder() / "none.mdb");
        EXPECT_TRUE(keeping.isEmpty());
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder()));
}

TEST_F(Kept, AJournalGoesWithItsDatabase) {
    const auto file = write("a.mdb", "draws");
    write("a.mdb-journal", "journal");
    { Keeping(folder(), u"x"_s, now).move(file); }
    EXPECT_EQ(read(folder() / "保存 2026-03-05 090701" / "a.mdb-journal"), "journal");
    EXPECT_FALSE(std::filesystem::exists(folder() / "a.mdb-journal"));
}

TEST_F(Kept, PutBackLeavesEverythingAsItWas) {
    const auto file = write("a.mdb", "draws");
    write("a.mdb-journal", "journal");
    {
        Keeping keeping(folder(), u"x"_s, now);
        keeping.move(file);
        keeping.putBack();
    }
    EXPECT_EQ(read(file), "draws");
    EXPECT_EQ(read(folder() / "a.mdb-journal"), "journal");
    EXPECT_TRUE(unreadKeptFiles(folder()).empty());
    EXPECT_FALSE(std::filesystem::exists(folder() / "保存 2026-03-05 090701"));
}

TEST_F(Kept, ACopyLeavesTheFile) {
    const auto file = write("a.txt", "draws");
    { Keeping(folder(), u"x"_s, now).copy(file); }
    EXPECT_EQ(read(file), "draws");
    EXPECT_EQ(read(folder() / "保存 2026-03-05 090701" / "a.txt"), "draws");
}

/// A kill between the moves leaves a folder that is not finished: the next one goes on in it.
TEST_F(Kept, AfterAKillTheNextKeepingGoesOnInTheSameFolder) {
    const auto unfinished = folder() / "保存 2026-01-01 000000";
    std::filesystem::create_directory(unfinished);
    std::ofstream(unfinished / "正在保存.txt") << "换上了模板。\n";
    std::ofstream(unfinished / "a.mdb") << "draws";
    write("a.mdb-journal", "journal");
    ASSERT_EQ(unreadKeptFiles(folder()).size(), 1u); // the notice is there without it, too
    {
        Keeping keeping(folder(), u"y"_s, now);
        keeping.move(folder() / "a.mdb");
        keeping.move(write("b.mdb", "bets"));
    }
    EXPECT_EQ(read(unfinished / "a.mdb-journal"), "journal");
    EXPECT_EQ(read(unfinished / "b.mdb"), "bets");
    EXPECT_EQ(unreadKeptFiles(folder()).size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(unfinished / "正在保存.txt"));
}

TEST_F(Kept, AFileOfTheSameNameGetsANumber) {
    const auto unfinished = folder() / "保存 2026-01-01 000000";
    std::filesystem::create_directory(unfinished);
    std::ofstream(unfinished / "正在保存.txt") << "x";
    std::ofstream(unfinished / "a.mdb") << "first";
    { Keeping(folder(), u"x"_s, now).move(write("a.mdb", "second")); }
    EXPECT_EQ(read(unfinished / "a.mdb"), "first");
    EXPECT_EQ(read(unfinished / "a (2).mdb"), "second");
}

TEST_F(Kept, AClosedNoticeDoesNotComeBackAndTheFilesStay) {
    { Keeping(folder(), u"x"_s, now).move(write("a.mdb", "draws")); }
    const KeptFiles kept = unreadKeptFiles(folder()).front();
    EXPECT_TRUE(closeNotice(kept));
    EXPECT_TRUE(unreadKeptFiles(folder()).empty());
    EXPECT_EQ(read(kept.folder / "a.mdb"), "draws");
    EXPECT_EQ(read(kept.folder / "说明.txt"), "x\n");
}

TEST_F(Kept, WhereNoFolderCanBeMadeNothingIsMoved) {
    const auto file = write("a.mdb", "draws");
    Keeping keeping(folder() / "a.mdb" / "no folder", u"x"_s, now);
    EXPECT_THROW(keeping.move(file), workspace::Failure);
    EXPECT_EQ(read(file), "draws");
}

} // namespace
