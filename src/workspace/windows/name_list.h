// The list of users: while it is empty it says how to make one, and a user without a name is seen as （无名）. The
// text of his entry stays empty: it is his name.
#pragma once

#include <QListWidget>

namespace workspace {

class NameList : public QListWidget {
    Q_OBJECT

  public:
    explicit NameList(QWidget* parent = nullptr);

    /// \return the new entry, the last one
    QListWidgetItem* addName(const QString& name);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace workspace
