// The questions of the super filters: every text, every refusal, every jump.
#include "filter/super_questions.h"

#include <gtest/gtest.h>

#include "scripted_dialogs.h"

using namespace Qt::StringLiterals;

namespace {

using filter::FilterGroups;
using filter::FilterNumbers;
using filter::MatchHistory;
using filter::Step;
using filter::SuperFilter;
using Ints = std::vector<int>;
using Calls = std::vector<DialogCall>;

const QString kHistory =
    u"请输入过滤检索历史号码的期数，所填数字表示最近前若干期，缺省将检索所有期，所检索到的历史开出号码将被滤除。"
    "花费的时间可能较长，请您稍等！"_s;
const QString kCount =
    u"相生表示所选的若干个号码单独出现的时候全部过滤掉，只有全部出现的时候才保留；相克表示所选号码全部同时出现的时候"
    "将过滤掉。请输入相生/相克数字的数目，大小必须在1~7之间。"_s;
const QString kTotal = u"请输入相克数字的总数目，大小必须在1~9之间。"_s;
const QString kNoNumber = u"请输入数字"_s;
const QString kPositive = u"请输入一个正数"_s;

QString size(int total) {
    return u"请输入相克数字的分组每组数目，大小必须在1~%"
           u"1之间。若组合的号码中含有设置个数以上的号码与相克数字中的相同，那么该组号码将"
           "被过滤掉"_s.arg(total);
}
QString bankers(const QString& kind) {
    return u"请输入%1数字的总胆数目（每一组生克号中都必须出现的数字个数），大小必须在0~6之间。如果没有胆则此处填0。"_s
        .arg(kind);
}
DialogCall refuses(const QString& text, bool again = true) {
    return confirms(text, again);
}
DialogCall number(int place, const QString& answer) {
    return asksText(u"请输入第%1个相克数"_s.arg(place), answer);
}

class SuperQuestions : public testing::Test {
  protected:
    const SuperFilter& filterOf(std::string_view option) const {
        for (const SuperFilter& filter : superFiltersOf(*member))
            if (filter.option == option)
                return filter;
        throw std::invalid_argument("no such filter");
    }
    std::optional<Step> ask(std::string_view option, const Calls& calls) {
        ScriptedDialogs dialogs(calls);
        const std::optional<Step> step = askSuperFilter(filterOf(option), {*member, 33, 3358}, dialogs);
        titles.clear();
        for (const workspace::Message& message : dialogs.shown)
            titles.push_back(message.title);
        return step;
    }
    bool ended(std::string_view option, const Calls& calls) { return !ask(option, calls); }

