// The entries of 用户设置: the user's name, the rule of the lottery, how bets are printed, light or dark.
#pragma once

#include <QObject>
#include <QWidget>

#include "mainwin/main_context.h"
#include "toolkit/look.h"
#include "workspace/user_list.h"

namespace sql {
class Engine;
}

namespace mainwin {

/// Light or dark, as all users share it: setting "Look" of section "Option"; what is no choice follows the desktop.
toolkit::Scheme storedScheme(const workspace::Settings& settings);

/// What a new name needs beside the main context.
struct UserFiles {
    workspace::Settings& settings;
    workspace::UserList& users;
    sql::Engine& engine;
};

class WorkspaceDesk : public QObject {
    Q_OBJECT
  public:
    /// Reads the settings and registers its commands. \param context  outlives the desk, as files and window do
    WorkspaceDesk(MainContext& context, const UserFiles& files, QWidget& window);

    int Printrow = 5; ///< bets per printed line, setting "dayin"

  signals:
    /// The user bears this name from the next start on.
    void renamed(const QString& name);
    /// The rule was changed and saved; the pad has it.
    void ruleChanged();

  private:
    void setRule(int reds, int blues);
    void askPrintRow();
    void chooseLook(int scheme);

    MainContext& m_context;
    UserFiles m_files;
    QWidget& m_window;
};

} // namespace mainwin
