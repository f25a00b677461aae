#include "mainwin/windows/cell_edit.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>

#include "toolkit/data_grid.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

bool isDigit(const QString& text) {
    return text.size() == 1 && text[0] >= u'0' && text[0] <= u'9';
}

/// A key that would look for a row that begins with it, as against one that moves or gives a command.
bool isCharacter(const QKeyEvent& key) {
    const bool command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !command && !key.text().isEmpty() && key.text()[0].isPrint();
}

} // namespace

CellEdit::CellEdit(toolkit::DataGrid& grid, int firstColumn)
    : QObject(&grid), m_grid(grid), m_edit(new QLineEdit(grid.viewport())), m_firstColumn(firstColumn) {
    m_edit->setObjectName(u"Text1"_s);
    m_edit->setAccessibleName(u"改正历史号码"_s);
    m_edit->setAlignment(Qt::AlignCenter);
    m_edit->setTextMargins(-2, 0, -2, 0); // a cell is hardly wider than its number
    m_edit->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), m_edit));
    m_edit->hide();
    m_edit->installEventFilter(this);
    grid.installEventFilter(this);
    connect(grid.model(), &QAbstractItemModel::modelReset, this, &CellEdit::close);
    connect(grid.model(), &QAbstractItemModel::rowsRemoved, this, [this] {
        if (!m_cell.isValid())
            close();
    });
    connect(grid.horizontalHeader(), &QHeaderView::sectionResized, this, &CellEdit::place);
}

void CellEdit::close() {
    m_cell = QPersistentModelIndex();
    if (m_edit->hasFocus())
        m_grid.setFocus(Qt::OtherFocusReason);
    m_edit->hide();
}

bool CellEdit::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        return watched == m_edit ? editKey(key) : gridKey(key);
    }
    if (watched == m_edit && event->type() == QEvent::FocusOut) {
        // A message box above the window, and a menu of the edit itself, give the focus back.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            close();
    }
    return QObject::eventFilter(watched, event);
}

/// \return whether the key goes no further
bool CellEdit::gridKey(const QKeyEvent& key) {
    if (!isCharacter(key))
        return false;
    const QModelIndex cell = m_grid.currentIndex();
    if (isDigit(key.text()) && cell.isValid() && cell.column() >= m_firstColumn)
        open(cell, key.text());
    return true;
}

bool CellEdit::editKey(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        if (m_cell.isValid())
            emit entered(m_cell, m_edit->text());
        return true;
    }
    if (key.key() == Qt::Key_Escape) {
        close();
        return true;
    }
    return false;
}

void CellEdit::open(const QModelIndex& cell, const QString& digit) {
    m_cell = cell;
    m_grid.scrollTo(cell);
    place();
    m_edit->setText(cell.data().toString() + digit);
    m_edit->show();
    m_edit->setFocus(Qt::OtherFocusReason);
}

void CellEdit::place() {
    if (m_cell.isValid())
        m_edit->setGeometry(m_grid.visualRect(m_cell));
}

} // namespace mainwin
