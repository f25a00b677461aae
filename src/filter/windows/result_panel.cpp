#include "filter/windows/result_panel.h"

#include <QHeaderView>
#include <QShortcut>
#include <QVBoxLayout>

#include "base/number_text.h"
#include "filter/group_template.h"
#include "filter/step_template.h"
#include "filter/windows/row_controls.h"
#include "filter/windows/step_list.h"
#include "toolkit/ink_label.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kOfferWidth = 150;
const QString kAdvice = u"没有剩余组合：“上次过滤复位”可退回一步"_s;

QString nothingYet(const FilterMember& member) {
    return member.groupTemplate ? u"组号模板里还没有组合：在别的过滤窗口按“添加到组号模板”加入"_s
                                : u"没有组合：先在组合排列里生成"_s;
}

toolkit::FlatButton* makeButton(const QString& name, const QString& caption, const QString& toolTip,
                                toolkit::FlatButton::Look look, QWidget* parent) {
    auto* button = new toolkit::FlatButton(caption, look, parent);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    return button;
}

} // namespace

ResultPanel::ResultPanel(const FilterMember& member, QWidget* parent)
    : Card(u"ResultCard"_s, {}, parent), m_member(member), m_nothingYet(nothingYet(member)),
      m_head(new toolkit::HeadLine(this)), m_model(new RowsModel(member, this)), m_grid(new toolkit::RowsGrid(this)),
      m_page(new KeyedEdit(kDigitKeys.toString(), this)), m_offer(new QPushButton(this)),
      m_stepCount(new toolkit::InkLabel(u"StepCount"_s, &toolkit::Colours::quiet, {}, this)),
      m_steps(new StepList(u"还没有步骤：按参数名称开始过滤"_s, this)) {
    m_head->setObjectName(u"HeadLine"_s);
    body().addWidget(m_head);
    body().addLayout(buildStates(member));
    body().addLayout(buildShown(member));
    m_offer->setObjectName(u"cmdOffer"_s);
    m_offer->setMinimumWidth(kOfferWidth);
    m_offer->hide();
    connect(m_offer, &QPushButton::clicked, this, &ResultPanel::offerTaken);
    body().addWidget(m_offer, 0, Qt::AlignLeft);
    m_grid->setObjectName(u"MSFlexGrid1"_s);
    m_grid->setAccessibleName(u"组合"_s);
    m_grid->setModel(m_model);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setFrameShape(QFrame::NoFrame);
    body().addWidget(m_grid, 1);
    body().addLayout(buildPaging());
    m_steps->setFixedHeight(m_steps->minimumHeight());
    body().addWidget(m_steps);
    connectGrid(member);
    orderStops();
}

/// The keyboard goes through the panel as one reads it: the buttons above the grid come first.
void ResultPanel::orderStops() {
    QWidget* before = nullptr;
    for (const QString& name :
         {u"Command1"_s, u"cmdRetn"_s, u"Command2"_s, u"Command3"_s, u"CmdPrint"_s, u"optZzuhe(0)"_s,
          u"optZzuhe(1)"_s, u"cmdAdmb"_s, u"cmdOffer"_s, u"MSFlexGrid1"_s, u"Text1"_s, u"Command111"_s})
        if (auto* next = findChild<QWidget*>(name)) {
            if (before)
                setTabOrder(before, next);
            before = next;
        }
}

QHBoxLayout* ResultPanel::buildStates(const FilterMember& member) {
    using Look = toolkit::FlatButton::Look;
    const auto make = [this](const QString& name, const QString& caption, const QString& toolTip, Look look,
                             const Step& step) {
        toolkit::FlatButton* button = makeButton(name, caption, toolTip, look, this);
        connect(button, &QPushButton::clicked, this, [this, step] { emit stepWanted(step); });
        return button;
    };
    auto* reset = make(u"Command1"_s, u"全部复位(&S)"_s, u"回收所有被滤掉的组合"_s, Look::Plain, ResetAll{});
    auto* restore =
        make(u"cmdRetn"_s, u"上次过滤复位(&T)"_s, u"回收上次过滤被滤掉的组合"_s, Look::Plain, RestoreLast{});
    auto* invert = make(u"Command2"_s, u"全部组号反选(&U)"_s, u"反选所有被滤掉的组合"_s, Look::Step, InvertAll{});
    auto* invertLast =
        make(u"Command3"_s, u"上一步过滤反选(&R)"_s, u"反选上次被滤掉的组合"_s, Look::Step, InvertLast{});
    for (const auto& [button, code] : {std::pair(invert, kInvertAllCode), std::pair(invertLast, kInvertLastCode)})
        if (member.features.templates)
            connect(button, &toolkit::FlatButton::menuWanted, this,
                    [this, recorded = code] { emit recordWanted(recorded); });
    auto* line = new QHBoxLayout;
    line->setSpacing(6);
    line->addLayout(toolkit::joined<toolkit::FlatButton>({reset, restore}));
    line->addLayout(toolkit::joined<toolkit::FlatButton>({invert, invertLast}));
    line->addStretch();
    auto* print = makeButton(u"CmdPrint"_s, u"打印预览(&P)"_s, u"把剩余的组合写入 Print 文件，并打开查看和打印"_s,
                             toolkit::FlatButton::Look::Plain, this);
    connect(print, &QPushButton::clicked, this, &ResultPanel::printWanted);
    line->addWidget(print);
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
    if (!groupTemplateOf(member).empty())
        line->addWidget(buildTemplate(member));
    return line;
}

