#include "selection/wheels.h"

#include <fstream>
#include <random>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "selection/wheel_database.h"
#include "workspace/templates.h"

namespace {

using selection::Guarantee;
using selection::Pad;
using selection::WheelFamily;
using selection::Wheels;

using Rows = std::vector<std::vector<std::int32_t>>;

class WheelsTest : public testing::Test {
  protected:
    /// A table of a family's database with these rows.
    void put(WheelFamily family, const std::string& name, const Rows& rows) {
        const auto& info = selection::wheelFamily(family);
        const auto file = folder.path() / std::string(info.file);
        auto wheel = std::filesystem::exists(file) ? engine.open(file) : engine.create(file);
        std::string columns;
        for (int cell = 1; cell <= info.cells; ++cell)
            columns += (cell > 1 ? ",[fig" : "[fig") + std::to_string(cell) + "] integer";
        wheel->execute("CREATE TABLE [" + name + "](" + columns + ")");
        for (const auto& row : rows) {
            sql::RowBlock block;
            for (std::size_t cell = 0; cell < row.size(); ++cell) {
                block.columns.push_back("fig" + std::to_string(cell + 1));
                block.values.emplace_back(&row[cell], 1);
            }
            wheel->appendRows(name, block);
        }
    }

    void choose(std::initializer_list<int> reds, std::initializer_list<int> blues = {}) {
        for (const int red : reds)
            pad.pressRed(red);
        for (const int blue : blues)
            pad.pressBlue(blue);
    }
    void makeBankers(std::initializer_list<int> reds) {
        for (const int red : reds) {
            pad.pointAtRed(red);
            pad.mnuDan();
        }
    }

