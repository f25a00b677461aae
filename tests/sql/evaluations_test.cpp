// No statement form is worked row by row: what is worked one by one is worked for distinct inputs, so a table with
// ten times the rows and the same values costs the same.
#include <fstream>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "sql/slt_support.h"

namespace {

/// The statements of all_forms.slt that run, with their tables.
std::vector<std::string> statementForms() {
    std::ifstream input(std::string(SSQ_TEST_DATA) + "/dialect/all_forms.slt");
    std::vector<std::string> statements;
    for (std::string line; std::getline(input, line);)
        if (line == "statement ok" || line.starts_with("query ")) {
            std::getline(input, line);
            statements.push_back(line);
        }
    return statements;
}

/// 500 different bets, over and over.
std::vector<std::vector<int>> bets(int numbers, int rows) {
    std::vector<std::vector<int>> result;
    for (int row = 0; row < rows; ++row) {
        const int kind = row % 500;
        result.push_back({});
        for (int place = 0; place < numbers; ++place)
            result.back().push_back(1 + place * 4 + (kind >> place) % 4);
    }
    return result;
}

std::vector<std::int64_t> evaluationsOfAllForms(int rows) {
    ScratchFolder folder;
    sql::Engine engine;
    const auto db = engine.create(folder.path() / "a.mdb");
    for (const char* table : {"zuhe", "zuheMoban", "zuheRead", "zuheRote", "zuhef"})
        slt::makeBets(*db, table, bets(7, rows));
    for (const char* table : {"zuheR", "zuheMobanR", "zuheReadR", "zuheRoteR"})
        slt::makeBets(*db, table, bets(6, rows));
    std::vector<std::int64_t> counts;
    for (const std::string& statement : statementForms()) {
        const std::int64_t before = db->evaluations();
        EXPECT_TRUE(sql::passOver(*db, statement)) << statement;
        counts.push_back(db->evaluations() - before);
    }
    return counts;
}

TEST(Evaluations, OfEveryStatementFormDoNotGrowWithTheRows) {
    const std::vector<std::string> statements = statementForms();
    ASSERT_GT(statements.size(), 150U);
    const std::vector<std::int64_t> few = evaluationsOfAllForms(5000);
    const std::vector<std::int64_t> many = evaluationsOfAllForms(50000);
    std::int64_t total = 0;
    for (std::size_t form = 0; form < statements.size(); ++form) {
        EXPECT_EQ(many[form], few[form]) << statements[form];
        total += many[form];
    }
    EXPECT_GT(total, 500); // the counter counts
}

class Recipes : public ::testing::Test {
  protected:
    void run(const std::string& statement) { db->execute(statement); }
    std::vector<std::string> texts() {
        std::vector<std::string> result;
        const sql::Rows rows = db->query("SELECT [Numstring] FROM [zuhe]");
        for (std::int64_t row = 0; row < rows.count(); ++row)
            result.push_back(slt::shown(rows.at(row, 0)));
        return result;
    }

    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> db = engine.create(folder.path() / "a.mdb");
    const std::string padded =
        "UPDATE [zuhe] SET [Numstring]= format([fig1],\"00\") & Chr(32) & format([fig2],\"00\")";
};

TEST_F(Recipes, TextsStayWhenTheNumbersThatMadeThemChange) {
    slt::makeBets(*db, "zuhe", {{1, 2, 3, 4, 5, 6, 7}, {8, 9, 10, 11, 12, 13, 14}});
    run(padded);
    EXPECT_EQ(texts(), (std::vector<std::string>{"01 02", "08 09"}));
    run("UPDATE [zuhe] SET [fig1]=33 WHERE [idx]=1");
    EXPECT_EQ(texts(), (std::vector<std::string>{"01 02", "08 09"}));
    run(padded);
    EXPECT_EQ(texts(), (std::vector<std::string>{"33 02", "08 09"}));
    run("UPDATE [zuhe] SET [fig2]=[fig2]+1");
    EXPECT_EQ(texts(), (std::vector<std::string>{"33 02", "08 09"}));
}

TEST_F(Recipes, RowsThatComeLaterHaveNoText) {
    slt::makeBets(*db, "zuhe", {{1, 2, 3, 4, 5, 6, 7}});
    run(padded);
    run("INSERT INTO [zuhe] ([fig1],[fig2]) VALUES (3,4)");
    EXPECT_EQ(texts(), (std::vector<std::string>{"01 02", "NULL"}));
    run("DELETE FROM [zuhe] WHERE [fig1]=1");
    EXPECT_EQ(texts(), (std::vector<std::string>{"NULL"}));
}

TEST_F(Recipes, ComeBackFromTheFile) {
    slt::makeBets(*db, "zuhe", {{1, 2, 3, 4, 5, 6, 7}, {11, 12, 13, 14, 15, 16, 7}});
    run(padded + " & '!' & [fig7] & ')'");
    db->store();
    db.reset();
    db = engine.open(folder.path() / "a.mdb");
    EXPECT_EQ(texts(), (std::vector<std::string>{"01 02!7)", "11 12!7)"}));
    run("ALTER TABLE [zuhe] DROP COLUMN [fig7]");
    EXPECT_EQ(texts(), (std::vector<std::string>{"01 02!7)", "11 12!7)"}));
}

TEST_F(Recipes, OutliveColumnsThatTheyDoNotRead) {
    slt::makeBets(*db, "zuhe", {{1, 2, 3, 4, 5, 6, 7}, {11, 12, 13, 14, 15, 16, 7}});
    run(padded);
    const std::vector<std::string> before{"01 02", "11 12"};
    run("ALTER TABLE [zuhe] DROP COLUMN [idx]"); // before those that are read
    EXPECT_EQ(texts(), before);
    run("ALTER TABLE [zuhe] DROP COLUMN [fig7]"); // between them and the texts
    run("ALTER TABLE [zuhe] ADD COLUMN [jiben] integer");
    run("UPDATE [zuhe] SET [jiben]=1 WHERE [Numstring] LIKE \"*12*\"");
    run("ALTER TABLE [zuhe] DROP COLUMN [canshu]");
    EXPECT_EQ(texts(), before);
    EXPECT_EQ(sql::toInteger(db->queryValue("SELECT [fig1] FROM [zuhe] WHERE [jiben]=1")), 11);
    db->store();
    db.reset();
    db = engine.open(folder.path() / "a.mdb");
    EXPECT_EQ(texts(), before);
    run("ALTER TABLE [zuhe] DROP COLUMN [fig1]"); // it is read
    EXPECT_EQ(texts(), before);
}

TEST_F(Recipes, ANumberAloneDoesNotMatchInsideTwoNeighbours) {
    slt::makeBets(*db, "zuhe", {{1, 20, 3, 4, 5, 6, 7}, {10, 11, 13, 14, 15, 16, 7}, {11, 10, 1, 2, 3, 4, 5}});
    run(padded);
    const auto count = [&](const std::string& pattern) {
        return sql::toInteger(
            db->queryValue("SELECT Count(*) FROM [zuhe] WHERE [Numstring] LIKE \"" + pattern + "\""));
    };
    EXPECT_EQ(count("*12*"), 0); // "01 20" holds 1 and 20, "11 10" 11 and 10
    EXPECT_EQ(count("*10*"), 2);
    EXPECT_EQ(count("*10**11*"), 1); // in this order
    EXPECT_EQ(count("*10**10*"), 0); // one number serves once
    EXPECT_EQ(count("*1*"), 3);      // any text with a 1
}

} // namespace
