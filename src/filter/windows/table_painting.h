// What the table of parameters paints around its rows: its frame and title, the headings of the columns, and the
// strip that tells one row.
#pragma once

#include <QStringList>
#include <QWidget>

#include "filter/windows/table_rows.h"

namespace filter {

inline constexpr int kTitleHeight = 30;
inline constexpr int kHeadHeight = 22;
inline constexpr int kStripHeight = 84;

/// What a row's parameter counts; the values that it can have, that it had, and had last; what past draws say of the
/// present range. Lines without anything to tell are left out.
QStringList describe(const TableRow& row);

void paintFrame(QPainter& painter, const QWidget& table);
/// \param advice  stands beside the title
void paintTitle(QPainter& painter, const QWidget& table, const QString& advice);
/// Which headings there are.
struct HeadsShown {
    bool lists;    ///< lists stand in the place of ranges
    bool parities; ///< some row has marks or an interval beside its range
    bool periods;  ///< rows have periods
};
void paintHeads(QPainter& painter, const QWidget& table, const ColumnPlaces& columns, const HeadsShown& shown);
/// \param told  a caption and what follows it, then further lines; the caption alone is a hint
void paintStrip(QPainter& painter, const QWidget& table, const QStringList& told);

} // namespace filter
