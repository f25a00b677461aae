#include "toolkit/line_list.h"

#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kAside = Qt::UserRole;
constexpr int kLeastRow = 21; // logical pixels
constexpr int kMargin = 6;
constexpr int kNumber = 20; // room of a number in front
constexpr int kLeastRows = 3;

int rowHeight(const QFontMetrics& metrics) {
    return std::max(kLeastRow, metrics.height() + 2);
}

class LineDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    bool numbered = false;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {0, rowHeight(option.fontMetrics)};
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const Colours& look = colours(option.palette);
        if (option.state & QStyle::State_Selected)
            painter->fillRect(option.rect, look.tint);
        painter->setPen(look.line);
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        QRect room = option.rect.adjusted(numbered ? kMargin : 0, 0, numbered ? -kMargin : 0, 0);
        painter->setPen(look.quiet);
        if (numbered) {
            painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter, QString::number(index.row() + 1));
            room.setLeft(room.left() + kNumber);
        }
        const QString text = index.data().toString();
        const int width = std::min(option.fontMetrics.horizontalAdvance(text), room.width());
        const QRect aside = room.adjusted(width + kMargin, 0, 0, 0);
        painter->drawText(
            aside, Qt::AlignRight | Qt::AlignVCenter,
            option.fontMetrics.elidedText(index.data(kAside).toString(), Qt::ElideRight, aside.width()));
        painter->setPen(look.text);
        painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(text, Qt::ElideRight, room.width()));
    }
};

} // namespace

LineList::LineList(const QString& name, const QString& empty, QWidget* parent)
    : QListView(parent), m_empty(empty), m_lines(new QStandardItemModel(this)) {
    setObjectName(name);
    setModel(m_lines);
    setItemDelegate(new LineDelegate(this));
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    viewport()->setAutoFillBackground(false);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& line) {
        if (m_telling && line.isValid())
            emit lineChosen(line.row());
    });
}

void LineList::setNumbered() {
    static_cast<LineDelegate*>(itemDelegate())->numbered = true;
    setSelectionMode(SingleSelection);
    setFocusPolicy(Qt::StrongFocus);
}

void LineList::show(const std::vector<Line>& lines) {
    m_telling = false;
    m_lines->clear();
    for (const Line& line : lines) {
        auto* item = new QStandardItem(line.text);
        item->setData(line.aside, kAside);
        item->setToolTip(line.aside.isEmpty() ? line.text : line.text + u"  "_s + line.aside);
        m_lines->appendRow(item);
    }
    m_telling = true;
    viewport()->update();
}

int LineList::count() const {
    return m_lines->rowCount();
}

void LineList::mark(int line) {
    m_telling = false;
    setCurrentIndex(line < 0 ? QModelIndex() : m_lines->index(line, 0));
    m_telling = true;
}

QSize LineList::minimumSizeHint() const {
    return {0, kLeastRows * rowHeight(fontMetrics())};
}

void LineList::paintEvent(QPaintEvent* event) {
    if (count() > 0) {
        QListView::paintEvent(event);
        return;
    }
    QPainter painter(viewport());
    painter.setPen(colours(palette()).quiet);
    painter.drawText(viewport()->rect().adjusted(0, 2, 0, 0), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                     m_empty);
}

} // namespace toolkit
