// A group of controls with a small heading, on a ground of its own.
#pragma once

#include <QFrame>

class QHBoxLayout;
class QVBoxLayout;

namespace toolkit {

class Card : public QFrame {
    Q_OBJECT
    Q_PROPERTY(QString title READ title)
  public:
    /// \param name  its objectName  \param heading  may be empty
    Card(const QString& name, const QString& heading, QWidget* parent = nullptr);

    const QString& title() const { return m_title; }
    QVBoxLayout& body() { return *m_body; }
    /// The row of the heading: buttons that belong to the whole card are added at its end.
    QHBoxLayout& head() { return *m_head; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString m_title;
    QHBoxLayout* m_head;
    QVBoxLayout* m_body;
};

} // namespace toolkit
