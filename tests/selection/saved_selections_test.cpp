#include "selection/saved_selections.h"

#include <algorithm>
#include <numeric>
#include <random>

#include "selection/choosing_support.h"
#include "workspace/failure.h"

namespace choosing_tests {
namespace {

using selection::SavedTable;

class Saved : public Choosing {
  protected:
    sql::Database& database() { return *workspace.dbNumsave; }
    void save(const QString& name) { selection::saveSelection(database(), pad, name); }
    void call(int idx) { selection::callSelection(pad, selection::savedNumbers(database(), idx)); }
    void add(int idx) { selection::addSelection(pad, selection::savedNumbers(database(), idx)); }
    void clear() {
        pad.clearReds();
        pad.clearBlues();
    }
    void chooseSome() {
        for (const int red : {22, 3, 17})
            pad.pressRed(red);
        makeBanker(9);
        makeBanker(5);
        for (const int blue : {16, 2})
            pad.pressBlue(blue);
    }
};

TEST_F(Saved, OneSaveWritesARowOfTheSameNameToEachOfTheThreeTables) {
    chooseSome();
    save(u"甲"_s);
    EXPECT_EQ(dump(database(), "SAVE", 7), "甲 3 1 22 3 17 -\n");
    EXPECT_EQ(dump(database(), "SAVEdan", 6), "甲 2 1 9 5 -\n");
    EXPECT_EQ(dump(database(), "SAVEB", 6), "甲 2 1 16 2 -\n");
}

TEST_F(Saved, TheProposedNamesHoldTheDateAndTheTime) {
    const QDateTime now(QDate(2026, 3, 7), QTime(9, 5, 8));
    EXPECT_EQ(selection::proposedSaveName(now), u"选号保存于26-3-7日9.5.8秒"_s);
    EXPECT_EQ(selection::proposedNewName(now), u"选号名字修改于26-3-7日 9.5.8秒"_s);
    EXPECT_EQ(selection::proposedSaveName(QDateTime(QDate(2026, 11, 22), QTime(23, 59, 0))),
              u"选号保存于26-11-22日23.59.0秒"_s);
}

TEST_F(Saved, AnEmptyPadIsSavedTooAndCallingItClearsThePad) {
    save(u"空"_s);
    for (const char* table : {"SAVE", "SAVEdan", "SAVEB"})
        EXPECT_EQ(dump(database(), table, 4), "空 0 1 -\n") << table;
    chooseSome();
    call(1);
    EXPECT_EQ(padText(), " | |");
}

TEST_F(Saved, ACallPutsTheSavedInThePlaceOfWhatIsChosen) {
    chooseSome();
    save(u"甲"_s);
    clear();
    pad.pressRed(30);
    pad.pressBlue(7);
    makeBanker(22);
    call(1);
    EXPECT_EQ(padText(), " 22 3 17 | 9 5 | 16 2");
}

TEST_F(Saved, AnAdditionKeepsWhatIsChosenAndPressesNoChosenNumberFree) {
    chooseSome();
    save(u"甲"_s);
    clear();
    for (const int red : {3, 30})
        pad.pressRed(red);
    for (const int blue : {2, 7})
        pad.pressBlue(blue);
    add(1);
    EXPECT_EQ(padText(), " 3 30 22 17 | 9 5 | 2 7 16");
}

TEST_F(Saved, AnAdditionMakesABankerAmongItsRedsAPlainNumber) {
    pad.pressRed(22);
    save(u"甲"_s);
    clear();
    makeBanker(22);
    add(1);
    EXPECT_EQ(padText(), " 22 | |");
}

TEST_F(Saved, AnAdditionFreesABankerThatIsAmongItsBankers) {
    makeBanker(5);
    makeBanker(9);
    save(u"甲"_s);
    clear();
    makeBanker(5);
    add(1);
    EXPECT_EQ(padText(), " | 9 |");
}

/// Unlike a call, which makes the bankers before the blues.
TEST_F(Saved, AnAdditionMakesTheBankersAfterTheBlues) {
    makeBanker(5);
    pad.pressBlue(3);
    save(u"甲"_s);
    std::string order;
    QObject::connect(&pad, &selection::Pad::bankersChosen, &pad, [&] { order += 'd'; });
    QObject::connect(&pad, &selection::Pad::bluesChanged, &pad, [&] { order += 'b'; });
    call(1);
    EXPECT_EQ(order, "db");
    clear();
    order.clear();
    add(1);
    EXPECT_EQ(order, "bd");
}

TEST_F(Saved, ThirtyEightRedsFitIntoARow) {
    pad.setRule(38, 18);
    pad.selectAllReds();
    pad.selectAllBlues();
    const std::string all = padText();
    save(u"全"_s);
    clear();
    call(1);
    EXPECT_EQ(padText(), all);
    EXPECT_EQ(pad.Redcnt, 38);
}

TEST_F(Saved, ATableOfAnOlderWorkspaceGetsTheColumnsThatItLacks) {
    database().execute("DROP TABLE [SAVE]");
    database().execute("CREATE TABLE [SAVE]([Name] string,[BitR] integer,[Idx] integer,[f1] short,[f2] short)");
    chooseSome();
    const std::string chosen = padText();
    save(u"甲"_s);
    EXPECT_EQ(dump(database(), "SAVE"), "甲 3 1 22 3 17\n");
    clear();
    call(1);
    EXPECT_EQ(padText(), chosen);
}

/// 33 reds were saved, 28 are left of them: a number outside the rule must not turn its neighbour into a banker.
TEST_F(Saved, NumbersOutsideTheRuleAreLeftOut) {
    for (const int red : {33, 4, 29})
        pad.pressRed(red);
    for (const int red : {8, 30})
        makeBanker(red);
    for (const int blue : {16, 1})
        pad.pressBlue(blue);
    save(u"甲"_s);
    pad.setRule(28, 12);
    clear();
    call(1);
    EXPECT_EQ(padText(), " 4 | 8 | 1");
}

TEST_F(Saved, TheIdxIsTheTablesOwnCountAndOneSoThatItCanComeAgain) {
    for (const QString& name : {u"甲"_s, u"乙"_s})
        save(name);
    selection::deleteSaved(database(), SavedTable::Reds, u"甲"_s);
    pad.pressRed(8);
    save(u"丙"_s);
    EXPECT_EQ(dump(database(), "SAVE", 4), "乙 0 2 -\n丙 1 2 8\n");
    EXPECT_EQ(dump(database(), "SAVEB", 3), "甲 0 1\n乙 0 2\n丙 0 3\n");
    call(2); // 乙 stands first
    EXPECT_EQ(padText(), " | |");
}

TEST_F(Saved, DeletingAndRenamingTouchOneTableAlone) {
    chooseSome();
    save(u"甲"_s);
    save(u"乙"_s);
    selection::renameSaved(database(), SavedTable::Blues, u"甲"_s, u"丁"_s);
    selection::deleteSaved(database(), SavedTable::Reds, u"乙"_s);
    EXPECT_EQ(dump(database(), "SAVE", 3), "甲 3 1\n");
    EXPECT_EQ(dump(database(), "SAVEB", 3), "丁 2 1\n乙 2 2\n");
    EXPECT_EQ(dump(database(), "SAVEdan", 3), "甲 2 1\n乙 2 2\n");
    clear();
    call(2); // its reds are gone, the rest is not
    EXPECT_EQ(padText(), " | 9 5 | 16 2");
}

TEST_F(Saved, DeletingAndRenamingTakeEveryRowOfTheName) {
    for (const QString& name : {u"甲"_s, u"乙"_s, u"甲"_s})
        save(name);
    selection::renameSaved(database(), SavedTable::Reds, u"甲"_s, u"丙"_s);
    selection::deleteSaved(database(), SavedTable::Blues, u"甲"_s);
    EXPECT_EQ(dump(database(), "SAVE", 3), "丙 0 1\n乙 0 2\n丙 0 3\n");
    EXPECT_EQ(dump(database(), "SAVEB", 3), "乙 0 2\n");
}

TEST_F(Saved, TheStatementsAreTheStoresOwn) {
    save(u"甲"_s);
    std::vector<std::string> ran;
    database().setListener([&](std::string_view statement) { ran.emplace_back(statement); });
    selection::renameSaved(database(), SavedTable::Reds, u"甲"_s, u"乙"_s);
    selection::deleteSaved(database(), SavedTable::Blues, u"甲"_s);
    database().setListener({});
    EXPECT_EQ(ran, (std::vector<std::string>{R"(UPDATE [SAVE] SET [Name]= "乙" WHERE [Name] = "甲")",
                                             R"(DELETE FROM [SAVEB]  WHERE [Name] = "甲")"}));
}

TEST_F(Saved, ANameWithQuotesIsKeptAndRefusedByTheStatementsAlone) {
    const QString quotes = u"a\" OR \"a\" = \"a"_s;
    save(u"甲"_s);
    save(quotes);
    const std::string before = dump(database(), "SAVE");
    EXPECT_THROW(selection::deleteSaved(database(), SavedTable::Reds, quotes), workspace::Failure);
    EXPECT_THROW(selection::renameSaved(database(), SavedTable::Reds, quotes, u"乙"_s), workspace::Failure);
    EXPECT_THROW(selection::renameSaved(database(), SavedTable::Reds, u"甲"_s, quotes), workspace::Failure);
    EXPECT_EQ(dump(database(), "SAVE"), before);
    EXPECT_EQ(selection::savedRows(database(), SavedTable::Reds)[1].name, quotes);
}

TEST_F(Saved, ALongNameIsCutAndAnEmojiIsKept) {
    const QString emoji = u"好运🎱👨‍👩‍👧"_s;
    save(QString(300, u'长'));
    save(emoji);
    const auto rows = selection::savedRows(database(), SavedTable::Blues);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].name, QString(255, u'长'));
    EXPECT_EQ(rows[1].name, emoji);
    selection::deleteSaved(database(), SavedTable::Blues, rows[0].name);
    selection::renameSaved(database(), SavedTable::Blues, emoji, QString(300, u'名'));
    EXPECT_EQ(dump(database(), "SAVEB", 3), QString(255, u'名').toStdString() + " 0 2\n");
}

