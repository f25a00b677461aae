// The small controls of a parameter's row: tick, option button, number box.
#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

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

/// An option button that acts on the press itself, whichever mouse button it is; space and enter act like a left
/// press.
class PressButton : public QRadioButton {
    Q_OBJECT

  public:
    using QRadioButton::QRadioButton;
    /// A tinted ground: this parameter honours the position boxes.
    void markColoured();
    /// Blue caption: this parameter has been used. It stays so until the window closes.
    void markUsed();

  signals:
    void pressedAnyhow();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void setGround(const QColor& colour);
    void act();
};

/// A box that takes the keys of `allowed` (a character class) and backspace; any other key is swallowed with a beep.
/// It holds kLongestText characters: the rest of what is pasted is cut off.
class KeyedEdit : public QLineEdit {
    Q_OBJECT

  public:
    KeyedEdit(const QString& allowed, QWidget* parent);
};

inline constexpr int kLongestText = 32767;

/// What the number boxes of a filter window take.
inline constexpr QStringView kNumberKeys = u"[0-9. ]*";
inline constexpr QStringView kDigitKeys = u"[0-9]*";

} // namespace filter
