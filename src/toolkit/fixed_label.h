// A label whose size does not follow its text: one that changes many times a second would lay out its window each time.
#pragma once

#include <QLabel>

namespace toolkit {

/// Fixes the size of a label to that of the widest text it will show, in the font that it has now.
inline void fixSize(QLabel& label, const QString& widest) {
    const QString shown = label.text();
    label.setText(widest);
    label.setFixedSize(label.sizeHint());
    label.setText(shown);
}

} // namespace toolkit
