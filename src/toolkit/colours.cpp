#include "toolkit/colours.h"

#include <QPalette>

namespace toolkit {

namespace {

const Colours kLight{
    .text = 0xff1f2430,
    .quiet = 0xff565f70,
    .off = 0xff626b7b,
    .card = 0xffffffff,
    .alt = 0xfff7f8fa,
    .head = 0xffeef0f4,
    .line = 0xffe2e5ea,
    .five = 0xffcdd3dc,
    .zone = 0xffaab2bf,
    .edge = 0xff838b99,
    .accent = 0xff2f6fd6,
    .accentText = 0xff2360c4,
    .focus = 0xff2f6fd6,
    .red = 0xffcb222c,
    .blue = 0xff1f5fd0,
    .redBall = 0xffcb222c,
    .blueBall = 0xff1f5fd0,
    .onBall = 0xffffffff,
    .gold = 0xffa67000,
    .goldText = 0xff855a00,
    .green = 0xff177a41,
    .rowNumber = 0xffa1269b,
    .bar = 0xff2f6fd6,
    .barLast = 0xffa5c1f0,
    .track = 0xffe6e9ee,
    .trace = 0xfff4f5f7,
    .expect = 0xff4a5260,
    .notice = 0xffe8f0fd,
    .noticeEdge = 0xff8fb3ee,
    .tint = 0xffe7effc,
    .tintDeep = 0xffcfdff8,
    .warm = 0xfffdf5e4,
    .warmEdge = 0xffdcc99b,
    .capEdge = 0xffc9d0da,
    .used = 0xff0000ff,
    .step = 0xffe6f3ea,
    .stepHover = 0xffd3eadb,
    .stepEdge = 0xff4b9466,
    .stepText = 0xff14532d,
    .out = 0xff626a77,
    .button = 0xffffffff,
    .field = 0xffffffff,
};

const Colours kDark{
    .text = 0xffe4e7ec,
    .quiet = 0xffb2bac7,
    .off = 0xff98a1af,
    .card = 0xff282c33,
    .alt = 0xff2c3139,
    .head = 0xff30363f,
    .line = 0xff3a404a,
    .five = 0xff4a515d,
    .zone = 0xff5d6674,
    .edge = 0xff7d8695,
    .accent = 0xff3672d2,
    .accentText = 0xff8ab4ff,
    .focus = 0xff8ab4ff,
    .red = 0xfff67a81,
    .blue = 0xff74a8ff,
    .redBall = 0xfff1686f,
    .blueBall = 0xff6499f6,
    .onBall = 0xff15171b,
    .gold = 0xfff0bd4f,
    .goldText = 0xfff0bd4f,
    .green = 0xff5cc98a,
    .rowNumber = 0xfff08cf0,
    .bar = 0xff5a94f0,
    .barLast = 0xff34568f,
    .track = 0xff3a404a,
    .trace = 0xffc4c8ce,
    .expect = 0xffc3cad5,
    .notice = 0xff26344c,
    .noticeEdge = 0xff466192,
    .tint = 0xff293750,
    .tintDeep = 0xff314465,
    .warm = 0xff39342b,
    .warmEdge = 0xff5f5641,
    .capEdge = 0xff4d5562,
    .used = 0xff8fb6ff,
    .step = 0xff24382d,
    .stepHover = 0xff2d4a3a,
    .stepEdge = 0xff57a578,
    .stepText = 0xffb6e3c6,
    .out = 0xff98a1af,
    .button = 0xff343a43,
    .field = 0xff22262c,
};

} // namespace

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

const Colours& colours(bool dark) {
    return dark ? kDark : kLight;
}

const Colours& colours(const QPalette& palette) {
    return colours(isDark(palette));
}

} // namespace toolkit
