#include "prize/windows/rules_window.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "toolkit/accent_button.h"
#include "toolkit/card.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/ink_label.h"
#include "toolkit/mask_edit.h"
#include "toolkit/page_tabs.h"

using namespace Qt::StringLiterals;

namespace prize {

namespace {

constexpr QSize kUsefulSize{720, 340};
constexpr int kMostReds = 6;
constexpr int kMargin = 8;
constexpr int kWideSpacing = 16;
constexpr int kFieldWidth = 120;

const QString kNote =
    u"说明:(1)如果本地奖项少于9种,请将剩余的几种奖金设置为0.        (2)中奖金额修改时必须输入是7位,不足须用0补齐."
    u"            (3)\"特别号选中\"选项打勾表示\"是\",不打勾表示\"非\"."_s;

bool isModifier(int key) {
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_Meta ||
           key == Qt::Key_AltGr;
}

/// A caption above what it names.
QWidget* captioned(const QString& caption, QWidget* field) {
    auto* part = new QWidget;
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    field->setFixedWidth(kFieldWidth);
    auto* label = new toolkit::InkLabel({}, &toolkit::Colours::quiet, caption);
    label->setBuddy(field);
    field->setAccessibleName(caption);
    column->addWidget(label);
    column->addWidget(field);
    return part;
}

} // namespace

RulesWindow::RulesWindow(workspace::UserSettings& settings, const toolkit::PlaceStore& places, QWidget* parent)
    : QDialog(parent), m_settings(settings), m_rules(readRules(settings)),
      m_pages(new toolkit::PageTabs(u"tbsOptions"_s, this)) {
    setObjectName(u"frmPrize"_s);
    setWindowTitle(u"中奖规则管理"_s);
    for (int page = 0; page < kRules; ++page)
        m_pages->addPage(u"规则%1"_s.arg(page + 1), makePage(page));
    layOut();
    for (QWidget* child : findChildren<QWidget*>())
        child->installEventFilter(this);
    installEventFilter(this);
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, places);
}

void RulesWindow::layOut() {
    auto* note = new toolkit::InkLabel(u"Label2"_s, &toolkit::Colours::quiet, kNote);
    note->setWordWrap(true);
    auto* ok = new toolkit::AccentButton(u"确定(&O)"_s);
    ok->setObjectName(u"cmdOK"_s);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &RulesWindow::store);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(kWideSpacing);
    foot->addWidget(note, 1);
    foot->addWidget(ok, 0, Qt::AlignBottom);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kMargin);
    column->addWidget(m_pages, 1);
    column->addLayout(foot);
}

QWidget* RulesWindow::makePage(int page) {
    auto* panel = new QWidget;
    panel->setObjectName(u"Picture1(%1)"_s.arg(page));
    auto* column = new QVBoxLayout(panel);
    auto* matches = new QHBoxLayout;
    matches->setSpacing(kMargin);
    matches->addWidget(makeReds(page), 2);
    matches->addWidget(makeBlue(page), 1);
    auto* wins = new QHBoxLayout;
    wins->setSpacing(kWideSpacing);
    wins->addWidget(makeLabel(page));
    wins->addWidget(makeAmount(page));
    wins->addStretch();
    column->addLayout(matches);
    column->addLayout(wins);
    column->addStretch();
    return panel;
}

QWidget* RulesWindow::makeReds(int page) {
    auto* card = new toolkit::Card(u"Frame1(%1)"_s.arg(page), u"红球号"_s);
    auto* grid = new QGridLayout;
    card->body().addLayout(grid);
    card->body().addStretch();
    const int now = m_rules.PrizeMatch[static_cast<std::size_t>(page + 1)][kReds];
    for (int reds = kMostReds; reds >= 1; --reds) {
        auto* option = new QRadioButton(u"%1数选中"_s.arg(reds));
        option->setObjectName(u"Option%1(%2)"_s.arg(reds).arg(page));
        option->setChecked(reds == now);
        grid->addWidget(option, (kMostReds - reds) / 3, (kMostReds - reds) % 3);
        connect(option, &QRadioButton::clicked, this,
                [=, this] { storeReds(m_rules, m_settings, page + 1, static_cast<std::int16_t>(reds)); });
    }
    return card;
}

QWidget* RulesWindow::makeBlue(int page) {
    auto* card = new toolkit::Card(u"Frame2(%1)"_s.arg(page), u"蓝球号"_s);
    auto* check = new QCheckBox(u"特别号选中"_s);
    check->setObjectName(u"Check1(%1)"_s.arg(page));
    check->setChecked(m_rules.PrizeMatch[static_cast<std::size_t>(page + 1)][kBlue] != 0);
    connect(check, &QCheckBox::clicked, this,
            [=, this](bool matched) { storeBlue(m_rules, m_settings, page + 1, matched); });
    card->body().addWidget(check);
    card->body().addStretch();
    return card;
}

// It shows labels that its list does not have; only the list is chosen from.
QWidget* RulesWindow::makeLabel(int page) {
    auto* combo = new QComboBox;
    combo->setObjectName(u"Combo1(%1)"_s.arg(page));
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->lineEdit()->setReadOnly(true);
    for (const QStringView label : kLabels)
        combo->addItem(label.toString());
    combo->setCurrentIndex(-1);
    combo->setEditText(m_rules.Prizerank[static_cast<std::size_t>(page + 1)]);
    connect(combo, &QComboBox::textActivated, this,
            [=, this](const QString& label) { storeLabel(m_rules, m_settings, page + 1, label); });
    return captioned(u"奖项等级设定:"_s, combo);
}

QWidget* RulesWindow::makeAmount(int page) {
    auto* box = new toolkit::MaskEdit(QString(kAmountDigits, u'9'));
    box->setObjectName(u"MaskEdBox1(%1)"_s.arg(page));
    box->setText(QString::number(m_rules.PrizeMoney[static_cast<std::size_t>(page + 1)]));
    m_amounts.first[static_cast<std::size_t>(page + 1)] = box->text();
    m_boxes[static_cast<std::size_t>(page)] = box;
    return captioned(u"单注中奖金额:"_s, box);
}

bool RulesWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers().testFlag(Qt::ControlModifier) && !isModifier(key->key())) {
            nextPage();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void RulesWindow::nextPage() {
    m_pages->choosePage((m_pages->currentPage() + 1) % kRules);
}

void RulesWindow::store() {
    for (std::size_t page = 0; page < kRules; ++page)
        m_amounts.now[page + 1] = m_boxes[page]->text();
    try {
        storeAmounts(m_rules, m_settings, m_amounts);
        accept();
    } catch (const AmountError& failed) {
        toolkit::DialogBoxes(this).warn({failed.message(), u"Error"_s});
        m_pages->choosePage(failed.row() - 1);
        m_boxes[static_cast<std::size_t>(failed.row() - 1)]->setFocus();
    }
}

} // namespace prize
