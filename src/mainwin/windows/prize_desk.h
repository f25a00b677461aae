// The commands of prizes and accounts: the rules, the nine prize queries, and the reports of profit and loss.
#pragma once

#include <filesystem>

#include <QObject>
#include <QWidget>

#include "mainwin/main_context.h"
#include "workspace/settings.h"

namespace prize {
struct QueryEntry;
}

namespace mainwin {

class PrizeDesk : public QObject {
    Q_OBJECT
  public:
    /// Registers its commands. All four outlive the desk.
    PrizeDesk(MainContext& context, workspace::Settings& settings, sql::Engine& engine, QWidget& window);

  signals:
    /// The combination database does not open: the program has to end. It was told.
    void broken();

  private:
    void setRules();
    void showReports();
    std::filesystem::path userFolder() const;
    void query(const prize::QueryEntry& entry);
    sql::Database* databaseOf(const prize::QueryEntry& entry);

    MainContext& m_context;
    workspace::Settings& m_settings;
    sql::Engine& m_engine;
    QWidget& m_window;
};

} // namespace mainwin
