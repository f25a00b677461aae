#include "output/new_file.h"

#include <cerrno>
#include <system_error>

#include "workspace/safe_file.h"

namespace output {

namespace {

constexpr qsizetype kBlock = 1 << 16; // characters that are written at a time

std::filesystem::path followed(const std::filesystem::path& place) {
    std::error_code failed;
    const std::filesystem::path target = std::filesystem::weakly_canonical(place, failed);
    return failed ? place : target;
}

std::filesystem::path freeBeside(const std::filesystem::path& place) {
    std::filesystem::path path = std::filesystem::path(place) += ".new";
    std::error_code ignored;
    for (int next = 2; std::filesystem::exists(std::filesystem::symlink_status(path, ignored)); ++next)
        path = std::filesystem::path(place) += ".new" + std::to_string(next);
    return path;
}

[[noreturn]] void fail(int number, const char* what) {
    throw std::system_error(number != 0 ? number : EIO, std::generic_category(), what);
}

} // namespace

NewFile::NewFile(const std::filesystem::path& place) : m_place(followed(place)), m_path(freeBeside(m_place)) {
    errno = 0;
    if (!QFile(workspace::toQString(m_path)).open(QIODevice::WriteOnly | QIODevice::NewOnly))
        fail(errno, "create");
}

NewFile::~NewFile() {
    std::error_code ignored;
    if (!m_committed)
        std::filesystem::remove(m_path, ignored);
}

void NewFile::commit() {
    errno = 0;
    if (!workspace::flushToDisk(m_path) || !workspace::renameDurably(m_path, m_place))
        fail(errno, "commit");
    m_committed = true;
}

void writeAll(QFile& file, std::string_view bytes) {
    const auto length = static_cast<qint64>(bytes.size());
    errno = 0;
    if (file.write(bytes.data(), length) != length)
        fail(errno, "write");
}

TextFile::TextFile(const std::filesystem::path& place) : m_new(place), m_file(workspace::toQString(m_new.path())) {
    errno = 0;
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        fail(errno, "open");
}

void TextFile::take(QString& text) {
    if (text.size() >= kBlock)
        write(text);
}

void TextFile::write(QString& text) {
    const QByteArray bytes = text.toUtf8();
    writeAll(m_file, {bytes.data(), static_cast<std::size_t>(bytes.size())});
    text.resize(0); // keeps its room
}

void TextFile::commit(QString& rest) {
    write(rest);
    m_file.close();
    m_new.commit();
}

} // namespace output
