// A prize query in its window (GAganDj, GAganRDj, GAganfDj): the draw, the money, the bets that are kept and those
// that are out, what each level won.
//
// One class for the three kinds: what a kind has not is not there. The query is run when the window is made.
#pragma once

#include <filesystem>
#include <functional>

#include <QDialog>

#include "prize/query.h"
#include "toolkit/window_place.h"

class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace toolkit {
class Card;
class RowsGrid;
class RowsModel;
} // namespace toolkit

namespace prize {

class SummaryGrid;

class QueryWindow : public QDialog {
    Q_OBJECT
  public:
    /// \param query  not opened yet  \param userFolder  gets the report
    QueryWindow(Query query, std::filesystem::path userFolder, const toolkit::PlaceStore& places,
                QWidget* parent = nullptr);

  private:
    /// A list with its heading, its page box and its grid.
    struct List {
        const ListKind& kind;
        toolkit::RowsModel* model;
        toolkit::RowsGrid* grid;
        QLabel* title;
    };
    List makeList(bool out);
    toolkit::Card* makeListCard(bool out);
    toolkit::Card* makeStrip();
    toolkit::Card* makeSummary();
    void addPaging(QHBoxLayout& head, const QString& box, const QString& button, void (Query::*turn)(const QString&));
    void addMoney(QHBoxLayout& strip);
    void addBalance(QHBoxLayout& strip);
    QPushButton* makeQuit();
    void layOut();
    void showLists();
    void showKept();
    void showOut();
    void quit();
    bool report();

    Query m_query;
    std::filesystem::path m_userFolder;
    List m_kept;
    List m_out;
};

} // namespace prize
