#include "filter/windows/integrated_page.h"

#include <QFocusEvent>
#include <QVBoxLayout>

#include "filter/tolerance.h"
#include "filter/windows/row_controls.h"
#include "toolkit/ink_label.h"
#include "toolkit/told_label.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr QSize kToleranceBox{40, 22};

/// What the row of a ticked parameter is compared with.
QString comparedWith(const Parameter& parameter, const WindowState& state) {
    const RowState& row = state.row(parameter);
    if (state.mode == Mode::List && !parameter.isInterval())
        return QString::fromStdString(row.list).simplified();
    return QString::fromStdString(row.low) + u'~' + QString::fromStdString(row.high);
}

} // namespace

IntegratedPage::IntegratedPage(const FilterMember& member, QWidget* parent)
    : QWidget(parent), m_member(member), m_sentence(new toolkit::ToldLabel(u"IntegratedSentence"_s, 1, this)),
      m_run(new toolkit::FlatButton(member.features.tolerance ? u"多选(勾选)参数整合过滤"_s
                                                              : u"多(名称勾选)参数整合过滤"_s,
                                    toolkit::FlatButton::Look::Step, this)),
      m_ticked(new toolkit::LineList(u"TickedList"_s, u"还没有勾选：在参数名称前打勾"_s, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addLayout(buildLogic());
    if (member.features.tolerance)
        column->addLayout(buildTolerance());
    column->addWidget(m_sentence);
    m_run->setObjectName(u"Option29"_s);
    m_run->standOut();
    connect(m_run, &QPushButton::clicked, this, &IntegratedPage::runWanted);
    if (member.features.templates)
        connect(m_run, &toolkit::FlatButton::menuWanted, this, &IntegratedPage::recordWanted);
    column->addWidget(m_run);
    column->addWidget(new toolkit::InkLabel(u"TickedHeading"_s, &toolkit::Colours::quiet, u"已勾选的参数"_s, this));
    column->addWidget(m_ticked, 1);
    if (!member.exportName.empty()) {
        auto* exporting = new toolkit::FlatButton(u"多选参数导出"_s, toolkit::FlatButton::Look::Plain, this);
        exporting->setObjectName(QString::fromUtf8(exportOptionOf(member)));
        exporting->setToolTip(u"把剩余的组合和勾选参数的值写成表格文件"_s);
        connect(exporting, &QPushButton::clicked, this, &IntegratedPage::exportWanted);
        column->addWidget(exporting);
    }
    QWidget* before = m_or;
    for (QWidget* next : {static_cast<QWidget*>(m_tolerance), static_cast<QWidget*>(m_count),
                          static_cast<QWidget*>(m_percent), static_cast<QWidget*>(m_run)})
        if (next) {
            setTabOrder(before, next);
            before = next;
        }
}

QLayout* IntegratedPage::buildLogic() {
    auto* group = new QWidget(this);
    group->setObjectName(u"FrameLogic"_s);
    m_and = new toolkit::Segment(u"逻辑和"_s, group);
    m_and->setObjectName(u"Option37(0)"_s);
    m_and->setChecked(true);
    m_and->setToolTip(u"勾选的条件要同时成立"_s);
    m_or = new toolkit::Segment(u"逻辑或"_s, group);
    m_or->setObjectName(u"Option37(1)"_s);
    m_or->setToolTip(u"勾选的条件有一个成立就算"_s);
    auto* pair = toolkit::joined<toolkit::Segment>({m_and, m_or}, true);
    pair->setContentsMargins(0, 0, 0, 0);
    group->setLayout(pair);
    connect(m_and, &toolkit::Segment::toggled, this, &IntegratedPage::edited);
    auto* line = new QHBoxLayout;
    line->addWidget(
        new toolkit::InkLabel(u"FrameLogicHeading"_s, &toolkit::Colours::quiet, u"多参整合滤选择"_s, this));
    line->addWidget(group, 1);
    return line;
}

QLineEdit* IntegratedPage::makeToleranceBox(int index, const QString& accessible) {
    auto* box = new KeyedEdit(kNumberKeys.toString(), this);
    box->setObjectName(indexedName(u"TxtRc"_s, index));
    box->setAccessibleName(accessible);
    box->setToolTip(accessible);
    box->setAlignment(Qt::AlignRight);
    box->setFixedSize(kToleranceBox);
    box->installEventFilter(this);
    connect(box, &QLineEdit::textChanged, this, &IntegratedPage::edited);
    return box;
}

QLayout* IntegratedPage::buildTolerance() {
    m_tolerance = new QCheckBox(u"整合过滤容错比"_s, this);
    m_tolerance->setObjectName(u"Check3"_s);
    m_tolerance->setToolTip(u"容许一注违反几个勾选的条件"_s);
    connect(m_tolerance, &QCheckBox::toggled, this, &IntegratedPage::edited);
    m_count = makeToleranceBox(0, u"容许违反的参数个数"_s);
    m_percent = makeToleranceBox(1, u"容许违反的参数占勾选参数的百分比"_s);
    auto* boxes = new QHBoxLayout;
    boxes->addSpacing(18);
    boxes->setSpacing(6);
    const auto say = [&](const QString& name, const QString& words) {
        auto* label = new QLabel(words, this);
        label->setObjectName(name);
        boxes->addWidget(label);
    };
    say(u"ToleranceAllows"_s, u"容许"_s);
    boxes->addWidget(m_count);
    say(u"ToleranceOr"_s, u"个，占"_s);
    boxes->addWidget(m_percent);
    say(u"TolerancePercent"_s, u"%"_s);
    boxes->addStretch();
    auto* both = new QVBoxLayout;
    both->addWidget(m_tolerance);
    both->addLayout(boxes);
    return both;
}

bool IntegratedPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        // Its own menu and another window have not left it.
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            emit toleranceLeft(watched == m_percent);
    }
    return QWidget::eventFilter(watched, event);
}

void IntegratedPage::read(WindowState& state) const {
    state.logic = m_and->isChecked() ? Logic::And : Logic::Or;
    if (!m_tolerance)
        return;
    state.tolerance = m_tolerance->isChecked();
    state.toleranceCount = m_count->text().toStdString();
    state.tolerancePercent = m_percent->text().toStdString();
}

void IntegratedPage::write(const WindowState& state) {
    (state.logic == Logic::And ? m_and : m_or)->setChecked(true);
    if (!m_tolerance)
        return;
    m_tolerance->setChecked(state.tolerance);
    m_count->setText(QString::fromStdString(state.toleranceCount));
    m_percent->setText(QString::fromStdString(state.tolerancePercent));
}

void IntegratedPage::tell(const WindowState& state) {
    std::vector<toolkit::LineList::Line> lines;
    for (const Parameter& parameter : m_member.catalogue())
        if (state.row(parameter).ticked)
            lines.push_back({QString::fromUtf8(captionIn(parameter, state)), comparedWith(parameter, state)});
    m_sentence->setText(QString::fromStdString(keptByRun(m_member.catalogue(), state, m_tolerance != nullptr)));
    m_ticked->show(lines);
}

} // namespace filter
