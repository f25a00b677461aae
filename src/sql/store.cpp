#include "sql/store.h"

#include <algorithm>

#include "sql/column_executor.h"
#include "sql/lexer.h"
#include "sql/parser.h"
#include "sql/sqlite_executor.h"

namespace sql {

Store::Store(std::filesystem::path file, const EngineOptions& options, bool mustExist)
    : m_path(std::move(file)), m_file(std::make_shared<SqliteFile>(m_path, mustExist)),
      m_ordinary(std::make_unique<SqliteExecutor>(m_file)) {
    if (options.combinations == Executor::Column)
        m_columns = std::make_unique<ColumnExecutor>(m_file, options.batchRows, options.textBytes);
}

Store::~Store() {
    try {
        store();
    } catch (const SqlError&) {
        // The file keeps the state of the last successful store(); whoever needs to know has called store() himself.
    }
}

TableExecutor& Store::keeperOf(std::string_view table) {
    if (m_columns && isCombinationTable(table))
        return *m_columns;
    return *m_ordinary;
}

const TableExecutor& Store::keeperOf(std::string_view table) const {
    return const_cast<Store*>(this)->keeperOf(table);
}

TableExecutor& Store::executorOf(const Statement& statement) {
    const std::vector<std::string> tables = tablesOf(statement);
    TableExecutor& first = keeperOf(tables.front());
    for (const std::string& table : tables)
        if (&keeperOf(table) != &first)
            throw SqlError(error::kMixedStores, "一个语句不能同时使用组合表和普通表 " + table, statement.tableSpan);
    return first;
}

Statement Store::parsed(std::string_view text) {
    Statement statement = parse(text);
    TableExecutor& executor = executorOf(statement);
    bind(statement, [&executor](const std::string& table) { return executor.shape(table); });
    return statement;
}

void Store::execute(std::string_view text) {
    Statement statement = parsed(text);
    executorOf(statement).execute(statement);
}

std::shared_ptr<const Rows::Source> Store::query(std::string_view text) {
    Statement statement = parsed(text);
    if (statement.kind != StatementKind::Select || !statement.select.into.empty())
        throw SqlError(error::kSyntax, "不是一个查询语句");
    return executorOf(statement).query(std::move(statement.select));
}

std::unique_ptr<Recordset::Backend> Store::open(std::string_view tableOrSelect) {
    const std::vector<Token> tokens = tokenize(tableOrSelect);
    const TokenKind first = tokens[0].kind;
    // A whole number is a name too: the tables of wheels are called 0954.
    const bool isName =
        tokens.size() == 2 && (first == TokenKind::Word || first == TokenKind::Name || first == TokenKind::Integer);
    if (!isName)
        return readOnlyBackend(query(tableOrSelect));
    return keeperOf(tokens[0].text).openTable(tokens[0].text);
}

void Store::begin() {
    if (m_transactionDepth == 0)
        m_file->run("BEGIN IMMEDIATE");
    ++m_transactionDepth;
}

void Store::commit() {
    if (m_transactionDepth == 0)
        throw SqlError(error::kStorage, "没有可提交的事务"); // an inner one has been rolled back, and all with it
    if (m_transactionDepth == 1)
        m_file->run("COMMIT");
    --m_transactionDepth;
}

void Store::rollback() {
    m_transactionDepth = 0;
    if (sqliteInTransaction(*m_file))
        m_file->run("ROLLBACK");
}

void Store::store() {
    if (storePending() && m_transactionDepth == 0)
        m_columns->store();
}

std::int64_t Store::evaluations() const {
    return m_columns ? m_columns->evaluations() : 0;
}

bool Store::storePending() const {
    return m_columns && m_columns->storePending();
}

} // namespace sql
