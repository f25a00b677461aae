#include "history/text_file.h"

#include <stdexcept>

#include <QFile>

#include "history/store.h"
#include "history/text_lines.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

const QString kTitle = u"读入历史"_s;
const QString kWholeQuestion =
    u"确实要读入历史号码吗？读入后将覆盖原来所输入/读入的历史号，以新的历史号码文件灌装进入作为本用户的历史纪录！"
    u"点击'确认'读入,点击'取消'放弃该操作。确要读入请保证安装目录下存在历史号码的文本文件文件。"
    u"读取时可能要花费一段时间,请耐心等候！"_s;
const QString kAppendedQuestion =
    u"确实要读入追加历史号码吗？读入时只需要检索历史号码文本中没有灌装如电脑的部分，已灌装期号之前部分将不读取，"
    u"读取部分将追加到原来所输入/读入的历史号后面！点击'确认'读入,点击'取消'放弃该操作。"
    u"确要读入请保证安装目录下存在历史号码的文本文件文件。读取时可能要花费一段时间,请耐心等候！"_s;
const QString kFilter = u"Text(*.txt)|*.txt"_s;
const QString kRefused = u"请检查您的历史号码文本都是由6红+1蓝7个号码组成，中间由空格分开"_s;
const QString kRefusedTitle = u"历史号码文本错误"_s;
const QString kFileFailure = u"文件不存在,名字有冲突或格式不正确,请在本软件目录下察看是否存在历史号码的文本文件"
                             u"(前面顶格[可以有7位的历史期号{如2003001}]按顺序每行一期历史号码共计7红+1蓝=7个数，"
                             u"中间用空格符分离).然后稍后再次读入."_s;
const QString kFileFailureTitle = u"输入错误"_s;

/// A file could not be copied, renamed or read.
struct FileFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

QString renameQuestion(const QString& user, const QDateTime& now) {
    return u"读取的历史号码将保存为名为: "_s + user + u" 双色号码.TXT 的文本文件,"_s + user + u" 双色号码.TXT"_s +
           u"的文本已经存在,将要"_s + u"改名为:"_s + now.toString(u"yyyy-M-d H:mm:ss"_s) + u" 双色号码 "_s +
           u"再选择文本作为历史号码的文本,然后再次读如历史数据.确实要改名吗?"_s;
}

enum class Rename { Done, Exists };

/// Renames, also from one file system to another, but never over an existing file.
Rename renameNew(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (std::filesystem::exists(to))
        return Rename::Exists;
    if (!QFile::rename(workspace::toQString(from), workspace::toQString(to)))
        throw FileFailure("cannot rename " + from.string());
    return Rename::Done;
}

/// Puts a copy of the picked file in the place of the default file, unless the user keeps the one that is there.
void takeAsDefault(const std::filesystem::path& picked, const workspace::Workspace& workspace,
                   ReadingDialogs& dialogs, const QDateTime& now) {
    const QString folderName = workspace::folderName(workspace.Username);
    const auto copy = workspace::toPath(workspace::toQString(picked) + u" By "_s + folderName + u".TXT"_s);
    std::error_code failed;
    std::filesystem::copy_file(picked, copy, std::filesystem::copy_options::overwrite_existing, failed);
    if (failed)
        throw FileFailure("cannot copy " + picked.string());
    const std::filesystem::path standard = historyTextFile(workspace);
    if (renameNew(copy, standard) == Rename::Done)
        return;
    if (!dialogs.confirm(renameQuestion(workspace.Username, now), kTitle)) {
        std::filesystem::remove(copy, failed);
        return;
    }
    const QString old = u" "_s + folderName + now.toString(u"yyyy-M-d"_s) + u"日前 双色号码 .TXT"_s;
    if (renameNew(standard, historyTextFolder(workspace) / workspace::toPath(old)) == Rename::Exists) {
        std::filesystem::remove(copy, failed);
        throw FileFailure("the default file was put aside earlier today");
    }
    renameNew(copy, standard);
}

QString readText(const std::filesystem::path& file) {
    QFile in(workspace::toQString(file));
    if (!in.open(QIODevice::ReadOnly))
        throw FileFailure("cannot open " + file.string());
    const QByteArray bytes = in.readAll();
    if (in.error() != QFileDevice::NoError)
        throw FileFailure("cannot read " + file.string());
    return decodeText(bytes);
}

/// The two kinds of reading, where they differ.
struct Kind {
    const QString& question;
    void (*begin)(History&); ///< before the file is opened
    ParsedDraws (*parse)(const QString& text, const History&);
    void (*store)(History&, const workspace::Workspace&, std::span<const Draw>);
};

/// No draw is held any more; the statistics stay until the draws come.
void dropDraws(History& history) {
    history.Lsnum = 0;
    history.Lshm.assign(1, Draw{});
    history.derived.assign(1, Derived{});
}

const Kind kWhole{kWholeQuestion, dropDraws, [](const QString& text, const History&) { return parseDraws(text); },
                  replaceHistory};

const Kind kAppended{kAppendedQuestion, [](History&) {},
                     [](const QString& text, const History& history) {
                         return parseDrawsAfter(text, history.Lshm[static_cast<std::size_t>(history.Lsnum)][0]);
                     },
                     storeBatch};

Reading readPicked(const Kind& kind, History& history, const workspace::Workspace& workspace, const QString& picked,
                   ReadingDialogs& dialogs, const QDateTime& now) {
    if (picked.endsWith(u"txt"_s, Qt::CaseInsensitive))
        takeAsDefault(workspace::toPath(picked), workspace, dialogs, now);
    kind.begin(history);
    const ParsedDraws parsed = kind.parse(readText(historyTextFile(workspace)), history);
    if (parsed.refused) {
        dialogs.tell(kRefused, kRefusedTitle);
        return Reading::Refused;
    }
    kind.store(history, workspace, parsed.draws);
    writeHistoryText(history, workspace);
    return Reading::Done;
}

Reading read(const Kind& kind, History& history, const workspace::Workspace& workspace, ReadingDialogs& dialogs,
             const QDateTime& now) {
    if (!dialogs.confirm(kind.question, kTitle))
        return Reading::Cancelled;
    const QString picked = dialogs.chooseFile(workspace::toQString(historyTextFolder(workspace)), kFilter);
    if (picked.isEmpty())
        return Reading::Cancelled;
    try {
        return readPicked(kind, history, workspace, picked, dialogs, now);
    } catch (const FileFailure&) {
    } catch (const std::range_error&) { // more draws than a history holds
    }
    dialogs.tell(kFileFailure, kFileFailureTitle);
    return Reading::Failed;
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

Reading readWhole(History& history, const workspace::Workspace& workspace, ReadingDialogs& dialogs,
                  const QDateTime& now) {
    return read(kWhole, history, workspace, dialogs, now);
}

Reading readAppended(History& history, const workspace::Workspace& workspace, ReadingDialogs& dialogs,
                     const QDateTime& now) {
    return read(kAppended, history, workspace, dialogs, now);
}

void writeHistoryText(const History& history, const workspace::Workspace& workspace) {
    const std::span<const Draw> rows(history.Lshm);
    historyTextFolder(workspace);
    workspace::writeWholeFile(historyTextFile(workspace),
                              drawsAsText(rows.subspan(1, static_cast<std::size_t>(history.Lsnum))));
}

} // namespace history
