// The progress of a download, `frmUpdate`: how much has come, a bar, and a button that gives it up.
//
// Shown modal it holds back every other window, so that nothing but the button can be pressed. Escape and the
// window's close do what the button does: the signal rejected().
#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

namespace history {

class UpdatePanel : public QDialog {
    Q_OBJECT
  public:
    explicit UpdatePanel(QWidget* parent = nullptr);

    /// \param total  -1 when it is not known; the bar then only moves
    void showBytes(qint64 received, qint64 total);

  private:
    QLabel* m_label;
    QProgressBar* m_bar;
};

} // namespace history
