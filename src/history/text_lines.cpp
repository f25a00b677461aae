#include "history/text_lines.h"

#include <cstdio>
#include <limits>
#include <stdexcept>
#include <utility>

#include <QList>
#include <QStringDecoder>

#include "history/history.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr std::size_t kIssueDigits = 7;
constexpr std::size_t kNumbers = 7;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool digitsAt(std::string_view line, std::size_t position, std::size_t count) {
    if (position + count > line.size())
        return false;
    for (std::size_t place = position; place < position + count; ++place)
        if (!isDigit(line[place]))
            return false;
    return true;
}

std::int32_t numberAt(std::string_view line, std::size_t position, std::size_t count) {
    std::int32_t number = 0;
    for (std::size_t place = position; place < position + count; ++place)
        number = number * 10 + (line[place] - '0');
    return number;
}

/// The line for the scan: characters beyond ASCII separate like any other, so each becomes one blank.
std::string asciiOf(QStringView line) {
    std::string text;
    text.reserve(static_cast<std::size_t>(line.size()));
    for (const QChar c : line)
        text += c.unicode() < 0x80 ? static_cast<char>(c.unicode()) : ' ';
    return text;
}

/// The issue in front of the line, else the next one; the largest number has none behind it.
std::int32_t issueOf(std::string_view line, std::int32_t previousIssue) {
    if (digitsAt(line, 0, kIssueDigits))
        return numberAt(line, 0, kIssueDigits);
    return previousIssue < std::numeric_limits<std::int32_t>::max() ? previousIssue + 1 : previousIssue;
}

/// \param lastIssue   a first line without an issue gets the number after this
/// \param onlyBehind  lines whose issue is not above lastIssue are skipped
ParsedDraws parseLines(const QString& text, std::int32_t lastIssue, bool onlyBehind) {
    ParsedDraws parsed;
    QString unified = text;
    unified.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    std::int32_t previousIssue = lastIssue;
    int lineNumber = 0;
    for (const QStringView line : QStringView(unified).split(u'\n')) {
        ++lineNumber;
        if (line.isEmpty())
            continue;
        const std::string ascii = asciiOf(line);
        const std::int32_t before = std::exchange(previousIssue, issueOf(ascii, previousIssue));
        if (onlyBehind && previousIssue <= lastIssue)
            continue;
        const std::optional<Draw> draw = parseLine(ascii, before);
        if (!draw) {
            parsed.refused = RefusedLine{lineNumber, line.toString()};
            break;
        }
        if (parsed.draws.size() == kMostDraws)
            throw std::range_error("more draws than a history holds");
        parsed.draws.push_back(*draw);
    }
    return parsed;
}

} // namespace

QString decodeText(const QByteArray& bytes) {
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
        return QStringDecoder(QStringDecoder::Utf16)(bytes);
    // Stateless: a character that the end of the file cuts off is an error, not something to wait for.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(bytes);
    if (!utf8.hasError())
        return text;
    QStringDecoder legacy("GB18030");
    return legacy.isValid() ? QString(legacy(bytes)) : text;
}

std::optional<Draw> parseLine(std::string_view line, std::int32_t previousIssue) {
    Draw draw{issueOf(line, previousIssue)};
    std::size_t position = digitsAt(line, 0, kIssueDigits) ? kIssueDigits + 1 : 0;
    std::size_t count = 0;
    while (position < line.size()) {
        if (!digitsAt(line, position, 2)) {
            ++position;
            continue;
        }
        if (++count > kNumbers)
            return std::nullopt;
        draw[count] = numberAt(line, position, 2);
        position += 2;
    }
    return count == kNumbers ? std::optional(draw) : std::nullopt;
}

ParsedDraws parseDraws(const QString& text) {
    return parseLines(text, 0, false);
}

ParsedDraws parseDrawsAfter(const QString& text, std::int32_t lastIssue) {
    return parseLines(text, lastIssue, true);
}

QByteArray drawsAsText(std::span<const Draw> draws) {
    QByteArray text;
    text.reserve(static_cast<qsizetype>(draws.size() * 30));
    char number[16];
    for (const Draw& draw : draws) {
        if (draw[0] > 0) {
            std::snprintf(number, sizeof number, "%04d ", draw[0]);
            text += number;
        }
        for (std::size_t place = 1; place < draw.size(); ++place) {
            std::snprintf(number, sizeof number, "%02d ", draw[place]);
            text += number;
        }
        text += '\n';
    }
    return text;
}

} // namespace history
