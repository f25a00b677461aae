// Random statements on random tables: both executors must leave the same table, column by column.
//
// The seed is printed; SSQ_SEED repeats a run, SSQ_STATEMENTS sets its length. A statement that differs belongs, cut
// down, into tests/dialect.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "environment_number.h"
#include "scratch_folder.h"
#include "sql/database.h"
#include "sql/parser.h"
#include "sql/slt_support.h"

namespace {

class Maker {
  public:
    explicit Maker(unsigned seed) : m_random(seed) {}

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    bool oneIn(int n) { return below(n) == 0; }
    std::string pick(std::initializer_list<const char*> texts) {
        return *(texts.begin() + below(static_cast<int>(texts.size())));
    }

    std::string number(int depth) {
        if (depth <= 0 || oneIn(4))
            return leafNumber();
        switch (below(9)) {
        case 0:
        case 1:
        case 2:
            return "(" + number(depth - 1) + pick({" + ", " - ", "*"}) + number(depth - 1) + ")";
        case 3:
            return "(" + number(depth - 1) + " mod " + number(depth - 1) + ")";
        case 4:
            return "(" + number(depth - 1) + "/" + number(depth - 1) + ")";
        case 5:
            return "-" + number(depth - 1);
        case 6:
            return "IIf(" + condition(depth - 1) + "," + number(depth - 1) + "," + number(depth - 1) + ")";
        case 7:
            return oneIn(2) ? "InStr(" + text(depth - 1) + "," + text(depth - 1) + ")"
                            : "int(" + number(depth - 1) + ")";
        default:
            return "(" + condition(depth - 1) + ")";
        }
    }

    std::string text(int depth) {
        if (depth <= 0 || oneIn(4))
            return pick({"[t]", "[u]", "[t]", "\"ab\"", "\" 3 12 7 \"", "\"\"", "'大小:'"});
        switch (below(5)) {
        case 0:
            return "format(" + number(depth - 1) + ",\"00\")";
        case 1:
            return "IIf(" + condition(depth - 1) + "," + text(depth - 1) + "," + text(depth - 1) + ")";
        case 2:
            return "Chr(" + pick({"32", "65", "[a]", "[b]+60"}) + ")";
        default:
            return "(" + (oneIn(2) ? text(depth - 1) : number(depth - 1)) + " & " +
                   (oneIn(2) ? text(depth - 1) : number(depth - 1)) + ")";
        }
    }

    std::string condition(int depth) {
        switch (below(depth <= 0 ? 3 : 9)) {
        case 0:
            return "[" + pick({"p", "q"}) + "]" + pick({"=false", " = TRUE", "<>true", "=1"});
        case 1:
            return "(" + number(depth - 1) + pick({"=", "<>", "<", "<=", ">", ">="}) + number(depth - 1) + ")";
        case 2:
            return "(" + text(depth - 1) + pick({"=", "<>", "<", ">="}) + text(depth - 1) + ")";
        case 3:
            return "(" + condition(depth - 1) + pick({" AND ", " OR "}) + condition(depth - 1) + ")";
        case 4:
            return "NOT " + condition(depth - 1);
        case 5:
            return "(" + (oneIn(2) ? text(depth - 1) : number(depth - 1)) + pick({" LIKE ", " NOT LIKE "}) +
                   pick({"\"*1*\"", "\"*05*\"", "\"*02**03*\"", "\"a?\"", "\"* \"&[a]&\" *\"", "\"*\"&[b]&\"*\"",
                         "[t]", "\"*\""}) +
                   ")";
        case 6:
            return "(" + number(depth - 1) + pick({" IS NULL)", " IS NOT NULL)"});
        case 7:
            return "(" + pick({"[a]", "[w]", "[b]+1"}) + pick({" IN ", " NOT IN "}) +
                   "(SELECT [b] FROM [zuheR] WHERE " + condition(0) + "))";
        default:
            return "(" + pick({"[t]", "[u]&\"\""}) + pick({" IN ", " NOT IN "}) + "(SELECT [u] FROM [zuheR] WHERE " +
                   condition(0) + "))";
        }
    }

