#include "filter/windows/result_panel.h"

#include <utility>

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include "base/number_text.h"
#include "filter/windows/row_controls.h"
#include "toolkit/ink_label.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kHeadingPadding = 10; // pixels left and right of a heading, together
constexpr int kRowHeight = 22;
constexpr int kTickRoom = 22; // in front of the numbers, where a view has marks

struct Widths {
    int index, red, blue, value;
};
constexpr Widths kAlone{84, 48, 56, 100};        // eight columns and a value fill the grid of a window of 1280 pixels
constexpr Widths kBesideReasons{56, 32, 38, 44}; // there, so that a reason can be read without scrolling
constexpr int kRoomy = 800;                      // width of a grid that has room for both

const QString kAdvice = u"没有剩余组合：“上次过滤复位”可退回一步"_s;

} // namespace

ResultPanel::ResultPanel(const FilterMember& member, QWidget* parent)
    : Card(u"ResultCard"_s, {}, parent), m_head(new toolkit::HeadLine(this)), m_model(new RowsModel(member, this)),
      m_grid(new toolkit::DataGrid(this)), m_page(new KeyedEdit(kDigitKeys.toString(), this)) {
    m_head->setObjectName(u"HeadLine"_s);
    body().addWidget(m_head);
    body().addLayout(buildStates());
    body().addLayout(buildShown(member));
    m_grid->setObjectName(u"MSFlexGrid1"_s);
    m_grid->setAccessibleName(u"组合"_s);
    m_grid->setModel(m_model);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setFrameShape(QFrame::NoFrame);
    m_grid->verticalHeader()->setDefaultSectionSize(std::max(kRowHeight, fontMetrics().height() + 2));
    body().addWidget(m_grid, 1);
    body().addLayout(buildPaging());
    connectGrid(member);
}

QHBoxLayout* ResultPanel::buildStates() {
    using Look = toolkit::FlatButton::Look;
    const auto make = [this](const QString& name, const QString& caption, const QString& toolTip, Look look,
                             const Step& step) {
        auto* button = new toolkit::FlatButton(caption, look, this);
        button->setObjectName(name);
        button->setToolTip(toolTip);
        connect(button, &QPushButton::clicked, this, [this, step] { emit stepWanted(step); });
        return button;
    };
    auto* reset = make(u"Command1"_s, u"全部复位(&S)"_s, u"回收所有被滤掉的组合"_s, Look::Plain, ResetAll{});
    auto* restore =
        make(u"cmdRetn"_s, u"上次过滤复位(&T)"_s, u"回收上次过滤被滤掉的组合"_s, Look::Plain, RestoreLast{});
    auto* invert = make(u"Command2"_s, u"全部组号反选(&U)"_s, u"反选所有被滤掉的组合"_s, Look::Step, InvertAll{});
    auto* invertLast =
        make(u"Command3"_s, u"上一步过滤反选(&R)"_s, u"反选上次被滤掉的组合"_s, Look::Step, InvertLast{});
    auto* line = new QHBoxLayout;
    line->setSpacing(6);
    line->addLayout(toolkit::joined<toolkit::FlatButton>({reset, restore}));
    line->addLayout(toolkit::joined<toolkit::FlatButton>({invert, invertLast}));
    line->addStretch();
    return line;
}

QHBoxLayout* ResultPanel::buildShown(const FilterMember& member) {
    auto* line = new QHBoxLayout;
    if (member.features.reasons) {
        auto* caption =
            new toolkit::InkLabel(u"FrameReasonsHeading"_s, &toolkit::Colours::quiet, u"过滤缘故显示"_s, this);
        auto* group = new QWidget(this);
        group->setObjectName(u"FrameReasons"_s);
        auto* left = new toolkit::Segment(u"过滤剩余"_s, group);
        left->setObjectName(u"optZzuhe(0)"_s);
        left->setChecked(true);
        auto* all = new toolkit::Segment(u"所有组合(含被过滤)显示"_s, group);
        all->setObjectName(u"optZzuhe(1)"_s);
        all->showWhole();
        auto* pair = toolkit::joined<toolkit::Segment>({left, all});
        pair->setContentsMargins(0, 0, 0, 0);
        group->setLayout(pair);
        connect(all, &QRadioButton::clicked, this, &ResultPanel::reasonsWanted);
        line->addWidget(caption);
        line->addWidget(group);
    }
    line->addStretch();
    auto* print = new toolkit::FlatButton(u"打印预览(&P)"_s, toolkit::FlatButton::Look::Plain, this);
    print->setObjectName(u"CmdPrint"_s);
    print->setToolTip(u"还需打印预览功能"_s);
    print->setEnabled(false); // there is no print preview in this program yet
    line->addWidget(print);
    return line;
}

