// frmLogin: the password box of a user. Its result is true only after the password was typed.
#pragma once

#include <QDialog>

class QLineEdit;

namespace workspace {

class LoginDialog : public QDialog {
    Q_OBJECT

  public:
    explicit LoginDialog(const QString& password, QWidget* parent = nullptr);

    /// Whether the password matched.
    bool succeeded() const { return m_succeeded; }

  private:
    void compare();

    QString m_password;
    QLineEdit* m_txtPassword;
    bool m_succeeded = false;
};

} // namespace workspace
