// Where things lie: the program's folder, a user's folder in it, and the files of both.
//
// A user's name becomes a folder name. What a folder name cannot hold, or must not, is written as % and two digits of
// its byte, % itself too; an empty name is "%". So every name has a folder of its own right inside the program's
// folder, and the name can be told from the folder (an over-long one apart: it is cut and carries its checksum).
#pragma once

#include <filesystem>
#include <optional>

#include <QString>

namespace workspace {

/// SSQDESK_HOME; else the executable's folder when it can be written; else ssqdesk in the user's data folder (XDG).
/// Made when it is missing.
std::filesystem::path programFolder();

/// The folder name of a user, at most 160 bytes of UTF-8, so that file names made of it stay below 255.
QString folderName(const QString& user);
/// The user of a folder name; nothing for the cut name of an over-long one and for what folderName() never makes.
std::optional<QString> userOfFolder(const QString& folder);

/// "\张三\张三.mdb" → folder/张三/张三.mdb: fragments separate with backslashes, which no folder name holds.
std::filesystem::path underFolder(const std::filesystem::path& folder, const QString& fragment);

std::filesystem::path userFolder(const std::filesystem::path& folder, const QString& user);
/// "\{user}\{user}.mdb", with the folder's spelling of the name.
QString userDbFragment(const QString& user);
/// "\{user}\{user}R.mdb"
QString userDbFragmentR(const QString& user);
/// "\{user}\{file}"
QString userFileFragment(const QString& user, const QString& file);
/// "\双色历史号码\{user} 双色号码.TXT"
QString historyTextFragment(const QString& user);

} // namespace workspace
