// A label in a colour of colours(): right at once when the window gets another palette.
#pragma once

#include <QLabel>

#include "toolkit/colours.h"

namespace toolkit {

class InkLabel : public QLabel {
    Q_OBJECT
  public:
    using Ink = QColor Colours::*;

    /// \param name  its objectName
    InkLabel(const QString& name, Ink ink, const QString& text = {}, QWidget* parent = nullptr);
    void setInk(Ink ink);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void colour();

    Ink m_ink;
};

} // namespace toolkit
