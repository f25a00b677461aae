#include "output/sheet_lines.h"

#include "output/new_file.h"

using namespace Qt::StringLiterals;

namespace output {

void appendLine(QString& text, const QString& line, const LineStyle& style) {
    const qsizetype from = text.size();
    text += line;
    style.fit(text, from);
    text += style.end;
}

void appendHeadings(QString& text, const Sheet& sheet, const LineStyle& style) {
    for (const SheetColumn& column : sheet.columns) {
        if (&column != &sheet.columns.front())
            text += style.between;
        const qsizetype from = text.size();
        text += column.heading;
        style.fit(text, from);
    }
}

void appendRow(QString& text, const Sheet& sheet, std::int64_t row, const LineStyle& style) {
    for (int column = 0; column < sheet.columnCount(); ++column) {
        if (column > 0)
            text += style.between;
        const qsizetype from = text.size();
        sheet.rows.appendText(text, row, sheet.columns[static_cast<std::size_t>(column)], column);
        style.fit(text, from);
    }
}

Written writeLines(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                   const LineStyle& style) {
    const std::int64_t rows = sheet.rows.count();
    const auto progress = dialogs.progress(u"正在导出 %1 行"_s.arg(rows));
    TextFile out(file);
    QString text = style.mark.toString();
    for (const QString& line : sheet.above())
        appendLine(text, line, style);
    appendHeadings(text, sheet, style);
    text += style.end;
    for (std::int64_t row = 0; row < rows; ++row) {
        appendRow(text, sheet, row, style);
        text += style.end;
        out.take(text);
        if (row % kReportRows == 0 && !progress->advance(static_cast<double>(row) / static_cast<double>(rows)))
            return Written::GivenUp;
    }
    out.commit(text);
    return Written::Whole;
}

} // namespace output
