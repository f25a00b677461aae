#include "mainwin/windows/draw_entry.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

#include "toolkit/mask_edit.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kBoxWidth = 34;

} // namespace

DrawEntry::DrawEntry(QWidget* parent) : QWidget(parent), m_caption(new QLabel) {
    setObjectName(u"HistoryEntry"_s);
    m_caption->setObjectName(u"Label12"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_caption);
    layout->addStretch();
    for (std::size_t place = 0; place < m_boxes.size(); ++place) {
        const bool blue = place + 1 == m_boxes.size();
        auto* box = new toolkit::MaskEdit(u"99"_s);
        box->setObjectName(u"MaskEdBox1(%1)"_s.arg(place + 1));
        box->setAccessibleName(blue ? u"新开奖号码 蓝球"_s : u"新开奖号码 红球%1"_s.arg(place + 1));
        box->setFixedWidth(kBoxWidth);
        box->installEventFilter(this);
        connect(box, &toolkit::MaskEdit::filled, this, [this, place] { boxFilled(place); });
        layout->addWidget(box);
        m_boxes[place] = box;
    }
}

void DrawEntry::setCaption(const QString& text) {
    m_caption->setText(text);
}

void DrawEntry::clear() {
    for (toolkit::MaskEdit* box : m_boxes)
        box->clearToMask();
    focusFirst();
}

void DrawEntry::focusFirst() {
    m_boxes.front()->setFocus(Qt::OtherFocusReason);
}

void DrawEntry::focusBox(int box) {
    toolkit::MaskEdit& wrong = *m_boxes[static_cast<std::size_t>(box - 1)];
    wrong.setFocus(Qt::OtherFocusReason);
    wrong.selectAll();
}

bool DrawEntry::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        if (watched == m_boxes.back())
            m_typed = false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && isFull()) {
            submit();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void DrawEntry::boxFilled(std::size_t place) {
    if (place + 1 < m_boxes.size())
        return m_boxes[place + 1]->setFocus(Qt::OtherFocusReason);
    if (!m_typed)
        submit();
}

bool DrawEntry::isFull() const {
    return std::none_of(m_boxes.begin(), m_boxes.end(),
                        [](const toolkit::MaskEdit* box) { return box->maskedText().contains(u'_'); });
}

void DrawEntry::submit() {
    m_typed = true;
    history::TypedBoxes boxes;
    for (std::size_t box = 0; box < boxes.size(); ++box)
        boxes[box] = m_boxes[box]->maskedText();
    emit typed(boxes);
}

} // namespace mainwin
