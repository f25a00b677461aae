#include "mainwin/windows/history_model.h"

#include <algorithm>

#include <QFont>

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kNumberWidth = 38;
constexpr int kNumberDigits = 2;

std::vector<toolkit::GridColumn> nineColumns() {
    using toolkit::CellStyle;
    std::vector<toolkit::GridColumn> columns{{.heading = u"序数"_s, .width = 56},
                                             {.heading = u"期号"_s, .width = 80}};
    for (int red = 1; red <= HistoryModel::Blue - HistoryModel::FirstRed; ++red)
        columns.push_back(
            {.heading = u"红%1"_s.arg(red), .style = CellStyle::Red, .width = kNumberWidth, .digits = kNumberDigits});
    columns.push_back(
        {.heading = u"蓝球"_s, .style = CellStyle::Blue, .width = 46, .least = 46, .digits = kNumberDigits});
    return columns;
}

} // namespace

class HistoryModel::Draws final : public toolkit::RowSource {
  public:
    explicit Draws(const history::History& history) : m_history(history) { m_newest.setBold(true); }

    std::int64_t count() const override { return m_history.Lsnum; }

    QString text(std::int64_t row, int column) const override {
        const int number = numberAt(row, column);
        if (column == RowNumber && row >= firstTyped)
            return u"%1期"_s.arg(number);
        return column >= FirstRed ? u"%1"_s.arg(number, kNumberDigits, 10, QChar(u'0')) : QString::number(number);
    }

    QVariant value(std::int64_t row, int column) const override { return numberAt(row, column); }

    QVariant look(std::int64_t row, int column, int role) const override {
        if (role == Qt::FontRole)
            return row == newest && column >= FirstRed ? QVariant(m_newest) : QVariant();
        if (role != Qt::ForegroundRole || column == Issue)
            return {};
        return column == RowNumber ? rowNumber : column == Blue ? blue : red;
    }

    int firstTyped = 0; ///< row; the typed ones are the last ones
    int newest = -1;    ///< row
    QColor rowNumber;
    QColor red;
    QColor blue;

  private:
    int numberAt(std::int64_t row, int column) const {
        if (column == RowNumber)
            return static_cast<int>(row) + 1;
        // Columns 1..8 are the slots 0..7 of a draw.
        return m_history.Lshm[static_cast<std::size_t>(row) + 1][static_cast<std::size_t>(column - Issue)];
    }

    const history::History& m_history;
    QFont m_newest; ///< the style alone: the rest is the grid's
};

HistoryModel::HistoryModel(const history::History& history, QObject* parent) : RowsModel(parent) {
    auto draws = std::make_unique<Draws>(history);
    m_draws = draws.get();
    show(nineColumns(), std::move(draws));
    m_draws->firstTyped = rowCount();
    m_draws->newest = rowCount() - 1;
}

void HistoryModel::reload() {
    m_draws->firstTyped = static_cast<int>(m_draws->count());
    m_draws->newest = m_draws->firstTyped - 1;
    RowsModel::reload();
}

void HistoryModel::appendTyped() {
    m_draws->newest = rowCount();
    rowsAppended(1);
    showNewest(rowCount() - 1); // no longer in bold
}

void HistoryModel::removeLast() {
    m_draws->newest = rowCount() - 2;
    rowsRemoved(1);
    m_draws->firstTyped = std::min(m_draws->firstTyped, rowCount());
    showNewest(rowCount());
}

/// \param draw  0: none
void HistoryModel::showNewest(int draw) {
    if (draw > 0)
        emit dataChanged(index(draw - 1, FirstRed), index(draw - 1, Blue), {Qt::FontRole});
}

void HistoryModel::changed(int draw) {
    rowsChanged(draw - 1, rowCount() - 1);
}

void HistoryModel::setColours(const QColor& rowNumber, const QColor& red, const QColor& blue) {
    m_draws->rowNumber = rowNumber;
    m_draws->red = red;
    m_draws->blue = blue;
}

} // namespace mainwin
