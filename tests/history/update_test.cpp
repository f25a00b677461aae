// The two updates from a real server, through every question: what changes, and what any fault leaves alone.
#include "history/update.h"

#include <QFile>
#include <QTemporaryDir>
#include <fstream>
#include <gtest/gtest.h>

#include "history/draws_support.h"
#include "history/store.h"
#include "history/text_file.h"
#include "history/text_lines.h"
#include "history/update_support.h"
#include "same_history.h"
#include "support/update_server.h"
#include "workspace/keeping.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using history::Draw;
using history::FetchEnd;

const QString kTitle = u"历史更新"_s;
const QString kTextQuestion =
    u"您将可以从我们网站直接下载最新的中国福利彩票双色球号码数据文件（可以用文本编辑器手工编辑），"
    u"可能需要花费一段时间！"_s;
const QString kReadQuestion =
    u"您已经成功下载所需要的历史号码文本文件，是否将该文件读取到软件中生成相应历史号码数据库？"
    u"读取后软件的历史号码将采用刚刚下载的历史号码文本。"_s;
const QString kDatabaseQuestion = u"您将可以从我们网站直接下载最新的中国福利彩票双色球历史号码数据库"
                                  u"（下载后直接作为当前的历史号码），可能需要花费一段时间！"_s;
const QString kTakeQuestion =
    u"您下载的是：中国福利彩票双色球历史号码 截至 2003001 至 2003060期，是否确认为当前历史号码？"_s;
const QString kFailure = u"操作失败，可能您的计算机未能连上internet或者服务站点下载繁忙，或者计算机读写出错。"_s;

/// Answers as told, all with OK at the end of the list, and writes down what was shown.
struct Answers : workspace::Dialogs, history::Fetcher {
    bool confirm(const workspace::Message& question, workspace::Risk) override {
        shown << question.text;
        titles << question.title;
        return confirms.isEmpty() || confirms.takeFirst();
    }
    void tell(const workspace::Message& message) override {
        shown << message.text;
        titles << message.title;
        details = message.details;
    }
    void warn(const workspace::Message& message) override { tell(message); }
    std::optional<QString> askText(const QString&, const QString&, const QString&) override { return {}; }
    QString chooseFile(const QString&, const QString&) override { return {}; }
    history::Fetched fetch(const QUrl& url, const QNetworkProxy& proxy) override {
        ++fetches;
        history::Fetch fetch(proxy, {.patience = patience, .bytes = 1 << 20});
        if (cancelled)
            fetch.cancel();
        return fetch.run(url);
    }

    QList<bool> confirms;
    bool cancelled = false;
    std::chrono::milliseconds patience = 10s;
    int fetches = 0;
    QString details;
    QStringList shown, titles;
};

class Updating : public ::testing::Test {
  protected:
    Updating() {
        history::storeBatch(history, fresh.workspace, old);
        history::writeHistoryText(history, fresh.workspace);
    }

    std::optional<history::UpdateSource> source() const {
        history::UpdateSource source;
        source.server = QUrl(u"http://127.0.0.1:%1"_s.arg(server.port()));
        return source;
    }

    bool online(Answers script = {}) {
        answers = std::move(script);
        return history::updateOnline(fresh.engine, fresh.workspace, source(), answers, answers);
    }

    bool text(Answers script = {}) {
        answers = std::move(script);
        return history::downloadText(fresh.workspace, source(), answers, answers);
    }

    /// Answers with OK, and does not wait long for a server that has fallen silent.
    static Answers impatient() {
        Answers answers;
        answers.patience = 300ms;
        return answers;
    }

    static Answers answering(QList<bool> confirms) {
        Answers answers;
        answers.confirms = std::move(confirms);
        return answers;
    }

    std::map<std::string, QByteArray> filesOfTheUser() const {
        return filesBelow({fresh.folder() / "张三", fresh.folder() / "双色历史号码"});
    }

    history::History loaded() {
        history::History loaded;
        history::loadHistory(loaded, fresh.workspace);
        return loaded;
    }

    PlainApplication application;
    FreshWorkspace fresh;
    history::History history;
    std::vector<Draw> old = madeUpDraws(20, 1999001, 1);
    std::vector<Draw> draws = madeUpDraws(60);
    PublishedFolder published{draws};
    test_support::UpdateServer server{published.folder.path()};
    Answers answers;
    std::filesystem::path downloaded = fresh.folder() / "中国福利彩票双色球.mdb";
    std::filesystem::path downloadedText = fresh.folder() / "双色历史号码" / "中国福利彩票双色球.Txt";
};

