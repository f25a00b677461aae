#include "selection/ranked_numbers.h"

#include <algorithm>

#include "scripted_dialogs.h"
#include "selection/choosing_support.h"

namespace choosing_tests {
namespace {

using selection::Colour;
using selection::DrawRange;
using selection::Ranking;

const selection::RankedSelection& entry(QStringView command) {
    return *std::find_if(std::begin(selection::kRankedSelections), std::end(selection::kRankedSelections),
                         [&](const auto& each) { return each.command == command; });
}

/// 1..6 five times, 7..12 three times, 13..18 once; blue 3 five times, 4 three times, 5 once.
std::vector<history::Draw> threeBlocks() {
    std::vector<history::Draw> draws;
    std::int32_t issue = 2003001;
    for (const auto& [first, blue, times] : {std::array{13, 5, 1}, std::array{7, 4, 3}, std::array{1, 3, 5}})
        for (int time = 0; time < times; ++time)
            draws.push_back({issue++, first, first + 1, first + 2, first + 3, first + 4, first + 5, blue});
    return draws;
}

class Ranked : public Choosing {
  protected:
    selection::RankingSource source(const DrawRange& range = {}) { return {*workspace.dbUser, history.Lsnum, range}; }
    std::vector<int> numbers(QStringView command, int number, const DrawRange& range = {}) {
        const auto& selected = entry(command);
        return selection::pickNumbers(source(range), selected, number, selection::highestNumber(pad, selected.colour))
            .numbers;
    }
    int choose(QStringView command, int number, const DrawRange& range = {}) {
        const auto& selected = entry(command);
        return selection::pressNumbers(pad, selection::pickNumbers(source(range), selected, number,
                                                                   selection::highestNumber(pad, selected.colour)));
    }
};

TEST_F(Ranked, TheMostFrequentArePressedFromTheTopAndEqualOnesInTheTablesOrder) {
    hold(threeBlocks());
    EXPECT_EQ(choose(u"mnuHihg", 8), 8);
    EXPECT_EQ(padText(), " 1 2 3 4 5 6 7 8 | |");
    EXPECT_EQ(choose(u"mnuHihgB", 2), 2);
    EXPECT_EQ(padText(), " 1 2 3 4 5 6 7 8 | | 3 4");
}

TEST_F(Ranked, TheLeastFrequentArePressedFromTheBottom) {
    hold(threeBlocks());
    choose(u"mnuLow", 17); // 19..33 were never drawn
    EXPECT_EQ(padText(), " 19 20 21 22 23 24 25 26 27 28 29 30 31 32 33 13 14 | |");
    choose(u"mnuLowB", 3);
    EXPECT_EQ(pad.blueText(), u" 1 2 6"_s);
}

TEST_F(Ranked, FourOfTheTopTenThatAreSelectedAlreadyMakeRoomForTheNext) {
    hold(threeBlocks());
    for (const int red : {1, 2, 7, 8})
        pad.pressRed(red);
    EXPECT_EQ(choose(u"mnuHihg", 10), 10);
    EXPECT_EQ(padText(), " 1 2 7 8 3 4 5 6 9 10 11 12 13 14 | |");
}

TEST_F(Ranked, MoreThanThereAreStopsAtTheEndOfTheRanking) {
    hold(threeBlocks());
    EXPECT_EQ(choose(u"mnuHihg", 100), 33);
    EXPECT_EQ(choose(u"mnuHihg", 100), 0);
    EXPECT_EQ(choose(u"mnuLowB", 100), 16);
    EXPECT_EQ(pad.Redcnt, 33);
    EXPECT_EQ(pad.Bluecnt, 16);
}

TEST_F(Ranked, NoneAndLessThanNonePressNothing) {
    hold(threeBlocks());
    EXPECT_EQ(choose(u"mnuHihg", 0) + choose(u"mnuLowB", -3), 0);
    EXPECT_EQ(padText(), " | |");
}

TEST_F(Ranked, ARowAboveTheRuleIsPassedOver) {
    pad.setRule(38, 18);
    workspace.Bitnum = 38;
    workspace.BitnumB = 18;
    hold({{2003001, 1, 34, 35, 36, 37, 38, 18}, {2003002, 2, 34, 35, 36, 37, 38, 17}});
    pad.setRule(33, 16);
    EXPECT_EQ(choose(u"mnuHihg", 2), 2);
    EXPECT_EQ(padText(), " 1 2 | |");
    choose(u"mnuHihgB", 1);
    EXPECT_EQ(pad.blueText(), u" 1"_s);
    EXPECT_EQ(numbers(u"mnuYHigh", 0).back(), 33);
    EXPECT_EQ(numbers(u"mnuLow", 1, {DrawRange::Kind::Latest, 0, 0, 2}).size(), 33u);
    EXPECT_EQ(sql::toInteger(workspace.dbUser->queryValue("SELECT SUM([gailv]) FROM [Gailvtmp]")), 2)
        << "nothing is counted above the rule";
}

TEST_F(Ranked, ABankerIsNotSelectedSoItIsPressed) {
    hold(threeBlocks());
    makeBanker(1);
    choose(u"mnuHihg", 2);
    EXPECT_EQ(padText(), " 1 2 | |");
}

TEST_F(Ranked, AbsenceTakesEveryNumberOnTheRightSideOfTheLimit) {
    hold(threeBlocks()); // absent: 1..6 for 0 draws, 7..12 for 5, 13..18 for 8, others for 9
    EXPECT_EQ(choose(u"mnuYHigh", 8), 21);
    EXPECT_EQ(pad.redText(), u" 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 32 33"_s);
    pad.clearReds();
    pad.pressRed(9);
    EXPECT_EQ(choose(u"mnuYLow", 5), 11);
    EXPECT_EQ(pad.redText(), u" 9 1 2 3 4 5 6 7 8 10 11 12"_s);
    choose(u"mnuYHighB", 9);
    EXPECT_EQ(pad.blueText(), u" 1 2 6 7 8 9 10 11 12 13 14 15 16"_s);
    pad.clearBlues();
    choose(u"mnuYLowB", 8);
    EXPECT_EQ(pad.blueText(), u" 3 4 5"_s);
}

TEST_F(Ranked, WithoutADrawNobodyIsAbsent) {
    EXPECT_EQ(choose(u"mnuYHigh", 0) + choose(u"mnuYLowB", 100), 0);
}

TEST_F(Ranked, ARangeOfIssuesCountsItsDrawsAlone) {
    hold(threeBlocks()); // 2003001 has 13..18, 2003002..2003004 have 7..12
    const DrawRange range{DrawRange::Kind::Issues, 2003001, 2003002, 0};
    EXPECT_EQ(choose(u"mnuHihg", 12, range), 12);
    EXPECT_EQ(padText(), " 7 8 9 10 11 12 13 14 15 16 17 18 | |");
    EXPECT_EQ(selection::drawsIn(history, range), 2);
}

TEST_F(Ranked, TheLastDrawsAreThoseBehindTheRest) {
    hold(threeBlocks());
    const DrawRange range{DrawRange::Kind::Latest, 0, 0, 6}; // five of 1..6 and one of 7..12
    EXPECT_EQ(numbers(u"mnuHihgB", 2, range),
              (std::vector<int>{3, 4, 1, 2, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(selection::drawsIn(history, range), 6);
    EXPECT_EQ(selection::drawsIn(history, {DrawRange::Kind::Latest, 0, 0, 5000}), 9);
    EXPECT_EQ(selection::drawsIn(history, {DrawRange::Kind::Latest, 0, 0, -1}), 0);
    EXPECT_EQ(selection::drawsIn(history, {DrawRange::Kind::Issues, 2003009, 2003001, 0}), 0);
}

TEST_F(Ranked, WhatWasCountedBeforeIsGone) {
    hold(threeBlocks());
    workspace.dbUser->execute("UPDATE [Gailvtmp] SET [gailv]=7");
    choose(u"mnuHihg", 0, {DrawRange::Kind::Latest, 0, 0, 9});
    choose(u"mnuHihg", 0, {DrawRange::Kind::Latest, 0, 0, 1});
    std::string wanted;
    for (int number = 1; number <= 38; ++number)
        wanted += std::to_string(number) + (number <= 6 ? " 1\n" : " 0\n");
    EXPECT_EQ(dump(*workspace.dbUser, "Gailvtmp", 2), wanted);
}

TEST_F(Ranked, AFailedStatementPressesNothing) {
    hold(threeBlocks());
    workspace.dbUser->execute("DROP TABLE [Gailvtmp]");
    EXPECT_THROW(choose(u"mnuHihg", 5, {DrawRange::Kind::Latest, 0, 0, 9}), sql::SqlError);
    EXPECT_EQ(padText(), " | |");
}

/// The statement of one number and one place, as a count for itself.
std::int64_t oneCount(sql::Database& dbUser, int number, int place, const std::string& condition) {
    return sql::toInteger(dbUser.queryValue("SELECT COUNT(*) as [COUNT] FROM [fig] WHERE [fig" +
                                            std::to_string(place) + "] = " + std::to_string(number) + " AND  " +
                                            condition));
}

/// Hits as the draws themselves give them, ranked by a plain sort.
std::vector<int> rankedByHand(const std::vector<history::Draw>& draws, Colour colour, Ranking ranking) {
    const int highest = colour == Colour::Red ? 33 : 16;
    std::vector<int> hits(static_cast<std::size_t>(highest) + 1);
    for (const history::Draw& draw : draws)
        for (std::size_t place = colour == Colour::Red ? 1 : 7; place <= (colour == Colour::Red ? 6u : 7u); ++place)
            ++hits[static_cast<std::size_t>(draw[place])];
    std::vector<int> numbers;
    for (int number = 1; number <= highest; ++number)
        numbers.push_back(number);
    std::stable_sort(numbers.begin(), numbers.end(), [&](int left, int right) {
        const int a = hits[static_cast<std::size_t>(left)];
        const int b = hits[static_cast<std::size_t>(right)];
        return ranking == Ranking::Frequent ? a > b : a < b;
    });
    return numbers;
}

TEST_F(Ranked, TheRealHistoryRanksAsItsDrawsCountedByHandInAllThreeRanges) {
    const std::vector<history::Draw> draws = realDraws();
    ASSERT_GT(draws.size(), 3000u);
    hold(draws);
    const std::int32_t first = draws[500][0];
    const std::int32_t last = draws[899][0];
    struct Case {
        DrawRange range;
        std::vector<history::Draw> draws;
    } const cases[] = {
        {{}, draws},
        {{DrawRange::Kind::Issues, first, last, 0}, {draws.begin() + 500, draws.begin() + 900}},
        {{DrawRange::Kind::Latest, 0, 0, 100}, {draws.end() - 100, draws.end()}},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(selection::drawsIn(history, one.range), static_cast<int>(one.draws.size()));
        for (const char16_t* command : {u"mnuHihg", u"mnuLow", u"mnuHihgB", u"mnuLowB"})
            EXPECT_EQ(numbers(command, 10, one.range),
                      rankedByHand(one.draws, entry(command).colour, entry(command).ranking))
                << QString::fromUtf16(command).toStdString();
    }
}

TEST_F(Ranked, TheWorkingCopyHoldsWhatOneStatementForEachNumberAndPlaceWouldCount) {
    hold(realDraws());
    sql::Database& dbUser = *workspace.dbUser;
    numbers(u"mnuHihg", 1, {DrawRange::Kind::Issues, 2010001, 2015100, 0});
    numbers(u"mnuHihgB", 1, {DrawRange::Kind::Latest, 0, 0, 250});
    const std::string latest = "[Idx] > " + std::to_string(history.Lsnum - 250);
    for (int number = 1; number <= 33; ++number) {
        std::int64_t hits = 0;
        for (int place = 1; place <= 6; ++place)
            hits += oneCount(dbUser, number, place, "[fig0] >= 2010001 AND [fig0] <= 2015100");
        const std::string where = " WHERE [Number] = " + std::to_string(number);
        EXPECT_EQ(sql::toInteger(dbUser.queryValue("SELECT [gailv] FROM [Gailvtmp]" + where)), hits) << number;
        if (number > 16)
            continue;
        EXPECT_EQ(sql::toInteger(dbUser.queryValue("SELECT [gailv] FROM [GailvtmpB]" + where)),
                  oneCount(dbUser, number, 7, latest))
            << number;
    }
}

TEST(RankedPrompts, AreTheSystemsTexts) {
    using selection::PromptStyle;
    using selection::rankedPrompt;
    EXPECT_EQ(
        rankedPrompt(entry(u"mnuHihg")),
        u"请在下面填写需要选择的历史号码中高频（出现概率比较大）的号码的个数，软件将从高到底自动检索相应个数的号码并选号"_s);
    EXPECT_EQ(
        rankedPrompt(entry(u"mnuLowB")),
        u"请在下面填写需要选择的历史号码中低频（出现概率比较小）的号码的个数，软件将从高到底自动检索相应个数的号码并选号"_s);
    EXPECT_EQ(
        rankedPrompt(entry(u"mnuYHigh")),
        u"请在下面填写需要选择的遗漏次数高于的条件（比如填“6”将选择遗漏次数大于或等于“6”的号码），软件将自动检索相应号码并选号"_s);
    EXPECT_EQ(
        rankedPrompt(entry(u"mnuYHighB")),
        u"请在下面填写需要选择的遗漏次数高于的条件（比如填“8”将选择遗漏次数大于或等于“8”的号码），软件将自动检索相应号码并选号"_s);
    EXPECT_TRUE(rankedPrompt(entry(u"mnuYLowB")).contains(u"比如填“3”"_s));
    EXPECT_EQ(
        rankedPrompt(entry(u"mnuHihg"), PromptStyle::NamesColour),
        u"请在下面填写需要选择的红球历史号码中高频（出现概率比较大）的号码的个数，软件将从高到底自动检索相应个数的号码并选号"_s);
    EXPECT_TRUE(rankedPrompt(entry(u"mnuYLowB"), PromptStyle::NamesColour).contains(u"需要选择的蓝球遗漏次数"_s));
}

TEST(RankedPrompts, AWordIsAskedAgainAndALeadingNumberIsTaken) {
    const auto& selected = entry(u"mnuHihg");
    const QString prompt = selection::rankedPrompt(selected);
    const DialogCall again = tells(u"请输入数字"_s);
    ScriptedDialogs dialogs({asksText(prompt, u"十个"_s), again, asksText(prompt, QString()), again,
                             asksText(prompt, u"40000"_s), again, asksText(prompt, u"12个"_s)});
    EXPECT_EQ(selection::askRankedNumber(dialogs, selected), 12);
    EXPECT_EQ(dialogs.shown[0].title, u"高频选号"_s);
    EXPECT_EQ(dialogs.shown[1].title, u"输入错误"_s);
    ScriptedDialogs cancelled({asksText(prompt, std::nullopt)});
    EXPECT_EQ(selection::askRankedNumber(cancelled, selected), std::nullopt);
}

} // namespace
} // namespace choosing_tests
