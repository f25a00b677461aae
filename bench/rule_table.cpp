#include "rule_table.h"

#include <algorithm>
#include <numeric>
#include <random>
#include <unistd.h>

namespace bench {
namespace {

history::Draw madeUpDraw(std::mt19937& random, int number) {
    std::array<std::int32_t, kReds> reds;
    std::iota(reds.begin(), reds.end(), 1);
    for (std::size_t place = 0; place < 6; ++place)
        std::swap(reds[place], reds[place + random() % (reds.size() - place)]);
    std::sort(reds.begin(), reds.begin() + 6);
    history::Draw draw{2003001 + number};
    std::copy_n(reds.begin(), 6, draw.begin() + 1);
    draw[7] = static_cast<std::int32_t>(1 + random() % 16);
    return draw;
}

} // namespace

RuleTable::RuleTable(sql::Executor executor, int blues)
    : m_executor(executor), m_blues(blues),
      m_folder(std::filesystem::temp_directory_path() / ("engine_bench_" + std::to_string(getpid()))),
      m_engine(sql::EngineOptions{.combinations = executor}) {
    std::filesystem::create_directories(m_folder);
    m_database = m_engine.create(m_folder / "filnum.mdb");
    std::mt19937 random(2003);
    m_history.Lsnum = kDraws;
    for (int draw = 0; draw < kDraws; ++draw)
        m_history.Lshm.push_back(madeUpDraw(random, draw));
    for (int red = 1; red <= history::kMostReds; ++red)
        m_history.Ylnow[static_cast<std::size_t>(red)] = static_cast<std::int16_t>(red * 7 % 31);
    generate();
}

RuleTable::~RuleTable() {
    m_database.reset();
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::int64_t RuleTable::generate() {
    selection::GenerationInput input;
    for (int red = 1; red <= kReds; ++red)
        input.chosen.reds.push_back(red);
    for (int blue = 1; blue <= m_blues; ++blue)
        input.chosen.blues.push_back(blue);
    input.Genreds = kReds;
    return selection::Enumeration(input).fill(*m_database, filter::shapeOf(member()), nullptr).written;
}

std::int64_t RuleTable::press(std::string_view option, const filter::RowInput& row, const filter::RunSettings& run) {
    const filter::Parameter* parameter = filter::findParameter(filter::sixAndBlueCatalogue(), option);
    filter::ParameterRun(workbench()).press(*parameter, row, run);
    return view().inPlay(parameter->gridTitle).rows.count();
}

void RuleTable::close() {
    m_database->store();
    m_database.reset();
}

void RuleTable::open() {
    m_database = m_engine.open(m_folder / "filnum.mdb");
}

} // namespace bench
