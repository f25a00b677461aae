// The page of the integrated filter: its logic, its tolerance, what it will keep in one sentence, and what is ticked.
//
// The two tolerance boxes follow each other when they lose the focus; what a tick does to them is the window's
// business, for the ticks stand in the table of parameters.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include "filter/member.h"
#include "filter/window_state.h"
#include "toolkit/line_list.h"
#include "toolkit/segments.h"

namespace filter {

class IntegratedPage : public QWidget {
    Q_OBJECT

  public:
    IntegratedPage(const FilterMember& member, QWidget* parent);

    /// Puts logic and tolerance into `state`.
    void read(WindowState& state) const;
    void write(const WindowState& state);
    /// What is ticked, with what it is compared with.
    void tell(const WindowState& state);
    void markUsed() { m_run->markUsed(); }

  signals:
    void runWanted();
    /// The integrated run is to become a step of the filter template.
    void recordWanted();
    void exportWanted();
    /// A control of this page says something else.
    void edited();
    /// A tolerance box lost the focus. \param percent  the percentage; else the count
    void toleranceLeft(bool percent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLayout* buildLogic();
    QLayout* buildTolerance();
    QLineEdit* makeToleranceBox(int index, const QString& accessible);

    const FilterMember& m_member;
    toolkit::Segment* m_and = nullptr;
    toolkit::Segment* m_or = nullptr;
    QCheckBox* m_tolerance = nullptr; ///< Check3; null where the run counts nothing, as the boxes
    QLineEdit* m_count = nullptr;
    QLineEdit* m_percent = nullptr;
    QLabel* m_sentence;
    toolkit::FlatButton* m_run;
    toolkit::LineList* m_ticked;
};

} // namespace filter
