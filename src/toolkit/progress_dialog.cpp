#include "toolkit/progress_dialog.h"

#include <algorithm>

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kSteps = 640; // ten to each of the 64 marks of a whole run: smooth, and never thousands of repaints

} // namespace

ProgressDialog::ProgressDialog(QWidget* parent) : QDialog(parent) {
    setObjectName(u"Dialog"_s);
    setWindowTitle(u"组合排列进度栏"_s);
    setWindowFlag(Qt::WindowCloseButtonHint, false);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_label = new QLabel;
    m_label->setObjectName(u"Label1"_s);
    m_bar = new QProgressBar;
    m_bar->setObjectName(u"Picture1"_s);
    m_bar->setAccessibleName(windowTitle());
    m_bar->setRange(0, kSteps);
    m_bar->setMinimumWidth(400);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
}

void ProgressDialog::begin(const QString& text) {
    m_label->setText(text);
    m_label->setVisible(!text.isEmpty());
    m_bar->setValue(0);
    show();
    raise();
    paintNow();
}

void ProgressDialog::advance(double share) {
    const int value = static_cast<int>(std::clamp(share, 0.0, 1.0) * kSteps);
    if (value <= m_bar->value())
        return;
    m_bar->setValue(value);
    paintNow();
}

void ProgressDialog::paintNow() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    repaint();
}

} // namespace toolkit
