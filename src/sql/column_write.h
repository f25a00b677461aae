// Writing the values of a batch into a column: conversion to the column's type, room, Null, dictionary, dirty chunks.
#pragma once

#include <optional>

#include "sql/plan.h"
#include "sql/text_append.h"

namespace sql {

/// One assignment of an UPDATE, prepared. For each batch evaluate() and then, when all assignments of the statement
/// have been evaluated, write(). finish() at the end of the statement.
class ColumnWriter {
  public:
    /// \param whole  every row is written: the column is made anew at its own width
    ColumnWriter(ColumnTable& table, int place, const Expr& value, PlanContext& context, bool whole);

    void evaluate(const Batch& batch);
    /// \param mask  the rows to write
    void write(const Batch& batch, const std::uint64_t* mask);
    void finish();

  private:
    void prepareRoom();
    void planValue(const Expr& value, PlanContext& context);
    void writeAppended(const Batch& batch, const std::uint64_t* mask);
    void toInts(const Batch& batch);
    void coverNulls(const Batch& batch);
    void writeTexts(const Batch& batch, const std::uint64_t* mask);
    void writeReals(const Batch& batch, const std::uint64_t* mask);
    void writeNulls(const Batch& batch, const std::uint64_t* mask);
    Column& column() { return m_table.columns[m_place]; }

    ColumnTable& m_table;
    std::size_t m_place;
    ColumnType m_type;
    bool m_whole;
    TextPool& m_pool;
    std::optional<TextAppend> m_append; // in place of m_planned
    Planned m_planned{};
    Vec m_vec;
    Truth m_truth;   // of a Bit
    Numbers m_fresh; // of a column that is made anew
    NullMap m_freshNulls;
    std::shared_ptr<Dictionary> m_dictionary;
    std::vector<std::int32_t> m_codes; // pool code -> code of the column's dictionary, -1 not yet asked
    std::unique_ptr<Buffer> m_buffer = std::make_unique<Buffer>();
};

/// Every row of a column becomes one value, already as the column keeps it: no row is touched.
void assignConstant(ColumnTable& table, int place, const Value& value);

} // namespace sql
