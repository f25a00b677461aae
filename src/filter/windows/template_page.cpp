#include "filter/windows/template_page.h"

#include <QVBoxLayout>

#include "toolkit/accent_button.h"
#include "toolkit/ink_label.h"
#include "toolkit/told_label.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kWordLines = 4;
const QString kNoSteps = u"还没有步骤：右键绿色按钮或超级过滤选项添加"_s;

} // namespace

TemplatePage::TemplatePage(QWidget* parent)
    : QWidget(parent), m_place(new QLabel(this)), m_steps(new toolkit::LineList(u"StepLines"_s, kNoSteps, this)),
      m_scroll(new QScrollBar(Qt::Horizontal, this)), m_words(new toolkit::ToldLabel(u"Label3"_s, kWordLines, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addLayout(buildBrowser(), 1);
    auto* replay = new toolkit::AccentButton(u"过滤模板调用过滤(&B)"_s, this);
    replay->setObjectName(u"Command9"_s);
    replay->setAutoDefault(false);
    connect(replay, &QPushButton::clicked, this, &TemplatePage::replayWanted);
    m_needSteps = {
        {replay, u"从第一步起把模板的步骤依次用在这张表上"_s},
        {make(u"Command5"_s, u"过滤模板末次删除(&D)"_s, {}, &TemplatePage::deleteLastWanted),
         u"删除模板的最后一步"_s},
        {make(u"Command4"_s, u"过滤模板清空(&L)"_s, {}, &TemplatePage::clearWanted), u"删除模板的全部步骤"_s}};
    for (const auto& [button, does] : m_needSteps)
        column->addWidget(button);
    column->addSpacing(6);
    auto* settings = new QHBoxLayout;
    settings->setSpacing(4);
    settings->addWidget(
        make(u"Command7"_s, u"保存过滤设置(&V)"_s, u"把各框的设置取个名字保存"_s, &TemplatePage::saveWanted));
    settings->addWidget(
        make(u"Command6"_s, u"调用过滤设置(&C)"_s, u"把保存的设置填回各框"_s, &TemplatePage::callWanted));
    column->addLayout(settings);
    show(std::vector<toolkit::LineList::Line>());
}

QAbstractButton* TemplatePage::make(const QString& name, const QString& caption, const QString& toolTip,
                                    void (TemplatePage::*wanted)()) {
    auto* button = new toolkit::FlatButton(caption, toolkit::FlatButton::Look::Plain, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    connect(button, &QPushButton::clicked, this, wanted);
    return button;
}

QLayout* TemplatePage::buildBrowser() {
    using toolkit::Colours;
    using toolkit::InkLabel;
    auto* head = new QHBoxLayout;
    head->addWidget(new InkLabel(u"Frame8"_s, &Colours::quiet, u"过滤模板浏览"_s, this));
    head->addStretch();
    m_place->setObjectName(u"StepPlace"_s);
    head->addWidget(m_place);
    m_steps->setNumbered();
    m_steps->setAccessibleName(u"过滤模板的步骤"_s);
    m_scroll->setObjectName(u"HScroll1"_s);
    m_scroll->setAccessibleName(u"过滤模板浏览"_s);
    m_scroll->setPageStep(1);
    m_scroll->setFocusPolicy(Qt::StrongFocus);
    auto* advice = new InkLabel(u"Frame9"_s, &Colours::quiet,
                                u"模板过滤浏览（绿色按钮和超级过滤选项都可以右键添加入模板）"_s, this);
    advice->setWordWrap(true);
    auto* column = new QVBoxLayout;
    column->setSpacing(4);
    column->addLayout(head);
    column->addWidget(m_steps, 1);
    column->addWidget(m_scroll);
    column->addWidget(advice);
    column->addWidget(m_words);
    connect(m_steps, &toolkit::LineList::lineChosen, this, [this](int line) { m_scroll->setValue(line + 1); });
    connect(m_scroll, &QScrollBar::valueChanged, this, [this](int Idx) {
        m_steps->mark(Idx - 1);
        tellPlace();
        emit stepBrowsed(Idx);
    });
    return column;
}

void TemplatePage::show(const std::vector<toolkit::LineList::Line>& steps) {
    m_steps->show(steps);
    const int count = m_steps->count();
    m_scroll->setMaximum(std::max(1, count)); // 1 for none too
    m_steps->mark(m_scroll->value() - 1);
    for (const auto& [button, does] : m_needSteps) {
        button->setEnabled(count > 0);
        button->setToolTip(count > 0 ? does : kNoSteps);
    }
    tellPlace();
}

void TemplatePage::tellPlace() {
    const int count = m_steps->count();
    const int at = std::min(m_scroll->value(), count);
    m_place->setText(count == 0 ? u"共 0 步"_s
                     : at == 0  ? u"共 %1 步"_s.arg(count)
                                : u"第 %1 步，共 %2 步"_s.arg(at).arg(count));
}

} // namespace filter
