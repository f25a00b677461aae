// Names of settings that several places use.
#pragma once

#include <QString>

namespace workspace::setting {

inline const QString kProgram = QStringLiteral("AHXLOTQ"); ///< application of the settings that all users share

/// Application of one user's settings.
inline QString ofUser(const QString& user) {
    return user + QStringLiteral("QS");
}

} // namespace workspace::setting
