#include "history/text_file.h"

#include <algorithm>
#include <stdexcept>

#include <QFile>

#include "history/store.h"
#include "history/text_lines.h"
#include "workspace/failure.h"
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

const QString kTooMany = u"文件里的历史号码超过%1期"_s;
const QString kReplaced = u"整体读入新的历史号码之前，原有的历史数据库和默认历史文本保存在这里。"_s;

/// A file could not be copied, renamed or read.
struct FileFailure : workspace::Failure {
    using Failure::Failure;
};

QString renameQuestion(const QString& user, const QDateTime& now) {
    return u"读取的历史号码将保存为名为: "_s + user + u" 双色号码.TXT 的文本文件,"_s + user + u" 双色号码.TXT"_s +
           u"的文本已经存在,将要"_s + u"改名为:"_s + now.toString(u"yyyy-M-d H:mm:ss"_s) + u" 双色号码 "_s +
           u"再选择文本作为历史号码的文本,然后再次读如历史数据.确实要改名吗?"_s;
}

/// `name` with a number where that is taken: "{stem}{end}", "{stem} (2){end}", ….
std::filesystem::path freeName(const std::filesystem::path& folder, const QString& stem, const QString& end) {
    std::filesystem::path place = folder / workspace::toPath(stem + end);
    for (int number = 2; workspace::isThere(place); ++number)
        place = folder / workspace::toPath(stem + u" (%1)"_s.arg(number) + end);
    return place;
}

/// Renames, also from one file system to another, but never over something.
void renameNew(const std::filesystem::path& from, const std::filesystem::path& to) {
    QFile file(workspace::toQString(from));
    if (workspace::isThere(to) || !file.rename(workspace::toQString(to)))
        throw FileFailure(u"不能改名或移动文件 "_s + workspace::toQString(from), file.errorString());
}

/// A copy that goes again unless it is renamed.
class Copy {
  public:
    Copy(const std::filesystem::path& from, const std::filesystem::path& place) : m_place(place) {
        std::error_code failed;
        if (std::filesystem::copy_file(from, place, failed)) // never over or through something of that name
            return;
        std::error_code ignored; // a full disk leaves a part of it
        if (failed != std::errc::file_exists)
            std::filesystem::remove(place, ignored);
        throw FileFailure(u"不能复制文件 "_s + workspace::toQString(from), QString::fromStdString(failed.message()));
    }
    ~Copy() {
        std::error_code ignored; // then it stays beside the picked file, where the user sees it
        if (!m_place.empty())
            std::filesystem::remove(m_place, ignored);
    }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    void renameTo(const std::filesystem::path& to) {
        renameNew(m_place, to);
        m_place.clear();
    }

  private:
    std::filesystem::path m_place;
};

/// Where the default file is put that is in the way: the name of the day; behind it that of the moment.
std::filesystem::path placeAside(const workspace::Workspace& workspace, const QDateTime& now) {
    const QString day = u" "_s + workspace::folderName(workspace.Username) + now.toString(u"yyyy-M-d"_s);
    const QString end = u"日前 双色号码 .TXT"_s;
    const std::filesystem::path folder = historyTextFolder(workspace);
    const std::filesystem::path place = folder / workspace::toPath(day + end);
    return workspace::isThere(place) ? freeName(folder, day + now.toString(u" H时mm分ss秒"_s), end) : place;
}

/// What has become of the default file.
struct Default {
    bool taken = false;           ///< the picked file stands in its place
    std::filesystem::path former; ///< where the text is that stood there before
};

/// Puts a copy of the picked file in the place of the default file, unless the user keeps the one that is there.
Default takeAsDefault(const std::filesystem::path& picked, const workspace::Workspace& workspace,
                      workspace::Dialogs& dialogs, const QDateTime& now) {
    std::error_code failed;
    if (!std::filesystem::is_regular_file(picked, failed)) // to copy from a pipe would wait for its other end
        throw FileFailure(u"找不到文件，或者它不是普通文件 "_s + workspace::toQString(picked));
    const std::filesystem::path standard = historyTextFile(workspace);
    if (!staysInside(historyTextFolder(workspace), workspace))
        throw FileFailure(u"默认历史文本的文件夹指向程序文件夹之外 "_s +
                          workspace::toQString(standard.parent_path()));
    const QString byUser = u" By "_s + workspace::folderName(workspace.Username);
    Copy copy(picked, freeName(picked.parent_path(), workspace::toQString(picked.filename()) + byUser, u".TXT"_s));
    if (!workspace::isThere(standard)) {
        copy.renameTo(standard);
        return {true, {}};
    }
    if (!dialogs.confirm(renameQuestion(workspace.Username, now), kTitle))
        return {false, standard};
    const std::filesystem::path aside = placeAside(workspace, now);
    renameNew(standard, aside);
    try {
        copy.renameTo(standard);
    } catch (const FileFailure&) {
        if (!workspace::isThere(standard))
            workspace::renameDurably(aside, standard);
        throw;
    }
    return {true, aside};
}