TEST_F(Saved, ASaveThatFailsLeavesNoRowBehind) {
    database().execute("DROP TABLE [SAVEB]");
    chooseSome();
    const std::string chosen = padText();
    EXPECT_THROW(save(u"甲"_s), sql::SqlError);
    EXPECT_EQ(dump(database(), "SAVE") + dump(database(), "SAVEdan"), "");
    EXPECT_EQ(padText(), chosen);
}

TEST_F(Saved, WhatIsMissingInATableCountsAsNoNumbers) {
    chooseSome();
    call(7);
    EXPECT_EQ(padText(), " | |");
    database().execute("INSERT INTO [SAVE] ([Idx],[f1]) VALUES (1,4)"); // neither a name nor a count
    database().execute("INSERT INTO [SAVE] ([Idx],[BitR],[f1]) VALUES (2,99,4)");
    const auto rows = selection::savedRows(database(), SavedTable::Reds);
    EXPECT_EQ(rows[0].name, QString());
    EXPECT_TRUE(rows[0].numbers.empty());
    call(2);
    EXPECT_EQ(padText(), " 4 | |");
}

TEST_F(Saved, WhatIsSavedComesBackWhateverIsChosen) {
    constexpr unsigned kSeed = 20261122;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int round = 1; round <= 200; ++round) {
        clear();
        for (int presses = below(60); presses > 0; --presses) {
            below(4) == 0 ? makeBanker(1 + below(33)) : pad.pressRed(1 + below(33));
            if (below(3) == 0)
                pad.pressBlue(1 + below(16));
        }
        const std::string chosen = padText();
        save(QString::number(round));
        clear();
        call(round);
        ASSERT_EQ(padText(), chosen) << "round " << round;
    }
}

} // namespace
} // namespace choosing_tests
