// What the tests of the output share: a small sheet, dialogs that give up, a limit on the length of files.
#pragma once

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>

#include <sys/resource.h>

#include "output/sheet.h"
#include "workspace/dialogs.h"

namespace output_test {

using namespace Qt::StringLiterals;

/// Rows by a function.
class MadeRows : public output::SheetRows {
  public:
    using Cell = std::function<output::SheetCell(std::int64_t row, int column)>;
    MadeRows(std::int64_t count, Cell cell) : m_count(count), m_cell(std::move(cell)) {}
    std::int64_t count() const override { return m_count; }
    output::SheetCell cell(std::int64_t row, int column) const override { return m_cell(row, column); }

  private:
    std::int64_t m_count;
    Cell m_cell;
};

/// Nobody asks; the progress gives up at a report.
class Silent : public workspace::Dialogs {
  public:
    /// \param reports  that are answered before it is given up; -1: it never is
    explicit Silent(int reports = -1) : m_reports(reports) {}
    bool confirm(const workspace::Message&, workspace::Risk) override { return true; }
    void tell(const workspace::Message&) override {}
    void warn(const workspace::Message&) override {}
    std::optional<QString> askText(const QString&, const QString&, const QString&) override { return {}; }
    QString chooseFile(const QString&, const QString&) override { return {}; }
    std::unique_ptr<workspace::Progress> progress(const QString&) override {
        class Counted : public workspace::Progress {
          public:
            explicit Counted(int reports) : m_left(reports) {}
            bool advance(double) override { return m_left < 0 || m_left-- > 0; }

          private:
            int m_left;
        };
        return std::make_unique<Counted>(m_reports);
    }

  private:
    int m_reports;
};

inline std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

inline void write(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

inline std::set<std::string> namesIn(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

/// No file of this process grows beyond a length, as on a full disk.
class FileLimit {
  public:
    explicit FileLimit(rlim_t bytes) : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;

  private:
    rlimit m_before{};
    void (*m_signal)(int);
};

} // namespace output_test
