#include "filter/super_run.h"

#include <algorithm>
#include <array>
#include <bit>

#include "filter/numstring.h"
#include "filter/parameter_run.h"
#include "filter/quiet.h"
#include "sql/vector_loop.h"

namespace filter {
namespace {

std::string textLiteral(const std::string& text) {
    return "\"" + text + "\"";
}

SSQ_VECTOR_LOOP void addNumbers(const std::int32_t* numbers, std::size_t count, std::uint64_t* __restrict masks) {
    for (std::size_t row = 0; row < count; ++row)
        masks[row] |= std::uint64_t{1} << (static_cast<std::uint32_t>(numbers[row]) & 63U);
}

/// The numbers of some rows as bits.
void readMasks(const sql::RowBatch& batch, std::size_t columns, std::vector<std::uint64_t>& masks) {
    masks.assign(batch.rows, 0);
    for (std::size_t column = 0; column < columns; ++column) {
        const std::span<const std::int32_t> numbers = batch.inputs[column];
        const auto [low, high] = std::ranges::minmax(numbers);
        if (low >= 0 && high < 64)
            addNumbers(numbers.data(), batch.rows, masks.data());
        else
            for (std::size_t row = 0; row < batch.rows; ++row)
                masks[row] |= numbersInText(numbers[row]);
    }
}

/// SKnum in one pass. \return false, with nothing done, where bits cannot tell: a number beyond 1..63, or twice
bool countInOnePass(const Workbench& bench, std::span<const int> numbers, const std::string& state) {
    std::uint64_t wanted = 0;
    for (const int number : numbers) {
        if (number < 1 || number > 63 || (wanted >> number & 1) != 0)
            return false;
        wanted |= std::uint64_t{1} << number;
    }
    if (!hasNumstring(bench.database, bench.table))
        return false;
    const auto columns = static_cast<std::size_t>(bench.reds + (bench.blue ? 1 : 0));
    std::vector<std::string> inputs;
    for (std::size_t place = 1; place <= columns; ++place)
        inputs.push_back("fig" + std::to_string(place));
    inputs.push_back(state);
    std::vector<std::uint64_t> masks;
    const auto count = [&](const sql::RowBatch& batch) {
        readMasks(batch, columns, masks);
        const sql::RowBatch::Output& SKnum = batch.outputs[0];
        for (std::size_t row = 0; row < batch.rows; ++row) {
            SKnum.values[row] = batch.inputs[columns][row] != 0 ? 0 : std::popcount(masks[row] & wanted);
            SKnum.written[row] = 1;
        }
    };
    const std::array<std::string, 1> outputs{"SKnum"};
    return quietly([&] { bench.database.computeColumns(bench.table, inputs, outputs, count); });
}

/// What both kinds have in common: the snapshot and the text that they search.
class SuperRun {
  public:
    /// \param passes  whether one pass may take the place of a statement for each number
    SuperRun(const Workbench& bench, std::string_view caption, bool passes)
        : m_bench(bench), m_caption(caption), m_passes(passes) {}

    void update(const std::string& rest) const {
        sql::passOver(m_bench.database, "UPDATE [" + std::string(m_bench.table) + "] SET " + rest);
    }
    void snapshot() const { sql::passOver(m_bench.database, snapshotStatement(m_bench.table)); }
    void writeNumbers() const {
        sql::passOver(m_bench.database, numstringStatement(m_bench.table, m_bench.reds + (m_bench.blue ? 1 : 0)));
    }
    void takeOut(const std::string& condition) const {
        update("[unslt]=true , [Fliter] = " + textLiteral(m_caption) + " WHERE [unslt]=false AND " + condition);
    }
    /// SKnum: how many of the numbers the rows hold, where the state (unslt, preunslt) is false.
    void countHits(std::span<const int> numbers, const std::string& state) const {
        update("[SKnum]= 0");
        if (m_passes && countInOnePass(m_bench, numbers, state))
            return;
        for (const int number : numbers)
            update("[SKnum]= [SKnum] + 1 WHERE [" + state + "]=false AND [NumString] LIKE " +
                   textLiteral(numberPattern(number)));
    }
    const std::string& caption() const { return m_caption; }
    bool passes() const { return m_passes; }

