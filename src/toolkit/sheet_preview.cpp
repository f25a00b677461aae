#include "toolkit/sheet_preview.h"

#include <QPrintPreviewDialog>

#include "toolkit/busy_cursor.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/sheet_pages.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr QSize kUsefulSize{1000, 700};

void print(const output::Sheet& sheet, QPrinter& printer, output::PageRange range, QWidget& window) {
    DialogBoxes boxes(&window);
    PaperState state = PaperState::Printed;
    {
        const BusyCursor busy;
        const auto progress = boxes.progress(u"正在排列各页"_s);
        state = printPages(printer, SheetPages(sheet, printer), range, progress.get());
    }
    if (state == PaperState::Failed)
        boxes.warn({.text = u"没有打印：打印机或文件不能写入。表中的数据没有改变，请排除原因后重试。"_s,
                    .title = u"打印"_s});
}

} // namespace

void previewSheet(const output::Sheet& sheet, QWidget& window) {
    QPrinter printer(QPrinter::HighResolution);
    prepare(printer);
    printer.setDocName(sheet.title);
    const int count = SheetPages(sheet, printer).count();
    output::PageRange range = kAllPages;
    if (count >= output::kManyPages) {
        DialogBoxes boxes(&window);
        const std::optional<output::PageRange> wanted = output::askPageRange(count, boxes);
        if (!wanted)
            return;
        range = *wanted;
    }
    QPrintPreviewDialog preview(&printer, &window);
    preview.setObjectName(u"PrintPreview"_s);
    preview.setWindowTitle(u"打印预览"_s);
    preview.resize(kUsefulSize);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&](QPrinter* paper) { print(sheet, *paper, range, preview); });
    preview.exec();
}

} // namespace toolkit
