// A sheet as a table in HTML, which other programs take from the clipboard as a table.
#pragma once

#include "output/sheet.h"

namespace output {

QString sheetHtml(const Sheet& sheet, bool headings);

} // namespace output
