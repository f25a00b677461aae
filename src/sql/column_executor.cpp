#include "sql/column_executor.h"

#include <algorithm>

#include "sql/column_change.h"
#include "sql/column_compute.h"
#include "sql/column_file.h"
#include "sql/column_query.h"
#include "sql/column_write.h"
#include "sql/lexer.h"
#include "sql/scalar.h"
#include "sql/text_recipe.h"

namespace sql {

struct ColumnExecutor::State {
    State(std::shared_ptr<SqliteFile> sqlite, std::size_t rows, std::size_t bytes)
        : file(std::move(sqlite)), batchRows(rows), textBytes(bytes) {}

    ColumnFile file;
    std::size_t batchRows;
    std::size_t textBytes;
    std::int64_t evaluations = 0;

    std::shared_ptr<ColumnTable> table(const std::string& name) {
        if (std::shared_ptr<ColumnTable> found = file.find(name))
            return found;
        throw SqlError(error::kTableNotFound, "找不到表 " + name);
    }
    QueryTools tools() {
        return {[this](const std::string& name) { return table(name); }, batchRows, &evaluations, textBytes};
    }

    void create(const Statement& bound);
    void addColumn(const Statement& bound);
    void dropColumn(const Statement& bound);
    void update(const Statement& bound);
    void insertValues(const Statement& bound);
    void remove(const Statement& bound);
    void insert(const Statement& bound);
    bool updateByRecipe(ColumnTable& target, const Statement& bound);
    bool updateByConstants(ColumnTable& target, const Statement& bound);
    void selectInto(const Select& select);
    std::shared_ptr<ColumnTable> makeTable(const std::string& name, const std::vector<ColumnDef>& columns);
};

ColumnExecutor::ColumnExecutor(std::shared_ptr<SqliteFile> file, std::size_t batchRows, std::size_t textBytes)
    : m_state(
          std::make_unique<State>(std::move(file), std::clamp<std::size_t>(batchRows, 1, kBatchLimit), textBytes)) {}
ColumnExecutor::~ColumnExecutor() = default;

bool ColumnExecutor::hasTable(const std::string& table) const {
    return m_state->file.has(table);
}
TableShape ColumnExecutor::shape(const std::string& table) const {
    return m_state->table(table)->shape();
}
std::int64_t ColumnExecutor::rowCount(const std::string& table) const {
    return static_cast<std::int64_t>(m_state->table(table)->rows);
}
void ColumnExecutor::store() {
    m_state->file.store();
}
bool ColumnExecutor::storePending() const {
    return m_state->file.storePending();
}
std::int64_t ColumnExecutor::evaluations() const {
    return m_state->evaluations;
}

void ColumnExecutor::execute(Statement& bound) {
    switch (bound.kind) {
    case StatementKind::Create:
        return m_state->create(bound);
    case StatementKind::Drop:
        m_state->table(bound.table);
        return m_state->file.drop(bound.table);
    case StatementKind::AddColumn:
        return m_state->addColumn(bound);
    case StatementKind::DropColumn:
        return m_state->dropColumn(bound);
    case StatementKind::Update:
        return m_state->update(bound);
    case StatementKind::Insert:
        return m_state->insert(bound);
    case StatementKind::InsertValues:
        return m_state->insertValues(bound);
    case StatementKind::Delete:
        return m_state->remove(bound);
    case StatementKind::Select:
        if (!bound.select.into.empty())
            m_state->selectInto(bound.select);
        return;
    }
}

std::shared_ptr<ColumnTable> ColumnExecutor::State::makeTable(const std::string& name,
                                                              const std::vector<ColumnDef>& columns) {
    if (file.has(name))
        throw SqlError(error::kTableExists, "表已经存在 " + name);
    auto made = std::make_shared<ColumnTable>();
    made->name = name;
    for (const ColumnDef& def : columns) {
        if (made->shape().find(def.name) >= 0)
            throw SqlError(error::kColumnExists, "字段已经存在 " + def.name);
        Column column;
        column.def = def;
        column.nulls.setAll();
        made->columns.push_back(std::move(column));
    }
    return made;
}

void ColumnExecutor::State::create(const Statement& bound) {
    file.add(makeTable(bound.table, bound.columns));
}

void ColumnExecutor::State::addColumn(const Statement& bound) {
    ColumnTable& target = *table(bound.table);
    const ColumnDef& def = bound.columns[0];
    if (target.shape().find(def.name) >= 0)
        throw SqlError(error::kColumnExists, "字段已经存在 " + def.name);
    Column column;
    column.def = def;
    column.appendDefaults(0, target.rows);
    target.columns.push_back(std::move(column));
    target.shapeDirty = true;
}

void ColumnExecutor::State::dropColumn(const Statement& bound) {
    ColumnTable& target = *table(bound.table);
    const int place = target.shape().find(bound.column);
    if (place < 0)
        throw SqlError(error::kColumnMissing, "找不到字段 " + bound.column);
    if (target.columns.size() == 1)
        throw SqlError(error::kStorage, "表至少要有一个字段 " + bound.column);
    settleReadersOf(target, place);
    target.columns.erase(target.columns.begin() + place);
    closeGap(target, place);
    target.shapeDirty = true;
}

void ColumnExecutor::State::update(const Statement& bound) {
    ColumnTable& target = *table(bound.table);
    if (updateByRecipe(target, bound))
        return;
    for (const Assignment& assignment : bound.assignments) {
        settleReadersOf(target, assignment.place);
        if (bound.where)
            settleText(target, assignment.place);
    }
    if (updateByConstants(target, bound))
        return;
    TextPool pool;
    PlanContext context = planContext(target, pool, tools());
    NodePtr where = bound.where ? plan(*bound.where, context).node : nullptr;
    std::vector<ColumnWriter> writers;
    writers.reserve(bound.assignments.size());
    for (const Assignment& assignment : bound.assignments)
        writers.emplace_back(target, assignment.place, *assignment.value, context, !where);
    forEachBatch(target, batchRows, where.get(), [&](const Batch& batch, const std::uint64_t* chosen) {
        for (ColumnWriter& writer : writers)
            writer.evaluate(batch);
        for (ColumnWriter& writer : writers)
            writer.write(batch, chosen);
    });
    for (ColumnWriter& writer : writers)
        writer.finish();
    target.verify();
}

/// A text over all rows that only joins numbers of its row stays what it is: a recipe.
bool ColumnExecutor::State::updateByRecipe(ColumnTable& target, const Statement& bound) {
    if (bound.where || bound.assignments.size() != 1)
        return false;
    const Assignment& assignment = bound.assignments[0];
    if (target.columns[static_cast<std::size_t>(assignment.place)].def.type != ColumnType::Text)
        return false;
    std::optional<TextRecipe> recipe = recipeFor(*assignment.value, target);
    if (!recipe)
        return false;
    setRecipe(target, assignment.place, std::move(*recipe));
    return true;
}

/// Constants in every row: resets and counters.
bool ColumnExecutor::State::updateByConstants(ColumnTable& target, const Statement& bound) {
    const auto isConstant = [](const Assignment& assignment) { return readsNoColumn(*assignment.value); };
    if (bound.where || !std::all_of(bound.assignments.begin(), bound.assignments.end(), isConstant))
        return false;
    for (const Assignment& assignment : bound.assignments) {
        const ColumnType type = target.columns[static_cast<std::size_t>(assignment.place)].def.type;
        const Value value = evaluate(*assignment.value, [](int) { return Value(); });
        assignConstant(target, assignment.place, storedValue(value, type));
    }
    return true;
}

void ColumnExecutor::State::insertValues(const Statement& bound) {
    ColumnTable& target = *table(bound.table);
    std::vector<std::pair<int, Value>> fields;
    for (const Assignment& assignment : bound.assignments)
        fields.emplace_back(assignment.place, evaluate(*assignment.value, [](int) { return Value(); }));
    appendRow(target, fields);
}

void ColumnExecutor::State::remove(const Statement& bound) {
    ColumnTable& target = *table(bound.table);
    Bitmap kept = chosenRows(target, bound.where.get(), tools());
    for (std::uint64_t& word : kept.words())
        word = ~word;
    if (target.rows % 64 != 0)
        kept.words().back() &= lowBits(target.rows % 64);
    keepRows(target, RowPlaces(std::move(kept)).list());
}

void ColumnExecutor::State::insert(const Statement& bound) {
    ColumnTable& target = *table(bound.table);
    ColumnTable& source = *table(bound.select.from);
    std::vector<int> places;
    for (const ResultColumn& column : resultColumns(bound.select, source.shape()))
        places.push_back(target.shape().find(column.name));
    appendSelected(target, places, source, bound.select, tools());
    target.verify();
}

void ColumnExecutor::State::selectInto(const Select& select) {
    ColumnTable& source = *table(select.from);
    std::vector<ColumnDef> columns;
    std::vector<int> places;
    for (const ResultColumn& column : resultColumns(select, source.shape())) {
        places.push_back(static_cast<int>(columns.size()));
        columns.push_back({column.name, column.type});
    }
    const std::shared_ptr<ColumnTable> made = makeTable(select.into, columns);
    appendSelected(*made, places, source, select, tools());
    file.add(made);
}

std::shared_ptr<const Rows::Source> ColumnExecutor::query(Select&& bound) {
    const std::shared_ptr<ColumnTable> table = m_state->table(bound.from);
    if (isAggregate(bound))
        return aggregateRow(*table, std::move(bound), m_state->tools());
    RowPlaces places = rowsOf(*table, bound, m_state->tools());
    return std::make_shared<ColumnRows>(table, std::move(bound), std::move(places));
}

namespace {

class ColumnBackend final : public Recordset::Backend {
  public:
    explicit ColumnBackend(std::shared_ptr<ColumnTable> table) : m_table(std::move(table)) {
        for (const Column& column : m_table->columns)
            m_names.push_back(column.def.name);
    }
    std::int64_t count() const override { return static_cast<std::int64_t>(m_table->rows); }
    const std::vector<std::string>& columns() const override { return m_names; }
    Value at(std::int64_t row, int column) const override {
        return m_table->at(static_cast<std::size_t>(row), column);
    }
    void change(std::int64_t row, const std::vector<std::pair<int, Value>>& fields) override {
        for (const auto& [place, value] : fields)
            writeValue(*m_table, static_cast<std::size_t>(row), place, value);
    }
    void append(const std::vector<std::pair<int, Value>>& fields) override { appendRow(*m_table, fields); }
    void remove(std::int64_t row) override {
        std::vector<std::uint32_t> kept = RowPlaces(m_table->rows).list();
        kept.erase(kept.begin() + row);
        keepRows(*m_table, kept);
    }

