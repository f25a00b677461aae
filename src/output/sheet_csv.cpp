#include "output/sheet_csv.h"

#include <algorithm>

#include "output/sheet_lines.h"

using namespace Qt::StringLiterals;

namespace output {

namespace {

void quoteCell(QString& text, qsizetype from) {
    const auto asksForQuotes = [](QChar c) { return c == u',' || c == u'"' || c == u'\n' || c == u'\r'; };
    if (!std::ranges::any_of(QStringView(text).mid(from), asksForQuotes))
        return;
    QString cell = text.mid(from);
    cell.replace(u"\""_s, u"\"\""_s);
    text.truncate(from);
    text += u'"' + cell + u'"';
}

constexpr LineStyle kCsv{u',', u"\r\n", quoteCell, u"\uFEFF"};

} // namespace

Written writeCsv(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs) {
    return writeLines(sheet, file, dialogs, kCsv);
}

} // namespace output
