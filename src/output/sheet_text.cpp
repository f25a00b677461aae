#include "output/sheet_text.h"

#include <algorithm>

#include "output/sheet_lines.h"

namespace output {

namespace {

void fitCell(QString& text, qsizetype from) {
    const auto breaks = [](QChar c) { return c == u'\t' || c == u'\n' || c == u'\r'; };
    const QStringView cell = QStringView(text).mid(from);
    if (std::ranges::any_of(cell, breaks))
        std::replace_if(text.begin() + from, text.end(), breaks, QChar(u' '));
}

LineStyle styleOf(LineEnd end) {
    return {u'\t', end == LineEnd::CrLf ? QStringView(u"\r\n") : QStringView(u"\n"), fitCell};
}

} // namespace

std::optional<QString> sheetText(const Sheet& sheet, TextForm form, workspace::Progress* progress) {
    const LineStyle style = styleOf(form.end);
    const std::int64_t rows = sheet.rows.count();
    QString text;
    if (form.headings) {
        for (const QString& line : sheet.above())
            appendLine(text, line, style);
        appendHeadings(text, sheet, style);
        if (rows > 0)
            text += style.end;
    }
    for (std::int64_t row = 0; row < rows; ++row) {
        if (row > 0)
            text += style.end;
        appendRow(text, sheet, row, style);
        if (progress && row % kReportRows == 0 &&
            !progress->advance(static_cast<double>(row) / static_cast<double>(rows)))
            return std::nullopt;
    }
    return text;
}

Written writeText(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs, LineEnd end) {
    return writeLines(sheet, file, dialogs, styleOf(end));
}

} // namespace output
