// frmXhfw: which draws the frequencies are ranked on. 确定 hides it; closing it otherwise gives the selection up.
//
// Typing into a box chooses its option. Under the boxes stands how many draws the range holds; one without a draw
// cannot be taken.
#pragma once

#include <array>

#include <QDialog>

#include "selection/ranked_numbers.h"
#include "toolkit/window_place.h"

class QLineEdit;
class QPushButton;
class QRadioButton;

namespace toolkit {
class InkLabel;
}

namespace selection {

class RangeWindow : public QDialog {
    Q_OBJECT
  public:
    /// \param history  outlives the window; the boxes begin with its first and last issue
    RangeWindow(const history::History& history, const toolkit::PlaceStore& places, QWidget* parent = nullptr);

    /// What the options and boxes say.
    DrawRange range() const;

  private:
    QWidget* buildFrame();
    QLineEdit* addBox(int index, const QString& text, const QString& meaning, DrawRange::Kind kind);
    QRadioButton* addOption(DrawRange::Kind kind, const QString& caption);
    QRadioButton*& option(DrawRange::Kind kind) { return m_options[static_cast<std::size_t>(kind)]; }
    void showCount();

    const history::History& m_history;
    std::array<QRadioButton*, 3> m_options{}; ///< by DrawRange::Kind
    std::array<QLineEdit*, 3> m_boxes{};      ///< period count, first and last issue
    toolkit::InkLabel* m_count;
    QPushButton* m_ok;
};

} // namespace selection
