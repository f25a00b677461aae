// A number of a pad as a ball: hollow while free, filled when selected, ringed when banker.
//
// The ball holds no selection of its own: it shows the state that it is given, and its checked property is set from
// outside as well. A left press, Space or Enter emits clicked(), the press at once and not only when the button is
// let go, wherever that is; a right press or the menu key emits rightPressed(), and nothing else.
#pragma once

#include <QAbstractButton>

namespace toolkit {

class NumberBall : public QAbstractButton {
    Q_OBJECT
  public:
    enum class Kind { Red, Blue };
    enum class State { Free, Selected, Banker };

    NumberBall(Kind kind, int number, QWidget* parent = nullptr);

    int number() const { return m_number; }
    State state() const { return m_state; }
    void setState(State state);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    /// \param position  where a pop-up belongs, on the screen
    void rightPressed(const QPoint& position);

  protected:
    void nextCheckState() override {}
    bool hitButton(const QPoint& position) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QRectF disc() const;
    void describe();
    bool isPressed() const { return m_held || isDown(); }

    Kind m_kind;
    int m_number;
    State m_state = State::Free;
    bool m_held = false; ///< by the left mouse button
};

} // namespace toolkit
