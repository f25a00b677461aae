// Kills a process that puts one downloaded history after the other in place, and looks at what the next start finds.
//
// SSQ_KILLS sets the number of kills (25), SSQ_SEED repeats the delays.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <random>

#include <QFile>

#include <gtest/gtest.h>

#include "crash/work.h"
#include "environment_number.h"
#include "history/store.h"
#include "history/text_file.h"
#include "history/text_lines.h"
#include "history/update_check.h"
#include "history/update_install.h"
#include "history/update_publish.h"
#include "scratch_folder.h"
#include "workspace/safe_file.h"
#include "workspace/settings.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

namespace {

using history::Draw;

const QString kUser = u"张三"_s;

std::vector<Draw> drawsFrom(std::int32_t firstIssue, int count) {
    std::vector<Draw> draws;
    for (int draw = 0; draw < count; ++draw)
        draws.push_back(crash::Work::drawOf(firstIssue + draw));
    return draws;
}

/// The start of the program on the files of a folder.
struct Life {
    explicit Life(const std::filesystem::path& folder) {
        workspace = workspace::enterUser(workspace::Settings(folder / "config"), folder, kUser);
        history::finishUpdate(engine, workspace);
        const workspace::OpenResult result = workspace::openWorkspace(engine, workspace);
        if (!result.opened || result.repaired)
            throw std::runtime_error("the workspace does not open without a repair");
    }

    sql::Engine engine;
    workspace::Workspace workspace;
};

class KillingAnUpdate : public ::testing::Test {
  protected:
    KillingAnUpdate() {
        for (std::size_t source = 0; source < std::size(sources); ++source)
            history::publishHistory(sources[source], published(source));
        sql::Engine engine;
        std::filesystem::create_directory(home());
        workspace::createUserFiles(engine, home(), kUser);
        install(0);
    }

    std::filesystem::path home() const { return scratch.path() / "home"; }
    std::filesystem::path published(std::size_t source) const { return scratch.path() / std::to_string(source); }
    std::filesystem::path pending() const { return home() / "张三" / "张三.mdb.update"; }

    void install(std::size_t source) const {
        Life life(home());
        const std::filesystem::path file = home() / "downloaded.mdb";
        if (!workspace::copyDatabase(published(source) / "download/lshm/shuangseqiu.mdb", file))
            throw std::runtime_error("no copy");
        history::installUpdate(life.engine, life.workspace, file, history::checkedDraws(life.engine, file));
    }

    /// Runs in the child: installs for ever, a byte into the pipe for each.
    [[noreturn]] void installForEver(int pipe) const {
        for (std::size_t turn = 1;; ++turn) {
            install(turn % std::size(sources));
            if (::write(pipe, "x", 1) != 1)
                ::_exit(1);
        }
    }

    /// Lets a child install for a while behind its first time. \return whether it was still alive when it was killed
    bool killOnce(std::chrono::microseconds delay) const {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0)
            return false;
        const pid_t child = ::fork();
        if (child == 0)
            installForEver(ends[1]);
        ::close(ends[1]);
        char byte = 0;
        const bool worked = ::read(ends[0], &byte, 1) == 1;
        ::usleep(static_cast<useconds_t>(delay.count()));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        ::close(ends[0]);
        return worked && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

    /// The history, the numbers beside it and the text are those of one source, whole.
    void expectOneSource() {
        Life life(home());
        history::History history;
        history::loadHistory(history, life.workspace);
        const std::vector<Draw> found(history.Lshm.begin() + 1, history.Lshm.end());
        EXPECT_TRUE(found == sources[0] || found == sources[1]) << found.size() << " draws";
        const sql::Rows rows = life.workspace.dbFilnum->query("SELECT [fig0] FROM [fig]");
        ASSERT_EQ(rows.count(), static_cast<std::int64_t>(found.size()));
        for (std::int64_t row = 0; row < rows.count(); ++row)
            ASSERT_EQ(rows.integerAt(row, 0), found[static_cast<std::size_t>(row)][0]);
        QFile text(workspace::toQString(history::historyTextFile(life.workspace)));
        ASSERT_TRUE(text.open(QIODevice::ReadOnly));
        EXPECT_EQ(text.readAll(), history::drawsAsText(found));
        EXPECT_FALSE(std::filesystem::exists(pending()));
    }

    ScratchFolder scratch;
    std::vector<Draw> sources[2] = {drawsFrom(1000001, 500), drawsFrom(2000001, 700)};
};

TEST_F(KillingAnUpdate, LeavesOneHistoryOrTheOtherWhole) {
    const unsigned seed = environmentNumber("SSQ_SEED", std::random_device()());
    std::printf("SSQ_SEED=%u\n", seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> delays(0, 400000);
    int decided = 0;
    for (unsigned kill = 0; kill < environmentNumber("SSQ_KILLS", 25) && !HasFailure(); ++kill) {
        SCOPED_TRACE("kill " + std::to_string(kill));
        ASSERT_TRUE(killOnce(std::chrono::microseconds(delays(random))));
        decided += std::filesystem::exists(pending());
        try {
            expectOneSource();
        } catch (const std::exception& failed) {
            ADD_FAILURE() << failed.what();
        }
    }
    std::printf("%d kills came behind the decision and before the end\n", decided);
}

} // namespace
