#include "output/sheet.h"

#include <charconv>

#include <QLocale>

namespace output {

namespace {

constexpr int kMostDigits = 20;

void appendWhole(QString& text, std::int64_t value, int digits) {
    char written[kMostDigits + 1];
    const auto end = std::to_chars(written, written + sizeof written, value).ptr;
    const char* first = written;
    if (value < 0)
        text += QLatin1Char(*first++);
    for (auto length = end - first; length < digits; ++length)
        text += u'0';
    text += QLatin1StringView(first, end - first);
}

} // namespace

void appendCell(QString& text, const SheetCell& cell, int digits) {
    if (const auto* whole = std::get_if<std::int64_t>(&cell))
        appendWhole(text, *whole, digits);
    else if (const auto* real = std::get_if<double>(&cell))
        text += QString::number(*real, 'g', QLocale::FloatingPointShortest);
    else if (const auto* words = std::get_if<QString>(&cell))
        text += *words;
}

void SheetRows::appendText(QString& text, std::int64_t row, const SheetColumn& told, int column) const {
    appendCell(text, cell(row, column), told.digits);
}

QStringList Sheet::above() const {
    if (title.isEmpty())
        return lines;
    return QStringList{title} + lines;
}

} // namespace output
