#include "sql/column_change.h"

#include <cmath>

#include "base/number_text.h"
#include "sql/gather.h"
#include "sql/scalar.h"
#include "sql/text_recipe.h"

namespace sql {

namespace {

/// A bitmap with just these rows set.
Bitmap bitmapOf(const std::vector<std::uint32_t>& rows, std::size_t size) {
    Bitmap chosen(size);
    for (const std::uint32_t row : rows)
        chosen.set(row, true);
    return chosen;
}

/// Values were gathered in the order of the table; this is the place of each wanted row among them.
std::vector<std::uint32_t> placesAmong(const std::vector<std::uint32_t>& rows, const Bitmap& chosen) {
    std::vector<std::uint32_t> placeOfRow(chosen.size());
    std::uint32_t place = 0;
    forEachBit(chosen.words().data(), chosen.size(), [&](std::size_t row) { placeOfRow[row] = place++; });
    std::vector<std::uint32_t> places;
    places.reserve(rows.size());
    for (const std::uint32_t row : rows)
        places.push_back(placeOfRow[row]);
    return places;
}

class Appender {
  public:
    Appender(Column& column, std::size_t size, const Gathered& values, const TextPool& pool)
        : m_column(column), m_size(size), m_values(values), m_pool(pool) {}

    void append(const std::vector<std::uint32_t>& places) {
        switch (m_column.def.type) {
        case ColumnType::Bit:
            appendBits(places);
            break;
        case ColumnType::Real:
            for (const std::uint32_t place : places)
                m_column.reals.push_back(number(place));
            appendNulls(places, [&](std::uint32_t place) { return m_values.isNull(place); });
            break;
        case ColumnType::Text:
            appendTexts(places);
            break;
        case ColumnType::Integer:
        case ColumnType::Short:
            appendNumbers(places);
            break;
        }
        m_column.markDirty(m_size, places.size());
    }

  private:
    double number(std::uint32_t place) const {
        return m_values.storage == Storage::Ints ? m_values.ints[place] : m_values.reals[place];
    }

    void appendBits(const std::vector<std::uint32_t>& places) {
        m_column.bits.resize(m_size + places.size());
        for (std::size_t at = 0; at < places.size(); ++at)
            if (!m_values.isNull(places[at]) && number(places[at]) != 0)
                m_column.bits.set(m_size + at, true);
    }

    template <class IsNullAt> void appendNulls(const std::vector<std::uint32_t>& places, IsNullAt isNullAt) {
        m_column.nulls.append(m_size, places.size(), false);
        const std::uint64_t one = 1;
        for (std::size_t at = 0; at < places.size(); ++at)
            if (isNullAt(places[at]))
                m_column.nulls.write(m_size + at, 1, &one, &one, m_size + places.size());
    }

    void appendNumbers(const std::vector<std::uint32_t>& places) {
        const double low = m_column.def.type == ColumnType::Short ? -32768.0 : kIntegerLow;
        const double high = m_column.def.type == ColumnType::Short ? 32767.0 : kIntegerHigh;
        const auto known = [&](std::uint32_t place) {
            const double whole = base::roundHalfEven(number(place));
            return !m_values.isNull(place) && whole >= low && whole <= high;
        };
        std::vector<std::int32_t> numbers;
        numbers.reserve(places.size());
        std::int32_t filler = m_column.numbers.low(); // under a Null stands a number that is there anyway
        for (const std::uint32_t place : places)
            if (known(place))
                filler = static_cast<std::int32_t>(base::roundHalfEven(number(place)));
        for (const std::uint32_t place : places)
            numbers.push_back(known(place) ? static_cast<std::int32_t>(base::roundHalfEven(number(place))) : filler);
        m_column.numbers.append(numbers);
        appendNulls(places, [&](std::uint32_t place) { return !known(place); });
    }

    void appendTexts(const std::vector<std::uint32_t>& places) {
        std::vector<std::int32_t> codeOf(m_pool.size(), -1);
        std::vector<std::int32_t> codes;
        codes.reserve(places.size());
        for (const std::uint32_t place : places) {
            if (m_values.isNull(place)) {
                codes.push_back(0);
                continue;
            }
            std::int32_t& code = codeOf[static_cast<std::size_t>(m_values.ints[place])];
            if (code < 0)
                code = m_column.dictionary->intern(cutText(m_pool.text(m_values.ints[place])));
            codes.push_back(code);
        }
        m_column.numbers.append(codes);
        appendNulls(places, [&](std::uint32_t place) { return m_values.isNull(place); });
    }

