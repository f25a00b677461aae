// What a user does with a workspace, one operation after another, and what can be told of its files afterwards.
//
// The driver does operations until it is killed; the test reopens the workspace through the same class and compares
// what it finds with what the driver had said. Everything a driver stores can be worked out again from its number:
// a draw from its issue number, a selection from its Idx, so that a row that is there is also known to be right.
#pragma once

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "history/history.h"
#include "sql/database.h"
#include "workspace/settings.h"
#include "workspace/workspace.h"

namespace crash {

/// Committed contents, as one line of text each: what the driver reports and what the test finds again.
struct Contents {
    std::string draws;      ///< issue of the last draw and number of draws
    std::string selections; ///< how many are saved
    std::string setting;    ///< the value that counts up
    std::string table;      ///< checksum of the combination table
};

class Work {
  public:
    /// Opens the workspace in this folder; makes it when there is none, as a first start does.
    /// \throws std::runtime_error when it does not open, or only by a repair, which loses what was stored
    explicit Work(const std::filesystem::path& folder);

    static constexpr const char* kOperations[] = {"press",    "press",   "states",  "states",    "generate", "draws",
                                                  "one draw", "history", "setting", "selection", "template"};

    /// Runs the operation in memory (combination table) or whole (all others).
    void run(const std::string& operation, std::mt19937& random);
    /// As they are in memory now.
    Contents contents();
    /// Writes the combination table, as the window does when it is idle.
    void store();

    /// \throws std::runtime_error with what does not fit together in the files
    void verify();

    /// A whole reading of a text, as the user does it: a copy of the file becomes the default file, and that is read.
    void readText(const std::filesystem::path& file);
    /// The history in the files is that of these draws, with everything that is derived from them. \throws as
    /// verify()
    void verifyHistoryIs(const std::vector<history::Draw>& draws);
    /// The default text file holds one of these histories, if there is one. \throws as verify()
    void verifyTextIsOneOf(const std::vector<std::vector<history::Draw>>& histories);
    const history::History& history() const { return m_history; }

    /// Every template of a folder is whole or not there. \throws as verify()
    static void verifyTemplates(const std::filesystem::path& folder);
    void ensureTemplates();
    /// What the next start does with a folder where the first one was killed: all is there then, and empty.
    static void startAgain(const std::filesystem::path& folder);

    static history::Draw drawOf(std::int32_t issue);
    /// A generation has C(20, 6) sets of reds with each of four to six blues: 155,040 rows and more, which take three
    /// or four chunks a column, so that a store takes long enough to be hit in the middle.
    static constexpr int kReds = 20;

  private:
    void press(std::mt19937& random);
    void changeStates(std::mt19937& random);
    void generate(std::mt19937& random);
    void addDraws(int count);
    void replaceHistory(int count);
    void saveSelection();
    void makeTemplateAgain(std::mt19937& random);
    int setting() const;
    void verifyHistory();
    void verifySelections();

    std::filesystem::path m_folder;
    sql::Engine m_engine;
    workspace::Settings m_settings;
    workspace::Workspace m_workspace;
    history::History m_history;
};

} // namespace crash
