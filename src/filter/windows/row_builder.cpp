#include "filter/windows/row_builder.h"

#include "filter/range_search.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr qsizetype kShownDigits = 4; // of a range box

QLineEdit* makeBox(const QString& name, const QString& accessible, QWidget* parent) {
    auto* box = new KeyedEdit(kNumberKeys.toString(), parent);
    box->setObjectName(name);
    box->setAccessibleName(accessible);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return box;
}

/// Makes one control after another of the row of `p`.
struct Builder {
    const Parameter& p;
    TableRows& rows;
    QString caption = QString::fromUtf8(p.caption);
    QString family = QString::fromUtf8(p.boxes.name);

    void name(TableRow& row) const {
        row.tick = new TickBox(caption, &rows);
        row.tick->setObjectName(indexedName(u"Check1"_s, p.tick));
        row.name = new PressButton(caption, &rows);
        row.name->setObjectName(QString::fromUtf8(p.option));
        row.name->setToolTip(QString::fromUtf8(p.counts));
        if (p.weighed)
            row.name->markColoured();
    }

    void range(TableRow& row) const {
        row.low = makeBox(indexedName(family, p.boxes.low), caption + u" 下限"_s, &rows);
        row.high = makeBox(indexedName(family, p.boxes.high), caption + u" 上限"_s, &rows);
        for (QLineEdit* box : {row.low, row.high}) // an average has more digits than the box shows
            QObject::connect(box, &QLineEdit::textChanged, box, [box](const QString& text) {
                box->setToolTip(text.size() > kShownDigits ? text : QString());
            });
    }

    void parity(TableRow& row) const {
        row.odd = parityBox(u"奇"_s, p.oddBox);
        row.even = parityBox(u"偶"_s, p.oddBox + 1);
    }

    void interval(TableRow& row) const {
        row.above = makeBox(indexedName(family, p.boxes.above), u"区间下端（不含）"_s, &rows);
        row.to = makeBox(indexedName(family, p.boxes.to), u"区间上端（含）"_s, &rows);
        row.above->setToolTip(row.above->accessibleName());
        row.to->setToolTip(row.to->accessibleName());
        row.picked = makeBox(u"TxtZdqj"_s, u"指定号码"_s, &rows);
        row.picked->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }

    void lists(TableRow& row) const {
        row.count = makeBox(indexedName(family, p.boxes.count), caption + u" 个数"_s, rows.counts());
        row.list = makeBox(indexedName(family, p.boxes.list), caption + u" 最值表"_s, rows.lists());
        row.list->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        QObject::connect(row.list, &QLineEdit::textChanged, row.list, &QWidget::setToolTip);
    }

    void period(TableRow& row) const { row.period = makePeriods(p.period, caption + u" 检索期数"_s, &rows); }

  private:
    QCheckBox* parityBox(const QString& sign, int index) const {
        auto* box = new QCheckBox(sign, &rows);
        box->setObjectName(indexedName(u"Check2"_s, index));
        box->setAccessibleName(caption + u" "_s + sign);
        return box;
    }
};

} // namespace

QComboBox* makePeriods(int index, const QString& accessible, QWidget* parent) {
    auto* box = new QuietCombo(parent);
    box->setObjectName(indexedName(u"Combo1"_s, index));
    for (int item = 0; item < kPeriods; ++item)
        box->addItem(QString::fromStdString(periodCaption(item)), periodDraws(item));
    box->setPlaceholderText(QString::fromUtf8(kPeriodPrompt));
    box->setCurrentIndex(-1);
    box->setToolTip(QString::fromUtf8(kPeriodHint));
    box->setAccessibleName(accessible);
    return box;
}

TableRow buildRow(const Parameter& parameter, TableRows& rows) {
    const Builder build{parameter, rows};
    TableRow row;
    row.parameter = &parameter;
    build.name(row);
    build.range(row);
    if (parameter.oddBox >= 0)
        build.parity(row);
    if (parameter.isInterval())
        build.interval(row);
    else if (parameter.hasList())
        build.lists(row);
    if (parameter.period >= 0)
        build.period(row);
    return row;
}

} // namespace filter
