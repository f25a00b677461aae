// The folder that an update server serves: the history as text and as a ready database, under the paths that the
// program asks for.
//
// The database is built anew from the bare draws under the default rule, whatever was corrected, cleared or counted
// in the workspace that they come from. Every file is written beside its place and renamed, so that a server may go
// on serving the folder meanwhile.
#pragma once

#include <filesystem>
#include <span>
#include <stdexcept>
#include <vector>

#include "history/draw_record.h"

namespace history {

/// Why a history cannot be published, in Chinese.
struct PublishError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The draws of a workspace. \param userFolder  holds "{user}.mdb", {user} being the folder's own name
/// \throws PublishError
std::vector<Draw> drawsOfUserFolder(const std::filesystem::path& userFolder);

/// The draws of a history text. \throws PublishError; it names the line that is refused
std::vector<Draw> drawsOfTextFile(const std::filesystem::path& file);

/// Writes the files. Old ones are replaced, other files of the folder stay.
/// \param draws   oldest first, at least one, numbers ascending within 33 reds and 16 blues; an issue of 0 becomes
/// the
///                draw's place
/// \param folder  made when it is missing
/// \throws PublishError
void publishHistory(std::span<const Draw> draws, const std::filesystem::path& folder);

} // namespace history
