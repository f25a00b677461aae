// Values that are held while long work changes them: given back unless they are released, in memory and in the file.
#include "combination_fixture.h"
#include "executor_names.h"

namespace {

class ValueHolds : public CombinationsOnEither {
  protected:
    ValueHolds() {
        run("CREATE TABLE [zuhe]([idx] integer,[fig1] integer,[canshu] integer,[Numstring] string,[Fliter] string,"
            "[unslt] Bit,[preunslt] Bit)");
        std::vector<std::int32_t> idx(300);
        std::vector<std::int32_t> red(300);
        for (int row = 0; row < 300; ++row) {
            idx[static_cast<std::size_t>(row)] = row + 1;
            red[static_cast<std::size_t>(row)] = row % 33 + 1;
        }
        db->appendRows("zuhe", {{"idx", "fig1"}, {idx, red}});
        run("UPDATE [zuhe] SET [canshu]=[fig1] * 2 , [Fliter]=\"和 \" & [fig1] WHERE [idx] mod 3 = 0");
        run("UPDATE [zuhe] SET [Numstring]=format([fig1],\"00\") & Chr(32)");
        run("UPDATE [zuhe] SET [unslt]=true WHERE [idx] mod 7 = 0");
    }
    void run(const std::string& statement) { db->execute(statement); }
    void changeAll() {
        run("UPDATE [zuhe] SET [canshu]=100000 - [idx]");
        run("UPDATE [zuhe] SET [Numstring]=\"x\" & [idx]");
        run("UPDATE [zuhe] SET [Fliter]=[Fliter] & \"更长 \" & [canshu] WHERE [idx] mod 2 = 0");
        run("UPDATE [zuhe] SET [unslt]=NOT [unslt]");
        run("UPDATE [zuhe] SET [preunslt]=true");
    }

    static constexpr std::string_view kColumns[] = {"canshu", "numstring", "SKnum", "Fliter", "unslt", "preunslt"};
};

TEST_P(ValueHolds, GiveBackWhatWasThereAndStoreIt) {
    const auto before = everything();
    {
        const sql::ValueHold held(*db, "zuhe", kColumns);
        changeAll();
        EXPECT_NE(everything(), before);
    }
    EXPECT_EQ(everything(), before);
    run("UPDATE [zuhe] SET [Fliter]=[Fliter] & \"后\" WHERE [idx] = 3"); // the texts can go on
    const auto after = everything();
    db->store();
    EXPECT_EQ(everythingInTheFile(), after);
}

TEST_P(ValueHolds, KeepTheNewValuesWhenReleased) {
    std::vector<std::string> changed;
    {
        sql::ValueHold held(*db, "[zuhe]", kColumns);
        changeAll();
        changed = everything();
        held.release();
    }
    EXPECT_EQ(everything(), changed);
}

TEST_P(ValueHolds, RefuseATableThatIsNotThere) {
    EXPECT_THROW(sql::ValueHold(*db, "zuheR", kColumns), sql::SqlError);
}

/// The idle store of a window may come while a question is open.
TEST(ValueHoldsOfColumns, GiveBackWhatWasStoredMeanwhile) {
    ScratchFolder folder;
    sql::Engine engine;
    auto db = engine.create(folder.path() / "a.mdb");
    db->execute("CREATE TABLE [zuhe]([idx] integer,[Fliter] string,[canshu] integer)");
    const std::vector<std::int32_t> idx{1, 2, 3};
    db->appendRows("zuhe", {{"idx"}, {idx}});
    db->execute("UPDATE [zuhe] SET [Fliter]=\"旧\" & [idx] , [canshu]=5");
    constexpr std::string_view kHeld[] = {"Fliter", "canshu"};
    {
        const sql::ValueHold held(*db, "zuhe", kHeld);
        db->execute("UPDATE [zuhe] SET [Fliter]=\"新\" & [idx] , [canshu]=70000");
        db->store();
    }
    EXPECT_TRUE(db->storePending());
    db->store();
    db.reset();
    db = engine.open(folder.path() / "a.mdb");
    const sql::Rows rows = db->query("SELECT [Fliter],[canshu] FROM [zuhe]");
    EXPECT_EQ(rows.textAt(2, 0), "旧3");
    EXPECT_EQ(rows.integerAt(2, 1), 5);
}

INSTANTIATE_TEST_SUITE_P(Executors, ValueHolds, testing::Values(sql::Executor::Sqlite, sql::Executor::Column));

} // namespace
