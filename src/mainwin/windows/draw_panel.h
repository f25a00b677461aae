// The displays of the simulated draw: the numbers of a tick, the ranked numbers, the ticks, and the trace of the
// ranking. At rest they are empty.
#pragma once

#include <array>

#include <QWidget>

class QHBoxLayout;
class QPushButton;

namespace mainwin {

/// The trace area: 5000 wide and as high as the highest red, in its own logical scale, whatever its size in pixels.
class TracePicture : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kLogicalWidth = 5000;

    explicit TracePicture(QWidget* parent = nullptr);
    void setLogicalHeight(int height);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int m_logicalHeight = 33;
};

class DrawPanel : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kNumbers = 6; ///< most numbers of one draw

    explicit DrawPanel(QWidget* parent = nullptr);

    /// Puts a button beside the count of ticks.
    void addButton(QPushButton* button);
    TracePicture& trace() { return *m_trace; }

  private:
    TracePicture* m_trace;
    QHBoxLayout* m_buttons;
};

} // namespace mainwin
