#include "filter/windows/rows_model.h"

#include <unordered_set>

#include <QColor>

namespace filter {

namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kTickRoom = 22; // in front of the numbers, where a view has marks

struct Widths {
    int index, red, blue, value;
};
constexpr Widths kAlone{84, 48, 56, 100};        // eight columns and a value fill the grid of a window of 1280 pixels
constexpr Widths kBesideReasons{56, 32, 38, 44}; // there, so that a reason can be read without scrolling

int widthOf(toolkit::CellStyle style, const Widths& widths) {
    switch (style) {
    case toolkit::CellStyle::Plain:
        return widths.index;
    case toolkit::CellStyle::Red:
        return widths.red;
    case toolkit::CellStyle::Blue:
        return widths.blue;
    case toolkit::CellStyle::Number:
        return widths.value;
    default:
        return 0;
    }
}

toolkit::CellStyle styleOf(const FilterMember& member, int column, bool isText) {
    if (column == 0)
        return toolkit::CellStyle::Plain;
    if (isText)
        return toolkit::CellStyle::Text;
    if (column <= member.reds)
        return toolkit::CellStyle::Red;
    return column <= member.numbers() ? toolkit::CellStyle::Blue : toolkit::CellStyle::Number;
}

std::vector<toolkit::GridColumn> columnsOf(const View& view, const FilterMember& member) {
    const bool reasons = !view.columns.empty() && view.columns.back().isText;
    std::vector<toolkit::GridColumn> columns;
    for (const GridColumn& told : view.columns) {
        const int place = static_cast<int>(columns.size());
        const toolkit::CellStyle style = styleOf(member, place, told.isText);
        const int least = told.widthTwips / kTwipsPerPixel;
        columns.push_back({.heading = QString::fromStdString(told.heading),
                           .style = style,
                           .width = std::max(least, widthOf(style, kAlone)),
                           .narrow = reasons ? widthOf(style, kBesideReasons) : 0,
                           .least = least,
                           .mark = reasons && place == 0 ? kTickRoom : 0});
    }
    return columns;
}

} // namespace

class RowsModel::ViewRows final : public toolkit::RecordRows {
  public:
    explicit ViewRows(const View& view) : RecordRows(view.rows), m_states(view.states) {}

    void setGrey(std::int64_t row, bool grey) {
        if (grey)
            m_grey.insert(row);
        else
            m_grey.erase(row);
    }

    // Only a view of all rows knows the state of each; in the others all were in play when they were shown.
    toolkit::RowState state(std::int64_t row) const override {
        if (row < m_states.count()) {
            const sql::Value out = m_states.at(row, 0);
            const auto* flag = std::get_if<std::int64_t>(&out);
            return flag && *flag != 0 ? toolkit::RowState::Out : toolkit::RowState::InPlay;
        }
        return m_grey.contains(row) ? toolkit::RowState::Out : toolkit::RowState::Plain;
    }

    QVariant look(std::int64_t row, int column, int role) const override {
        const bool grey = role == Qt::BackgroundRole && column == 0 && m_grey.contains(row);
        return grey ? QVariant(QColor(178, 178, 178)) : QVariant();
    }

  private:
    sql::Rows m_states;
    std::unordered_set<std::int64_t> m_grey;
};

RowsModel::RowsModel(const FilterMember& member, QObject* parent) : toolkit::RowsModel(parent), m_member(member) {}

void RowsModel::show(const View& view) {
    auto rows = std::make_unique<ViewRows>(view);
    m_view = rows.get();
    toolkit::RowsModel::show(columnsOf(view, m_member), std::move(rows));
}

void RowsModel::setGrey(int row, bool grey) {
    m_view->setGrey(row, grey);
    rowsChanged(row, row);
}

} // namespace filter
