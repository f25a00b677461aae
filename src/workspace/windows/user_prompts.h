// The questions about a user that several windows ask: the name, and the password twice.
#pragma once

#include <functional>

#include <QString>

class QWidget;

namespace workspace {

/// Asks for a name until it is not taken. \return the name; empty when it was cancelled
QString askUserName(QWidget* parent, const QString& proposed, const std::function<bool(const QString&)>& isTaken);

/// Asks for a password twice, and again until both answers agree. \return the password; empty means none
QString askUserPassword(QWidget* parent);

} // namespace workspace
