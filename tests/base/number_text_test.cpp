#include "base/number_text.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace {

TEST(Val, ReadsTheLeadingNumberOnly) {
    EXPECT_EQ(base::val("007"), 7);
    EXPECT_EQ(base::val("16.50"), 16.5);
    EXPECT_EQ(base::val("12abc"), 12);
    EXPECT_EQ(base::val("1.2.3"), 1.2);
    EXPECT_EQ(base::val(".5"), 0.5);
    EXPECT_EQ(base::val("-.5x"), -0.5);
    EXPECT_EQ(base::val("+3"), 3);
    EXPECT_EQ(base::val("2E3"), 2000);
    EXPECT_EQ(base::val("2d1"), 20);
}

TEST(Val, TextWithoutANumberIsZero) {
    for (const char* text : {"", " ", "abc", ".", "-", "+.", "E5", "一", "x1"})
        EXPECT_EQ(base::val(text), 0) << text;
}

TEST(Val, BlanksAreSkippedEvenInsideTheNumber) {
    EXPECT_EQ(base::val("  1 2 \t3"), 123);
    EXPECT_EQ(base::val("- 4"), -4);
}

TEST(Val, AnExponentWithoutDigitsIsNotPartOfTheNumber) {
    EXPECT_EQ(base::val("5E"), 5);
    EXPECT_EQ(base::val("5E+"), 5);
}

TEST(Val, ANumberBeyondTheLargestIsTheLargest) {
    EXPECT_EQ(base::kLargestNumber, 1.7976931348623157E+308);
    const std::string nines(400, '9');
    for (const std::string& text :
         {nines, nines + ".5", nines + "x", std::string("1E309"), std::string("1d99999999999"),
          "0." + std::string(400, '0') + "1E801", std::string(1 << 20, '7')}) {
        EXPECT_EQ(base::val(text), base::kLargestNumber);
        EXPECT_EQ(base::val("-" + text), -base::kLargestNumber);
    }
}

TEST(Val, ANumberTooSmallToBeToldFromZeroIsZero) {
    const std::string zeros(400, '0');
    for (const std::string& text : {"." + zeros + "1", std::string("1E-400"), std::string("-1E-99999999999999999999"),
                                    zeros + "1" + "E-800", std::string(1 << 20, '0'), std::string("0E999")})
        EXPECT_EQ(base::val(text), 0);
}

TEST(Val, LengthAloneMakesNoNumberTooLarge) {
    EXPECT_EQ(base::val(std::string(1000, '0') + "7"), 7);
    EXPECT_EQ(base::val("1" + std::string(400, '0') + "E-400"), 1);
    EXPECT_EQ(base::val("0." + std::string(400, '0') + "1E401"), 1);
}

TEST(Val, TellsATextWithoutANumberFromAZero) {
    EXPECT_EQ(base::leadingNumber("0x"), 0);
    EXPECT_EQ(base::leadingNumber("-.x"), std::nullopt);
    EXPECT_EQ(base::leadingNumber(""), std::nullopt);
}

TEST(WholeWithin, GivesTheLimitBeyondIt) {
    EXPECT_EQ(base::wholeWithin(2.5, 0, 9), 2);
    EXPECT_EQ(base::wholeWithin(1e300, 0, 9), 9);
    EXPECT_EQ(base::wholeWithin(-1e300, -3, 9), -3);
    EXPECT_EQ(base::wholeWithin(std::numeric_limits<double>::infinity(), 0, 32767), 32767);
    EXPECT_EQ(base::wholeWithin(std::numeric_limits<double>::quiet_NaN(), 1, 32767), 1);
}

TEST(NumberText, GivesATextThatReadsBackForWhatIsNoNumberToo) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(base::numberText(infinity), "1.79769313486231E+308");
    EXPECT_EQ(base::numberText(-infinity), "-1.79769313486231E+308");
    EXPECT_EQ(base::numberText(base::kLargestNumber), "1.79769313486231E+308");
    EXPECT_EQ(base::numberText(std::numeric_limits<double>::quiet_NaN()), "0");
    EXPECT_EQ(base::numberText(std::numeric_limits<double>::denorm_min()), "4.94065645841247E-324");
}

TEST(NumberText, OfAnyNumberIsShortAndReadsBackToItsFifteenDigits) {
    std::mt19937_64 random(7);
    for (int turn = 0; turn < 20000; ++turn) {
        const double number = std::bit_cast<double>(random());
        const std::string text = base::numberText(number);
        EXPECT_LE(text.size(), 22U);
        if (std::isfinite(number) && std::fabs(number) > 1e-300) {
            EXPECT_NEAR(base::val(text) / number, 1, std::fabs(number) < 1 ? 1e-9 : 1e-14) << text;
        }
    }
}

TEST(NumberText, PrintsNoTrailingZerosAndALeadingZero) {
    EXPECT_EQ(base::numberText(16.5), "16.5");
    EXPECT_EQ(base::numberText(7), "7");
    EXPECT_EQ(base::numberText(0.5), "0.5");
    EXPECT_EQ(base::numberText(-0.25), "-0.25");
    EXPECT_EQ(base::numberText(-0.0), "0");
    EXPECT_EQ(base::numberText(100), "100");
    EXPECT_EQ(base::numberText(0.1 + 0.2), "0.3"); // 15 significant digits
}

TEST(NumberText, VeryLargeAndVerySmallNumbersHaveAnExponent) {
    EXPECT_EQ(base::numberText(1e15), "1E+15");
    EXPECT_EQ(base::numberText(-2.5e20), "-2.5E+20");
    EXPECT_EQ(base::numberText(1e-7), "1E-07");
    EXPECT_EQ(base::numberText(999999999999999), "999999999999999");
}

TEST(NumberText, ReadsBackToTheSameNumber) {
    for (const double number : {0.0, 1.0, -1.0, 33.0, 16.5, 101.25, 1e-4, 123456.789, 1e15, 3e-9})
        EXPECT_EQ(base::val(base::numberText(number)), number);
}

TEST(RoundHalfEven, PutsAHalfOnTheEvenSide) {
    EXPECT_EQ(base::roundHalfEven(0.5), 0);
    EXPECT_EQ(base::roundHalfEven(1.5), 2);
    EXPECT_EQ(base::roundHalfEven(2.5), 2);
    EXPECT_EQ(base::roundHalfEven(-2.5), -2);
    EXPECT_EQ(base::roundHalfEven(2.6), 3);
}

} // namespace
