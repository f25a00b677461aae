#include "selection/wheels.h"

#include <algorithm>
#include <utility>

#include "selection/row_writer.h"
#include "workspace/templates.h"

namespace selection {

namespace {

constexpr int kCells = 6; // of a bet; the seventh cell of a compound row is shown, and goes to no table

std::int16_t cellOf(const sql::Rows& rows, std::int64_t row, int column) {
    const std::int64_t position = rows.integerAt(row, column);
    return position >= 1 && position <= Pad::kMostReds ? static_cast<std::int16_t>(position) : std::int16_t(0);
}

std::vector<std::int32_t> numbersOf(const WheelRow& row, const Pad& pad, bool numbersAlready) {
    std::vector<std::int32_t> numbers;
    for (int cell = 0; cell < kCells; ++cell) {
        const std::int16_t held = row[static_cast<std::size_t>(cell)];
        numbers.push_back(numbersAlready ? held : pad.Redlist[static_cast<std::size_t>(held)]);
    }
    return numbers;
}

/// "[fig1],[fig2],…": by name, whatever else a table brings along.
std::string cellColumns(int cells) {
    std::string columns;
    for (int cell = 1; cell <= cells; ++cell)
        columns += (cell > 1 ? ",[fig" : "[fig") + std::to_string(cell) + "]";
    return columns;
}

} // namespace

Wheels::Wheels(sql::Engine& engine, FileOf fileOf) : m_engine(engine), m_fileOf(std::move(fileOf)) {}

void Wheels::openMenu(WheelFamily family, Pad& pad) {
    m_open.erase(family);
    std::erase_if(m_counts, [family](const auto& counted) { return counted.first.first == family; });
    pad.sortReds();
    switch (family) {
    case WheelFamily::Basic:
        Wheelopen = false;
        break;
    case WheelFamily::Extended:
        Wheelopen = true;
        break;
    case WheelFamily::Super:
        Wheeldan = false;
        Wheelopen = true;
        break;
    case WheelFamily::Banker:
        Wheeldan = true;
        Wheelopen = true;
        break;
    case WheelFamily::Seven:
        break;
    }
}

void Wheels::forget() {
    m_open.clear();
    m_counts.clear();
}

/// \return nullptr when there is no such file: its entries are not offered
sql::Database* Wheels::open(WheelFamily family) {
    std::unique_ptr<sql::Database>& database = m_open[family];
    try {
        if (!database)
            database = m_engine.open(m_fileOf(wheelFamily(family).file));
    } catch (const sql::SqlError&) {
        return nullptr;
    }
    return database.get();
}

std::optional<std::int64_t> Wheels::rows(WheelFamily family, const Pad& pad, const Guarantee& pair) {
    const int bankers = family == WheelFamily::Banker ? pad.Dancnt : 0;
    return rows(family, wheelTableName(family, pad.Redcnt, bankers, pair));
}

std::optional<std::int64_t> Wheels::rows(WheelFamily family, const std::string& table) {
    const auto [counted, unknown] = m_counts.try_emplace({family, table});
    if (!unknown)
        return counted->second;
    try {
        if (sql::Database* database = open(family); database && database->hasTable(table))
            counted->second = database->rowCount(table);
    } catch (const sql::SqlError&) {
        // A damaged file is as good as none: its entries are not offered.
    }
    return counted->second;
}

std::vector<WheelRow> Wheels::rowsOf(WheelFamily family, const std::string& table) {
    std::vector<WheelRow> found;
    sql::Database* database = open(family);
    if (!database)
        return found;
    try {
        const int cells = wheelFamily(family).cells;
        const sql::Rows rows = database->query("SELECT " + cellColumns(cells) + " FROM [" + table + "]");
        const std::int64_t count = std::min(rows.count(), static_cast<std::int64_t>(kMostRows));
        for (std::int64_t row = 0; row < count; ++row) {
            WheelRow& added = found.emplace_back();
            for (int cell = 0; cell < cells; ++cell)
                added[static_cast<std::size_t>(cell)] = cellOf(rows, row, cell);
        }
    } catch (const sql::SqlError&) {
        found.clear(); // no such table: no rows
    }
    return found;
}

void Wheels::choose(WheelFamily family, const std::string& table) {
    rsWheel = rowsOf(family, table);
    m_chosen = wheelTableNamed(family, table);
}

void Wheels::chooseBanker(const Pad& pad, const Guarantee& pair) {
    Wheeldan = true;
    Wheelopen = true;
    choose(WheelFamily::Banker, wheelTableName(WheelFamily::Banker, pad.Redcnt, pad.Dancnt, pair));
    for (int place = 1; place <= pad.Redcnt; ++place)
        Rotemap[static_cast<std::size_t>(place)] = pad.Redlist[static_cast<std::size_t>(place)];
    const int most = std::min<int>(pad.Dancnt, Pad::kMostReds - pad.Redcnt);
    for (int place = 1; place <= most; ++place)
        Rotemap[static_cast<std::size_t>(pad.Redcnt + place)] = pad.Danlist[static_cast<std::size_t>(place)];
}

void Wheels::read(const Pad& pad) {
    Rotetable = Wheelopen ? rsWheel : rowsOf(WheelFamily::Basic, std::to_string(pad.Redcnt));
    if (Wheeldan)
        mapBankers();
}

std::int64_t Wheels::rowsToRead(const Pad& pad) {
    return Wheelopen ? static_cast<std::int64_t>(rsWheel.size())
                     : rows(WheelFamily::Basic, std::to_string(pad.Redcnt)).value_or(0);
}

std::optional<WheelTable> Wheels::guaranteed(const Pad& pad) {
    const std::optional<WheelTable> table =
        Wheelopen ? m_chosen : wheelTableNamed(WheelFamily::Basic, std::to_string(pad.Redcnt));
    if (!table || table->family == WheelFamily::Seven || table->problem.positions != pad.Redcnt ||
        rowsToRead(pad) == 0)
        return std::nullopt;
    const bool bankers = table->family == WheelFamily::Banker;
    return bankers == Wheeldan && (!bankers || (table->bankers == pad.Dancnt && mapFits(pad))) ? table : std::nullopt;
}

/// Whether the positions stand for the numbers that are chosen now.
bool Wheels::mapFits(const Pad& pad) const {
    const auto drags = Rotemap.begin() + 1;
    return std::equal(drags, drags + pad.Redcnt, pad.Redlist.begin() + 1) &&
           std::equal(drags + pad.Redcnt, drags + pad.Redcnt + pad.Dancnt, pad.Danlist.begin() + 1);
}

void Wheels::mapBankers() {
    for (WheelRow& row : Rotetable) {
        for (int cell = 0; cell < kCells; ++cell) {
            std::int16_t& held = row[static_cast<std::size_t>(cell)];
            held = Rotemap[static_cast<std::size_t>(held)];
        }
        std::sort(row.begin(), row.begin() + kCells);
    }
}

Generated Wheel::fill(sql::Database& database, const TableShape& shape, workspace::Progress* progress) {
    m_wheels.read(m_pad);
    sql::TableHold former(database, shape.table);
    sql::passOver(database, "DROP TABLE [" + std::string(shape.table) + "]");
    sql::passOver(database, workspace::createCombinationTable(shape.table));
    const std::vector<std::int32_t> blues(m_pad.Bluelist.begin() + 1, m_pad.Bluelist.begin() + 1 + m_pad.Bluecnt);
    const auto sets = static_cast<std::int64_t>(m_wheels.Rotetable.size());
    RowWriter writer(database, shape, sets * (shape.blue ? m_pad.Bluecnt : 1), progress);
    std::int32_t line = 0;
    for (const WheelRow& row : m_wheels.Rotetable) {
        writer.writeNumbered(++line, numbersOf(row, m_pad, m_wheels.Wheeldan), blues);
        if (writer.isCancelled())
            return {.cancelled = true};
    }
    writer.finish();
    if (writer.isCancelled()) // the last block asks, too
        return {.cancelled = true};
    former.release();
    return {writer.rows(), writer.rows()};
}

} // namespace selection
