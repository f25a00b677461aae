// The small controls of a parameter's row: tick, name, number box, period.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

namespace filter {

/// Name of a control of an array: `Check1(16)`.
QString indexedName(const QString& name, int index);

/// A tick that shows only its box; the row's caption beside it serves for both. text() is still the caption.
class TickBox : public QCheckBox {
    Q_OBJECT

  public:
    using QCheckBox::QCheckBox;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The name of a parameter or a super filter as the thing to press. It acts on the press itself, whichever mouse
/// button it is and says which; space and enter act like a left press, the menu key like a right one, and the second
/// press of a double click does nothing: it would take the step back out of reach. It is checked while its parameter
/// is the one that was run last.
class PressButton : public QAbstractButton {
    Q_OBJECT

  public:
    explicit PressButton(const QString& caption, QWidget* parent);

    /// A warm ground: this parameter honours the position boxes.
    void markColoured();
    /// Blue caption and a dot: this parameter has been used. It stays so until the window closes.
    void markUsed();
    bool isColoured() const { return m_coloured; }
    bool isUsed() const { return m_used; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  signals:
    void pressedBy(Qt::MouseButton button);

  protected:
    void nextCheckState() override {}
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void act(Qt::MouseButton button);

    bool m_coloured = false;
    bool m_used = false;
    bool m_held = false; ///< by the mouse
};

/// A box that takes the keys of `allowed` (a character class) and backspace; any other key is swallowed with a beep.
/// It holds kLongestText characters: the rest of what is pasted is cut off.
class KeyedEdit : public QLineEdit {
    Q_OBJECT

  public:
    KeyedEdit(const QString& allowed, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A choice that shows text and chevron only, its frame under the mouse or with the focus.
class QuietCombo : public QComboBox {
    Q_OBJECT

  public:
    using QComboBox::QComboBox;

  protected:
    /// The wheel scrolls what is around it: it must not pick a period that nobody meant.
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

inline constexpr int kLongestText = 32767;

/// What the number boxes of a filter window take.
inline constexpr QStringView kNumberKeys = u"[0-9. ]*";
inline constexpr QStringView kDigitKeys = u"[0-9]*";

} // namespace filter
