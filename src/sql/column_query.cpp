#include "sql/column_query.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <unordered_map>

#include "sql/lexer.h"
#include "sql/scalar.h"

namespace sql {

namespace {

void addTo(ValueSet& set, const Value& value) {
    if (isNull(value))
        set.hasNull = true;
    else if (const auto* text = std::get_if<std::string>(&value))
        set.texts.insert(foldedName(*text));
    else
        set.numbers.insert(toReal(value));
}

ValueSet runSubselect(const Select& select, const TableLookup& lookup, std::size_t batchRows) {
    const std::shared_ptr<ColumnTable> table = lookup(select.from);
    const Bitmap chosen = chosenRows(*table, select.where.get(), lookup, batchRows);
    ValueSet set;
    const Expr* item = select.items[0].star ? nullptr : select.items[0].expr.get();
    forEachBit(chosen.words().data(), chosen.size(), [&](std::size_t row) {
        addTo(set, item ? evaluate(*item, [&](int column) { return table->at(row, column); }) : table->at(row, 0));
    });
    return set;
}

/// The items of a select as accessors of a row.
std::vector<std::function<Value(std::size_t)>> itemsOf(const Select& select, const ColumnTable& table) {
    std::vector<std::function<Value(std::size_t)>> items;
    for (const SelectItem& item : select.items) {
        if (item.star) {
            for (std::size_t column = 0; column < table.columns.size(); ++column)
                items.emplace_back([&table, column](std::size_t row) { return table.columns[column].at(row); });
            continue;
        }
        const Expr* expr = item.expr.get();
        items.emplace_back([&table, expr](std::size_t row) {
            return evaluate(*expr, [&](int column) { return table.at(row, column); });
        });
    }
    return items;
}

/// A value as eight bytes that are equal for equal values: distinct rows are found by these.
class KeyMaker {
  public:
    std::uint64_t keyOf(const Value& value) {
        if (isNull(value))
            return ~0ULL;
        if (const auto* text = std::get_if<std::string>(&value))
            return static_cast<std::uint64_t>(m_texts.intern(foldedName(*text)));
        return std::bit_cast<std::uint64_t>(toReal(value) + 0.0);
    }

  private:
    TextPool m_texts;
};

std::vector<std::uint32_t> distinctRows(const Select& select, const ColumnTable& table,
                                        const std::vector<std::uint32_t>& rows) {
    const auto items = itemsOf(select, table);
    KeyMaker keys;
    std::unordered_map<std::string, bool> seen;
    std::vector<std::uint32_t> kept;
    std::string key;
    for (const std::uint32_t row : rows) {
        key.clear();
        for (const auto& item : items) {
            const std::uint64_t part = keys.keyOf(item(row));
            key.append(reinterpret_cast<const char*>(&part), sizeof part);
        }
        if (seen.emplace(key, true).second)
            kept.push_back(row);
    }
    return kept;
}

/// Sort keys of one ORDER BY item, one a row of the list; Null sorts before everything.
std::vector<double> sortKeys(const std::function<Value(std::size_t)>& item, const std::vector<std::uint32_t>& rows) {
    std::vector<double> keys(rows.size());
    std::vector<std::pair<std::string, std::size_t>> texts;
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const Value value = item(rows[place]);
        if (const auto* text = std::get_if<std::string>(&value))
            texts.emplace_back(foldedName(*text), place);
        else
            keys[place] = isNull(value) ? -std::numeric_limits<double>::infinity() : toReal(value);
    }
    std::sort(texts.begin(), texts.end());
    double rank = 0;
    for (std::size_t at = 0; at < texts.size(); ++at) {
        if (at > 0 && texts[at].first != texts[at - 1].first)
            ++rank;
        keys[texts[at].second] = rank;
    }
    return keys;
}

std::vector<std::uint32_t> orderedRows(const Select& select, const ColumnTable& table,
                                       std::vector<std::uint32_t> rows) {
    const auto items = itemsOf(select, table);
    std::vector<std::vector<double>> keys;
    for (const OrderItem& order : select.order) {
        const Expr* expr = order.expr.get();
        const bool isPlace = expr->kind == ExprKind::Literal && std::holds_alternative<std::int64_t>(expr->literal);
        keys.push_back(sortKeys(
            isPlace ? items[static_cast<std::size_t>(std::get<std::int64_t>(expr->literal) - 1)]
                    : [&](std::size_t row) {
                          return evaluate(*expr, [&](int column) { return table.at(row, column); });
                      },
            rows));
    }
    std::vector<std::uint32_t> order(rows.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        for (std::size_t item = 0; item < keys.size(); ++item)
            if (keys[item][a] != keys[item][b])
                return (keys[item][a] < keys[item][b]) != select.order[item].descending;
        return false;
    });
    for (std::uint32_t& place : order)
        place = rows[place];
    return order;
}

} // namespace