  private:
    std::shared_ptr<ColumnTable> m_table;
    std::vector<std::string> m_names;
};

} // namespace

std::unique_ptr<Recordset::Backend> ColumnExecutor::openTable(const std::string& table) {
    return std::make_unique<ColumnBackend>(m_state->table(table));
}

void ColumnExecutor::appendRows(const std::string& name, const RowBlock& block) {
    ColumnTable& table = *m_state->table(name);
    const std::size_t count = block.values.empty() ? 0 : block.values[0].size();
    requireRoom(table, count);
    settleTexts(table);
    std::vector<bool> given(table.columns.size());
    for (std::size_t source = 0; source < block.columns.size(); ++source) {
        const int found = table.shape().find(block.columns[source]);
        if (found < 0)
            continue;
        Column& column = table.columns[static_cast<std::size_t>(found)];
        if (column.def.type != ColumnType::Integer)
            throw SqlError(error::kTypeMismatch, "字段不是整数 " + block.columns[source]);
        column.numbers.append(block.values[source]);
        column.nulls.append(table.rows, count, false);
        column.markDirty(table.rows, count);
        given[static_cast<std::size_t>(found)] = true;
    }
    for (std::size_t place = 0; place < table.columns.size(); ++place)
        if (!given[place])
            table.columns[place].appendDefaults(table.rows, count);
    table.rows += count;
    table.shapeDirty = true;
}

void ColumnExecutor::computeColumn(const std::string& name, std::span<const std::string> inputs,
                                   const std::string& output, const RowKernel& kernel) {
    ColumnTable& table = *m_state->table(name);
    settleReadersOf(table, table.shape().find(output));
    sql::computeColumn(table, inputs, output, kernel, m_state->batchRows);
}

void ColumnExecutor::computeColumns(const std::string& name, std::span<const std::string> inputs,
                                    std::span<const std::string> outputs, const BatchKernel& kernel) {
    ColumnTable& table = *m_state->table(name);
    for (const std::string& output : outputs)
        settleReadersOf(table, table.shape().find(output));
    sql::computeColumns(table, inputs, outputs, kernel, m_state->batchRows);
}

namespace {

class HeldColumns final : public TableHold::Backend {
  public:
    HeldColumns(ColumnFile& file, std::string table) : m_file(file), m_table(std::move(table)) {
        m_file.hold(m_table);
    }
    ~HeldColumns() override { m_file.endHold(m_table, m_released); }
    HeldColumns(const HeldColumns&) = delete;
    HeldColumns& operator=(const HeldColumns&) = delete;
    void release() override { m_released = true; }

