// One running program a program folder: a second start, from any login, raises the first and ends.
//
// The folder itself is locked, with the system's file lock: no lock file is written, so none can be left behind, be
// damaged or belong to somebody else, and the system takes the lock from a killed program at once. The first listens
// on a local socket that carries the folder's checksum in its name; a second start of the same login writes to it.
#pragma once

#include <filesystem>

#include <QLocalServer>
#include <QObject>

namespace workspace {

class SingleInstance : public QObject {
    Q_OBJECT

  public:
    explicit SingleInstance(const std::filesystem::path& programFolder, QObject* parent = nullptr);

    ~SingleInstance() override;

    /// Whether no other program works on the folder; holds until this object is destroyed. True too on a file system
    /// that knows no locks.
    bool isFirst() const { return m_first; }
    /// Asks the first program to come to the front. \return whether it heard
    bool raiseFirst() const;

  signals:
    /// Another start has asked for the front.
    void raiseAsked();

  private:
    void hear();

    QString m_path;
    int m_folder = -1; ///< the open folder that carries the lock
    QLocalServer m_server;
    bool m_first = false;
};

/// The start's first step: when another program runs, tells so, brings that one to the front.
/// \return whether this program may go on
bool mayStart(const SingleInstance& instance);

/// Brings the active window, or else the one shown last, to the front; connect it to raiseAsked().
void raiseActiveWindow();

} // namespace workspace