    std::string update() {
        if (oneIn(8)) // a text that follows from numbers of its row
            return "UPDATE [zuhe] SET [" + pick({"t", "u"}) + "]= format([a],\"00\") & " +
                   pick({"Chr(32)", "\" \"", "'-'"}) + " & " +
                   pick({"format([id],\"00\")", "[b]", "format([b],\"00\")"});
        std::string set = assignment();
        for (int more = below(3); more > 0; --more)
            set += ", " + assignment();
        return "UPDATE [zuhe] SET " + set + (oneIn(3) ? "" : " WHERE " + condition(3));
    }

    std::string select() {
        if (oneIn(3))
            return "SELECT Count(*), Count([a]), Min(" + number(1) + "), Max([t]), SUM(" + number(1) +
                   "), Avg([a]) FROM [zuhe] WHERE " + condition(2);
        return "SELECT " + pick({"", "DISTINCT "}) + number(2) + ", " + text(1) + ", [a], [p] FROM [zuhe] WHERE " +
               condition(2) + (oneIn(2) ? "" : " ORDER BY [a] DESC, [w], 1");
    }

    std::string move() {
        switch (below(4)) {
        case 0:
            return "INSERT INTO [zuhe] SELECT [b] AS [a], [t] AS [u], [w], [p] FROM [zuhe] WHERE [id] < 3";
        case 1:
            return "DELETE FROM [zuhe] WHERE [id] = " + std::to_string(below(60)) + " AND " + condition(1);
        case 2:
            return "INSERT INTO [zuhe] ([id],[a],[t],[q]) VALUES (" + std::to_string(below(100)) + "," +
                   std::to_string(below(40)) + ",\"n\" & 1.5," + pick({"true", "0", "Null"}) + ")";
        default:
            return "INSERT INTO [zuhe] ([w]) VALUES (3000000000)";
        }
    }

  private:
    std::string leafNumber() {
        switch (below(4)) {
        case 0:
            return pick({"0", "1", "2", "3", "10", "16.5", ".5", "-3", "2.5", "100000", "2147483647"});
        case 1:
            return pick({"[w]", "[s]", "[p]", "[q]", "Null"});
        default:
            return pick({"[a]", "[b]", "[id]"});
        }
    }

    std::string assignment() {
        switch (below(4)) {
        case 0:
            return "[" + pick({"t", "u"}) + "]=" + (oneIn(4) ? number(2) : text(3));
        case 1:
            return "[" + pick({"p", "q"}) + "]=" + (oneIn(2) ? condition(2) : number(2));
        default:
            return "[" + pick({"a", "b", "w", "s", "a", "b"}) + "]=" + number(3);
        }
    }

    std::mt19937 m_random;
};

/// The same table in both executors.
class Twins {
  public:
    Twins(Maker& maker, int rows, std::size_t batchRows)
        : m_columns({.combinations = sql::Executor::Column, .batchRows = batchRows}),
          m_sqlite({.combinations = sql::Executor::Sqlite}), column(m_columns.create(m_folder.path() / "c.mdb")),
          sqlite(m_sqlite.create(m_folder.path() / "s.mdb")) {
        std::vector<std::vector<std::int32_t>> values(5);
        for (int row = 0; row < rows; ++row) {
            values[0].push_back(row);
            values[1].push_back(maker.below(34));
            values[2].push_back(maker.below(12) - 4);
            values[3].push_back(maker.below(200000) - 100000);
            values[4].push_back(maker.below(3000));
        }
        for (sql::Database* db : {column.get(), sqlite.get()}) {
            db->execute("CREATE TABLE [zuhe]([id] integer,[a] integer,[b] integer,[w] integer,[s] integer,"
                        "[t] string,[u] string,[p] bit,[q] bit)");
            db->appendRows("zuhe", {{"id", "a", "b", "w", "s"}, {values.begin(), values.end()}});
            db->execute("UPDATE [zuhe] SET [t]=\"x\" & [b], [p]=([a] mod 2 = 0) WHERE [a] < 25");
            db->execute("UPDATE [zuhe] SET [b]=Null WHERE [a] mod 7 = 3");
            db->execute("UPDATE [zuhe] SET [u]=\" 3 \" & [a] & \" \" WHERE [id] mod 3 = 1");
            // Sub-selects read a table of their own: SQLite asks one that reads the updated table in mid-update.
            db->execute("SELECT * INTO [zuheR] FROM [zuhe]");
        }
    }

