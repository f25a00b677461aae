// The page of the filter template and of saved settings: the recorded steps, one of them told whole, and the
// commands.
//
// The list and the scroll bar HScroll1 are one position: a line that is marked sets the bar, and the bar tells. Its
// value 0 is no step.
#pragma once

#include <QLabel>
#include <QScrollBar>

#include "filter/step_template.h"
#include "toolkit/line_list.h"
#include "toolkit/segments.h"

namespace filter {

class TemplatePage : public QWidget {
    Q_OBJECT

  public:
    explicit TemplatePage(QWidget* parent);

    /// The steps that there are; the position stays where it can.
    void show(const std::vector<toolkit::LineList::Line>& steps);
    using QWidget::show;
    /// What Label3 says; a replay empties it.
    void describe(const QString& words) { m_words->setText(words); }

  signals:
    /// The position is on another step, from 1.
    void stepBrowsed(int Idx);
    void replayWanted();
    void deleteLastWanted();
    void clearWanted();
    void saveWanted();
    void callWanted();

  private:
    QLayout* buildBrowser();
    QAbstractButton* make(const QString& name, const QString& caption, const QString& toolTip,
                          void (TemplatePage::*wanted)());
    void tellPlace();

    QLabel* m_place;
    toolkit::LineList* m_steps;
    QScrollBar* m_scroll;
    QLabel* m_words;
    QList<std::pair<QAbstractButton*, QString>> m_needSteps; ///< disabled while there is no step, and what they do
};

} // namespace filter
