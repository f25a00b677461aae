#include "selection/windows/range_window.h"

#include <limits>

#include <QGridLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/number_text.h"
#include "toolkit/accent_button.h"
#include "toolkit/card.h"
#include "toolkit/ink_label.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

enum Box { Draws, FirstIssue, LastIssue };
constexpr int kBoxWidth = 96;
constexpr int kLongestNumber = 9; // fits 32 bits
constexpr QSize kUsefulSize{420, 212};
const QString kFrame = u"高/低频选号范围设定"_s;

std::int32_t number(const QLineEdit& box) {
    using Limits = std::numeric_limits<std::int32_t>;
    return base::wholeWithin(base::val(box.text().toStdString()), Limits::min(), Limits::max());
}

} // namespace

RangeWindow::RangeWindow(const history::History& history, const toolkit::PlaceStore& places, QWidget* parent)
    : QDialog(parent), m_history(history), m_count(new toolkit::InkLabel(u"RangeCount"_s, &toolkit::Colours::quiet)),
      m_ok(new toolkit::AccentButton(u"确定(&K)"_s)) {
    setObjectName(u"frmXhfw"_s);
    setWindowTitle(kFrame);
    m_ok->setObjectName(u"Command1"_s);
    m_ok->setDefault(true);
    auto* cancel = new QPushButton(u"取消"_s);
    cancel->setObjectName(u"cmdCancel"_s);
    cancel->setToolTip(u"放弃这次选号"_s);
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(buildFrame(), 1);
    layout->addLayout(buttons);
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, places);
    option(DrawRange::Kind::All)->setFocus();
    showCount();
}

QWidget* RangeWindow::buildFrame() {
    auto* frame = new toolkit::Card(u"Frame1"_s, kFrame);
    const bool empty = m_history.Lsnum == 0;
    const QString first = empty ? u"2003001"_s : QString::number(m_history.Lshm[1][0]);
    const QString last =
        empty ? u"2004001"_s : QString::number(m_history.Lshm[static_cast<std::size_t>(m_history.Lsnum)][0]);
    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(8);
    rows->addWidget(addOption(DrawRange::Kind::All, u"所有期数检索"_s), 0, 0);
    rows->addWidget(addOption(DrawRange::Kind::Issues, u"指定区间检索"_s), 1, 0);
    rows->addWidget(addBox(FirstIssue, first, u"第一期的期号"_s, DrawRange::Kind::Issues), 1, 1);
    rows->addWidget(new QLabel(u"至"_s), 1, 2);
    rows->addWidget(addBox(LastIssue, last, u"最后一期的期号"_s, DrawRange::Kind::Issues), 1, 3);
    rows->addWidget(addOption(DrawRange::Kind::Latest, u"指定期数检索"_s), 2, 0);
    rows->addWidget(addBox(Draws, u"100"_s, u"最近多少期"_s, DrawRange::Kind::Latest), 2, 1);
    rows->addWidget(new QLabel(u"期"_s), 2, 2);
    rows->setColumnStretch(4, 1);
    frame->body().addLayout(rows);
    frame->body().addStretch();
    frame->body().addWidget(m_count);
    option(DrawRange::Kind::All)->setChecked(true);
    return frame;
}

QRadioButton* RangeWindow::addOption(DrawRange::Kind kind, const QString& caption) {
    auto* button = new QRadioButton(caption);
    button->setObjectName(u"Option1(%1)"_s.arg(static_cast<int>(kind)));
    connect(button, &QRadioButton::toggled, this, &RangeWindow::showCount);
    option(kind) = button;
    return button;
}

QLineEdit* RangeWindow::addBox(int index, const QString& text, const QString& meaning, DrawRange::Kind kind) {
    auto* box = new QLineEdit(text);
    box->setObjectName(u"Text1(%1)"_s.arg(index));
    box->setAccessibleName(meaning);
    box->setToolTip(meaning);
    box->setMaxLength(kLongestNumber);
    box->setFixedWidth(kBoxWidth);
    connect(box, &QLineEdit::textEdited, this, [this, kind] {
        option(kind)->setChecked(true);
        showCount();
    });
    m_boxes[static_cast<std::size_t>(index)] = box;
    return box;
}

DrawRange RangeWindow::range() const {
    DrawRange range{DrawRange::Kind::All, number(*m_boxes[FirstIssue]), number(*m_boxes[LastIssue]),
                    number(*m_boxes[Draws])};
    for (const DrawRange::Kind kind : {DrawRange::Kind::Issues, DrawRange::Kind::Latest})
        if (m_options[static_cast<std::size_t>(kind)]->isChecked())
            range.kind = kind;
    return range;
}

void RangeWindow::showCount() {
    if (!m_boxes[Draws])
        return; // not built yet
    const int draws = drawsIn(m_history, range());
    m_count->setText(draws > 0 ? u"检索 %1 期"_s.arg(draws) : u"这个范围内没有历史号码"_s);
    m_count->setInk(draws > 0 ? &toolkit::Colours::quiet : &toolkit::Colours::goldText);
    m_ok->setEnabled(draws > 0);
    m_ok->setToolTip(draws > 0 ? QString() : m_count->text());
}

} // namespace selection
