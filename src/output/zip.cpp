#include "output/zip.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include <minizip/unzip.h>
#include <minizip/zip.h>

#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace output {

namespace {

constexpr std::size_t kBlock = 1 << 16;
constexpr std::size_t kLongestName = 256;
constexpr int kLevel = 1;               // a page of numbers: 4 to 5 times as fast as the usual 6, and a third longer
constexpr uLong kFirstDay = 0x21 << 16; // 1980-01-01: the same cells give the same file

[[noreturn]] void damaged(const char* what) {
    throw workspace::Failure(u"文件没有写完整"_s, QString::fromLatin1(what));
}

void requireWritten(int error) {
    if (error == ZIP_ERRNO)
        throw std::system_error(errno != 0 ? errno : EIO, std::generic_category(), "zip");
    if (error != ZIP_OK)
        throw workspace::Failure(u"不能生成工作簿"_s, u"zip %1"_s.arg(error));
}

} // namespace

ZipReader::ZipReader(const std::filesystem::path& path) : m_file(unzOpen64(path.c_str())) {
    if (!m_file)
        damaged("directory");
}

ZipReader::~ZipReader() {
    unzClose(m_file);
}

bool ZipReader::next() {
    const int state = std::exchange(m_begun, true) ? unzGoToNextFile(m_file) : unzGoToFirstFile(m_file);
    if (state == UNZ_END_OF_LIST_OF_FILE)
        return false;
    std::array<char, kLongestName + 1> name{};
    unz_file_info64 told{};
    if (state != UNZ_OK ||
        unzGetCurrentFileInfo64(m_file, &told, name.data(), kLongestName, nullptr, 0, nullptr, 0) != UNZ_OK)
        damaged("entry");
    m_name = name.data();
    m_size = told.uncompressed_size;
    return true;
}

std::string ZipReader::read() {
    if (unzOpenCurrentFile(m_file) != UNZ_OK)
        damaged("local header");
    std::string bytes;
    std::array<char, kBlock> block;
    int length = 0;
    while ((length = unzReadCurrentFile(m_file, block.data(), block.size())) > 0)
        bytes.append(block.data(), static_cast<std::size_t>(length));
    const int closed = unzCloseCurrentFile(m_file); // compares the checksum
    if (length < 0 || closed != UNZ_OK || bytes.size() != m_size)
        damaged("checksum");
    return bytes;
}

ZipWriter::ZipWriter(const std::filesystem::path& path, std::uint64_t longest)
    : m_file(zipOpen64(path.c_str(), APPEND_STATUS_CREATE)), m_longest(longest) {
    if (!m_file)
        requireWritten(ZIP_ERRNO);
}

ZipWriter::~ZipWriter() {
    if (m_file)
        zipClose(m_file, nullptr); // given up: what it tells is of no interest
}

void ZipWriter::begin(const std::string& name) {
    zip_fileinfo told{};
    told.dosDate = kFirstDay;
    m_size = 0;
    requireWritten(zipOpenNewFileInZip64(m_file, name.c_str(), &told, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                                         kLevel, m_longest > kUsualEntry));
}

void ZipWriter::write(std::string_view part) {
    m_size += part.size();
    if (m_size > m_longest)
        throw EntryTooLong();
    requireWritten(zipWriteInFileInZip(m_file, part.data(), static_cast<unsigned>(part.size())));
}

void ZipWriter::end() {
    requireWritten(zipCloseFileInZip(m_file));
}

void ZipWriter::finish() {
    requireWritten(zipClose(std::exchange(m_file, nullptr), nullptr));
}

} // namespace output
