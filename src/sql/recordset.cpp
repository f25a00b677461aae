// Record sets: a position over rows, and the buffer of the record that is being written.
#include <algorithm>

#include "sql/database.h"
#include "sql/executor.h"
#include "sql/lexer.h"

namespace sql {

namespace {

class ReadOnlyBackend final : public Recordset::Backend {
  public:
    explicit ReadOnlyBackend(std::shared_ptr<const Rows::Source> rows) : m_rows(std::move(rows)) {}
    std::int64_t count() const override { return m_rows->count(); }
    const std::vector<std::string>& columns() const override { return m_rows->columns(); }
    Value at(std::int64_t row, int column) const override { return m_rows->at(row, column); }
    void change(std::int64_t, const std::vector<std::pair<int, Value>>&) override { refuse(); }
    void append(const std::vector<std::pair<int, Value>>&) override { refuse(); }
    void remove(std::int64_t) override { refuse(); }

  private:
    [[noreturn]] static void refuse() { throw SqlError(error::kNotUpdatable, "记录集不可更新"); }

    std::shared_ptr<const Rows::Source> m_rows;
};

} // namespace

std::unique_ptr<Recordset::Backend> readOnlyBackend(std::shared_ptr<const Rows::Source> rows) {
    return std::make_unique<ReadOnlyBackend>(std::move(rows));
}

struct Recordset::State {
    enum class Editing { None, New, Current };

    std::unique_ptr<Backend> backend;
    std::int64_t row = 0; // -1 before the first record, count() behind the last
    bool removed = false; // the record at the position has just been deleted: row is that of its follower
    Editing editing = Editing::None;
    std::vector<std::pair<int, Value>> fields;

    std::int64_t count() const { return backend->count(); }
    bool onRecord() const { return !removed && row >= 0 && row < count(); }
    void moveTo(std::int64_t target) {
        editing = Editing::None;
        removed = false;
        row = target;
    }
    void requireRecord() const {
        if (!onRecord())
            throw SqlError(error::kNoCurrentRecord, "没有当前记录");
    }
};

Recordset::Recordset(std::unique_ptr<Backend> backend) : m_state(std::make_unique<State>()) {
    m_state->backend = std::move(backend);
}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

void Recordset::moveFirst() {
    m_state->moveTo(0);
}
void Recordset::moveLast() {
    m_state->moveTo(std::max<std::int64_t>(m_state->count() - 1, 0));
}
void Recordset::moveNext() {
    const std::int64_t next = m_state->removed ? m_state->row : m_state->row + 1;
    m_state->moveTo(std::min(next, m_state->count()));
}
void Recordset::movePrevious() {
    m_state->moveTo(std::max<std::int64_t>(m_state->row - 1, -1));
}
bool Recordset::bof() const {
    return m_state->row < 0 || m_state->count() == 0;
}
bool Recordset::eof() const {
    return m_state->row >= m_state->count();
}
std::int64_t Recordset::recordCount() const {
    return m_state->count();
}

int Recordset::fieldIndex(std::string_view name) const {
    const auto& columns = m_state->backend->columns();
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const std::string& column) { return sameName(column, name); });
    if (found == columns.end())
        throw SqlError(error::kFieldNotFound, "找不到字段 " + std::string(name));
    return static_cast<int>(found - columns.begin());
}

int Recordset::fieldCount() const {
    return static_cast<int>(m_state->backend->columns().size());
}
const std::string& Recordset::fieldName(int field) const {
    return m_state->backend->columns()[static_cast<std::size_t>(field)];
}

Value Recordset::field(int field) const {
    m_state->requireRecord();
    return m_state->backend->at(m_state->row, field);
}

void Recordset::addNew() {
    m_state->editing = State::Editing::New;
    m_state->fields.clear();
}

void Recordset::edit() {
    m_state->requireRecord();
    m_state->editing = State::Editing::Current;
    m_state->fields.clear();
}

void Recordset::set(int field, Value value) {
    if (m_state->editing == State::Editing::None)
        throw SqlError(error::kNoCurrentRecord, "没有正在编辑的记录");
    m_state->fields.emplace_back(field, std::move(value));
}

void Recordset::update() {
    const State::Editing editing = m_state->editing;
    m_state->editing = State::Editing::None;
    if (editing == State::Editing::New)
        m_state->backend->append(m_state->fields);
    else if (editing == State::Editing::Current)
        m_state->backend->change(m_state->row, m_state->fields);
    else
        throw SqlError(error::kNoCurrentRecord, "没有正在编辑的记录");
}

void Recordset::remove() {
    m_state->requireRecord();
    m_state->backend->remove(m_state->row);
    m_state->editing = State::Editing::None;
    m_state->removed = true;
}

} // namespace sql
