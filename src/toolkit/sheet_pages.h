// A sheet on paper: title and lines on the first page, the headings on each, the number of the page at its foot.
//
// Columns are as wide as their headings and what a sample of the rows needs; a sheet that is wider than the paper is
// made smaller, down to half its size, and then its widest column gives way and its texts are cut. Rows are read when
// their page is painted.
#pragma once

#include <vector>

#include "output/sheet.h"
#include "toolkit/pages.h"

namespace toolkit {

class SheetPages final : public Pages {
  public:
    /// \param sheet  outlives the pages
    SheetPages(const output::Sheet& sheet, const QPrinter& printer);
    int count() const override;
    void paint(QPainter& painter, int page) const override;

    /// Size of what is painted as a part of its natural one, 0.5 to 1.
    qreal scale() const { return m_scale; }

  private:
    void measure(const QPrinter& printer);
    void fitWidth();
    qreal paintAbove(QPainter& painter) const;
    void paintHeadings(QPainter& painter, qreal top) const;
    void paintRow(QPainter& painter, std::int64_t row, qreal top) const;
    QRectF place(std::size_t column, qreal top) const;

    const output::Sheet& m_sheet;
    QSizeF m_paper;             ///< dots
    std::vector<qreal> m_lefts; ///< of the columns and, at the end, of what is beyond; before the scale
    std::vector<qreal> m_widths;
    qreal m_rowHeight = 1; ///< before the scale
    qreal m_scale = 1;
    int m_perPage = 1;   ///< rows of a page, its headings not counted
    int m_firstPage = 1; ///< rows of the first page: its title stands there too
};

} // namespace toolkit
