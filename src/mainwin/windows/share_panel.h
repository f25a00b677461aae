// The shares of the numbers: for each its caption, its share in percent and a bar. The reds are Label4, Label6 and
// Picture2 by number; the blues stand below them.
#pragma once

#include <span>
#include <vector>

#include <QWidget>

#include "history/history.h"
#include "toolkit/ink_label.h"
#include "toolkit/quick_label.h"

class QGridLayout;
class QLabel;

namespace mainwin {

/// A bar on a scale of 0 to 6, with a mark at 3, the expected share.
class ShareBar : public QWidget {
    Q_OBJECT
  public:
    explicit ShareBar(QWidget* parent = nullptr);
    void setLength(double length);
    double length() const { return m_length; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    double end(double length) const;

    double m_length = 0;
};

class SharePanel : public QWidget {
    Q_OBJECT
  public:
    explicit SharePanel(QWidget* parent = nullptr);

    /// Shows the shares of the history for the numbers of a rule, in two halves; rows above it are hidden.
    void showShares(const history::History& history, int reds, int blues);

    /// Shows the shares that the simulated draw has counted so far, for the reds; the blues stay.
    /// \param shares  by number  \param reds  highest red  \param chosen  reds that the draw picks from
    void showDraw(std::span<const double> shares, int reds, int chosen);

  private:
    struct Row {
        toolkit::InkLabel* caption;
        QLabel* share;
        ShareBar* bar;
        void setVisible(bool inRule);
        void show(double percent, int numbers);
    };
    struct Names {
        QString caption;
        QString share;
        QString bar;
    };
    std::vector<Row> makeRows(int count, QColor toolkit::Colours::*ink, const Names& names);
    int placeRows(const std::vector<Row>& rows, int count, int firstLine);
    void place(int reds, int blues);

    toolkit::LaidOutCharacters m_characters;
    QGridLayout* m_grid;
    toolkit::InkLabel* m_expected;
    std::vector<Row> m_reds;
    std::vector<Row> m_blues;
    int m_placedReds = 0; ///< the rule that the rows stand for
    int m_placedBlues = 0;
};

} // namespace mainwin
