#include "workspace/user_list.h"

#include <algorithm>

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
    const int stored = settings.number(setting::kProgram, u"Option"_s, u"Usernum"_s, u"0"_s);
    const int entered = settings.number(setting::kProgram, u"Option"_s, u"Ftopt"_s, u"0"_s);
    const int count = std::clamp(stored, 0, kMostUsers);
    for (int place = 0; place < count; ++place) {
        User user{settings.value(setting::kProgram, sectionOf(place), u"Name"_s),
                  settings.value(setting::kProgram, sectionOf(place), u"Password"_s)};
        if (user.name.isEmpty())
            user.name = nameOfNumber(place + 1);
        m_users.push_back(user);
    }
    m_lastEntered = std::clamp(entered, 0, count) - 1;
}

bool UserList::isTaken(const QString& name, int exceptPlace) const {
    for (int place = 0; place < count(); ++place)
        if (place != exceptPlace && m_users[static_cast<std::size_t>(place)].name == name)
            return true;
    return false;
}

QString UserList::proposedName() const {
    return nameOfNumber(count() + 1);
}

int UserList::add(const QString& name, const QString& password) {
    if (isFull())
        return -1;
    m_users.push_back({name, password});
    writeCount();
    write(count() - 1);
    return count() - 1;
}

void UserList::rename(int place, const QString& name, const QString& password) {
    m_users[static_cast<std::size_t>(place)] = {name, password};
    write(place);
}

void UserList::noteEntered(int place) {
    m_lastEntered = place;
    m_settings->set(setting::kProgram, u"Option"_s, u"Ftopt"_s, place + 1);
}

void UserList::remove(int place) {
    m_users.erase(m_users.begin() + place);
    for (int moved = place; moved < count(); ++moved)
        write(moved);
    writeCount();
    m_lastEntered = std::min(m_lastEntered, count() - 1);
}

void UserList::write(int place) {
    const User& user = m_users[static_cast<std::size_t>(place)];
    m_settings->set(setting::kProgram, sectionOf(place), u"Name"_s, user.name);
    m_settings->set(setting::kProgram, sectionOf(place), u"Password"_s, user.password);
}

void UserList::writeCount() {
    m_settings->set(setting::kProgram, u"Option"_s, u"Usernum"_s, count());
}

} // namespace workspace
