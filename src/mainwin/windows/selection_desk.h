// The commands of 选号管理: saves, calls and adds selections, chooses numbers by frequency and absence, and opens the
// selection template.
#pragma once

#include <QObject>
#include <QWidget>

#include "mainwin/main_context.h"
#include "selection/ranked_numbers.h"
#include "selection/saved_selections.h"

namespace mainwin {

class SelectionDesk : public QObject {
    Q_OBJECT
  public:
    /// Registers its commands. All three outlive the desk.
    SelectionDesk(MainContext& context, sql::Engine& engine, QWidget& window);

  signals:
    /// The combination database does not open: the program has to end. It was told.
    void broken();

  private:
    void save();
    /// \param use  callSelection or addSelection
    void usePicked(const QString& title, void (*use)(selection::Pad&, const selection::SavedNumbers&));
    void chooseRanked(const selection::RankedSelection& selection);
    void openTemplate();
    /// Runs what reads or writes; a failure is told and ends the command.
    template <class Work> void attempt(const QString& happened, const QString& title, Work work);

    MainContext& m_context;
    sql::Engine& m_engine;
    QWidget& m_window;
};

} // namespace mainwin
