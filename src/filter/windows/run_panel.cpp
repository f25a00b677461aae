#include "filter/windows/run_panel.h"

#include <QEvent>
#include <QGridLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "filter/windows/row_controls.h"
#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kLineHeight = 24;
constexpr int kColumns = 4; // of position boxes

toolkit::Segment* makeSegment(const QString& name, const QString& caption, QWidget* group) {
    auto* segment = new toolkit::Segment(caption, group);
    segment->setObjectName(name);
    return segment;
}

constexpr QStringView kColoured = u"彩色参数";
constexpr int kWordPadding = 5;
constexpr int kWordGap = 4;
constexpr qreal kCorner = 3;

/// The caption of the position boxes: its words 彩色参数 stand on the ground that the names of such parameters have.
class PositionsCaption final : public QLabel {
  public:
    using QLabel::QLabel;
    QSize sizeHint() const override { return {wordWidth() + kWordGap + restWidth(), fontMetrics().height() + 4}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const toolkit::Colours& look = toolkit::colours(palette());
        const QRect word(0, 0, wordWidth(), height());
        painter.setPen(look.warmEdge);
        painter.setBrush(look.warm);
        painter.drawRoundedRect(QRectF(word).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
        painter.setPen(look.text);
        painter.drawText(word, Qt::AlignCenter, kColoured.toString());
        painter.setPen(look.quiet);
        painter.drawText(rect().adjusted(word.width() + kWordGap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, rest());
    }

  private:
    QString rest() const { return text().mid(kColoured.size()); }
    int wordWidth() const { return fontMetrics().horizontalAdvance(kColoured.toString()) + 2 * kWordPadding; }
    int restWidth() const { return fontMetrics().horizontalAdvance(rest()); }
};

QWidget* makeGroup(const QString& name, QWidget* parent) {
    auto* group = new QWidget(parent); // options of one parent exclude each other
    group->setObjectName(name);
    return group;
}

} // namespace

RunPanel::RunPanel(const FilterMember& member, QWidget* parent) : Card(u"RunCard"_s, {}, parent) {
    buildModes(member.features.lists);
    buildKeep();
    if (member.features.weights)
        buildPositions(member);
    applyColours();
}

QLabel* RunPanel::makeCaption(const QString& name, const QString& caption) {
    auto* label = new QLabel(caption, this);
    label->setObjectName(name);
    m_captions << label;
    return label;
}

void RunPanel::applyColours() {
    const toolkit::Colours& look = toolkit::colours(palette());
    const auto dye = [](QWidget* widget, const QColor& ink) {
        QPalette own;
        own.setColor(QPalette::WindowText, ink);
        widget->setPalette(own);
    };
    for (QLabel* caption : m_captions)
        dye(caption, look.quiet);
    for (std::size_t position = 1; position < m_positions.size(); ++position)
        if (m_positions[position])
            dye(m_positions[position], position == 7 ? look.blue : look.red);
}

void RunPanel::changeEvent(QEvent* event) {
    Card::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyColours();
}

void RunPanel::buildModes(bool lists) {
    body().addWidget(makeCaption(u"FrameModesHeading"_s, u"参数过滤设置"_s));
    QWidget* group = makeGroup(u"FrameModes"_s, this);
    m_range = makeSegment(u"Option22"_s, lists ? u"范围查询"_s : u"最值查询"_s, group);
    m_mean = makeSegment(u"Option21"_s, lists ? u"均值差幅"_s : u"均值差幅查询"_s, group);
    if (lists)
        m_list = makeSegment(u"Option36"_s, u"最值查询(出现概率最大的若干个参数)"_s, group);
    m_range->setChecked(true);
    auto* line = lists ? toolkit::joined<toolkit::Segment>({m_range, m_mean, m_list}, true)
                       : toolkit::joined<toolkit::Segment>({m_range, m_mean}, true);
    line->setContentsMargins(0, 0, 0, 0);
    group->setLayout(line);
    body().addWidget(group);

    m_explains = makeCaption(u"ModeExplains"_s, {});
    m_percent = new QComboBox(this); // shown with 均值差幅, and without effect on it
    m_percent->setObjectName(u"Combo2"_s);
    m_percent->setAccessibleName(u"均值差幅百分比"_s);
    m_percent->addItems(u"100 90 80 75 70 66 60 50 40 33 30 25 20 16 12 10 05"_s.split(u' '));
    m_percent->setVisible(false);
    m_explains->setFixedHeight(kLineHeight);
    m_percent->setFixedHeight(kLineHeight);
    auto* below = new QHBoxLayout;
    below->addWidget(m_explains, 1);
    below->addWidget(m_percent);
    body().addLayout(below);
    chooseMode(Mode::Range);
    for (const auto& [segment, mode] :
         {std::pair(m_range, Mode::Range), std::pair(m_mean, Mode::Mean), std::pair(m_list, Mode::List)})
        if (segment)
            connect(segment, &toolkit::Segment::toggled, this, [this, chosen = mode](bool on) {
                if (on)
                    chooseMode(chosen);
            });
}

void RunPanel::chooseMode(Mode mode) {
    switch (mode) {
    case Mode::Range:
        m_explains->setText(u"按 下限 ~ 上限 比较"_s);
        break;
    case Mode::Mean:
        m_explains->setText(u"均值两侧的幅度 (%)"_s);
        m_percent->show();
        break;
    case Mode::List:
        m_explains->setText(u"(出现概率最大的若干个参数)"_s);
        break;
    }
    emit modePressed(mode);
}

void RunPanel::buildKeep() {
    QWidget* group = makeGroup(u"FrameKeep"_s, this);
    m_keep = makeSegment(u"Option1(0)"_s, u"保留"_s, group);
    m_remove = makeSegment(u"Option1(1)"_s, u"排除"_s, group);
    m_keep->setChecked(true);
    auto* pair = toolkit::joined<toolkit::Segment>({m_keep, m_remove}, true);
    pair->setContentsMargins(0, 0, 0, 0);
    group->setLayout(pair);
    auto* line = new QHBoxLayout;
    line->addWidget(makeCaption(u"FrameKeepHeading"_s, u"参数过滤项设置"_s));
    line->addWidget(group, 1);
    body().addLayout(line);
    for (toolkit::Segment* option : {m_keep, m_remove}) {
        connect(option, &toolkit::Segment::clicked, this, &RunPanel::keepClicked);
        connect(option, &toolkit::Segment::toggled, this, [this](bool on) {
            if (on)
                emit keepClicked();
        });
    }
}

void RunPanel::buildPositions(const FilterMember& member) {
    body().addSpacing(4);
    auto* caption = new PositionsCaption(u"彩色参数计算位"_s, this);
    caption->setObjectName(u"FramePositionsHeading"_s);
    body().addWidget(caption, 0, Qt::AlignLeft);
    QWidget* group = makeGroup(u"FramePositions"_s, this);
    auto* grid = new QGridLayout(group);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(2);
    for (int position = 1; position <= (member.blue ? 7 : 6); ++position) {
        auto* tick = new QCheckBox(position == 7 ? u"蓝球"_s : u"红%1"_s.arg(position), group);
        tick->setObjectName(indexedName(u"ChkBt"_s, position));
        tick->setToolTip(u"彩色参数是否按照所选位计算过滤"_s);
        tick->setChecked(true);
        grid->addWidget(tick, (position - 1) / kColumns, (position - 1) % kColumns);
        m_positions[static_cast<std::size_t>(position)] = tick;
    }
    body().addWidget(group);
}

void RunPanel::read(WindowState& state) const {
    state.mode = m_list && m_list->isChecked() ? Mode::List : m_mean->isChecked() ? Mode::Mean : Mode::Range;
    state.keep = keeps();
    state.percent = m_percent->currentText().toStdString();
    for (std::size_t position = 1; position < m_positions.size(); ++position)
        state.weights[position] = m_positions[position] && m_positions[position]->isChecked();
}

void RunPanel::write(const WindowState& state) {
    (state.mode == Mode::List ? m_list : state.mode == Mode::Mean ? m_mean : m_range)->setChecked(true);
    (state.keep ? m_keep : m_remove)->setChecked(true);
    m_percent->setCurrentText(QString::fromStdString(state.percent));
    for (std::size_t position = 1; position < m_positions.size(); ++position)
        if (m_positions[position])
            m_positions[position]->setChecked(state.weights[position]);
}

} // namespace filter
