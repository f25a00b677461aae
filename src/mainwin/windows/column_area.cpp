#include "mainwin/windows/column_area.h"

#include <QEvent>
#include <QScrollBar>

namespace mainwin {

ColumnArea::ColumnArea(QWidget* content, const QString& name) {
    setObjectName(name);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidget(content);
    content->installEventFilter(this);
    verticalScrollBar()->installEventFilter(this);
    fitWidth();
}

bool ColumnArea::eventFilter(QObject* watched, QEvent* event) {
    const bool bar = event->type() == QEvent::Show || event->type() == QEvent::Hide;
    if ((watched == verticalScrollBar() && bar) || event->type() == QEvent::LayoutRequest)
        fitWidth();
    return QScrollArea::eventFilter(watched, event);
}

void ColumnArea::fitWidth() {
    const int bar = verticalScrollBar()->isVisibleTo(this) ? verticalScrollBar()->sizeHint().width() : 0;
    setMinimumWidth(widget()->minimumSizeHint().width() + bar);
}

} // namespace mainwin
