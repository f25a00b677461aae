#include <algorithm>
#include <cstdio>
#include <vector>

#include "fuzz/small_databases.h"
#include "fuzz/targets.h"
#include "sql/parser.h"

namespace {

constexpr std::size_t kMostStatements = 4;
constexpr std::size_t kLongestStatement = 2000;
constexpr const char* kTables[] = {"zuhe", "zuheR", "Tmp", "zuhef"};

std::string shown(const sql::Value& value) {
    if (sql::isNull(value))
        return "NULL";
    if (std::holds_alternative<std::string>(value))
        return "'" + std::get<std::string>(value) + "'";
    char buffer[40]; // sums are added up in different orders: nine digits have to agree
    std::snprintf(buffer, sizeof buffer, "%.9g", sql::toReal(value));
    return buffer;
}

using Lines = std::vector<std::string>;

Lines linesOf(const sql::Rows& rows) {
    Lines lines(1);
    for (int column = 0; column < rows.columnCount(); ++column)
        lines[0] += rows.columnName(column) + "|";
    for (std::int64_t row = 0; row < rows.count(); ++row) {
        lines.emplace_back();
        for (int column = 0; column < rows.columnCount(); ++column)
            lines.back() += shown(rows.at(row, column)) + "|";
    }
    return lines;
}

/// Error number of a statement, and for a query its rows.
Lines answers(sql::Database& db, const std::string& statement, bool isQuery) {
    try {
        if (isQuery)
            return linesOf(db.query(statement));
        db.execute(statement);
        return {};
    } catch (const sql::SqlError& error) {
        return {"error " + std::to_string(error.number())};
    }
}

/// Statements on which the two may differ: SQLite is asked in its own way there.
bool hasSubselect(const sql::Expr& expr) {
    return expr.subquery || std::any_of(expr.args.begin(), expr.args.end(),
                                        [](const sql::ExprPtr& arg) { return hasSubselect(*arg); });
}

bool isComparable(const sql::Statement& statement) {
    for (const std::string& table : sql::tablesOf(statement))
        if (!sql::isCombinationTable(table))
            return false; // both would run it on SQLite
    if (statement.kind == sql::StatementKind::Select)
        return true;
    // SQLite answers a sub-select over the changed table in mid-change.
    for (const sql::Assignment& assignment : statement.assignments)
        if (hasSubselect(*assignment.value))
            return false;
    return !statement.where || !hasSubselect(*statement.where);
}

/// One database in both executors, put back to its first state for every input.
class Twins {
  public:
    void reset() {
        m_column.reset();
        m_sqlite.reset();
        fuzz::putDatabase(m_folder.path() / "c.mdb", m_columnBytes);
        fuzz::putDatabase(m_folder.path() / "s.mdb", m_sqliteBytes);
        m_column = m_columns.open(m_folder.path() / "c.mdb");
        m_sqlite = m_sqlites.open(m_folder.path() / "s.mdb");
    }

    /// \return whether the rest of the input still makes sense
    bool run(const std::string& text) {
        sql::Statement statement;
        try {
            statement = sql::parse(text);
        } catch (const sql::SqlError&) {
            return true;
        }
        const bool isQuery = statement.kind == sql::StatementKind::Select && statement.select.into.empty();
        const bool compared = isComparable(statement);
        Lines got = answers(*m_column, text, isQuery);
        Lines expected = answers(*m_sqlite, text, isQuery);
        if (!compared)
            return false;                // the tables may differ from here on
        if (statement.select.distinct) { // equal sort keys may come in any order there
            std::sort(got.begin(), got.end());
            std::sort(expected.begin(), expected.end());
        }
        requireSame(text, got, expected);
        for (const char* table : kTables) {
            const std::string all = "SELECT * FROM [" + std::string(table) + "]";
            requireSame(text + " -> " + all, answers(*m_column, all, true), answers(*m_sqlite, all, true));
        }
        return true;
    }

  private:
    static void requireSame(const std::string& what, const Lines& got, const Lines& expected) {
        if (got == expected)
            return;
        const auto [left, right] = std::mismatch(got.begin(), got.end(), expected.begin(), expected.end());
        fuzz::broken(what + "\n columns: " + (left == got.end() ? "(end)" : *left) +
                     "\n sqlite:  " + (right == expected.end() ? "(end)" : *right));
    }

    fuzz::FastFolder m_folder;
    const std::string m_columnBytes = fuzz::smallTables(sql::Executor::Column);
    const std::string m_sqliteBytes = fuzz::smallTables(sql::Executor::Sqlite);
    sql::Engine m_columns{{.combinations = sql::Executor::Column, .batchRows = 64}}; // 70 rows: two batches
    sql::Engine m_sqlites{{.combinations = sql::Executor::Sqlite}};
    std::unique_ptr<sql::Database> m_column;
    std::unique_ptr<sql::Database> m_sqlite;
};

} // namespace

void fuzz::statements(std::string_view input) {
    static Twins twins;
    twins.reset();
    for (std::size_t run = 0; run < kMostStatements && !input.empty(); ++run) {
        const std::size_t end = std::min(input.find('\n'), input.size());
        if (end > kLongestStatement || !twins.run(std::string(input.substr(0, end))))
            return;
        input.remove_prefix(std::min(end + 1, input.size()));
    }
}
