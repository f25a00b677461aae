#include "filter/windows/late_store.h"

#include <QWidget>

#include "sql/database.h"
#include "toolkit/messages.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

// Long enough that a row of quick presses is stored once, short enough that a pause is safe: the full table is stored
// in about a fifth of a second.
constexpr int kIdleMs = 600;
// However quickly one press follows another: at the latest this long after the first of them all are stored.
constexpr int kLatestMs = 2000;

const QString kStillThere = u"结果仍在程序中，没有丢失；请排除原因后再操作一次，程序会重新写入。"_s;

} // namespace

LateStore::LateStore(sql::Database& database, QWidget& window) : m_database(database), m_window(window) {
    for (const auto& [timer, wait] : {std::pair(&m_idle, kIdleMs), std::pair(&m_latest, kLatestMs)}) {
        timer->setSingleShot(true);
        timer->setInterval(wait);
        connect(timer, &QTimer::timeout, this, &LateStore::storeNow);
    }
}

LateStore::~LateStore() {
    storeNow();
}

void LateStore::changed() {
    m_failureTold = false;
    m_idle.start();
    if (!m_latest.isActive())
        m_latest.start();
}

void LateStore::storeNow() {
    m_idle.stop();
    m_latest.stop();
    if (!m_database.storePending())
        return;
    try {
        m_database.store();
    } catch (const sql::SqlError& error) {
        if (m_failureTold)
            return; // the same changes failed before; they stay pending
        m_failureTold = true;
        toolkit::showMessage(
            &m_window, workspace::failureMessage(error, u"过滤结果没有写入文件"_s, u"数据库错误"_s, kStillThere),
            {QMessageBox::Critical});
    }
}

} // namespace filter
