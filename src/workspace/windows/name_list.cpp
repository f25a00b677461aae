#include "workspace/windows/name_list.h"

#include <QPainter>
#include <QStyledItemDelegate>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

const QString kNameless = u"（无名）"_s;
constexpr int kMargin = 24;

class NameDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale& locale) const override {
        const QString name = QStyledItemDelegate::displayText(value, locale);
        return name.isEmpty() ? kNameless : name;
    }

  protected:
    /// The base class does not ask for the text of an entry whose text is empty.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features |= QStyleOptionViewItem::HasDisplay;
        option->text = displayText(index.data(), option->locale);
    }
};

} // namespace

NameList::NameList(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new NameDelegate(this));
}

QListWidgetItem* NameList::addName(const QString& name) {
    auto* item = new QListWidgetItem(name, this);
    item->setSizeHint(QSize(0, 2 * fontMetrics().height()));
    if (name.isEmpty())
        item->setData(Qt::AccessibleTextRole, kNameless);
    return item;
}

void NameList::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(toolkit::colours(palette()).quiet);
    painter.drawText(viewport()->rect().adjusted(kMargin, 0, -kMargin, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     u"还没有用户：按“新建用户”开始"_s);
}

} // namespace workspace
