// Segments and flat buttons: choices and commands that stand side by side, joined into one shape.
//
// A Segment is an option of which one of its neighbours is chosen; it shows its text up to a bracket, text() stays
// whole. A FlatButton is a push button of the same shape. Which corners are round follows from the place in the
// shape; Joined lays out a shape and tells its members their places.
#pragma once

#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

namespace toolkit {

/// The place of a button in its shape.
enum class Joint { Alone, First, Middle, Last };

class Segment : public QRadioButton {
    Q_OBJECT
  public:
    using QRadioButton::QRadioButton;

    void setJoint(Joint joint) { m_joint = joint; }
    /// The text is shown whole, its bracket too.
    void showWhole() { m_whole = true; }
    /// The text up to its bracket, unless it is shown whole.
    QString shownText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;

  private:
    Joint m_joint = Joint::Alone;
    bool m_whole = false;
};

class FlatButton : public QPushButton {
    Q_OBJECT
  public:
    /// Step: a press that a filter template can record.
    enum class Look { Plain, Step };

    FlatButton(const QString& text, Look look, QWidget* parent = nullptr);

    void setJoint(Joint joint) { m_joint = joint; }
    /// The text takes the colour of what has been used.
    void markUsed();
    bool isUsed() const { return m_used; }
    /// The button that a group of controls is for: bold, and higher.
    void standOut();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  signals:
    /// The right mouse button was let go over it, or the menu key pressed on it.
    void menuWanted();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    Look m_look;
    Joint m_joint = Joint::Alone;
    bool m_used = false;
    bool m_main = false;
};

/// Buttons side by side, as wide as their texts or sharing the width evenly.
template <class Button> QHBoxLayout* joined(std::initializer_list<Button*> buttons, bool even = false) {
    auto* line = new QHBoxLayout;
    line->setSpacing(0);
    const std::size_t last = buttons.size() - 1;
    std::size_t place = 0;
    for (Button* button : buttons) {
        button->setJoint(last == 0       ? Joint::Alone
                         : place == 0    ? Joint::First
                         : place == last ? Joint::Last
                                         : Joint::Middle);
        line->addWidget(button, even ? 1 : 0);
        ++place;
    }
    return line;
}

} // namespace toolkit