TEST_F(Updating, MakesThePublishedHistoryTheUsers) {
    EXPECT_TRUE(online());
    EXPECT_EQ(answers.shown, (QStringList{kDatabaseQuestion, kTakeQuestion}));
    EXPECT_EQ(answers.titles, (QStringList{kTitle, kTitle}));
    fresh.reopen();

    FreshWorkspace published;
    history::History expected;
    history::replaceHistory(expected, published.workspace, draws);
    const history::History found = loaded();
    EXPECT_EQ(found.Lsnum, 60);
    expectSameHistory(found, expected);
    EXPECT_EQ(bytesOf(history::historyTextFile(fresh.workspace)), history::drawsAsText(draws));
    EXPECT_EQ(fresh.workspace.dbFilnum->rowCount("fig"), 60);
}

TEST_F(Updating, FallsToTheSecondPathWithoutAWord) {
    for (const auto& fault : {u"first-missing"_s, u"first-garbage"_s, u"first-cut"_s, u"first-half"_s}) {
        server.setFault(fault);
        EXPECT_TRUE(online()) << fault.toStdString();
        EXPECT_EQ(answers.shown, (QStringList{kDatabaseQuestion, kTakeQuestion})) << fault.toStdString();
        fresh.reopen();
        EXPECT_EQ(loaded().Lsnum, 60);
    }
    EXPECT_EQ(server.takeRequests().value(1), u"/download/lshm/shuangseqiu.mdb"_s);
}

TEST_F(Updating, LeavesEveryFileOfTheUserAloneAfterAnyFault) {
    const auto before = filesOfTheUser();
    for (const auto& fault : {u"missing"_s, u"error"_s, u"empty"_s, u"garbage"_s, u"page"_s, u"cut"_s, u"cut-chunk"_s,
                              u"cut-quietly"_s, u"half"_s, u"slow"_s, u"endless"_s, u"long"_s, u"moved-to-ftp"_s}) {
        server.setFault(fault);
        EXPECT_FALSE(online(impatient())) << fault.toStdString();
        EXPECT_EQ(answers.shown, (QStringList{kDatabaseQuestion, kFailure})) << fault.toStdString();
        EXPECT_EQ(answers.titles, (QStringList{kTitle, QString()}));
        const bool cameWhole = QStringList{u"garbage"_s, u"page"_s, u"half"_s}.contains(fault);
        EXPECT_EQ(answers.details.isEmpty(), !cameWhole) << answers.details.toStdString();
        EXPECT_EQ(answers.fetches, 2);
        EXPECT_EQ(filesOfTheUser(), before) << fault.toStdString();
        EXPECT_TRUE(fresh.workspace.dbUser); // still open, nothing to open again
    }
    EXPECT_EQ(loaded().Lsnum, 20);
}

TEST_F(Updating, LeavesTheDownloadInTheFolderWhenItIsNotTaken) {
    const auto before = filesOfTheUser();
    EXPECT_FALSE(online(answering({true, false})));
    EXPECT_EQ(answers.shown, (QStringList{kDatabaseQuestion, kTakeQuestion}));
    EXPECT_EQ(filesOfTheUser(), before);
    EXPECT_EQ(bytesOf(downloaded), published.bytes(history::kDatabasePaths[0].server));
}

TEST_F(Updating, WritesOverTheDownloadOfAnEarlierUpdate) {
    writeBytes(downloaded, "an earlier one");
    writeBytes(std::filesystem::path(downloaded) += "-journal", "and its journal");
    EXPECT_TRUE(online());
    EXPECT_EQ(answers.fetches, 1); // the first path was good
    fresh.reopen();
    EXPECT_EQ(loaded().Lsnum, 60);
}

TEST_F(Updating, EndsAtTheFirstQuestionBeforeAnythingIsFetched) {
    EXPECT_FALSE(online(answering({false})));
    EXPECT_FALSE(text(answering({false})));
    EXPECT_EQ(answers.shown, QStringList{kTextQuestion});
    EXPECT_TRUE(server.takeRequests().isEmpty());
}

TEST_F(Updating, EndsWithoutAWordWhenTheFetchIsCancelled) {
    Answers cancelling;
    cancelling.cancelled = true;
    EXPECT_FALSE(online(cancelling));
    EXPECT_EQ(answers.shown, QStringList{kDatabaseQuestion});
    EXPECT_EQ(answers.fetches, 1);
    EXPECT_FALSE(text(cancelling));
    EXPECT_EQ(answers.shown, QStringList{kTextQuestion});
}

TEST_F(Updating, FailsAtOnceWithoutAHost) {
    EXPECT_FALSE(history::updateOnline(fresh.engine, fresh.workspace, std::nullopt, answers, answers));
    EXPECT_EQ(answers.shown, (QStringList{kDatabaseQuestion, kFailure}));
    answers = {};
    EXPECT_FALSE(history::downloadText(fresh.workspace, std::nullopt, answers, answers));
    EXPECT_EQ(answers.shown, (QStringList{kTextQuestion, kFailure}));
    EXPECT_EQ(answers.fetches, 0);
}

