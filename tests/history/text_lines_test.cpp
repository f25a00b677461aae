#include "history/text_lines.h"

#include <limits>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

#include "history/draws_support.h"
#include "history/history.h"

using namespace Qt::StringLiterals;

namespace {

using history::Draw;
using history::parseDraws;
using history::parseLine;

const Draw kFirst{2003001, 10, 11, 12, 13, 26, 28, 11};

TEST(HistoryText, ALineHasAnIssueAndSevenNumbers) {
    EXPECT_EQ(parseLine("2003001 10 11 12 13 26 28 11", 7), kFirst);
    EXPECT_EQ(parseLine("2003001,10,11,12,13,26,28+11", 7), kFirst);
    EXPECT_EQ(parseLine("2003001 10 11 12 13 26 28 11   ", 7), kFirst);
}

TEST(HistoryText, ALineWithoutAnIssueGetsTheNextNumber) {
    EXPECT_EQ(parseLine("10 11 12 13 26 28 11", 2003000), kFirst);
    EXPECT_EQ(parseDraws(u"2003001 01 02 03 04 05 06 07\n08 09 10 11 12 13 14"_s).draws.at(1)[0], 2003002);
    EXPECT_EQ(parseDraws(u"08 09 10 11 12 13 14"_s).draws.at(0)[0], 1);
}

TEST(HistoryText, TheLargestNumberHasNoNextIssue) {
    const auto parsed =
        history::parseDrawsAfter(u"1 2 3\n01 02 03 04 05 06 07\n"_s, std::numeric_limits<std::int32_t>::max());
    EXPECT_TRUE(parsed.draws.empty()); // nothing is behind it
    EXPECT_EQ((*parseLine("10 11 12 13 26 28 11", std::numeric_limits<std::int32_t>::max()))[0], 2147483647);
}

TEST(HistoryText, SevenDigitsInFrontAreAnIssueEvenWhenOnlyBlanksFollow) {
    EXPECT_FALSE(parseLine("2003001       ", 0)); // an issue and no number, not three numbers
    EXPECT_FALSE(parseLine("1011121", 0));
    EXPECT_FALSE(parseLine("10111213262811", 0)); // the first seven are the issue, the eighth is its separator
}

TEST(HistoryText, TheIssueIsLookedForOnlyAtTheStartOfTheLine) {
    EXPECT_FALSE(parseLine(" 2003001 10 11 12 13 26 28 11", 0));                    // 20 03 00 and seven more
    EXPECT_EQ(parseLine("01 0203040506 07", 4), (Draw{5, 1, 2, 3, 4, 5, 6, 7}));    // runs of digits split in pairs
    EXPECT_EQ(parseLine("200300 01 02 03 04", 4), (Draw{5, 20, 3, 0, 1, 2, 3, 4})); // six digits are three numbers
}

TEST(HistoryText, AnEighthNumberRefusesTheLine) {
    EXPECT_FALSE(parseLine("2003001 01 02 03 04 05 06 07 08", 0));
}

TEST(HistoryText, ANumberOfOneDigitIsSkippedAndSoTheLineRefused) {
    EXPECT_FALSE(parseLine("2003001 4 11 12 13 26 28 11", 0));
    EXPECT_EQ(parseLine("2003001 4 11 12 13 26 28 11 09", 0), (Draw{2003001, 11, 12, 13, 26, 28, 11, 9}));
}

TEST(HistoryText, NothingIsSortedAndNoRangeIsChecked) {
    EXPECT_EQ(parseLine("99 00 33 02 01 50 77", 0), (Draw{1, 99, 0, 33, 2, 1, 50, 77}));
}

TEST(HistoryText, EmptyLinesAreSkippedAndARefusedLineIsNamed) {
    const history::ParsedDraws parsed = parseDraws(
        u"\r\n2003001 10 11 12 13 26 28 11\r\n\r\n2003002 04 09 19 20 21 26\r\n01 02 03 04 05 06 07\r\n"_s);
    EXPECT_EQ(parsed.draws, std::vector<Draw>{kFirst});
    ASSERT_TRUE(parsed.refused);
    EXPECT_EQ(parsed.refused->line, 4);
    EXPECT_EQ(parsed.refused->text, u"2003002 04 09 19 20 21 26"_s);
}

TEST(HistoryText, ALineOfBlanksIsNoEmptyLine) {
    EXPECT_TRUE(parseDraws(u"2003001 10 11 12 13 26 28 11\n   \n"_s).refused);
}

TEST(HistoryText, ChineseAndFullWidthCharactersOnlySeparate) {
    EXPECT_EQ(parseDraws(u"2003001期10红11、12，13　26　28蓝11"_s).draws.at(0), kFirst);
    EXPECT_TRUE(parseDraws(u"２００３００１ 10 11 12 13 26 28"_s).refused);
}

TEST(HistoryText, AllLineEndsEndALine) {
    const QString line = u"01 02 03 04 05 06 07"_s;
    for (const QString& end : {u"\n"_s, u"\r\n"_s, u"\r"_s})
        EXPECT_EQ(parseDraws(line + end + line + end).draws.size(), 2u);
}

TEST(HistoryText, MoreDrawsThanAHistoryHoldsAreARangeError) {
    const QString line = u"01 02 03 04 05 06 07\n"_s;
    EXPECT_EQ(parseDraws(line.repeated(32767)).draws.size(), 32767u);
    EXPECT_THROW(parseDraws(line.repeated(32768)), std::range_error);
}

TEST(HistoryText, IsReadAsUtf8ElseAsGb18030) {
    EXPECT_EQ(history::decodeText("\xE6\x9C\x9F"), u"期"_s);
    EXPECT_EQ(history::decodeText("\xEF\xBB\xBF\xE6\x9C\x9F"), u"期"_s);
    EXPECT_EQ(history::decodeText("\xC6\xDA"
                                  "01"),
              u"期01"_s);
    EXPECT_EQ(history::decodeText("01 \xC6\xDA"), u"01 期"_s); // no UTF-8 character that the end has cut off
    EXPECT_EQ(history::decodeText(QByteArray("\xFF\xFE"
                                             "1\0",
                                             4)),
              u"1"_s);
    EXPECT_EQ(history::decodeText(""), QString());
}

TEST(HistoryText, IsWrittenWithTheIssueInFrontWhenThereIsOne) {
    EXPECT_EQ(history::drawsAsText(std::vector<Draw>{kFirst, {0, 1, 2, 3, 4, 5, 6, 7}, {12, 1, 2, 3, 4, 5, 6, 7}}),
              QByteArray("2003001 10 11 12 13 26 28 11 \n01 02 03 04 05 06 07 \n0012 01 02 03 04 05 06 07 \n"));
}

TEST(HistoryText, WhatIsWrittenReadsBack) {
    std::mt19937 random(20031);
    std::vector<Draw> draws;
    for (int draw = 0; draw < 500; ++draw)
        draws.push_back(randomDraw(random, 2003001 + draw));
    EXPECT_EQ(parseDraws(history::decodeText(history::drawsAsText(draws))).draws, draws);
}

TEST(HistoryText, AnyBytesGiveSevenNumbersALineOrARefusedLine) {
    std::mt19937 random(7);
    const QByteArray favourites("0123456789 \n\r,+\xC6\xDA\xE6\x00", 20);
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes;
        const int length = static_cast<int>(random() % 120);
        for (int place = 0; place < length; ++place)
            bytes += random() % 4 ? favourites[static_cast<int>(random() % 20)] : static_cast<char>(random() % 256);
        if (round % 2)
            bytes = "2003001 10 11 12 13 26 28 11\n" + bytes;
        const history::ParsedDraws parsed = parseDraws(history::decodeText(bytes));
        refused += parsed.refused.has_value();
        for (const Draw& draw : parsed.draws)
            for (std::size_t place = 1; place < draw.size(); ++place)
                ASSERT_TRUE(draw[place] >= 0 && draw[place] <= 99);
        if (round % 2) {
            ASSERT_EQ(parsed.draws.at(0), kFirst);
        }
    }
    EXPECT_GT(refused, 100);
}

/// An issue below seven digits is written with four and is no issue to the reader: its digits count as numbers.
TEST(HistoryText, ShortIssuesAreWrittenSoThatTheyDoNotReadBack) {
    const QByteArray text = history::drawsAsText(std::vector<Draw>{{1, 1, 2, 3, 4, 5, 6, 7}});
    EXPECT_EQ(text, QByteArray("0001 01 02 03 04 05 06 07 \n"));
    EXPECT_TRUE(parseDraws(history::decodeText(text)).refused);
}

} // namespace
