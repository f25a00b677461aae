// Saved filter settings: the boxes of a filter window under a name, in table Canshu of its combination file.
//
// A name is not tied to a table: a setting can be called back on any window of the family. Nothing keeps a name from
// being empty or stored twice; the first row of a name is the one that is called back, and deleting and renaming take
// all rows of the name. A name with a double quote can be stored, but breaks the statements that ask for it: that is
// told, and nothing is changed.
#pragma once

#include <optional>
#include <vector>

#include <QDateTime>
#include <QString>

#include "filter/setting_row.h"
#include "sql/database.h"

namespace filter {

/// "过滤设置保存于26-11-22日9.5.7秒"
QString proposedSettingName(const QDateTime& now);

class SavedSettings {
  public:
    /// \param database  the family's combination file
    SavedSettings(sql::Database& database, workspace::FilterFamily family) : m_database(database), m_family(family) {}

    /// Behind the rows that are there. \throws sql::SqlError
    void save(const QString& name, const SettingRow& setting) const;
    /// The first row of that name; nothing when there is none. \throws sql::SqlError, workspace::Failure for a name
    /// with a quote
    std::optional<SettingRow> call(const QString& name) const;
    /// All names, oldest first. \throws sql::SqlError
    std::vector<QString> names() const;
    /// \throws as call()
    void remove(const QString& name) const;
    /// \throws as call(), for either name
    void rename(const QString& name, const QString& newName) const;

  private:
    sql::Database& m_database;
    workspace::FilterFamily m_family;
};

} // namespace filter
