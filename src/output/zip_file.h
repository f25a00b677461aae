// The entries of a .zip file, read and proved by their checksums.
//
// Only what our own workbooks need: deflated or stored entries, no encryption, no entry of 4 GiB.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include <QFile>

namespace output {

struct ZipEntry {
    QByteArray name;
    std::uint64_t size; ///< unpacked
    std::uint32_t crc;
    std::uint64_t packed;
    std::uint64_t header; ///< where its local header stands
    bool deflated;
};

class ZipFile {
  public:
    /// \throws workspace::Failure when this is no such file, or one that was cut off
    explicit ZipFile(const std::filesystem::path& path);

    const std::vector<ZipEntry>& entries() const { return m_entries; }
    using Sink = std::function<void(std::string_view part)>;
    /// Unpacks an entry, part by part. \throws workspace::Failure when it is damaged: its checksum is compared
    void read(const ZipEntry& entry, const Sink& sink);

  private:
    void readDirectory();

    QFile m_file;
    std::vector<ZipEntry> m_entries;
};

} // namespace output
