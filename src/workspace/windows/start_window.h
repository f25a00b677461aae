// Frmpre: the first window. It lists the users and lets one enter, be created or be deleted.
//
// It is seen until a user has entered, and does not come back. entered() is emitted once; take the workspace then:
// its names and rule are set, its databases are still closed (openWorkspace). Closing the window instead ends the
// program.
#pragma once

#include <filesystem>

#include <QWidget>

#include "workspace/user_list.h"
#include "workspace/workspace.h"

namespace toolkit {
class NoticeBar;
}

namespace workspace {

class NameList;

class StartWindow : public QWidget {
    Q_OBJECT

  public:
    /// \param users  outlives the window, as settings and engine do
    StartWindow(Settings& settings, UserList& users, sql::Engine& engine, std::filesystem::path folder,
                QWidget* parent = nullptr);

    /// Tells what the list of users could not be read for; call it once the window is shown.
    void tellTroubles();

    Workspace takeWorkspace() { return std::move(m_workspace); }

  public slots:
    void createUser();
    void enter();
    void deleteUser();

  signals:
    void entered();
    /// The window was closed before anybody entered: the program ends.
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* buildHead();
    QWidget* buildUsers();
    void addItem(const QString& name);
    void fillList();
    int selectedPlace() const;
    /// Asks for the user's password, if there is one. \return whether it was given
    bool unlock(int place);

    Settings& m_settings;
    UserList& m_users;
    sql::Engine& m_engine;
    std::filesystem::path m_folder;
    Workspace m_workspace;
    NameList* m_lstName = nullptr;
    toolkit::NoticeBar* m_notice = nullptr;
};

} // namespace workspace
