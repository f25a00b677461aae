// The five template databases beside the program, made from code where they are missing.
//
// A workspace is a copy of them. A template is built under a temporary name and renamed when it is whole, so that a
// kill in the middle leaves none rather than half of one. Tables of the combination family are there and empty; the
// scratch tables Tmp and Lishi are not there at all.
// Add a table: one row of the list of its template in templates.cpp.
#pragma once

#include <filesystem>
#include <string>

#include "sql/database.h"

namespace workspace {

/// A file of a workspace and the template that it is copied from. An empty file name stands for "{user}.mdb".
struct TemplateFile {
    const char* templateName;
    const char* userFile;
};

inline constexpr TemplateFile kTemplateFiles[] = {
    {"Lishihaoma.mdb", ""},         {"filnum.mdb", "filnum.mdb"}, {"filnumR.mdb", "filnumR.mdb"},
    {"numsave.mdb", "numsave.mdb"}, {"Gailv.mdb", "Gailv.mdb"},
};

/// What a user's new name gets: no six-red combinations.
inline constexpr TemplateFile kRenamedUserFiles[] = {
    {"Lishihaoma.mdb", ""},
    {"filnum.mdb", "filnum.mdb"},
    {"numsave.mdb", "numsave.mdb"},
    {"Gailv.mdb", "Gailv.mdb"},
};

/// The statement that creates fig of dbFilnum: the draws without what is derived from them.
inline constexpr const char* kCreateBareFig =
    "CREATE TABLE [fig]([idx] integer,[fig0] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,"
    "[fig5] integer,[fig6] integer,[fig7] integer)";

/// Makes every template that is missing or no database. Those that are there stay as they are.
/// \throws sql::SqlError kDiskFull, kPathNotFound, …; Failure when the whole file cannot be put in place
void makeMissingTemplates(sql::Engine& engine, const std::filesystem::path& folder);

/// The CREATE TABLE statement of a combination table, or an empty text for a table that is none.
std::string createCombinationTable(std::string_view table);

} // namespace workspace
