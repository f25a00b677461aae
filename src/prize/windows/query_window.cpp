#include "prize/windows/query_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "prize/report.h"
#include "prize/windows/ball_painting.h"
#include "prize/windows/summary_grid.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/card.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/ink_label.h"
#include "toolkit/rows_grid.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace prize {

namespace {

using toolkit::CellStyle;
using toolkit::Colours;
using toolkit::InkLabel;

constexpr QSize kUsefulSize{1264, 720};
constexpr int kMargin = 8;
constexpr int kWideSpacing = 20;
constexpr int kStripMargin = 6; // besides that of a card
constexpr int kRowHeight = 24;
constexpr int kPageBoxWidth = 60;
constexpr int kTagPadding = 5;
constexpr qreal kTagCorner = 3;
constexpr int kAmountPixels = 18;
constexpr int kKeptShare = 776; // of the width, beside the summary
constexpr int kSummaryShare = 480;
constexpr int kUpperShare = 360; // of the height: six levels twice are seen whole in a window of the useful size
constexpr int kLowerShare = 270;
constexpr double kMostGrowth = 1.5;         // of a list that stands alone: two keep their columns under each other
constexpr std::int64_t kManyBets = 200'000; // from which on the writing of a report is seen

toolkit::GridColumn gridColumn(const ListColumn& column) {
    using enum ListColumn::Kind;
    const QString heading = QString::fromUtf8(column.heading);
    switch (column.kind) {
    case Red:
        return {.heading = heading, .style = CellStyle::Red, .width = 50};
    case Blue:
        return {.heading = heading, .style = CellStyle::Blue, .width = 56};
    case Count:
        return {.heading = heading, .width = 58};
    case Label:
        return {.heading = heading, .width = 92};
    case Money:
        return {.heading = heading, .style = CellStyle::Number, .width = 88};
    case Reason:
        return {.heading = heading, .style = CellStyle::Text, .width = 240};
    default:
        return {.heading = heading, .width = 84};
    }
}

void showRows(toolkit::RowsModel& model, const ListKind& kind, const sql::Rows& rows) {
    std::vector<toolkit::GridColumn> columns;
    for (const ListColumn& column : kind.columns)
        columns.push_back(gridColumn(column));
    model.show(std::move(columns), std::make_unique<toolkit::RecordRows>(rows));
}

/// A word in a frame: 剩余, 被滤, 盈, 亏.
class Tag final : public InkLabel {
  public:
    Tag(const QString& name, const QString& word, Ink ink) : InkLabel(name, ink, word) {
        setContentsMargins(kTagPadding, 1, kTagPadding, 1);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        InkLabel::paintEvent(event);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kTagCorner, kTagCorner);
    }
};

InkLabel* makeAmount(const QString& name, const QString& text, InkLabel::Ink ink = &Colours::text) {
    auto* label = new InkLabel(name, ink, text);
    QFont font = label->font();
    font.setBold(true);
    font.setPixelSize(kAmountPixels);
    label->setFont(font);
    return label;
}

QPushButton* makeButton(const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false); // Enter turns a page, and nothing else
    return button;
}

} // namespace

QueryWindow::QueryWindow(Query query, std::filesystem::path userFolder, const toolkit::PlaceStore& places,
                         QWidget* parent)
    : QDialog(parent), m_query(std::move(query)), m_userFolder(std::move(userFolder)), m_kept(makeList(false)),
      m_out(makeList(true)) {
    setObjectName(QString::fromUtf8(m_query.entry().kind.form));
    setWindowTitle(QString::fromUtf16(m_query.entry().title.data(), static_cast<int>(m_query.entry().title.size())));
    {
        const toolkit::BusyCursor busy;
        m_query.open();
    }
    layOut();
    showLists();
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, places);
    m_kept.grid->setFocus();
}

