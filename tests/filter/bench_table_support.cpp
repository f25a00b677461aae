#include "filter/bench_table.h"

#include <atomic>
#include <stdexcept>
#include <unistd.h>
#include <utility>

#include "workspace/templates.h"

namespace filter_test {

ScratchFolder::ScratchFolder() {
    static std::atomic<int> made = 0;
    m_folder = std::filesystem::temp_directory_path() /
               ("filter_test_" + std::to_string(getpid()) + "_" + std::to_string(++made));
    std::filesystem::create_directories(m_folder);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

namespace {

const filter::Parameter& found(std::span<const filter::Parameter> catalogue, std::string_view option) {
    if (const filter::Parameter* parameter = filter::findParameter(catalogue, option))
        return *parameter;
    throw std::invalid_argument("no such parameter: " + std::string(option));
}

} // namespace

BenchTable::BenchTable(sql::Executor executor, std::string_view form)
    : engine(sql::EngineOptions{.combinations = executor}), database(engine.create(folder.file("filnum.mdb"))),
      member(*filter::findMember(form)) {
    history.Lsnum = 1;
    history.Lshm.push_back({2026001, 2, 5, 11, 17, 25, 33, 6});
    for (int red = 1; red <= history::kMostReds; ++red)
        history.Ylnow[static_cast<std::size_t>(red)] = static_cast<std::int16_t>(red * 7 % 31);
    database->setListener([this](std::string_view statement) { m_statements.emplace_back(statement); });
}

void BenchTable::enumerate(int highest, const std::vector<int>& blues) {
    selection::GenerationInput input;
    for (int red = 1; red <= highest; ++red)
        input.chosen.reds.push_back(red);
    input.chosen.blues.assign(blues.begin(), blues.end());
    input.Genreds = highest;
    selection::Enumeration(input).fill(*database, filter::shapeOf(member), nullptr);
    m_statements.clear();
}

void BenchTable::hold(const std::vector<std::vector<int>>& bets) {
    database->execute(workspace::createCombinationTable(member.table));
    const auto count = static_cast<std::size_t>(member.numbers()) + 1;
    std::vector<std::vector<std::int32_t>> columns(count);
    sql::RowBlock block;
    for (std::size_t column = 0; column < count; ++column) {
        for (std::size_t row = 0; row < bets.size(); ++row)
            columns[column].push_back(column == 0 ? static_cast<std::int32_t>(row + 1) : bets[row][column - 1]);
        block.columns.push_back(column == 0 ? "idx" : "fig" + std::to_string(column));
    }
    for (const auto& values : columns)
        block.values.emplace_back(values);
    database->appendRows(member.table, block);
    m_statements.clear();
}

void BenchTable::press(const std::string& option, const filter::RowInput& row, const filter::RunSettings& settings) {
    filter::ParameterRun(bench()).press(parameter(option), row, settings);
}

void BenchTable::accumulate(const std::string& option, const filter::RowInput& row,
                            const filter::RunSettings& settings) {
    filter::ParameterRun(bench()).accumulate(parameter(option), row, settings);
}

std::vector<int> BenchTable::column(const std::string& name) {
    const sql::Rows rows = database->query("SELECT [" + name + "] FROM [" + std::string(member.table) + "]");
    std::vector<int> values;
    for (std::int64_t row = 0; row < rows.count(); ++row)
        values.push_back(static_cast<int>(rows.integerAt(row, 0)));
    return values;
}

std::vector<std::string> BenchTable::texts(const std::string& name) {
    const sql::Rows rows = database->query("SELECT [" + name + "] FROM [" + std::string(member.table) + "]");
    std::vector<std::string> values;
    for (std::int64_t row = 0; row < rows.count(); ++row)
        values.push_back(rows.textAt(row, 0));
    return values;
}

plain::Bet BenchTable::bet(const sql::Rows& rows, std::int64_t row) const {
    plain::Bet bet{};
    for (int position = 1; position <= member.numbers(); ++position)
        bet[static_cast<std::size_t>(position)] = static_cast<int>(rows.integerAt(row, position));
    return bet;
}

plain::Rule BenchTable::rule(const filter::RunSettings& settings) const {
    plain::Rule rule;
    rule.Bitnum = Bitnum;
    rule.ticked = settings.ticked;
    for (std::size_t red = 1; red <= 6; ++red)
        rule.last[red] = history.Lshm.back()[red];
    for (std::size_t red = 0; red < rule.omission.size(); ++red)
        rule.omission[red] = history.Ylnow[red];
    if (!settings.intervalTo.empty()) {
        rule.above = std::stoi(settings.intervalAbove);
        rule.to = std::stoi(settings.intervalTo);
    }
    return rule;
}

std::vector<std::string> BenchTable::takeStatements() {
    return std::exchange(m_statements, {});
}

const filter::Parameter& BenchTable::parameter(std::string_view option) const {
    return found(member.catalogue(), option);
}

const filter::Parameter& parameter(const std::string& option) {
    return found(filter::sixAndBlueCatalogue(), option);
}

filter::RowInput range(const std::string& low, const std::string& high) {
    return {.low = low, .high = high, .list = {}};
}
filter::RowInput list(const std::string& numbers) {
    return {.low = {}, .high = {}, .list = numbers};
}

filter::RunSettings settings(filter::Mode mode, std::int16_t Baoliu) {
    filter::RunSettings made;
    made.mode = mode;
    made.Baoliu = Baoliu;
    return made;
}

std::int64_t choose(int n, int k) {
    std::int64_t count = 1;
    for (int factor = 1; factor <= k; ++factor)
        count = count * (n - k + factor) / factor;
    return n < k ? 0 : count;
}

} // namespace filter_test
