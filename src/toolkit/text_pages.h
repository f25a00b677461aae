// A text on paper, in one font and colour: lines that are too long go on below, at a blank where there is one.
#pragma once

#include <QColor>
#include <QStringList>

#include "toolkit/pages.h"

class QFontMetricsF;
class QWidget;

namespace toolkit {

class TextPages final : public Pages {
  public:
    /// \param text  lines end with \n
    TextPages(const QString& text, const QFont& font, const QColor& colour, const QPrinter& printer);
    int count() const override;
    void paint(QPainter& painter, int page) const override;

  private:
    void addLine(const QString& line, const QFontMetricsF& metrics);

    QFont m_font;
    QColor m_colour;
    QSizeF m_paper;
    qreal m_lineHeight;
    int m_perPage;
    QStringList m_lines;
};

/// Asks for a printer above `window`, then prints; what fails is told.
/// \param part  of the whole text, offered as what is chosen; empty: the whole text is printed
void printText(QWidget& window, const QString& whole, const QString& part, const QFont& font, const QColor& colour);

} // namespace toolkit
