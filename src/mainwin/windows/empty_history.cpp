#include "mainwin/windows/empty_history.h"

#include <QVBoxLayout>

#include "toolkit/accent_button.h"
#include "toolkit/ink_label.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kButtonWidth = 132;
constexpr qreal kTitleSize = 1.13;

} // namespace

EmptyHistory::EmptyHistory(QWidget* parent) : QWidget(parent), m_button(new toolkit::AccentButton) {
    setObjectName(u"HistoryEmpty"_s);
    auto* title = new toolkit::InkLabel(u"HistoryEmptyTitle"_s, &toolkit::Colours::text, u"还没有历史号码"_s);
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kTitleSize);
    title->setFont(font);
    m_button->setMinimumWidth(kButtonWidth);
    auto* layout = new QVBoxLayout(this);
    layout->addStretch(1);
    layout->addWidget(title, 0, Qt::AlignHCenter);
    const QString lines[] = {u"按“读取历史”读入文本文件。程序附带的开奖号码"_s,
                             u"放在文件夹“双色历史号码”里，选它即可。"_s};
    int line = 0;
    for (const QString& text : lines)
        layout->addWidget(
            new toolkit::InkLabel(u"HistoryEmptyLine(%1)"_s.arg(++line), &toolkit::Colours::quiet, text), 0,
            Qt::AlignHCenter);
    layout->addWidget(m_button, 0, Qt::AlignHCenter);
    layout->addStretch(2);
}

} // namespace mainwin
