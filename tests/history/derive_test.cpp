// Derived values of real draws, each worked by hand from the draw, the one before it and the omissions.
#include "history/derive.h"

#include <set>

#include <gtest/gtest.h>

#include "history/draws_support.h"
#include "history/history.h"

namespace {

using history::Derived;
using history::deriveDraw;
using history::Draw;

constexpr workspace::Rule kRule{33, 16};
const std::array<std::int16_t, 39> kNoOmission{};

Derived derive(const Draw& draw, const Draw& previous = {}) {
    return deriveDraw(draw, previous, kNoOmission, kRule);
}

TEST(Derive, TheFirstRealDraw) {
    // 10 11 12 13 26 28 + 11, nothing before it, no omissions.
    const Derived row = derive({2003001, 10, 11, 12, 13, 26, 28, 11});
    EXPECT_EQ(row.Znum, 100); // 46 + 54
    EXPECT_EQ(row.ZnumB, 111);
    EXPECT_EQ(row.Jnum, 2); // 11 13
    EXPECT_EQ(row.Onum, 4);
    EXPECT_EQ(row.JnumB, 3); // blue 11 is odd
    EXPECT_EQ(row.OnumB, 4);
    EXPECT_EQ(row.Zjnum, 24);
    EXPECT_EQ(row.Zonum, 76);
    EXPECT_EQ(row.Zgnum, 20); // 0 1 2 3 6 8
    EXPECT_EQ(row.Zynum, 0);
    EXPECT_EQ(row.intYljz, 0);
    EXPECT_TRUE(row.Sumjonum);
    EXPECT_FALSE(row.SumjonumB);
    EXPECT_EQ(row.Sumgwnum, 0);
    EXPECT_EQ(row.SumgwnumB, 1);
    EXPECT_EQ(row.Bignum, 2); // 26 28
    EXPECT_EQ(row.Smlnum, 4);
    EXPECT_EQ(row.Ltlnum, 4); // up to 16
    EXPECT_EQ(row.Mornum, 2);
    EXPECT_EQ(row.XZnumB, 46);
    EXPECT_EQ(row.DZnumB, 54);
    EXPECT_EQ(row.LtlnumB, 4);
    EXPECT_EQ(row.MornumB, 3);  // blue 11 is above 8
    EXPECT_EQ(row.Modenum, 0);  // 0 1 2 3 6 8 are six digits
    EXPECT_EQ(row.ModenumB, 1); // 11 ends like the blue
    EXPECT_EQ(row.Cnum, 0);
    EXPECT_EQ(row.CnumB, 0);
    EXPECT_EQ(row.Lnum, 3); // 10-11 11-12 12-13
    EXPECT_EQ(row.Lxnum, 3);
    EXPECT_EQ(row.Mxzounum, 13); // 13 -> 26
    EXPECT_EQ(row.Apzounum, 18);
    // 1 2 1 3 2 1 16 15 14 13 18 17 16 15 2: distinct 1 2 3 13 14 15 16 17 18, nine, less 5
    EXPECT_EQ(row.differences, (history::Differences{1, 2, 1, 3, 2, 1, 16, 15, 14, 13, 18, 17, 16, 15, 2}));
    EXPECT_EQ(row.Fcodp, 4);
    EXPECT_EQ(row.Qnum, (std::array<std::int16_t, 4>{2, 2, 2, 1})); // 10 11 | 12 13 | 26 28 | only 12 by 3
}

TEST(Derive, TheSecondRealDrawRepeatsTheOmissionsOfTheFirst) {
    // After 10 11 12 13 26 28 + 11 every other number has been absent once: 04 09 19 20 21 have 1, 26 has 0.
    std::array<std::int16_t, 39> omission{};
    omission.fill(1);
    for (const std::size_t red : {10u, 11u, 12u, 13u, 26u, 28u})
        omission[red] = 0;
    const Derived row =
        deriveDraw({2003002, 4, 9, 19, 20, 21, 26, 12}, {2003001, 10, 11, 12, 13, 26, 28, 11}, omission, kRule);
    EXPECT_EQ(row.Znum, 99);
    EXPECT_EQ(row.Zynum, 5);
    EXPECT_EQ(row.intYljz, 1); // 1 - 0
    EXPECT_EQ(row.Cnum, 1);    // 26
    EXPECT_EQ(row.CnumB, 1);   // blue 12 after 11
    EXPECT_EQ(row.Lnum, 2);    // 19-20 20-21
    EXPECT_EQ(row.Lxnum, 2);
    EXPECT_EQ(row.Modenum, 1);  // 4 9 9 0 1 6
    EXPECT_EQ(row.ModenumB, 1); // no red ends in 2
    EXPECT_EQ(row.Zgnum, 29);
    // 5 | 15 10 | 16 11 1 | 17 12 2 1 | 22 17 7 6 5: distinct 1 2 5 6 7 10 11 12 15 16 17 22, twelve, less 5
    EXPECT_EQ(row.Fcodp, 7);
    EXPECT_EQ(row.Mxzounum, 10); // 9 -> 19
    EXPECT_EQ(row.Apzounum, 22);
    EXPECT_EQ(row.Qnum, (std::array<std::int16_t, 4>{2, 3, 1, 2})); // 9 and 21 by 3
}

TEST(Derive, SixConsecutiveNumbers) {
    const Derived row = derive({1, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(row.Lnum, 5);
    EXPECT_EQ(row.Lxnum, 5);
    EXPECT_EQ(row.Fcodp, 0); // differences 1..5
    EXPECT_EQ(row.Apzounum, 5);
    EXPECT_EQ(row.Mxzounum, 1);
    EXPECT_EQ(row.Znum, 21);
}

TEST(Derive, TheHalfOfTheRangeBelongsToTheLowerSide) {
    const Draw draw{1, 1, 15, 16, 17, 18, 19, 8};
    EXPECT_EQ(deriveDraw(draw, {}, kNoOmission, {33, 16}).Ltlnum, 3);  // 16 <= 16.5 < 17
    EXPECT_EQ(deriveDraw(draw, {}, kNoOmission, {32, 16}).Ltlnum, 3);  // 16 <= 16 < 17
    EXPECT_EQ(deriveDraw(draw, {}, kNoOmission, {31, 16}).Ltlnum, 2);  // 15 <= 15.5 < 16
    EXPECT_EQ(deriveDraw(draw, {}, kNoOmission, {33, 16}).LtlnumB, 4); // blue 8 of 16
    EXPECT_EQ(deriveDraw(draw, {}, kNoOmission, {33, 15}).MornumB, 4); // blue 8 of 15
}

TEST(Derive, TwoRedsWithOneLastDigitAreARepeat) {
    EXPECT_EQ(derive({1, 1, 11, 13, 15, 17, 19, 2}).Modenum, 1);
    EXPECT_EQ(derive({1, 1, 11, 21, 31, 2, 3, 1}).Modenum, 3);
    EXPECT_EQ(derive({1, 1, 11, 21, 31, 2, 3, 1}).ModenumB, 7); // and four reds end like the blue 1
}

TEST(Derive, NumbersFrom34OnCountInTheFourthZoneAndAgainWhenDivisibleByThree) {
    const Derived row = deriveDraw({1, 3, 12, 23, 34, 36, 38, 1}, {}, kNoOmission, {38, 16});
    EXPECT_EQ(row.Qnum, (std::array<std::int16_t, 4>{1, 1, 1, 6})); // 34 36 38, and 3 12 36 by 3
}

TEST(Derive, TheSpreadOfOmissionsStartsAtMostAtAHundred) {
    std::array<std::int16_t, 39> omission{};
    omission.fill(130);
    omission[6] = 150;
    EXPECT_EQ(deriveDraw({1, 1, 2, 3, 4, 5, 6, 7}, {}, omission, kRule).intYljz, 50); // 150 - 100, not 150 - 130
}

TEST(Derive, ABreakStartsTheRunAgain) {
    const Derived row = derive({1, 1, 2, 5, 6, 7, 9, 1});
    EXPECT_EQ(row.Lnum, 3);
    EXPECT_EQ(row.Lxnum, 2);
}

TEST(Derive, NumbersBeyondEveryRuleAreTakenWithoutOmission) {
    std::array<std::int16_t, 39> omission{};
    omission.fill(3);
    const Derived row = deriveDraw({1, 0, 2, 3, 40, 60, 99, 99}, {}, omission, kRule);
    EXPECT_EQ(row.Zynum, 9); // 0, 2 and 3 are within the array
    EXPECT_EQ(row.Znum, 204);
    EXPECT_EQ(row.Apzounum, 99);
    EXPECT_EQ(row.Qnum, (std::array<std::int16_t, 4>{3, 0, 0, 5})); // 40 in the fourth zone; 0 3 60 99 by 3
}

// Every pair of a column and what a set value reads back as.
/// A damaged file may hold any number of 16 bits; each gives some values, and zones and digits are counted in bounds.
TEST(Derive, NumbersBelowOneCountNoZoneAndTheirDigitLikeAnyOther) {
    const Derived odd =
        deriveDraw({1, -32768, -23, -12, -1, 0, 32767, -7}, {}, std::array<std::int16_t, 39>{}, kRule);
    EXPECT_EQ(odd.Qnum[0], 2); // -1 and 0, whose zone by whole division is the first
    EXPECT_EQ(odd.Bignum, 2);  // 8 of -32768, 7 of 32767
    EXPECT_EQ(odd.Apzounum, -1);
}

TEST(DerivedColumns, EachColumnWritesItsOwnMemberAndNoOther) {
    for (const history::DerivedColumn& column : history::kDerivedColumns) {
        Derived row;
        column.set(row, -1);
        for (const history::DerivedColumn& other : history::kDerivedColumns)
            EXPECT_EQ(other.get(row), other.name == column.name ? -1 : 0) << column.name << " " << other.name;
    }
    std::set<std::string_view> names;
    for (const history::DerivedColumn& column : history::kDerivedColumns)
        names.insert(column.name);
    EXPECT_EQ(names.size(), 36u);
}

} // namespace
