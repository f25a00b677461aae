#include "selection/wheel_import.h"

#include "history/text_pieces.h"
#include "selection/wheel_database.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

constexpr qsizetype kMostBytes = 16'000'000; // 128,160 rows of seven positions take 2.7 million

/// A database that is written beside its place; without put() it goes.
class DatabaseInTheMaking {
  public:
    explicit DatabaseInTheMaking(const std::filesystem::path& place)
        : m_place(place), m_path(std::filesystem::path(place) += ".new") {
        workspace::removeDatabase(m_path); // of a run that was killed
    }
    ~DatabaseInTheMaking() { workspace::removeDatabase(m_path); }
    DatabaseInTheMaking(const DatabaseInTheMaking&) = delete;
    DatabaseInTheMaking& operator=(const DatabaseInTheMaking&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    bool put() { return workspace::flushToDisk(m_path) && workspace::replaceDatabase(m_path, m_place); }

  private:
    std::filesystem::path m_place;
    std::filesystem::path m_path;
};

std::filesystem::path freeName(const std::filesystem::path& file, const QDateTime& now) {
    const QString name = workspace::toQString(file.filename()) + u" 保存 "_s + now.toString(u"yyyy-MM-dd HHmmss"_s);
    std::filesystem::path free = file.parent_path() / workspace::toPath(name);
    for (int next = 2; workspace::isThere(free); ++next)
        free = file.parent_path() / workspace::toPath(u"%1 (%2)"_s.arg(name).arg(next));
    return free;
}

/// A copy of the former database stands there as well while it is being replaced.
std::filesystem::path keep(const std::filesystem::path& file, const QDateTime& now) {
    if (!workspace::isThere(file))
        return {};
    std::filesystem::path kept = freeName(file, now);
    if (!workspace::copyWholeFile(file, kept))
        throw workspace::Failure(u"不能保存原有的矩阵文件 "_s + workspace::toQString(file));
    return kept;
}

} // namespace

std::string readWheelFile(const std::filesystem::path& file) {
    QString text;
    history::readInPieces(file, [&text](QStringView piece) {
        text += piece;
        return text.size() <= kMostBytes;
    });
    if (text.size() > kMostBytes)
        throw workspace::Failure(u"文件太大，不像是矩阵文本："_s + workspace::toQString(file));
    return text.toStdString();
}

std::filesystem::path installWheel(sql::Engine& engine, const WheelPlaces& places, const WheelTable& table,
                                   std::span<const PositionSet> rows, const QDateTime& now) {
    const std::filesystem::path& former = workspace::isThere(places.own) ? places.own : places.shipped;
    DatabaseInTheMaking made(places.own);
    const bool copied = workspace::isThere(former);
    if (copied && !workspace::copyWholeFile(former, made.path()))
        throw workspace::Failure(u"不能复制矩阵文件 "_s + workspace::toQString(former));
    writeWheel(*(copied ? engine.open(made.path()) : engine.create(made.path())), table, rows);
    std::filesystem::path kept = keep(places.own, now);
    if (!made.put()) {
        std::error_code ignored; // the former file is in its place: a copy too many harms nothing
        std::filesystem::remove(kept, ignored);
        throw workspace::Failure(u"不能写入矩阵文件 "_s + workspace::toQString(places.own));
    }
    return kept;
}

} // namespace selection
