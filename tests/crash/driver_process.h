// The driver as a child process: started, listened to, killed.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace crash {

class DriverProcess {
  public:
    /// \param words  the program and its arguments  \throws std::runtime_error when it cannot be started
    explicit DriverProcess(std::vector<std::string> words);
    /// The driver of the logic. \param texts  files of draws: it reads them in turn, for ever, and does nothing else
    DriverProcess(const std::filesystem::path& folder, unsigned seed,
                  const std::vector<std::filesystem::path>& texts = {});
    ~DriverProcess(); ///< kills it
    DriverProcess(const DriverProcess&) = delete;
    DriverProcess& operator=(const DriverProcess&) = delete;

    /// Reads lines for this long. \return whether a line that begins so has come; reading ends there
    bool listen(std::chrono::microseconds duration, const std::string& until = {});
    /// SIGKILL, then reads what is left. \return whether the driver was still alive
    bool kill();
    const std::vector<std::string>& lines() const { return m_lines; }

  private:
    bool readSome(int waitMs);

    pid_t m_process = -1;
    int m_pipe = -1;
    std::string m_rest; // of a line that has not come whole yet
    std::vector<std::string> m_lines;
};

} // namespace crash
