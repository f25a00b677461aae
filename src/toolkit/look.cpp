#include "toolkit/look.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QPalette>
#include <QTranslator>

#include "toolkit/program_style.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kTextPoints = 10;

struct Role {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr Role kRoles[] = {
    {QPalette::Window, 0xfff4f5f7, 0xff1f2227},
    {QPalette::WindowText, 0xff1f2430, 0xffe4e7ec},
    {QPalette::Base, 0xffffffff, 0xff282c33},
    {QPalette::AlternateBase, 0xfff7f8fa, 0xff2d323a},
    {QPalette::Text, 0xff1f2430, 0xffe4e7ec},
    {QPalette::Button, 0xffffffff, 0xff343a43},
    {QPalette::ButtonText, 0xff1f2430, 0xffe4e7ec},
    {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::Highlight, 0xff2f6fd6, 0xff3f7fe0},
    {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::ToolTipBase, 0xff2b303a, 0xff3b424d},
    {QPalette::ToolTipText, 0xfff4f5f7, 0xfff4f5f7},
    {QPalette::PlaceholderText, 0xff8a92a0, 0xff858d9a},
    {QPalette::Link, 0xff2f6fd6, 0xff79a8f5},
    {QPalette::Light, 0xffffffff, 0xff464d58},
    {QPalette::Midlight, 0xffe9ebef, 0xff3b414b},
    {QPalette::Mid, 0xffc9ced6, 0xff15171b},
    {QPalette::Dark, 0xffb3b9c4, 0xff14161a},
    {QPalette::Shadow, 0xff8a92a0, 0xff0b0c0e},
};

constexpr QRgb kDisabledLight = 0xffa3aab6;
constexpr QRgb kDisabledDark = 0xff6d7480;

QPalette makePalette(bool dark) {
    QPalette palette;
    for (const Role& role : kRoles)
        palette.setColor(role.role, QColor::fromRgba(dark ? role.dark : role.light));
    const QColor faint = QColor::fromRgba(dark ? kDisabledDark : kDisabledLight);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

QFont makeFont(const QFont& given) {
    QFont font = given;
    // Without the list, a desktop that is not set to Chinese draws the Japanese shapes of 直, 骨 and 今.
    font.setFamilies({u"Noto Sans CJK SC"_s, u"WenQuanYi Micro Hei"_s, u"Source Han Sans SC"_s, u"Noto Sans SC"_s});
    font.setPointSize(kTextPoints);
    return font;
}

void translateOwnButtons(QApplication& application) {
    auto* translator = new QTranslator(&application);
    if (translator->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(translator);
}

const Colours kLight{0xd92b34, 0x1f5fd0, QColor(255, 0, 255), 0xd79a16, 0x2f6fd6, 0xe6e9ee, 0x667085,
                     0xffffff, 0xdde1e7};
const Colours kDark{0xf0626a, 0x6ea4ff, QColor(255, 120, 255), 0xf0bd4f, 0x5a94f0, 0x3a404a, 0x9aa3b2,
                    0x282c33, 0x3d434d};

} // namespace

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

const Colours& colours(const QPalette& palette) {
    return isDark(palette) ? kDark : kLight;
}

void applyLook(QApplication& application, Scheme scheme) {
    const bool dark = scheme == Scheme::System ? isDark(QApplication::palette()) : scheme == Scheme::Dark;
    QApplication::setStyle(new ProgramStyle);
    QApplication::setPalette(makePalette(dark));
    QApplication::setFont(makeFont(QApplication::font()));
    translateOwnButtons(application);
}

} // namespace toolkit
