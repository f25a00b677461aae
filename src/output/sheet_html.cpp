#include "output/sheet_html.h"

using namespace Qt::StringLiterals;

namespace output {

QString sheetHtml(const Sheet& sheet, bool headings) {
    QString html = u"<table>"_s;
    if (headings) {
        html += u"<tr>"_s;
        for (const SheetColumn& column : sheet.columns)
            html += u"<th>"_s + column.heading.toHtmlEscaped() + u"</th>"_s;
        html += u"</tr>"_s;
    }
    QString text;
    for (std::int64_t row = 0; row < sheet.rows.count(); ++row) {
        html += u"<tr>"_s;
        for (int column = 0; column < sheet.columnCount(); ++column) {
            text.resize(0);
            sheet.rows.appendText(text, row, sheet.columns[static_cast<std::size_t>(column)], column);
            html += u"<td>"_s + text.toHtmlEscaped() + u"</td>"_s;
        }
        html += u"</tr>"_s;
    }
    return html + u"</table>"_s;
}

} // namespace output
