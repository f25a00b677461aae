#include "filter/windows/row_places.h"

#include <algorithm>

namespace filter {

namespace {

constexpr int kNarrow = 432; // the table's width in a window of 1280 pixels
constexpr int kWide = 630;   // and in one of 1920
constexpr int kShareFrom = 560;
constexpr int kLargestRow = 26;
constexpr int kRow = 21;
constexpr int kSmallestRow = 20;
constexpr int kGroupMargin = 2;
constexpr int kBoxGap = 3; // right of a box that shares a column with marks

int between(int narrow, int wide, int width) {
    return narrow + (wide - narrow) * (std::clamp(width, kNarrow, kWide) - kNarrow) / (kWide - kNarrow);
}

RowPlaces placed(std::span<const Parameter> catalogue, int rowHeight, int margin) {
    RowPlaces places{.rowHeight = rowHeight, .groupMargin = margin, .rows = {}, .groups = {}};
    int top = 0;
    for (std::size_t row = 0; row < catalogue.size(); ++row) {
        const bool first = row == 0 || catalogue[row].group != catalogue[row - 1].group;
        if (first) {
            top += row == 0 ? 0 : margin + 1; // the hairline
            places.groups.push_back({top, 0});
            top += margin;
        }
        places.rows.push_back(top);
        top += rowHeight;
        places.groups.back().width = top + margin - places.groups.back().left;
    }
    places.height = top + margin;
    return places;
}

} // namespace

ColumnPlaces columnPlaces(int width) {
    const auto at = [width](int narrow, int wide) { return between(narrow, wide, width); };
    int left = 0;
    const auto next = [&left](int wide, int gap) {
        const Span span{left, wide};
        left += wide + gap;
        return span;
    };
    ColumnPlaces places{};
    places.band = next(at(22, 26), 0);
    places.tick = next(at(24, 28), 0);
    // A scroll bar beside the rows takes its room from the names.
    places.name = next(at(106, 124) - std::max(0, kNarrow - width), 6);
    places.low = next(at(38, 50), 4);
    places.high = next(at(38, 50), 8);
    const int half = at(38, 46);
    places.odd = next(half, 0);
    places.even = next(half, 4);
    const int rangeEnd = places.even.left + places.even.width;
    places.above = {places.odd.left, half - kBoxGap};
    places.to = {places.even.left, half - kBoxGap};
    places.count = places.low;
    places.list = {places.high.left, rangeEnd - places.high.left - kBoxGap};
    places.picked = {places.odd.left, rangeEnd - places.odd.left - kBoxGap};
    places.period = next(at(74, 84), 4);
    places.last = next(at(28, 34), 12);
    places.share = {left, width >= kShareFrom ? std::max(0, width - left) : 0};
    return places;
}

RowPlaces rowPlaces(std::span<const Parameter> catalogue, int height) {
    for (int row = kLargestRow; row >= kRow; --row)
        if (RowPlaces places = placed(catalogue, row, kGroupMargin); places.height <= height)
            return places;
    for (int margin = kGroupMargin - 1; margin >= 0; --margin)
        if (RowPlaces places = placed(catalogue, kRow, margin); places.height <= height)
            return places;
    return placed(catalogue, kSmallestRow, 0);
}

} // namespace filter
