#include "prize/query.h"

#include "base/number_text.h"
#include "filter/numstring.h"
#include "filter/quiet.h"
#include "workspace/failure.h"
#include "workspace/quoted_text.h"

namespace prize {

namespace {

constexpr std::size_t kBlueSlot = 7; // of a draw

std::size_t slot(int row) {
    return static_cast<std::size_t>(row);
}

std::vector<std::string> parts(std::string_view list) {
    std::vector<std::string> all(1);
    for (const char letter : list)
        if (letter == ',')
            all.emplace_back();
        else
            all.back() += letter;
    return all;
}

std::string stateIs(bool out) {
    return out ? "[unslt] = true" : "[unslt] = false";
}

/// A label as a value; nothing for one that cannot stand in a statement.
std::optional<std::string> valueOf(const QString& label) {
    try {
        return workspace::quotedText(label);
    } catch (const workspace::Failure&) {
        return std::nullopt;
    }
}

} // namespace

Query::Query(sql::Database& database, const QueryEntry& entry, const history::Draw& draw, const Rules& rules)
    : m_database(database), m_entry(entry), m_table("[" + std::string(entry.table) + "]"), m_draw(draw),
      m_rules(rules) {}

void Query::run(const std::string& afterTable) {
    sql::passOver(m_database, "UPDATE " + m_table + " SET " + afterTable);
}

void Query::open() {
    makeColumns();
    writeNumbers();
    matchDraw();
    if (m_entry.kind.prizes)
        applyRules();
    if (!m_entry.kind.out.columns.empty()) {
        m_out = list(m_entry.kind.out, true, "");
        m_outCount = m_out.count();
    }
    m_kept = list(m_entry.kind.kept, false, "");
    m_keptCount = m_kept.count();
    m_lastIsOut = false;
    Cost = m_entry.kind.price * m_keptCount;
    if (m_entry.kind.prizes)
        summarise();
}

void Query::makeColumns() {
    const std::vector<std::string> columns = parts(m_entry.kind.workColumns);
    const std::vector<std::string> types = parts(m_entry.kind.workTypes);
    for (const std::string& column : columns)
        sql::passOver(m_database, "ALTER TABLE " + m_table + " DROP COLUMN [" + column + "]");
    for (std::size_t column = 0; column < columns.size(); ++column)
        sql::passOver(m_database,
                      "ALTER TABLE " + m_table + " ADD COLUMN [" + columns[column] + "] " + types[column]);
}

// "05 12 …": with two digits and blanks between a pattern of two digits meets a whole number only.
void Query::writeNumbers() {
    sql::passOver(m_database, filter::numstringStatement(m_entry.table, m_entry.kind.numbers));
}

void Query::matchDraw() {
    run(std::string(m_entry.kind.clear));
    for (std::size_t red = 1; red <= history::kRedsDrawn; ++red)
        run("[jiben]=[jiben]+1 WHERE " + m_table + ".[NumString] LIKE \"" + filter::numberPattern(m_draw[red]) +
            "\"");
    if (m_entry.kind.prizes)
        run("[tebie]=1 WHERE " + m_table + ".[fig7] = " + std::to_string(m_draw[kBlueSlot]));
}

void Query::applyRules() {
    for (int row = kRules; row >= 1; --row) {
        const auto& match = m_rules.PrizeMatch[slot(row)];
        if (const auto label = valueOf(m_rules.Prizerank[slot(row)]))
            run("[jiang]=" + *label + " ,[jing]= " + std::to_string(m_rules.PrizeMoney[slot(row)]) + " WHERE " +
                m_table + ".[jiben]=" + std::to_string(match[kReds]) + "AND " + m_table +
                ".[tebie]=" + std::to_string(match[kBlue]));
    }
}

sql::Rows Query::list(const ListKind& kind, bool out, const std::string& rest) const {
    return filter::queryQuietly(m_database, "SELECT " + std::string(kind.select) + " FROM " + m_table + " WHERE " +
                                                stateIs(out) + rest);
}

std::int64_t Query::number(const std::string& select) const {
    std::int64_t value = 0;
    filter::quietly([&] {
        const sql::Rows rows = m_database.query(select);
        if (rows.count() > 0 && !sql::isNull(rows.at(0, 0)))
            value = rows.integerAt(0, 0);
    });
    return value;
}

void Query::summarise() {
    m_summary.kept = levels(false);
    m_summary.out = levels(true);
    Income = number("SELECT SUM([jing]) as [sumnum] FROM " + m_table + " WHERE [unslt] = FALSE");
}

std::vector<LevelRow> Query::levels(bool out) {
    std::vector<LevelRow> all;
    for (int row = 1; row <= kRules; ++row) {
        if (!m_rules.beginsLevel(row))
            continue;
        all.push_back(level(row, out));
        if (!out)
            PrizeCount[slot(row)] = all.back().bets;
    }
    return all;
}

// Bets of all rules with this label are counted, wherever they stand.
LevelRow Query::level(int row, bool out) {
    const QString& label = m_rules.Prizerank[slot(row)];
    const std::int32_t money = m_rules.PrizeMoney[slot(row)];
    LevelRow level{label, 0, money, 0};
    const auto value = valueOf(label);
    if (!value)
        return level;
    const std::string rest = " FROM " + m_table + " WHERE " + stateIs(out) + " AND [jiang] = " + *value;
    level.bets = number("SELECT COUNT(*) as [countzhu]" + rest);
    for (int other = 1; other <= kRules; ++other)
        if (m_rules.Prizerank[slot(other)] == label && m_rules.PrizeMoney[slot(other)] != money)
            level.money.reset();
    level.won = level.money ? level.bets * money : number("SELECT SUM([jing]) as [sumnum]" + rest);
    return level;
}

sql::Rows Query::sorted(const ListKind& kind, bool out) const {
    sql::Rows rows = list(kind, out, std::string(m_entry.kind.sort));
    if (rows.columnCount() == 0 && !m_entry.kind.sortElse.empty())
        rows = list(kind, out, std::string(m_entry.kind.sortElse));
    return rows;
}

void Query::sort() {
    if (!m_entry.kind.out.columns.empty())
        m_out = sorted(m_entry.kind.out, true);
    m_kept = sorted(m_entry.kind.kept, false);
    m_lastIsOut = false;
}

std::string Query::pageOf(const QString& page) {
    const double number = base::val(page.toStdString());
    return " AND [idx] >=" + base::numberText((number - 1) * kPageRows + 1) +
           " AND [idx] <=" + base::numberText((number + 1) * kPageRows);
}

void Query::pageKept(const QString& page) {
    m_kept = list(m_entry.kind.kept, false, pageOf(page));
    m_lastIsOut = false;
}

void Query::pageOut(const QString& page) {
    m_out = list(m_entry.kind.out, true, pageOf(page));
    m_lastIsOut = true;
}

} // namespace prize
