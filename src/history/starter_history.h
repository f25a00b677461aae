// The draws that ship with the program, so that the first reading of a history text finds a file to pick.
#pragma once

#include <filesystem>

namespace history {

/// Puts them as "双色球历史号码.txt" into the folder "双色历史号码" of the program's folder, when there is no such
/// folder yet: what a user has taken away does not come back. A failure is passed over.
void putStarterHistory(const std::filesystem::path& programFolder);

} // namespace history
