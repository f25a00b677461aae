// IN between texts that are put together from numbers, and texts that are appended to: the column executor, which
// works on the numbers, against SQLite, which works on the texts.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "environment_number.h"
#include "scratch_folder.h"
#include "sql/database.h"

namespace {

using Lines = std::vector<std::string>;

class TwoTables {
  public:
    TwoTables(sql::Executor executor, unsigned seed) : engine({.combinations = executor, .batchRows = 64}) {
        std::mt19937 random(seed);
        for (const char* table : {"zuhe", "zuheMoban"}) {
            const std::string name = table;
            run("CREATE TABLE [" + name + "]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer," +
                "[canshu] integer,[Fliter] string,[Numstring] string,[unslt] Bit)");
            fill(random, name);
        }
    }
    void run(const std::string& statement) { db->execute(statement); }
    Lines rows(const std::string& select) {
        const sql::Rows rows = db->query(select);
        Lines lines;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            lines.emplace_back();
            for (int column = 0; column < rows.columnCount(); ++column)
                lines.back() += rows.textAt(row, column) + "|";
        }
        return lines;
    }

  private:
    void fill(std::mt19937& random, const std::string& table) {
        const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
        const int rows = below(8) == 0 ? 0 : 200 + below(100);
        const bool odd = below(3) == 0;
        const bool sorted = below(2) == 0;
        std::vector<std::vector<std::int32_t>> bets;
        for (int row = 0; row < rows; ++row)
            bets.push_back(
                {below(6) + 1, below(6) + 1, odd && below(9) == 0 ? 100000 * (below(3) - 1) : below(6) + 1});
        if (sorted)
            std::ranges::sort(bets);
        std::vector<std::vector<std::int32_t>> columns(4);
        for (std::size_t row = 0; row < bets.size(); ++row) {
            columns[0].push_back(static_cast<int>(row + 1));
            for (std::size_t place = 0; place < 3; ++place)
                columns[place + 1].push_back(bets[row][place]);
        }
        sql::RowBlock block{{"idx", "fig1", "fig2", "fig3"}, {}};
        block.values.assign(columns.begin(), columns.end());
        db->appendRows(table, block);
    }

    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> db = engine.create(folder.path() / "a.mdb");
};

constexpr const char* kKeys[] = {"'(' & fig1 & '!' & fig2 & '@' & fig3 & ')'", "format(fig1,\"00\") & ' ' & fig2",
                                 "fig1 & fig2 & fig3", // 1 12 and 11 2 are one text
                                 "fig1 & '-' & fig3", "'x' & fig2"};

TEST(NumberKeys, AnswerAsTheTextsDo) {
    const unsigned seed = environmentNumber("SSQ_SEED", 43);
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::size_t found = 0;
    for (unsigned turn = 0; turn < 40; ++turn) {
        TwoTables column(sql::Executor::Column, seed + turn);
        TwoTables text(sql::Executor::Sqlite, seed + turn);
        const std::string one = kKeys[turn % 5];
        const std::string other = turn % 7 == 6 ? kKeys[(turn + 1) % 5] : one; // texts of another make too
        for (const std::string condition :
             {"IN (SELECT Numstring FROM [zuheMoban])", "NOT IN (SELECT Numstring FROM [zuheMoban])",
              "IN (SELECT Numstring FROM [zuheMoban] WHERE fig1 = 2)", "IN (SELECT Numstring FROM [zuhe])"}) {
            for (TwoTables* tables : {&column, &text}) {
                tables->run("UPDATE [zuhe] SET [Numstring]= " + one);
                tables->run("UPDATE [zuheMoban] SET [Numstring]= " + other);
                tables->run("UPDATE [zuhe] SET [unslt]= false");
                tables->run("UPDATE [zuhe] SET [unslt]= true  WHERE Numstring " + condition);
            }
            const std::string select = "SELECT [idx],[unslt],[Numstring] FROM [zuhe]";
            ASSERT_EQ(column.rows(select), text.rows(select)) << turn << " " << one << " " << condition;
            found += column.rows("SELECT [idx] FROM [zuhe] WHERE [unslt] = true").size();
        }
    }
    EXPECT_GT(found, 1000U);
}

TEST(TextAppend, AppendsAsTheTextsDo) {
    const unsigned seed = environmentNumber("SSQ_SEED", 54);
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::string longText(120, 'a');
    for (unsigned turn = 0; turn < 10; ++turn) {
        TwoTables column(sql::Executor::Column, seed + turn);
        TwoTables text(sql::Executor::Sqlite, seed + turn);
        for (const std::string& statement :
             {std::string("UPDATE [zuhe] SET [Fliter] = [Fliter] & \"头\" & [fig1] & \" 到\" WHERE [fig2] > 3"),
              std::string("UPDATE [zuhe] SET [canshu]=[fig3] mod 4 WHERE [fig1] > 1"), // some are Null
              std::string("UPDATE [zuhe] SET [Fliter] = [Fliter] & [canshu] & \"。\" WHERE [fig1] > 2"),
              std::string("UPDATE [zuhe] SET [canshu]=7 , [Fliter] = [Fliter] & \"尾\" & [fig3] WHERE [fig1] < 4"),
              std::string("UPDATE [zuhe] SET [fig3]=9 , [Fliter] = [Fliter] & \"前\" & [fig3] WHERE [fig1] = 2"),
              std::string("UPDATE [zuhe] SET [Fliter] = [Fliter] & [fig1] & \"x\" & [fig2] WHERE [fig1] = 3"),
              "UPDATE [zuhe] SET [Fliter] = [Fliter] & \"" + longText + "\" & [fig2] WHERE [fig1] > 1",
              "UPDATE [zuhe] SET [Fliter] = [Fliter] & \"" + longText + "中\" & [fig1] WHERE [fig1] > 3",
              std::string("UPDATE [zuhe] SET [Fliter] = \"上次反选-\" & [Fliter] WHERE [fig1] > 3"),
              std::string("UPDATE [zuhe] SET [Fliter] = [Fliter] & \"无\" WHERE [fig1] > 99")}) {
            column.run(statement);
            text.run(statement);
            const std::string select = "SELECT [idx],[Fliter],[canshu],[fig3] FROM [zuhe]";
            ASSERT_EQ(column.rows(select), text.rows(select)) << statement;
        }
    }
}

} // namespace
