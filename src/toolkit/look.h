// The look of the program, in one place: style, palettes, fonts, the colours of balls and grids, and the translation
// of Qt's own buttons.
//
// Call applyLook() once, after the QApplication is made and before the first window.
#pragma once

#include "toolkit/colours.h"

class QApplication;

namespace toolkit {

enum class Scheme { System, Light, Dark };

/// The style, the palette, the font list with a simplified Chinese face first, in the desktop's size, the window
/// icon, the Chinese texts of Qt's own buttons.
void applyLook(QApplication& application, Scheme scheme = Scheme::System);

/// The palette alone, at once for every window. Scheme::System follows the lightness of the desktop's palette.
void setScheme(Scheme scheme);

} // namespace toolkit
