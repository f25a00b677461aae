// A sheet as it will look on paper, in the toolkit's preview: from there it goes to a printer or into a PDF file.
//
// Of a sheet that fills very many pages it is asked first which of them are wanted.
#pragma once

#include "output/sheet.h"

class QWidget;

namespace toolkit {

/// The rows must not change meanwhile.
void previewSheet(const output::Sheet& sheet, QWidget& window);

} // namespace toolkit
