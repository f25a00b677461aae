#include "sql/column_query.h"

#include <bit>
#include <numeric>

#include "sql/gather.h"
#include "sql/scalar.h"

namespace sql {

namespace {

ValueSet runSubselect(const Select& select, const QueryTools& tools) {
    const std::shared_ptr<ColumnTable> table = tools.lookup(select.from);
    const Bitmap chosen = chosenRows(*table, select.where.get(), tools);
    TextPool pool;
    PlanContext context = planContext(*table, pool, tools);
    const OpenedItems opened(select, table->shape());
    return valueSet(gather(*opened.items()[0], chosen, context, tools.batchRows), pool);
}

std::optional<NumberKeys> runSubselectOfNumbers(const Select& select, const TextRecipe& recipe,
                                                const QueryTools& tools) {
    const std::shared_ptr<ColumnTable> table = tools.lookup(select.from);
    const OpenedItems opened(select, table->shape());
    const Expr& item = *opened.items()[0];
    if (item.kind != ExprKind::Column)
        return std::nullopt;
    const std::shared_ptr<const TextRecipe> other = table->columns[static_cast<std::size_t>(item.column)].recipe;
    if (!other || !sameNumbersSameText(recipe, *other))
        return std::nullopt;
    return NumberKeys::of(*table, *other, chosenRows(*table, select.where.get(), tools));
}

using Keys = std::vector<double>;

/// Sort keys of every item of the list, `*` opened up.
std::vector<Keys> itemKeys(const Select& select, const Bitmap& chosen, ColumnTable& table, const QueryTools& tools) {
    std::vector<Keys> keys;
    const OpenedItems opened(select, table.shape());
    for (const Expr* item : opened.items()) {
        TextPool pool;
        PlanContext context = planContext(table, pool, tools);
        keys.push_back(sortKeys(gather(*item, chosen, context, tools.batchRows), pool));
    }
    return keys;
}

/// The first place of each different row, in order: open addressing over places, half full at most.
std::vector<std::uint32_t> distinctPlaces(const std::vector<Keys>& keys) {
    const std::size_t count = keys.empty() ? 0 : keys[0].size();
    constexpr std::uint32_t kFree = ~std::uint32_t{0};
    std::vector<std::uint32_t> slots(std::bit_ceil(2 * count + 1), kFree);
    std::vector<std::uint32_t> kept;
    for (std::uint32_t place = 0; place < count; ++place) {
        std::uint64_t hash = 0;
        for (const Keys& key : keys) {
            hash = (hash ^ std::bit_cast<std::uint64_t>(key[place])) * 0x9E3779B97F4A7C15ULL;
            hash ^= hash >> 32; // a small whole number is all in its upper bits, and a product never moves them down
        }
        for (std::size_t at = hash & (slots.size() - 1);; at = (at + 1) & (slots.size() - 1)) {
            if (slots[at] == kFree) {
                slots[at] = place;
                kept.push_back(place);
                break;
            }
            if (std::all_of(keys.begin(), keys.end(), [&](const Keys& key) { return key[place] == key[slots[at]]; }))
                break;
        }
    }
    return kept;
}

std::vector<Keys> orderKeys(const Select& select, const Bitmap& chosen, ColumnTable& table, const QueryTools& tools) {
    std::vector<Keys> keys;
    for (const OrderItem& order : select.order) {
        const Expr& expr = *order.expr;
        const auto* place = std::get_if<std::int64_t>(&expr.literal);
        if (expr.kind == ExprKind::Literal && place) {
            keys.push_back(itemKeys(select, chosen, table, tools)[static_cast<std::size_t>(*place - 1)]);
            continue;
        }
        TextPool pool;
        PlanContext context = planContext(table, pool, tools);
        keys.push_back(sortKeys(gather(expr, chosen, context, tools.batchRows), pool));
    }
    return keys;
}

void sortPlaces(const Select& select, const std::vector<Keys>& keys, std::vector<std::uint32_t>& places) {
    std::stable_sort(places.begin(), places.end(), [&](std::uint32_t a, std::uint32_t b) {
        for (std::size_t item = 0; item < keys.size(); ++item)
            if (keys[item][a] != keys[item][b])
                return (keys[item][a] < keys[item][b]) != select.order[item].descending;
        return false;
    });
}

} // namespace

PlanContext planContext(ColumnTable& table, TextPool& pool, const QueryTools& tools) {
    return {table,
            pool,
            [tools](const Select& select) { return runSubselect(select, tools); },
            [tools](const Select& select, const TextRecipe& recipe) {
                return runSubselectOfNumbers(select, recipe, tools);
            },
            tools.evaluations,
            tools.textBytes};
}

Bitmap chosenRows(ColumnTable& table, const Expr* where, const QueryTools& tools) {
    if (!where)
        return Bitmap(table.rows, true);
    Bitmap chosen(table.rows);
    TextPool pool;
    PlanContext context = planContext(table, pool, tools);
    const NodePtr node = plan(*where, context).node;
    forEachBatch(table, tools.batchRows, node.get(), [&](const Batch& batch, const std::uint64_t* bits) {
        chosen.write(batch.first, batch.count, bits, bits);
    });
    return chosen;
}

RowPlaces rowsOf(ColumnTable& table, const Select& select, const QueryTools& tools) {
    if (!select.where && !select.distinct && select.order.empty())
        return RowPlaces(table.rows);
    Bitmap chosen = chosenRows(table, select.where.get(), tools);
    if (!select.distinct && select.order.empty())
        return RowPlaces(std::move(chosen));
    const std::vector<std::uint32_t> rows = RowPlaces(chosen).list();
    std::vector<std::uint32_t> places;
    if (select.distinct) {
        places = distinctPlaces(itemKeys(select, chosen, table, tools));
    } else {
        places.resize(rows.size());
        std::iota(places.begin(), places.end(), 0U);
    }
    if (!select.order.empty())
        sortPlaces(select, orderKeys(select, chosen, table, tools), places);
    for (std::uint32_t& place : places)
        place = rows[place];
    return RowPlaces(std::move(places));
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

    void add(const Gathered& values, const TextPool& pool) {
        for (std::size_t at = 0; at < values.size(); ++at) {
            if (values.isNull(at))
                continue;
            ++count;
            if (values.storage == Storage::Texts)
                addText(pool.text(values.ints[at]));
            else
                addNumber(values.storage == Storage::Ints ? values.ints[at] : values.reals[at]);
        }
        if (count == 0 || values.storage == Storage::Texts)
            return;
        low = values.wholeNumbers ? Value(static_cast<std::int64_t>(least)) : Value(least + 0.0); // no -0
        high = values.wholeNumbers ? Value(static_cast<std::int64_t>(most)) : Value(most + 0.0);
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

  private:
    double least = 0;
    double most = 0;

    void addNumber(double number) {
        least = count == 1 ? number : std::min(least, number);
        most = count == 1 ? number : std::max(most, number);
        sum += number;
    }
    void addText(const std::string& text) {
        if (count == 1 || compareText(text, std::get<std::string>(low)) < 0)
            low = text;
        if (count == 1 || compareText(text, std::get<std::string>(high)) > 0)
            high = text;
    }
};

void collectAggregates(Expr& expr, std::vector<Expr*>& found) {
    if (expr.kind == ExprKind::Aggregate)
        return found.push_back(&expr);
    for (const ExprPtr& arg : expr.args)
        collectAggregates(*arg, found);
}

} // namespace

std::shared_ptr<const Rows::Source> aggregateRow(ColumnTable& table, Select&& select, const QueryTools& tools) {
    std::vector<Expr*> aggregates;
    std::vector<std::string> names;
    for (const ResultColumn& column : resultColumns(select, table.shape()))
        names.push_back(column.name);
    for (SelectItem& item : select.items)
        collectAggregates(*item.expr, aggregates);
    const Bitmap chosen = chosenRows(table, select.where.get(), tools);
    for (Expr* aggregate : aggregates) {
        Tally tally;
        if (aggregate->aggregate == AggregateId::CountRows) {
            tally.count = static_cast<std::int64_t>(chosen.count());
        } else {
            TextPool pool;
            PlanContext context = planContext(table, pool, tools);
            tally.add(gather(*aggregate->args[0], chosen, context, tools.batchRows), pool);
        }
        aggregate->literal = tally.result(aggregate->aggregate);
        aggregate->kind = ExprKind::Literal;
    }
    std::vector<Value> values;
    for (const SelectItem& item : select.items)
        values.push_back(evaluate(*item.expr, [](int) { return Value(); }));
    return oneRow(std::move(names), std::move(values));
}

} // namespace sql
