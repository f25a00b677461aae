// A column of the main window that scrolls up and down only: it is as wide as its content asks for, and wider by the
// scroll bar while there is one.
#pragma once

#include <QScrollArea>

namespace mainwin {

class ColumnArea : public QScrollArea {
    Q_OBJECT
  public:
    /// \param name  its objectName
    ColumnArea(QWidget* content, const QString& name);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fitWidth();
};

} // namespace mainwin
