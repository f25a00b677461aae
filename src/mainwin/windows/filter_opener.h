// Opens the windows of the filter family: fills the table of a member from a source of bets, behind a progress that
// can be given up, and runs its window.
#pragma once

#include <cstdint>
#include <string_view>

#include <QString>
#include <QWidget>

#include "filter/member.h"
#include "filter/windows/bet_printer.h"
#include "mainwin/main_context.h"
#include "selection/bet_source.h"

namespace filter {
class FilterWindow;
}

namespace mainwin {

/// Above so many bets the progress tells what they cost in memory and time.
inline constexpr std::int64_t kManyBets = 2'000'000;

/// "17,721,088 注，约需内存 450 MB、时间 1 秒"; empty for a moderate number.
QString costOfMaking(std::int64_t bets);

/// Bets that a window offers to show in place of its own.
struct BetOffer {
    selection::BetSource& source;
    QString caption;
    QString toolTip;
    QString emptyText;           ///< in place of the bets, while there is none
    workspace::Message question; ///< asked before bets that are there go
    QString taken;               ///< the notice afterwards
};

class FilterOpener {
  public:
    /// \param Baoliu  keep or remove, one flag for all filter windows; all of it outlives the opener
    FilterOpener(MainContext& context, sql::Engine& engine, std::int16_t& Baoliu, QWidget& window)
        : m_context(context), m_engine(engine), m_Baoliu(Baoliu), m_window(window) {}

    /// Does not open when the user gives up: the former table is there then.
    /// \param form  of kFilterMembers  \param bets  about as many will be made, 0: not known
    /// \param notice  stands at the top of the window; empty: nothing
    void open(std::string_view form, selection::BetSource& source, std::int64_t bets = 0, const QString& notice = {},
              const BetOffer* offer = nullptr);
    /// On the table as it is, filter states and all.
    void openKept(std::string_view form, const QString& notice = {}, const BetOffer* offer = nullptr);
    /// How many rows the table of a member has; 0 where its file does not open.
    std::int64_t rowsOf(std::string_view form);

    /// How the windows that it opens print; until this is set, nowhere.
    void setPrinting(std::function<filter::PrintSetting()> printing) { m_printing = std::move(printing); }

    QWidget& window() const { return m_window; }
    sql::Engine& engine() const { return m_engine; }

  private:
    /// \return nullptr when the file does not open: that has been told, and the program ends
    sql::Database* databaseOf(const filter::FilterMember& member);
    void prepareOffer(filter::FilterWindow& window, std::string_view form, const BetOffer& offer);
    void tellBroken(const std::exception& failure);

    MainContext& m_context;
    sql::Engine& m_engine;
    std::int16_t& m_Baoliu;
    QWidget& m_window;
    std::function<filter::PrintSetting()> m_printing = [] { return filter::PrintSetting(); };
};

} // namespace mainwin
