#include "filter/history_match.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "filter/draw_bits.h"
#include "filter/numstring.h"
#include "filter/parameter_run.h"
#include "filter/quiet.h"

namespace filter {
namespace {

constexpr int kProgressSteps = 64;

/// Tells the share of the work as it goes on, in so many steps, and remembers that it was given up.
class Report {
  public:
    explicit Report(workspace::Progress* progress) : m_progress(progress) {}

    bool givenUp() const { return m_givenUp; }
    void advance(std::int64_t done, std::int64_t all) {
        const auto step = static_cast<int>(done * kProgressSteps / std::max<std::int64_t>(all, 1));
        if (!m_progress || m_givenUp || step <= m_step)
            return;
        m_step = step;
        m_givenUp = !m_progress->advance(static_cast<double>(step) / kProgressSteps);
    }

  private:
    workspace::Progress* m_progress;
    int m_step = 0;
    bool m_givenUp = false;
};

class Search {
  public:
    Search(const Workbench& bench, std::int64_t draws) : m_bench(bench), m_draws(draws) {}

    void prepare() const;
    /// Rounds first.. by their four statements.
    void runRounds(std::int64_t first, Report& report) const;
    /// The rounds that one pass can take together. \return how many: the rest is left to runRounds()
    std::int64_t runPass(Report& report) const;
    void filter(const SuperFilter& filter) const;

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
    sql::passOver(m_bench.database, snapshotStatement(m_bench.table));
    update("[Canshu]= 0");
    sql::passOver(m_bench.database, numstringStatement(m_bench.table, m_bench.reds)); // without the blue
}

/// How many of the draw's reds the text of the bet holds.
std::string hitsOf(const history::Draw& draw) {
    std::string sum;
    for (std::size_t slot = 1; slot <= 6; ++slot)
        sum += "-([NumString] LIKE \"" + numberPattern(draw[slot]) + "\")";
    return sum;
}

void Search::runRounds(std::int64_t first, Report& report) const {
    // Rounds below row 0 are all alike: one of them stands for all.
    const std::int64_t end = std::min<std::int64_t>(m_draws, m_bench.history.Lsnum + 2);
    for (std::int64_t round = first; round < end && !report.givenUp(); ++round) {
        report.advance(round, end);
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

void Search::filter(const SuperFilter& filter) const {
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

/// The pass: inputs are the reds, the state and the blue (when the table has one); outputs canshu, JSqihao and SKnum.
class MatchPass {
  public:
    MatchPass(std::span<const history::Draw> draws, const Workbench& bench, std::int64_t rows, Report& report)
        : m_draws(draws), m_bits(draws), m_reds(static_cast<std::size_t>(bench.reds), -1), m_blue(bench.blue),
          m_rows(rows), m_report(report) {}

    void operator()(const sql::RowBatch& batch);

  private:
    void turnTo(const sql::RowBatch& batch, std::size_t row);

    std::span<const history::Draw> m_draws;
    DrawBits m_bits;
    std::vector<std::int32_t> m_reds; // of the row that was matched last
    bool m_blue;
    bool m_matched = false;
    std::int64_t m_rows;
    std::int64_t m_rowsDone = 0;
    Report& m_report;
};

/// Works out the reds of a row, unless the row before has the same.
void MatchPass::turnTo(const sql::RowBatch& batch, std::size_t row) {
    bool same = m_matched;
    for (std::size_t position = 0; position < m_reds.size(); ++position) {
        const std::int32_t red = batch.inputs[position][row];
        same &= red == m_reds[position];
        m_reds[position] = red;
    }
    if (same)
        return;
    NumberMask numbers = 0;
    for (const std::int32_t red : m_reds)
        numbers |= numbersInText(red);
    m_bits.match(numbers);
    m_matched = true;
}

void MatchPass::operator()(const sql::RowBatch& batch) {
    if (m_report.givenUp())
        return;
    const std::span<const std::int32_t> unslt = batch.inputs[m_reds.size()];
    const auto& [canshu, JSqihao, SKnum] = std::tie(batch.outputs[0], batch.outputs[1], batch.outputs[2]);
    std::ranges::fill(SKnum.written, std::uint8_t{1});
    for (std::size_t row = 0; row < batch.rows; ++row) {
        SKnum.values[row] = 0;
        if (unslt[row] != 0)
            continue;
        turnTo(batch, row);
        const std::int32_t blue = m_blue ? batch.inputs.back()[row] : 0;
        const Match best = m_bits.best(blue);
        SKnum.values[row] = m_bits.last(blue);
        const bool hit = best.count > 0;
        canshu.values[row] = best.count;
        canshu.written[row] = hit;
        JSqihao.values[row] = m_draws[hit ? static_cast<std::size_t>(best.draw) : 0][0];
        JSqihao.written[row] = hit;
    }
    m_rowsDone += static_cast<std::int64_t>(batch.rows);
    m_report.advance(m_rowsDone, m_rows);
}

std::int64_t Search::runPass(Report& report) const {
    const std::vector<history::Draw> draws = regularDraws();
    sql::Database& database = m_bench.database;
    if (draws.empty() || !hasNumstring(database, m_bench.table))
        return 0;
    std::vector<std::string> inputs;
    for (int red = 1; red <= m_bench.reds; ++red)
        inputs.push_back("fig" + std::to_string(red));
    inputs.emplace_back("unslt");
    if (m_bench.blue)
        inputs.push_back("fig" + std::to_string(m_bench.reds + 1));
    const std::vector<std::string> outputs{"canshu", "JSqihao", "SKnum"};
    const bool ran = quietly([&] {
        MatchPass pass(draws, m_bench, database.rowCount(m_bench.table), report);
        database.computeColumns(m_bench.table, inputs, outputs, std::ref(pass));
    });
    return ran ? static_cast<std::int64_t>(draws.size()) : 0;
}

} // namespace

bool matchHistory(const Workbench& bench, const SuperFilter& filter, std::int64_t draws,
                  workspace::Progress* progress) {
    const Search search(bench, draws);
    Report report(progress);
    search.prepare();
    search.runRounds(search.runPass(report), report);
    if (report.givenUp())
        return false;
    search.filter(filter);
    return true;
}

void matchHistoryByStatements(const Workbench& bench, const SuperFilter& filter, std::int64_t draws) {
    const Search search(bench, draws);
    Report unseen(nullptr);
    search.prepare();
    search.runRounds(0, unseen);
    search.filter(filter);
}

} // namespace filter
