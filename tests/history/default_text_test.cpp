#include "history/default_text.h"

#include <QDir>

#include "history/maintenance.h"
#include "history/reading_support.h"
#include "history/store.h"
#include "history/text_lines.h"
#include "same_history.h"
#include "workspace/failure.h"
#include "workspace/keeping.h"
#include "workspace/paths.h"

namespace {

using history::Draw;
using history::Reading;
using workspace::KeptFiles;

const Draw kThird{2003003, 1, 7, 10, 23, 28, 32, 16};

class DefaultText : public ReadingTest {
  protected:
    void SetUp() override { ASSERT_EQ(read(write(u"a.txt"_s, kTwoDraws)), Reading::Done); }

    std::filesystem::path userFolder() const { return workspace::userFolder(fresh.folder(), u"张三"_s); }
    std::vector<KeptFiles> kept() const { return workspace::unreadKeptFiles(userFolder()); }
    /// Names and contents of all files that were kept, the newest first.
    QStringList keptNames() const {
        QStringList names;
        for (const KeptFiles& one : kept())
            for (const auto& file : one.files)
                names << workspace::toQString(file.filename());
        return names;
    }
    QByteArray keptText() { return contents(workspace::toQString(kept().front().folder / "张三 双色号码.TXT")); }
    void edit(const QByteArray& bytes) {
        QFile file(standard());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    }
    void type() { typeDraw(history, fresh.workspace, kThird); }
    /// Nothing can be kept any more: a file stands where the folders would be made.
    void takeUserFolderAway() {
        std::filesystem::rename(userFolder(), fresh.folder() / "away");
        QFile file(workspace::toQString(userFolder()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
};

TEST_F(DefaultText, ChangesOfItsOwnTextKeepNothing) {
    type();
    correctNumber(history, fresh.workspace, 1, 7, 3);
    correctNumber(history, fresh.workspace, 1, 0, 2010001);
    deleteLastDraw(history, fresh.workspace);
    append(write(u"b.txt"_s, "2010005 01 02 03 04 05 06 07\n"), {true, true});
    EXPECT_EQ(history.Lsnum, 3);
    EXPECT_TRUE(kept().empty());
}

TEST_F(DefaultText, EveryChangeKeepsATextThatWasEditedByHand) {
    const QByteArray mine = "2003001 10 11 12 13 26 28 11 生日\n";
    const std::function<void()> changes[] = {
        [&] { type(); }, [&] { correctNumber(history, fresh.workspace, 1, 7, 3); },
        [&] { correctNumber(history, fresh.workspace, 1, 0, 7); }, [&] { deleteLastDraw(history, fresh.workspace); },
        [&] { clearHistory(history, fresh.workspace); }};
    std::size_t changed = 0;
    for (const auto& change : changes) {
        edit(mine);
        change();
        ASSERT_EQ(kept().size(), ++changed);
        int copies = 0;
        for (const KeptFiles& one : kept())
            copies += contents(workspace::toQString(one.folder / "张三 双色号码.TXT")) == mine;
        EXPECT_EQ(copies, static_cast<int>(changed));
        EXPECT_EQ(contents(standard()), history::drawsAsText(drawsOf(history)));
    }
}

TEST_F(DefaultText, ATextOfAnotherHistoryIsKept) {
    QFile::remove(standard());
    edit(kOneDraw); // as a database that was put in place of the former leaves it
    type();
    EXPECT_EQ(keptNames(), QStringList{u"张三 双色号码.TXT"_s});
    EXPECT_EQ(keptText(), kOneDraw);
    EXPECT_TRUE(kept().front().what.startsWith(u"默认历史文本"_s));
}

TEST_F(DefaultText, BlanksAtTheEndsOfLinesAreNoEdit) {
    edit("\xEF\xBB\xBF" + QByteArray(kTwoDraws).replace('\n', "\r\n\r\n"));
    type();
    EXPECT_TRUE(kept().empty());
}

TEST_F(DefaultText, ATextThatHoldsTheNewHistoryAlreadyIsNotKept) {
    edit(kTwoDraws + "2003003 01 07 10 23 28 32 16\n");
    type();
    EXPECT_TRUE(kept().empty());
}

TEST_F(DefaultText, AnEditedTextThatIsReadIsKeptForItsRemarks) {
    edit(kTwoDraws + "2003003 01 07 10 23 28 32 16");
    EXPECT_EQ(read(write(u"b.txt"_s, kOneDraw), {true, false}), Reading::DoneFromDefault);
    EXPECT_EQ(history.Lsnum, 3);
    EXPECT_TRUE(kept().empty()); // all that it says is in the new text
    edit(kTwoDraws + "2003003 01 07 10 23 28 32 16 # 生日\n");
    EXPECT_EQ(read(write(u"b.txt"_s, kOneDraw), {true, false}), Reading::DoneFromDefault);
    EXPECT_TRUE(keptText().endsWith("生日\n"));
}

TEST_F(DefaultText, AVeryLongTextIsKeptUnread) {
    ASSERT_TRUE(QFile::resize(standard(), 5'000'000));
    type();
    EXPECT_EQ(keptText().size(), 5'000'000);
}

TEST_F(DefaultText, WhatCannotBeKeptIsNotChanged) {
    edit("mine");
    const history::History before = history;
    takeUserFolderAway();
    EXPECT_THROW(type(), workspace::Failure);
    EXPECT_THROW(deleteLastDraw(history, fresh.workspace), workspace::Failure);
    EXPECT_THROW(correctNumber(history, fresh.workspace, 1, 7, 3), workspace::Failure);
    EXPECT_THROW(clearHistory(history, fresh.workspace), workspace::Failure);
    EXPECT_THROW(read(write(u"b.txt"_s, kOneDraw), {true, true}), workspace::Failure);
    EXPECT_EQ(stored(), 2);
    expectSameHistory(history, before);
}

/// The database that was kept, opened as a history of its own.
TEST_F(DefaultText, ClearingKeepsDatabaseAndText) {
    const QByteArray text = contents(standard());
    clearHistory(history, fresh.workspace);
    EXPECT_EQ(keptNames(), (QStringList{u"张三 双色号码.TXT"_s, u"张三.mdb"_s}));
    EXPECT_EQ(keptText(), text);
    EXPECT_EQ(fresh.engine.open(kept().front().folder / "张三.mdb")->rowCount("fig"), 2);
    const std::size_t before = kept().size();
    clearHistory(history, fresh.workspace); // nothing to lose any more
    EXPECT_EQ(kept().size(), before);
}

TEST_F(DefaultText, AWholeReadingThatLosesDrawsKeepsDatabaseAndText) {
    const QByteArray text = contents(standard());
    for (const QByteArray& other : {kTwoDraws.chopped(2) + "3\n", kTwoDraws.first(29), kOneDraw + kTwoDraws}) {
        FreshWorkspace second;
        history::History held;
        Answers yes;
        yes.picked = write(u"a.txt"_s, kTwoDraws);
        ASSERT_EQ(readWhole(held, second.workspace, yes, kNow), Reading::Done);
        yes.picked = write(u"b.txt"_s, other);
        ASSERT_EQ(readWhole(held, second.workspace, yes, kNow), Reading::Done);
        const auto folder = workspace::userFolder(second.folder(), u"张三"_s);
        const std::vector<KeptFiles> keptThere = workspace::unreadKeptFiles(folder);
        ASSERT_EQ(keptThere.size(), 1u) << other.toStdString();
        EXPECT_EQ(second.engine.open(keptThere[0].folder / "张三.mdb")->rowCount("fig"), 2);
        EXPECT_EQ(contents(workspace::toQString(keptThere[0].folder / " 张三2025-9-30日前 双色号码 .TXT")), text);
    }
}

TEST_F(DefaultText, AWholeReadingThatOnlyAddsKeepsNothing) {
    EXPECT_EQ(read(write(u"b.txt"_s, kTwoDraws + kOneDraw), {true, true}), Reading::Done);
    EXPECT_EQ(history.Lsnum, 3);
    EXPECT_EQ(read(write(u"c.txt"_s, kTwoDraws + kOneDraw), {true, true}), Reading::Done);
    EXPECT_TRUE(kept().empty());
}

TEST_F(DefaultText, AFailedWritingIsTriedAtTheNextChangeAndAtTheEnd) {
    const QString away = standard() + u".away"_s;
    const auto block = [&] {
        ASSERT_TRUE(QFile::rename(standard(), away));
        ASSERT_TRUE(QDir().mkdir(standard()));
    };
    const auto clear = [&] {
        ASSERT_TRUE(QDir().rmdir(standard()));
        ASSERT_TRUE(QFile::rename(away, standard()));
    };
    block();
    type();
    EXPECT_TRUE(history.text.pending);
    EXPECT_EQ(stored(), 3);
    clear();
    deleteLastDraw(history, fresh.workspace);
    EXPECT_FALSE(history.text.pending);
    block();
    type();
    retryHistoryText(history, fresh.workspace);
    EXPECT_TRUE(history.text.pending);
    clear();
    retryHistoryText(history, fresh.workspace);
    EXPECT_FALSE(history.text.pending);
    EXPECT_TRUE(contents(standard()).endsWith("2003003 01 07 10 23 28 32 16 \n"));
}

TEST_F(DefaultText, ATextLeftBehindByAFailedWritingIsTheProgramsOwn) {
    history.text = {true, contents(standard())}; // it was full when the draw came
    storeDraw(history, fresh.workspace, kThird);
    typeDraw(history, fresh.workspace, {2003004, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_TRUE(kept().empty());
    EXPECT_FALSE(history.text.pending);
    EXPECT_EQ(contents(standard()).count('\n'), 4);
}

TEST_F(DefaultText, IsNotWrittenThroughALinkOutOfTheFolder) {
    const QString outside = write(u"outside.txt"_s, "mine");
    for (const QString& target : {outside, texts.filePath(u"not there yet.txt"_s)}) {
        QFile::remove(standard());
        ASSERT_TRUE(QFile::link(target, standard()));
        writeHistoryText(history, fresh.workspace);
        EXPECT_TRUE(history.text.pending);
    }
    EXPECT_EQ(contents(outside), "mine");
    EXPECT_FALSE(QFile::exists(texts.filePath(u"not there yet.txt"_s)));
    QFile::remove(standard());
    writeHistoryText(history, fresh.workspace);
    EXPECT_FALSE(history.text.pending);
}

TEST_F(DefaultText, IsNotWrittenIntoALinkedFolderOutside) {
    const auto folder = history::historyTextFolder(fresh.workspace);
    std::filesystem::rename(folder, fresh.folder() / "inside");
    std::filesystem::create_directory_symlink(workspace::toPath(texts.path()), folder);
    writeHistoryText(history, fresh.workspace);
    EXPECT_TRUE(history.text.pending);
    EXPECT_FALSE(QFile::exists(texts.filePath(u"张三 双色号码.TXT"_s)));
    std::filesystem::remove(folder);
    std::filesystem::create_directory_symlink(fresh.folder() / "inside", folder); // stays inside
    writeHistoryText(history, fresh.workspace);
    EXPECT_FALSE(history.text.pending);
}

} // namespace
