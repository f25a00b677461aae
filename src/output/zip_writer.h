// A .zip file in the making: entry after entry, packed while it is written.
//
// Order: begin(), write() any number of times, end(); after the last entry finish(). Nothing is held but a block.
#pragma once

#include <memory>
#include <string_view>

#include <QFile>

#include "output/zip_file.h"

namespace output {

class ZipWriter {
  public:
    /// \param file  open, empty, one that can be written at any place
    explicit ZipWriter(QFile& file);
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    /// \throws std::system_error when the disk is full, workspace::Failure beyond 4 GiB; and so do the others
    void begin(const QByteArray& name);
    void write(std::string_view part);
    void end();
    void finish();

  private:
    class Deflater;
    QByteArray localHeader(const ZipEntry& entry) const;

    QFile& m_file;
    std::unique_ptr<Deflater> m_deflater; ///< of the entry that was begun
    std::vector<ZipEntry> m_entries;
};

} // namespace output
