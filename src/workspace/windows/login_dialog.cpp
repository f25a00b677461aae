#include "workspace/windows/login_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "toolkit/messages.h"

using namespace Qt::StringLiterals;

namespace workspace {

LoginDialog::LoginDialog(const QString& password, QWidget* parent) : QDialog(parent), m_password(password) {
    setObjectName(u"frmLogin"_s);
    setWindowTitle(u"登录"_s);
    auto* label = new QLabel(u"请输入该用户口令密码："_s);
    label->setObjectName(u"lblLabels(1)"_s);
    m_txtPassword = new QLineEdit;
    m_txtPassword->setObjectName(u"txtPassword"_s);
    m_txtPassword->setAccessibleName(label->text());
    m_txtPassword->setEchoMode(QLineEdit::Password);
    m_txtPassword->setStyleSheet(u"lineedit-password-character: 42"_s); // *
    label->setBuddy(m_txtPassword);
    auto* ok = new QPushButton(u"确定"_s);
    ok->setObjectName(u"cmdOK"_s);
    ok->setDefault(true);
    auto* cancel = new QPushButton(u"取消"_s);
    cancel->setObjectName(u"cmdCancel"_s);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(12);
    layout->addWidget(label);
    layout->addWidget(m_txtPassword);
    layout->addLayout(buttons);
    setMinimumWidth(340);
    connect(ok, &QPushButton::clicked, this, &LoginDialog::compare);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void LoginDialog::compare() {
    m_succeeded = m_txtPassword->text() == m_password;
    if (m_succeeded) {
        accept();
        return;
    }
    toolkit::showMessage(this, u"无效的密码，请重试!"_s, u"登录"_s);
    m_txtPassword->setFocus();
    m_txtPassword->selectAll();
}

} // namespace workspace
