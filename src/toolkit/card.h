// A group of controls with a small heading, on a ground of its own.
#pragma once

#include <QFrame>

class QHBoxLayout;
class QVBoxLayout;

namespace toolkit {

class Card : public QFrame {
    Q_OBJECT
  public:
    /// \param name  its objectName  \param heading  may be empty
    Card(const QString& name, const QString& heading, QWidget* parent = nullptr);

    QVBoxLayout& body() { return *m_body; }
    /// The row of the heading: buttons that belong to the whole card are added at its end.
    QHBoxLayout& head() { return *m_head; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QHBoxLayout* m_head;
    QVBoxLayout* m_body;
};

} // namespace toolkit
