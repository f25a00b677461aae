#include "toolkit/ball_grid.h"

#include <algorithm>

#include <QGridLayout>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace toolkit {

BallGrid::BallGrid(const Look& look, QWidget* parent)
    : QWidget(parent), m_columns(look.columns), m_shown(look.count) {
    setObjectName(look.name);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->setColumnStretch(m_columns, 1);
    for (int number = 1; number <= look.count; ++number) {
        auto* ball = new NumberBall(look.kind, number);
        ball->setObjectName(u"%1(%2)"_s.arg(look.ballName).arg(number));
        ball->setFocusPolicy(Qt::ClickFocus);
        ball->installEventFilter(this);
        grid->addWidget(ball, (number - 1) / m_columns, (number - 1) % m_columns);
        m_balls.push_back(ball);
    }
    stopAt(0);
}

void BallGrid::showUpTo(int number) {
    m_shown = number;
    for (NumberBall* ball : m_balls) {
        ball->setVisible(ball->number() <= number);
        ball->setEnabled(ball->number() <= number);
    }
    if (m_stop >= number)
        stopAt(0);
}

void BallGrid::stopAt(int place) {
    m_balls[static_cast<std::size_t>(m_stop)]->setFocusPolicy(Qt::ClickFocus);
    m_stop = place;
    m_balls[static_cast<std::size_t>(m_stop)]->setFocusPolicy(Qt::StrongFocus);
}

/// \return whether the key belongs to the pad, even where there is no ball to go to
bool BallGrid::moveFrom(int place, int key) {
    const int column = place % m_columns;
    const int rowEnd = std::min(place - column + m_columns, m_shown) - 1;
    int next = place;
    switch (key) {
    case Qt::Key_Left:
        next = std::max(place - 1, place - column);
        break;
    case Qt::Key_Right:
        next = std::min(place + 1, rowEnd);
        break;
    case Qt::Key_Up:
        next = place - m_columns;
        break;
    case Qt::Key_Down:
        next = place + m_columns;
        break;
    case Qt::Key_Home:
        next = place - column;
        break;
    case Qt::Key_End:
        next = rowEnd;
        break;
    default:
        return false;
    }
    if (next >= 0 && next < m_shown)
        m_balls[static_cast<std::size_t>(next)]->setFocus(Qt::OtherFocusReason);
    return true;
}

bool BallGrid::eventFilter(QObject* watched, QEvent* event) {
    const auto* ball = qobject_cast<NumberBall*>(watched);
    if (!ball)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn)
        stopAt(ball->number() - 1);
    return event->type() == QEvent::KeyPress && moveFrom(ball->number() - 1, static_cast<QKeyEvent*>(event)->key());
}

} // namespace toolkit
