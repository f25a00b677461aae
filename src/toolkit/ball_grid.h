// The balls of a pad in rows, and for the keyboard one thing: Tab comes to the ball that was reached last and goes on
// behind the whole pad; the arrows, Home and End go from ball to ball by place.
#pragma once

#include <vector>

#include <QWidget>

#include "toolkit/number_ball.h"

namespace toolkit {

class BallGrid : public QWidget {
    Q_OBJECT
  public:
    struct Look {
        NumberBall::Kind kind;
        QString name;     ///< of the grid
        QString ballName; ///< of a ball, without its number: "Command1"
        int count;
        int columns;
    };
    explicit BallGrid(const Look& look, QWidget* parent = nullptr);

    /// Ball 1 first.
    const std::vector<NumberBall*>& balls() const { return m_balls; }
    /// Balls above the number are disabled and not shown.
    void showUpTo(int number);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool moveFrom(int place, int key);
    void stopAt(int place);

    std::vector<NumberBall*> m_balls;
    int m_columns;
    int m_shown;
    int m_stop = 0; ///< place of the ball that Tab comes to
};

} // namespace toolkit
