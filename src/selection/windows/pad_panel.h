// The pad as widgets: the balls of the reds and the blues, their buttons, and the lines that echo the choice.
//
// It shows the pad and presses it; it decides nothing. Red balls are Command1(1..38), blue ones Command2(1..18);
// those above the rule are disabled and not shown.
#pragma once

#include <QWidget>

#include "selection/pad.h"

class QLabel;
class QMenu;
class QPushButton;

namespace toolkit {
class BallGrid;
class Card;
} // namespace toolkit

namespace selection {

class PadPanel : public QWidget {
    Q_OBJECT
  public:
    explicit PadPanel(Pad& pad, QWidget* parent = nullptr);

    /// Puts what goes on from the choice under the lines that echo it.
    void addUnderEcho(QWidget* row);

  private:
    QWidget* buildReds();
    QWidget* buildBlues();
    QWidget* buildEcho();
    void buildBankerMenu();
    void addButton(toolkit::Card& card, const QString& name, const QString& caption, const QString& toolTip,
                   void (Pad::*operation)());
    void showPad();

    Pad& m_pad;
    toolkit::BallGrid* m_reds = nullptr;
    toolkit::BallGrid* m_blues = nullptr;
    toolkit::Card* m_echo = nullptr;
    QMenu* m_bankerMenu = nullptr;
};

} // namespace selection
