#include "toolkit/status_panel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace toolkit {

StatusPanel::StatusPanel(int index, QWidget* parent) : QLabel(parent) {
    setObjectName(u"StatusBar1(%1)"_s.arg(index));
    setTextFormat(Qt::PlainText);
    setContentsMargins(6, 0, 6, 0);
}

QSize StatusPanel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth(), QLabel::minimumSizeHint().height()};
}

QString StatusPanel::shownText() const {
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool StatusPanel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), shownText() == text() ? QString() : text(),
                       this);
    return true;
}

void StatusPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          shownText(), foregroundRole());
}

} // namespace toolkit
