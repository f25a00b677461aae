// History text: from the bytes of a file to draws, and back. Pure functions without a file.
//
// A line is read the way its users write it: an issue number of seven digits in front and one separator, or neither;
// then seven numbers of two digits with anything between them. Nothing is sorted and no range is checked here.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <QByteArray>
#include <QString>

#include "history/draw_record.h"

namespace history {

/// The text of a user's file: UTF-16 behind its mark; UTF-8 (with or without its mark) when all of it is valid; else
/// GB18030.
QString decodeText(const QByteArray& bytes);

/// A line that holds another count of numbers than seven.
struct RefusedLine {
    int line = 0; ///< from 1, counting empty lines
    QString text;
};

struct ParsedDraws {
    std::vector<Draw> draws; ///< those before the refused line, oldest first
    std::optional<RefusedLine> refused;
};

/// One line. \param previousIssue  a line without an issue gets the number after this
/// \return nothing for a line with another count of numbers than seven
std::optional<Draw> parseLine(std::string_view line, std::int32_t previousIssue);

/// The lines of a text, whatever ends them. Empty lines are skipped; reading ends at the first refused line.
/// \throws std::range_error for more draws than a history holds (32,767)
ParsedDraws parseDraws(const QString& text);

/// The lines behind an issue: one whose issue is not above it is skipped, whatever else it holds. A line without an
/// issue continues the line before it, skipped or not; the first one continues `lastIssue`. Else as parseDraws().
ParsedDraws parseDrawsAfter(const QString& text, std::int32_t lastIssue);

/// The text of the default file, "2003001 10 11 12 13 26 28 11 " a line. An issue of 0 or less is left out, one below
/// 1000 is padded to four digits. Plain ASCII, so that it is the same bytes in UTF-8 and in GB18030.
QByteArray drawsAsText(std::span<const Draw> draws);

} // namespace history
