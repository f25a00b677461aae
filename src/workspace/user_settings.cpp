#include "workspace/user_settings.h"

#include "workspace/setting_names.h"

namespace workspace {

UserSettings::UserSettings(Settings& settings, const QString& user)
    : m_settings(settings), m_application(setting::ofUser(user)) {}

QString UserSettings::value(const QString& section, const QString& key, const QString& fallback) const {
    return m_settings.value(m_application, section, key, fallback);
}

int UserSettings::number(const QString& section, const QString& key, const QString& fallback) {
    try {
        return m_settings.number(m_application, section, key, fallback);
    } catch (const ConversionError& failed) {
        m_troubles << failed.message();
        return toNumber(fallback, key);
    }
}

void UserSettings::set(const QString& section, const QString& key, const QString& text) {
    m_settings.set(m_application, section, key, text);
}

void UserSettings::set(const QString& section, const QString& key, int number) {
    m_settings.set(m_application, section, key, number);
}

} // namespace workspace
