// The entry of a new draw: `Label12` with the next issue number and the boxes `MaskEdBox1`(1..7), six reds and then
// the blue.
//
// A box that is full passes the focus to the next one; the last one hands all seven on, by typed(). Once it has done
// so it does not do it again before its next key: what a handler or a message box does to it types no second draw.
// Enter in any box hands the seven on too, when all are full: after a wrong number only its own box is typed again.
#pragma once

#include <array>

#include <QWidget>

#include "history/typed_draw.h"

class QLabel;

namespace toolkit {
class MaskEdit;
}

namespace mainwin {

class DrawEntry : public QWidget {
    Q_OBJECT
  public:
    explicit DrawEntry(QWidget* parent = nullptr);

    void setCaption(const QString& text);
    /// All boxes empty and the focus in the first one.
    void clear();
    void focusFirst();
    /// \param box  1..7; its text is selected, so that typing replaces it
    void focusBox(int box);

  signals:
    void typed(const history::TypedBoxes& boxes);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void boxFilled(std::size_t place);
    bool isFull() const;
    void submit();

    QLabel* m_caption;
    std::array<toolkit::MaskEdit*, std::tuple_size_v<history::TypedBoxes>> m_boxes{};
    bool m_typed = false; ///< handed on since the last box had its last key
};

} // namespace mainwin
