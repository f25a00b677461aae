#include "toolkit/page_tabs.h"

#include <QPainter>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kTabHeight = 30; // logical pixels
constexpr int kChosenLine = 2;
constexpr int kPageMargin = 8;
constexpr qreal kCorner = 6;

class TabStrip final : public QTabBar {
  public:
    using QTabBar::QTabBar;

  protected:
    QSize tabSizeHint(int) const override { return {width() / std::max(1, count()), heightOfTab()}; }
    QSize minimumTabSizeHint(int tab) const override {
        QFont bold = font();
        bold.setBold(true);
        return {QFontMetrics(bold).horizontalAdvance(tabText(tab)) + 2 * kPageMargin, heightOfTab()};
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        for (int tab = 0; tab < count(); ++tab)
            paintTab(painter, tab);
    }

  private:
    int heightOfTab() const { return std::max(kTabHeight, fontMetrics().height() + 10); }
    void paintTab(QPainter& painter, int tab) const {
        const Colours& look = colours(palette());
        const QRect place = tabRect(tab);
        const bool chosen = tab == currentIndex();
        if (!chosen) {
            painter.fillRect(place.adjusted(0, 1, 0, 0), look.head);
            painter.setPen(look.line);
            painter.drawLine(place.bottomLeft(), place.bottomRight());
        }
        painter.setPen(look.line);
        if (tab > 0)
            painter.drawLine(place.topLeft() + QPoint(0, 1), place.bottomLeft());
        if (chosen)
            painter.fillRect(QRect(place.left(), 0, place.width(), kChosenLine), look.accentText);
        QFont own = font();
        own.setBold(chosen);
        painter.setFont(own);
        painter.setPen(chosen || tab == tabAt(mapFromGlobal(QCursor::pos())) ? look.text : look.quiet);
        painter.drawText(place, Qt::AlignCenter, tabText(tab));
        if (chosen && hasFocus()) {
            painter.setPen(QPen(look.focus, 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(place.adjusted(2, 4, -2, -2));
        }
    }
};

} // namespace

PageTabs::PageTabs(const QString& name, QWidget* parent)
    : QFrame(parent), m_bar(new TabStrip(this)), m_pages(new QStackedWidget(this)) {
    setObjectName(name);
    m_bar->setObjectName(name + u"Bar"_s);
    m_bar->setDrawBase(false);
    m_bar->setExpanding(true);
    m_bar->setUsesScrollButtons(false);
    m_bar->setFocusPolicy(Qt::TabFocus);
    m_bar->setAttribute(Qt::WA_Hover);
    m_bar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, 0, 1, 1);
    column->setSpacing(0);
    column->addWidget(m_bar);
    column->addWidget(m_pages, 1);
    connect(m_bar, &QTabBar::currentChanged, m_pages, &QStackedWidget::setCurrentIndex);
}

void PageTabs::addPage(const QString& caption, QWidget* page) {
    page->setContentsMargins(kPageMargin - 1, kPageMargin, kPageMargin - 1, kPageMargin - 1);
    m_pages->addWidget(page);
    m_bar->addTab(caption);
}

void PageTabs::setCaption(int page, const QString& caption) {
    m_bar->setTabText(page, caption);
}

int PageTabs::currentPage() const {
    return m_bar->currentIndex();
}

void PageTabs::choosePage(int page) {
    m_bar->setCurrentIndex(page);
}

void PageTabs::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Colours& look = colours(palette());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(look.card);
    painter.setPen(look.line);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

} // namespace toolkit