    const filter::FilterMember* member = filter::findMember("GAgan");
    std::vector<QString> titles;
};

TEST_F(SuperQuestions, InfinityAndWhatIsNoNumberAreNoNumbers) {
    for (const QString& word : {u"inf"_s, u"nan"_s, u"-inf"_s, u"1e999"_s})
        EXPECT_TRUE(ended("Option27", {asksText(kHistory, word), refuses(kNoNumber, false)})) << word.toStdString();
}

TEST_F(SuperQuestions, AHistoryFilterAsksForTheDrawsOnce) {
    for (const char* option : {"Optio37", "Option26", "Option28", "Option27"}) {
        const auto step = ask(option, {asksText(kHistory, u"100"_s)});
        ASSERT_TRUE(step);
        EXPECT_EQ(std::get<MatchHistory>(*step).draws, 100);
        EXPECT_EQ(std::get<MatchHistory>(*step).filter, &filterOf(option));
        EXPECT_EQ(titles, (std::vector{u"历史过滤"_s}));
    }
    EXPECT_EQ(std::get<MatchHistory>(*ask("Option26", {asksText(kHistory, u"0"_s)})).draws, 0);
    EXPECT_EQ(std::get<MatchHistory>(*ask("Option26", {asksText(kHistory, u"9e99"_s)})).draws, 2147483647);
}

TEST_F(SuperQuestions, ABadNumberOfDrawsIsAskedAgainUntilItIsGoodOrCancelled) {
    const auto step = ask("Option26", {asksText(kHistory, u"abc"_s), refuses(kNoNumber), asksText(kHistory, u"-1"_s),
                                       refuses(kPositive), asksText(kHistory, u" 2.5 "_s)});
    EXPECT_EQ(std::get<MatchHistory>(*step).draws, 2);
    EXPECT_EQ(titles, (std::vector{u"历史过滤"_s, u"输入错误"_s, u"历史过滤"_s, u"输入错误"_s, u"历史过滤"_s}));
    EXPECT_TRUE(ended("Option26", {asksText(kHistory, std::nullopt)}));
    EXPECT_TRUE(ended("Option26", {asksText(kHistory, u""_s)}));
    EXPECT_TRUE(ended("Option26", {asksText(kHistory, u"abc"_s), refuses(kNoNumber, false)}));
    EXPECT_TRUE(ended("Option26", {asksText(kHistory, u"-1"_s), refuses(kPositive, false)}));
}

TEST_F(SuperQuestions, ProposeWhatIsUsual) {
    struct Proposals final : workspace::Dialogs {
        std::vector<QString> proposed;
        bool confirm(const workspace::Message&, workspace::Risk) override { return false; }
        void tell(const workspace::Message&) override {}
        void warn(const workspace::Message&) override {}
        QString chooseFile(const QString&, const QString&) override { return {}; }
        std::optional<QString> askText(const QString&, const QString&, const QString& text) override {
            proposed.push_back(text);
            return text.isEmpty() ? u"9"_s : text;
        }
    };
    const auto proposed = [this](const char* option) {
        Proposals dialogs;
        EXPECT_TRUE(askSuperFilter(filterOf(option), {*member, 33, 3358}, dialogs));
        return dialogs.proposed;
    };
    EXPECT_EQ(proposed("Option26"), (std::vector{u"3358"_s}));
    EXPECT_EQ(proposed("Option25(0)"), (std::vector{u"2"_s, u""_s, u""_s}));
    EXPECT_EQ(proposed("Option35"), (std::vector{u"4"_s, u"2"_s, u""_s, u""_s, u""_s, u""_s, u"0"_s}));
}

TEST_F(SuperQuestions, ANumberFilterAsksForACountAndForEachNumber) {
    for (const char* option : {"Option25(0)", "Option25(1)", "Option25(2)"}) {
        const auto step = ask(option, {asksText(kCount, u"2"_s), asksText(u"请输入红1个相克数"_s, u"17"_s),
                                       asksText(u"请输入红2个相克数"_s, u"5"_s)});
        EXPECT_EQ(std::get<FilterNumbers>(*step).numbers, (Ints{17, 5}));
        EXPECT_EQ(std::get<FilterNumbers>(*step).filter, &filterOf(option));
        EXPECT_EQ(titles, (std::vector{u"相生/相克个数"_s, u"相克数输入"_s, u"相克数输入"_s}));
    }
}

TEST_F(SuperQuestions, ANumberFilterRefusesWithItsOwnMessages) {
    const QString first = u"请输入红1个相克数"_s;
    const QString range = u"请输入1~7的数字"_s;
    const QString reds = u"请输入1~33之间的数字"_s;
    const auto step =
        ask("Option25(0)", {asksText(kCount, u"x"_s), refuses(kNoNumber), asksText(kCount, u"0"_s), refuses(range),
                            asksText(kCount, u"8"_s), refuses(range), asksText(kCount, u"1"_s),
                            asksText(first, u"三"_s), refuses(kNoNumber), asksText(first, u"0"_s), refuses(reds),
                            asksText(first, u"34"_s), refuses(reds), asksText(first, u"33"_s)});
    EXPECT_EQ(std::get<FilterNumbers>(*step).numbers, (Ints{33}));
    const DialogCall two = asksText(kCount, u"2"_s);
    EXPECT_TRUE(ended("Option25(0)", {asksText(kCount, u""_s)}));
    EXPECT_TRUE(ended("Option25(0)", {asksText(kCount, u"8"_s), refuses(range, false)}));
    EXPECT_TRUE(ended("Option25(0)", {two, asksText(first, u""_s)}));
    EXPECT_TRUE(ended("Option25(0)", {two, asksText(first, u"3"_s), asksText({}, std::nullopt)}));
    EXPECT_TRUE(ended("Option25(0)", {two, asksText(first, u"34"_s), refuses(reds, false)}));
}

TEST_F(SuperQuestions, SixRedsHaveOtherTextsInTheNumberDialogAndSevenRedsDoNot) {
    member = filter::findMember("GAganR");
    const auto six = ask("Option25(2)", {asksText(kCount, u"7"_s), refuses(u"请输入1~6之间的数字"_s),
                                         asksText(kCount, u"1"_s), number(1, u"9"_s)});
    EXPECT_EQ(std::get<FilterNumbers>(*six).numbers, (Ints{9}));
    member = filter::findMember("GAganf");
    Calls calls{asksText(kCount, u"8"_s), refuses(u"请输入1~7的数字"_s), asksText(kCount, u"7"_s)};
    for (int place = 1; place <= 7; ++place)
        calls.push_back(asksText(u"请输入红%1个相克数"_s.arg(place), QString::number(place)));
    EXPECT_EQ(std::get<FilterNumbers>(*ask("Option25(1)", calls)).numbers, (Ints{1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(SuperQuestions, AGroupFilterAsksForTotalSizeNumbersAndBankers) {
    for (const auto& [option, kind] : {std::pair{"Option35", u"相克"_s}, std::pair{"Option44", u"保留"_s}}) {
        const auto step = ask(option, {asksText(kTotal, u"3"_s), asksText(size(3), u"2"_s), number(1, u"7"_s),
                                       number(2, u"8"_s), number(3, u"9"_s), asksText(bankers(kind), u"2"_s),
                                       asksText(u"请输入第1个%1胆"_s.arg(kind), u"8"_s),
                                       asksText(u"请输入第2个%1胆"_s.arg(kind), u"33"_s)});
        const auto& groups = std::get<FilterGroups>(*step);
        EXPECT_EQ(groups.filter, &filterOf(option));
        EXPECT_EQ(groups.numbers, (Ints{7, 8, 9}));
        EXPECT_EQ(groups.groupSize, 2);
        EXPECT_EQ(groups.bankers, (Ints{8, 33}));
        EXPECT_EQ(titles,
                  (std::vector{u"相克号码总个数"_s, u"相克号码组个数"_s, u"相克数输入"_s, u"相克数输入"_s,
                               u"相克数输入"_s, u"相克号码总个数"_s, kind + u"胆输入"_s, kind + u"胆输入"_s}));
    }
}

TEST_F(SuperQuestions, AGroupFilterRefusesEachEntryWithItsMessage) {
    const QString none = bankers(u"相克"_s);
    const auto step = ask("Option35", {asksText(kTotal, u"?"_s),
                                       refuses(kNoNumber),
                                       asksText(kTotal, u"-1"_s),
                                       refuses(kPositive),
                                       asksText(kTotal, u"11"_s),
                                       refuses(u"请输入1~10之间的数字"_s),
                                       asksText(kTotal, u"2"_s),
                                       asksText(size(2), u"x"_s),
                                       refuses(kNoNumber),
                                       asksText(size(2), u"3"_s),
                                       refuses(u"请输入1~2之间的数字"_s),
                                       asksText(size(2), u"0"_s),
                                       refuses(u"请输入1~2之间的数字"_s),
                                       asksText(size(2), u"1"_s),
                                       number(1, u"34"_s),
                                       refuses(u"请输入1~33之间的数字"_s),
                                       number(1, u"33"_s),
                                       number(2, u"y"_s),
                                       refuses(kNoNumber),
                                       number(2, u"1"_s),
                                       asksText(none, u"10"_s),
                                       refuses(u"请输入1~9之间的数字"_s),
                                       asksText(none, u"-1"_s),
                                       refuses(u"请输入1~9之间的数字"_s),
                                       asksText(none, u"z"_s),
                                       refuses(kNoNumber),
                                       asksText(none, u"0"_s)});
    EXPECT_EQ(std::get<FilterGroups>(*step).numbers, (Ints{33, 1}));
    EXPECT_TRUE(std::get<FilterGroups>(*step).bankers.empty());
}

TEST_F(SuperQuestions, TenNumbersAreTheMostThatAGroupHolds) {
    Calls calls{asksText(kTotal, u"10"_s), asksText(size(10), u"10"_s)};
    for (int place = 1; place <= 10; ++place)
        calls.push_back(number(place, QString::number(place)));
    calls.push_back(asksText(bankers(u"保留"_s), u"0"_s));
    EXPECT_EQ(std::get<FilterGroups>(*ask("Option44", calls)).numbers.size(), 10U);
}

TEST_F(SuperQuestions, ABadBankerSendsBackToTheNumbers) {
    const QString banker = u"请输入第1个保留胆"_s;
    const QString count = bankers(u"保留"_s);
    for (const auto& [bad, told] : {std::pair{u"34"_s, u"请输入1~33之间的数字"_s}, std::pair{u"w"_s, kNoNumber}}) {
        const auto step = ask("Option44", {asksText(kTotal, u"2"_s), asksText(size(2), u"2"_s), number(1, u"4"_s),
                                           number(2, u"5"_s), asksText(count, u"1"_s), asksText(banker, bad),
                                           refuses(told), number(1, u"6"_s), number(2, u"7"_s),
                                           asksText(count, u"1"_s), asksText(banker, u"6"_s)});
        EXPECT_EQ(std::get<FilterGroups>(*step).numbers, (Ints{6, 7}));
        EXPECT_EQ(std::get<FilterGroups>(*step).bankers, (Ints{6}));
    }
}

TEST_F(SuperQuestions, CancelAnywhereEndsAGroupFilterWithNothing) {
    const Calls chain{asksText(kTotal, u"2"_s),
                      asksText(size(2), u"2"_s),
                      number(1, u"4"_s),
                      number(2, u"5"_s),
                      asksText(bankers(u"相克"_s), u"1"_s),
                      asksText(u"请输入第1个相克胆"_s, u"4"_s)};
    for (std::size_t last = 0; last < chain.size(); ++last)
        for (const std::optional<QString>& end : {std::optional<QString>(), std::optional(u""_s)}) {
            Calls calls(chain.begin(), chain.begin() + static_cast<std::ptrdiff_t>(last) + 1);
            calls.back().answer = end;
            EXPECT_TRUE(ended("Option35", calls)) << last;
        }
    for (std::size_t last = 0; last < chain.size(); ++last) {
        Calls calls(chain.begin(), chain.begin() + static_cast<std::ptrdiff_t>(last) + 1);
        calls.back().answer = u"no"_s;
        calls.push_back(refuses(kNoNumber, false));
        EXPECT_TRUE(ended("Option35", calls)) << last;
    }
}

TEST_F(SuperQuestions, TheFilterByTheGroupTemplateAsksNothing) {
    EXPECT_TRUE(std::holds_alternative<filter::TakeOutTemplate>(*ask("Option43", {})));
}

TEST_F(SuperQuestions, EveryFilterOfEveryFamilyHasItsQuestions) {
    for (const char* form : {"GAgan", "GAganR", "GAganf"}) {
        member = filter::findMember(form);
        for (const SuperFilter& filter : superFiltersOf(*member)) {
            const bool asks = filter.kind != filter::SuperKind::Template;
            EXPECT_EQ(ended(filter.option, asks ? Calls{asksText({}, std::nullopt)} : Calls{}), asks)
                << filter.option;
        }
    }
}

} // namespace
