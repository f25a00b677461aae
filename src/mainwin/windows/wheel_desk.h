// The wheel menus: their opening, their captions, and the windows of their entries.
#pragma once

#include <filesystem>

#include <QObject>

#include "mainwin/wheel_menu.h"
#include "mainwin/windows/filter_opener.h"
#include "selection/wheels.h"

namespace mainwin {

class WheelDesk : public QObject {
    Q_OBJECT
  public:
    /// Registers its commands. All of it outlives the desk.
    /// \param folder  the program's: a user's own wheels lie there
    WheelDesk(MainContext& context, selection::Wheels& wheels, FilterOpener& opener, std::filesystem::path folder);

  private:
    void registerMenus();
    void registerEntries();
    void registerEntry(const QString& name, std::vector<WheelEntry> entries);
    std::string tableOf(const WheelEntry& entry) const;
    QString obstacle(const WheelEntry& entry);
    void choose(const WheelEntry& entry);
    /// The window of the wheel that is chosen.
    void open(std::string_view form);
    /// The bets of the compound wheel that is chosen.
    void openCompound(const std::string& table);
    /// What the rows of the wheel guarantee; empty where nobody has proven it.
    QString notice();
    /// 导入旋转矩阵…: a user's own wheel, in place of the one that is there.
    void importWheel();
    void install(const selection::WheelTable& table, std::span<const selection::PositionSet> rows);

    MainContext& m_context;
    selection::Wheels& m_wheels;
    FilterOpener& m_opener;
    std::filesystem::path m_folder;
};

/// Where a wheel database lies: in the program's folder, else beside the program.
std::filesystem::path wheelFile(const std::filesystem::path& folder, std::string_view name);

} // namespace mainwin
