// What is replaced is kept: files of a user that make room for others go to a folder of their own.
//
// "\{user}\保存 {yyyy-mm-dd hhmmss}\" holds them under their own names, with a text that says what happened. The
// text's name tells how far it is: "正在保存.txt" while files still come, "未读 说明.txt" until its notice was
// closed, then "说明.txt". Order: construct, move() or copy() each file, finish(). A kill anywhere leaves every file
// where it was or in the folder, and the next Keeping of that user goes on in the folder that was not finished.
// Nothing is ever deleted here; a folder that got no file at all is taken away again.
#pragma once

#include <filesystem>
#include <vector>

#include <QDateTime>
#include <QString>

namespace workspace {

class Keeping {
  public:
    /// Nothing is written yet. \param what  a whole sentence: what happened, for the notice
    Keeping(std::filesystem::path userFolder, QString what, const QDateTime& now = QDateTime::currentDateTime());
    /// Does what finish() does.
    ~Keeping();
    Keeping(const Keeping&) = delete;
    Keeping& operator=(const Keeping&) = delete;

    /// Moves a file, and what a database leaves beside it, out of its place; a missing file is no failure, an empty
    /// one is moved too. \throws Failure when the file cannot be moved: it is where it was then
    void move(const std::filesystem::path& file);
    /// Copies a file that stays in its place. \throws Failure when the copy is not whole: there is none then
    void copy(const std::filesystem::path& file);
    /// Puts back what move() has taken, after a failure, and takes away what copy() has made. A file that is in the
    /// way by now stays.
    void putBack();
    /// From now on there is a notice, unless nothing had to be kept.
    void finish();

    bool isEmpty() const { return m_moved.empty() && m_copies.empty(); }
    /// The folder "保存 …"; it exists once a file was kept.
    const std::filesystem::path& folder() const { return m_folder; }

  private:
    struct Moved {
        std::filesystem::path from;
        std::filesystem::path to;
    };

    void begin();
    std::filesystem::path freePlace(const std::filesystem::path& file) const;

    std::filesystem::path m_userFolder;
    std::filesystem::path m_folder;
    QString m_what;
    bool m_begun = false;
    std::vector<Moved> m_moved;
    std::vector<std::filesystem::path> m_copies;
};

/// What one Keeping has put away.
struct KeptFiles {
    std::filesystem::path folder;             ///< "…\保存 2026-11-21 230105"
    QString what;                             ///< what happened, a sentence
    std::vector<std::filesystem::path> files; ///< in the folder, by name; without the text that says what happened
};

/// Kept files whose notice was not closed, newest first; those of a keeping that a kill cut off too.
std::vector<KeptFiles> unreadKeptFiles(const std::filesystem::path& userFolder);

/// The notice does not come back. \return false when that could not be written
bool closeNotice(const KeptFiles& kept);

} // namespace workspace
