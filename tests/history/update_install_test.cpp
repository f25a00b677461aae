// A downloaded history takes the place of the user's, whole, wherever the process is cut off.
#include "history/update_install.h"

#include <gtest/gtest.h>

#include "history/draws_support.h"
#include "history/store.h"
#include "history/text_file.h"
#include "history/text_lines.h"
#include "history/update_check.h"
#include "history/update_source.h"
#include "history/update_support.h"
#include "workspace/keeping.h"
#include "workspace/safe_file.h"
#include "workspace/templates.h"

using namespace Qt::StringLiterals;

namespace {

using history::Draw;

class Installing : public ::testing::Test {
  protected:
    Installing() {
        history::storeBatch(history, fresh.workspace, old);
        history::writeHistoryText(history, fresh.workspace);
        std::filesystem::copy_file(published.file(history::kDatabasePaths[0].server), downloaded);
    }

    void install() { history::installUpdate(fresh.engine, fresh.workspace, downloaded, draws); }

    /// The next start of the program on the same files.
    void startAgain() {
        fresh.workspace.dbUser.reset();
        fresh.workspace.dbNumsave.reset();
        fresh.workspace.dbFilnum.reset();
        history::finishUpdate(fresh.engine, fresh.workspace);
        fresh.reopen();
    }

    static std::string dump(sql::Database& database, const char* table) {
        const sql::Rows rows = database.query(std::string("SELECT * FROM [") + table + "]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            for (int column = 0; column < rows.columnCount(); ++column)
                all += rows.textAt(row, column) + (column + 1 < rows.columnCount() ? '\t' : '\n');
        return all;
    }

    std::vector<Draw> bareNumbers() {
        const sql::Rows rows = fresh.workspace.dbFilnum->query("SELECT * FROM [fig]");
        std::vector<Draw> numbers;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            EXPECT_EQ(rows.integerAt(row, 0), row + 1);
            Draw& draw = numbers.emplace_back();
            for (std::size_t place = 0; place < draw.size(); ++place)
                draw[place] = static_cast<std::int32_t>(rows.integerAt(row, static_cast<int>(place) + 1));
        }
        return numbers;
    }

    /// Tables, the numbers beside them and the text file tell the same draws.
    void expectAll(const std::vector<Draw>& expected) {
        history::History loaded;
        history::loadHistory(loaded, fresh.workspace);
        EXPECT_EQ(std::vector<Draw>(loaded.Lshm.begin() + 1, loaded.Lshm.end()), expected);
        EXPECT_EQ(bareNumbers(), expected);
        EXPECT_EQ(bytesOf(text), history::drawsAsText(expected));
        EXPECT_FALSE(std::filesystem::exists(pending));
    }

