// The look of the program, in one place: style, palettes, fonts, the colours of balls and grids, and the translation
// of Qt's own buttons.
//
// Call applyLook() once, after the QApplication is made and before the first window. Widgets ask colours() while they
// paint and keep none, so a window that is shown on another palette is right at once.
#pragma once

#include <QColor>

class QApplication;
class QPalette;

namespace toolkit {

enum class Scheme { System, Light, Dark };

/// Colours that the palette has no role for.
struct Colours {
    QColor red;       ///< red balls, and text about reds
    QColor blue;      ///< blue balls
    QColor rowNumber; ///< the column of row numbers in a history grid
    QColor gold;      ///< the ring of a banker
    QColor bar;       ///< bars of shares
    QColor barTrack;  ///< what a bar runs on
    QColor quiet;     ///< captions that stand back
    QColor card;      ///< ground of a group of controls
    QColor line;      ///< hairlines between groups
};

/// The style, the palette, the font list with a simplified Chinese face first, the Chinese texts of Qt's own buttons.
/// Scheme::System follows the lightness of the desktop's palette.
void applyLook(QApplication& application, Scheme scheme = Scheme::System);

/// Whether a palette is a dark one: its text is lighter than its ground.
bool isDark(const QPalette& palette);

/// The colours that go with a palette.
const Colours& colours(const QPalette& palette);

} // namespace toolkit