PlanContext planContext(const ColumnTable& table, TextPool& pool, TableLookup lookup, std::size_t batchRows) {
    return {table, pool,
            [lookup = std::move(lookup), batchRows](const Select& select) {
                return runSubselect(select, lookup, batchRows);
            }};
}

Bitmap chosenRows(const ColumnTable& table, const Expr* where, const TableLookup& lookup, std::size_t batchRows) {
    if (!where)
        return Bitmap(table.rows, true);
    Bitmap chosen(table.rows);
    TextPool pool;
    PlanContext context = planContext(table, pool, lookup, batchRows);
    const NodePtr node = plan(*where, context).node;
    forEachBatch(table, batchRows, node.get(), [&](const Batch& batch, const std::uint64_t* bits) {
        chosen.write(batch.first, batch.count, bits, bits);
    });
    return chosen;
}

RowPlaces rowsOf(const std::shared_ptr<ColumnTable>& table, const Select& select, const TableLookup& lookup,
                 std::size_t batchRows) {
    if (!select.where && !select.distinct && select.order.empty())
        return RowPlaces(table->rows);
    RowPlaces chosen(chosenRows(*table, select.where.get(), lookup, batchRows));
    if (!select.distinct && select.order.empty())
        return chosen;
    std::vector<std::uint32_t> rows = chosen.list();
    if (select.distinct)
        rows = distinctRows(select, *table, rows);
    if (!select.order.empty())
        rows = orderedRows(select, *table, std::move(rows));
    return RowPlaces(std::move(rows));
}

bool isAggregate(const Select& select) {
    return std::any_of(select.items.begin(), select.items.end(),
                       [](const SelectItem& item) { return item.expr && hasAggregate(*item.expr); });
}

namespace {

/// Running result of one aggregate.
struct Tally {
    std::int64_t count = 0;
    double sum = 0;
    Value low;
    Value high;

    void add(const Value& value) {
        if (isNull(value))
            return;
        ++count;
        if (const auto* text = std::get_if<std::string>(&value)) {
            if (isNull(low) || compareText(*text, std::get<std::string>(low)) < 0)
                low = value;
            if (isNull(high) || compareText(*text, std::get<std::string>(high)) > 0)
                high = value;
            return;
        }
        const double number = toReal(value);
        sum += number;
        if (isNull(low) || number < toReal(low))
            low = value;
        if (isNull(high) || number > toReal(high))
            high = value;
    }

    /// `rows` numbers at once, from a batch.
    void addBatch(const Vec& vec, const std::uint64_t* chosen, std::size_t rows, const Expr& arg, const TextPool& pool) {
        forEachBit(chosen, rows, [&](std::size_t row) {
            if (vec.nulls && vec.nulls[row])
                return;
            if (vec.storage == Storage::Texts)
                add(pool.text(vec.codes[row]));
            else if (vec.storage == Storage::Ints)
                add(std::int64_t{vec.ints[row]});
            else
                add(arg.type == ExprType::Real ? Value(vec.reals[row] + 0.0) // no -0
                                               : Value(static_cast<std::int64_t>(vec.reals[row])));
        });
    }

    Value result(AggregateId id) const {
        switch (id) {
        case AggregateId::CountRows:
        case AggregateId::Count:
            return count;
        case AggregateId::Min:
            return low;
        case AggregateId::Max:
            return high;
        case AggregateId::Sum:
            return count ? Value(sum) : Value();
        case AggregateId::Avg:
            return count ? Value(sum / static_cast<double>(count)) : Value();
        }
        return {};
    }
};

void collectAggregates(Expr& expr, std::vector<Expr*>& found) {
    if (expr.kind == ExprKind::Aggregate)
        return found.push_back(&expr);
    for (const ExprPtr& arg : expr.args)
        collectAggregates(*arg, found);
}

} // namespace

