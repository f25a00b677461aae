#include "filter/windows/run_panel.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "filter/windows/row_controls.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kMargin = 5; // the middle column stays narrow, for the grid's sake

QRadioButton* makeOption(const QString& name, const QString& caption, QGroupBox* box) {
    auto* option = new QRadioButton(caption, box);
    option->setObjectName(name);
    return option;
}

QGroupBox* makeBox(const QString& name, const QString& title, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    box->setObjectName(name);
    return box;
}

} // namespace

RunPanel::RunPanel(bool blue, QWidget* parent) : QWidget(parent) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(buildModes());
    column->addWidget(buildKeep());
    column->addWidget(buildPositions(blue));
}

QGroupBox* RunPanel::buildModes() {
    QGroupBox* box = makeBox(u"FrameModes"_s, u"参数过滤设置"_s, this);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_range = makeOption(u"Option22"_s, u"范围查询"_s, box);
    m_mean = makeOption(u"Option21"_s, u"均值差幅"_s, box);
    m_list = makeOption(u"Option36"_s, u"最值查询(出现概率最大的若干个参数)"_s, box);
    m_range->setChecked(true);
    m_percent = new QComboBox(box); // shown with 均值差幅, and without effect on it
    m_percent->setObjectName(u"Combo2"_s);
    m_percent->setAccessibleName(u"均值差幅百分比"_s);
    m_percent->addItems(u"100 90 80 75 70 66 60 50 40 33 30 25 20 16 12 10 05"_s.split(u' '));
    m_percent->setVisible(false);
    grid->addWidget(m_range, 0, 0);
    grid->addWidget(m_mean, 1, 0);
    grid->addWidget(m_percent, 1, 1);
    grid->addWidget(m_list, 2, 0, 1, 2);
    connect(m_range, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            emit modePressed(Mode::Range);
    });
    connect(m_mean, &QRadioButton::toggled, this, [this](bool on) {
        if (!on)
            return;
        m_percent->show();
        emit modePressed(Mode::Mean);
    });
    connect(m_list, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            emit modePressed(Mode::List);
    });
    return box;
}

QGroupBox* RunPanel::buildKeep() {
    QGroupBox* box = makeBox(u"FrameKeep"_s, u"参数过滤项设置"_s, this);
    auto* line = new QHBoxLayout(box);
    line->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_keep = makeOption(u"Option1(0)"_s, u"保留"_s, box);
    auto* remove = makeOption(u"Option1(1)"_s, u"排除"_s, box);
    m_keep->setChecked(true);
    line->addWidget(m_keep);
    line->addWidget(remove);
    for (QRadioButton* option : {m_keep, remove}) {
        connect(option, &QRadioButton::clicked, this, &RunPanel::keepClicked);
        connect(option, &QRadioButton::toggled, this, [this](bool on) {
            if (on)
                emit keepClicked();
        });
    }
    return box;
}

QGroupBox* RunPanel::buildPositions(bool blue) {
    QGroupBox* box = makeBox(u"FramePositions"_s, u"彩色参数计算位"_s, this);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    for (int position = 1; position <= (blue ? 7 : 6); ++position) {
        auto* tick = new QCheckBox(position == 7 ? u"蓝球"_s : u"红%1"_s.arg(position), box);
        tick->setObjectName(indexedName(u"ChkBt"_s, position));
        tick->setToolTip(u"彩色参数是否按照所选位计算过滤"_s);
        tick->setChecked(true);
        grid->addWidget(tick, (position - 1) / 4, (position - 1) % 4);
        m_positions[static_cast<std::size_t>(position)] = tick;
    }
    return box;
}

RunSettings RunPanel::settings() const {
    RunSettings settings;
    settings.mode = m_list->isChecked() ? Mode::List : m_mean->isChecked() ? Mode::Mean : Mode::Range;
    for (std::size_t position = 1; position < m_positions.size(); ++position)
        settings.ticked[position] = m_positions[position] && m_positions[position]->isChecked();
    return settings;
}

} // namespace filter
