// A label that acts as a button: it changes its look while it is pointed at, pressed or focused.
//
// It is reached with Tab and pressed with a click, Space or Enter, and tells screen readers that it is a button.
#pragma once

#include <QLabel>

namespace workspace {

class ClickLabel : public QLabel {
    Q_OBJECT

  public:
    enum class Look { Plain, Primary };

    explicit ClickLabel(const QString& text, Look look = Look::Plain, QWidget* parent = nullptr);

    QSize sizeHint() const override;

  signals:
    void clicked();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Look m_look;
    bool m_pointedAt = false;
    bool m_pressed = false;
};

} // namespace workspace
