#include "toolkit/status_panel.h"

using namespace Qt::StringLiterals;

namespace toolkit {

StatusPanel::StatusPanel(int index, QWidget* parent) : QLabel(parent) {
    setObjectName(u"StatusBar1(%1)"_s.arg(index));
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setContentsMargins(6, 0, 6, 0);
}

QSize StatusPanel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth(), QLabel::minimumSizeHint().height()};
}

} // namespace toolkit
