// The program: everything that lives from the start of the process to its end, and the way from window to window.
//
// One object, built in main() and handed by reference to nobody as a whole: each window gets the parts that it works
// on. Order: construct, start() shows the users (Frmpre); when one has entered his workspace is opened, repaired
// where that helps, and the main window (Form1) stands; when that closes the process ends.
//
// Each subsystem's desk registers its own commands and opens its own windows; the program makes the desks and wires
// them, and knows no menu entry.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

#include <QObject>

#include "history/book.h"
#include "mainwin/main_context.h"
#include "selection/enumeration.h"
#include "selection/pad.h"
#include "selection/random_numbers.h"
#include "selection/simulator.h"
#include "selection/wheels.h"
#include "sql/database.h"
#include "workspace/settings.h"
#include "workspace/user_list.h"
#include "workspace/workspace.h"

namespace workspace {
class KeptNotice;
struct KeptFiles;
class StartWindow;
} // namespace workspace

namespace mainwin {

class DrawDesk;
class Form1;
class HistoryDesk;
class BetDesk;
class FilterOpener;
class PrizeDesk;
class TableDesk;
class WheelDesk;
class SelectionDesk;
class WorkspaceDesk;

class Program : public QObject {
    Q_OBJECT

  public:
    /// \param folder  the program's folder; templates that are missing there are made
    explicit Program(const std::filesystem::path& folder);
    ~Program() override;

    void start();
    /// Opens the workspace again after its files were replaced, loads the history and shows it as a new window would;
    /// ends the program where they do not open. Close the databases before the files are touched.
    void reopen();

    workspace::Settings settings;
    sql::Engine engine;
    workspace::UserList users{settings};
    workspace::Workspace workspace;
    history::Book book;
    selection::Pad pad;
    selection::ClockNumbers random;
    selection::Simulator simulator{pad, random};
    selection::Wheels wheels;              ///< Wheelopen, Wheeldan, Rotemap, Rotetable, rsWheel
    selection::GenerationInput generation; ///< Genreds, Fromdraw, Drawnlist, Multirows, Multicount, Multitable
    std::int16_t Baoliu = -1;              ///< keep or remove, one flag for all filter windows

  signals:
    /// The first or the main window was closed, or a workspace could not be opened.
    void ended();

  private:
    void enter();
    void finish();
    bool openWorkspace();
    void restore(const workspace::KeptFiles& kept);
    void openMainWindow();
    void openDesks();
    void tellTroubles();

    std::filesystem::path m_folder;
    std::unique_ptr<MainContext> m_context;
    std::unique_ptr<workspace::StartWindow> m_start;
    std::unique_ptr<Form1> m_form;
    std::unique_ptr<HistoryDesk> m_historyDesk;
    std::unique_ptr<FilterOpener> m_opener;
    std::unique_ptr<SelectionDesk> m_selectionDesk;
    std::unique_ptr<BetDesk> m_betDesk;
    std::unique_ptr<WheelDesk> m_wheelDesk;
    std::unique_ptr<TableDesk> m_tableDesk;
    std::unique_ptr<PrizeDesk> m_prizeDesk;
    std::unique_ptr<DrawDesk> m_drawDesk;
    std::unique_ptr<WorkspaceDesk> m_workspaceDesk;
    std::unique_ptr<workspace::KeptNotice> m_kept;
};

} // namespace mainwin
