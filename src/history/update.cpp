#include "history/update.h"

#include <QFile>

#include "history/text_file.h"
#include "history/update_check.h"
#include "history/update_install.h"
#include "workspace/failure.h"
#include "workspace/keeping.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

const QString kTitle = u"历史更新"_s;
const QString kTextQuestion =
    u"您将可以从我们网站直接下载最新的中国福利彩票双色球号码数据文件（可以用文本编辑器手工编辑），"
    u"可能需要花费一段时间！"_s;
const QString kReadQuestion =
    u"您已经成功下载所需要的历史号码文本文件，是否将该文件读取到软件中生成相应历史号码数据库？"
    u"读取后软件的历史号码将采用刚刚下载的历史号码文本。"_s;
const QString kDatabaseQuestion = u"您将可以从我们网站直接下载最新的中国福利彩票双色球历史号码数据库"
                                  u"（下载后直接作为当前的历史号码），可能需要花费一段时间！"_s;
const QString kFailure = u"操作失败，可能您的计算机未能连上internet或者服务站点下载繁忙，或者计算机读写出错。"_s;
const QString kEarlierText = u"重新下载历史号码文本之前，原有的文本（可能手工修改过）保存在这里。"_s;
const QString kTextFile = u"\\双色历史号码\\中国福利彩票双色球.Txt"_s;
const QString kUnfinishedText = u"\\双色历史号码\\中国福利彩票双色球.tmp"_s;

QString takeQuestion(std::span<const Draw> draws) {
    return u"您下载的是：中国福利彩票双色球历史号码 截至 %1 至 %2期，是否确认为当前历史号码？"_s.arg(draws.front()[0])
        .arg(draws.back()[0]);
}

/// An earlier download may have been edited by hand since: it is kept, unless the new one begins with all of it.
void keepEarlierText(const workspace::Workspace& workspace, const std::filesystem::path& file,
                     const QByteArray& bytes) {
    std::error_code ignored;
    QFile earlier(workspace::toQString(file));
    if (!std::filesystem::is_regular_file(file, ignored) || !earlier.open(QIODevice::ReadOnly) ||
        bytes.startsWith(earlier.readAll()))
        return;
    workspace::Keeping(workspace::userFolder(workspace.folder, workspace.Username), kEarlierText).copy(file);
}

/// \return whether the text stands under its name
bool keepText(const workspace::Workspace& workspace, const QByteArray& bytes) {
    historyTextFolder(workspace);
    const auto unfinished = workspace::underFolder(workspace.folder, kUnfinishedText);
    const auto file = workspace::underFolder(workspace.folder, kTextFile);
    if (!staysInside(unfinished, workspace) || !staysInside(file, workspace))
        return false;
    try {
        keepEarlierText(workspace, file, bytes);
    } catch (const workspace::Failure&) {
        return false;
    }
    return workspace::writeWholeFile(unfinished, bytes) && workspace::renameDurably(unfinished, file);
}

class OnlineUpdate {
  public:
    OnlineUpdate(sql::Engine& engine, workspace::Workspace& workspace, const UpdateSource& source,
                 workspace::Dialogs& dialogs, Fetcher& fetcher)
        : m_engine(engine), m_workspace(workspace), m_source(source), m_dialogs(dialogs), m_fetcher(fetcher) {}

    /// One path from the fetch to the end.
    FetchEnd attempt(const DatabasePath& path) {
        const Fetched fetched = m_fetcher.fetch(m_source.url(path.server), m_source.proxy);
        if (fetched.end != FetchEnd::Whole)
            return fetched.end;
        try {
            return take(workspace::underFolder(m_workspace.folder, path.local), fetched.bytes);
        } catch (const UnfitDatabase& unfit) {
            m_reason = u"下载的文件不是历史号码数据库："_s + QString::fromUtf8(unfit.what());
        } catch (const std::exception& failed) {
            m_reason = workspace::causeOf(failed) + u'\n' + workspace::detailsOf(failed);
        }
        return FetchEnd::Failed;
    }

    /// What was wrong with the last file that came whole; empty when none did.
    const QString& reason() const { return m_reason; }

  private:
    FetchEnd take(const std::filesystem::path& file, const QByteArray& bytes) {
        workspace::removeDatabase(file); // a journal of an earlier download would be played back into this one
        if (!workspace::writeWholeFile(file, bytes))
            return FetchEnd::Failed;
        const std::vector<Draw> draws = checkedDraws(m_engine, file);
        if (!m_dialogs.confirm(takeQuestion(draws), kTitle, workspace::Risk::Loss))
            return FetchEnd::Cancelled;
        installUpdate(m_engine, m_workspace, file, draws);
        return FetchEnd::Whole;
    }

    sql::Engine& m_engine;
    workspace::Workspace& m_workspace;
    const UpdateSource& m_source;
    workspace::Dialogs& m_dialogs;
    Fetcher& m_fetcher;
    QString m_reason;
};

} // namespace

bool downloadText(const workspace::Workspace& workspace, const std::optional<UpdateSource>& source,
                  workspace::Dialogs& dialogs, Fetcher& fetcher) {
    if (!dialogs.confirm(kTextQuestion, kTitle))
        return false;
    const Fetched fetched = source ? fetcher.fetch(source->url(kTextPath), source->proxy) : Fetched{};
    if (fetched.end == FetchEnd::Cancelled)
        return false;
    if (fetched.end == FetchEnd::Failed || !keepText(workspace, fetched.bytes)) {
        dialogs.tell(kFailure, {});
        return false;
    }
    return dialogs.confirm(kReadQuestion, {});
}

bool updateOnline(sql::Engine& engine, workspace::Workspace& workspace, const std::optional<UpdateSource>& source,
                  workspace::Dialogs& dialogs, Fetcher& fetcher) {
    if (!dialogs.confirm(kDatabaseQuestion, kTitle))
        return false;
    FetchEnd end = FetchEnd::Failed;
    QString reason;
    if (source) {
        OnlineUpdate update(engine, workspace, *source, dialogs, fetcher);
        for (const DatabasePath& path : kDatabasePaths)
            if (end == FetchEnd::Failed)
                end = update.attempt(path);
        reason = update.reason();
    }
    if (end == FetchEnd::Failed)
        dialogs.tell({kFailure, {}, reason});
    return !workspace.dbUser;
}

} // namespace history
