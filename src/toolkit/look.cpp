#include "toolkit/look.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QPalette>
#include <QTranslator>

#include "toolkit/program_style.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

struct Role {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr Role kRoles[] = {
    {QPalette::Window, 0xfff4f5f7, 0xff1f2227},
    {QPalette::WindowText, 0xff1f2430, 0xffe4e7ec},
    {QPalette::Base, 0xffffffff, 0xff282c33},
    {QPalette::AlternateBase, 0xfff7f8fa, 0xff2c3139},
    {QPalette::Text, 0xff1f2430, 0xffe4e7ec},
    {QPalette::Button, 0xffffffff, 0xff343a43},
    {QPalette::ButtonText, 0xff1f2430, 0xffe4e7ec},
    {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::Highlight, 0xff2f6fd6, 0xff3672d2},
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

QPalette makePalette(bool dark) {
    QPalette palette;
    for (const Role& role : kRoles)
        palette.setColor(role.role, QColor::fromRgba(dark ? role.dark : role.light));
    const QColor faint = colours(dark).off;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

QFont makeFont(const QFont& given) {
    QFont font = given;
    // Without the list, a desktop that is not set to Chinese draws the Japanese shapes of 直, 骨 and 今.
    font.setFamilies({u"Noto Sans CJK SC"_s, u"WenQuanYi Micro Hei"_s, u"Source Han Sans SC"_s, u"Noto Sans SC"_s});
    return font;
}

void translateOwnButtons(QApplication& application) {
    auto* translator = new QTranslator(&application);
    if (translator->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(translator);
}

} // namespace

void setScheme(Scheme scheme) {
    if (scheme == Scheme::System)
        QApplication::setPalette(QPalette()); // the desktop's own comes back, to be looked at
    const bool dark = scheme == Scheme::System ? isDark(QApplication::palette()) : scheme == Scheme::Dark;
    QApplication::setPalette(makePalette(dark));
}

void applyLook(QApplication& application, Scheme scheme) {
    QApplication::setStyle(new ProgramStyle);
    QApplication::setWindowIcon(QIcon(u":/toolkit/icons/program.svg"_s));
    setScheme(scheme);
    QApplication::setFont(makeFont(QApplication::font()));
    translateOwnButtons(application);
}

} // namespace toolkit
