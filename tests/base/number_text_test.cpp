#include "base/number_text.h"

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
