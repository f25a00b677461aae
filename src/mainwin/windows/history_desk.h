// What the user does to the history in the main window: types a draw, corrects a number, deletes the last draw,
// clears, reads a text, edits it, fetches it from the network. Each asks, does it, and tells what went wrong; what
// has changed is said by the book.
#pragma once

#include <vector>

#include <QObject>

#include "history/typed_draw.h"
#include "mainwin/main_context.h"
#include "workspace/settings.h"

namespace sql {
class Engine;
}

namespace mainwin {

class HistoryPanel;

class HistoryDesk : public QObject {
    Q_OBJECT
  public:
    /// Registers its commands and listens to what is typed in the panel. All outlive the desk.
    HistoryDesk(MainContext& context, const workspace::Settings& settings, sql::Engine& engine, HistoryPanel& panel);

    /// The program ends: a default text that could not be written is tried once more.
    void finish();

  signals:
    /// A line about the history that stays in sight; empty: none.
    void noted(const QString& note);
    /// The user's databases are others now and have to be opened again.
    void filesReplaced();

  private:
    void registerCommands();
    void typeDraw(const history::TypedBoxes& boxes);
    void correct(int draw, int slot, const QString& text);
    void deleteLast();
    void undoDeletion();
    void forgetDeleted();
    void showDeleted();
    void clear();
    void read(history::Book::ReadText readText);
    /// In the program that the setting "Editor" of section "Option" names, with its arguments; else in the desktop's
    /// own editor.
    void editText();
    void downloadText();
    void updateOnline();
    void tell(const history::Complaint& complaint);
    /// \param what  the failure in words, "最后一期没有删除"
    /// \return false when the change threw: that is told, and nothing has changed
    template <class Change> bool done(const QString& what, Change change);
    /// Notes that the default text is behind, else the note.
    void showNote(const QString& note = {});

    MainContext& m_context;
    history::Book& m_book;
    const workspace::Settings& m_settings;
    sql::Engine& m_engine;
    HistoryPanel& m_panel;
    std::vector<history::Draw> m_deleted; ///< since another draw came; the last one goes back first
};

} // namespace mainwin
