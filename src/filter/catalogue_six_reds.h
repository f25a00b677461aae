// What the windows of six reds have in common, with a blue number beside them and without: makers of rows, and the
// rows that both kinds of window show.
//
// A catalogue lists these rows in its own order, takes one under another name with renamed(), and adds its own. What
// a row says here holds in every window that lists it, so a difference between two windows stands in their
// catalogues.
#pragma once

#include "filter/catalogue.h"

namespace filter::six_reds {

inline constexpr std::string_view kSum =
    "UPDATE [{table}] SET [canshu]=([fig1] * {w1} + [fig2] * {w2} + [fig3] * {w3} + [fig4] * {w4} + [fig5] * {w5}"
    " + [fig6] * {w6})";
inline constexpr std::string_view kSumLastDigit =
    "UPDATE [{table}] SET [canshu]=([fig1] * {w1} + [fig2] * {w2} + [fig3] * {w3} + [fig4] * {w4} + [fig5] * {w5}"
    " + [fig6] * {w6}) mod 10";
// A pair counts only when both its positions are ticked.
inline constexpr std::string_view kNeighbours =
    "UPDATE [{table}] SET [canshu]=-(( [fig2] - [fig1] = 1) * {w1w2} +  ([fig3] - [fig2] = 1) * {w2w3}"
    " + ([fig4] - [fig3] = 1) * {w3w4} + ([fig5] - [fig4] = 1) * {w4w5} + ([fig6] - [fig5] = 1) * {w5w6})";
inline constexpr std::string_view kEvenReds =
    "UPDATE [{table}] SET [canshu]=-([fig1] mod 2 = 0 ) * {w1} -([fig2] mod 2 = 0) * {w2} -([fig3] mod 2 = 0) * {w3}"
    " -([fig4] mod 2 = 0) * {w4} -([fig5] mod 2 = 0) * {w5} -([fig6] mod 2 = 0) * {w6}";
inline constexpr std::string_view kBigReds =
    "UPDATE [{table}] SET [canshu]=-(([fig1] >{h}) * {w1} +  ([fig2] >{h}) * {w2} + ([fig3] >{h}) * {w3}"
    " + ([fig4] >{h}) * {w4} + ([fig5] >{h}) * {w5} + ([fig6] >{h}) * {w6})";
inline constexpr std::string_view kBigLastDigits =
    "UPDATE [{table}] SET [canshu]=-(([fig1] mod 10 >4) * {w1} +  ([fig2] mod 10 >4) * {w2}"
    " + ([fig3] mod 10 >4) * {w3} + ([fig4] mod 10 >4) * {w4} + ([fig5] mod 10 >4) * {w5} + ([fig6] mod 10 >4) * "
    "{w6})";
inline constexpr std::string_view kZoneTo11 =
    "UPDATE [{table}] SET [canshu]=-(([fig1]<=11) * {w1} +  ([fig2] <=11) * {w2} + ([fig3] <=11) * {w3}"
    " + ([fig4] <=11) * {w4} + ([fig5] <=11) * {w5} + ([fig6] <=11) * {w6})";
inline constexpr std::string_view kZoneTo22 =
    "UPDATE [{table}] SET [canshu]=-(([fig1]>11 and [fig1]<=22) * {w1} +  ([fig2]>11 and [fig2]<=22) * {w2}"
    " + ([fig3]>11 and [fig3]<=22) * {w3} + ([fig4]>11 and [fig4]<=22) * {w4} + ([fig5]>11 and [fig5]<=22) * {w5}"
    " + ([fig6]>11 and [fig6]<=22) * {w6})";
inline constexpr std::string_view kZoneTo33 =
    "UPDATE [{table}] SET [canshu]=-(([fig1]>22 and [fig1]<=33) * {w1} +  ([fig2]>22 and [fig2]<=33) * {w2}"
    " + ([fig3]>22 and [fig3]<=33) * {w3} + ([fig4]>22 and [fig4]<=33) * {w4} + ([fig5]>22 and [fig5]<=33) * {w5}"
    " + ([fig6]>22 and [fig6]<=33) * {w6})";
inline constexpr std::string_view kDivisibleBy3 =
    "UPDATE [{table}] SET [canshu]=-(([fig1] MOD 3 = 0) * {w1} +  ([fig2] MOD 3 = 0) * {w2} + ([fig3] MOD 3 = 0) * "
    "{w3}"
    " + ([fig4] MOD 3 = 0) * {w4} + ([fig5] MOD 3 = 0) * {w5} + ([fig6] MOD 3 = 0) * {w6})";
inline constexpr std::string_view kSumOfLastDigits =
    "UPDATE [{table}] SET [canshu]=(([fig1] mod 10) * {w1} + ([fig2] mod 10) * {w2} + ([fig3] mod 10) * {w3}"
    " + ([fig4] mod 10) * {w4} + ([fig5] mod 10) * {w5} + ([fig6] mod 10) * {w6})";
inline constexpr std::string_view kSumOfOddReds =
    "UPDATE [{table}] SET [canshu]=-(([fig1]*([fig1] mod 2 = 1) * {w1}) + ([fig2]*([fig2] mod 2 = 1) * {w2})"
    " + ([fig3]*([fig3] mod 2 = 1) * {w3}) + ([fig4]*([fig4] mod 2 = 1) * {w4}) + ([fig5]*([fig5] mod 2 = 1) * {w5})"
    " + ([fig6]*([fig6] mod 2 = 1) * {w6}))";
inline constexpr std::string_view kSumOfEvenReds =
    "UPDATE [{table}] SET [canshu]=-(([fig1]*([fig1] mod 2 = 0) * {w1}) + ([fig2]*([fig2] mod 2 = 0) * {w2})"
    " + ([fig3]*([fig3] mod 2 = 0) * {w3}) + ([fig4]*([fig4] mod 2 = 0) * {w4}) + ([fig5]*([fig5] mod 2 = 0) * {w5})"
    " + ([fig6]*([fig6] mod 2 = 0) * {w6}))";
inline constexpr std::string_view kRepeatedReds =
    "UPDATE [{table}] SET [canshu]=-((InStr(\"{last}\",chr(32) & [fig1] & chr(32) ) > 0) * {w1}"
    " + ( InStr(\"{last}\",chr(32) & [fig2] & chr(32)) > 0) * {w2}"
    " + ( InStr(\"{last}\",chr(32) & [fig3] & chr(32)) > 0) * {w3}"
    " + ( InStr(\"{last}\",chr(32) & [fig4] & chr(32)) > 0) * {w4}"
    " + ( InStr(\"{last}\",chr(32) & [fig5] & chr(32)) > 0) * {w5}"
    " + ( InStr(\"{last}\",chr(32) & [fig6] & chr(32)) > 0) * {w6})";

inline constexpr Defaults kCounts{0, 9, 3};
inline constexpr Defaults kPosition{0, 99, 6};
inline constexpr Boxes kIntervalBoxes{"Text66", 0, 1, -1, -1, 3, 2};

constexpr Parameter statement(Group group, std::string_view option, std::string_view caption,
                              std::string_view history, int tick, int period, Boxes boxes, Defaults defaults,
                              std::string_view title, std::string_view text, std::string_view counts) {
    return {.group = group,
            .option = option,
            .caption = caption,
            .history = history,
            .tick = tick,
            .period = period,
            .boxes = boxes,
            .defaults = defaults,
            .gridTitle = title,
            .statement = text,
            .counts = counts,
            .wholeBet = group == Group::WithBlue};
}

constexpr Parameter computed(Group group, std::string_view option, std::string_view caption, std::string_view history,
                             int tick, int period, Boxes boxes, Defaults defaults, std::string_view title,
                             Compute compute, std::string_view counts) {
    return {.kind = boxes.above >= 0 ? Kind::Interval : Kind::Value,
            .group = group,
            .option = option,
            .caption = caption,
            .history = history,
            .tick = tick,
            .period = period,
            .boxes = boxes,
            .defaults = defaults,
            .gridTitle = title,
            .statement = {},
            .counts = counts,
            .compute = compute};
}

constexpr Parameter position(Kind kind, int place, std::string_view option, std::string_view caption,
                             std::string_view column, int tick, int period, std::string_view boxes, int oddBox,
                             std::string_view parityReason, std::string_view counts) {
    return {.kind = kind,
            .group = Group::Places,
            .option = option,
            .caption = caption,
            .history = column,
            .tick = tick,
            .period = period,
            .boxes = {boxes},
            .defaults = kPosition,
            .gridTitle = {},
            .statement = {},
            .counts = counts,
            .column = column,
            .place = place,
            .oddBox = oddBox,
            .parityReason = parityReason,
            .weighed = false};
}

/// The same row under the name that it has in another window: its controls and its column stay.
constexpr Parameter renamed(Parameter row, std::string_view option, std::string_view caption,
                            std::string_view gridTitle = {}) {
    row.option = option;
    row.caption = caption;
    if (!gridTitle.empty())
        row.gridTitle = gridTitle;
    return row;
}

constexpr Parameter listStays(Parameter row) {
    row.listFromAllPeriods = false;
    return row;
}
constexpr Parameter highGoesTo(const Parameter& other, Parameter row) {
    row.highOfSearch = other.tick;
    return row;
}

using enum Group;

// clang-format off
// group, option, caption, history, tick, period, boxes, defaults, grid title, statement or function, what it counts
inline constexpr Parameter kSumRow =
    statement(Sums, "Option23", "各码数和", "Znum", 0, 0, redHalf("Text2"), {0, 999, 20}, "各位数和", kSum,
        "红球号码相加的和。");
inline constexpr Parameter kSumLastDigitRow =
    statement(Sums, "Option3", "各码和个位", "Sumgwnum", 1, 1, {"Text3"}, kCounts, "各位和个位", kSumLastDigit,
        "红球号码之和的个位数字。");
inline constexpr Parameter kSumOfLastDigitsRow =
    statement(Sums, "Option39", "个位数和", "Zgnum", 28, 29, {"Text25"}, {0, 99, 5}, "个位数之和", kSumOfLastDigits,
        "各红球个位数字相加的和。");
inline constexpr Parameter kSumOfOddRedsRow =
    statement(Sums, "Option41", "奇数之和", "Zjnum", 26, 27, {"Text27"}, {0, 99, 10}, "红球奇数之和", kSumOfOddReds,
        "红球中奇数号码相加的和。");
inline constexpr Parameter kSumOfEvenRedsRow =
    statement(Sums, "Option40", "偶数之和", "Zonum", 27, 28, {"Text24"}, {0, 99, 10}, "红球偶数之和", kSumOfEvenReds,
        "红球中偶数号码相加的和。");
// A search for all rows together passes its list over: deliberate.
inline constexpr Parameter kNeighboursRow = listStays(
    statement(Counts, "Option2", "连号个数", "Lxnum", 2, 2, {"Text4"}, kCounts, "连号个数", kNeighbours,
        "号码相差1的相邻红球对数。"));
inline constexpr Parameter kEvenRedsRow =
    statement(Counts, "Option4", "偶数个数", "Onum", 3, 3, redHalf("Text5"), kCounts, "偶数个数", kEvenReds,
        "红球中偶数号码的个数。");
inline constexpr Parameter kBigRedsRow =
    statement(Counts, "Option5", "大数个数", "Mornum", 4, 4, redHalf("Text6"), kCounts, "大数个数", kBigReds,
        "红球中大于最大号码一半的号码个数。");
inline constexpr Parameter kBigLastDigitsRow =
    statement(Counts, "Option8", "个位大数", "Bignum", 5, 5, {"Text7"}, kCounts, "个位大数", kBigLastDigits,
        "红球中个位数字为5至9的号码个数。");
inline constexpr Parameter kZoneTo11Row =
    statement(Counts, "Option9", "01~11区间", "Qnum0", 6, 6, {"Text8"}, kCounts, "1~11区间", kZoneTo11,
        "红球中01至11的号码个数。");
inline constexpr Parameter kZoneTo22Row =
    statement(Counts, "Option10", "12~22区间", "Qnum1", 7, 7, {"Text9"}, kCounts, "12~22区间", kZoneTo22,
        "红球中12至22的号码个数。");
inline constexpr Parameter kZoneTo33Row =
    statement(Counts, "Option11", "23~33区间", "Qnum2", 8, 8, {"Text10"}, kCounts, "23~33区间", kZoneTo33,
        "红球中23至33的号码个数。");
inline constexpr Parameter kDivisibleBy3Row =
    statement(Counts, "Option12", "3整除个数", "Qnum3", 18, 9, {"Text11"}, kCounts, "3整除个", kDivisibleBy3,
        "红球中能被3整除的号码个数。");
inline constexpr Parameter kRepeatedRedsRow =
    statement(Counts, "Option20", "重上期个数", "Cnum", 16, 19, redHalf("Text21"), {0, 99, 3}, "重上期个数", kRepeatedReds,
        "红球中与上期红球相同的号码个数。");
inline constexpr Parameter kIntervalRow =
    computed(Counts, "Option66", "自定区间", "", 31, -1, kIntervalBoxes, kCounts, "自定义区间", computeInterval,
        "红球落在自定区间内的个数，区间不含下端、含上端；最值查询时为红球在指定号码中的个数。");
inline constexpr Parameter kPlace1Row =
    position(Kind::RedPosition, 1, "Option13", "红1位", "fig1", 9, 10, "Text12", 4, "红球1位奇偶性", "从小到大第1个红球的号码。");
inline constexpr Parameter kPlace2Row =
    position(Kind::RedPosition, 2, "Option14", "红2位", "fig2", 10, 11, "Text13", 6, "红球2位奇偶性", "从小到大第2个红球的号码。");
inline constexpr Parameter kPlace3Row =
    position(Kind::RedPosition, 3, "Option15", "红3位", "fig3", 11, 12, "Text14", 8, "红球3位奇偶性", "从小到大第3个红球的号码。");
inline constexpr Parameter kPlace4Row =
    position(Kind::RedPosition, 4, "Option16", "红4位", "fig4", 12, 13, "Text15", 10, "红球4位奇偶性", "从小到大第4个红球的号码。");
inline constexpr Parameter kPlace5Row =
    position(Kind::RedPosition, 5, "Option17", "红5位", "fig5", 13, 14, "Text16", 12, "红球5位奇偶性", "从小到大第5个红球的号码。");
inline constexpr Parameter kPlace6Row =
    position(Kind::RedPosition, 6, "Option18", "红6位", "fig6", 19, 15, "Text17", 14, "红球6位奇偶性", "从小到大第6个红球的号码。");
inline constexpr Parameter kLargestGapRow =
    computed(Gaps, "Option6", "最大差值", "Mxzounum", 14, 17, {"Text19"}, {0, 99, 5}, "最大差值", computeLargestGap,
        "相邻两个红球号码之差中最大的一个。");
inline constexpr Parameter kSpanRow =
    computed(Gaps, "Option7", "首尾差值", "Apzounum", 15, 18, {"Text20"}, {0, 99, 5}, "首尾差值", computeSpan,
        "最大红球与最小红球之差。");
inline constexpr Parameter kAcValueRow =
    computed(Gaps, "Option24", "复杂度AC值", "Fcodp", 17, 21, {"Text22"}, {0, 99, 5}, "数字复杂度", computeAcValue,
        "红球两两之差中不同差值的个数，再减去红球个数少1。");
// A search for this row alone writes its high bound into the row above, that of the AC value: deliberate.
inline constexpr Parameter kSameLastDigitsRow = highGoesTo(kAcValueRow,
    computed(Counts, "Option30", "个位同号数", "Modenum", 21, 22, {"Text23"}, {0, 99, 3}, "个位同号数", computeSameLastDigits,
        "6减去红球中不同个位数字的个数。"));
inline constexpr Parameter kOmissionSumRow =
    computed(Omissions, "Option38", "遗漏数和", "Zynum", 29, 30, {"Text26"}, {0, 99, 5}, "红球遗漏期数和", computeOmissionSum,
        "各红球当前遗漏期数相加的和。");
inline constexpr Parameter kOmissionRangeRow =
    computed(Omissions, "Option42", "遗漏极差", "intyljz", 30, 31, {"Text28"}, {0, 99, 5}, "遗漏极差", computeOmissionRange,
        "红球当前遗漏期数中最大与最小之差。");
// clang-format on

} // namespace filter::six_reds
