// Words on a quiet ground of their own: what a page tells about what its controls say.
#pragma once

#include <QLabel>

namespace toolkit {

class ToldLabel : public QLabel {
    Q_OBJECT
  public:
    /// \param name  its objectName  \param lines  for which there is always room
    explicit ToldLabel(const QString& name, int lines = 1, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace toolkit
