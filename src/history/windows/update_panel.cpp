#include "history/windows/update_panel.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr int kKilobyte = 1024;
constexpr int kPanelWidth = 420;

QString kilobytes(qint64 bytes) {
    return QString::number((bytes + kKilobyte - 1) / kKilobyte);
}

} // namespace

UpdatePanel::UpdatePanel(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmUpdate"_s);
    setWindowTitle(u"历史更新"_s);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setMinimumWidth(kPanelWidth);
    m_label = new QLabel(u"正在连接服务器……"_s);
    m_label->setObjectName(u"Label1"_s);
    m_bar = new QProgressBar;
    m_bar->setObjectName(u"Picture1"_s);
    m_bar->setAccessibleName(u"下载进度"_s);
    m_bar->setRange(0, 0); // moves without an end until the length is known
    m_bar->setTextVisible(false);
    auto* cancel = new QPushButton(u"取消(&C)"_s);
    cancel->setObjectName(u"cmdCancel"_s);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addWidget(cancel, 0, Qt::AlignRight);
}

void UpdatePanel::showBytes(qint64 received, qint64 total) {
    if (total > 0) {
        m_bar->setRange(0, static_cast<int>(total / kKilobyte + 1));
        m_bar->setValue(static_cast<int>(received / kKilobyte + (received == total ? 1 : 0)));
        m_label->setText(u"正在下载历史号码：%1 / %2 KB"_s.arg(kilobytes(received), kilobytes(total)));
    } else {
        m_label->setText(u"正在下载历史号码：%1 KB"_s.arg(kilobytes(received)));
    }
}

} // namespace history
