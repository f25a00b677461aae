// A file in the making: written beside its place, and put there when it is whole.
//
// Order: construct, write the file at path(), commit(). Without commit() the file in the making goes and the former
// file stays as it was; after it the new one is on the disk, whatever happens then.
#pragma once

#include <filesystem>
#include <string_view>

#include <QFile>

namespace output {

class NewFile {
  public:
    /// An empty file is there from now on: a folder that takes none is known before the work. A link is followed.
    /// \throws std::system_error when it cannot be made
    explicit NewFile(const std::filesystem::path& place);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Where to write: a name of the same folder that no file had.
    const std::filesystem::path& path() const { return m_path; }
    /// \throws std::system_error when the file did not reach its place
    void commit();

  private:
    std::filesystem::path m_place;
    std::filesystem::path m_path;
    bool m_committed = false;
};

/// \throws std::system_error unless all was written
void writeAll(QFile& file, std::string_view bytes);

/// Text in UTF-8 into a new file, in blocks.
class TextFile {
  public:
    /// \throws std::system_error when the file cannot be made, and so do the others when it cannot be written
    explicit TextFile(const std::filesystem::path& place);
    /// Writes the text once it is long enough, and empties it.
    void take(QString& text);
    /// Writes what is left, and puts the file into its place.
    void commit(QString& rest);

  private:
    void write(QString& text);

    NewFile m_new;
    QFile m_file;
};

} // namespace output
