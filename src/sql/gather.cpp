#include "sql/gather.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "sql/lexer.h"
#include "sql/scalar.h"

namespace sql {

namespace {

class Collector {
  public:
    explicit Collector(Gathered& out) : m_out(out) {}

    void add(const Vec& vec, const std::uint64_t* chosen, std::size_t count) {
        const std::size_t before = m_out.size();
        if (vec.storage == Storage::Reals)
            forEachBit(chosen, count, [&](std::size_t row) { m_out.reals.push_back(vec.reals[row]); });
        else
            forEachBit(chosen, count, [&](std::size_t row) {
                m_out.ints.push_back(vec.storage == Storage::Ints ? vec.ints[row] : vec.codes[row]);
            });
        if (!vec.nulls) {
            if (!m_out.nulls.empty())
                m_out.nulls.resize(m_out.size(), 0);
            return;
        }
        m_out.nulls.resize(before, 0);
        forEachBit(chosen, count, [&](std::size_t row) { m_out.nulls.push_back(vec.nulls[row]); });
    }

  private:
    Gathered& m_out;
};

Gathered gatherPlanned(Planned planned, bool wholeNumbers, const Bitmap& chosen, const ColumnTable& table,
                       std::size_t batchRows) {
    Gathered out;
    out.storage = planned.storage;
    out.wholeNumbers = wholeNumbers;
    Collector collector(out);
    for (std::size_t first = 0; first < table.rows; first += batchRows) {
        const Batch batch{&table, first, std::min(batchRows, table.rows - first)};
        std::uint64_t bits[kBatchWords];
        chosen.read(first, batch.count, bits);
        if (std::any_of(bits, bits + wordsFor(batch.count), [](std::uint64_t word) { return word != 0; }))
            collector.add(planned.node->values(batch), bits, batch.count);
    }
    return out;
}

/// Place of each text among the different ones, in order and without regard to case; by code of the pool.
std::vector<double> textRanks(const TextPool& pool) {
    std::vector<std::string> folded;
    for (std::size_t code = 0; code < pool.size(); ++code)
        folded.push_back(foldedName(pool.text(static_cast<std::int32_t>(code))));
    std::vector<std::size_t> order(folded.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return folded[a] < folded[b]; });
    std::vector<double> ranks(folded.size());
    double rank = 0;
    for (std::size_t at = 0; at < order.size(); ++at) {
        if (at > 0 && folded[order[at]] != folded[order[at - 1]])
            ++rank;
        ranks[order[at]] = rank;
    }
    return ranks;
}

} // namespace

Gathered gather(const Expr& expr, const Bitmap& chosen, PlanContext& context, std::size_t batchRows) {
    return gatherPlanned(plan(expr, context), expr.type != ExprType::Real, chosen, context.table, batchRows);
}

Gathered gatherTexts(const Expr& expr, const Bitmap& chosen, PlanContext& context, std::size_t batchRows) {
    return gatherPlanned(planAsText(expr, context), true, chosen, context.table, batchRows);
}

OpenedItems::OpenedItems(const Select& select, const TableShape& shape) {
    for (const SelectItem& item : select.items) {
        if (!item.star) {
            m_items.push_back(item.expr.get());
            continue;
        }
        for (std::size_t place = 0; place < shape.columns.size(); ++place) {
            m_opened.push_back(columnExpr(shape, static_cast<int>(place)));
            m_items.push_back(m_opened.back().get());
        }
    }
}

std::vector<double> sortKeys(const Gathered& values, const TextPool& pool) {
    std::vector<double> keys(values.size());
    if (values.storage == Storage::Reals) {
        std::transform(values.reals.begin(), values.reals.end(), keys.begin(),
                       [](double real) { return real + 0.0; }); // -0 and 0 are one
    } else if (values.storage == Storage::Ints) {
        std::copy(values.ints.begin(), values.ints.end(), keys.begin());
    } else {
        const std::vector<double> ranks = textRanks(pool);
        for (std::size_t at = 0; at < keys.size(); ++at)
            if (!values.isNull(at))
                keys[at] = ranks[static_cast<std::size_t>(values.ints[at])];
    }
    for (std::size_t at = 0; at < values.nulls.size(); ++at)
        if (values.nulls[at])
            keys[at] = -std::numeric_limits<double>::infinity();
    return keys;
}

ValueSet valueSet(const Gathered& values, const TextPool& pool) {
    ValueSet set;
    set.hasNull = std::find(values.nulls.begin(), values.nulls.end(), 1) != values.nulls.end();
    std::vector<std::uint8_t> seen(values.storage == Storage::Texts ? pool.size() : 0);
    for (std::size_t at = 0; at < values.size(); ++at) {
        if (values.isNull(at))
            continue;
        if (values.storage == Storage::Reals)
            set.numbers.insert(values.reals[at]);
        else if (values.storage == Storage::Ints)
            set.numbers.insert(values.ints[at]);
        else if (!std::exchange(seen[static_cast<std::size_t>(values.ints[at])], 1))
            set.texts.insert(foldedName(pool.text(values.ints[at])));
    }
    return set;
}

} // namespace sql
