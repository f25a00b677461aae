// The progress window of a long operation: `Dialog`, titled 组合排列进度栏.
//
// It is shown without a modal hold by the code that works, on the one thread. Every advance() paints at once and lets
// the window system's own events through, but no clicks and no keys, so that nothing can start a second operation.
#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

namespace toolkit {

class ProgressDialog : public QDialog {
    Q_OBJECT
  public:
    explicit ProgressDialog(QWidget* parent = nullptr);

    /// Shows the window and paints it; the work begins at 0.
    void begin(const QString& text = {});
    /// \param share  done of the whole, 0..1; less than what is shown already is passed over
    void advance(double share);

  private:
    void paintNow();

    QLabel* m_label;
    QProgressBar* m_bar;
};

} // namespace toolkit
