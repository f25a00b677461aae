#include "output/bets_text.h"

#include <system_error>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "sheet_support.h"
#include "sql/executor.h"

using namespace output;
using namespace output_test;

namespace {

/// Bets of an index and seven numbers: bet n (from 1) is n, n+1, … n+6, each beyond 33 begun again at 1.
class MadeBets final : public sql::Rows::Source {
  public:
    explicit MadeBets(int count) : m_count(count) {}
    std::int64_t count() const override { return m_count; }
    const std::vector<std::string>& columns() const override { return m_columns; }
    sql::Value at(std::int64_t row, int column) const override {
        return column == 0 ? row + 1 : (row + column - 1) % 33 + 1;
    }

  private:
    int m_count;
    std::vector<std::string> m_columns{"idx", "fig1", "fig2", "fig3", "fig4", "fig5", "fig6", "fig7"};
};

class BetsText : public testing::Test {
  protected:
    BetsText() { std::filesystem::create_directory(user); }

    void make(int bets) { rows = sql::Rows(std::make_shared<MadeBets>(bets)); }

    Printed print(int perLine, int numbers = 7) {
        Silent dialogs;
        return writeBetsText({rows, numbers, 2026131, perLine}, file, dialogs, kNow);
    }

    /// The same by the plainest way: bet after bet from its numbers.
    static std::string byHand(int bets, int perLine, int numbers) {
        std::string text = "购买期数:2026131\r\n";
        for (int bet = 1; bet <= bets; ++bet) {
            for (int place = 0; place < numbers; ++place) {
                const std::string number = std::to_string((bet + place - 1) % 33 + 1);
                text += (place > 0 ? " " : "") + (number.size() < 2 ? "0" + number : number);
            }
            if (bet == bets || bet % perLine == 0)
                text += "\r\n";
        }
        return text + "打印时间:2026-11-22 19:05:09\r\n";
    }

    static inline const QDateTime kNow{QDate(2026, 11, 22), QTime(19, 5, 9)};
    ScratchFolder folder;
    std::filesystem::path user = folder.path() / "甲";
    std::filesystem::path file = user / "Print.txt";
    sql::Rows rows;
};

TEST_F(BetsText, WithoutABetThereIsNothingAndTheLastOutputStays) {
    make(0);
    write(file, "last");
    EXPECT_EQ(print(5), Printed::Nothing);
    EXPECT_EQ(bytesOf(file), "last");
}

TEST_F(BetsText, NothingStandsBetweenTwoBetsOfALine) {
    make(6);
    ASSERT_EQ(print(5), Printed::Whole);
    EXPECT_EQ(
        bytesOf(file),
        "购买期数:2026131\r\n"
        "01 02 03 04 05 06 0702 03 04 05 06 07 0803 04 05 06 07 08 0904 05 06 07 08 09 1005 06 07 08 09 10 11\r\n"
        "06 07 08 09 10 11 12\r\n"
        "打印时间:2026-11-22 19:05:09\r\n");
}

TEST_F(BetsText, AFullLastLineLeavesNoEmptyOne) {
    make(5);
    ASSERT_EQ(print(5, 6), Printed::Whole);
    EXPECT_EQ(bytesOf(file),
              "购买期数:2026131\r\n"
              "01 02 03 04 05 0602 03 04 05 06 0703 04 05 06 07 0804 05 06 07 08 0905 06 07 08 09 10\r\n"
              "打印时间:2026-11-22 19:05:09\r\n");
}

TEST_F(BetsText, EveryCountComesOutAsByHand) {
    for (const int bets : {1, 5, 6, 1000, 9000})
        for (const int perLine : {1, 5, 7, 32767})
            for (const int numbers : {6, 7}) {
                make(bets);
                ASSERT_EQ(print(perLine, numbers), Printed::Whole);
                EXPECT_EQ(bytesOf(file), byHand(bets, perLine, numbers)) << bets << ' ' << perLine;
            }
    EXPECT_EQ(namesIn(user), std::set<std::string>{"Print.txt"});
}

TEST_F(BetsText, WithNoBetsPerLineTheFileKeepsWhatWasWrittenBeforeTheFirst) {
    make(3);
    EXPECT_EQ(print(0), Printed::EndedAtFirstBet);
    EXPECT_EQ(bytesOf(file), "购买期数:2026131\r\n");
}

TEST_F(BetsText, GivenUpOrOnAFullDiskTheFormerOneStays) {
    make(9000);
    write(file, "last");
    for (int reports = 0; reports < 3; ++reports) {
        Silent dialogs(reports);
        EXPECT_EQ(writeBetsText({rows, 7, 1, 5}, file, dialogs, kNow), Printed::GivenUp);
    }
    {
        const FileLimit full(100'000);
        EXPECT_THROW(print(5), std::system_error);
    }
    EXPECT_EQ(bytesOf(file), "last");
    EXPECT_EQ(namesIn(user), std::set<std::string>{"Print.txt"});
}

TEST_F(BetsText, AFolderThatIsNotThereIsAFailure) {
    make(1);
    std::filesystem::remove(user);
    EXPECT_THROW(print(5), std::system_error);
}

TEST_F(BetsText, TheDocumentNumbersItsBetsAsWideAsTheLast) {
    make(12);
    Silent dialogs;
    const std::optional<QStringList> lines = betsDocumentLines({rows, 6, 2026131, 5}, dialogs);
    ASSERT_TRUE(lines.has_value());
    ASSERT_EQ(lines->size(), 5);
    EXPECT_EQ(lines->at(0), u"购买期数:2026131"_s);
    EXPECT_EQ(lines->at(1), QString());
    EXPECT_EQ(lines->at(2), u"<01>01 02 03 04 05 06  <02>02 03 04 05 06 07  <03>03 04 05 06 07 08  "
                            "<04>04 05 06 07 08 09  <05>05 06 07 08 09 10  "_s);
    EXPECT_EQ(lines->at(4), u"<11>11 12 13 14 15 16  <12>12 13 14 15 16 17  "_s);
    make(10);
    EXPECT_EQ(betsDocumentLines({rows, 7, 1, 5}, dialogs)->size(), 4) << "no empty line behind a full one";
    Silent givesUp(0);
    EXPECT_FALSE(betsDocumentLines({rows, 7, 1, 5}, givesUp).has_value());
}

} // namespace
