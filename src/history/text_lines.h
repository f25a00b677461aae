// History text: from the lines of a text to draws, and back. Pure functions without a file.
//
// A line is read the way its users write it: an issue number of seven digits in front and one separator, or neither;
// then seven numbers of two digits with anything between them. Nothing is sorted and no range is checked here.
//
// Beside that, a line exactly as drawsAsText() writes it has its issue back whatever number of digits it has, so that
// what the program writes it can read. "0001 01 02 03 04 05 06 07 " would else be nine numbers, and the first seven
// digits of a longer issue would pass for the whole of it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <QByteArray>
#include <QString>

#include "history/draw_record.h"
#include "history/text_pieces.h"

namespace history {

/// A longer line is refused without being held.
inline constexpr qsizetype kLongestLine = 64 * 1024;

/// A line that is no draw.
struct RefusedLine {
    int line = 0;  ///< from 1, counting empty lines
    QString text;  ///< its first 200 characters
    QString cause; ///< "这一行有6个号码，应为7个"
};

struct ParsedDraws {
    std::vector<Draw> draws; ///< those before the refused line, oldest first
    std::optional<RefusedLine> refused;
};

/// Reads a text that comes in pieces, line after line; whatever ends a line does. Empty lines are skipped; reading
/// ends at the first refused line.
class DrawsReader {
  public:
    /// Every line. The first one without an issue gets the number 1.
    DrawsReader() = default;
    /// The lines behind an issue: one whose issue is not above it is skipped, whatever else it holds. A line without
    /// an issue continues the line before it, skipped or not; the first one continues `lastIssue`.
    static DrawsReader behind(std::int32_t lastIssue);

    /// \return false once a line was refused
    /// \throws std::range_error for more draws than a history holds (32,767)
    bool take(QStringView piece);
    /// The text has ended. \throws as take()
    ParsedDraws finish();

  private:
    void keep(QStringView part);
    void endLine();
    void readLine(std::string_view line);
    void refuse(const QString& cause);

    ParsedDraws m_parsed;
    QString m_line; ///< the line so far, one character more than the longest at most
    bool m_afterReturn = false;
    int m_lineNumber = 0;
    std::int32_t m_lastIssue = 0;
    std::int32_t m_previousIssue = 0;
    bool m_onlyBehind = false;
};

/// One line. \param previousIssue  a line without an issue gets the number after this
/// \return nothing for a line with another count of numbers than seven, or without a number left for its issue
std::optional<Draw> parseLine(std::string_view line, std::int32_t previousIssue);

/// A whole text by a DrawsReader. \throws as it does
ParsedDraws parseDraws(const QString& text);
ParsedDraws parseDrawsAfter(const QString& text, std::int32_t lastIssue);

/// The text of the default file, "2003001 10 11 12 13 26 28 11 " a line. An issue of 0 or less is left out, one below
/// 1000 is padded to four digits. Plain ASCII, so that it is the same bytes in UTF-8 and in GB18030.
QByteArray drawsAsText(std::span<const Draw> draws);

} // namespace history
