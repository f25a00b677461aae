// Columns of one and of two bytes against plain loops: conditions at the edges of their numbers, runs of equal rows.
#include <functional>

#include <gtest/gtest.h>

#include "executor_names.h"
#include "scratch_folder.h"
#include "sql/database.h"

namespace {

struct Condition {
    const char* text;
    std::function<bool(std::int64_t)> holds;
};

const Condition kConditions[] = {
    {"[fig1] > 127", [](std::int64_t n) { return n > 127; }},
    {"[fig1] >= 127", [](std::int64_t n) { return n >= 127; }},
    {"[fig1] < -128", [](std::int64_t n) { return n < -128; }},
    {"[fig1] <= -128", [](std::int64_t n) { return n <= -128; }},
    {"[fig1] > -1000", [](std::int64_t n) { return n > -1000; }},
    {"NOT [fig1] > 127", [](std::int64_t n) { return n <= 127; }},
    {"[fig1] = 5", [](std::int64_t n) { return n == 5; }},
    {"[fig1] <> 5", [](std::int64_t n) { return n != 5; }},
    {"([fig1] <-3 OR [fig1] >9)", [](std::int64_t n) { return n < -3 || n > 9; }},
    {"[fig1] >=-3 AND [fig1] <=9", [](std::int64_t n) { return n >= -3 && n <= 9; }},
    {"[fig1] mod 3 = 1", [](std::int64_t n) { return n % 3 == 1; }},
    {"([fig1] + [idx]) mod 7 = -2", nullptr},
    {"[fig1] * [fig1] * [fig1] > 100000", [](std::int64_t n) { return n * n * n > 100000; }},
    {"[fig1] * [fig1] * [fig1] * [fig1] * [fig1] < -9000000000",
     [](std::int64_t n) { return n * n * n * n * n < -9000000000; }},
};

class NarrowColumns : public testing::TestWithParam<sql::EngineOptions> {
  protected:
    /// 300 rows: runs of equal numbers of all lengths from 1 to 24, from `low` to `high` and back.
    void hold(std::int32_t low, std::int32_t high) {
        std::vector<std::int32_t> idx;
        const std::int32_t middle[] = {low, 5, -4, 9, 10, -3, high, 0, -1, 1};
        for (std::int32_t run = 1; idx.size() < 300; ++run)
            for (std::int32_t row = 0; row < run && idx.size() < 300; ++row) {
                idx.push_back(static_cast<std::int32_t>(idx.size()) + 1);
                numbers.push_back(middle[run % 10]);
            }
        db->execute("CREATE TABLE [zuhe]([idx] integer,[fig1] integer,[canshu] integer,[unslt] bit)");
        db->appendRows("zuhe", {{"idx", "fig1"}, {idx, numbers}});
    }
    std::vector<std::int64_t> column(const std::string& name) {
        const sql::Rows rows = db->query("SELECT [" + name + "] FROM [zuhe]");
        std::vector<std::int64_t> values;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            values.push_back(rows.integerAt(row, 0));
        return values;
    }
    void expectConditions(bool nulls) {
        for (const Condition& condition : kConditions) {
            db->execute("UPDATE [zuhe] SET [unslt]=false");
            db->execute(std::string("UPDATE [zuhe] SET [unslt]=true WHERE ") + condition.text);
            const std::vector<std::int64_t> unslt = column("unslt");
            for (std::size_t row = 0; row < numbers.size(); ++row) {
                const auto number = std::int64_t{numbers[row]};
                const bool holds = condition.holds ? condition.holds(number)
                                                   : (number + static_cast<std::int64_t>(row) + 1) % 7 == -2;
                ASSERT_EQ(unslt[row] != 0, holds && !(nulls && row % 9 == 8))
                    << condition.text << " row " << row << " " << number;
            }
        }
    }

    ScratchFolder folder;
    sql::Engine engine{GetParam()};
    std::unique_ptr<sql::Database> db = engine.create(folder.path() / "a.mdb");
    std::vector<std::int32_t> numbers;
};

TEST_P(NarrowColumns, HoldAtTheEdgesOfTheirNumbers) {
    hold(-128, 127);
    expectConditions(false);
    db->execute("UPDATE [zuhe] SET [fig1]=Null WHERE [idx] mod 9 = 0");
    expectConditions(true);
}

TEST_P(NarrowColumns, HoldInTwoBytesToo) {
    hold(-2000, 2000);
    expectConditions(false);
}

TEST_P(NarrowColumns, GiveEachRowItsOwnValue) {
    hold(-128, 127);
    db->execute("UPDATE [zuhe] SET [canshu]=([fig1] mod 10) * 2 - ([fig1] > 4)");
    const std::vector<std::int64_t> values = column("canshu");
    for (std::size_t row = 0; row < numbers.size(); ++row)
        ASSERT_EQ(values[row], numbers[row] % 10 * 2 + (numbers[row] > 4 ? 1 : 0)) << row;
}

const std::vector<sql::EngineOptions> kEngines{{.combinations = sql::Executor::Sqlite},
                                               {.combinations = sql::Executor::Column, .batchRows = 7},
                                               {.combinations = sql::Executor::Column, .batchRows = 100},
                                               {.combinations = sql::Executor::Column, .batchRows = 2048}};
INSTANTIATE_TEST_SUITE_P(Engines, NarrowColumns, testing::ValuesIn(kEngines));

} // namespace
