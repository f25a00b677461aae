// The text of a user's file, decoded piece by piece: a file of any size costs no more memory than one piece.
//
// UTF-16 behind its mark; UTF-8 (with or without its mark) when all of it is valid; else GB18030. What it is shows
// only at the end of the file, so it is read twice.
#pragma once

#include <filesystem>
#include <functional>

#include <QByteArray>
#include <QString>

class QIODevice;

namespace history {

/// Takes the text piece after piece; a piece may end anywhere in a line. \return false when no more is wanted
using TakePiece = std::function<bool(QStringView piece)>;

/// \param in  open, and can be read from its start again
void decodeInPieces(QIODevice& in, const TakePiece& take);

/// \throws workspace::Failure for a file that cannot be read; a pipe, a device or a folder is one: it is not opened
void readInPieces(const std::filesystem::path& file, const TakePiece& take);

/// All of a text that is in memory already.
QString decodeText(const QByteArray& bytes);

} // namespace history