std::shared_ptr<const Rows::Source> aggregateRow(const std::shared_ptr<ColumnTable>& table, Select&& select,
                                                 const TableLookup& lookup, std::size_t batchRows) {
    std::vector<Expr*> aggregates;
    std::vector<std::string> names;
    for (const ResultColumn& column : resultColumns(select, table->shape()))
        names.push_back(column.name);
    for (SelectItem& item : select.items)
        collectAggregates(*item.expr, aggregates);
    const Bitmap chosen = chosenRows(*table, select.where.get(), lookup, batchRows);
    for (Expr* aggregate : aggregates) {
        Tally tally;
        if (aggregate->aggregate == AggregateId::CountRows) {
            tally.count = static_cast<std::int64_t>(chosen.count());
        } else {
            TextPool pool;
            PlanContext context = planContext(*table, pool, lookup, batchRows);
            const Expr& arg = *aggregate->args[0];
            const Planned planned = plan(arg, context);
            forEachBatch(*table, batchRows, nullptr, [&](const Batch& batch, const std::uint64_t*) {
                std::uint64_t bits[kBatchWords];
                chosen.read(batch.first, batch.count, bits);
                tally.addBatch(planned.node->values(batch), bits, batch.count, arg, pool);
            });
        }
        aggregate->literal = tally.result(aggregate->aggregate);
        aggregate->kind = ExprKind::Literal;
    }
    std::vector<Value> values;
    for (const SelectItem& item : select.items)
        values.push_back(evaluate(*item.expr, [](int) { return Value(); }));
    return oneRow(std::move(names), std::move(values));
}

namespace {

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

/// Rows of a column of whole numbers into one of the same type, in blocks.
void gatherNumbers(Column& target, std::size_t size, const Column& source, const std::vector<std::uint32_t>& rows) {
    std::vector<std::int32_t> block;
    for (std::size_t first = 0; first < rows.size(); first += kChunkRows) {
        const std::size_t count = std::min(kChunkRows, rows.size() - first);
        block.resize(count);
        for (std::size_t at = 0; at < count; ++at)
            block[at] = source.numbers.get(rows[first + at]);
        target.numbers.append(block);
    }
    target.nulls.append(size, rows.size(), false);
    if (source.nulls.none())
        return;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        const std::uint64_t one = 1;
        if (source.nulls.get(rows[at]))
            target.nulls.write(size + at, 1, &one, &one, size + rows.size());
    }
}

} // namespace

void appendGathered(ColumnTable& target, const std::vector<int>& places, const ColumnTable& source,
                    const Select& select, const std::vector<std::uint32_t>& rows) {
    if (rows.empty())
        return;
    const auto items = itemsOf(select, source);
    std::vector<bool> given(target.columns.size());
    for (std::size_t item = 0; item < items.size(); ++item) {
        Column& column = target.columns[static_cast<std::size_t>(places[item])];
        given[static_cast<std::size_t>(places[item])] = true;
        const bool oneItemEach = items.size() == select.items.size();
        const Expr* expr = oneItemEach ? select.items[item].expr.get() : nullptr;
        const Column* plain = nullptr;
        if (expr && expr->kind == ExprKind::Column)
            plain = &source.columns[static_cast<std::size_t>(expr->column)];
        if (plain && plain != &column && plain->def.type == ColumnType::Integer &&
            column.def.type == ColumnType::Integer)
            gatherNumbers(column, target.rows, *plain, rows);
        else
            for (std::size_t at = 0; at < rows.size(); ++at)
                appendValue(column, target.rows + at, items[item](rows[at]));
        column.markDirty(target.rows, rows.size());
    }
    for (std::size_t place = 0; place < target.columns.size(); ++place)
        if (!given[place])
            target.columns[place].appendDefaults(target.rows, rows.size());
    target.rows += rows.size();
    target.shapeDirty = true;
}

void appendRow(ColumnTable& table, const std::vector<std::pair<int, Value>>& fields) {
    std::vector<Value> values(table.columns.size());
    for (const auto& [place, value] : fields)
        values[static_cast<std::size_t>(place)] = value;
    for (std::size_t place = 0; place < values.size(); ++place)
        appendValue(table.columns[place], table.rows, values[place]);
    ++table.rows;
    table.shapeDirty = true;
}

void writeValue(ColumnTable& table, std::size_t row, int place, const Value& given) {
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
    for (Column& column : table.columns) {
        Column kept;
        kept.def = column.def;
        kept.id = column.id;
        kept.nulls.setAll();
        for (std::size_t at = 0; at < rows.size(); ++at)
            appendValue(kept, at, column.at(rows[at]));
        kept.dictionaryReplaced = true;
        kept.markAllDirty(rows.size());
        column = std::move(kept);
    }
    table.rows = rows.size();
    table.shapeDirty = true;
}

} // namespace sql
