// Makes the controls of a parameter's row, with the object names that saved settings and templates know.
#pragma once

#include "filter/windows/table_rows.h"

namespace filter {

/// The controls, children of `rows` and of its two frames. Nothing is connected but what a control does for itself.
TableRow buildRow(const Parameter& parameter, TableRows& rows);

/// A period box: Combo1({index}) with its items, none of them picked.
QComboBox* makePeriods(int index, const QString& accessible, QWidget* parent);

} // namespace filter
