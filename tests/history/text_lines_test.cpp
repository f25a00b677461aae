#include "history/text_lines.h"

#include <algorithm>
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

TEST(HistoryText, AnIssueOfAnyLengthReadsBackAsWritten) {
    for (const std::int32_t issue : {1, 12, 999, 1000, 9999, 10000, 99999, 100000, 999999, 1000000, 9999999, 10000000,
                                     99999999, 100000000, 999999999, 1000000000, 2147483647}) {
        const std::vector<Draw> draws{{issue, 1, 2, 3, 4, 5, 6, 7}};
        EXPECT_EQ(parseDraws(history::decodeText(history::drawsAsText(draws))).draws, draws) << issue;
    }
}

TEST(HistoryText, AnyRisingHistoryReadsBackAsWritten) {
    std::mt19937 random(52);
    for (int round = 0; round < 300; ++round) {
        std::vector<Draw> draws;
        const int digits = std::uniform_int_distribution<int>(1, 31)(random);
        std::int64_t issue = 0;
        for (int draw = 0; draw < 40; ++draw) {
            issue += 1 + static_cast<std::int64_t>(random() % (std::uint64_t{1} << digits));
            if (issue <= 2147483647)
                draws.push_back(randomDraw(random, static_cast<std::int32_t>(issue)));
        }
        ASSERT_EQ(parseDraws(history::decodeText(history::drawsAsText(draws))).draws, draws) << "round " << round;
    }
}

/// A short issue is one only in the form in which it is written: else the line has too many numbers, as ever.
TEST(HistoryText, AShortIssueNeedsTheFormInWhichItIsWritten) {
    const Draw written{12, 1, 2, 3, 4, 5, 6, 7};
    EXPECT_EQ(parseLine("0012 01 02 03 04 05 06 07 ", 4), written);
    EXPECT_EQ(parseLine("0012 01 02 03 04 05 06 07", 4), written); // an editor took the last blank away
    EXPECT_EQ(parseLine("200312 01 02 03 04 05 06 07", 4), (Draw{200312, 1, 2, 3, 4, 5, 6, 7}));
    for (const char* line :
         {"0012  01 02 03 04 05 06 07", "0012,01 02 03 04 05 06 07", "0012 01 02 03 04 05 06 07  ",
          "0012 01 02 03 04 05 06,07", "0012 01 02 03 04 05 06 07.", " 0012 01 02 03 04 05 06 07",
          "0000 01 02 03 04 05 06 07 ", "00012 01 02 03 04 05 06 07 ", "012 01 02 03 04 05 06 07 08",
          "0012 01 02 03 04 05 06 07 08", "0012 01 02 03 04 05 06 7 "})
        EXPECT_FALSE(parseLine(line, 4)) << line;
    EXPECT_EQ(parseLine("0102 03 04 05 06 07", 4), (Draw{5, 1, 2, 3, 4, 5, 6, 7})); // four digits are two numbers
    EXPECT_TRUE(parseDraws(u"0012\u300001 02 03 04 05 06 07 "_s).refused);          // no blank of ASCII
}

/// A long issue needs the blank at the end too: without it the first seven digits are the issue, as they always were.
TEST(HistoryText, ALongIssueNeedsTheWholeFormInWhichItIsWritten) {
    EXPECT_EQ(parseLine("20030012 01 02 03 04 05 06 07 ", 4), (Draw{20030012, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(parseLine("20030012 01 02 03 04 05 06 07", 4), (Draw{2003001, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(parseLine("20030012,01 02 03 04 05 06 07 ", 4), (Draw{2003001, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(parseLine("00030012 01 02 03 04 05 06 07 ", 4), (Draw{3001, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(parseLine("200300123 01 02 03 04 05 06 07 ", 4), (Draw{200300123, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(parseLine("2147483647 01 02 03 04 05 06 07 ", 4), (Draw{2147483647, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_FALSE(parseLine("2147483648 01 02 03 04 05 06 07 ", 4));  // 2147483, 8, and then eight numbers
    EXPECT_FALSE(parseLine("12003001200 01 02 03 04 05 06 07 ", 4)); // eleven digits are none
}

TEST(HistoryText, BehindTheLargestIssueALineNeedsItsOwn) {
    EXPECT_FALSE(parseLine("01 02 03 04 05 06 07", 2147483647));
    EXPECT_TRUE(parseLine("2003001 01 02 03 04 05 06 07", 2147483647));
    const history::ParsedDraws parsed = history::parseDrawsAfter(u"01 02 03 04 05 06 07"_s, 2147483647);
    ASSERT_TRUE(parsed.refused);
    EXPECT_EQ(parsed.refused->cause, u"期号超过2147483647"_s);
    EXPECT_FALSE(history::parseDrawsAfter(u"2003001 01 02"_s, 2147483647).refused); // skipped
}

TEST(HistoryText, ARefusedLineSaysHowManyNumbersItHas) {
    EXPECT_EQ(parseDraws(u"2003001 01 02 03"_s).refused->cause, u"这一行有3个号码，应为7个"_s);
    EXPECT_EQ(parseDraws(u"01 02 03 04 05 06 07 08 09"_s).refused->cause, u"这一行有9个号码，应为7个"_s);
}

TEST(HistoryText, ATooLongLineIsRefusedAndNotHeld) {
    const QString line = u"2003001 01 02 03 04 05 06 07"_s;
    const QString longest = line + QString(history::kLongestLine - line.size(), u' ');
    EXPECT_EQ(parseDraws(longest).draws.size(), 1u);
    const history::ParsedDraws refused = parseDraws(u"\n"_s + longest + u' ');
    ASSERT_TRUE(refused.refused);
    EXPECT_EQ(refused.refused->line, 2);
    EXPECT_EQ(refused.refused->cause, u"这一行太长"_s);
    EXPECT_EQ(refused.refused->text, longest.first(200));
    const history::ParsedDraws skipped =
        history::parseDrawsAfter(longest + u" \n2003002 01 02 03 04 05 06 07"_s, 2003001);
    EXPECT_FALSE(skipped.refused); // a line that is not behind may hold anything
    EXPECT_EQ(skipped.draws.size(), 1u);
}

TEST(HistoryText, ItDoesNotMatterWhereAPieceEnds) {
    const QString text = u"\r\n2003001 10 11 12 13 26 28 11\r\n\r\r0002 04 09 19 20 21 26 12 \n01 02 03 04 05 06 7"_s;
    const history::ParsedDraws whole = parseDraws(text);
    ASSERT_TRUE(whole.refused);
    EXPECT_EQ(whole.refused->line, 6);
    ASSERT_EQ(whole.draws.size(), 2u);
    for (qsizetype length = 1; length < text.size(); ++length) {
        history::DrawsReader reader;
        for (qsizetype start = 0; start < text.size(); start += length)
            reader.take(QStringView(text).sliced(start, std::min(length, text.size() - start)));
        const history::ParsedDraws pieces = reader.finish();
        EXPECT_EQ(pieces.draws, whole.draws) << length;
        ASSERT_TRUE(pieces.refused) << length;
        EXPECT_EQ(pieces.refused->line, whole.refused->line) << length;
        EXPECT_EQ(pieces.refused->text, whole.refused->text) << length;
    }
}

} // namespace
