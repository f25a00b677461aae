#include "toolkit/progress_dialog.h"

#include <algorithm>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kSteps = 1000;
constexpr int kPaintMs = 40;
constexpr int kMsPerSecond = 1000;

QString timeText(qint64 ms) {
    const qint64 seconds = ms / kMsPerSecond;
    return u"已用 %1:%2"_s.arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

} // namespace

ProgressDialog::ProgressDialog(QWidget* parent, int patienceMs)
    : QDialog(parent), m_label(new QLabel), m_time(new QLabel), m_bar(new QProgressBar), m_patienceMs(patienceMs) {
    setObjectName(u"Dialog"_s);
    setWindowTitle(u"组合排列进度栏"_s);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setModal(true);
    m_label->setObjectName(u"Label1"_s);
    m_label->setTextFormat(Qt::PlainText);
    m_time->setObjectName(u"LabelTime"_s);
    m_bar->setObjectName(u"Picture1"_s);
    m_bar->setAccessibleName(windowTitle());
    m_bar->setRange(0, kSteps);
    m_bar->setMinimumWidth(400);
    auto* cancel = new QPushButton(u"取消"_s);
    cancel->setObjectName(u"cmdCancel"_s);
    connect(cancel, &QPushButton::clicked, this, &ProgressDialog::reject);
    auto* foot = new QHBoxLayout;
    foot->addWidget(m_time, 1);
    foot->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addLayout(foot);
}

void ProgressDialog::begin(const QString& text) {
    m_cancelled = false;
    m_label->setText(text);
    m_label->setVisible(!text.isEmpty());
    m_bar->setValue(0);
    m_begun.start();
    if (m_patienceMs == 0)
        paintNow();
}

bool ProgressDialog::advance(double share) {
    const int value = static_cast<int>(std::clamp(share, 0.0, 1.0) * kSteps);
    if (value > m_bar->value())
        m_bar->setValue(value);
    if (isDue())
        paintNow();
    return !m_cancelled;
}

/// The window stays until the work has ended in order.
void ProgressDialog::reject() {
    m_cancelled = true;
    m_time->setText(u"正在取消……"_s);
}

bool ProgressDialog::isDue() const {
    return isVisible() ? m_painted.elapsed() >= kPaintMs : m_begun.elapsed() >= m_patienceMs;
}

void ProgressDialog::paintNow() {
    if (!isVisible()) {
        show();
        raise();
    }
    if (!m_cancelled)
        m_time->setText(timeText(m_begun.elapsed()));
    QCoreApplication::processEvents();
    repaint();
    m_painted.start();
}

} // namespace toolkit
