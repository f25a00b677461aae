#include "filter/group_template.h"

#include <set>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "selection/bet_source.h"
#include "workspace/templates.h"

namespace {

using filter::GroupTemplate;

class GroupTemplateTest : public testing::Test {
  protected:
    void SetUp() override {
        database->execute(workspace::createCombinationTable("zuheMoban"));
        database->execute(workspace::createCombinationTable("zuheMobanR"));
    }

    /// Reds 1..count with every blue, in the member's table.
    void generate(const filter::FilterMember& member, int reds, const std::vector<std::int32_t>& blues) {
        selection::GenerationInput input;
        for (int red = 1; red <= reds; ++red)
            input.chosen.reds.push_back(red);
        input.chosen.blues = blues;
        input.Genreds = reds;
        selection::Enumeration(input).fill(*database, filter::shapeOf(member), nullptr);
    }

    /// The numbers of every bet of a table.
    std::set<std::string> bets(const std::string& table, int numbers, const std::string& condition = {}) {
        const sql::Rows rows = database->query("SELECT * FROM [" + table + "]" + condition);
        std::set<std::string> found;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            std::string bet;
            for (int column = 0; column < rows.columnCount(); ++column)
                for (int place = 1; place <= numbers; ++place)
                    if (rows.columnName(column) == "fig" + std::to_string(place))
                        bet += rows.textAt(row, column) + ' ';
            found.insert(bet);
        }
        return found;
    }

    std::int64_t inPlay(const std::string& table) {
        return database->query("SELECT idx FROM [" + table + "] WHERE [unslt] = false").count();
    }

    void run(const std::string& statement) { database->execute(statement); }

    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> database = engine.create(folder.path() / "filnum.mdb");
    const filter::FilterMember& plain = *filter::findMember("GAgan");
    const filter::FilterMember& sixReds = *filter::findMember("GAganR");
    const filter::FilterMember& own = *filter::findMember("GAganZhMb");
};

TEST_F(GroupTemplateTest, TakesTheBetsInPlayAndNumbersThemFromOne) {
    generate(plain, 8, {3, 9});
    run("UPDATE [zuhe] SET [unslt] = true WHERE [fig1] > 1");
    EXPECT_EQ(GroupTemplate(*database, plain).add(), 42); // C(7, 5) sets with a 1, two blues
    EXPECT_EQ(bets("zuheMoban", 7), bets("zuhe", 7, " WHERE [unslt] = false"));
    const sql::Rows rows = database->query("SELECT idx FROM [zuheMoban]");
    for (std::int64_t row = 0; row < rows.count(); ++row)
        EXPECT_EQ(rows.integerAt(row, 0), row + 1);
    EXPECT_EQ(inPlay("zuheMoban"), 42) << "all of them are in play";
    EXPECT_EQ(database->columnNames("zuheMoban"),
              (std::vector<std::string>{"fig1", "fig2", "fig3", "fig4", "fig5", "fig6", "fig7", "idx", "unslt",
                                        "canshu", "Numstring", "SKnum", "JSqihao", "Fliter", "preunslt", "tmpunslt",
                                        "Gpslt", "Errnum"}));
}

TEST_F(GroupTemplateTest, KeepsOneOfEachBetHoweverOftenItIsAdded) {
    generate(plain, 8, {3, 9});
    const GroupTemplate added(*database, plain);
    EXPECT_EQ(added.add(), 56);
    EXPECT_EQ(added.add(), 0);
    EXPECT_EQ(database->rowCount("zuheMoban"), 56);
    generate(plain, 9, {9});
    EXPECT_EQ(added.add(), 56) << "84 sets with blue 9, of which 28 are there";
    EXPECT_EQ(database->rowCount("zuheMoban"), 112);
}

TEST_F(GroupTemplateTest, AnEmptySelectionAddsNothing) {
    generate(plain, 8, {3});
    const GroupTemplate added(*database, plain);
    added.add();
    const auto before = bets("zuheMoban", 7);
    run("UPDATE [zuhe] SET [unslt] = true");
    run("UPDATE [zuheMoban] SET [idx] = 99, [canshu] = 5"); // what an addition rebuilds
    EXPECT_EQ(added.add(), 0);
    EXPECT_EQ(bets("zuheMoban", 7), before);
    EXPECT_EQ(database->query("SELECT idx FROM [zuheMoban] WHERE [canshu] is not null").count(), 0);
    EXPECT_EQ(database->queryValue("SELECT MIN(idx) FROM [zuheMoban]"), sql::Value(std::int64_t{1}));
    EXPECT_EQ(database->queryValue("SELECT MAX(idx) FROM [zuheMoban]"), sql::Value(std::int64_t{28}));
}

