// Files that are whole or not there: written or copied under a temporary name, flushed, then renamed into place.
//
// A full disk or a kill leaves the file as it was before. Nothing here throws.
#pragma once

#include <filesystem>

#include <QByteArray>
#include <QString>

namespace workspace {

QString toQString(const std::filesystem::path& path);
std::filesystem::path toPath(const QString& text);

/// Whether something of that name is there, of any kind: a link that leads nowhere is there, too, and stands in the
/// way of a renaming.
bool isThere(const std::filesystem::path& path);

enum class Readers { Everybody, OwnerOnly };

/// \return false when the file is not what was asked for; it then stands as it stood before
bool writeWholeFile(const std::filesystem::path& file, const QByteArray& bytes, Readers readers = Readers::Everybody);

/// Copies a file; the copy is there whole, or not at all. \return as above
bool copyWholeFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Copies a closed database file over another, and removes what an earlier database of that name left beside it: its
/// journal would be played back into the new file. \return as above
bool copyDatabase(const std::filesystem::path& from, const std::filesystem::path& to);

/// Renames a closed database file over another of its folder, which may have left journals beside it. \return as
/// above
bool replaceDatabase(const std::filesystem::path& from, const std::filesystem::path& to);

/// Deletes a database file and its journals; a missing file is no failure.
void removeDatabase(const std::filesystem::path& file);

/// Flushes a file, or a folder's entries, to the disk. \return whether that was done
bool flushToDisk(const std::filesystem::path& path);

/// Renames within a file system, over what is there, and makes the renaming durable. \return whether it was done
bool renameDurably(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace workspace
