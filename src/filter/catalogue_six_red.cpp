// The parameters of the windows with six reds alone: those of the reds beside a blue, some under other names, and
// three of their own.
#include "filter/catalogue_check.h"
#include "filter/catalogue_six_reds.h"

namespace filter {
namespace {

using namespace six_reds;

constexpr std::string_view kDivisibleBy5 =
    "UPDATE [{table}] SET [canshu]=-(([fig1] MOD 5 = 0) * {w1} +  ([fig2] MOD 5 = 0) * {w2} + ([fig3] MOD 5 = 0) * "
    "{w3}"
    " + ([fig4] MOD 5 = 0) * {w4} + ([fig5] MOD 5 = 0) * {w5} + ([fig6] MOD 5 = 0) * {w6})";
constexpr std::string_view kSumOfSmallReds =
    "UPDATE [{table}] SET [canshu]=-(([fig1]*([fig1] <= {h}) * {w1}) + ([fig2]*([fig2] <= {h}) * {w2})"
    " + ([fig3]*([fig3] <= {h}) * {w3}) + ([fig4]*([fig4] <= {h}) * {w4}) + ([fig5]*([fig5] <= {h}) * {w5})"
    " + ([fig6]*([fig6] <= {h}) * {w6}))";
constexpr std::string_view kSumOfBigReds =
    "UPDATE [{table}] SET [canshu]=-(([fig1]*([fig1] > {h}) * {w1}) + ([fig2]*([fig2] > {h}) * {w2})"
    " + ([fig3]*([fig3] > {h}) * {w3}) + ([fig4]*([fig4] > {h}) * {w4}) + ([fig5]*([fig5] > {h}) * {w5})"
    " + ([fig6]*([fig6] > {h}) * {w6}))";

constexpr Parameter withColumn(std::string_view history, Parameter row) {
    row.history = history;
    return row;
}

// clang-format off
// group, option, caption, history, tick, period, boxes, defaults, grid title, statement or function, what it counts
constexpr std::array kSixRed{
    renamed(kSumRow, "Option23", "各位数和"),
    renamed(kSumLastDigitRow, "Option3", "各位和个位"),
    renamed(kSumOfLastDigitsRow, "Option34", "个位数和"),
    renamed(kSumOfOddRedsRow, "Option32", "奇数之和"),
    renamed(kSumOfEvenRedsRow, "Option33", "偶数之和"),
    statement(Sums, "Option39", "小数之和", "XZnumB", 22, 26, {"Text29"}, {0, 999, 10}, "小数之和", kSumOfSmallReds,
        "红球中不大于最大号码一半的号码相加的和。"),
    statement(Sums, "Option40", "大数之和", "DZnumB", 23, 25, {"Text30"}, {0, 999, 10}, "大数之和", kSumOfBigReds,
        "红球中大于最大号码一半的号码相加的和。"),
    kNeighboursRow,
    kEvenRedsRow,
    kBigRedsRow,
    kBigLastDigitsRow,
    kZoneTo11Row,
    kZoneTo22Row,
    kZoneTo33Row,
    kDivisibleBy3Row,
    // The history has no such column, so a search leaves its boxes.
    statement(Counts, "Option19", "5整除个数", "Qnum4", 20, 16, {"Text18"}, kCounts, "5整除个", kDivisibleBy5,
        "红球中能被5整除的号码个数。"),
    kRepeatedRedsRow,
    renamed(kSameLastDigitsRow, "Option41", "同尾个数", "同尾个数"),
    kIntervalRow,
    renamed(kPlace1Row, "Option13", "第1位"),
    renamed(kPlace2Row, "Option14", "第2位"),
    renamed(kPlace3Row, "Option15", "第3位"),
    renamed(kPlace4Row, "Option16", "第4位"),
    renamed(kPlace5Row, "Option17", "第5位"),
    renamed(kPlace6Row, "Option18", "第6位"),
    kLargestGapRow,
    kSpanRow,
    kAcValueRow,
    renamed(kOmissionSumRow, "Option35", "遗漏数和", "遗漏期数和"),
    withColumn("intYljz", renamed(kOmissionRangeRow, "Option38", "遗漏极差")),
    // add a parameter here
};
// clang-format on

static_assert(kSixRed.size() == 30);
static_assert(isSound(kSixRed));

} // namespace

std::span<const Parameter> sixRedCatalogue() {
    return kSixRed;
}

} // namespace filter
