// The displays of the simulated draw: the numbers of a tick, the ranked numbers, the ticks, and the trace of the
// ranking. At rest they are empty.
#pragma once

#include <array>
#include <vector>

#include <QWidget>

#include "mainwin/windows/trace_picture.h"
#include "selection/simulator.h"
#include "toolkit/quick_label.h"

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace mainwin {

class DrawPanel : public QWidget {
    Q_OBJECT
  public:
    explicit DrawPanel(QWidget* parent = nullptr);

    /// Puts a button beside the count of ticks.
    void addButton(QPushButton* button);
    TracePicture& trace() { return *m_trace; }

    /// As many numbers as a tick draws; the count of ticks.
    void showPicks(const selection::Simulator& simulator);
    /// What the last tick has drawn and ranked.
    void showTick(const selection::Simulator& simulator);
    /// A draw that was zeroed.
    void clear(const selection::Simulator& simulator);

  private:
    using Numbers = std::array<QLabel*, selection::Simulator::kMostPicks>;
    QHBoxLayout* numberRow(const QString& captionName, const QString& caption, const QString& name, Numbers& numbers);

    toolkit::LaidOutCharacters m_characters;
    QLabel* m_ticksCaption;
    Numbers m_drawn{};
    Numbers m_ranked{};
    QLabel* m_ticks;
    TracePicture* m_trace;
    QHBoxLayout* m_buttons;
};

} // namespace mainwin
