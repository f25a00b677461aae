// What the writers of a sheet take for all bets of six of 33 reds, as a Markdown table: 1,107,568 rows of eight
// columns.
//
//   output_bench                    all writers
//   output_bench --processor-time   counts the processor's time, not the clock's: for a machine in use
//
// The rows of a file are counted before its time counts.
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <unistd.h>

#include <benchmark/benchmark.h>

#include "figures.h"
#include "output/sheet_csv.h"
#include "output/sheet_text.h"
#include "output/sheet_workbook.h"
#include "output/zip.h"
#include "workspace/dialogs.h"

using namespace output;
using namespace Qt::StringLiterals;

namespace {

constexpr int kReds = 33;
constexpr std::int64_t kBets = 1'107'568;

/// Number, six reds, a value.
class Bets : public SheetRows {
  public:
    Bets() {
        m_bets.reserve(kBets);
        std::array<std::uint8_t, 6> bet{};
        add(bet, 0, 1);
    }
    std::int64_t count() const override { return static_cast<std::int64_t>(m_bets.size()); }
    SheetCell cell(std::int64_t row, int column) const override {
        if (column == 0)
            return row + 1;
        const auto& bet = m_bets[static_cast<std::size_t>(row)];
        return std::int64_t{column <= 6 ? bet[static_cast<std::size_t>(column) - 1] : bet[5] - bet[0]};
    }

  private:
    void add(std::array<std::uint8_t, 6>& bet, std::size_t position, int least) {
        if (position == bet.size()) {
            m_bets.push_back(bet);
            return;
        }
        for (int red = least; red <= kReds; ++red) {
            bet[position] = static_cast<std::uint8_t>(red);
            add(bet, position + 1, red + 1);
        }
    }

    std::vector<std::array<std::uint8_t, 6>> m_bets;
};

class Nobody : public workspace::Dialogs {
  public:
    bool confirm(const workspace::Message&, workspace::Risk) override { return true; }
    void tell(const workspace::Message&) override {}
    void warn(const workspace::Message&) override {}
    std::optional<QString> askText(const QString&, const QString&, const QString&) override { return {}; }
    QString chooseFile(const QString&, const QString&) override { return {}; }
};

Sheet sheetOf(const Bets& bets) {
    Sheet sheet{{{u"号码索引"_s, CellKind::Number}}, bets};
    for (int red = 1; red <= 6; ++red)
        sheet.columns.push_back({u"%1位"_s.arg(red), CellKind::Red, 0, CellAlign::Centre, 2});
    sheet.columns.push_back({u"参数"_s, CellKind::Number});
    return sheet;
}

constexpr int kPages = 2; // of the workbook: one holds 1,048,576 rows
constexpr int kRepetitions = 5;

std::int64_t occurrences(std::string_view bytes, std::string_view what) {
    std::int64_t found = 0;
    for (std::size_t at = bytes.find(what); at != std::string_view::npos; at = bytes.find(what, at + what.size()))
        ++found;
    return found;
}

std::int64_t rowsOfText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    return occurrences(bytes, "\n") - 1; // the heading
}

std::int64_t rowsOfWorkbook(const std::filesystem::path& file) {
    std::int64_t rows = -kPages; // the headings
    ZipReader zip(file);
    while (zip.next())
        if (zip.name().starts_with("xl/worksheets/"))
            rows += occurrences(zip.read(), "<row ");
    return rows;
}

struct Form {
    const char* name;
    const char* ending;
    Written (*write)(const Sheet&, const std::filesystem::path&, workspace::Dialogs&);
    std::int64_t (*rows)(const std::filesystem::path&);
};

constexpr Form kForms[] = {
    {"Workbook", ".xlsx",
     [](const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs) {
         return writeWorkbook(sheet, file, dialogs);
     },
     &rowsOfWorkbook},
    {"CSV", ".csv", &writeCsv, &rowsOfText},
    {"Text", ".txt",
     [](const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs) {
         return writeText(sheet, file, dialogs);
     },
     &rowsOfText},
};

std::filesystem::path fileOf(const Form& form) {
    return std::filesystem::temp_directory_path() / ("output_bench_" + std::to_string(getpid()) + form.ending);
}

void measure(benchmark::State& state, const Bets& bets, const Form& form,
             std::map<std::string, std::uintmax_t>& sizes) {
    Nobody dialogs;
    const std::filesystem::path file = fileOf(form);
    for (auto _ : state) {
        const double start = bench::now();
        form.write(sheetOf(bets), file, dialogs);
        state.SetIterationTime(bench::now() - start);
        if (form.rows(file) != kBets)
            state.SkipWithError("not every row was written");
        sizes[form.name] = std::filesystem::file_size(file);
        std::filesystem::remove(file);
    }
}

class TableReporter : public bench::FigureReporter {
  public:
    explicit TableReporter(const std::map<std::string, std::uintmax_t>& sizes) : m_sizes(sizes) {}
    void Finalize() override {
        constexpr double kMebibyte = 1 << 20;
        std::puts("| export of 1,107,568 rows of eight columns | time | file |\n| --- | ---: | ---: |");
        for (const auto& [name, bytes] : m_sizes)
            std::printf("| %s | %s | %.0f MiB |\n", name.c_str(), bench::shown(median(name)).c_str(),
                        static_cast<double>(bytes) / kMebibyte);
    }

  private:
    const std::map<std::string, std::uintmax_t>& m_sizes;
};

} // namespace

int main(int count, char** arguments) {
    bench::readTimer(count, arguments);
    const Bets bets;
    std::map<std::string, std::uintmax_t> sizes; // of the files that were written
    for (const Form& form : kForms)
        benchmark::RegisterBenchmark(form.name, [&](benchmark::State& state) { measure(state, bets, form, sizes); })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(kRepetitions);
    TableReporter reporter(sizes);
    return bench::runBenchmarks(count, arguments, reporter);
}
