#include "history/draw_tables.h"

#include <span>

namespace history {

namespace {

constexpr std::size_t kBareColumns = 9; // Idx and fig0..fig7: what fig of dbFilnum holds

void addOmissions(ColumnBlock& block, std::int32_t issue, std::span<const std::int16_t> omission) {
    block.beginRow();
    block.add(issue);
    for (const std::int16_t absent : omission.subspan(1))
        block.add(absent);
}

void writeShares(sql::Database& dbUser, const char* table, std::span<const double> shares,
                 std::span<const std::int16_t> hits, int numbers) {
    sql::Recordset records = dbUser.openRecordset(table);
    const int number = records.fieldIndex("Number");
    const int share = records.fieldIndex("gailv");
    const int count = records.fieldIndex("Glnum");
    records.moveFirst();
    for (std::size_t place = 1; place <= static_cast<std::size_t>(numbers); ++place) {
        records.edit();
        records.set(number, static_cast<std::int64_t>(place));
        records.set(share, shares[place]);
        records.set(count, static_cast<std::int64_t>(hits[place]));
        records.update();
        records.moveNext();
    }
}

} // namespace

ColumnBlock::ColumnBlock(std::vector<std::string> columns)
    : m_columns(std::move(columns)), m_values(m_columns.size()) {}

void ColumnBlock::appendTo(sql::Database& database, const std::string& table, std::size_t columns) const {
    sql::RowBlock block;
    for (std::size_t column = 0; column < columns; ++column) {
        block.columns.push_back(m_columns[column]);
        block.values.emplace_back(m_values[column]);
    }
    database.appendRows(table, block);
}

std::vector<std::string> figColumns() {
    std::vector<std::string> columns{"Idx"};
    for (int place = 0; place <= 7; ++place)
        columns.push_back("fig" + std::to_string(place));
    for (const DerivedColumn& column : kDerivedColumns)
        columns.emplace_back(column.name);
    return columns;
}

std::vector<std::string> omissionColumns(int numbers) {
    std::vector<std::string> columns{"Qihao"};
    for (int number = 1; number <= numbers; ++number)
        columns.push_back("ylqs" + std::to_string(number));
    return columns;
}

std::string selectColumns(const std::vector<std::string>& columns, const char* table) {
    std::string list;
    for (const std::string& column : columns)
        list += (list.empty() ? "[" : ",[") + column + "]";
    return "SELECT " + list + " FROM [" + table + "]";
}

DrawBlock::DrawBlock()
    : m_fig(figColumns()), m_ylqs(omissionColumns(kMostReds)), m_ylqsB(omissionColumns(kMostBlues)) {}

void DrawBlock::add(int index, const Draw& draw, const Derived& derived, const History& history) {
    m_fig.beginRow();
    m_fig.add(index);
    for (const std::int32_t value : draw)
        m_fig.add(value);
    for (const DerivedColumn& column : kDerivedColumns)
        m_fig.add(column.get(derived));
    addOmissions(m_ylqs, draw[0], history.Ylnow);
    addOmissions(m_ylqsB, draw[0], history.YlnowB);
}

void DrawBlock::appendTo(sql::Database& dbUser, sql::Database& dbFilnum) const {
    m_fig.appendTo(dbFilnum, "fig", kBareColumns);
    m_fig.appendTo(dbUser, "fig");
    m_ylqs.appendTo(dbUser, "Ylqs");
    m_ylqsB.appendTo(dbUser, "YlqsB");
}

void writeShares(sql::Database& dbUser, const History& history, int reds, int blues) {
    writeShares(dbUser, "Gailv", history.Gailvred, history.Glred, reds);
    writeShares(dbUser, "GailvB", history.GailvBlue, history.GlBlue, blues);
}

} // namespace history
