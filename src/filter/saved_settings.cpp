#include "filter/saved_settings.h"

#include "workspace/quoted_text.h"

using namespace Qt::StringLiterals;

namespace filter {

using workspace::quotedText;

QString proposedSettingName(const QDateTime& now) {
    return u"过滤设置保存于"_s + now.toString(u"yy-M-d日h.m.s秒"_s);
}

void SavedSettings::save(const QString& name, const SettingRow& setting) const {
    sql::Recordset rows = m_database.openRecordset("canshu");
    rows.addNew();
    rows.set("Name", name.toStdString());
    writeSetting(rows, setting, m_family);
    rows.update();
}

std::optional<SettingRow> SavedSettings::call(const QString& name) const {
    const sql::Recordset found =
        m_database.openRecordset("SELECT * FROM [Canshu] WHERE [Name] = " + quotedText(name));
    return found.eof() ? std::nullopt : std::optional(readSetting(found, m_family));
}

std::vector<QString> SavedSettings::names() const {
    std::vector<QString> names;
    sql::Recordset rows = m_database.openRecordset("SELECT Name FROM Canshu");
    for (; !rows.eof(); rows.moveNext())
        names.push_back(QString::fromStdString(sql::toText(rows.field("Name"))));
    return names;
}

void SavedSettings::remove(const QString& name) const {
    m_database.execute("DELETE FROM [Canshu]  WHERE [Name] = " + quotedText(name));
}

void SavedSettings::rename(const QString& name, const QString& newName) const {
    m_database.execute("UPDATE [Canshu] SET [Name]= " + quotedText(newName) + " WHERE [Name] = " + quotedText(name));
}

} // namespace filter
