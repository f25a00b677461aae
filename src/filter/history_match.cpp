#include "filter/history_match.h"

#include <algorithm>
#include <array>
#include <string>
#include <tuple>
#include <vector>

#include "filter/draw_bits.h"
#include "filter/quiet.h"

namespace filter {
namespace {

constexpr int kProgressSteps = 64;

class Search {
  public:
    Search(const Workbench& bench, std::int64_t draws) : m_bench(bench), m_draws(draws) {}

    void prepare() const;
    /// Rounds first.. by their four statements.
    void runRounds(std::int64_t first) const;
    /// The rounds that one pass can take together. \return how many: the rest is left to runRounds()
    std::int64_t runPass(const MatchProgress& progress) const;
    void filter(const HistoryFilter& filter) const;

  private:
    void update(const std::string& rest) const {
        sql::passOver(m_bench.database, "UPDATE [" + std::string(m_bench.table) + "] SET " + rest);
    }
    /// The draw of a round, null below row 0.
    const history::Draw* drawOf(std::int64_t round) const {
        const std::int64_t row = m_bench.history.Lsnum - round;
        return row >= 0 ? &m_bench.history.Lshm[static_cast<std::size_t>(row)] : nullptr;
    }
    std::vector<history::Draw> regularDraws() const;

    const Workbench& m_bench;
    std::int64_t m_draws;
};

void Search::prepare() const {
    sql::passOver(m_bench.database, "DROP TABLE [Lishi]");
    sql::passOver(m_bench.database, "CREATE TABLE [Lishi]([NumString] string,[idx] integer)");
    update("[preunslt]=[unslt]");
    update("[Canshu]= 0");
    update("[Numstring]= format([fig1],\"00\")  & Chr(32) & format([fig2],\"00\")  & Chr(32) & format([fig3],\"00\")"
           "  & Chr(32) & format([fig4],\"00\")   & Chr(32) & format([fig5],\"00\")   & Chr(32) & "
           "format([fig6],\"00\")");
}

std::string twoDigits(std::int32_t number) {
    const std::string text = std::to_string(number < 0 ? -std::int64_t{number} : number);
    return (number < 0 ? "-" : "") + std::string(text.size() < 2 ? "0" : "") + text;
}

/// How many of the draw's reds the text of the bet holds.
std::string hitsOf(const history::Draw& draw) {
    std::string sum;
    for (std::size_t slot = 1; slot <= 6; ++slot)
        sum += "-([NumString] LIKE \"*" + twoDigits(draw[slot]) + "*\")";
    return sum;
}

void Search::runRounds(std::int64_t first) const {
    // Rounds below row 0 are all alike: one of them stands for all.
    const std::int64_t end = std::min<std::int64_t>(m_draws, m_bench.history.Lsnum + 2);
    for (std::int64_t round = first; round < end; ++round) {
        update("[SKnum]= 0");
        const history::Draw* draw = drawOf(round);
        if (!draw)
            continue;
        update(" [SKnum] = " + hitsOf(*draw) + " WHERE [unslt]=false");
        if (m_bench.blue)
            update("[SKnum]= [SKnum] + 1 WHERE [unslt]=false AND [fig7] = " + std::to_string((*draw)[7]));
        update("[Canshu]= [SKnum],[Jsqihao] = " + std::to_string((*draw)[0]) +
               " WHERE [unslt]=false AND [SKnum] > [Canshu]");
    }
}

void Search::filter(const HistoryFilter& filter) const {
    update("[unslt]=true , [Fliter] = \"" + std::string(filter.reasonCaption) + " 检索前 " + std::to_string(m_draws) +
           " 期\" & [Jsqihao] & \"期 有\" & [Canshu] & \"码相同\" WHERE [unslt]=false AND "
           "[Canshu] >= " +
           std::to_string(filter.equal));
}

/// The draws of the first rounds, up to the first that is not regular.
std::vector<history::Draw> Search::regularDraws() const {
    std::vector<history::Draw> draws;
    const std::int64_t end = std::min<std::int64_t>(m_draws, m_bench.history.Lsnum);
    for (std::int64_t round = 0; round < end && isRegularDraw(*drawOf(round)); ++round)
        draws.push_back(*drawOf(round));
    return draws;
}

/// The two-digit numbers that the text of a red holds: 5 is "05", 123 is "123" and holds 12 and 23.
NumberMask numbersIn(std::int32_t red) {
    NumberMask numbers = 0;
    std::int64_t rest = red < 0 ? -std::int64_t{red} : red;
    do {
        if (rest % 100 < 64)
            numbers |= NumberMask{1} << (rest % 100);
        rest /= 10;
    } while (rest >= 10);
    return numbers;
}

/// The pass: inputs are the reds, the state and the blue (when the table has one); outputs canshu, JSqihao and SKnum.
class MatchPass {
  public:
    MatchPass(std::span<const history::Draw> draws, std::int64_t rows, const MatchProgress& progress)
        : m_draws(draws), m_bits(draws), m_rows(rows), m_progress(progress) {}

