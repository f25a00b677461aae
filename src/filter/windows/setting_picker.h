// frmFind, frmFindR: picks a saved filter setting by its name. A double click on a row, Enter or 确定 picks; anything
// else that closes the window picks nothing. The menu of a row deletes it or gives it another name.
#pragma once

#include <optional>

#include <QDialog>

#include "filter/saved_settings.h"
#include "toolkit/data_grid.h"
#include "toolkit/window_place.h"

class QPushButton;
class QStandardItemModel;

namespace filter {

class SettingPicker : public QDialog {
    Q_OBJECT
  public:
    /// \param name  its objectName, which tells the families apart  \throws sql::SqlError when the names cannot be
    /// read
    SettingPicker(const SavedSettings& settings, const QString& name, const toolkit::PlaceStore& places,
                  QWidget* parent = nullptr);

    /// The name that was picked; nothing for none. A setting may have an empty name.
    std::optional<QString> Canshuname;

  private:
    void layOut();
    void addEntry(const QString& name, const QString& caption, const QKeySequence& keys,
                  void (SettingPicker::*act)());
    void reload();
    void pick();
    void deleteChosen();
    void renameChosen();
    std::optional<QString> chosen() const;
    int namesakesOf(const QString& name) const;
    template <class Change> void change(const QString& happened, Change run);

    const SavedSettings m_settings;
    QStandardItemModel* m_names;
    toolkit::DataGrid* m_grid;
    QPushButton* m_ok;
    QList<QAction*> m_entries;
};

/// Shows the picker. \return the name that was picked, if any; names that cannot be read are told
std::optional<QString> pickSetting(const SavedSettings& settings, const QString& name,
                                   const toolkit::PlaceStore& places, QWidget* parent);

} // namespace filter