    /// Error number of a statement, and for a query its rows.
    static std::vector<std::string> answers(sql::Database& db, const std::string& statement, bool isQuery) {
        std::vector<std::string> lines;
        try {
            if (!isQuery) {
                db.execute(statement);
                return lines;
            }
            const sql::Rows rows = db.query(statement);
            for (std::int64_t row = 0; row < rows.count(); ++row) {
                lines.emplace_back();
                for (int place = 0; place < rows.columnCount(); ++place)
                    lines.back() += slt::shown(rows.at(row, place)) + "|";
            }
        } catch (const sql::SqlError& error) {
            lines = {"error " + std::to_string(error.number())};
        }
        return lines;
    }

    void expectSame(const std::string& statement, bool isQuery) {
        auto got = answers(*column, statement, isQuery);
        auto expected = answers(*sqlite, statement, isQuery);
        if (statement.find("DISTINCT") != std::string::npos) { // equal sort keys may come in any order there
            std::sort(got.begin(), got.end());
            std::sort(expected.begin(), expected.end());
        }
        ASSERT_EQ(got, expected) << statement;
        if (!isQuery) {
            ASSERT_EQ(answers(*column, "SELECT * FROM [zuhe]", true), answers(*sqlite, "SELECT * FROM [zuhe]", true))
                << statement;
        }
    }

  private:
    ScratchFolder m_folder;
    sql::Engine m_columns;
    sql::Engine m_sqlite;

  public:
    std::unique_ptr<sql::Database> column;
    std::unique_ptr<sql::Database> sqlite;
};

TEST(RandomStatements, LeaveTheSameTableInBothExecutors) {
    const unsigned seed = environmentNumber("SSQ_SEED", std::random_device()());
    const unsigned statements = environmentNumber("SSQ_STATEMENTS", 10000);
    std::printf("seed %u, %u statements\n", seed, statements);
    SCOPED_TRACE("SSQ_SEED=" + std::to_string(seed));
    Maker maker(seed);
    constexpr int kRows[] = {0, 1, 7, 63, 64, 65, 130, 40, 2047, 2048, 2049};
    unsigned run = 0;
    for (int table = 0; run < statements; ++table) {
        const int rows = kRows[table % std::size(kRows)];
        Twins twins(maker, rows, table % 3 == 0 ? 7 : 2048);
        const int length = rows > 1000 ? 15 : 60;
        for (int step = 0; step < length && run < statements; ++step, ++run) {
            const int kind = maker.below(10);
            const std::string statement = kind < 6 ? maker.update() : (kind < 9 ? maker.select() : maker.move());
            twins.expectSame(statement, kind >= 6 && kind < 9);
            if (::testing::Test::HasFatalFailure())
                return;
        }
    }
}

TEST(RandomStatements, PrintToATextThatParsesToTheSamePrint) {
    const unsigned seed = environmentNumber("SSQ_SEED", std::random_device()());
    SCOPED_TRACE("SSQ_SEED=" + std::to_string(seed));
    Maker maker(seed);
    for (int step = 0; step < 3000; ++step) {
        const std::string statement = maker.oneIn(2) ? maker.update() : maker.select();
        const std::string printed = sql::print(sql::parse(statement));
        ASSERT_EQ(sql::print(sql::parse(printed)), printed) << statement;
    }
}

TEST(RandomStatements, EveryConditionSplitsTheRowsIntoHoldsHoldsNotAndUnknown) {
    Maker maker(environmentNumber("SSQ_SEED", std::random_device()()));
    Twins twins(maker, 2049, 2048);
    const auto countOf = [&](const std::string& condition) {
        return sql::toInteger(twins.column->queryValue("SELECT Count(*) FROM [zuhe] WHERE " + condition));
    };
    for (int step = 0; step < 300; ++step) {
        const std::string condition = maker.condition(3);
        ASSERT_EQ(countOf("(" + condition + ")") + countOf("NOT (" + condition + ")") +
                      countOf("(" + condition + ") IS NULL"),
                  2049)
            << condition;
    }
}

} // namespace
