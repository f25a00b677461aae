#include "selection/wheel_database.h"

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "wheels/wheel_support.h"

using namespace selection;
using wheels_test::row;

namespace {

class WheelDatabase : public ::testing::Test {
  protected:
    const WheelTable fiveOfSeven = *wheelTableNamed(WheelFamily::Super, "0755");
    const WheelTable twoBankers = *wheelTableNamed(WheelFamily::Banker, "26744");
    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> database = engine.create(folder.path() / "Xuanzhuancj");

    std::string firstRow(const std::string& table, int cells) {
        std::string text;
        const sql::Rows rows = database->query("SELECT * FROM [" + table + "]");
        for (int cell = 0; cell < cells; ++cell)
            text += std::to_string(rows.integerAt(0, cell)) + " ";
        return text;
    }
};

constexpr const char* kSixOfSeven = "1 2 3 4 5 6\n1 2 3 4 5 7\n1 2 3 4 6 7\n1 2 3 5 6 7\n1 2 4 5 6 7\n1 3 4 5 6 7\n";

} // namespace

TEST_F(WheelDatabase, AWheelThatHoldsIsTakenInTheOrderOfItsLines) {
    EXPECT_FALSE(importWheel(*database, fiveOfSeven, kSixOfSeven));
    EXPECT_EQ(database->rowCount("0755"), 6);
    EXPECT_EQ(database->columnNames("0755"),
              (std::vector<std::string>{"fig1", "fig2", "fig3", "fig4", "fig5", "fig6"}));
    EXPECT_EQ(firstRow("0755", 6), "1 2 3 4 5 6 ");
    sql::Recordset last = database->openRecordset("[0755]");
    last.moveLast();
    EXPECT_EQ(sql::toInteger(last.field("fig2")), 3);
}

TEST_F(WheelDatabase, AWheelThatDoesNotHoldIsRefusedWithTheFirstSubsetNotCovered) {
    // The row 1 2 3 4 5 7 is missing: 1 2 3 4 7 lies in 1 2 3 4 6 7, but 1 2 3 5 7 … and so on; what leaves out both
    // 6 and the position of another missing row is lost. Two rows missing, those without 6 and without 7:
    const char* text = "1 2 3 4 6 7\n1 2 3 5 6 7\n1 2 4 5 6 7\n1 3 4 5 6 7\n2 3 4 5 6 7\n";
    const auto refusal = importWheel(*database, fiveOfSeven, text);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->line, 0);
    EXPECT_EQ(refusal->uncovered, (std::vector<std::int32_t>{1, 2, 3, 4, 5}));
    EXPECT_EQ(refusal->message(fiveOfSeven),
              "table 0755 does not hold what it claims: of the positions 1 2 3 4 5 no row has 5");
    EXPECT_FALSE(database->hasTable("0755"));
}

TEST_F(WheelDatabase, ARefusedWheelLeavesTheTableThatIsThere) {
    ASSERT_FALSE(importWheel(*database, fiveOfSeven, kSixOfSeven));
    EXPECT_TRUE(importWheel(*database, fiveOfSeven, "1 2 3 4 5 6\n"));
    EXPECT_EQ(database->rowCount("0755"), 6);
}

TEST_F(WheelDatabase, AnotherWheelReplacesTheTableThatIsThere) {
    ASSERT_FALSE(importWheel(*database, fiveOfSeven, kSixOfSeven));
    ASSERT_FALSE(importWheel(*database, fiveOfSeven, std::string(kSixOfSeven) + "2 3 4 5 6 7\n"));
    EXPECT_EQ(database->rowCount("0755"), 7);
}

TEST_F(WheelDatabase, LinesMayBeEmptyOrRemarksAndNumbersPartedInAnyWay) {
    const std::string text = std::string("\xEF\xBB\xBF# mine\r\n\r\n 6,5,4 ,3\t2 1\r\n") +
                             (kSixOfSeven + std::string_view("1 2 3 4 5 6\n").size());
    EXPECT_FALSE(importWheel(*database, fiveOfSeven, text));
    EXPECT_EQ(firstRow("0755", 6), "1 2 3 4 5 6 ");
}

TEST_F(WheelDatabase, ALineThatIsNoRowIsNamed) {
    for (const char* line : {"1 2 3 4 5", "1 2 3 4 5 6 7", "1 2 3 4 5 5", "1 2 3 4 5 8", "0 1 2 3 4 5", "1 2 3 4 5 x",
                             "1 2 3 4 5 4294967297", "-1 2 3 4 5 6"}) {
        const auto refusal = importWheel(*database, fiveOfSeven, "1 2 3 4 5 6\n" + std::string(line) + "\n");
        ASSERT_TRUE(refusal) << line;
        EXPECT_EQ(refusal->line, 2) << line;
        EXPECT_EQ(refusal->message(fiveOfSeven), "line 2 is no row of table 0755: " + std::string(line));
    }
}

TEST_F(WheelDatabase, ARowOfABankerWheelNamesItsBankers) {
    // Two bankers (6 and 7) and five drags, any two of which must stand together in a row of four.
    EXPECT_FALSE(importWheel(*database, twoBankers,
                             "1 2 3 4 6 7\n1 2 3 5 6 7\n1 2 4 5 6 7\n"
                             "1 3 4 5 6 7\n"));
    EXPECT_EQ(firstRow("26744", 6), "1 2 3 4 6 7 ");
    const auto refusal = importWheel(*database, twoBankers, "1 2 3 4 5 6\n");
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->line, 1);
}

TEST_F(WheelDatabase, ARefusedBankerWheelNamesTheBankersInTheSubset) {
    const auto refusal = importWheel(*database, twoBankers, "1 2 3 4 6 7\n");
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->uncovered, (std::vector<std::int32_t>{1, 5, 6, 7}));
    EXPECT_EQ(refusal->message(twoBankers),
              "table 26744 does not hold what it claims: of the positions 1 5 6 7 no row has 4");
}

TEST_F(WheelDatabase, NothingAtAllIsNoWheel) {
    const auto refusal = importWheel(*database, fiveOfSeven, "\n# nothing\n");
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->uncovered, (std::vector<std::int32_t>{1, 2, 3, 4, 5}));
}

TEST_F(WheelDatabase, ASevenRedTableHasSevenColumns) {
    const auto table = wheelTableNamed(WheelFamily::Seven, "0865");
    writeWheel(*database, *table, std::vector<PositionSet>{row({2, 3, 4, 5, 6, 7, 8})});
    EXPECT_EQ(database->columnNames("0865").back(), "fig7");
    EXPECT_EQ(firstRow("0865", 7), "2 3 4 5 6 7 8 ");
}