  private:
    ColumnFile& m_file;
    std::string m_table;
    bool m_released = false;
};

class HeldValues final : public TableHold::Backend {
  public:
    HeldValues(std::shared_ptr<ColumnTable> table, std::span<const std::string_view> columns)
        : m_table(std::move(table)) {
        for (const std::string_view column : columns)
            if (const int place = m_table->shape().find(std::string(column)); place >= 0)
                m_former.emplace_back(place, m_table->columns[static_cast<std::size_t>(place)].values());
    }
    ~HeldValues() override {
        if (!m_released)
            for (auto& [place, values] : m_former)
                m_table->columns[static_cast<std::size_t>(place)].setValues(std::move(values), m_table->rows);
    }
    HeldValues(const HeldValues&) = delete;
    HeldValues& operator=(const HeldValues&) = delete;
    void release() override { m_released = true; }

  private:
    std::shared_ptr<ColumnTable> m_table;
    std::vector<std::pair<int, Column::Values>> m_former;
    bool m_released = false;
};

} // namespace

std::unique_ptr<TableHold::Backend> ColumnExecutor::hold(const std::string& table) {
    return std::make_unique<HeldColumns>(m_state->file, table);
}

std::unique_ptr<TableHold::Backend> ColumnExecutor::holdValues(const std::string& table,
                                                               std::span<const std::string_view> columns) {
    return std::make_unique<HeldValues>(m_state->table(table), columns);
}

} // namespace sql
