// The progress window of a long operation: `Dialog`, titled 组合排列进度栏.
//
// It is modal and is shown by the code that works, on the one thread: advance() lets events through, which reach this
// window alone, so that 取消 can be pressed and nothing can start a second operation. It paints about 25 times a
// second, however often advance() is called. Work that is over within its patience shows no window, and lets no event
// through.
#pragma once

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QProgressBar;

namespace toolkit {

class ProgressDialog : public QDialog {
    Q_OBJECT
  public:
    static constexpr int kPatienceMs = 300; // shorter work would only make the screen flicker

    explicit ProgressDialog(QWidget* parent = nullptr, int patienceMs = kPatienceMs);

    /// The work begins, at 0.
    void begin(const QString& text = {});
    /// \param share  done of the whole, 0..1; less than what is shown already is passed over
    /// \return false once 取消 was pressed
    bool advance(double share);

  protected:
    void reject() override;

  private:
    void paintNow();
    bool isDue() const;

    QLabel* m_label;
    QLabel* m_time;
    QProgressBar* m_bar;
    QElapsedTimer m_begun;
    QElapsedTimer m_painted;
    int m_patienceMs;
    bool m_cancelled = false;
};

} // namespace toolkit