QueryWindow::List QueryWindow::makeList(bool out) {
    const QueryKind& kind = m_query.entry().kind;
    auto* grid = new toolkit::RowsGrid(this);
    grid->setObjectName(!out ? u"MSFlexGrid1"_s : kind.prizes ? u"MSFlexGrid3"_s : u"MSFlexGrid2"_s);
    grid->setFrameShape(QFrame::NoFrame);
    grid->setAccessibleName(out ? u"被滤的组合"_s : u"剩余的组合"_s);
    grid->setEmptyText(out ? u"没有被滤去的组合"_s : u"没有组合：先在组合排列里生成"_s);
    grid->verticalHeader()->setDefaultSectionSize(std::max(kRowHeight, grid->fontMetrics().height() + 4));
    grid->setItemDelegate(
        new BallDelegate(m_query.draw(), out ? BallDelegate::List::Out : BallDelegate::List::Kept, grid));
    if (kind.out.columns.empty())
        grid->growColumns(kMostGrowth);
    auto* model = new toolkit::RowsModel(grid);
    grid->setModel(model);
    auto* title = new InkLabel(u"Label7(%1)"_s.arg(out ? 1 : 0), &Colours::text, {}, this);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    return {out ? kind.out : kind.kept, model, grid, title};
}

toolkit::Card* QueryWindow::makeListCard(bool out) {
    const List& list = out ? m_out : m_kept;
    auto* card = new toolkit::Card(out ? u"OutCard"_s : u"KeptCard"_s, {});
    QHBoxLayout& head = card->head();
    head.addWidget(list.title);
    head.addSpacing(kMargin);
    head.addWidget(out ? new Tag(u"OutTag"_s, u"被滤"_s, &Colours::quiet)
                       : new Tag(u"KeptTag"_s, u"剩余"_s, &Colours::accentText));
    head.addStretch();
    if (out) {
        addPaging(head, u"Text2"_s, u"Command2"_s, &Query::pageOut);
    } else {
        QPushButton* sort = makeButton(u"Command1"_s, u"中奖排序(&A)"_s);
        connect(sort, &QPushButton::clicked, this, [this] {
            const toolkit::BusyCursor busy;
            m_query.sort();
            showLists();
        });
        head.addWidget(sort);
        addPaging(head, u"Text1"_s, u"Command111"_s, &Query::pageKept);
    }
    card->body().addWidget(list.grid, 1);
    return card;
}

void QueryWindow::addPaging(QHBoxLayout& head, const QString& boxName, const QString& buttonName,
                            void (Query::*turn)(const QString&)) {
    auto* box = new QLineEdit(u"1"_s);
    box->setObjectName(boxName);
    box->setAccessibleName(u"页"_s);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(kPageBoxWidth);
    QPushButton* button = makeButton(buttonName, u"翻页(&U)"_s);
    const auto turnPage = [this, box, turn] {
        const toolkit::BusyCursor busy;
        (m_query.*turn)(box->text());
        if (turn == &Query::pageOut)
            showOut();
        else
            showKept();
    };
    connect(button, &QPushButton::clicked, this, turnPage);
    connect(box, &QLineEdit::returnPressed, this, turnPage);
    head.addSpacing(kMargin);
    head.addWidget(new InkLabel({}, &Colours::quiet, u"页"_s));
    head.addWidget(box);
    head.addWidget(button);
}

toolkit::Card* QueryWindow::makeStrip() {
    auto* card = new toolkit::Card(u"DrawCard"_s, {});
    auto* strip = new QHBoxLayout;
    strip->setContentsMargins(kStripMargin, kStripMargin, kStripMargin, kStripMargin);
    strip->setSpacing(kMargin);
    strip->addWidget(new InkLabel({}, &Colours::quiet, u"第"_s));
    InkLabel* issue = makeAmount(u"Issue"_s, QString::number(m_query.draw().front()));
    strip->addWidget(issue);
    strip->addWidget(new InkLabel({}, &Colours::quiet, u"期"_s));
    strip->addSpacing(kMargin);
    strip->addWidget(new DrawBalls(m_query.draw()));
    strip->addStretch();
    addMoney(*strip);
    card->body().addLayout(strip);
    return card;
}

void QueryWindow::addMoney(QHBoxLayout& strip) {
    const QueryKind& kind = m_query.entry().kind;
    const bool counted = kind.price == 0;
    strip.addWidget(new InkLabel({}, &Colours::quiet, counted ? u"剩余组合:"_s : u"所需金额:"_s));
    strip.addWidget(
        makeAmount(u"Label6"_s, counted ? u"%1注"_s.arg(m_query.keptCount()) : u"%1元"_s.arg(m_query.Cost)));
    if (kind.prizes)
        addBalance(strip);
    else
        strip.addWidget(makeQuit());
}

