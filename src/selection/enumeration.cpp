#include "selection/enumeration.h"

#include <algorithm>

#include "selection/row_writer.h"
#include "workspace/templates.h"

namespace selection {
namespace {

/// Ascending picks of places 1..n, in lexicographic order: what the nested loops of the load step run through.
class Picks {
  public:
    Picks(int n, int picked) : m_n(n), m_places(static_cast<std::size_t>(picked)) {
        for (int place = 0; place < picked; ++place)
            m_places[static_cast<std::size_t>(place)] = place + 1;
    }
    bool any() const { return static_cast<int>(m_places.size()) <= m_n; }
    const std::vector<int>& places() const { return m_places; }

    bool next() {
        const int last = static_cast<int>(m_places.size()) - 1;
        int moved = last;
        while (moved >= 0 && m_places[static_cast<std::size_t>(moved)] == m_n - (last - moved))
            --moved;
        if (moved < 0)
            return false;
        int place = ++m_places[static_cast<std::size_t>(moved)];
        for (++moved; moved <= last; ++moved)
            m_places[static_cast<std::size_t>(moved)] = ++place;
        return true;
    }

  private:
    int m_n;
    std::vector<int> m_places;
};

/// Puts a banker into its place among the ascending numbers row[0..held).
void insertBanker(std::vector<std::int32_t>& row, std::size_t held, std::int32_t banker) {
    std::size_t place = held;
    for (; place > 0 && row[place - 1] > banker; --place)
        row[place] = row[place - 1];
    row[place] = banker;
}

/// The reds that the run picks from, entries 1..Genreds (entry 0 is unused).
std::vector<std::int32_t> workingReds(const TableShape& shape, const GenerationInput& input) {
    const bool drawn = input.Fromdraw && shape.reds == 6;
    const std::vector<std::int32_t>& source = drawn ? input.Drawnlist : input.chosen.reds;
    std::vector<std::int32_t> reds(static_cast<std::size_t>(std::max(input.Genreds, 0)) + 1);
    std::copy_n(source.begin(), std::min(source.size(), reds.size() - 1), reds.begin() + 1);
    return reds;
}

int bankersOf(const TableShape& shape, const GenerationInput& input) {
    return shape.bankers ? static_cast<int>(input.chosen.bankers.size()) : 0;
}

/// Runs of a simulated draw have no form with bankers, and none of seven reds.
bool makesMultirows(const TableShape& shape, const GenerationInput& input) {
    return input.Multirows && shape.reds == 6 && !shape.bankers;
}

void enumerate(const TableShape& shape, const GenerationInput& input, RowWriter& writer) {
    const int bankers = bankersOf(shape, input);
    const int picked = shape.reds - bankers;
    if (picked < 1)
        return;
    const std::vector<std::int32_t> reds = workingReds(shape, input);
    std::vector<std::int32_t> row(static_cast<std::size_t>(shape.reds));
    Picks picks(input.Genreds, picked);
    if (!picks.any())
        return;
    do {
        std::size_t held = 0;
        for (const int place : picks.places())
            row[held++] = reds[static_cast<std::size_t>(place)];
        for (int banker = 0; banker < bankers; ++banker)
            insertBanker(row, held++, input.chosen.bankers[static_cast<std::size_t>(banker)]);
        writer.write(row, input.chosen.blues);
    } while (!writer.isCancelled() && picks.next());
}

void writeMultitable(const GenerationInput& input, RowWriter& writer) {
    const std::array<std::int32_t, 8> unset{};
    for (int line = 1; line <= input.Multicount; ++line) {
        const auto place = static_cast<std::size_t>(line);
        const auto& numbers = place < input.Multitable.size() ? input.Multitable[place] : unset;
        writer.writeNumbered(line, std::span(numbers).subspan(1, 6), input.chosen.blues);
    }
}

/// Deletes what the table still shows. After a drop there is nothing; it guards a drop that has failed.
void removeRows(sql::Database& database, std::string_view table) {
    try {
        sql::Recordset rows = database.openRecordset(table);
        for (; !rows.eof(); rows.moveNext())
            rows.remove();
    } catch (const sql::SqlError&) {
        // Nothing is reported here: the window then shows what the table holds.
    }
}

} // namespace

std::int64_t Enumeration::announced(const TableShape& shape) const {
    const std::int64_t sets = makesMultirows(shape, m_input)
                                  ? m_input.Multicount
                                  : combinationCount(m_input.Genreds, shape.reds - bankersOf(shape, m_input));
    return sets * (shape.blue ? static_cast<std::int64_t>(m_input.chosen.blues.size()) : 1);
}

Generated Enumeration::fill(sql::Database& database, const TableShape& shape, workspace::Progress* progress) {
    sql::TableHold former(database, shape.table);
    sql::passOver(database, "DROP TABLE [" + std::string(shape.table) + "]");
    sql::passOver(database, workspace::createCombinationTable(shape.table));
    removeRows(database, shape.table);

    const bool multirows = makesMultirows(shape, m_input);
    const std::int64_t expected = announced(shape);
    RowWriter writer(database, shape, expected, multirows ? nullptr : progress);
    if (multirows)
        writeMultitable(m_input, writer);
    else
        enumerate(shape, m_input, writer);
    writer.finish();
    if (writer.isCancelled())
        return {.cancelled = true};
    former.release();
    if (multirows)
        m_input.Multirows = false;
    return {expected, writer.rows()};
}

} // namespace selection