TEST_F(GroupTemplateTest, SixRedsHaveATemplateOfTheirOwn) {
    generate(sixReds, 8, {});
    EXPECT_EQ(GroupTemplate(*database, sixReds).add(), 28);
    EXPECT_EQ(bets("zuheMobanR", 6), bets("zuheR", 6));
    EXPECT_EQ(database->rowCount("zuheMoban"), 0);
    EXPECT_TRUE(filter::groupTemplateOf(*filter::findMember("GAganf")).empty()) << "seven reds have none";
}

TEST_F(GroupTemplateTest, WhatAFailureHasLeftTakesNoPart) {
    generate(plain, 7, {1});
    const GroupTemplate added(*database, plain);
    added.add();
    run("SELECT [fig1] INTO [Tmp] FROM [zuhe] WHERE [fig1] = 99");
    EXPECT_EQ(added.add(), 0);
    EXPECT_EQ(bets("zuheMoban", 7), bets("zuhe", 7));
    EXPECT_FALSE(database->hasTable("Tmp"));
}

TEST_F(GroupTemplateTest, ATemplateThatIsNotThereIsMade) {
    generate(plain, 7, {1});
    run("DROP TABLE zuheMoban");
    EXPECT_EQ(GroupTemplate(*database, plain).add(), 7);
}

TEST_F(GroupTemplateTest, RunsItsStatementsInTheirOrder) {
    generate(sixReds, 7, {});
    std::vector<std::string> ran;
    database->setListener([&ran](std::string_view statement) { ran.emplace_back(statement); });
    GroupTemplate(*database, sixReds).add();
    database->setListener({});
    const std::vector<std::string> wanted{
        "insert into zuheMobanR select fig1,fig2,fig3,fig4,fig5,fig6 from [zuheR] where unslt = false",
        "select distinct fig1,fig2,fig3,fig4,fig5,fig6 into Tmp from zuheMobanR",
        "DROP TABLE zuheMobanR",
        "select * into zuheMobanR from Tmp",
        "DROP TABLE Tmp",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [idx] integer",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [unslt] bit",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [canshu] integer",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [Numstring] string",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [SKnum] integer",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [JSqihao] long",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [Fliter] string",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [preunslt] bit",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [tmpunslt] bit",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [Gpslt] bit",
        "ALTER TABLE [zuheMobanR] ADD COLUMN [Errnum] integer",
    };
    ASSERT_GE(ran.size(), wanted.size());
    EXPECT_EQ(std::vector<std::string>(ran.begin() + 1, ran.begin() + 1 + static_cast<long>(wanted.size())), wanted)
        << "behind the removal of what a failure may have left";
}

TEST_F(GroupTemplateTest, ClearedItHoldsNothingAndFiltersNothing) {
    generate(plain, 8, {3});
    const GroupTemplate added(*database, plain);
    added.add();
    added.clear();
    EXPECT_EQ(database->rowCount("zuheMoban"), 0);
    added.takeOutMembers();
    EXPECT_EQ(inPlay("zuhe"), 28);
}

TEST_F(GroupTemplateTest, TakesOutTheBetsThatItHoldsWithoutSnapshotOrReason) {
    generate(plain, 7, {3, 9});
    const GroupTemplate added(*database, plain);
    run("UPDATE [zuhe] SET [unslt] = true WHERE [fig7] = 9");
    added.add();
    generate(plain, 8, {3, 9});
    added.takeOutMembers();
    EXPECT_EQ(inPlay("zuhe"), 56 - 7);
    EXPECT_EQ(bets("zuhe", 7, " WHERE [unslt] = true"), bets("zuheMoban", 7));
    EXPECT_EQ(database->query("SELECT idx FROM [zuhe] WHERE [preunslt] = true").count(), 0);
    const sql::Rows keys = database->query("SELECT Numstring, Fliter FROM [zuhe] WHERE [idx] = 1");
    EXPECT_EQ(keys.textAt(0, 0), "(1!2@3#4$5%6^3)");
    EXPECT_EQ(keys.textAt(0, 1), "");
}

TEST_F(GroupTemplateTest, TheKeyOfSixRedsEndsBehindTheSixth) {
    generate(sixReds, 7, {});
    GroupTemplate(*database, sixReds).takeOutMembers();
    EXPECT_EQ(database->query("SELECT Numstring FROM [zuheR] WHERE [idx] = 1").textAt(0, 0), "(1!2@3#4$5%6)");
    EXPECT_EQ(inPlay("zuheR"), 7);
}

TEST_F(GroupTemplateTest, InItsOwnWindowTheTemplateIsComparedWithItself) {
    generate(plain, 7, {3});
    GroupTemplate(*database, plain).add();
    GroupTemplate(*database, own).takeOutMembers();
    EXPECT_EQ(inPlay("zuheMoban"), 0);
}

} // namespace