QWidget* ResultPanel::buildTemplate(const FilterMember& member) {
    const bool own = member.groupTemplate;
    auto* button = makeButton(u"cmdAdmb"_s, own ? u"清空组号模板(&A)"_s : u"添加到组号模板(&A)"_s,
                              own ? u"删除组号模板里的所有组合，之后可以重新添加"_s
                                  : u"把剩余的组合加入组号模板，相同的组合只留一注"_s,
                              toolkit::FlatButton::Look::Plain, this);
    connect(button, &QPushButton::clicked, this, &ResultPanel::templateWanted);
    return button;
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
    auto* steps = new QLabel(u"步骤"_s, this);
    steps->setObjectName(u"StepHeading"_s);
    QFont bold = steps->font();
    bold.setBold(true);
    steps->setFont(bold);
    line->addWidget(steps);
    line->addWidget(m_stepCount);
    line->addStretch();
    line->addWidget(caption);
    line->addWidget(m_page);
    line->addWidget(turn);
    return line;
}

void ResultPanel::connectGrid(const FilterMember& member) {
    if (!member.features.doubleClick)
        return;
    connect(m_grid, &toolkit::RowsGrid::doubleClicked, this, [this](const QModelIndex& cell) {
        m_grid->setCurrentIndex(m_model->index(cell.row(), 0));
        emit rowDoubleClicked(cell.row());
    });
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete}) {
        auto* toggle = new QShortcut(key, m_grid, nullptr, nullptr, Qt::WidgetShortcut);
        connect(toggle, &QShortcut::activated, this, [this] {
            if (m_grid->currentIndex().isValid())
                emit rowDoubleClicked(m_grid->currentIndex().row());
        });
    }
    connect(m_grid->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this] { emit rowDoubleClicked(-1); });
}

void ResultPanel::show(const View& view, Shows shows) {
    m_model->show(view);
    m_rows = view.rows;
    m_grid->setEmptyText(shows == Shows::Page ? u"这一页没有剩余组合：换一个页号，或按任一过滤看全部剩余"_s
                         : shows == Shows::Left ? kAdvice
                                                : m_nothingYet);
    m_grid->scrollToTop();
    m_head->tellShown(shows == Shows::Reasons ? u"全部含缘故"_s : shows == Shows::Page ? u"剩余的一页"_s : u"剩余"_s);
}

void ResultPanel::tell(const Outcome& outcome, std::int64_t total, const QString& step) {
    if (total == 0)
        m_grid->setEmptyText(m_nothingYet);
    m_head->tell({.total = total,
                  .left = outcome.left,
                  .taken = outcome.taken,
                  .step = step,
                  .ms = outcome.ms,
                  .shows = m_head->shown(),
                  .advice = total > 0 ? kAdvice : m_nothingYet});
}

void ResultPanel::showSteps(const std::vector<DoneStep>& steps) {
    m_stepCount->setText(steps.empty() ? QString() : QString::number(steps.size()));
    m_steps->show(steps);
}

void ResultPanel::offer(const QString& caption, const QString& toolTip, const QString& emptyText) {
    m_offer->setText(caption);
    m_offer->setToolTip(toolTip);
    if (caption.isEmpty() && m_offer->hasFocus())
        m_grid->setFocus(); // on what has come
    m_offer->setVisible(!caption.isEmpty());
    m_nothingYet = caption.isEmpty() ? nothingYet(m_member) : emptyText;
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
