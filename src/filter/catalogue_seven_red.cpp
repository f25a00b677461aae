// The parameters of the windows with seven reds: a smaller, older window, whose filters give no reason.
//
// The history holds six reds a draw. A parameter is searched for in the column that has its name; intervals of ten
// and the seventh place have none, and keep the ranges that they open with.
#include "filter/catalogue_check.h"

namespace filter {
namespace {

constexpr std::string_view kSum =
    "UPDATE [{table}] SET [canshu]=([fig1] + [fig2] + [fig3] + [fig4] + [fig5] + [fig6] + [fig7])";
constexpr std::string_view kSumLastDigit =
    "UPDATE [{table}] SET [canshu]=([fig1] + [fig2] + [fig3] + [fig4] + [fig5] + [fig6] + [fig7]) mod 10";
constexpr std::string_view kNeighbours =
    "UPDATE [{table}] SET [canshu]=-(( [fig2] - [fig1] = 1) +  ([fig3] - [fig2] = 1) + ([fig4] - [fig3] = 1)"
    " + ([fig5] - [fig4] = 1) + ([fig6] - [fig5] = 1) + ([fig7] - [fig6] = 1))";
constexpr std::string_view kEvenReds =
    "UPDATE [{table}] SET [canshu]=-(([fig1] mod 2 = 0) +  ([fig2] mod 2 = 0) + ([fig3] mod 2 = 0)"
    " + ([fig4] mod 2 = 0) + ([fig5] mod 2 = 0) + ([fig6] mod 2 = 0) + ([fig7] mod 2 = 0))";
constexpr std::string_view kBigReds =
    "UPDATE [{table}] SET [canshu]=-(([fig1] > {h}) +  ([fig2] > {h}) + ([fig3] > {h}) + ([fig4] > {h})"
    " + ([fig5] > {h}) + ([fig6] > {h}) + ([fig7] > {h}))";
constexpr std::string_view kBigLastDigits =
    "UPDATE [{table}] SET [canshu]=-(([fig1] mod 10 >4) +  ([fig2] mod 10 >4) + ([fig3] mod 10 >4)"
    " + ([fig4] mod 10 >4) + ([fig5] mod 10 >4) + ([fig6] mod 10 >4) + ([fig7] mod 10 >4))";
constexpr std::string_view kZoneTo10 =
    "UPDATE [{table}] SET [canshu]=-(([fig1]<= 10) +  ([fig2] <= 10) + ([fig3] <= 10) + ([fig4] <= 10)"
    " + ([fig5] <= 10) + ([fig6] <= 10) + ([fig7] <= 10))";
constexpr std::string_view kZoneTo20 =
    "UPDATE [{table}] SET [canshu]=-(([fig1]>10 and [fig1]<=20) +  ([fig2]>10 and [fig2]<=20)"
    " + ([fig3]>10 and [fig3]<=20) + ([fig4]>10 and [fig4]<=20) + ([fig5]>10 and [fig5]<=20)"
    " + ([fig6]>10 and [fig6]<=20) + ([fig7]>10 and [fig7]<=20))";
constexpr std::string_view kZoneTo30 =
    "UPDATE [{table}] SET [canshu]=-(([fig1]>20 and [fig1]<=30) +  ([fig2]>20 and [fig2]<=30)"
    " + ([fig3]>20 and [fig3]<=30) + ([fig4]>20 and [fig4]<=30) + ([fig5]>20 and [fig5]<=30)"
    " + ([fig6]>20 and [fig6]<=30) + ([fig7]>20 and [fig7]<=30))";
// Every term tests the first red against 40, and 40 itself is out: deliberate.
constexpr std::string_view kZoneTo40 =
    "UPDATE [{table}] SET [canshu]=-(([fig1] > 30 and [fig1]< 40) +  ([fig2] > 30 and [fig1]< 40)"
    " + ([fig3] > 30 and [fig1]< 40) + ([fig4] > 30 and [fig1]< 40) + ([fig5] > 30 and [fig1]< 40)"
    " + ([fig6] > 30 and [fig1]< 40) + ([fig7] > 30 and [fig1]< 40))";
constexpr std::string_view kAbove40 =
    "UPDATE [{table}] SET [canshu]=-(([fig1] > 40) +  ([fig2] > 40) + ([fig3] > 40) + ([fig4] > 40)"
    " + ([fig5] > 40) + ([fig6] > 40) + ([fig7] > 40))";
constexpr std::string_view kRepeatedReds =
    "UPDATE [{table}] SET [canshu]=-((InStr(\"{last}\",chr(32) & [fig1] & chr(32) ) > 0)"
    " + ( InStr(\"{last}\",chr(32) & [fig2] & chr(32)) > 0)"
    " + ( InStr(\"{last}\",chr(32) & [fig3] & chr(32)) > 0)"
    " + ( InStr(\"{last}\",chr(32) & [fig4] & chr(32)) > 0)"
    " + ( InStr(\"{last}\",chr(32) & [fig5] & chr(32)) > 0)"
    " + ( InStr(\"{last}\",chr(32) & [fig6] & chr(32)) > 0)"
    " + ( InStr(\"{last}\",chr(32) & [fig7] & chr(32)) > 0))";
constexpr std::string_view kSpan = "UPDATE [{table}] SET [canshu]=([fig7]-[fig1])";

constexpr int kReds = 7;
constexpr Defaults kCounts{0, 9};
constexpr Defaults kWide{0, 99};

/// The range boxes of a row; there are no lists.
constexpr Boxes range(std::string_view name) {
    return {name, 0, 1, -1, -1};
}

constexpr Parameter valueOf(Group group, std::string_view option, std::string_view caption, std::string_view history,
                            int tick, std::string_view boxes, Defaults defaults, std::string_view statement,
                            std::string_view counts, Compute compute = nullptr) {
    return {.group = group,
            .option = option,
            .caption = caption,
            .history = history,
            .tick = tick,
            .period = -1,
            .boxes = range(boxes),
            .defaults = defaults,
            .gridTitle = caption,
            .statement = statement,
            .counts = counts,
            .compute = compute,
            .weighed = false,
            .reds = kReds,
            .reasons = false};
}

constexpr Parameter position(int place, std::string_view option, std::string_view caption, std::string_view column,
                             std::string_view history, int tick, std::string_view boxes, std::string_view counts) {
    return {.kind = Kind::RedPosition,
            .group = Group::Places,
            .option = option,
            .caption = caption,
            .history = history,
            .tick = tick,
            .period = -1,
            .boxes = range(boxes),
            .defaults = kWide,
            .gridTitle = {},
            .statement = {},
            .counts = counts,
            .column = column,
            .place = place,
            .weighed = false,
            .reds = kReds,
            .reasons = false};
}

using enum Group;

// clang-format off
// group, option, caption, history, tick, boxes, defaults, statement, what it counts, function in place of a statement
constexpr std::array kSevenRed{
    valueOf(Sums, "Option23", "各位数和", "Znum", 0, "Text2", {0, 999}, kSum, "红球号码相加的和。"),
    valueOf(Sums, "Option3", "各位和个位", "Sumgwnum", 1, "Text3", kCounts, kSumLastDigit, "红球号码之和的个位数字。"),
    valueOf(Counts, "Option2", "连号个数", "Lxnum", 2, "Text4", kCounts, kNeighbours, "号码相差1的相邻红球对数。"),
    valueOf(Counts, "Option4", "偶数个数", "Onum", 3, "Text5", kCounts, kEvenReds, "红球中偶数号码的个数。"),
    valueOf(Counts, "Option5", "大数个数", "Mornum", 4, "Text6", kCounts, kBigReds, "红球中大于最大号码一半的号码个数。"),
    valueOf(Counts, "Option8", "个位大数", "Bignum", 5, "Text7", kCounts, kBigLastDigits, "红球中个位数字为5至9的号码个数。"),
    valueOf(Counts, "Option9", "1~10区间", "", 6, "Text8", kCounts, kZoneTo10, "红球中01至10的号码个数。"),
    valueOf(Counts, "Option10", "11~20区间", "", 7, "Text9", kCounts, kZoneTo20, "红球中11至20的号码个数。"),
    valueOf(Counts, "Option11", "21~30区间", "", 8, "Text10", kCounts, kZoneTo30, "红球中21至30的号码个数。"),
    valueOf(Counts, "Option12", "31~40区间", "", 18, "Text11", kCounts, kZoneTo40, "第1位小于40时，红球中大于30的号码个数；否则为0。"),
    valueOf(Counts, "Option41", "41以上", "", 26, "Text27", kCounts, kAbove40, "红球中大于40的号码个数。"),
    valueOf(Counts, "Option20", "重上期个数", "Cnum", 16, "Text21", kWide, kRepeatedReds, "红球中与上期六个红球相同的号码个数。"),
    position(1, "Option13", "第1位", "fig1", "fig1", 9, "Text12", "从小到大第1个红球的号码。"),
    position(2, "Option14", "第2位", "fig2", "fig2", 10, "Text13", "从小到大第2个红球的号码。"),
    position(3, "Option15", "第3位", "fig3", "fig3", 11, "Text14", "从小到大第3个红球的号码。"),
    position(4, "Option16", "第4位", "fig4", "fig4", 12, "Text15", "从小到大第4个红球的号码。"),
    position(5, "Option17", "第5位", "fig5", "fig5", 13, "Text16", "从小到大第5个红球的号码。"),
    position(6, "Option18", "第6位", "fig6", "fig6", 19, "Text17", "从小到大第6个红球的号码。"),
    position(7, "Option19", "第7位", "fig7", "", 20, "Text18", "从小到大第7个红球的号码。"), // fig7 of a draw is its blue
    valueOf(Gaps, "Option6", "最大差值", "Mxzounum", 14, "Text19", kWide, {}, "相邻两个红球号码之差中最大的一个。", computeLargestGap),
    valueOf(Gaps, "Option7", "首尾差值", "Apzounum", 15, "Text20", kWide, kSpan, "最大红球与最小红球之差。"),
    valueOf(Gaps, "Option24", "数字复杂度", "Fcodp", 17, "Text22", kWide, {}, "红球两两之差中不同差值的个数，再减去红球个数少1。", computeAcValue),
    // add a parameter here
};
// clang-format on

static_assert(kSevenRed.size() == 22);
static_assert(isSound(kSevenRed));

} // namespace

std::span<const Parameter> sevenRedCatalogue() {
    return kSevenRed;
}

} // namespace filter
