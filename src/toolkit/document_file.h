// Lines as a document of a word processor (.odt): the first one bold, all of them small, so that a line of five bets
// with their numbers goes across the paper.
#pragma once

#include <filesystem>

#include <QStringList>

namespace toolkit {

/// \throws std::system_error or workspace::Failure when it cannot be written; the former file then stays
void writeDocument(const QStringList& lines, const std::filesystem::path& file);

} // namespace toolkit