void QueryWindow::addBalance(QHBoxLayout& strip) {
    const std::int64_t balance = m_query.Income - m_query.Cost;
    const InkLabel::Ink ink = balance > 0 ? &Colours::green : &Colours::red;
    strip.addSpacing(kWideSpacing);
    strip.addWidget(new InkLabel({}, &Colours::quiet, u"收入金额:"_s));
    strip.addWidget(makeAmount(u"Label1"_s, u"%1元"_s.arg(m_query.Income)));
    strip.addSpacing(kWideSpacing);
    strip.addWidget(new InkLabel({}, &Colours::quiet, u"盈亏金额:"_s));
    strip.addWidget(makeAmount(u"Label8"_s, u"%1元"_s.arg(balance), ink));
    strip.addWidget(new Tag(u"BalanceTag"_s, balance > 0 ? u"盈"_s : balance < 0 ? u"亏"_s : u"平"_s, ink));
}

toolkit::Card* QueryWindow::makeSummary() {
    auto* card = new toolkit::Card(u"SummaryCard"_s, u"中奖汇总"_s);
    card->head().addWidget(makeQuit());
    auto* grid = new SummaryGrid;
    grid->show(m_query.summary());
    card->body().addWidget(grid, 1);
    return card;
}

QPushButton* QueryWindow::makeQuit() {
    QPushButton* button = makeButton(u"cmdQut"_s, QString::fromUtf8(m_query.entry().kind.quit));
    connect(button, &QPushButton::clicked, this, &QueryWindow::quit);
    return button;
}

void QueryWindow::layOut() {
    auto* lists = new QGridLayout;
    lists->setSpacing(kMargin);
    lists->addWidget(makeListCard(false), 0, 0, 1, m_query.entry().kind.prizes ? 1 : 2);
    if (m_query.entry().kind.prizes)
        lists->addWidget(makeSummary(), 0, 1);
    if (m_out.kind.columns.empty()) {
        m_out.grid->hide();
        m_out.title->hide();
    } else {
        lists->addWidget(makeListCard(true), 1, 0, 1, 2);
        lists->setRowStretch(0, kUpperShare);
        lists->setRowStretch(1, kLowerShare);
    }
    lists->setColumnStretch(0, kKeptShare);
    lists->setColumnStretch(1, kSummaryShare);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kMargin);
    column->addWidget(makeStrip());
    column->addLayout(lists, 1);
    m_kept.title->setText(
        QString::fromUtf8(m_query.entry().kind.keptTitle).replace(u"%1"_s, QString::number(m_query.keptCount())));
    m_out.title->setText(QString::fromUtf8(detail::kListTitle).arg(m_query.outCount()));
}

void QueryWindow::showLists() {
    showKept();
    showOut();
}

void QueryWindow::showKept() {
    showRows(*m_kept.model, m_kept.kind, m_query.kept());
}

void QueryWindow::showOut() {
    if (!m_out.kind.columns.empty())
        showRows(*m_out.model, m_out.kind, m_query.out());
}

void QueryWindow::quit() {
    if (!m_query.entry().kind.prizes || report())
        accept();
}

/// \return false when the user gave it up, so that the window stays
bool QueryWindow::report() {
    toolkit::DialogBoxes boxes(this);
    const bool seen = m_query.lastOpened().count() >= kManyBets;
    try {
        const auto progress = seen ? boxes.progress(u"正在写入盈亏报告"_s) : nullptr;
        const toolkit::BusyCursor busy;
        return !writeReport(m_userFolder, m_query, QDateTime::currentDateTime(), progress.get()).empty();
    } catch (const std::exception& failed) {
        boxes.warn(workspace::failureMessage(failed, u"盈亏报告没有写入"_s, u"盈亏报告"_s,
                                             u"组合表和以前的报告都没有改变，排除原因后可以再查询一次。"_s));
    }
    return true;
}

} // namespace prize
