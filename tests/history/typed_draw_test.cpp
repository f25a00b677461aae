#include "history/typed_draw.h"

#include <QStringList>
#include <gtest/gtest.h>

#include "scripted_dialogs.h"

using namespace Qt::StringLiterals;

namespace {

using history::Complaint;
using history::Draw;
using history::History;
using history::TypedBoxes;

constexpr workspace::Rule kRule{33, 16};
const QString kPlaceEmpty =
    u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04').请点'放弃输入'按钮重新进行输入!"_s;
const QString kOutOfRange =
    u"输入历史号的大小务必在当地的选号范围之内,请点'放弃输入'按钮重新进行输入!若需输入个位数,请在前面加0(例如:欲输入'"
    u"4',结果成为'_4'或'4_'错误,应为'04')."_s;
const QString kRepeated = u"输入历史号务必不能重复,请点'放弃输入'按钮重新进行输入!若需输入个位数,请在前面加0(例如:"
                          u"欲输入'4',结果成为'_4'或'4_"
                          u"'错误,应为'04')."_s;

History held() {
    History history;
    history.Lshm.push_back({2003001, 10, 11, 12, 13, 26, 28, 11});
    history.Lshm.push_back({2003002, 4, 9, 19, 20, 21, 26, 12});
    history.derived.resize(3);
    history.Lsnum = 2;
    return history;
}

/// \param numbers  "01 02 03 04 05 06 07"
auto typed(const QString& numbers, const History& history = held(), workspace::Rule rule = kRule) {
    const QStringList list = numbers.split(u' ');
    TypedBoxes boxes;
    std::copy_n(list.begin(), boxes.size(), boxes.begin());
    return readTypedDraw(boxes, history, rule);
}

void expectComplaint(const QString& numbers, const QString& text) {
    const auto result = typed(numbers);
    ASSERT_TRUE(std::holds_alternative<Complaint>(result)) << numbers.toStdString();
    EXPECT_EQ(std::get<Complaint>(result).text, text) << numbers.toStdString();
    EXPECT_EQ(std::get<Complaint>(result).title, u"输入错误!!!"_s);
}

TEST(TypedDraw, RedsInAnyOrderAreSorted) {
    EXPECT_EQ(std::get<Draw>(typed(u"33 01 17 08 25 12 07"_s)), (Draw{2003003, 1, 8, 12, 17, 25, 33, 7}));
    EXPECT_EQ(std::get<Draw>(typed(u"06 05 04 03 02 01 16"_s)), (Draw{2003003, 1, 2, 3, 4, 5, 6, 16}));
}

TEST(TypedDraw, ABlueMayEqualARed) {
    EXPECT_EQ(std::get<Draw>(typed(u"01 02 03 04 05 06 06"_s))[7], 6);
}

TEST(TypedDraw, TheFirstDrawHasIssueOne) {
    EXPECT_EQ(std::get<Draw>(typed(u"01 02 03 04 05 06 07"_s, History()))[0], 1);
}

TEST(TypedDraw, AnEmptyPlaceOnEitherSideOfAnyBoxIsTold) {
    for (int box = 0; box < 7; ++box)
        for (const QString& wrong : {u"_4"_s, u"4_"_s, u"__"_s}) {
            QStringList numbers{u"01"_s, u"02"_s, u"03"_s, u"04"_s, u"05"_s, u"06"_s, u"07"_s};
            numbers[box] = wrong;
            expectComplaint(numbers.join(u' '), kPlaceEmpty);
        }
}

TEST(TypedDraw, FullWidthDigitsAreDigitsAndOtherNumberSignsAreNot) {
    EXPECT_EQ(std::get<Draw>(typed(u"０１ 02 03 04 05 06 07"_s))[1], 1);
    expectComplaint(u"1½ 02 03 04 05 06 07"_s, kPlaceEmpty);
}

TEST(TypedDraw, ANumberBeyondTheRuleIsTold) {
    expectComplaint(u"34 02 03 04 05 06 07"_s, kOutOfRange);
    expectComplaint(u"01 02 03 04 05 00 07"_s, kOutOfRange);
    expectComplaint(u"01 02 03 04 05 06 17"_s, kOutOfRange);
    expectComplaint(u"01 02 03 04 05 06 00"_s, kOutOfRange);
    EXPECT_TRUE(std::holds_alternative<Draw>(typed(u"01 02 03 04 05 33 16"_s)));
    EXPECT_TRUE(std::holds_alternative<Complaint>(typed(u"01 02 03 04 05 29 12"_s, held(), {28, 12})));
    EXPECT_TRUE(std::holds_alternative<Draw>(typed(u"01 02 03 04 05 38 18"_s, held(), {38, 18})));
}

TEST(TypedDraw, EqualRedsAreTold) {
    expectComplaint(u"09 02 03 04 05 09 07"_s, kRepeated);
    expectComplaint(u"01 01 01 01 01 01 01"_s, kRepeated);
}

TEST(TypedDraw, TheChecksComeInTheirOrder) {
    expectComplaint(u"01 01 99 04 05 06 _7"_s, kPlaceEmpty);
    expectComplaint(u"01 01 03 04 05 06 17"_s, kOutOfRange);
}

TEST(TypedDraw, AComplaintNamesItsBox) {
    const std::tuple<QString, int, QString> wrong[] = {
        {u"01 02 _3 04 05 06 07"_s, 3, u"第3个红球"_s}, {u"01 02 03 04 05 06 7_"_s, 7, u"蓝球"_s},
        {u"34 02 03 04 05 06 07"_s, 1, u"第1个红球"_s}, {u"01 02 03 04 05 06 17"_s, 7, u"蓝球"_s},
        {u"09 02 03 04 09 06 07"_s, 5, u"第5个红球"_s}, {u"06 05 04 03 02 06 07"_s, 6, u"第6个红球"_s}};
    for (const auto& [numbers, box, name] : wrong) {
        const auto result = typed(numbers);
        ASSERT_TRUE(std::holds_alternative<Complaint>(result)) << numbers.toStdString();
        EXPECT_EQ(std::get<Complaint>(result).box, box) << numbers.toStdString();
        EXPECT_EQ(history::boxName(box), name);
    }
    EXPECT_EQ(history::boxName(0), QString());
}

TEST(TypedDraw, BehindTheLargestIssueThereIsNone) {
    History history = held();
    EXPECT_EQ(history::nextIssue(history), 2003003);
    history.Lshm[2][0] = 2147483646;
    EXPECT_EQ(history::nextIssue(history), 2147483647);
    history.Lshm[2][0] = 2147483647;
    EXPECT_EQ(history::nextIssue(history), std::nullopt);
    EXPECT_EQ(std::get<Draw>(typed(u"01 02 03 04 05 06 07"_s, history)), (Draw{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(TypedDraw, AMissingIssueIsAskedForUntilItFits) {
    const QString prompt = u"期号已到最大值2147483647，请输入这一期的期号(1～2147483647)"_s;
    ScriptedDialogs dialogs({asksText(prompt, u"abc"_s), tells(u"请输入数字"_s), asksText(prompt, u"0"_s),
                             tells(u"请输入数字"_s), asksText(prompt, u"2147483648"_s), tells(u"请输入数字"_s),
                             asksText(prompt, QString()), tells(u"请输入数字"_s),
                             asksText(prompt, u" 2147483647 "_s)});
    EXPECT_EQ(history::askIssue(dialogs), 2147483647);
    EXPECT_EQ(dialogs.shown.front().title, u"历史号码"_s);
    ScriptedDialogs cancelled({asksText(prompt, std::nullopt)});
    EXPECT_EQ(history::askIssue(cancelled), std::nullopt);
}

void expectCorrection(const QString& text, int slot, bool good) {
    const auto result = readCorrection(text, held(), kRule, 2, slot); // 4 9 19 20 21 26 + 12
    EXPECT_EQ(std::holds_alternative<std::int32_t>(result), good) << text.toStdString() << " in slot " << slot;
    if (!good) {
        EXPECT_EQ(std::get<Complaint>(result).text,
                  u"输入历史号的大小务必在当地的选号范围之内,并且按照由小到大的顺序排列."_s);
        EXPECT_EQ(std::get<Complaint>(result).title, u"输入错误!!!"_s);
    }
}

TEST(Correction, ARedStaysBetweenItsNeighbours) {
    for (const auto& [text, slot] : {std::pair{u"1"_s, 1},
                                     {u"8"_s, 1},
                                     {u"05"_s, 2},
                                     {u"18"_s, 2},
                                     {u"0027"_s, 6},
                                     {u"33"_s, 6},
                                     {u"10"_s, 3},
                                     {u"19"_s, 3}})
        expectCorrection(text, slot, true);
    for (const auto& [text, slot] : {std::pair{u"9"_s, 1},
                                     {u"0"_s, 1},
                                     {u"4"_s, 2},
                                     {u"19"_s, 2},
                                     {u"21"_s, 6},
                                     {u"34"_s, 6},
                                     {u"099"_s, 2},
                                     {QString(), 4}})
        expectCorrection(text, slot, false);
    expectCorrection(u"20"_s, 4, true); // the number that stands there
    expectCorrection(u"19"_s, 4, false);
    expectCorrection(u"21"_s, 4, false);
}

TEST(Correction, ABlueOnlyHasToBeOfTheRule) {
    for (const auto& [text, good] :
         {std::pair{u"1"_s, true}, {u"16"_s, true}, {u"17"_s, false}, {u"0"_s, false}, {QString(), false}})
        expectCorrection(text, 7, good);
}

TEST(Correction, AnIssueIsAnyNumberThatLeavesRoomForTheNext) {
    expectCorrection(u"0"_s, 0, true);
    expectCorrection(u"2147483646"_s, 0, true);
    expectCorrection(u"2147483647"_s, 0, false);
    for (const QString& text :
         {u"99999999999999999999"_s, u"9223372036854775807"_s, u"-1"_s, u"-9223372036854775808"_s, u"4294967297"_s})
        expectCorrection(text, 0, false);
    expectCorrection(QString(), 0, false);
    EXPECT_TRUE(std::holds_alternative<Complaint>(readCorrection(u"2147483646"_s, held(), kRule, 1, 0)));
}

} // namespace
