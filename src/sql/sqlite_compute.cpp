// Passes that are not statements, over SQLite: the rows are read whole, and written back one by one.
#include <algorithm>

#include "sql/sqlite_executor.h"
#include "sql/sqlite_savepoint.h"
#include "sql/sqlite_text.h"

namespace sql {

namespace {

void requireType(const TableShape& table, const std::string& name, std::initializer_list<ColumnType> types) {
    const int place = table.find(name);
    if (place < 0)
        throw SqlError(error::kColumnNotFound, "找不到字段 " + name);
    const ColumnType type = table.columns[static_cast<std::size_t>(place)].type;
    if (std::find(types.begin(), types.end(), type) == types.end())
        throw SqlError(error::kTypeMismatch, "字段不是整数 " + name);
}

/// The input columns of all rows.
struct Inputs {
    std::vector<std::int64_t> places;
    std::vector<std::vector<std::int32_t>> columns;
    std::vector<std::span<const std::int32_t>> spans;

    Inputs(const SqliteFile& file, const TableShape& table, std::span<const std::string> names)
        : columns(names.size()) {
        std::string list;
        for (const std::string& name : names) {
            requireType(table, name, {ColumnType::Integer, ColumnType::Short, ColumnType::Bit});
            list += ", " + sqliteName(name);
        }
        SqliteQuery rows(file, "SELECT rowid" + list + " FROM " + sqliteName(table.name) + " ORDER BY rowid");
        while (rows.step()) {
            places.push_back(rows.integer(0));
            for (std::size_t input = 0; input < names.size(); ++input)
                columns[input].push_back(static_cast<std::int32_t>(rows.integer(static_cast<int>(input) + 1)));
        }
        spans.assign(columns.begin(), columns.end());
    }
};

} // namespace

void SqliteExecutor::computeColumn(const std::string& table, std::span<const std::string> inputs,
                                   const std::string& output, const RowKernel& kernel) {
    const BatchKernel whole = [&kernel](const RowBatch& batch) {
        kernel(batch.inputs, batch.outputs[0].values);
        std::ranges::fill(batch.outputs[0].written, std::uint8_t{1});
    };
    computeColumns(table, inputs, std::span(&output, 1), whole);
}

void SqliteExecutor::computeColumns(const std::string& table, std::span<const std::string> inputs,
                                    std::span<const std::string> outputs, const BatchKernel& kernel) {
    const TableShape target = shape(table);
    for (const std::string& output : outputs)
        requireType(target, output, {ColumnType::Integer});
    const Inputs from(*m_file, target, inputs);
    const std::size_t rows = from.places.size();
    std::vector<std::vector<std::int32_t>> values(outputs.size(), std::vector<std::int32_t>(rows));
    std::vector<std::vector<std::uint8_t>> written(outputs.size(), std::vector<std::uint8_t>(rows));
    std::vector<RowBatch::Output> asked;
    for (std::size_t output = 0; output < outputs.size(); ++output)
        asked.push_back({values[output], written[output]});
    if (rows > 0)
        kernel({rows, from.spans, asked});
    Savepoint step(*m_file);
    for (std::size_t output = 0; output < outputs.size(); ++output) {
        SqliteQuery update(*m_file, "UPDATE " + sqliteName(target.name) + " SET " + sqliteName(outputs[output]) +
                                        " = ?1 WHERE rowid = ?2");
        for (std::size_t row = 0; row < rows; ++row) {
            if (!written[output][row])
                continue;
            update.bind(0, std::int64_t{values[output][row]});
            update.bind(1, from.places[row]);
            update.run();
        }
    }
    step.release();
}

} // namespace sql
