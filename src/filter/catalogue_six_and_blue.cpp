// The parameters of the windows with six reds and a blue.
#include "filter/catalogue_check.h"
#include "filter/catalogue_six_reds.h"

namespace filter {
namespace {

using namespace six_reds;

constexpr std::string_view kSumWithBlue =
    "UPDATE [{table}] SET [canshu]=([fig1] * {w1} + [fig2] * {w2} + [fig3] * {w3} + [fig4] * {w4} + [fig5] * {w5}"
    " + [fig6] * {w6} + [fig7] * {w7})";
constexpr std::string_view kEvenNumbers =
    "UPDATE [{table}] SET [canshu]=-([fig1] mod 2 = 0 ) * {w1} -([fig2] mod 2 = 0) * {w2} -([fig3] mod 2 = 0) * {w3}"
    " -([fig4] mod 2 = 0) * {w4} -([fig5] mod 2 = 0) * {w5} -([fig6] mod 2 = 0) * {w6} -([fig7] mod 2 = 0) * {w7}";
// Half of the highest red is the boundary for the blue number too, so a blue of 16 numbers is never big: deliberate.
constexpr std::string_view kBigNumbers =
    "UPDATE [{table}] SET [canshu]=-(([fig1] >{h}) * {w1} +  ([fig2] >{h}) * {w2} + ([fig3] >{h}) * {w3}"
    " + ([fig4] >{h}) * {w4} + ([fig5] >{h}) * {w5} + ([fig6] >{h}) * {w6} + ([fig7] >{h}) * {w7})";
// The blue number is looked up among the last draw's reds; its blue plays no part: deliberate.
constexpr std::string_view kRepeatedNumbers =
    "UPDATE [{table}] SET [canshu]=-((InStr(\"{last}\",chr(32) & [fig1] & chr(32) ) > 0) * {w1}"
    " + ( InStr(\"{last}\",chr(32) & [fig2] & chr(32)) > 0) * {w2}"
    " + ( InStr(\"{last}\",chr(32) & [fig3] & chr(32)) > 0) * {w3}"
    " + ( InStr(\"{last}\",chr(32) & [fig4] & chr(32)) > 0) * {w4}"
    " + ( InStr(\"{last}\",chr(32) & [fig5] & chr(32)) > 0) * {w5}"
    " + ( InStr(\"{last}\",chr(32) & [fig6] & chr(32)) > 0) * {w6}"
    " + ( InStr(\"{last}\",chr(32) & [fig7] & chr(32)) > 0) * {w7})";

// Two exports are headed like another parameter's: deliberate.
constexpr Parameter exportedAs(std::string_view title, Parameter row) {
    row.exportTitle = title;
    return row;
}

// clang-format off
// group, option, caption, history, tick, period, boxes, defaults, grid title, statement or function, what it counts
constexpr std::array kSixAndBlue{
    kSumRow,
    kSumLastDigitRow,
    kSumOfLastDigitsRow,
    kSumOfOddRedsRow,
    kSumOfEvenRedsRow,
    kNeighboursRow,
    kEvenRedsRow,
    kBigRedsRow,
    kBigLastDigitsRow,
    kZoneTo11Row,
    kZoneTo22Row,
    kZoneTo33Row,
    kDivisibleBy3Row,
    kRepeatedRedsRow,
    kSameLastDigitsRow,
    kIntervalRow,
    kPlace1Row,
    kPlace2Row,
    kPlace3Row,
    kPlace4Row,
    kPlace5Row,
    kPlace6Row,
    position(Kind::Blue, 7, "Option19", "蓝球", "fig7", 20, 16, "Text18", 16, "蓝球奇偶性", "蓝球号码。"),
    kLargestGapRow,
    kSpanRow,
    kAcValueRow,
    kOmissionSumRow,
    kOmissionRangeRow,
    exportedAs("遗漏极差", statement(WithBlue, "Option33", "红蓝各位数和", "ZnumB", 25, 23, wholeHalf("Text2"), {0, 999, 20}, "各位数和", kSumWithBlue,
        "红球与蓝球号码相加的和。")),
    exportedAs("遗漏极差", statement(WithBlue, "Option31", "红蓝偶数个数", "OnumB", 22, 26, wholeHalf("Text5"), kCounts, "偶数个数", kEvenNumbers,
        "红球与蓝球中偶数号码的个数。")),
    statement(WithBlue, "Option32", "红蓝大数个数", "MornumB", 23, 25, wholeHalf("Text6"), kCounts, "大数个数", kBigNumbers,
        "红球与蓝球中大于最大红球号码一半的号码个数。"),
    statement(WithBlue, "Option34", "红蓝重上期个", "CnumB", 24, 24, wholeHalf("Text21"), {0, 99, 3}, "重上期个数", kRepeatedNumbers,
        "红球与蓝球中与上期红球相同的号码个数。"),
    // add a parameter here
};
// clang-format on

static_assert(kSixAndBlue.size() == 32);
static_assert(isSound(kSixAndBlue));

} // namespace

std::span<const Parameter> sixAndBlueCatalogue() {
    return kSixAndBlue;
}

} // namespace filter
