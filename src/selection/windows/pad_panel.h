// The pad as widgets: the balls of the reds and the blues, their buttons, and the lines that echo the choice.
//
// It shows the pad and presses it; it decides nothing. Red balls are Command1(1..38), blue ones Command2(1..18);
// those above the rule are disabled and not shown.
#pragma once

#include <vector>

#include <QWidget>

#include "selection/pad.h"

class QLabel;
class QMenu;
class QPushButton;

namespace toolkit {
class Card;
class NumberBall;
} // namespace toolkit

namespace selection {

class PadPanel : public QWidget {
    Q_OBJECT
  public:
    explicit PadPanel(Pad& pad, QWidget* parent = nullptr);

  private:
    QWidget* buildReds();
    QWidget* buildBlues();
    QWidget* buildEcho();
    void buildBankerMenu();
    void addButton(toolkit::Card& card, const QString& name, const QString& caption, const QString& toolTip,
                   void (Pad::*operation)());
    void showPad();

    Pad& m_pad;
    std::vector<toolkit::NumberBall*> m_reds;
    std::vector<toolkit::NumberBall*> m_blues;
    QMenu* m_bankerMenu = nullptr;
};

} // namespace selection
