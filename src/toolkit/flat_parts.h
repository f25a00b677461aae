// Buttons, fields, headings and scroll bars without bevels: a ground, an edge, no arrows. ProgramStyle paints with
// them.
#pragma once

#include <QRect>
#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionHeader;
class QStyleOptionSlider;

namespace toolkit {

/// A push button, or the button that a closed choice is. The default button of a dialog has the accent's edge.
void drawButton(QPainter& painter, const QStyleOption& option);

/// The edge of a text box; its ring while it has the keyboard.
void drawFieldEdge(QPainter& painter, const QStyleOption& option);

/// The ground of a heading, and of what is left beside the last one.
void drawHeadGround(QPainter& painter, const QStyleOption& option);

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar);
/// Where a part of a scroll bar is: the handle takes its share of the whole length. There are no arrows: empty.
QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part);

} // namespace toolkit
