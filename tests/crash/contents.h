// What the files of a program folder hold, in short texts that can be compared: users, draws, the combination table,
// settings. The driver tells them before it is killed, the test reads them again.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <span>
#include <string>

#include <QString>

#include "history/history.h"
#include "sql/database.h"
#include "workspace/user_list.h"
#include "workspace/workspace.h"

namespace crash {

/// Checksum of the rows of a combination table with a blue: every column whole by its sum, and some hundred rows with
/// all their values. A store that had written only some of its chunks, columns or dictionaries would show in both.
std::string tableChecksum(sql::Database& dbFilnum, const std::string& table = "zuhe");

/// "rows/rows in play/checksum"; "none" where there is no such table.
std::string tableText(sql::Database& dbFilnum, const std::string& table = "zuhe");

/// Tables whose rows are told, with the names of their keys: bets made, read from a text, gathered in the template.
struct ToldTable {
    const char* key;
    const char* table;
};
inline constexpr ToldTable kToldTables[] = {{"table", "zuhe"}, {"read", "zuheRead"}, {"template", "zuheMoban"}};
/// Their texts for a user.
std::map<std::string, std::string> tablesOf(sql::Database& dbFilnum, const QString& user);
/// "draws/last issue/checksum/rows of YlqsB": a cleared history leaves those behind.
std::string drawsText(std::span<const history::Draw> draws, std::int64_t blueOmissions);
/// "name:password|name:password|"
std::string usersText(std::span<const workspace::UserList::User> users);

/// "draws/张三": what a value belongs to.
std::string keyOf(const char* what, const QString& user);

/// Texts by key: "users", "entered", and for each user "draws", the keys of kToldTables, "text", "rule", "Wd" and
/// "dayin".
using Texts = std::map<std::string, std::string>;

struct FoundFolder {
    Texts contents;
    std::set<std::string> listed;   ///< names of the list of users
    std::set<std::string> repaired; ///< names whose files had to be put back from templates
};

/// Opens every user's files as an entry would. \param names  users to look at beside those of the list
/// \throws std::runtime_error when something does not open or does not fit together
FoundFolder readFolder(const std::filesystem::path& folder, const std::filesystem::path& settings,
                       const std::set<std::string>& names);

/// Checksum of the user's default text file; empty: no such file.
std::string textFileText(const workspace::Workspace& workspace);
/// What of the contents lies in the settings of a user.
Texts settingsOf(const workspace::Settings& settings, const QString& user);

/// Every database file of a folder and its folders, through PRAGMA integrity_check. \throws std::runtime_error
void checkIntegrity(const std::filesystem::path& folder);

} // namespace crash
