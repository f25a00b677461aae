// The .zip file that a workbook is: read entry by entry, and made entry after entry.
//
// minizip does the work; here its handles are closed and each of its errors is thrown. Nothing is held but one entry
// of the reader.
#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <string_view>

namespace output {

/// Order: next(), then name() and read(), until next() is false.
class ZipReader {
  public:
    /// \throws workspace::Failure when this is no such file, or one that was cut off, and so do the others
    explicit ZipReader(const std::filesystem::path& path);
    ~ZipReader();
    ZipReader(const ZipReader&) = delete;
    ZipReader& operator=(const ZipReader&) = delete;

    /// Goes to the first entry, then to the one behind. \return whether there is one
    bool next();
    const std::string& name() const { return m_name; }
    /// The whole entry, unpacked; its checksum has been compared.
    std::string read();

  private:
    void* m_file;
    bool m_begun = false;
    std::string m_name;
    std::uint64_t m_size = 0; ///< unpacked
};

/// An entry that grows beyond what it was to have at most.
struct EntryTooLong {};

/// Bytes that the usual headers of an entry can tell.
inline constexpr std::uint64_t kUsualEntry = std::numeric_limits<std::uint32_t>::max() - 1;
inline constexpr std::uint64_t kAnyEntry = std::numeric_limits<std::uint64_t>::max();

/// Order: begin(), write() any number of times, end(); after the last entry finish().
class ZipWriter {
  public:
    /// \param longest  bytes of an entry. Above kUsualEntry the headers are those of zip64; a file that can do
    /// without
    ///                 them does, since not every reader of workbooks knows them
    /// \throws std::system_error when the disk is full, workspace::Failure for another reason; and so do the others
    ZipWriter(const std::filesystem::path& path, std::uint64_t longest);
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    void begin(const std::string& name);
    /// \throws EntryTooLong too
    void write(std::string_view part);
    void end();
    void finish();

  private:
    void* m_file;
    std::uint64_t m_longest;
    std::uint64_t m_size = 0; ///< of the entry that was begun
};

} // namespace output