QHBoxLayout* ResultPanel::buildPaging() {
    auto* caption = new QLabel(u"页"_s, this);
    caption->setObjectName(u"PageHeading"_s);
    m_page->setObjectName(u"Text1"_s);
    m_page->setAccessibleName(u"页号"_s);
    m_page->setText(u"1"_s);
    m_page->setAlignment(Qt::AlignRight);
    m_page->setFixedSize(50, 24);
    auto* turn = new toolkit::FlatButton(u"翻页(&U)"_s, toolkit::FlatButton::Look::Plain, this);
    turn->setObjectName(u"Command111"_s);
    connect(turn, &QPushButton::clicked, this, &ResultPanel::pageWanted);
    connect(m_page, &QLineEdit::returnPressed, this, &ResultPanel::pageWanted);
    auto* line = new QHBoxLayout;
    line->addStretch();
    line->addWidget(caption);
    line->addWidget(m_page);
    line->addWidget(turn);
    return line;
}

void ResultPanel::connectGrid(const FilterMember& member) {
    QHeaderView* header = m_grid->horizontalHeader();
    connect(header, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!m_applying)
            m_dragged[column] = width;
    });
    if (!member.features.doubleClick)
        return;
    connect(m_grid, &toolkit::DataGrid::doubleClicked, this, [this](const QModelIndex& cell) {
        m_grid->setCurrentIndex(m_model->index(cell.row(), 0));
        emit rowDoubleClicked(cell.row());
    });
    connect(header, &QHeaderView::sectionDoubleClicked, this, [this] { emit rowDoubleClicked(-1); });
}

void ResultPanel::show(View view, Shows shows) {
    m_shows = shows;
    m_applying = true; // the header resizes columns of its own when their count changes
    m_model->show(std::move(view));
    m_grid->setEmptyText(shows == Shows::Page ? u"这一页没有剩余组合：换一个页号，或按任一过滤看全部剩余"_s
                         : shows == Shows::Left ? kAdvice
                                                : u"没有组合：先在组合排列里生成"_s);
    m_grid->scrollToTop();
    applyWidths();
    m_applying = false;
    m_head->tellShown(shows == Shows::Reasons ? u"全部含缘故"_s : shows == Shows::Page ? u"剩余的一页"_s : u"剩余"_s);
}

void ResultPanel::tell(const Outcome& outcome, std::int64_t total, const QString& step) {
    m_head->tell({.total = total,
                  .left = outcome.left,
                  .taken = outcome.taken,
                  .step = step,
                  .ms = outcome.ms,
                  .shows = m_head->shown(),
                  .advice = total > 0 ? kAdvice : u"没有组合：先在组合排列里生成"_s});
}

int ResultPanel::wishedWidth(std::size_t column) const {
    const View& view = m_model->view();
    const GridColumn& told = view.columns[column];
    const int heading =
        m_grid->horizontalHeader()->fontMetrics().horizontalAdvance(QString::fromStdString(told.heading));
    const bool reasons = m_shows == Shows::Reasons;
    const Widths& widths = reasons && m_grid->width() < kRoomy ? kBesideReasons : kAlone;
    const int width = std::max(&widths == &kAlone ? told.widthTwips / kTwipsPerPixel : 0, heading + kHeadingPadding);
    switch (m_model->styleOf(static_cast<int>(column))) {
    case toolkit::CellStyle::Plain:
        return std::max(width, widths.index) + (reasons ? kTickRoom : 0);
    case toolkit::CellStyle::Red:
        return std::max(width, widths.red);
    case toolkit::CellStyle::Blue:
        return std::max(width, widths.blue);
    case toolkit::CellStyle::Text:
        return std::max(told.widthTwips / kTwipsPerPixel, width);
    default:
        return std::max(width, widths.value);
    }
}

// A reason takes what is left, a value gives way to what the columns before it need.
int ResultPanel::fittedLast(int wished, int room) const {
    const GridColumn& last = m_model->view().columns.back();
    if (last.isText)
        return std::max(wished, room);
    const int heading =
        m_grid->horizontalHeader()->fontMetrics().horizontalAdvance(QString::fromStdString(last.heading));
    return std::min(wished, std::max({room, heading + kHeadingPadding, last.widthTwips / kTwipsPerPixel}));
}

void ResultPanel::applyWidths() {
    const bool before = std::exchange(m_applying, true);
    int room = m_grid->width() - m_grid->verticalScrollBar()->sizeHint().width();
    const auto& columns = m_model->view().columns;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const auto dragged = m_dragged.find(static_cast<int>(column));
        int width = dragged != m_dragged.end() ? dragged->second : wishedWidth(column);
        if (column + 1 == columns.size() && dragged == m_dragged.end())
            width = fittedLast(width, room);
        m_grid->setColumnWidth(static_cast<int>(column), width);
        room -= width;
    }
    m_applying = before;
}

void ResultPanel::resizeEvent(QResizeEvent* event) {
    Card::resizeEvent(event);
    applyWidths();
}

QString ResultPanel::indexText(int row) const {
    if (row < 0)
        return m_model->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString();
    return m_model->index(row, 0).data().toString();
}

double ResultPanel::pageNumber() const {
    return base::val(m_page->text().toStdString());
}

} // namespace filter
