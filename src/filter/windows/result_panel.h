// The right of a filter window: the headline, the buttons that undo and invert, the grid of bets and its paging.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "filter/session.h"
#include "filter/windows/rows_model.h"
#include "toolkit/card.h"
#include "toolkit/head_line.h"
#include "toolkit/segments.h"

namespace filter {

class StepList;

class ResultPanel : public toolkit::Card {
    Q_OBJECT

  public:
    ResultPanel(const FilterMember& member, QWidget* parent);

    /// Which rows a view holds, for the headline.
    enum class Shows { Left, Reasons, Page };
    void show(const View& view, Shows shows);
    using QWidget::show;
    /// Those of the view.
    const sql::Rows& shownRows() const { return m_rows; }
    /// What the last step left and did. \param step  its words, empty for the opening of the table
    void tell(const Outcome& outcome, std::int64_t total, const QString& step);

    /// The steps that were run, for the list under the grid.
    void showSteps(const std::vector<DoneStep>& steps);

    /// Bets from elsewhere can take the place of this table's: a button above the grid, and what the grid says while
    /// it is empty. An empty caption takes the offer back.
    void offer(const QString& caption, const QString& toolTip = {}, const QString& emptyText = {});

    /// Text of the number cell of a row; of the heading for -1.
    QString indexText(int row) const;
    /// A row was taken out or put back by hand.
    void setGrey(int row, bool grey) { m_model->setGrey(row, grey); }
    /// The page number that the box holds.
    double pageNumber() const;

  signals:
    void stepWanted(const filter::Step& step);
    /// A right press on an invert: it is to become a step of the filter template. \param code  of step_template.h
    void recordWanted(int code);
    void reasonsWanted();
    void pageWanted();
    /// Bets are to be added to the group template; of a member that is a template: it is to be cleared.
    void templateWanted();
    /// \param row  row of the grid, -1 for the headings
    void rowDoubleClicked(int row);
    void offerTaken();
    void printWanted();

  private:
    QHBoxLayout* buildStates(const FilterMember& member);
    QHBoxLayout* buildShown(const FilterMember& member);
    QWidget* buildTemplate(const FilterMember& member);
    QHBoxLayout* buildPaging();
    void connectGrid(const FilterMember& member);
    void orderStops();

    const FilterMember& m_member;
    QString m_nothingYet; ///< what stands in place of the bets of an empty table
    toolkit::HeadLine* m_head;
    RowsModel* m_model;
    sql::Rows m_rows;
    toolkit::RowsGrid* m_grid;
    QLineEdit* m_page;
    QPushButton* m_offer;
    QLabel* m_stepCount;
    StepList* m_steps;
};

} // namespace filter