    FreshWorkspace fresh;
    history::History history;
    std::vector<Draw> old = madeUpDraws(20, 1999001, 1);
    std::vector<Draw> draws = madeUpDraws(30);
    PublishedFolder published{draws};
    std::filesystem::path downloaded = fresh.folder() / "downloaded.mdb";
    std::filesystem::path userFile = fresh.folder() / "张三" / "张三.mdb";
    std::filesystem::path pending = fresh.folder() / "张三" / "张三.mdb.update";
    std::filesystem::path text = history::historyTextFile(fresh.workspace);
};

TEST_F(Installing, ReplacesTablesNumbersAndText) {
    install();
    EXPECT_FALSE(fresh.workspace.dbUser);
    EXPECT_FALSE(fresh.workspace.dbNumsave);
    EXPECT_EQ(bytesOf(userFile), published.bytes(history::kDatabasePaths[0].server));
    EXPECT_FALSE(std::filesystem::exists(downloaded)); // it was put in the place of the old one
    fresh.reopen();
    expectAll(draws);
}

TEST_F(Installing, PutsANewFileInPlaceAndNeverTheDownloadedOne) {
    fresh.engine.open(downloaded)->execute("UPDATE [Gailvtmp] SET [gailv] = 7");
    install();
    const auto installed = fresh.engine.open(userFile);
    EXPECT_EQ(installed->queryValue("SELECT SUM([gailv]) FROM [Gailvtmp]"), sql::Value(0.0));
    for (const char* table : {"fig", "Ylqs", "YlqsB", "Gailv", "GailvB"}) {
        const auto other = fresh.engine.open(published.file(history::kDatabasePaths[1].server));
        EXPECT_EQ(dump(*installed, table), dump(*other, table)) << table;
    }
}

TEST_F(Installing, RefusesAFileThatIsNoLongerTheOneThatWasConfirmed) {
    fresh.engine.open(downloaded)->execute("UPDATE [fig] SET [fig7] = 17 WHERE [Idx] = 7");
    EXPECT_THROW(install(), std::runtime_error);
    fresh.reopen();
    expectAll(old);
}

TEST_F(Installing, KeepsTheFormerHistoryThatTheNewOneDoesNotHold) {
    const QByteArray before = [&] {
        fresh.workspace.dbUser.reset();
        return bytesOf(userFile);
    }();
    install();
    const auto kept = workspace::unreadKeptFiles(userFile.parent_path());
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(kept[0].what, u"历史号码已由网上在线更新替换，更新之前的文件保存在这里。"_s);
    ASSERT_EQ(kept[0].files, std::vector{kept[0].folder / "张三.mdb"}); // the text said the same as the database
    EXPECT_EQ(bytesOf(kept[0].files[0]), before);
}

TEST_F(Installing, KeepsNothingWhenTheNewHistoryOnlyGoesOn) {
    history::History same;
    history::replaceHistory(same, fresh.workspace, std::span(draws).first(20));
    history::writeHistoryText(same, fresh.workspace);
    install();
    EXPECT_TRUE(workspace::unreadKeptFiles(userFile.parent_path()).empty());
    fresh.reopen();
    expectAll(draws);
}

TEST_F(Installing, KeepsADrawThatTheUserHasCorrected) {
    history::History same;
    history::replaceHistory(same, fresh.workspace, std::span(draws).first(20));
    fresh.workspace.dbUser->execute("UPDATE [fig] SET [Znum] = 1 WHERE [Idx] = 3");
    install();
    EXPECT_EQ(workspace::unreadKeptFiles(userFile.parent_path()).size(), 1u);
}

TEST_F(Installing, KeepsATextThatTheUserHasWritten) {
    writeBytes(text, "2003001 my own notes");
    install();
    const auto kept = workspace::unreadKeptFiles(userFile.parent_path());
    ASSERT_EQ(kept.size(), 1u);
    ASSERT_EQ(kept[0].files.size(), 2u);
    EXPECT_EQ(bytesOf(kept[0].folder / text.filename()), "2003001 my own notes");
    fresh.reopen();
    expectAll(draws);
}

TEST_F(Installing, KeepsTheFormerHistoryAfterAKillTooHoweverFarItWas) {
    fresh.workspace.dbUser.reset();
    const QByteArray before = bytesOf(userFile);
    ASSERT_TRUE(workspace::copyDatabase(downloaded, pending));
    const auto unfinished = userFile.parent_path() / "保存 2026-11-21 230105"; // cut off between copy and renaming
    std::filesystem::create_directory(unfinished);
    writeBytes(unfinished / "正在保存.txt", "历史号码已由网上在线更新替换，更新之前的文件保存在这里。\n");
    writeBytes(unfinished / "张三.mdb", before);
    startAgain();
    expectAll(draws);
    const auto kept = workspace::unreadKeptFiles(userFile.parent_path());
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(kept[0].folder, unfinished);
    for (const auto& file : kept[0].files)
        EXPECT_EQ(bytesOf(file), before);
}

TEST_F(Installing, CreatesTheNumbersWithTheirOwnColumnsOnly) {
    const auto handle = fresh.engine.open(fresh.workspace.dbFilnum->path());
    install();
    EXPECT_EQ(handle->columnNames("fig"),
              (std::vector<std::string>{"idx", "fig0", "fig1", "fig2", "fig3", "fig4", "fig5", "fig6", "fig7"}));
    EXPECT_EQ(handle->rowCount("fig"), 30);
}

TEST_F(Installing, MakesTheNumbersWhereTheirTableIsGone) {
    fresh.workspace.dbFilnum->execute("DROP TABLE [fig]");
    install();
    fresh.reopen();
    expectAll(draws);
}

TEST_F(Installing, LeavesSelectionsAndCombinationsAlone) {
    const auto selections = fresh.folder() / "张三" / "numsave.mdb";
    const QByteArray before = bytesOf(selections);
    fresh.workspace.dbFilnum->execute("INSERT INTO [zuhe] ([idx],[fig1],[fig7]) VALUES (1,5,9)");
    install();
    EXPECT_EQ(bytesOf(selections), before);
    fresh.reopen();
    EXPECT_EQ(fresh.workspace.dbFilnum->rowCount("zuhe"), 1);
}

TEST_F(Installing, IsCarriedOutAtTheNextStartOnceTheCopyStands) {
    ASSERT_TRUE(workspace::copyDatabase(downloaded, pending));
    startAgain();
    expectAll(draws);
}

TEST_F(Installing, IsCarriedOutAgainAfterAKillBehindTheNumbers) {
    ASSERT_TRUE(workspace::copyDatabase(downloaded, pending));
    fresh.workspace.dbFilnum->execute("DELETE FROM [fig]");
    writeBytes(text, "2003001 half a");
    startAgain();
    expectAll(draws);
}

TEST_F(Installing, LeavesTheOldHistoryWhenTheCopyWasNotWhole) {
    const std::filesystem::path unfinished = std::filesystem::path(pending) += ".new";
    writeBytes(unfinished, bytesOf(downloaded).left(5000));
    startAgain();
    expectAll(old);
    EXPECT_FALSE(std::filesystem::exists(unfinished));
}

TEST_F(Installing, GivesUpAtTheNextStartWhatIsNoHistory) {
    writeBytes(pending, "no database");
    startAgain();
    expectAll(old);
}

TEST_F(Installing, WithoutAnythingPendingTouchesNothing) {
    fresh.workspace.dbUser.reset();
    fresh.workspace.dbNumsave.reset();
    fresh.workspace.dbFilnum.reset();
    const auto before = filesBelow({fresh.folder()});
    history::finishUpdate(fresh.engine, fresh.workspace);
    EXPECT_EQ(filesBelow({fresh.folder()}), before);
}

TEST_F(Installing, FailsWithTheOldHistoryInPlaceWhenTheNumbersCannotBeWritten) {
    const std::filesystem::path filnum = fresh.workspace.dbFilnum->path();
    fresh.workspace.dbFilnum.reset();
    std::filesystem::remove(filnum);
    EXPECT_THROW(install(), sql::SqlError);
    EXPECT_FALSE(std::filesystem::exists(pending));
    EXPECT_TRUE(std::filesystem::exists(downloaded));
    EXPECT_EQ(history::checkedDraws(fresh.engine, userFile), old);
    EXPECT_EQ(bytesOf(text), history::drawsAsText(old));
}

TEST_F(Installing, PutsTextAndNumbersBackWhenTheDatabaseCannotBeReplaced) {
    fresh.workspace.dbUser.reset();
    std::filesystem::remove(userFile);
    std::filesystem::create_directory(userFile); // no file can be renamed over a folder
    EXPECT_THROW(install(), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(pending));
    EXPECT_EQ(bytesOf(text), history::drawsAsText(old));
    EXPECT_EQ(bareNumbers(), old);
    EXPECT_TRUE(workspace::unreadKeptFiles(userFile.parent_path()).empty());
}

TEST_F(Installing, LeavesNoJournalOfTheOldDatabaseBesideTheNewOne) {
    fresh.workspace.dbUser.reset();
    const std::filesystem::path journal = std::filesystem::path(userFile) += "-journal";
    writeBytes(journal, "of the old one");
    install();
    EXPECT_FALSE(std::filesystem::exists(journal));
    fresh.reopen();
    expectAll(draws);
}

} // namespace
