#include "history/book.h"

#include <QScopeGuard>

#include "history/maintenance.h"
#include "history/store.h"

namespace history {

void Book::replace(History history) {
    m_history = std::move(history);
    emit replaced();
}

void Book::load(const workspace::Workspace& workspace) {
    loadHistory(m_history, workspace);
    emit replaced();
}

void Book::type(const workspace::Workspace& workspace, const Draw& draw) {
    typeDraw(m_history, workspace, draw);
    emit appended();
}

/// Where memory and table were out of step more than the last draw has changed.
void Book::deleteLast(const workspace::Workspace& workspace) {
    const int before = m_history.Lsnum;
    deleteLastDraw(m_history, workspace);
    if (m_history.Lsnum == before - 1)
        emit removed();
    else
        emit replaced();
}

void Book::clear(const workspace::Workspace& workspace) {
    clearHistory(m_history, workspace);
    emit replaced();
}

void Book::correct(const workspace::Workspace& workspace, int draw, int slot, std::int32_t value) {
    correctNumber(m_history, workspace, draw, slot, value);
    emit corrected(draw);
}

Reading Book::read(ReadText readText, const workspace::Workspace& workspace, workspace::Dialogs& dialogs) {
    auto reading = Reading::Failed;
    const auto tell = qScopeGuard([&] {
        if (reading != Reading::Cancelled)
            emit replaced();
    });
    reading = readText(m_history, workspace, dialogs, QDateTime::currentDateTime());
    return reading;
}

void Book::writeText(const workspace::Workspace& workspace) {
    writeHistoryText(m_history, workspace);
}

void Book::retryText(const workspace::Workspace& workspace) {
    retryHistoryText(m_history, workspace);
}

} // namespace history
