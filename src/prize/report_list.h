// The reports of profit and loss: the list of a folder, the one that is shown, and the two deletions.
//
// Order: construct, open(), then the others as they come. Three things are so on purpose: open() does not reset the
// count of files, so after a deletion the paths of the new list stand behind the old ones and an entry can stand for
// a path of the earlier list; the step forward can reach one past the last file, where nothing is shown; and deleting
// everything empties the list and spares the reports.
// A report that nobody ticked is never deleted: where an earlier path takes the place of a ticked entry it goes to a
// folder "保存 …" (workspace/keeping.h).
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include <QString>

#include "workspace/settings.h"

namespace prize {

inline constexpr int kReportSlots = 1025;

class ReportList {
  public:
    /// \param userFolder  holds the folder of reports
    explicit ReportList(std::filesystem::path userFolder) : m_userFolder(std::move(userFolder)) {}

    /// Searches the folder, oldest report first. A file that cannot be read has an entry of what was read.
    void open();
    /// "兑奖日期:2026-11-22     兑奖时间:09:05:07"
    const std::vector<QString>& entries() const { return m_entries; }
    /// Files that found no slot: they are not listed.
    int unlisted() const { return m_unlisted; }

    /// Each gives the text to show; nothing: what is shown stays.
    std::optional<QString> last() const;
    std::optional<QString> previous();
    std::optional<QString> next();
    std::optional<QString> chosen(int entry) const;
    /// The entry of the file that the steps stand on; -1 where none has it.
    int steppedEntry() const;

    /// Sets Money/Default of the user to 0, forgets the entries, and deletes reports that lie right in the user's
    /// folder. \return files that could not be deleted
    std::vector<std::filesystem::path> deleteAll(workspace::Settings& settings, const QString& user);
    /// Deletes the files at the places of the ticked entries, then opens again. \return as above
    std::vector<std::filesystem::path> deleteTicked(const std::vector<int>& ticked);

    std::array<std::filesystem::path, kReportSlots> ReportFiles;
    std::int16_t ReportCount = 0;
    std::int16_t ReportIndex = 0;

  private:
    void add(const std::filesystem::path& file);
    std::optional<QString> textAt(int place) const;

    std::filesystem::path m_userFolder;
    std::vector<QString> m_entries;
    std::vector<std::filesystem::path> m_listed; ///< the file that each entry was read from
    int m_unlisted = 0;
};

} // namespace prize
