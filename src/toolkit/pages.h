// Pages of paper: what prints says how many pages it fills and paints each of them.
//
// The painter's origin is the upper left corner of the printable area; one unit is a dot of the printer. Whoever
// makes pages measures for one printer and one paper: a change of either needs new ones. The printers, the preview
// and PDF files all go through printPages().
#pragma once

#include <limits>

#include <QFont>
#include <QPrinter>

#include "output/page_range.h"
#include "workspace/dialogs.h"

class QPainter;

namespace toolkit {

class Pages {
  public:
    virtual ~Pages() = default;
    virtual int count() const = 0;
    /// \param page  0..count()-1
    virtual void paint(QPainter& painter, int page) const = 0;
};

inline constexpr output::PageRange kAllPages{1, std::numeric_limits<int>::max()};

enum class PaperState { Printed, GivenUp, Failed };

/// Prints the pages that lie in the range and, where the user chose one for the printer, in that one too.
/// \param progress  may be null
PaperState printPages(QPrinter& printer, const Pages& pages, output::PageRange range = kAllPages,
                      workspace::Progress* progress = nullptr);

/// "第 2 页，共 7 页" in the middle of the lowest line of the paper.
void paintPageNumber(QPainter& painter, const QSizeF& paper, int page, int pages);

/// Margins that leave room for a punch and a thumb. Call it before pages are measured.
void prepare(QPrinter& printer);

/// The font of printed tables and page numbers.
QFont paperFont(bool bold = false);

} // namespace toolkit
