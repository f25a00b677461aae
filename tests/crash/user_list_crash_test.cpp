// Kills a process before each single system call of a change of the list of users: what the next start reads is the
// list before the change or the one behind it, nothing between.
//
// The child runs under ptrace, so that every place is hit and none twice. A call that is cut off before it begins and
// one that is over are all there is to see from outside: a rename or an unlink is whole or not done.
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <optional>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "workspace/user_list.h"

using namespace Qt::StringLiterals;

namespace {

using workspace::Settings;
using workspace::UserList;
using Change = std::function<void(UserList&)>;

constexpr int kMostCalls = 100000; // a change makes some hundreds

struct Case {
    const char* name;
    Change change;
    friend void PrintTo(const Case& that, std::ostream* out) { *out << that.name; }
};

const QString kFormerUser = u"赵六QS"_s; // whose settings are put aside when somebody takes the name again

/// Names, passwords, who entered last, and the rule that a user of the former one's name would have, as the next
/// start reads them.
std::string readList(const std::filesystem::path& folder) {
    Settings settings(folder);
    const UserList users(settings);
    std::string all;
    for (const UserList::User& user : users.users())
        all += user.name.toStdString() + ':' + user.password.toStdString() + '|';
    const QString rule = settings.value(kFormerUser, u"Initial"_s, u"Bitnum"_s, u"33"_s);
    return all + std::to_string(users.lastEntered()) + '|' + rule.toStdString();
}

void makeList(const std::filesystem::path& folder) {
    std::filesystem::remove_all(folder);
    Settings settings(folder);
    UserList users(settings);
    for (const QString& name : {u"张三"_s, u"李四[36选7]"_s, u"王五"_s})
        users.add(name, name == u"王五"_s ? QString() : name + u" 口令"_s);
    users.noteEntered(1);
    settings.set(kFormerUser, u"Initial"_s, u"Bitnum"_s, 30);
}

void changeList(const std::filesystem::path& folder, const Change& change) {
    Settings settings(folder);
    UserList users(settings);
    change(users);
}

/// A process that makes the change and stops before and behind each system call. \return its id, 0 when it is not let
pid_t startTraced(const std::filesystem::path& folder, const Change& change) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            ::_exit(1);
        ::raise(SIGSTOP);
        changeList(folder, change);
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFSTOPPED(status))
        return 0;
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, reinterpret_cast<void*>(PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL));
    return child;
}

/// Lets it come to its next system call. \return false when it has ended
bool toNextCall(pid_t child) {
    for (;;) {
        int status = 0;
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
        if (!WIFSTOPPED(status))
            return false;
        __ptrace_syscall_info call{};
        ::ptrace(PTRACE_GET_SYSCALL_INFO, child, reinterpret_cast<void*>(sizeof call), &call);
        if (call.op == PTRACE_SYSCALL_INFO_ENTRY)
            return true;
    }
}

/// Kills the change before its system call of this number. \return false when it has fewer; nothing without ptrace
std::optional<bool> killBeforeCall(int number, const std::filesystem::path& folder, const Change& change) {
    const pid_t child = startTraced(folder, change);
    if (child == 0)
        return std::nullopt;
    for (int call = 0; call <= number; ++call)
        if (!toNextCall(child))
            return false;
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    return true;
}

class KillingAChangeOfUsers : public ::testing::TestWithParam<Case> {
  protected:
    ScratchFolder scratch;
    const std::filesystem::path folder = scratch.path() / "config";
};

TEST_P(KillingAChangeOfUsers, LeavesTheOldListOrTheNewOne) {
    makeList(folder);
    const std::string before = readList(folder);
    changeList(folder, GetParam().change);
    const std::string after = readList(folder);
    ASSERT_NE(before, after);
    int leftOld = 0, leftNew = 0;
    for (int call = 0; call < kMostCalls; ++call) {
        makeList(folder);
        const std::optional<bool> killed = killBeforeCall(call, folder, GetParam().change);
        if (!killed)
            GTEST_SKIP() << "no process may be traced here";
        const std::string found = readList(folder);
        ASSERT_TRUE(found == before || found == after) << "killed before call " << call << ": " << found;
        leftOld += found == before;
        leftNew += found == after;
        if (!*killed)
            break;
    }
    EXPECT_GT(leftOld, 0);
    EXPECT_GT(leftNew, 1); // the last round is not killed
    std::printf("killed before %d calls, the first %d left the old list\n", leftOld + leftNew - 1, leftOld);
}

INSTANTIATE_TEST_SUITE_P(
    Changes, KillingAChangeOfUsers,
    ::testing::Values(Case{"Add", [](UserList& users) { users.add(u"赵六"_s, u"口令"_s); }},
                      Case{"Rename", [](UserList& users) { users.rename(0, u"孙七"_s, u"另一个"_s); }},
                      Case{"RenameWithANewWorkspace",
                           [](UserList& users) { users.rename(2, u"赵六"_s, {}, UserList::Workspace::New); }},
                      Case{"Remove", [](UserList& users) { users.remove(0); }},
                      Case{"Enter", [](UserList& users) { users.noteEntered(2); }}),
    [](const auto& test) { return std::string(test.param.name); });

} // namespace
