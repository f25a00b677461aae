#include "output/zip_file.h"

#include <algorithm>
#include <memory>

#include <zlib.h>

#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace output {

namespace {

constexpr qsizetype kBlock = 1 << 16;
constexpr qsizetype kEndLength = 22; // of the record that ends a file without a comment
constexpr qsizetype kDirectoryLength = 46;
constexpr qsizetype kLocalLength = 30;
constexpr auto kEndMark = "PK\5\6";
constexpr auto kDirectoryMark = "PK\1\2";
constexpr auto kLocalMark = "PK\3\4";

[[noreturn]] void damaged(const char* what) {
    throw workspace::Failure(u"文件没有写完整"_s, QString::fromLatin1(what));
}

std::uint32_t numberAt(const QByteArray& bytes, qsizetype at, int length) {
    if (at + length > bytes.size())
        damaged("short record");
    std::uint32_t number = 0;
    for (int byte = length - 1; byte >= 0; --byte)
        number = number << 8 | static_cast<std::uint8_t>(bytes[at + byte]);
    return number;
}

/// One run of zlib over the packed bytes of an entry.
class Inflater {
  public:
    Inflater() {
        if (inflateInit2(&m_stream, -MAX_WBITS) != Z_OK)
            throw std::bad_alloc();
    }
    ~Inflater() { inflateEnd(&m_stream); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    void take(QByteArray& packed, const ZipFile::Sink& sink) {
        char block[kBlock];
        m_stream.next_in = reinterpret_cast<Bytef*>(packed.data());
        m_stream.avail_in = static_cast<uInt>(packed.size());
        do {
            m_stream.next_out = reinterpret_cast<Bytef*>(block);
            m_stream.avail_out = sizeof block;
            const int state = inflate(&m_stream, Z_NO_FLUSH);
            if (state != Z_OK && state != Z_STREAM_END && state != Z_BUF_ERROR)
                damaged("inflate");
            sink({block, sizeof block - m_stream.avail_out});
        } while (m_stream.avail_out == 0);
    }

  private:
    z_stream m_stream{};
};

} // namespace

ZipFile::ZipFile(const std::filesystem::path& path) : m_file(workspace::toQString(path)) {
    if (!m_file.open(QIODevice::ReadOnly))
        damaged("open");
    readDirectory();
}

// end record: mark 4, disks 4, entries 2 + 2, length of the directory 4, its place 4, comment 2
// entry: mark 4, … method 2 at 10, crc 4 at 16, packed 4, size 4, lengths of name, extra, comment 2 each at 28,
//        … local header 4 at 42, name at 46
void ZipFile::readDirectory() {
    m_file.seek(std::max<qint64>(0, m_file.size() - kEndLength));
    const QByteArray end = m_file.read(kEndLength);
    if (!end.startsWith(kEndMark))
        damaged("end record");
    const std::uint32_t length = numberAt(end, 12, 4);
    m_file.seek(numberAt(end, 16, 4));
    const QByteArray directory = m_file.read(length);
    for (qsizetype at = 0; at < static_cast<qsizetype>(length);) {
        if (!directory.mid(at).startsWith(kDirectoryMark))
            damaged("directory");
        const std::uint32_t name = numberAt(directory, at + 28, 2);
        m_entries.push_back({directory.mid(at + kDirectoryLength, name), numberAt(directory, at + 24, 4),
                             numberAt(directory, at + 16, 4), numberAt(directory, at + 20, 4),
                             numberAt(directory, at + 42, 4), numberAt(directory, at + 10, 2) == Z_DEFLATED});
        at += kDirectoryLength + name + numberAt(directory, at + 30, 2) + numberAt(directory, at + 32, 2);
    }
}

void ZipFile::read(const ZipEntry& entry, const Sink& sink) {
    m_file.seek(static_cast<qint64>(entry.header));
    const QByteArray header = m_file.read(kLocalLength);
    if (!header.startsWith(kLocalMark))
        damaged("local header");
    m_file.skip(numberAt(header, 26, 2) + numberAt(header, 28, 2));
    std::uint64_t size = 0;
    uLong crc = crc32(0, nullptr, 0);
    const Sink counted = [&](std::string_view part) {
        size += part.size();
        crc = crc32_z(crc, reinterpret_cast<const Bytef*>(part.data()), part.size());
        sink(part);
    };
    Inflater inflater;
    for (std::uint64_t left = entry.packed; left > 0;) {
        QByteArray packed = m_file.read(static_cast<qint64>(std::min<std::uint64_t>(left, kBlock)));
        if (packed.isEmpty())
            damaged("short entry");
        left -= static_cast<std::uint64_t>(packed.size());
        if (entry.deflated)
            inflater.take(packed, counted);
        else
            counted({packed.data(), static_cast<std::size_t>(packed.size())});
    }
    if (size != entry.size || crc != entry.crc)
        damaged("checksum");
}

} // namespace output
