// A card of several pages: tabs of equal width above, the chosen one bold under a line of the accent.
//
// All pages have the height of the highest.
#pragma once

#include <QFrame>

class QStackedWidget;
class QTabBar;

namespace toolkit {

class PageTabs : public QFrame {
    Q_OBJECT
  public:
    /// \param name  its objectName; the bar of tabs is called {name}Bar
    explicit PageTabs(const QString& name, QWidget* parent = nullptr);

    void addPage(const QString& caption, QWidget* page);
    void setCaption(int page, const QString& caption);
    int currentPage() const;
    void choosePage(int page);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QTabBar* m_bar;
    QStackedWidget* m_pages;
};

} // namespace toolkit
