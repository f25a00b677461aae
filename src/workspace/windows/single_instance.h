// One running program a user and program folder: a second start raises the first and ends.
//
// A lock file tells who is first; the system takes it from a killed program at once. The first listens on a local
// socket beside the lock; a second start writes to it. Both carry the folder's checksum in their names, so programs
// on different folders do not hinder each other.
#pragma once

#include <filesystem>

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

namespace workspace {

class SingleInstance : public QObject {
    Q_OBJECT

  public:
    explicit SingleInstance(const std::filesystem::path& programFolder, QObject* parent = nullptr);

    /// Whether no other program works on the folder; holds until this object is destroyed.
    bool isFirst() const { return m_first; }
    /// Asks the first program to come to the front. \return whether it heard
    bool raiseFirst() const;

  signals:
    /// Another start has asked for the front.
    void raiseAsked();

  private:
    void hear();

    QString m_path;
    QLockFile m_lock;
    QLocalServer m_server;
    bool m_first = false;
};

/// The start's first step: when another program runs, tells so, brings that one to the front.
/// \return whether this program may go on
bool mayStart(const SingleInstance& instance);

/// Brings the active window, or else the one shown last, to the front; connect it to raiseAsked().
void raiseActiveWindow();

} // namespace workspace