  private:
    const Workbench& m_bench;
    std::string m_caption;
    bool m_passes;
};

/// Bets with some of the numbers but not all: the one statement takes out what those of the single numbers do.
void takeOutSome(const SuperRun& run, std::span<const int> numbers, const std::string& lacksSome) {
    std::string any;
    for (const int number : numbers) {
        const std::string holds = "[NumString] LIKE " + textLiteral(numberPattern(number));
        if (!run.passes())
            run.takeOut(holds + " AND " + lacksSome);
        any += (any.empty() ? "" : " OR ") + holds;
    }
    if (!any.empty() && run.passes())
        run.takeOut(lacksSome + " AND (" + any + ")");
}

void runNumbers(const SuperRun& run, NumberRule rule, std::span<const int> numbers) {
    std::vector<int> ascending(numbers.begin(), numbers.end());
    std::ranges::sort(ascending);
    std::string all;
    for (const int number : ascending)
        all += numberPattern(number);
    run.snapshot();
    run.writeNumbers();
    switch (rule) {
    case NumberRule::Exclusive:
        return run.takeOut("[NumString] LIKE " + textLiteral(all));
    case NumberRule::Together:
        return takeOutSome(run, ascending, "NOT [NumString] LIKE " + textLiteral(all));
    case NumberRule::Keep:
        return run.takeOut("NOT [NumString] LIKE " + textLiteral(all));
    }
}

void takeOutGroups(const SuperRun& run, const FilterGroups& groups) {
    const std::string size = std::to_string(groups.groupSize);
    run.snapshot();
    run.writeNumbers();
    run.countHits(groups.numbers, "unslt");
    run.update("[unslt]=true , [Fliter] = " + textLiteral(run.caption() + "  " + size + "个一组") +
               " WHERE [unslt]=false AND [SKnum] >= " + size);
    for (const int banker : groups.bankers)
        run.update("[unslt]=false , [Fliter] = \" \" WHERE [unslt]=true AND [NumString] NOT LIKE " +
                   textLiteral(numberPattern(banker)));
}

void keepGroups(const SuperRun& run, const FilterGroups& groups) {
    const std::string size = std::to_string(groups.groupSize);
    run.snapshot();
    run.update("[unslt]=true , [Fliter] = " + textLiteral(run.caption() + size + "个一组") +
               " WHERE [preunslt]=false");
    run.writeNumbers();
    run.countHits(groups.numbers, "preunslt");
    run.update("[unslt]=false , [Fliter] = \"\" WHERE [preunslt]=false AND [SKnum] >= " + size);
    const std::string reason = textLiteral(run.caption() + "  " + std::to_string(groups.bankers.size()) + "胆");
    for (const int banker : groups.bankers)
        run.update("[unslt]=True , [Fliter] = " + reason + " WHERE [unslt]=true AND [NumString] NOT LIKE " +
                   textLiteral(numberPattern(banker)));
}

void runGroups(const SuperRun& run, const FilterGroups& groups) {
    groups.filter->keeps ? keepGroups(run, groups) : takeOutGroups(run, groups);
}

} // namespace

void filterNumbers(const Workbench& bench, const SuperFilter& filter, std::span<const int> numbers) {
    runNumbers(SuperRun(bench, filter.caption, true), filter.rule, numbers);
}

void filterNumbersByStatements(const Workbench& bench, const SuperFilter& filter, std::span<const int> numbers) {
    runNumbers(SuperRun(bench, filter.caption, false), filter.rule, numbers);
}

void filterGroups(const Workbench& bench, const FilterGroups& groups) {
    runGroups(SuperRun(bench, groups.filter->caption, true), groups);
}

void filterGroupsByStatements(const Workbench& bench, const FilterGroups& groups) {
    runGroups(SuperRun(bench, groups.filter->caption, false), groups);
}

void addSuperColumns(const Workbench& bench) {
    if (bench.reds != 7)
        return;
    for (const char* column : {"[SKnum] integer", "[JSqihao] long"})
        sql::passOver(bench.database, "ALTER TABLE [" + std::string(bench.table) + "] ADD COLUMN " + column);
}

std::string superText(const MatchHistory& step) {
    return std::string(step.filter->caption) + " 前 " + std::to_string(step.draws) + " 期";
}

std::string superText(const FilterNumbers& step) {
    return std::string(step.filter->caption) + " " + numberList(step.numbers);
}

std::string superText(const FilterGroups& step) {
    std::string text = std::string(step.filter->caption) + " " + std::to_string(step.numbers.size()) + " 个，" +
                       std::to_string(step.groupSize) + " 个一组";
    if (!step.bankers.empty())
        text += "，胆 " + numberList(step.bankers);
    return text;
}

} // namespace filter
