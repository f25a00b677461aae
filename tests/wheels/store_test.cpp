#include "wheels/store.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "scratch_folder.h"
#include "wheels/databases.h"
#include "wheels/wheel_support.h"

#include "sql/database.h"

using namespace wheels;
using wheels_test::row;

namespace {

const WheelProblem kSeven{7, 6, 5, 5};

Wheel sixOfSeven(int rows) {
    Wheel wheel;
    for (int missing = rows; missing >= 1; --missing)
        wheel.rows.push_back(row({1, 2, 3, 4, 5, 6, 7}) & ~row({missing}));
    wheel.made = {"orbits - seed 1 work 0"};
    return wheel;
}

std::string textOf(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

class Store : public ::testing::Test {
  protected:
    ScratchFolder folder;
    WheelStore store{folder.path()};

    std::string refusal(const std::string& text) {
        std::ofstream(folder.path() / "super.txt") << text;
        try {
            const WheelStore again(folder.path());
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "";
    }
};

} // namespace

TEST_F(Store, GivesBackWhatWasSavedWithTheStepsThatMadeIt) {
    EXPECT_TRUE(store.offer(kSeven, sixOfSeven(6)));
    store.save();
    const WheelStore again(folder.path());
    ASSERT_TRUE(again.find(kSeven));
    EXPECT_EQ(again.find(kSeven)->rows, store.find(kSeven)->rows);
    EXPECT_EQ(again.find(kSeven)->made, std::vector<std::string>{"orbits - seed 1 work 0"});
}

TEST_F(Store, KeepsItsRowsInTheOrderOfTheirPositions) {
    store.offer(kSeven, sixOfSeven(6));
    store.save();
    EXPECT_EQ(textOf(folder.path() / "super.txt"), "table 0755 7 6 5 5 rows 6\n"
                                                   "made orbits - seed 1 work 0\n"
                                                   "abcdeg abcdfg abcefg abdefg acdefg bcdefg\n");
}

TEST_F(Store, TakesOnlyASmallerWheel) {
    EXPECT_TRUE(store.offer(kSeven, sixOfSeven(7)));
    EXPECT_FALSE(store.offer(kSeven, sixOfSeven(7)));
    EXPECT_TRUE(store.offer(kSeven, sixOfSeven(6)));
    EXPECT_FALSE(store.offer(kSeven, sixOfSeven(7)));
    EXPECT_EQ(store.find(kSeven)->rows.size(), 6u);
}

TEST_F(Store, WritesTheRowsOfAProblemOnceAndPointsToThemFromOtherFamilies) {
    const WheelProblem shared{9, 6, 6, 5};
    store.offer(shared, {{row({1, 2, 3, 4, 5, 6})}, {}});
    store.save();
    EXPECT_EQ(textOf(folder.path() / "basic.txt"), "table 9 9 6 6 5 rows 1\nabcdef\n");
    EXPECT_EQ(textOf(folder.path() / "super.txt"), "table 0965 9 6 6 5 as 9\n");
    EXPECT_EQ(WheelStore(folder.path()).find(shared)->rows.size(), 1u);
}

TEST_F(Store, AWheelThatNoMenuNamesIsAHelper) {
    const WheelProblem helper{24, 7, 5, 5};
    store.offer(helper, {{row({1, 2, 3, 4, 5, 6, 24})}, {}});
    store.save();
    EXPECT_EQ(textOf(folder.path() / "helpers.txt"), "table h24_755 24 7 5 5 rows 1\nabcdefx\n");
    EXPECT_TRUE(WheelStore(folder.path()).find(helper));
}

TEST_F(Store, ADamagedFileIsRefusedWithItsLine) {
    EXPECT_NE(refusal("table 0755 7 6 5 5 rows 2\nabcdef\n").find("super.txt:2: a table with another number"),
              std::string::npos);
    EXPECT_NE(refusal("table 0755 7 6 5 5 rows 1\nabcdeh\n").find("super.txt:2: not a row: abcdeh"),
              std::string::npos);
    EXPECT_NE(refusal("table 0755 7 6 5 5 rows 1\nabcde\n").find("not a row: abcde"), std::string::npos);
    EXPECT_NE(refusal("table 0755 7 6 5 5\n").find("super.txt:1: not the head of a table"), std::string::npos);
    EXPECT_NE(refusal("table 0755 7 6 5 5 as 9\n").find("rows of a table that is not there"), std::string::npos);
    EXPECT_NE(refusal("abcdef\n").find("not a row"), std::string::npos);
}

TEST_F(Store, TooLongATableIsLeftOutOfTheSuperFamilyOnly) {
    Wheel longest;
    longest.rows.resize(selection::kMostSuperRows + 1, row({1}));
    const auto super = selection::wheelTableNamed(selection::WheelFamily::Super, "2255");
    const auto seven = selection::wheelTableNamed(selection::WheelFamily::Seven, "2066");
    EXPECT_FALSE(isShipped(*super, &longest));
    EXPECT_TRUE(isShipped(*seven, &longest));
    longest.rows.pop_back();
    EXPECT_TRUE(isShipped(*super, &longest));
    EXPECT_FALSE(isShipped(*super, nullptr));
}

TEST(WheelData, TheFiveDatabasesHoldEveryTableThatTheMenusName) {
    const ScratchFolder folder;
    const WheelStore store(SSQ_WHEELS);
    buildDatabases(store, folder.path());
    sql::Engine engine;
    for (const selection::WheelFamilyInfo& family : selection::wheelFamilies()) {
        const auto database = engine.open(folder.path() / family.file);
        for (const selection::WheelTable& table : selection::wheelTables()) {
            if (table.family != family.family)
                continue;
            const Wheel* wheel = store.find(table.problem);
            if (!isShipped(table, wheel)) {
                EXPECT_EQ(family.family, selection::WheelFamily::Super) << table.name;
                EXPECT_FALSE(database->hasTable(table.name)) << table.name;
                continue;
            }
            ASSERT_TRUE(database->hasTable(table.name)) << table.name;
            EXPECT_EQ(database->rowCount(table.name), static_cast<std::int64_t>(wheel->rows.size())) << table.name;
            EXPECT_EQ(database->columnNames(table.name).size(), static_cast<std::size_t>(family.cells)) << table.name;
        }
    }
}

TEST(WheelData, TheRowsOfADatabaseAreThoseOfTheTextInItsOrder) {
    const ScratchFolder folder;
    const WheelStore store(SSQ_WHEELS);
    buildDatabases(store, folder.path());
    sql::Engine engine;
    const auto database = engine.open(folder.path() / "XuanzhuanDT");
    const auto table = selection::wheelTableNamed(selection::WheelFamily::Banker, "261544");
    sql::Recordset records = database->openRecordset("[261544]");
    for (const PositionSet expected : store.find(table->problem)->rows) {
        ASSERT_FALSE(records.eof());
        std::vector<std::int32_t> cells;
        for (int field = 0; field < 6; ++field)
            cells.push_back(static_cast<std::int32_t>(sql::toInteger(records.field(field))));
        EXPECT_EQ(cells, selection::wheelCells(*table, expected));
        EXPECT_EQ(cells[4], 14); // thirteen drags: the bankers are positions 14 and 15
        EXPECT_EQ(cells[5], 15);
        records.moveNext();
    }
    EXPECT_TRUE(records.eof());
}