    /// What the wheel makes of it: idx and numbers of each row.
    std::string filled(const std::string& table, bool blue) {
        selection::Wheel source(wheels, pad);
        source.fill(*database, {.table = table, .reds = 6, .blue = blue}, nullptr);
        const sql::Rows rows = database->query("SELECT * FROM [" + table + "]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            for (int column = 0; column < (blue ? 8 : 7); ++column)
                all += rows.textAt(row, column) + ' ';
            all += '|';
        }
        return all;
    }

    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> database = engine.create(folder.path() / "filnum.mdb");
    Pad pad;
    Wheels wheels{engine, [this](std::string_view name) { return folder.path() / std::string(name); }};
};

const Rows kThreeRows{{1, 2, 3, 4, 5, 6}, {1, 2, 3, 7, 8, 9}, {4, 5, 6, 7, 8, 9}};

TEST_F(WheelsTest, TheBasicWheelIsTheOneOfAsManyRedsAsAreChosen) {
    put(WheelFamily::Basic, "9", kThreeRows);
    choose({31, 3, 5, 8, 12, 17, 20, 22, 28}, {4, 2});
    wheels.openMenu(WheelFamily::Basic, pad);
    EXPECT_FALSE(wheels.Wheelopen);
    EXPECT_EQ(filled("zuheRote", true), "1 3 5 8 12 17 20 4 |1 3 5 8 12 17 20 2 |2 3 5 8 22 28 31 4 |"
                                        "2 3 5 8 22 28 31 2 |3 12 17 20 22 28 31 4 |3 12 17 20 22 28 31 2 |")
        << "the number of a row stands at each of its blues";
    EXPECT_EQ(filled("zuheRoteR", false), "1 3 5 8 12 17 20 |2 3 5 8 22 28 31 |3 12 17 20 22 28 31 |");
}

TEST_F(WheelsTest, AMissingTableOrFileGivesAnEmptyTable) {
    choose({1, 2, 3, 4, 5, 6, 7, 8}, {1});
    EXPECT_EQ(filled("zuheRote", true), "") << "no file at all";
    put(WheelFamily::Basic, "9", kThreeRows);
    EXPECT_EQ(filled("zuheRote", true), "");
    EXPECT_EQ(wheels.rows(WheelFamily::Basic, "8"), std::nullopt);
    EXPECT_EQ(wheels.rows(WheelFamily::Basic, "9"), 3);
}

struct EndsAt final : workspace::Progress {
    explicit EndsAt(int call) : last(call) {}
    bool advance(double) override { return ++calls < last; }
    int last;
    int calls = 0;
};

TEST_F(WheelsTest, GivenUpAtAnyMomentItLeavesTheFormerTable) {
    put(WheelFamily::Basic, "9", kThreeRows);
    choose({31, 3, 5, 8, 12, 17, 20, 22, 28}, {4, 2});
    filled("zuheRote", true);
    database->execute("UPDATE [zuheRote] SET [unslt]=true WHERE [idx]=2");
    choose({}, {1, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    EndsAt patient(1000);
    selection::Wheel source(wheels, pad);
    const selection::TableShape shape{.table = "zuheRoteR", .reds = 6, .blue = true};
    EXPECT_EQ(source.fill(*database, shape, &patient).written, 48);
    ASSERT_GT(patient.calls, 4);
    std::mt19937 random(20261122);
    for (int turn = 0; turn < 20; ++turn) {
        EndsAt progress(1 + static_cast<int>(random() % static_cast<unsigned>(patient.calls)));
        EXPECT_TRUE(source.fill(*database, {.table = "zuheRote", .reds = 6, .blue = true}, &progress).cancelled);
        const sql::Rows left = database->query("SELECT * FROM [zuheRote] WHERE [unslt]=false");
        ASSERT_EQ(left.count(), 4) << "given up at " << progress.last;
        ASSERT_EQ(database->rowCount("zuheRote"), 6);
    }
}

TEST_F(WheelsTest, AChosenTableGoesBeforeTheBasicOne) {
    put(WheelFamily::Super, "0754", {{1, 2, 3, 4, 5, 7}});
    put(WheelFamily::Basic, "7", kThreeRows);
    choose({1, 2, 3, 4, 5, 6, 11}, {1});
    wheels.openMenu(WheelFamily::Super, pad);
    EXPECT_EQ(wheels.rows(WheelFamily::Super, pad, {5, 4}), 1);
    EXPECT_EQ(wheels.rows(WheelFamily::Super, pad, {6, 4}), std::nullopt);
    wheels.choose(WheelFamily::Super, "0754");
    EXPECT_EQ(filled("zuheRote", true), "1 1 2 3 4 5 11 1 |");
}

TEST_F(WheelsTest, PositionsOfABankerWheelReachTheBankersBehindTheDrags) {
    put(WheelFamily::Banker, "26644", {{1, 2, 3, 4, 5, 6}});
    choose({14, 5, 9, 11}, {8});
    makeBankers({2, 30});
    wheels.openMenu(WheelFamily::Banker, pad);
    EXPECT_TRUE(wheels.Wheeldan);
    wheels.chooseBanker(pad, {4, 4});
    const std::vector<std::int16_t> map(wheels.Rotemap.begin() + 1, wheels.Rotemap.begin() + 7);
    EXPECT_EQ(map, (std::vector<std::int16_t>{5, 9, 11, 14, 2, 30}));
    EXPECT_EQ(filled("zuheRote", true), "1 2 5 9 11 14 30 8 |");
}

TEST_F(WheelsTest, ABankerWheelLeavesItsMarkForTheBasicOneBehindIt) {
    put(WheelFamily::Banker, "26644", {{1, 2, 3, 4, 5, 6}});
    put(WheelFamily::Basic, "9", kThreeRows);
    put(WheelFamily::Extended, "560955", kThreeRows);
    choose({5, 9, 11, 14});
    makeBankers({2, 30});
    wheels.openMenu(WheelFamily::Banker, pad);
    wheels.chooseBanker(pad, {4, 4});
    pad.clearReds();
    choose({21, 22, 23, 24, 25, 26, 27, 28, 29});
    wheels.openMenu(WheelFamily::Basic, pad);
    EXPECT_TRUE(wheels.Wheeldan);
    EXPECT_EQ(filled("zuheRoteR", false), "1 2 5 9 11 14 30 |2 0 0 0 5 9 11 |3 0 0 0 2 14 30 |")
        << "its positions are read by the map of the bankers";
    wheels.openMenu(WheelFamily::Extended, pad);
    EXPECT_TRUE(wheels.Wheeldan && wheels.Wheelopen);
    wheels.openMenu(WheelFamily::Seven, pad);
    EXPECT_TRUE(wheels.Wheeldan && wheels.Wheelopen) << "the compound wheels leave both alone";
    wheels.openMenu(WheelFamily::Super, pad);
    EXPECT_FALSE(wheels.Wheeldan);
    wheels.openMenu(WheelFamily::Basic, pad);
    EXPECT_EQ(filled("zuheRoteR", false), "1 21 22 23 24 25 26 |2 21 22 23 27 28 29 |3 24 25 26 27 28 29 |");
}

TEST_F(WheelsTest, OpeningAMenuSortsTheReds) {
    choose({9, 3, 30});
    wheels.openMenu(WheelFamily::Seven, pad);
    EXPECT_EQ((std::vector<std::int16_t>{pad.Redlist[1], pad.Redlist[2], pad.Redlist[3]}),
              (std::vector<std::int16_t>{3, 9, 30}));
}

TEST_F(WheelsTest, DamagedCellsHitNoNumber) {
    put(WheelFamily::Basic, "9", {{1, 2, 3, -4, 500, 6}});
    choose({1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_EQ(filled("zuheRoteR", false), "1 1 2 3 0 0 6 |");
}

TEST_F(WheelsTest, ADamagedFileOffersNothing) {
    for (const auto& info : selection::wheelFamilies())
        std::ofstream(folder.path() / std::string(info.file)) << "this is no database, only a text of some length\n";
    choose({1, 2, 3, 4, 5, 6, 7, 8, 9});
    for (const auto& info : selection::wheelFamilies())
        EXPECT_EQ(wheels.rows(info.family, pad, {5, 4}), std::nullopt) << info.title;
    wheels.choose(WheelFamily::Super, "0954");
    EXPECT_TRUE(wheels.rsWheel.empty());
    EXPECT_EQ(filled("zuheRoteR", false), "");
}

TEST_F(WheelsTest, AFileDamagedBehindItsHeadOffersNothing) {
    put(WheelFamily::Super, "0954", kThreeRows);
    constexpr std::streamoff kPage = 4096; // the first one lists the tables and stays
    const auto file = folder.path() / "Xuanzhuancj";
    const auto bytes = std::filesystem::file_size(file);
    ASSERT_GT(bytes, static_cast<std::uintmax_t>(kPage));
    std::fstream damaged(file, std::ios::in | std::ios::out | std::ios::binary);
    damaged.seekp(kPage);
    damaged << std::string(static_cast<std::size_t>(bytes) - kPage, '\xff');
    damaged.close();
    EXPECT_EQ(wheels.rows(WheelFamily::Super, "0954"), std::nullopt);
    wheels.choose(WheelFamily::Super, "0954");
    EXPECT_TRUE(wheels.rsWheel.empty());
}

TEST_F(WheelsTest, TheMenuLooksAtItsFileAnewAtEachOpening) {
    choose({1, 2, 3, 4, 5, 6, 11});
    wheels.openMenu(WheelFamily::Super, pad);
    EXPECT_EQ(wheels.rows(WheelFamily::Super, pad, {5, 4}), std::nullopt);
    put(WheelFamily::Super, "0754", {{1, 2, 3, 4, 5, 7}});
    wheels.openMenu(WheelFamily::Super, pad);
    EXPECT_EQ(wheels.rows(WheelFamily::Super, pad, {5, 4}), 1);
}

TEST_F(WheelsTest, CellsAreFoundByTheNamesOfTheirColumns) {
    auto wheel = engine.create(folder.path() / "Xuanzhuanjb");
    wheel->execute("CREATE TABLE [7]([line] integer,[fig6] integer,[fig5] integer,[fig4] integer,[fig3] integer,"
                   "[fig2] integer,[fig1] integer)");
    const std::vector<std::int32_t> cells{99, 7, 5, 4, 3, 2, 1};
    sql::RowBlock row{{"line", "fig6", "fig5", "fig4", "fig3", "fig2", "fig1"}, {}};
    for (const std::int32_t& cell : cells)
        row.values.emplace_back(&cell, 1);
    wheel->appendRows("7", row);
    choose({11, 12, 13, 14, 15, 16, 17});
    EXPECT_EQ(filled("zuheRoteR", false), "1 11 12 13 14 15 17 |");
}

TEST_F(WheelsTest, AGuaranteeIsToldOnlyForTheNumbersThatTheRowsAreMadeOf) {
    put(WheelFamily::Super, "0954", kThreeRows);
    put(WheelFamily::Basic, "9", kThreeRows);
    choose({21, 22, 23, 24, 25, 26, 27, 28, 29});
    wheels.openMenu(WheelFamily::Basic, pad);
    ASSERT_TRUE(wheels.guaranteed(pad));
    EXPECT_EQ(wheels.guaranteed(pad)->name, "9");
    wheels.openMenu(WheelFamily::Super, pad);
    EXPECT_FALSE(wheels.guaranteed(pad)) << "no table is chosen yet";
    wheels.choose(WheelFamily::Super, "0954");
    ASSERT_TRUE(wheels.guaranteed(pad));
    EXPECT_EQ(wheels.guaranteed(pad)->name, "0954");
    EXPECT_EQ(wheels.rowsToRead(pad), 3);
    choose({30});
    EXPECT_FALSE(wheels.guaranteed(pad)) << "its rows leave the tenth number out";
    wheels.openMenu(WheelFamily::Basic, pad);
    EXPECT_FALSE(wheels.guaranteed(pad)) << "there is no basic wheel of ten";
    choose({30});
    wheels.openMenu(WheelFamily::Banker, pad);
    wheels.openMenu(WheelFamily::Basic, pad);
    EXPECT_FALSE(wheels.guaranteed(pad)) << "the mark of the bankers is left";
}

TEST_F(WheelsTest, ACompoundWheelCutToSixRedsGuaranteesNothing) {
    put(WheelFamily::Seven, "0844", {{1, 2, 3, 4, 5, 6, 7}});
    choose({1, 2, 3, 4, 5, 6, 7, 8});
    wheels.openMenu(WheelFamily::Super, pad); // sets Wheelopen
    wheels.openMenu(WheelFamily::Seven, pad);
    wheels.choose(WheelFamily::Seven, "0844");
    EXPECT_EQ(filled("zuheRoteR", false), "1 1 2 3 4 5 6 |");
    EXPECT_FALSE(wheels.guaranteed(pad));
}

TEST_F(WheelsTest, ABankerWheelGuaranteesNothingForNumbersChosenLater) {
    put(WheelFamily::Banker, "26644", {{1, 2, 3, 4, 5, 6}});
    choose({14, 5, 9, 11});
    makeBankers({2, 30});
    wheels.openMenu(WheelFamily::Banker, pad);
    wheels.chooseBanker(pad, {4, 4});
    EXPECT_FALSE(wheels.guaranteed(pad)) << "rows of six out of 4 + 2: nothing is left to guarantee";
    put(WheelFamily::Banker, "26754", {{1, 2, 3, 4, 6, 7}, {1, 2, 3, 5, 6, 7}});
    choose({20});
    wheels.openMenu(WheelFamily::Banker, pad);
    wheels.chooseBanker(pad, {5, 4});
    ASSERT_TRUE(wheels.guaranteed(pad));
    EXPECT_EQ(wheels.guaranteed(pad)->name, "26754");
    choose({20, 21});
    EXPECT_FALSE(wheels.guaranteed(pad)) << "as many drags, but another one";
}

TEST(WheelNames, AreMadeOfTheNumbersAndTheGuarantee) {
    using selection::wheelTableName;
    EXPECT_EQ(wheelTableName(WheelFamily::Basic, 12, 0, {6, 5}), "12");
    EXPECT_EQ(wheelTableName(WheelFamily::Extended, 8, 0, {7, 6}), "560876");
    EXPECT_EQ(wheelTableName(WheelFamily::Super, 9, 0, {5, 4}), "0954");
    EXPECT_EQ(wheelTableName(WheelFamily::Banker, 10, 2, {4, 4}), "261244");
    EXPECT_EQ(wheelTableName(WheelFamily::Seven, 10, 0, {4, 4}), "1044");
}

} // namespace
