// Every colour of the program that the palette has no role for, by what it is used for; light and dark.
//
// A widget asks colours() while it paints and keeps none, so a window that is shown on another palette is right at
// once. Text is at least 4.5 : 1 on each of its grounds, edges and marks at least 3 : 1: a test walks the pairs.
#pragma once

#include <QColor>

class QPalette;

namespace toolkit {

struct Colours {
    QColor text;       ///< what is read first
    QColor quiet;      ///< captions that stand back
    QColor off;        ///< text of what cannot be used now
    QColor card;       ///< ground of a group of controls
    QColor alt;        ///< every second row
    QColor head;       ///< ground of headings
    QColor line;       ///< hairlines
    QColor five;       ///< the hairline under every fifth draw
    QColor zone;       ///< lines between zones of numbers
    QColor edge;       ///< edges of fields, buttons, ticks, axes
    QColor accent;     ///< the one button that goes on; white text stands on it
    QColor accentText; ///< text and lines of what is chosen
    QColor focus;      ///< the frame of what has the keyboard
    QColor red;        ///< text about reds, rings of free red balls
    QColor blue;       ///< text about blues, rings of free blue balls
    QColor redBall;    ///< filled red balls
    QColor blueBall;   ///< filled blue balls
    QColor onBall;     ///< the number on a filled ball
    QColor gold;       ///< the ring of a banker
    QColor goldText;   ///< what is still missing
    QColor green;      ///< what is in play, gains, the K line
    QColor rowNumber;  ///< the column of row numbers in a history grid
    QColor bar;        ///< bars of shares and charts
    QColor barLast;    ///< what the last step took
    QColor track;      ///< what a bar runs on
    QColor trace;      ///< ground of the trace of a draw: light in both, for its lines have fixed colours, black too
    QColor expect;     ///< dashes at the expected share
    QColor notice;     ///< ground of a notice
    QColor noticeEdge; ///< and its edge
    QColor tint;       ///< under the mouse, chosen, a selected row
    QColor tintDeep;   ///< pressed
    QColor warm;       ///< name of a parameter that the position marks weigh
    QColor warmEdge;   ///< and its edge
    QColor capEdge;    ///< edge of the other names; their ground is head
    QColor used;       ///< name of a parameter that was run
    QColor step;       ///< buttons whose press a filter template can record
    QColor stepHover;  ///< such a button under the mouse
    QColor stepEdge;   ///< its edge
    QColor stepText;   ///< its text
    QColor out;        ///< numbers of a bet that is out
    QColor button;     ///< ground of buttons
    QColor field;      ///< ground of boxes
};

/// Whether a palette is a dark one: its text is lighter than its ground.
bool isDark(const QPalette& palette);

/// The colours that go with a palette.
const Colours& colours(const QPalette& palette);
const Colours& colours(bool dark);

} // namespace toolkit
