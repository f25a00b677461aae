// Where things stand in the table of parameters: the columns from its width, the rows from its height.
//
// Columns grow evenly between the widths of a window of 1280 and one of 1920 pixels. Rows take what height there is,
// up to 26 pixels; with less the margins of the groups go first, then rows shrink to 20, and only then the table is
// higher than its place.
#pragma once

#include <vector>

#include <QRect>

#include "filter/catalogue.h"

namespace filter {

/// A column: its left edge and its width.
struct Span {
    int left;
    int width;
};

struct ColumnPlaces {
    Span band, tick, name, low, high, count, list, picked, odd, even, above, to, period, last, share;
};

/// \param width  of the table's rows; the share of past draws gets a column only from a width of 560 on, else its
///               width is 0
ColumnPlaces columnPlaces(int width);

struct RowPlaces {
    int rowHeight = 0;
    int groupMargin = 0;      ///< above and below the rows of a group
    std::vector<int> rows;    ///< top of each parameter's row
    std::vector<Span> groups; ///< top and height of each group that has rows, as vertical spans
    int height = 0;           ///< of the whole
};

/// \param catalogue  group after group  \param height  what there is
RowPlaces rowPlaces(std::span<const Parameter> catalogue, int height);

} // namespace filter
