// Every pair of a text or a mark and the ground that it stands on can be told apart, light and dark.
#include <cmath>
#include <span>

#include <QApplication>
#include <QPalette>

#include <gtest/gtest.h>

#include "toolkit/look.h"

namespace {

using toolkit::Colours;
using toolkit::colours;

/// Relative luminance and contrast ratio as WCAG 2.1 defines them: black on white is 21.
double luminance(const QColor& colour) {
    const auto part = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

struct Pair {
    const char* name;
    QColor Colours::*mark;
    QColor Colours::*ground;
};

#define ON(mark, ground)                                                                                             \
    { #mark " on " #ground, &Colours::mark, &Colours::ground }

constexpr double kText = 4.5;
constexpr double kEdge = 3.0;

const Pair kTexts[] = {
    ON(text, card),       ON(text, alt),           ON(text, head),       ON(text, tint),  ON(text, tintDeep),
    ON(text, warm),       ON(text, notice),        ON(text, button),     ON(text, field), ON(quiet, card),
    ON(quiet, alt),       ON(quiet, head),         ON(quiet, tint),      ON(off, card),   ON(off, alt),
    ON(off, head),        ON(accentText, card),    ON(accentText, tint), ON(red, card),   ON(red, alt),
    ON(red, tint),        ON(blue, card),          ON(blue, alt),        ON(blue, tint),  ON(onBall, redBall),
    ON(onBall, blueBall), ON(goldText, card),      ON(green, card),      ON(green, alt),  ON(green, tint),
    ON(rowNumber, card),  ON(rowNumber, alt),      ON(used, warm),       ON(used, head),  ON(used, tint),
    ON(stepText, step),   ON(stepText, stepHover), ON(out, card),        ON(out, alt),    ON(out, tint),
};

const Pair kEdges[] = {
    ON(edge, card),     ON(edge, alt),     ON(edge, field),    ON(edge, button),
    ON(focus, card),    ON(focus, alt),    ON(focus, head),    ON(gold, card),
    ON(bar, card),      ON(bar, track),    ON(expect, card),   ON(expect, track),
    ON(stepEdge, card), ON(redBall, card), ON(blueBall, card), ON(accentText, notice),
};

void expectAtLeast(std::span<const Pair> pairs, double least) {
    for (const bool dark : {false, true})
        for (const Pair& pair : pairs) {
            const Colours& look = colours(dark);
            EXPECT_GE(contrast(look.*pair.mark, look.*pair.ground), least)
                << pair.name << (dark ? " dark" : " light");
        }
}

TEST(ColoursOfBothPalettes, TheRatioIsThatOfTheStandard) {
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21.0);
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01); // the lightest grey that can be read
}

TEST(ColoursOfBothPalettes, TextCanBeReadOnEachOfItsGrounds) {
    expectAtLeast(kTexts, kText);
}

TEST(ColoursOfBothPalettes, EdgesAndMarksCanBeSeen) {
    expectAtLeast(kEdges, kEdge);
}

TEST(ColoursOfBothPalettes, WhiteStandsOnTheAccent) {
    for (const bool dark : {false, true})
        EXPECT_GE(contrast(Qt::white, colours(dark).accent), kText) << dark;
}

TEST(ColoursOfBothPalettes, ThePaletteTellsWhichOneHolds) {
    auto& application = *static_cast<QApplication*>(QCoreApplication::instance());
    for (const bool dark : {true, false}) {
        toolkit::applyLook(application, dark ? toolkit::Scheme::Dark : toolkit::Scheme::Light);
        EXPECT_EQ(toolkit::isDark(QApplication::palette()), dark);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            EXPECT_GE(contrast(QApplication::palette().color(QPalette::Disabled, role),
                               QApplication::palette().color(QPalette::Window)),
                      4.0)
                << role;
    }
}

} // namespace
