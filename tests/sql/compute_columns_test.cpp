// Passes that write several columns of chosen rows: what is not marked keeps its value and its Null.
#include <gtest/gtest.h>

#include "executor_names.h"
#include "scratch_folder.h"
#include "sql/column_compute.h"
#include "sql/database.h"
#include "sql/slt_support.h"

namespace {

const std::vector<sql::EngineOptions> kEngines{{.combinations = sql::Executor::Sqlite},
                                               {.combinations = sql::Executor::Column, .batchRows = 1},
                                               {.combinations = sql::Executor::Column, .batchRows = 7},
                                               {.combinations = sql::Executor::Column, .batchRows = 2048}};

class ComputeColumns : public testing::TestWithParam<sql::EngineOptions> {
  protected:
    void fill(std::int32_t rows) {
        db->execute("CREATE TABLE [zuhe]([idx] integer,[fig1] integer,[canshu] integer,[SKnum] integer,[t] string,"
                    "[unslt] bit)");
        std::vector<std::int32_t> idx(static_cast<std::size_t>(rows));
        for (std::size_t row = 0; row < idx.size(); ++row)
            idx[row] = static_cast<std::int32_t>(row + 1);
        db->appendRows("zuhe", {{"idx"}, {idx}});
    }

    /// The values of a column, in order, with blanks between.
    std::string column(const std::string& name) {
        const sql::Rows rows = db->query("SELECT [" + name + "] FROM [zuhe]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            all += (row == 0 ? "" : " ") + slt::shown(rows.at(row, 0));
        return all;
    }

    int errorOf(const std::vector<std::string>& inputs, const std::vector<std::string>& outputs,
                const std::string& table = "zuhe") {
        try {
            db->computeColumns(table, inputs, outputs, [](const sql::RowBatch&) {});
        } catch (const sql::SqlError& failure) {
            return failure.number();
        }
        return 0;
    }

    ScratchFolder folder;
    sql::Engine engine{GetParam()};
    std::unique_ptr<sql::Database> db = engine.create(folder.path() / "a.mdb");
};

TEST_P(ComputeColumns, WriteMarkedRowsAndLeaveTheOthersWithTheirValueOrNull) {
    fill(9);
    db->execute("UPDATE [zuhe] SET [canshu]=100 WHERE [idx] mod 2 = 0");
    const std::vector<std::string> inputs{"idx"};
    const std::vector<std::string> outputs{"canshu", "SKnum"};
    db->computeColumns("zuhe", inputs, outputs, [](const sql::RowBatch& batch) {
        for (std::size_t row = 0; row < batch.rows; ++row) {
            const std::int32_t idx = batch.inputs[0][row];
            ASSERT_EQ(batch.outputs[0].written[row], 0);
            batch.outputs[0].values[row] = idx * -70000; // also where it does not count
            batch.outputs[0].written[row] = idx % 3 == 0;
            batch.outputs[1].values[row] = idx;
            batch.outputs[1].written[row] = idx > 7;
        }
    });
    EXPECT_EQ(column("canshu"), "NULL 100 -210000 100 NULL -420000 NULL 100 -630000");
    EXPECT_EQ(column("SKnum"), "NULL NULL NULL NULL NULL NULL NULL 8 9");
}

TEST_P(ComputeColumns, ReadBitsAsMinusOneAndNullAsZero) {
    fill(4);
    db->execute("UPDATE [zuhe] SET [unslt]=true , [fig1]=[idx]*10 WHERE [idx]=2 OR [idx]=3");
    const std::vector<std::string> inputs{"unslt", "fig1"};
    const std::vector<std::string> outputs{"canshu"};
    db->computeColumns("zuhe", inputs, outputs, [](const sql::RowBatch& batch) {
        for (std::size_t row = 0; row < batch.rows; ++row) {
            batch.outputs[0].values[row] = batch.inputs[0][row] * 1000 + batch.inputs[1][row];
            batch.outputs[0].written[row] = 1;
        }
    });
    EXPECT_EQ(column("canshu"), "0 -980 -970 0");
    EXPECT_EQ(db->query("SELECT [idx] FROM [zuhe] WHERE [canshu] IS NULL").count(), 0);
}

TEST_P(ComputeColumns, ReadAnInputThatIsAnOutputToo) {
    fill(5000);
    const std::vector<std::string> both{"idx", "canshu"};
    db->computeColumns("zuhe", both, both, [](const sql::RowBatch& batch) {
        for (std::size_t row = 0; row < batch.rows; ++row) {
            batch.outputs[0].values[row] = -batch.inputs[0][row];
            batch.outputs[1].values[row] = batch.inputs[0][row] + batch.inputs[1][row];
            batch.outputs[0].written[row] = batch.outputs[1].written[row] = batch.inputs[0][row] > 100;
        }
    });
    EXPECT_EQ(db->query("SELECT [idx] FROM [zuhe] WHERE [idx]=-[canshu] AND [idx]<-100").count(), 4900);
    EXPECT_EQ(db->query("SELECT [idx] FROM [zuhe] WHERE [idx]>0 AND [canshu] IS NULL").count(), 100);
}

TEST_P(ComputeColumns, OfATableWithoutRowsChangeNothing) {
    fill(0);
    int rows = 0;
    const std::vector<std::string> inputs{"idx"};
    const std::vector<std::string> outputs{"canshu"};
    db->computeColumns("zuhe", inputs, outputs,
                       [&](const sql::RowBatch& batch) { rows += static_cast<int>(batch.rows); });
    EXPECT_EQ(rows, 0);
    db->execute("INSERT INTO [zuhe] ([idx]) VALUES (1)");
    EXPECT_EQ(column("canshu"), "NULL");
}

TEST_P(ComputeColumns, RefuseWhatIsMissingOrNoWholeNumber) {
    fill(3);
    EXPECT_EQ(errorOf({"idx"}, {"canshu"}), 0);
    EXPECT_EQ(errorOf({"fig9"}, {"canshu"}), sql::error::kColumnNotFound);
    EXPECT_EQ(errorOf({"idx"}, {"fig9"}), sql::error::kColumnNotFound);
    EXPECT_EQ(errorOf({"t"}, {"canshu"}), sql::error::kTypeMismatch);
    EXPECT_EQ(errorOf({"idx"}, {"t"}), sql::error::kTypeMismatch);
    EXPECT_EQ(errorOf({"idx"}, {"unslt"}), sql::error::kTypeMismatch);
    EXPECT_EQ(errorOf({"idx"}, {"canshu"}, "zuheR"), sql::error::kTableNotFound);
    EXPECT_EQ(column("canshu"), "NULL NULL NULL");
}

INSTANTIATE_TEST_SUITE_P(Engines, ComputeColumns, testing::ValuesIn(kEngines));

TEST(ComputeColumnsOfChunks, DirtyOnlyTheChunksWithAWrittenRow) {
    sql::ColumnTable table;
    table.rows = 3 * sql::kChunkRows + 5;
    table.columns.resize(2);
    for (sql::Column& column : table.columns) {
        column.appendDefaults(0, table.rows);
        column.dirtyChunks.assign(4, false);
    }
    table.columns[0].def.name = "idx";
    table.columns[1].def.name = "canshu";
    const std::vector<std::string> outputs{"idx", "canshu"};
    std::size_t first = 0;
    const auto kernel = [&](const sql::RowBatch& batch) {
        for (std::size_t row = 0; row < batch.rows; ++row) // the last row of the second chunk, the first of the last
            batch.outputs[1].written[row] =
                first + row == 2 * sql::kChunkRows - 1 || first + row == 3 * sql::kChunkRows;
        first += batch.rows;
    };
    sql::computeColumns(table, {}, outputs, kernel, 1000); // batches lie across the borders of chunks
    EXPECT_EQ(table.columns[0].dirtyChunks, (std::vector<bool>{false, false, false, false}));
    EXPECT_EQ(table.columns[1].dirtyChunks, (std::vector<bool>{false, true, false, true}));
}

} // namespace
