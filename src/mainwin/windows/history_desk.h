// What the user does to the history in the main window: types a draw, corrects a number, deletes the last draw,
// clears, reads a text, edits it. Each call asks, does it, tells what went wrong, and shows the result.
#pragma once

#include <QObject>

#include "history/text_file.h"
#include "history/typed_draw.h"
#include "workspace/settings.h"

namespace mainwin {

class Form1;

class HistoryDesk : public QObject {
    Q_OBJECT
  public:
    /// All outlive the desk. It listens to the form's typed draws and numbers.
    HistoryDesk(history::History& history, const workspace::Workspace& workspace, const workspace::Settings& settings,
                Form1& form);

    void readWhole();
    void readAppended();
    /// In the program that the setting "Editor" of section "Option" names, with its arguments; else in the desktop's
    /// own editor.
    void editText();
    /// A draw is held.
    void deleteLast();
    void clear();
    /// The program ends: a default text that could not be written is tried once more.
    void finish();

  private:
    using ReadText = history::Reading (*)(history::History&, const workspace::Workspace&, workspace::Dialogs&,
                                          const QDateTime&);

    void typeDraw(const history::TypedBoxes& boxes);
    void correct(int draw, int slot, const QString& text);
    void read(ReadText readText);
    void tell(const history::Complaint& complaint);
    /// \param what  the failure in words, "最后一期没有删除"
    /// \return false when the change threw: that is told, and nothing has changed
    template <class Change> bool done(const QString& what, Change change);
    /// Shows in the status bar that the default text is behind, else the note.
    void showNote(const QString& note = {});

    history::History& m_history;
    const workspace::Workspace& m_workspace;
    const workspace::Settings& m_settings;
    Form1& m_form;
};

} // namespace mainwin