/// The draws with the issue numbers that storing gives them.
std::vector<Draw> asStored(std::vector<Draw> draws, int first) {
    for (Draw& draw : draws) {
        if (draw[0] == 0)
            draw[0] = first;
        ++first;
    }
    return draws;
}

/// Some draw that is held is not among the new ones at its row.
bool losesDraws(const History& history, std::span<const Draw> next) {
    const std::span<const Draw> held = drawsOf(history);
    return next.size() < held.size() || !std::equal(held.begin(), held.end(), next.begin());
}

/// The two kinds of reading, where they differ.
struct Kind {
    const QString& question;
    DrawsReader (*reader)(const History&);
    /// What the history is to be.
    std::vector<Draw> (*next)(const History&, const std::vector<Draw>& read);
    void (*store)(History&, const workspace::Workspace&, std::span<const Draw>);
};

const Kind kWhole{kWholeQuestion, [](const History&) { return DrawsReader(); },
                  [](const History&, const std::vector<Draw>& read) { return asStored(read, 1); }, replaceHistory};

const Kind kAppended{kAppendedQuestion,
                     [](const History& history) {
                         return DrawsReader::behind(drawsOf(history).empty() ? 0 : drawsOf(history).back()[0]);
                     },
                     [](const History& history, const std::vector<Draw>& read) {
                         std::vector<Draw> next(drawsOf(history).begin(), drawsOf(history).end());
                         const std::vector<Draw> behind = asStored(read, history.Lsnum + 1);
                         next.insert(next.end(), behind.begin(), behind.end());
                         return next;
                     },
                     storeBatch};

ParsedDraws readDraws(DrawsReader reader, const std::filesystem::path& file) {
    try {
        readInPieces(file, [&](QStringView piece) { return reader.take(piece); });
    } catch (const workspace::Failure& failure) {
        throw FileFailure(failure.cause(), failure.details());
    }
    return reader.finish();
}

/// A file that was picked stays where it is; any other text that is about to go is kept.
void keepWhatIsLost(const History& history, std::span<const Draw> next, const Default& standard,
                    const workspace::Workspace& workspace) {
    if (losesDraws(history, next))
        keepHistory(workspace, standard.former, kReplaced);
    else if (!standard.taken)
        guardHistoryText(history, next, workspace);
}

workspace::Message refusal(const RefusedLine& refused) {
    return {kRefused, kRefusedTitle,
            u"第%1行：%2\n%3"_s.arg(QString::number(refused.line), refused.text, refused.cause)};
}

Reading readPicked(const Kind& kind, History& history, const workspace::Workspace& workspace, const QString& picked,
                   workspace::Dialogs& dialogs, const QDateTime& now) {
    Default standard{false, historyTextFile(workspace)};
    if (picked.endsWith(u"txt"_s, Qt::CaseInsensitive))
        standard = takeAsDefault(workspace::toPath(picked), workspace, dialogs, now);
    const ParsedDraws parsed = readDraws(kind.reader(history), historyTextFile(workspace));
    if (parsed.refused) {
        dialogs.tell(refusal(*parsed.refused));
        return Reading::Refused;
    }
    keepWhatIsLost(history, kind.next(history, parsed.draws), standard, workspace);
    kind.store(history, workspace, parsed.draws);
    writeHistoryText(history, workspace);
    return standard.taken ? Reading::Done : Reading::DoneFromDefault;
}

/// Memory as the tables are, after a reading that did not end well; as it was where they cannot be read.
void showStored(History& history, const workspace::Workspace& workspace) {
    try {
        reloadHistory(history, workspace);
    } catch (const std::exception&) {
    }
}

Reading read(const Kind& kind, History& history, const workspace::Workspace& workspace, workspace::Dialogs& dialogs,
             const QDateTime& now) {
    if (!dialogs.confirm(kind.question, kTitle))
        return Reading::Cancelled;
    const QString picked = dialogs.chooseFile(workspace::toQString(historyTextFolder(workspace)), kFilter);
    if (picked.isEmpty())
        return Reading::Cancelled;
    QString cause;
    try {
        const Reading reading = readPicked(kind, history, workspace, picked, dialogs, now);
        if (reading == Reading::Refused)
            showStored(history, workspace);
        return reading;
    } catch (const FileFailure& failure) {
        cause = failure.cause() + u'\n' + failure.details();
    } catch (const std::range_error&) {
        cause = kTooMany.arg(kMostDraws);
    } catch (...) {
        showStored(history, workspace);
        throw;
    }
    showStored(history, workspace);
    dialogs.tell({kFileFailure, kFileFailureTitle, cause.trimmed()});
    return Reading::Failed;
}

} // namespace

Reading readWhole(History& history, const workspace::Workspace& workspace, workspace::Dialogs& dialogs,
                  const QDateTime& now) {
    return read(kWhole, history, workspace, dialogs, now);
}

Reading readAppended(History& history, const workspace::Workspace& workspace, workspace::Dialogs& dialogs,
                     const QDateTime& now) {
    return read(kAppended, history, workspace, dialogs, now);
}

} // namespace history
