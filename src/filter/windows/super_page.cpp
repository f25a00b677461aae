#include "filter/windows/super_page.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "filter/windows/row_controls.h"
#include "toolkit/ink_label.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kButtonHeight = 26;
constexpr int kColumns = 2;
constexpr int kKindGap = 8;

/// What stands over and under the filters of a kind.
struct KindTexts {
    SuperKind kind;
    const char16_t* name;
    const char16_t* heading;
    const char16_t* explains;
};

constexpr KindTexts kKinds[] = {
    {SuperKind::History, u"History", u"历史", u"与历史某期同号够数的滤去"},
    {SuperKind::Numbers, u"Numbers", u"号码", u"保留：须全含；相生：全含或全无；相克：不可全含"},
    {SuperKind::Groups, u"Groups", u"分组", u"与所填号码同号够数的留下或滤去"},
    {SuperKind::Template, u"GroupTemplate", u"组号模板", u"与组号模板相同的组合将其过滤掉"},
};

} // namespace

SuperPage::SuperPage(const FilterMember& member, QWidget* parent) : QWidget(parent) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    const auto say = [&](const QString& name, toolkit::InkLabel::Ink ink, const QString& words) {
        auto* label = new toolkit::InkLabel(name, ink, words, this);
        label->setWordWrap(true);
        column->addWidget(label);
    };
    say(u"FrameSuperHeading"_s, &toolkit::Colours::quiet, u"红球超级过滤"_s);
    for (const KindTexts& kind : kKinds) {
        auto* grid = new QGridLayout;
        grid->setSpacing(4);
        for (int place = 0; place < kColumns; ++place)
            grid->setColumnStretch(place, 1);
        int place = 0;
        for (const SuperFilter& filter : superFiltersOf(member))
            if (filter.kind == kind.kind) {
                grid->addWidget(makeButton(filter), place / kColumns, place % kColumns);
                ++place;
            }
        if (place == 0) {
            delete grid;
            continue;
        }
        const QString name = QString::fromUtf16(kind.name);
        say(name + u"Heading"_s, &toolkit::Colours::text, QString::fromUtf16(kind.heading));
        column->addLayout(grid);
        say(name + u"Explains"_s, &toolkit::Colours::quiet, QString::fromUtf16(kind.explains));
        column->addSpacing(kKindGap);
    }
    column->addStretch();
    if (member.features.templates)
        say(u"SuperAdvice"_s, &toolkit::Colours::quiet, u"左键过滤；右键添加到过滤模板"_s);
}

PressButton* SuperPage::makeButton(const SuperFilter& filter) {
    auto* button = new PressButton(QString::fromUtf8(filter.caption), this);
    button->setObjectName(QString::fromUtf8(filter.option));
    button->setToolTip(QString::fromUtf8(filter.explains));
    button->setFixedHeight(kButtonHeight);
    connect(button, &PressButton::pressedBy, this,
            [this, &filter](Qt::MouseButton pressed) { emit filterPressed(filter, pressed); });
    return button;
}

void SuperPage::markUsed(const SuperFilter& filter) {
    for (PressButton* button : findChildren<PressButton*>()) {
        const bool run = button->objectName() == QString::fromUtf8(filter.option);
        button->setChecked(run);
        if (run)
            button->markUsed();
    }
}

} // namespace filter
