#include "crash/driver_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

extern char** environ;

namespace crash {

namespace {

std::vector<std::string> wordsOf(const std::filesystem::path& folder, unsigned seed,
                                 const std::vector<std::filesystem::path>& texts) {
    std::vector<std::string> words{SSQ_CRASH_DRIVER, folder.string(), std::to_string(seed)};
    for (const std::filesystem::path& text : texts)
        words.push_back(text.string());
    return words;
}

} // namespace

DriverProcess::DriverProcess(const std::filesystem::path& folder, unsigned seed,
                             const std::vector<std::filesystem::path>& texts)
    : DriverProcess(wordsOf(folder, seed, texts)) {}

DriverProcess::DriverProcess(std::vector<std::string> words) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int failed = ::posix_spawn(&m_process, words.front().c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    m_pipe = ends[0];
    if (failed != 0)
        throw std::runtime_error("the driver does not start");
}

DriverProcess::~DriverProcess() {
    kill();
    ::close(m_pipe);
}

/// \return false at the end of the pipe
bool DriverProcess::readSome(int waitMs) {
    pollfd ready{m_pipe, POLLIN, 0};
    if (::poll(&ready, 1, waitMs) == 0)
        return true;
    char buffer[4096];
    const ssize_t count = ::read(m_pipe, buffer, sizeof buffer);
    if (count <= 0)
        return false;
    m_rest.append(buffer, static_cast<std::size_t>(count));
    for (std::size_t end; (end = m_rest.find('\n')) != std::string::npos; m_rest.erase(0, end + 1))
        m_lines.push_back(m_rest.substr(0, end));
    return true;
}

bool DriverProcess::listen(std::chrono::microseconds duration, const std::string& until) {
    const auto end = std::chrono::steady_clock::now() + duration;
    std::size_t seen = m_lines.size();
    while (std::chrono::steady_clock::now() < end) {
        if (!readSome(1))
            return false;
        for (; seen < m_lines.size(); ++seen)
            if (!until.empty() && m_lines[seen].starts_with(until))
                return true;
    }
    return false;
}

bool DriverProcess::kill() {
    if (m_process < 0)
        return false;
    ::kill(m_process, SIGKILL);
    int status = 0;
    ::waitpid(m_process, &status, 0);
    m_process = -1;
    while (readSome(-1)) {
    }
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

} // namespace crash
