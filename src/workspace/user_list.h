// The users of the program, as the settings keep them: names, passwords, and who entered last.
//
// A user's place counts from 0 in the list and from 1 in the settings (section "Username{n}"). Every change is
// written at once. Passwords are plain text; an empty one means none.
#pragma once

#include <vector>

#include <QString>

#include "workspace/settings.h"

namespace workspace {

inline constexpr int kMostUsers = 1023;

class UserList {
  public:
    struct User {
        QString name;
        QString password;
    };

    /// Reads the list. An empty name reads as "新用户" and its number.
    /// \throws ConversionError when the count of users or the last position is not a number
    explicit UserList(Settings& settings);

    const std::vector<User>& users() const { return m_users; }
    int count() const { return static_cast<int>(m_users.size()); }
    /// Place of the user who entered last, or -1: "Ftopt", no further than the last user.
    int lastEntered() const { return m_lastEntered; }
    bool isFull() const { return count() == kMostUsers; }
    /// Whether a user bears exactly this name; names that differ in case are two users.
    /// \param exceptPlace  this user's own name does not count
    bool isTaken(const QString& name, int exceptPlace = -1) const;
    /// "新用户" and the next number.
    QString proposedName() const;

    /// \return the new user's place, the last one, or -1 when the list is full (1,023 users)
    int add(const QString& name, const QString& password);
    void rename(int place, const QString& name, const QString& password);
    /// Writes the place as "Ftopt".
    void noteEntered(int place);
    /// Every later user moves one place down; the section of the former last user stays as it is, out of reach.
    void remove(int place);

  private:
    void write(int place);
    void writeCount();

    Settings* m_settings;
    std::vector<User> m_users;
    int m_lastEntered = -1;
};

} // namespace workspace
