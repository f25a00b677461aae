// A box with a mask such as "99": every 9 is one digit or the placeholder "_".
//
// text() gives the placeholders too ("_4"), so that the reader can tell "4_" from "04". filled() is emitted by the
// key that puts a character into the last place. A click goes to the first place, so that what is typed next fills
// the box from its start wherever it was hit.
#pragma once

#include <QLineEdit>

namespace toolkit {

class MaskEdit : public QLineEdit {
    Q_OBJECT
  public:
    /// \param mask  places of digits, each written 9
    explicit MaskEdit(const QString& mask, QWidget* parent = nullptr);

    /// The text with a placeholder in every empty place; as long as the mask.
    QString maskedText() const { return displayText(); }
    void clearToMask();

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

  signals:
    void filled();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    int m_places;
};

} // namespace toolkit