TEST_F(Updating, GivesAUserOfAnotherRuleTheHistoryOfTheDefaultRuleAllTheSame) {
    fresh.workspace.Bitnum = 30; // the downloaded draws hold 31, 32 and 33
    fresh.workspace.BitnumB = 12;
    EXPECT_TRUE(online());
    fresh.reopen();
    FreshWorkspace other;
    history::History expected;
    history::replaceHistory(expected, other.workspace, draws);
    EXPECT_EQ(loaded().Lshm, expected.Lshm);
    EXPECT_EQ(loaded().derived, expected.derived);
}

TEST_F(Updating, TriesTheSecondPathWhenTheInstallationFailsAndThenTells) {
    const std::filesystem::path filnum = fresh.workspace.dbFilnum->path();
    fresh.workspace.dbFilnum.reset();
    std::filesystem::remove(filnum);
    EXPECT_TRUE(online()); // closed meanwhile: to be opened again
    EXPECT_EQ(answers.shown, (QStringList{kDatabaseQuestion, kTakeQuestion, kTakeQuestion, kFailure}));
    EXPECT_EQ(fresh.engine.open(fresh.folder() / "张三" / "张三.mdb")->rowCount("fig"), 20);
}

TEST_F(Updating, KeepsTheTextAndAsksWhetherToReadIt) {
    EXPECT_TRUE(text());
    EXPECT_EQ(answers.shown, (QStringList{kTextQuestion, kReadQuestion}));
    EXPECT_EQ(answers.titles, (QStringList{kTitle, QString()}));
    EXPECT_EQ(bytesOf(downloadedText), history::drawsAsText(draws));
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(downloadedText).replace_extension(".tmp")));
    EXPECT_EQ(loaded().Lsnum, 20);
    writeBytes(downloadedText, "an earlier text");
    EXPECT_FALSE(text(answering({true, false})));
    EXPECT_EQ(bytesOf(downloadedText), history::drawsAsText(draws));
}

TEST_F(Updating, KeepsTheEarlierTextAfterAnyFault) {
    writeBytes(downloadedText, "an earlier text");
    const auto before = filesOfTheUser();
    for (const auto& fault : {u"missing"_s, u"error"_s, u"empty"_s, u"cut"_s, u"cut-chunk"_s, u"cut-quietly"_s,
                              u"slow"_s, u"endless"_s, u"moved-to-ftp"_s}) {
        server.setFault(fault);
        EXPECT_FALSE(text(impatient())) << fault.toStdString();
        EXPECT_EQ(answers.shown, (QStringList{kTextQuestion, kFailure})) << fault.toStdString();
        EXPECT_EQ(filesOfTheUser(), before) << fault.toStdString();
    }
}

TEST_F(Updating, KeepsATextThatWasEditedAndNoneThatOnlyGrows) {
    const auto kept = [this] { return workspace::unreadKeptFiles(fresh.folder() / "张三").size(); };
    EXPECT_TRUE(text());
    EXPECT_TRUE(text()); // the same again
    EXPECT_EQ(kept(), 0u);
    QFile file(workspace::toQString(fresh.folder() / "双色历史号码" / "中国福利彩票双色球.Txt"));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("my own line\n");
    file.close();
    EXPECT_TRUE(text());
    ASSERT_EQ(kept(), 1u);
    QFile copy(workspace::toQString(workspace::unreadKeptFiles(fresh.folder() / "张三").front().files.front()));
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_TRUE(copy.readAll().endsWith("my own line\n"));
}

TEST_F(Updating, WritesNoTextThroughALinkOutOfTheFolder) {
    const QTemporaryDir outside;
    const auto folder = fresh.folder() / "双色历史号码";
    for (const char* name : {"中国福利彩票双色球.tmp", "中国福利彩票双色球.Txt"}) {
        const auto target = workspace::toPath(outside.filePath(u"x.txt"_s));
        std::ofstream(target) << "mine";
        std::filesystem::create_symlink(target, folder / name);
        EXPECT_FALSE(text()) << name;
        EXPECT_EQ(answers.shown.back(), kFailure);
        EXPECT_EQ(std::filesystem::file_size(target), 4u);
        std::filesystem::remove(folder / name);
    }
}

TEST_F(Updating, TellsWhenTheTextCannotBePutInPlace) {
    std::filesystem::create_directory(downloadedText);
    EXPECT_FALSE(text());
    EXPECT_EQ(answers.shown, (QStringList{kTextQuestion, kFailure}));
}

} // namespace
