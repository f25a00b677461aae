#include "workspace/keeping.h"

#include <algorithm>

#include <QFile>

#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

const QString kFolderStart = u"保存 "_s;
const QString kUnfinished = u"正在保存.txt"_s;
const QString kUnread = u"未读 说明.txt"_s;
const QString kRead = u"说明.txt"_s;
constexpr const char* kJournals[] = {"-journal", "-wal", "-shm"};

std::filesystem::path placeIn(const std::filesystem::path& folder, const QString& name) {
    return folder / toPath(name);
}

bool isNote(const std::filesystem::path& file) {
    const QString name = toQString(file.filename());
    return name == kUnfinished || name == kUnread || name == kRead;
}

std::vector<std::filesystem::path> keptFoldersOf(const std::filesystem::path& userFolder) {
    std::vector<std::filesystem::path> folders;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(userFolder, ignored))
        if (toQString(entry.path().filename()).startsWith(kFolderStart) && !entry.is_symlink(ignored) &&
            entry.is_directory(ignored))
            folders.push_back(entry.path());
    std::sort(folders.rbegin(), folders.rend());
    return folders;
}

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored))
        if (!isNote(entry.path()))
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

QString textOf(const std::filesystem::path& file) {
    QFile in(toQString(file));
    return in.open(QIODevice::ReadOnly) ? QString::fromUtf8(in.readAll()).trimmed() : QString();
}

} // namespace

Keeping::Keeping(std::filesystem::path userFolder, QString what, const QDateTime& now)
    : m_userFolder(std::move(userFolder)), m_what(std::move(what)) {
    for (const std::filesystem::path& folder : keptFoldersOf(m_userFolder))
        if (isThere(placeIn(folder, kUnfinished)))
            m_folder = folder;
    const QString name = kFolderStart + now.toString(u"yyyy-MM-dd hhmmss"_s);
    for (int number = 2; m_folder.empty(); ++number) {
        const QString numbered = number == 2 ? name : name + u" (%1)"_s.arg(number - 1);
        if (const auto folder = placeIn(m_userFolder, numbered); !isThere(folder))
            m_folder = folder;
    }
}

Keeping::~Keeping() {
    finish();
}

/// Makes the folder and its text, so that a kill right behind it is explained.
void Keeping::begin() {
    if (m_begun)
        return;
    std::error_code failed;
    std::filesystem::create_directories(m_folder, failed);
    if (failed || !writeWholeFile(placeIn(m_folder, kUnfinished), m_what.toUtf8() + '\n'))
        throw Failure(u"不能建立保存原有文件的文件夹 "_s + toQString(m_folder),
                      QString::fromStdString(failed.message()));
    m_begun = true;
}

/// Where a file of the same name was put before a kill the next one gets a number.
std::filesystem::path Keeping::freePlace(const std::filesystem::path& file) const {
    std::filesystem::path place = m_folder / file.filename();
    for (int number = 2; isThere(place); ++number)
        place = m_folder / (file.stem().string() + " (" + std::to_string(number) + ")" + file.extension().string());
    return place;
}

void Keeping::move(const std::filesystem::path& file) {
    std::filesystem::path to = m_folder / file.filename();
    if (isThere(file)) {
        begin();
        to = freePlace(file);
        if (!renameDurably(file, to))
            throw Failure(u"不能移动文件 "_s + toQString(file));
        m_moved.push_back({file, to});
    }
    // The journals follow: a kill in between leaves them to the next call, which puts them beside the same file.
    for (const char* suffix : kJournals) {
        const auto beside = std::filesystem::path(file) += suffix;
        const auto place = std::filesystem::path(to) += suffix;
        if (!isThere(beside) || !isThere(to) || isThere(place))
            continue;
        begin();
        if (renameDurably(beside, place))
            m_moved.push_back({beside, place});
    }
}

void Keeping::copy(const std::filesystem::path& file) {
    if (!isThere(file))
        return;
    begin();
    const std::filesystem::path place = freePlace(file);
    if (!copyWholeFile(file, place))
        throw Failure(u"不能保存文件 "_s + toQString(file));
    m_copies.push_back(place);
}

void Keeping::putBack() {
    while (!m_moved.empty()) {
        const Moved moved = m_moved.back();
        m_moved.pop_back();
        if (!isThere(moved.from))
            renameDurably(moved.to, moved.from);
    }
    std::error_code ignored; // the original is in its place: a copy too many harms nothing
    for (const std::filesystem::path& copy : m_copies)
        std::filesystem::remove(copy, ignored);
    m_copies.clear();
}

void Keeping::finish() {
    if (!m_begun)
        return;
    m_begun = false;
    const auto note = placeIn(m_folder, kUnfinished);
    if (!filesIn(m_folder).empty()) {
        renameDurably(note, placeIn(m_folder, kUnread));
        return;
    }
    std::error_code ignored; // then an empty folder stays, which says so itself
    std::filesystem::remove(note, ignored);
    std::filesystem::remove(m_folder, ignored);
}

std::vector<KeptFiles> unreadKeptFiles(const std::filesystem::path& userFolder) {
    std::vector<KeptFiles> unread;
    for (const std::filesystem::path& folder : keptFoldersOf(userFolder))
        for (const QString& note : {kUnfinished, kUnread})
            if (isThere(placeIn(folder, note)) && !filesIn(folder).empty())
                unread.push_back({folder, textOf(placeIn(folder, note)), filesIn(folder)});
    return unread;
}

bool closeNotice(const KeptFiles& kept) {
    bool closed = true;
    for (const QString& note : {kUnfinished, kUnread})
        if (const auto text = placeIn(kept.folder, note); isThere(text))
            closed = renameDurably(text, placeIn(kept.folder, kRead)) && closed;
    return closed;
}

} // namespace workspace
