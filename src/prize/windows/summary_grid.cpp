#include "prize/windows/summary_grid.h"

#include <QPainter>

#include "toolkit/colours.h"
#include "toolkit/head_line.h"

using namespace Qt::StringLiterals;

namespace prize {

namespace {

constexpr int kPadding = 5;
enum Column { Level, Bets, Money, Won };

constexpr int kQuietRole = Qt::UserRole + 200;   ///< bool: the row stands back
constexpr int kHeadingRole = Qt::UserRole + 201; ///< bool: the row parts the rows above it from those below

class SummaryRows final : public toolkit::RowSource {
  public:
    explicit SummaryRows(Summary summary) : m_summary(std::move(summary)) {}

    std::int64_t count() const override {
        return static_cast<std::int64_t>(m_summary.kept.size() + 1 + m_summary.out.size());
    }
    QString text(std::int64_t row, int column) const override {
        const LevelRow* level = levelOf(row);
        if (!level)
            return column == Level ? u"被滤"_s : QString();
        switch (column) {
        case Level:
            return level->label;
        case Bets:
            return toolkit::countText(level->bets);
        case Money:
            return level->money ? toolkit::countText(*level->money) : u"不同"_s;
        default:
            return toolkit::countText(level->won);
        }
    }
    QVariant value(std::int64_t row, int column) const override {
        const LevelRow* level = levelOf(row);
        if (!level || column == Level || (column == Money && !level->money))
            return text(row, column);
        return static_cast<qlonglong>(column == Bets ? level->bets : column == Money ? *level->money : level->won);
    }
    QVariant look(std::int64_t row, int, int role) const override {
        const LevelRow* level = levelOf(row);
        if (role == kHeadingRole)
            return level == nullptr;
        if (role == kQuietRole)
            return level && (level->bets == 0 || row > parting());
        return {};
    }

  private:
    std::int64_t parting() const { return static_cast<std::int64_t>(m_summary.kept.size()); }
    const LevelRow* levelOf(std::int64_t row) const {
        if (row == parting())
            return nullptr;
        return row < parting() ? &m_summary.kept[static_cast<std::size_t>(row)]
                               : &m_summary.out[static_cast<std::size_t>(row - parting() - 1)];
    }

    Summary m_summary;
};

/// Headings stand where the cells below them do.
class SummaryModel final : public toolkit::RowsModel {
  public:
    using RowsModel::RowsModel;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal && section != Level)
            return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
        return RowsModel::headerData(section, orientation, role);
    }
};

class SummaryDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const toolkit::Colours& look = toolkit::colours(option.palette);
        const bool heading = index.data(kHeadingRole).toBool();
        painter->save();
        if (option.state & QStyle::State_Selected)
            painter->fillRect(option.rect, look.tint);
        else if (heading)
            painter->fillRect(option.rect, look.head);
        QFont font = option.font;
        font.setBold(heading);
        painter->setFont(font);
        painter->setPen(index.data(kQuietRole).toBool() ? look.quiet : look.text);
        const bool left = index.column() == Level;
        painter->drawText(option.rect.adjusted(kPadding, 0, -kPadding, 0),
                          (left ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter, index.data().toString());
        if (option.state & QStyle::State_HasFocus) {
            painter->setPen(look.focus);
            painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        }
        painter->restore();
    }
};

} // namespace

SummaryGrid::SummaryGrid(QWidget* parent) : RowsGrid(parent), m_model(new SummaryModel(this)) {
    setObjectName(u"MSFlexGrid2"_s);
    setAccessibleName(u"中奖汇总"_s);
    setItemDelegate(new SummaryDelegate(this));
    setFrameShape(QFrame::NoFrame);
    setAlternatingRowColors(false);
    growColumns(2);
    setModel(m_model);
}

void SummaryGrid::show(const Summary& summary) {
    using toolkit::CellStyle;
    m_model->show({{.heading = u"奖级"_s, .style = CellStyle::Text, .width = 96},
                   {.heading = u"中注"_s, .style = CellStyle::Number, .width = 96},
                   {.heading = u"单注"_s, .style = CellStyle::Number, .width = 104},
                   {.heading = u"小计"_s, .style = CellStyle::Number, .width = 120}},
                  std::make_unique<SummaryRows>(summary));
}

} // namespace prize