    void operator()(const sql::RowBatch& batch);

  private:
    static constexpr std::size_t kState = 6; // place of unslt among the inputs
    static constexpr std::size_t kBlue = 7;

    void turnTo(const sql::RowBatch& batch, std::size_t row);
    void report(std::size_t rows);

    std::span<const history::Draw> m_draws;
    DrawBits m_bits;
    std::array<std::int32_t, 6> m_reds{-1, -1, -1, -1, -1, -1};
    bool m_matched = false;
    std::int64_t m_rows;
    std::int64_t m_rowsDone = 0;
    const MatchProgress& m_progress;
};

/// Works out the reds of a row, unless the row before has the same.
void MatchPass::turnTo(const sql::RowBatch& batch, std::size_t row) {
    std::array<std::int32_t, 6> reds;
    for (std::size_t position = 0; position < reds.size(); ++position)
        reds[position] = batch.inputs[position][row];
    if (m_matched && reds == m_reds)
        return;
    NumberMask numbers = 0;
    for (const std::int32_t red : reds)
        numbers |= red >= 0 && red < 64 ? NumberMask{1} << red : numbersIn(red);
    m_bits.match(numbers);
    m_reds = reds;
    m_matched = true;
}

void MatchPass::operator()(const sql::RowBatch& batch) {
    const bool hasBlue = batch.inputs.size() > kBlue;
    const auto& [canshu, JSqihao, SKnum] = std::tie(batch.outputs[0], batch.outputs[1], batch.outputs[2]);
    std::ranges::fill(SKnum.written, std::uint8_t{1});
    for (std::size_t row = 0; row < batch.rows; ++row) {
        SKnum.values[row] = 0;
        if (batch.inputs[kState][row] != 0)
            continue;
        turnTo(batch, row);
        const std::int32_t blue = hasBlue ? batch.inputs[kBlue][row] : 0;
        const Match best = m_bits.best(blue);
        SKnum.values[row] = m_bits.last(blue);
        const bool hit = best.count > 0;
        canshu.values[row] = best.count;
        canshu.written[row] = hit;
        JSqihao.values[row] = m_draws[hit ? static_cast<std::size_t>(best.draw) : 0][0];
        JSqihao.written[row] = hit;
    }
    report(batch.rows);
}

void MatchPass::report(std::size_t rows) {
    const auto step = [this] {
        return static_cast<int>(m_rowsDone * kProgressSteps / std::max<std::int64_t>(m_rows, 1));
    };
    const int before = step();
    m_rowsDone += static_cast<std::int64_t>(rows);
    if (m_progress && step() != before)
        m_progress(step());
}

bool hasColumn(const std::vector<std::string>& columns, std::string_view wanted) {
    const auto lower = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    return std::ranges::any_of(
        columns, [&](const std::string& name) { return std::ranges::equal(name, wanted, {}, lower, lower); });
}

std::int64_t Search::runPass(const MatchProgress& progress) const {
    const std::vector<history::Draw> draws = regularDraws();
    sql::Database& database = m_bench.database;
    std::vector<std::string> columns;
    quietly([&] { columns = database.columnNames(m_bench.table); });
    if (draws.empty() || !hasColumn(columns, "Numstring"))
        return 0;
    std::vector<std::string> inputs{"fig1", "fig2", "fig3", "fig4", "fig5", "fig6", "unslt"};
    if (m_bench.blue)
        inputs.emplace_back("fig7");
    const std::vector<std::string> outputs{"canshu", "JSqihao", "SKnum"};
    const bool ran = quietly([&] {
        MatchPass pass(draws, database.rowCount(m_bench.table), progress);
        database.computeColumns(m_bench.table, inputs, outputs, std::ref(pass));
    });
    return ran ? static_cast<std::int64_t>(draws.size()) : 0;
}

} // namespace

void matchHistory(const Workbench& bench, const HistoryFilter& filter, std::int64_t draws,
                  const MatchProgress& progress) {
    const Search search(bench, draws);
    search.prepare();
    search.runRounds(search.runPass(progress));
    search.filter(filter);
}

void matchHistoryByStatements(const Workbench& bench, const HistoryFilter& filter, std::int64_t draws) {
    const Search search(bench, draws);
    search.prepare();
    search.runRounds(0);
    search.filter(filter);
}

} // namespace filter
