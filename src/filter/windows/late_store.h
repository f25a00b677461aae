// Writes what a window changed in combination tables to their file, late enough not to be felt.
//
// Changes are announced by changed(). They are stored once nothing more has come for a moment, at the latest two
// seconds after the first of them, and when it goes. A failure is told once for the same changes; they stay pending.
#pragma once

#include <QTimer>

namespace sql {
class Database;
}

namespace filter {

class LateStore : public QObject {
    Q_OBJECT
  public:
    /// \param database  outlives it  \param window  over which a failure is told
    LateStore(sql::Database& database, QWidget& window);
    ~LateStore() override;

    void changed();
    void storeNow();

  private:
    sql::Database& m_database;
    QWidget& m_window;
    QTimer m_idle;              ///< started anew by each change
    QTimer m_latest;            ///< started by the first change that is not stored yet
    bool m_failureTold = false; ///< that what is pending could not be stored
};

} // namespace filter
