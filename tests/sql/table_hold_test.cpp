// A held table: whatever statements do to its name, it is back as it was unless the new one is released.
#include <gtest/gtest.h>

#include "combination_fixture.h"
#include "executor_names.h"

namespace {

constexpr const char* kCreate = "CREATE TABLE [zuhe]([idx] integer,[canshu] integer,[Fliter] string,[unslt] bit)";

class Held : public CombinationsOnEither {
  protected:
    void append(std::int32_t rows) {
        std::vector<std::int32_t> idx(static_cast<std::size_t>(rows));
        for (std::size_t row = 0; row < idx.size(); ++row)
            idx[row] = static_cast<std::int32_t>(row + 1);
        db->appendRows("zuhe", {{"idx"}, {idx}});
    }
    void makeFormer() {
        db->execute(kCreate);
        append(200);
        db->execute("UPDATE [zuhe] SET [canshu]=[idx] * 7 mod 31, [Fliter]=\"和\" & [idx] WHERE [idx] > 9");
        db->execute("UPDATE [zuhe] SET [unslt]=([idx] mod 3 = 0)");
    }
    void makeAnother() {
        db->execute("DROP TABLE [zuhe]");
        db->execute(kCreate);
        append(70000);
    }
};

TEST_P(Held, IsBackWithEveryColumnWhenTheNewOneIsNotReleased) {
    makeFormer();
    const auto before = everything();
    for (const bool stored : {false, true}) {
        if (stored)
            db->store();
        {
            const sql::TableHold hold(*db, "[zuhe]");
            makeAnother();
            EXPECT_EQ(db->rowCount("zuhe"), 70000);
        }
        EXPECT_EQ(everything(), before);
        EXPECT_EQ(db->storePending(), !stored && GetParam() == sql::Executor::Column);
    }
    EXPECT_EQ(everythingInTheFile(), before);
}

TEST_P(Held, IsGoneWhenTheNewOneIsReleased) {
    makeFormer();
    db->store();
    {
        sql::TableHold hold(*db, "zuhe");
        makeAnother();
        hold.release();
    }
    const auto after = everything();
    EXPECT_EQ(after.size(), 70000U);
    EXPECT_EQ(everythingInTheFile(), after);
}

TEST_P(Held, LeavesNoTableWhereThereWasNone) {
    {
        const sql::TableHold hold(*db, "zuhe");
        db->execute(kCreate);
        append(3);
    }
    EXPECT_FALSE(db->hasTable("zuhe"));
    {
        sql::TableHold hold(*db, "zuhe");
        db->execute(kCreate);
        append(3);
        hold.release();
    }
    EXPECT_EQ(everythingInTheFile().size(), 3U);
}

TEST_P(Held, CanBeHeldAgainAndAgain) {
    makeFormer();
    const auto before = everything();
    for (int turn = 0; turn < 3; ++turn) {
        const sql::TableHold hold(*db, "zuhe");
        makeAnother();
    }
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(everythingInTheFile(), before);
}

INSTANTIATE_TEST_SUITE_P(Executors, Held, ::testing::Values(sql::Executor::Sqlite, sql::Executor::Column));

/// A store in the middle, as an idle window asks for, sees the table that is held and all others.
class HeldColumns : public Held {};

TEST_P(HeldColumns, IsWhatAStoreInTheMiddleWrites) {
    for (const bool storedBefore : {false, true}) {
        sql::passOver(*db, "DROP TABLE [zuhe]");
        makeFormer();
        if (storedBefore)
            db->store();
        db->execute("UPDATE [zuhe] SET [canshu]=5 WHERE [idx] < 50"); // not stored yet
        const auto before = everything();
        {
            const sql::TableHold hold(*db, "zuhe");
            makeAnother();
            EXPECT_TRUE(db->storePending());
            db->store();
            EXPECT_FALSE(db->storePending());
        }
        EXPECT_FALSE(db->storePending());
        EXPECT_EQ(everything(), before);
        EXPECT_EQ(everythingInTheFile(), before);
    }
}

TEST_P(HeldColumns, LeavesTheNewOneWholeAfterAStoreInTheMiddle) {
    makeFormer();
    {
        sql::TableHold hold(*db, "zuhe");
        makeAnother();
        db->store();
        append(10);
        hold.release();
    }
    EXPECT_TRUE(db->storePending());
    EXPECT_EQ(everythingInTheFile().size(), 70010U);
}

TEST_P(HeldColumns, KeepsTheChangesOfATableThatIsNotDropped) {
    makeFormer();
    {
        const sql::TableHold hold(*db, "zuhe");
        append(5);
    }
    EXPECT_EQ(everythingInTheFile().size(), 205U);
}

TEST_P(HeldColumns, IsReadFromTheFileAgainWhenItHadNotBeenRead) {
    makeFormer();
    const auto before = everything();
    db->store();
    reopen();
    {
        const sql::TableHold hold(*db, "zuhe");
        makeAnother();
    }
    EXPECT_FALSE(db->storePending());
    EXPECT_EQ(everything(), before);
}

INSTANTIATE_TEST_SUITE_P(Columns, HeldColumns, ::testing::Values(sql::Executor::Column));

} // namespace
