#include "workspace/safe_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QSaveFile>

namespace workspace {

namespace {

// What SQLite may leave beside a database that was not closed.
constexpr const char* kBeside[] = {"-journal", "-wal", "-shm"};

void removeBeside(const std::filesystem::path& file) {
    std::error_code ignored;
    for (const char* suffix : kBeside)
        std::filesystem::remove(std::filesystem::path(file) += suffix, ignored);
}

/// A copy under a temporary name beside `to`, on the disk; empty when there is none.
std::filesystem::path copyBeside(const std::filesystem::path& from, const std::filesystem::path& to) {
    const std::filesystem::path unfinished = std::filesystem::path(to) += ".new";
    std::error_code failed;
    std::filesystem::copy_file(from, unfinished, std::filesystem::copy_options::overwrite_existing, failed);
    if (!failed && flushToDisk(unfinished))
        return unfinished;
    std::filesystem::remove(unfinished, failed);
    return {};
}

} // namespace

QString toQString(const std::filesystem::path& path) {
    return QFile::decodeName(QByteArray(path.c_str()));
}

std::filesystem::path toPath(const QString& text) {
    return std::filesystem::path(QFile::encodeName(text).toStdString());
}

bool flushToDisk(const std::filesystem::path& path) {
    const int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool flushed = ::fsync(handle) == 0;
    ::close(handle);
    return flushed;
}

bool isThere(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::symlink_status(path, ignored).type() != std::filesystem::file_type::not_found;
}

bool writeWholeFile(const std::filesystem::path& file, const QByteArray& bytes, Readers readers) {
    QSaveFile out(toQString(file));
    if (!out.open(QIODevice::WriteOnly))
        return false;
    if (readers == Readers::OwnerOnly)
        out.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    // commit() alone would put a file cut off by a full disk in place of the old one.
    if (out.write(bytes) != bytes.size() || !out.flush()) {
        out.cancelWriting();
        out.commit();
        return false;
    }
    if (!out.commit())
        return false;
    flushToDisk(file.parent_path());
    return true;
}

bool renameDurably(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code failed;
    std::filesystem::rename(from, to, failed);
    if (failed)
        return false;
    flushToDisk(to.parent_path());
    if (from.parent_path() != to.parent_path())
        flushToDisk(from.parent_path());
    return true;
}

bool copyWholeFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    const std::filesystem::path unfinished = copyBeside(from, to);
    return !unfinished.empty() && renameDurably(unfinished, to);
}

bool copyDatabase(const std::filesystem::path& from, const std::filesystem::path& to) {
    const std::filesystem::path unfinished = copyBeside(from, to);
    return !unfinished.empty() && replaceDatabase(unfinished, to);
}

bool replaceDatabase(const std::filesystem::path& from, const std::filesystem::path& to) {
    removeBeside(to);
    return renameDurably(from, to);
}

void removeDatabase(const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    removeBeside(file);
}

} // namespace workspace
