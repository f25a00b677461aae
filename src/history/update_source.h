// Where updates of the history come from: the server that the user has configured, and the paths that every update
// server has.
//
// The settings are those that all users share, section "Update":
//   "Host"    name or address of the server; empty: there is none
//   "Port"    1..65535, for either scheme; empty: the port of the scheme
//   "Scheme"  "http" or "https"; empty: https, and http where https cannot be established
//   "Proxy"   host:port, http://host:port or socks5://host:port, a user and a password before an @; empty: none
#pragma once

#include <optional>

#include <QNetworkProxy>
#include <QUrl>

#include "workspace/settings.h"

namespace history {

/// The history as text, on the server.
extern const QString kTextPath;

/// A ready database, on the server and as it is kept in the program's folder.
struct DatabasePath {
    QString server;
    QString local; ///< a fragment under the program's folder
};

/// Tried in this order.
extern const DatabasePath kDatabasePaths[2];

struct UpdateSource {
    QUrl server; ///< host, port, and a scheme unless both may be tried
    QNetworkProxy proxy{QNetworkProxy::NoProxy};

    /// \param path  any text; it is sent as percent-encoded UTF-8
    QUrl url(const QString& path) const;
};

/// \return nothing when no host is set or a setting makes no sense
std::optional<UpdateSource> updateSource(const workspace::Settings& settings);

} // namespace history
