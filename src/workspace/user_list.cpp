#include "workspace/user_list.h"

#include <algorithm>

#include <QDateTime>

#include "workspace/paths.h"
#include "workspace/setting_names.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

QString sectionOf(int place) {
    return u"Username"_s + QString::number(place + 1);
}
QString nameOfNumber(int number) {
    return u"新用户"_s + QString::number(number);
}

} // namespace

UserList::UserList(Settings& settings) : m_settings(&settings) {
    const int stored = storedNumber(u"Usernum"_s);
    const int entered = storedNumber(u"Ftopt"_s);
    const int count = std::clamp(stored < 0 && !m_troubles.empty() ? namedUsers() : stored, 0, kMostUsers);
    for (int place = 0; place < count; ++place) {
        User user{settings.value(setting::kProgram, sectionOf(place), u"Name"_s),
                  settings.value(setting::kProgram, sectionOf(place), u"Password"_s)};
        if (user.name.isEmpty())
            user.name = nameOfNumber(place + 1);
        m_users.push_back(user);
    }
    m_lastEntered = std::clamp(entered, 0, count) - 1;
}

/// \return -1 for what is not a number, and a trouble
int UserList::storedNumber(const QString& key) {
    try {
        return m_settings->number(setting::kProgram, u"Option"_s, key, u"0"_s);
    } catch (const ConversionError& failed) {
        m_troubles << failed.message();
        return -1;
    }
}

/// Users whose section has a name, from the first one on without a gap.
int UserList::namedUsers() const {
    int count = 0;
    while (count < kMostUsers && !m_settings->value(setting::kProgram, sectionOf(count), u"Name"_s).isEmpty())
        ++count;
    return count;
}

bool UserList::isTaken(const QString& name, int exceptPlace) const {
    const int ownPlace = exceptPlace < 0 ? count() : exceptPlace;
    const QString read = name.isEmpty() ? nameOfNumber(ownPlace + 1) : name;
    for (int place = 0; place < count(); ++place) {
        const QString& other = m_users[static_cast<std::size_t>(place)].name;
        const bool same = other == name || other == read || (other.isEmpty() && nameOfNumber(place + 1) == read);
        if (place != exceptPlace && same)
            return true;
    }
    return false;
}

bool UserList::sharesFolder(int place) const {
    const QString folder = folderName(m_users[static_cast<std::size_t>(place)].name);
    for (int other = 0; other < count(); ++other)
        if (other != place && folderName(m_users[static_cast<std::size_t>(other)].name) == folder)
            return true;
    return false;
}

QString UserList::proposedName() const {
    return nameOfNumber(count() + 1);
}

int UserList::add(const QString& name, const QString& password) {
    if (isFull())
        return -1;
    Changes changes;
    putSettingsAside(changes, name);
    m_users.push_back({name, password});
    addCount(changes);
    addUser(changes, count() - 1);
    m_settings->write(changes);
    return count() - 1;
}

void UserList::rename(int place, const QString& name, const QString& password, Workspace workspace) {
    Changes changes;
    if (workspace == Workspace::New)
        putSettingsAside(changes, name);
    m_users[static_cast<std::size_t>(place)] = {name, password};
    addUser(changes, place);
    m_settings->write(changes);
}

void UserList::noteEntered(int place) {
    m_lastEntered = place;
    m_settings->set(setting::kProgram, u"Option"_s, u"Ftopt"_s, place + 1);
}

void UserList::remove(int place) {
    Changes changes;
    m_users.erase(m_users.begin() + place);
    for (int moved = place; moved < count(); ++moved)
        addUser(changes, moved);
    addCount(changes);
    m_settings->write(changes);
    m_lastEntered = std::min(m_lastEntered, count() - 1);
}

void UserList::addUser(Changes& changes, int place) const {
    const User& user = m_users[static_cast<std::size_t>(place)];
    changes.push_back({setting::kProgram, sectionOf(place), u"Name"_s, user.name});
    changes.push_back({setting::kProgram, sectionOf(place), u"Password"_s, user.password});
}

void UserList::addCount(Changes& changes) const {
    changes.push_back({setting::kProgram, u"Option"_s, u"Usernum"_s, QString::number(count())});
}

void UserList::putSettingsAside(Changes& changes, const QString& user) const {
    const QString application = setting::ofUser(user);
    const QString aside = application + QDateTime::currentDateTime().toString(u" 保存 yyyy-MM-dd hhmmss"_s);
    for (const SettingChange& value : m_settings->valuesOf(application)) {
        changes.push_back({aside, value.section, value.key, value.text});
        changes.push_back({application, value.section, value.key, std::nullopt});
    }
}

} // namespace workspace
