#include "filter/ticked_export.h"

#include <algorithm>

#include "filter/parameter_run.h"
#include "filter/quiet.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

output::SheetCell cellOf(const sql::Value& value) {
    if (sql::isNull(value))
        return {};
    return sql::toInteger(value);
}

} // namespace

TickedExport::TickedExport(const FilterMember& member, const Workbench& bench, const WindowState& state)
    : m_numbers(member.numbers()) {
    addNumbers(member);
    std::string numbers = "[idx] ";
    for (int place = 1; place <= member.numbers(); ++place)
        numbers += ",[fig" + std::to_string(place) + "] ";
    const std::string rest = "] WHERE [unslt] = false ORDER BY Idx";
    const std::string wheelTable(wheelTableOf(member));
    const bool own = member.table == wheelTable;
    for (int tick = 0; tick < static_cast<int>(WindowState::kRows); ++tick)
        if (const Parameter* parameter = parameterAt(member.catalogue(), tick);
            parameter && state.row(*parameter).ticked && !parameter->exportHeading().empty())
            addValues(bench, *parameter, state, wheelTable, own);
    m_bets =
        queryQuietly(bench.database, "SELECT " + numbers + ",[canshu] FROM [" + std::string(member.table) + rest);
    if (!own)
        m_wheel = queryQuietly(bench.database, "SELECT [canshu] FROM [" + wheelTable + rest);
    const bool values = m_columns.size() > static_cast<std::size_t>(member.numbers()) + 1;
    m_longest = std::max(m_bets.count(), values ? m_wheel.count() : 0);
}

void TickedExport::addNumbers(const FilterMember& member) {
    m_columns.push_back({u"序号"_s, output::CellKind::Number});
    for (int red = 1; red <= member.reds; ++red)
        m_columns.push_back({u"红%1位"_s.arg(red), output::CellKind::Red});
    if (member.blue)
        m_columns.push_back({u"蓝球位"_s, output::CellKind::Blue});
}

void TickedExport::addValues(const Workbench& bench, const Parameter& parameter, const WindowState& state,
                             const std::string& wheelTable, bool own) {
    ParameterRun(bench).compute(parameter, runSettings(state, kKeep));
    m_columns.push_back({QString::fromUtf8(parameter.exportHeading()), output::CellKind::Number});
    if (!own)
        return;
    Values values;
    const sql::Rows rows =
        queryQuietly(bench.database, "SELECT [canshu] FROM [" + wheelTable + "] WHERE [unslt] = false ORDER BY Idx");
    values.reserve(static_cast<std::size_t>(rows.count()));
    for (std::int64_t row = 0; row < rows.count(); ++row)
        values.push_back(rows.at(row, 0));
    m_owned.push_back(std::move(values));
}

std::int64_t TickedExport::count() const {
    return m_longest;
}

output::SheetCell TickedExport::cell(std::int64_t row, int column) const {
    if (column <= m_numbers) {
        if (row >= m_bets.count())
            return {};
        return column == 0 ? output::SheetCell(row + 1) : cellOf(m_bets.at(row, column));
    }
    if (m_owned.empty())
        return row < m_wheel.count() ? cellOf(m_wheel.at(row, 0)) : output::SheetCell();
    const Values& values = m_owned[static_cast<std::size_t>(column - m_numbers - 1)];
    return row < static_cast<std::int64_t>(values.size()) ? cellOf(values[static_cast<std::size_t>(row)])
                                                          : output::SheetCell();
}

} // namespace filter
