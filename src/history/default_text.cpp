#include "history/default_text.h"

#include <algorithm>
#include <optional>

#include <QFile>

#include "history/text_lines.h"
#include "workspace/failure.h"
#include "workspace/keeping.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

const QString kForeign =
    u"默认历史文本不是本程序按原有的历史号码写成的（可能手工修改过），改写之前原样保存在这里。"_s;

constexpr qint64 kLongest = 4 * 1024 * 1024; // four times the text of a full history: no longer one is the program's

/// The default file can be read and replaced as a file of the program's folder.
bool isOurFile(const std::filesystem::path& file, const workspace::Workspace& workspace) {
    std::error_code failed;
    return std::filesystem::is_regular_file(file, failed) && staysInside(file, workspace);
}

/// The bytes of a file that is not longer than some; nothing for a longer one, or one that cannot be read.
std::optional<QByteArray> bytesUpTo(qint64 longest, const std::filesystem::path& file) {
    QFile in(workspace::toQString(file));
    if (!in.open(QIODevice::ReadOnly) || in.size() > longest)
        return std::nullopt;
    return in.readAll();
}

/// The text without blanks at the ends of its lines, without empty lines and without a mark in front.
QByteArray bare(const QByteArray& text) {
    QByteArray bare;
    for (QByteArray line : text.split('\n')) {
        if (bare.isEmpty() && line.startsWith("\xEF\xBB\xBF"))
            line.remove(0, 3);
        while (line.endsWith(' ') || line.endsWith('\r'))
            line.chop(1);
        if (!line.isEmpty())
            bare += line + '\n';
    }
    return bare;
}

/// Whether all that a text says is in one of the others.
bool isOneOf(const QByteArray& text, std::initializer_list<QByteArray> others) {
    if (std::find(others.begin(), others.end(), text) != others.end())
        return true;
    const QByteArray said = bare(text);
    return said.isEmpty() ||
           std::any_of(others.begin(), others.end(), [&](const QByteArray& other) { return bare(other) == said; });
}

} // namespace

std::filesystem::path historyTextFolder(const workspace::Workspace& workspace) {
    const std::filesystem::path folder = historyTextFile(workspace).parent_path();
    std::error_code ignored; // shows when a file is put there
    std::filesystem::create_directory(folder, ignored);
    return folder;
}

std::filesystem::path historyTextFile(const workspace::Workspace& workspace) {
    return workspace::underFolder(workspace.folder, workspace::historyTextFragment(workspace.Username));
}

bool staysInside(const std::filesystem::path& file, const workspace::Workspace& workspace) {
    std::error_code failed;
    const std::filesystem::path inside = std::filesystem::canonical(workspace.folder, failed);
    if (failed)
        return false;
    // A link to nothing would be followed by what writes, and is not by what follows links here.
    if (std::filesystem::is_symlink(file, failed) && !std::filesystem::exists(file, failed))
        return false;
    const std::filesystem::path place = std::filesystem::weakly_canonical(file, failed);
    return !failed && std::mismatch(inside.begin(), inside.end(), place.begin(), place.end()).first == inside.end();
}

std::span<const Draw> drawsOf(const History& history) {
    return std::span(history.Lshm).subspan(1, static_cast<std::size_t>(history.Lsnum));
}

void writeHistoryText(History& history, const workspace::Workspace& workspace) {
    historyTextFolder(workspace);
    const std::filesystem::path file = historyTextFile(workspace);
    const QByteArray bytes = drawsAsText(drawsOf(history));
    if (staysInside(file, workspace) && workspace::writeWholeFile(file, bytes)) {
        history.text = {};
        return;
    }
    // What stands there was the program's, or was kept: the next change need not keep it again.
    history.text.pending = true;
    history.text.left = isOurFile(file, workspace) ? bytesUpTo(kLongest, file).value_or(QByteArray()) : QByteArray();
}

void guardHistoryText(const History& former, std::span<const Draw> next, const workspace::Workspace& workspace) {
    const std::filesystem::path file = historyTextFile(workspace);
    if (!isOurFile(file, workspace))
        return;
    if (const std::optional<QByteArray> bytes = bytesUpTo(kLongest, file)) {
        const QByteArray before = drawsAsText(drawsOf(former));
        if (*bytes == before || isOneOf(*bytes, {before, drawsAsText(next), former.text.left}))
            return;
    }
    workspace::Keeping keeping(workspace::userFolder(workspace.folder, workspace.Username), kForeign);
    keeping.copy(file);
}

void retryHistoryText(History& history, const workspace::Workspace& workspace) {
    if (!history.text.pending)
        return;
    try {
        guardHistoryText(history, drawsOf(history), workspace);
        writeHistoryText(history, workspace);
    } catch (const workspace::Failure&) { // it stays behind
    }
}

void keepHistory(const workspace::Workspace& workspace, const std::filesystem::path& text, const QString& what) {
    workspace::Keeping keeping(workspace::userFolder(workspace.folder, workspace.Username), what);
    keeping.copy(workspace::underFolder(workspace.folder, workspace.UserDbPath));
    if (isOurFile(text, workspace))
        keeping.copy(text);
}

} // namespace history
