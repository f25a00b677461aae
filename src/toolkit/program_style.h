// Fusion with marks that can be seen: check boxes, options and the marks of menus get an outline of their own.
//
// Fusion derives the outline from the window's ground, darker; on a dark ground nothing of it is left. Buttons,
// headings and scroll bars are flat (flat_parts.h). Buttons of dialogs carry no icons.
#pragma once

#include <QProxyStyle>

namespace toolkit {

class ProgramStyle : public QProxyStyle {
    Q_OBJECT

  public:
    ProgramStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    /// The question mark of message boxes is our own.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

} // namespace toolkit