    Column& m_column;
    std::size_t m_size;
    const Gathered& m_values;
    const TextPool& m_pool;
};

void appendValue(Column& column, std::size_t rows, const Value& given) {
    const Value value = storedValue(given, column.def.type);
    column.markDirty(rows, 1);
    if (column.def.type == ColumnType::Bit) {
        column.bits.resize(rows + 1);
        column.bits.set(rows, toInteger(value) != 0);
        return;
    }
    if (column.def.type == ColumnType::Real)
        column.reals.push_back(toReal(value));
    else if (isNull(value))
        column.numbers.appendCopies(1, column.numbers.low());
    else {
        const std::int32_t number = column.def.type == ColumnType::Text
                                        ? column.dictionary->intern(std::get<std::string>(value))
                                        : static_cast<std::int32_t>(toInteger(value));
        column.numbers.append(std::span(&number, 1));
    }
    column.nulls.append(rows, 1, isNull(value));
}

} // namespace

void appendSelected(ColumnTable& target, const std::vector<int>& places, ColumnTable& source, const Select& select,
                    const QueryTools& tools) {
    const std::vector<std::uint32_t> rows = rowsOf(source, select, tools).list();
    if (rows.empty())
        return;
    requireRoom(target, rows.size());
    settleTexts(target);
    const Bitmap chosen = bitmapOf(rows, source.rows);
    const std::vector<std::uint32_t> order = placesAmong(rows, chosen);
    TextPool pool;
    PlanContext context = planContext(source, pool, tools);
    std::vector<Gathered> items; // all of them first: the target may be the source
    const OpenedItems opened(select, source.shape());
    for (std::size_t item = 0; item < opened.items().size(); ++item) {
        const bool isText = target.columns[static_cast<std::size_t>(places[item])].def.type == ColumnType::Text;
        const Expr& expr = *opened.items()[item];
        items.push_back(isText ? gatherTexts(expr, chosen, context, tools.batchRows)
                               : gather(expr, chosen, context, tools.batchRows));
    }
    std::vector<bool> given(target.columns.size());
    for (std::size_t item = 0; item < items.size(); ++item) {
        const auto place = static_cast<std::size_t>(places[item]);
        if (given[place])
            continue; // named twice: the first one counts
        Appender(target.columns[place], target.rows, items[item], pool).append(order);
        given[place] = true;
    }
    for (std::size_t place = 0; place < target.columns.size(); ++place)
        if (!given[place])
            target.columns[place].appendDefaults(target.rows, rows.size());
    target.rows += rows.size();
    target.shapeDirty = true;
}

void appendRow(ColumnTable& table, const std::vector<std::pair<int, Value>>& fields) {
    settleTexts(table);
    std::vector<Value> values(table.columns.size());
    for (const auto& [place, value] : fields)
        values[static_cast<std::size_t>(place)] = value;
    for (std::size_t place = 0; place < values.size(); ++place)
        appendValue(table.columns[place], table.rows, values[place]);
    ++table.rows;
    table.shapeDirty = true;
}

void writeValue(ColumnTable& table, std::size_t row, int place, const Value& given) {
    settleTexts(table);
    Column& column = table.columns[static_cast<std::size_t>(place)];
    const Value value = storedValue(given, column.def.type);
    column.markDirty(row, 1);
    if (column.def.type == ColumnType::Bit)
        return column.bits.set(row, toInteger(value) != 0);
    const std::uint64_t one = 1;
    column.nulls.write(row, 1, isNull(value) ? &one : nullptr, &one, table.rows);
    if (isNull(value))
        return;
    if (column.def.type == ColumnType::Real) {
        column.reals[row] = toReal(value);
        return;
    }
    const std::int32_t number = column.def.type == ColumnType::Text
                                    ? column.dictionary->intern(std::get<std::string>(value))
                                    : static_cast<std::int32_t>(toInteger(value));
    column.numbers.makeRoom(number, number);
    column.numbers.write(row, 1, &number, nullptr);
}

void keepRows(ColumnTable& table, const std::vector<std::uint32_t>& rows) {
    settleTexts(table);
    const std::size_t before = table.rows;
    std::vector<Column> old = std::move(table.columns);
    table.columns.clear();
    table.rows = 0;
    for (Column& column : old) {
        Column kept;
        kept.def = column.def;
        kept.id = column.id;
        kept.nulls.setAll();
        kept.dictionaryReplaced = true;
        TextPool pool;
        Gathered values;
        values.storage = column.def.type == ColumnType::Real   ? Storage::Reals
                         : column.def.type == ColumnType::Text ? Storage::Texts
                                                               : Storage::Ints;
        for (std::size_t row = 0; row < before && column.def.type != ColumnType::Bit; ++row)
            values.nulls.push_back(column.nulls.get(row));
        if (column.def.type == ColumnType::Bit)
            for (std::size_t row = 0; row < before; ++row)
                values.ints.push_back(column.bits.get(row) ? -1 : 0);
        else if (column.def.type == ColumnType::Real)
            values.reals = column.reals;
        else {
            values.ints.resize(before);
            column.numbers.read(0, before, values.ints.data());
        }
        Appender(kept, 0, values, *column.dictionary).append(rows);
        kept.markAllDirty(rows.size());
        table.columns.push_back(std::move(kept));
    }
    table.rows = rows.size();
    table.shapeDirty = true;
}

} // namespace sql
