// The users of the program, as the settings keep them: names, passwords, and who entered last.
//
// A user's place counts from 0 in the list and from 1 in the settings (section "Username{n}"). Every change is one
// write of the settings: after a kill the list is the old one or the new one. Passwords are plain text; an empty one
// means none. A new workspace begins with settings of its own: what stands under its name from an earlier user is put
// aside under "{user}QS 保存 {time}".
#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "workspace/settings.h"

namespace workspace {

inline constexpr int kMostUsers = 1023;

class UserList {
  public:
    struct User {
        QString name;
        QString password;
    };

    /// Reads the list. An empty name reads as "新用户" and its number. A count that is not a number is told by
    /// troubles(); the users are then those that have a name, in a row from the first. So is a last position: nobody
    /// entered then.
    explicit UserList(Settings& settings);

    /// Sentences about settings that could not be read as numbers.
    const QStringList& troubles() const { return m_troubles; }

    const std::vector<User>& users() const { return m_users; }
    int count() const { return static_cast<int>(m_users.size()); }
    /// Place of the user who entered last, or -1: "Ftopt", no further than the last user.
    int lastEntered() const { return m_lastEntered; }
    bool isFull() const { return count() == kMostUsers; }
    /// Whether a user bears exactly this name, or would at the next start, when an empty name reads as another; names
    /// that differ in case are two users.
    /// \param exceptPlace  this user's own name does not count
    bool isTaken(const QString& name, int exceptPlace = -1) const;
    /// Whether another user's files lie in the same folder, so that they must not go with this one.
    bool sharesFolder(int place) const;
    /// "新用户" and the next number.
    QString proposedName() const;

    /// \return the new user's place, the last one, or -1 when the list is full (1,023 users)
    int add(const QString& name, const QString& password);
    enum class Workspace { Standing, New };
    /// \param workspace  whether the name gets a new workspace
    void rename(int place, const QString& name, const QString& password, Workspace workspace = Workspace::Standing);
    /// Writes the place as "Ftopt".
    void noteEntered(int place);
    /// Every later user moves one place down; the section of the former last user stays as it is, out of reach.
    void remove(int place);

  private:
    using Changes = std::vector<SettingChange>;

    int storedNumber(const QString& key);
    int namedUsers() const;
    void addUser(Changes& changes, int place) const;
    void addCount(Changes& changes) const;
    void putSettingsAside(Changes& changes, const QString& user) const;

    Settings* m_settings;
    std::vector<User> m_users;
    int m_lastEntered = -1;
    QStringList m_troubles;
};

} // namespace workspace
