// The settings of the user who has entered: read with a default, written at once.
//
// A number that is none leaves its default and is remembered, so that it can be told once a window is there.
#pragma once

#include <QStringList>

#include "workspace/settings.h"

namespace workspace {

class UserSettings {
  public:
    /// \param settings  outlives this
    UserSettings(Settings& settings, const QString& user);

    QString value(const QString& section, const QString& key, const QString& fallback = {}) const;
    /// \param fallback  a number as text; it holds too where the text that is there is no number
    int number(const QString& section, const QString& key, const QString& fallback);
    void set(const QString& section, const QString& key, const QString& text);
    void set(const QString& section, const QString& key, int number);

    /// Sentences about settings that could not be read as numbers.
    const QStringList& troubles() const { return m_troubles; }

  private:
    Settings& m_settings;
    QString m_application;
    QStringList m_troubles;
};

} // namespace workspace
