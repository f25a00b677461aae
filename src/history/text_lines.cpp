#include "history/text_lines.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <stdexcept>
#include <utility>

#include "history/history.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr std::size_t kIssueDigits = 7;
constexpr std::size_t kNumbers = 7;
constexpr qsizetype kShownCharacters = 200; // of a refused line
constexpr char kBeyondAscii = '.';          // stands for such a character: it separates like any other
constexpr std::int64_t kLargestIssue = std::numeric_limits<std::int32_t>::max();

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

/// At most ten digits.
std::int64_t numberAt(std::string_view line, std::size_t position, std::size_t count) {
    std::int64_t number = 0;
    for (std::size_t place = position; place < position + count; ++place)
        number = number * 10 + (line[place] - '0');
    return number;
}

std::string asciiOf(QStringView line) {
    std::string text;
    text.reserve(static_cast<std::size_t>(line.size()));
    for (const QChar c : line)
        text += c.unicode() < 0x80 ? static_cast<char>(c.unicode()) : kBeyondAscii;
    return text;
}

/// " 01 02 03 04 05 06 07" and one blank more, or none where that is allowed.
bool isSevenNumbers(std::string_view rest, bool mayEndBare) {
    constexpr std::size_t kNumberWidth = 3;
    constexpr std::size_t kBare = kNumbers * kNumberWidth;
    if (!(rest.size() == kBare && mayEndBare) && !(rest.size() == kBare + 1 && rest.back() == ' '))
        return false;
    for (std::size_t number = 0; number < kNumbers; ++number)
        if (rest[number * kNumberWidth] != ' ' || !digitsAt(rest, number * kNumberWidth + 1, 2))
            return false;
    return true;
}

/// Where the issue of a line comes from and where its numbers begin.
struct Issue {
    std::int64_t number;
    std::size_t end;
};

/// The issue of a line as drawsAsText() writes it, of any number of digits but the seven that are an issue in any
/// line. Only lines that are no draw otherwise, since they have nine or ten numbers, may lack the blank at the end,
/// which editors take away. A longer issue needs all of the form: with anything else its first seven digits are the
/// issue.
std::optional<Issue> writtenIssue(std::string_view line) {
    constexpr std::size_t kFewest = 4;
    constexpr std::size_t kMost = 10;
    const auto digits = static_cast<std::size_t>(std::find_if_not(line.begin(), line.end(), isDigit) - line.begin());
    if (digits < kFewest || digits > kMost || digits == kIssueDigits || (digits > kFewest && line[0] == '0'))
        return std::nullopt;
    const std::int64_t number = numberAt(line, 0, digits);
    if (number < 1 || number > kLargestIssue || !isSevenNumbers(line.substr(digits), digits < kIssueDigits))
        return std::nullopt;
    return Issue{number, digits + 1};
}

Issue issueOf(std::string_view line, std::int32_t previousIssue) {
    if (const std::optional<Issue> written = writtenIssue(line))
        return *written;
    if (digitsAt(line, 0, kIssueDigits))
        return {numberAt(line, 0, kIssueDigits), kIssueDigits + 1};
    return {std::int64_t{previousIssue} + 1, 0};
}

/// The numbers of a line behind its issue. \return how many there are; those beyond seven are not kept
std::size_t scanNumbers(std::string_view line, std::size_t position, Draw& draw) {
    std::size_t count = 0;
    while (position < line.size()) {
        if (!digitsAt(line, position, 2)) {
            ++position;
            continue;
        }
        if (++count <= kNumbers)
            draw[count] = static_cast<std::int32_t>(numberAt(line, position, 2));
        position += 2;
    }
    return count;
}

} // namespace

DrawsReader DrawsReader::behind(std::int32_t lastIssue) {
    DrawsReader reader;
    reader.m_lastIssue = lastIssue;
    reader.m_previousIssue = lastIssue;
    reader.m_onlyBehind = true;
    return reader;
}

bool DrawsReader::take(QStringView piece) {
    while (!piece.isEmpty() && !m_parsed.refused) {
        if (std::exchange(m_afterReturn, false) && piece.front() == u'\n') {
            piece = piece.sliced(1);
            continue;
        }
        const auto* end = std::find_if(piece.begin(), piece.end(), [](QChar c) { return c == u'\n' || c == u'\r'; });
        keep(piece.first(end - piece.begin()));
        if (end == piece.end())
            break;
        m_afterReturn = *end == u'\r';
        piece = piece.sliced(end - piece.begin() + 1);
        endLine();
    }
    return !m_parsed.refused;
}

ParsedDraws DrawsReader::finish() {
    if (!m_parsed.refused)
        endLine();
    return std::move(m_parsed);
}

void DrawsReader::keep(QStringView part) {
    m_line += part.first(std::min(part.size(), kLongestLine + 1 - m_line.size()));
}

void DrawsReader::endLine() {
    ++m_lineNumber;
    if (!m_line.isEmpty())
        readLine(asciiOf(m_line));
    m_line.resize(0); // keeps its room
}

void DrawsReader::readLine(std::string_view line) {
    const Issue issue = issueOf(line, m_previousIssue);
    if (m_onlyBehind && issue.number <= m_lastIssue) {
        m_previousIssue = static_cast<std::int32_t>(issue.number);
        return;
    }
    Draw draw{};
    const std::size_t count = scanNumbers(line, issue.end, draw);
    if (m_line.size() > kLongestLine)
        return refuse(u"这一行太长"_s);
    if (count != kNumbers)
        return refuse(u"这一行有%1个号码，应为7个"_s.arg(count));
    if (issue.number > kLargestIssue)
        return refuse(u"期号超过%1"_s.arg(kLargestIssue));
    if (m_parsed.draws.size() == kMostDraws)
        throw std::range_error("more draws than a history holds");
    m_previousIssue = draw[0] = static_cast<std::int32_t>(issue.number);
    m_parsed.draws.push_back(draw);
}

void DrawsReader::refuse(const QString& cause) {
    m_parsed.refused = RefusedLine{m_lineNumber, m_line.first(std::min(m_line.size(), kShownCharacters)), cause};
}

std::optional<Draw> parseLine(std::string_view line, std::int32_t previousIssue) {
    const Issue issue = issueOf(line, previousIssue);
    Draw draw{};
    if (scanNumbers(line, issue.end, draw) != kNumbers || issue.number > kLargestIssue)
        return std::nullopt;
    draw[0] = static_cast<std::int32_t>(issue.number);
    return draw;
}

ParsedDraws parseDraws(const QString& text) {
    DrawsReader reader;
    reader.take(text);
    return reader.finish();
}

ParsedDraws parseDrawsAfter(const QString& text, std::int32_t lastIssue) {
    DrawsReader reader = DrawsReader::behind(lastIssue);
    reader.take(text);
    return reader.finish();
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
