// Seconds that the writers of a sheet take for all bets of six of 33 reds: 1,107,568 rows of eight columns.
#include <array>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "output/sheet_csv.h"
#include "output/sheet_text.h"
#include "output/sheet_workbook.h"
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

using Writer = Written (*)(const Sheet&, const std::filesystem::path&, workspace::Dialogs&);

void writes(benchmark::State& state, Writer writer, const char* name, std::uintmax_t leastBytes) {
    const Bets bets;
    const std::filesystem::path file = std::filesystem::temp_directory_path() / name;
    Nobody dialogs;
    for (auto _ : state)
        if (bets.count() != kBets || writer(sheetOf(bets), file, dialogs) != Written::Whole)
            state.SkipWithError("not written");
    if (std::filesystem::file_size(file) < leastBytes)
        state.SkipWithError("too short");
    std::filesystem::remove(file);
}

Written workbook(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs) {
    return writeWorkbook(sheet, file, dialogs);
}
Written text(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs) {
    return writeText(sheet, file, dialogs);
}

constexpr std::uintmax_t kRowBytes = 6 * 3 + 4; // at least: six reds, a number, a value, the end of the line
BENCHMARK_CAPTURE(writes, csv, &writeCsv, "ssqdesk-bench.csv", kBets* kRowBytes)->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(writes, text, &text, "ssqdesk-bench.txt", kBets* kRowBytes)->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(writes, workbook, &workbook, "ssqdesk-bench.xlsx", kBets)->Unit(benchmark::kSecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
