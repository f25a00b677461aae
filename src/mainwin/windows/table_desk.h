// The entries of 功能窗口 that open a combination table that is there: the last one made, the bets of a text, the
// group template; and the reading of a text.
#pragma once

#include <QObject>

#include "mainwin/windows/filter_opener.h"
#include "selection/bet_text.h"

namespace mainwin {

class TableDesk : public QObject {
    Q_OBJECT
  public:
    /// Registers its commands. Both outlive the desk.
    TableDesk(MainContext& context, FilterOpener& opener);

  private:
    /// A text's kind: its table and its window.
    struct TextBets {
        selection::BetTextTarget target;
        std::string_view form;
        bool apart = false; ///< the window looks into another file than the one that is written
    };
    void readText(const TextBets& bets);
    std::optional<int> askStart();
    /// Opens the window of six reds from a text, which looks into filnumR: it offers what was read into filnum.
    void openApart(const QString& notice, bool offered);
    QString read(const TextBets& bets, const QString& file, int start);
    void store();

    MainContext& m_context;
    FilterOpener& m_opener;
    QString m_fileFilter; ///< empty at the first reading
};

} // namespace mainwin
