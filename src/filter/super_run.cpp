#include "filter/super_run.h"

#include <algorithm>

#include "filter/numstring.h"
#include "filter/parameter_run.h"

namespace filter {
namespace {

std::string textLiteral(const std::string& text) {
    return "\"" + text + "\"";
}

/// What both kinds have in common: the snapshot and the text that they search.
class SuperRun {
  public:
    SuperRun(const Workbench& bench, std::string_view caption) : m_bench(bench), m_caption(caption) {}

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
    /// SKnum: how many of the numbers the rows hold.
    void countHits(std::span<const int> numbers, const std::string& rows) const {
        update("[SKnum]= 0");
        for (const int number : numbers)
            update("[SKnum]= [SKnum] + 1 WHERE " + rows + " AND [NumString] LIKE " +
                   textLiteral(numberPattern(number)));
    }
    const std::string& caption() const { return m_caption; }

  private:
    const Workbench& m_bench;
    std::string m_caption;
};

void takeOutGroups(const SuperRun& run, const FilterGroups& groups) {
    const std::string size = std::to_string(groups.groupSize);
    run.snapshot();
    run.writeNumbers();
    run.countHits(groups.numbers, "[unslt]=false");
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
    run.countHits(groups.numbers, "[preunslt]=false");
    run.update("[unslt]=false , [Fliter] = \"\" WHERE [preunslt]=false AND [SKnum] >= " + size);
    const std::string reason = textLiteral(run.caption() + "  " + std::to_string(groups.bankers.size()) + "胆");
    for (const int banker : groups.bankers)
        run.update("[unslt]=True , [Fliter] = " + reason + " WHERE [unslt]=true AND [NumString] NOT LIKE " +
                   textLiteral(numberPattern(banker)));
}

} // namespace

void filterNumbers(const Workbench& bench, const SuperFilter& filter, std::span<const int> numbers) {
    std::vector<int> ascending(numbers.begin(), numbers.end());
    std::ranges::sort(ascending);
    std::string all;
    for (const int number : ascending)
        all += numberPattern(number);
    const SuperRun run(bench, filter.caption);
    run.snapshot();
    run.writeNumbers();
    switch (filter.rule) {
    case NumberRule::Exclusive:
        return run.takeOut("[NumString] LIKE " + textLiteral(all));
    case NumberRule::Together:
        for (const int number : ascending)
            run.takeOut("[NumString] LIKE " + textLiteral(numberPattern(number)) + " AND NOT [NumString] LIKE " +
                        textLiteral(all));
        return;
    case NumberRule::Keep:
        return run.takeOut("NOT [NumString] LIKE " + textLiteral(all));
    }
}

void filterGroups(const Workbench& bench, const FilterGroups& groups) {
    const SuperRun run(bench, groups.filter->caption);
    groups.filter->keeps ? keepGroups(run, groups) : takeOutGroups(run, groups);
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
