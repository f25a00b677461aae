// The history as a thing that changes: it holds the draws, makes every change of them, and says which one it was.
//
// Grids, shares, menus and charts listen. Each change is that of maintenance.h, store.h or text_file.h: files first,
// then memory, then the signal; a change that throws has changed nothing, and none is said.
#pragma once

#include <QObject>

#include "history/history.h"
#include "history/text_file.h"
#include "workspace/workspace.h"

namespace history {

class Book : public QObject {
    Q_OBJECT
  public:
    const History& history() const { return m_history; }

    /// A history that was made elsewhere takes the place of this one.
    void replace(History history);
    /// Fills it from the tables of dbUser. \throws as loadHistory
    void load(const workspace::Workspace& workspace);

    /// One draw behind the others. \throws as history::typeDraw
    void type(const workspace::Workspace& workspace, const Draw& draw);
    /// \throws as deleteLastDraw
    void deleteLast(const workspace::Workspace& workspace);
    /// \throws as clearHistory
    void clear(const workspace::Workspace& workspace);
    /// \throws as correctNumber
    void correct(const workspace::Workspace& workspace, int draw, int slot, std::int32_t value);

    /// readWhole or readAppended.
    using ReadText = Reading (*)(History&, const workspace::Workspace&, workspace::Dialogs&, const QDateTime&);
    /// \throws as the reading; what it has left in memory is said to have been replaced then, too
    Reading read(ReadText readText, const workspace::Workspace& workspace, workspace::Dialogs& dialogs);

    /// Writes the default text anew, after files of the workspace were replaced.
    void writeText(const workspace::Workspace& workspace);
    /// A default text that could not be written is tried once more.
    void retryText(const workspace::Workspace& workspace);

  signals:
    /// A draw came behind the others.
    void appended();
    /// The last draw is gone.
    void removed();
    /// A number of this draw is another; the issue numbers behind it too. \param draw  1..Lsnum
    void corrected(int draw);
    /// Nothing is as it was.
    void replaced();

  private:
    History m_history;
};

} // namespace history
