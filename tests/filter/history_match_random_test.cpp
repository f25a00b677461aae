// The one pass of a history filter against the four statements a draw, on random tables; and the matching itself
// against a plain count.
#include <bit>
#include <random>

#include <gtest/gtest.h>

#include "environment_number.h"
#include "executor_names.h"
#include "filter/bench_table.h"
#include "filter/draw_bits.h"
#include "filter/history_match.h"
#include "workspace/templates.h"

namespace filter_test {
namespace {

using filter::matchHistory;
using filter::matchHistoryByStatements;
using filter::SuperFilter;
using Texts = std::vector<std::string>;

/// Draws, oldest first.
history::History historyOf(const std::vector<history::Draw>& draws) {
    history::History history;
    history.Lsnum = static_cast<int>(draws.size());
    history.Lshm.insert(history.Lshm.end(), draws.begin(), draws.end());
    return history;
}

/// Random tables and histories: the pass must leave every column as the statements do.
class RandomMatch {
  public:
    RandomMatch(unsigned seed, sql::Executor executor) : m_random(seed), m_executor(executor) {}

    void compareOnce() {
        const history::History history = makeHistory();
        makeRows();
        const std::int64_t draws = below(4) == 0 ? below(history.Lsnum + 4) : history.Lsnum;
        const SuperFilter& filter = filter::sixAndBlueSuperFilters()[below(4)];
        const Texts passed = run(history, filter, draws, &matchWithProgress);
        const Texts literal = run(history, filter, draws, &matchHistoryByStatements);
        ASSERT_EQ(passed.size(), literal.size());
        for (std::size_t row = 0; row < passed.size(); ++row)
            ASSERT_EQ(passed[row], literal[row]) << "row " << row << ", " << draws << " of " << history.Lsnum;
        m_hits += static_cast<int>(m_changed);
    }
    int hits() const { return m_hits; }

  private:
    struct Rising final : workspace::Progress {
        double last = 0;
        bool advance(double share) override {
            EXPECT_GT(share, last);
            EXPECT_LE(share, 1);
            last = share;
            return true;
        }
    };
    static void matchWithProgress(const filter::Workbench& bench, const SuperFilter& filter, std::int64_t draws) {
        Rising progress;
        EXPECT_TRUE(matchHistory(bench, filter, draws, &progress));
    }

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }

    history::History makeHistory() {
        std::vector<history::Draw> draws(static_cast<std::size_t>(below(3) == 0 ? below(3) : below(300)));
        m_reds = 8 + below(30); // few reds: many hits
        for (std::size_t place = 0; place < draws.size(); ++place) {
            draws[place] = {static_cast<std::int32_t>(2003001 + place)};
            for (int red : someReds())
                draws[place][static_cast<std::size_t>(++m_slot)] = red;
            m_slot = 0;
            draws[place][7] = 1 + below(5);
        }
        if (below(6) == 0 && !draws.empty()) // a draw that no rule allows
            draws[static_cast<std::size_t>(below(static_cast<int>(draws.size())))][1] =
                std::array{0, 5, 64, -3}[static_cast<std::size_t>(below(4))];
        return historyOf(draws);
    }

    std::vector<int> someReds() {
        std::vector<int> all;
        for (int red = 1; red <= m_reds; ++red)
            all.push_back(red);
        std::shuffle(all.begin(), all.end(), m_random);
        all.resize(6);
        std::sort(all.begin(), all.end());
        return all;
    }

    void makeRows() {
        m_rows.clear();
        m_odd = below(4) == 0;
        const int sets = below(5) == 0 ? below(2) : below(400);
        std::int32_t idx = 0;
        for (int set = 0; set < sets; ++set) {
            const std::vector<int> reds = someReds();
            for (int blue = 1; blue <= 1 + below(6); ++blue) {
                std::vector<std::int32_t> row{below(20) == 0 ? 1 : ++idx};
                for (const int red : reds)
                    row.push_back(m_odd && below(15) == 0 ? oddNumber() : red);
                row.push_back(blue);
                m_rows.push_back(row);
            }
        }
        m_statementSeed = m_random();
    }

    int oddNumber() { return std::array{0, -5, 5, 64, 105, 1234, -1705, 99}[static_cast<std::size_t>(below(8))]; }

    Texts run(const history::History& history, const SuperFilter& filter, std::int64_t draws,
              void (*match)(const filter::Workbench&, const SuperFilter&, std::int64_t)) {
        ScratchFolder folder;
        sql::Engine engine({.combinations = m_executor});
        const auto db = engine.create(folder.file("a.mdb"));
        std::mt19937 random(m_statementSeed);
        const bool blue = random() % 2 != 0;
        const int reds =
            !blue && random() % 2 != 0 ? 7 : 6; // of seven, the last stands out of order and may be doubled
        const std::string_view name = blue ? "zuhe" : reds == 7 ? "zuhef" : "zuheR";
        db->execute(workspace::createCombinationTable(name));
        for (const char* column : {"[SKnum] integer", "[JSqihao] long"}) // seven reds lack them
            sql::passOver(*db, "ALTER TABLE [" + std::string(name) + "] ADD COLUMN " + column);
        fill(*db, name);
        for (const std::string& statement : disorder(random, name))
            sql::passOver(*db, statement);
        sql::Transaction together(*db); // SQLite waits for the disk after every statement otherwise
        match({*db, name, history, 33, reds, blue}, filter, draws);
        together.commit();
        return contents(*db, name);
    }

    void fill(sql::Database& db, std::string_view name) {
        std::vector<std::vector<std::int32_t>> columns(8);
        sql::RowBlock block;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            for (const auto& row : m_rows)
                columns[column].push_back(row[column]);
            block.columns.push_back(column == 0 ? "idx" : "fig" + std::to_string(column));
        }
        block.values.assign(columns.begin(), columns.end());
        db.appendRows(name, block);
    }

    /// What earlier work may have left in a table; now and then a column is missing.
    static Texts disorder(std::mt19937& random, std::string_view name) {
        const std::string update = "UPDATE [" + std::string(name) + "] SET ";
        const std::string rows = " WHERE [idx] mod " + std::to_string(2 + random() % 5) + " = 1";
        Texts statements;
        for (const char* set :
             {"[unslt]=true , [Fliter]=\"手工删除\"", "[JSqihao]=2002001", "[SKnum]=300000", "[canshu]=-9",
              "[preunslt]=true", "[fig2]=Null", "[fig6]=Null", "[fig7]=Null", "[unslt]=true"})
            if (random() % 2 == 0)
                statements.push_back(update + set + (random() % 8 == 0 ? "" : rows));
        for (const char* column : {"JSqihao", "Numstring", "SKnum", "canshu", "fig3"})
            if (random() % 25 == 0)
                statements.push_back("ALTER TABLE [" + std::string(name) + "] DROP COLUMN [" + column + "]");
        return statements;
    }

    Texts contents(sql::Database& db, std::string_view name) {
        const sql::Rows rows = db.query("SELECT * FROM [" + std::string(name) + "]");
        Texts lines;
        m_changed = false;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            lines.emplace_back();
            for (int column = 0; column < rows.columnCount(); ++column) {
                const sql::Value value = rows.at(row, column);
                lines.back() +=
                    rows.columnName(column) + "=" + (sql::isNull(value) ? "Null" : sql::toText(value)) + " ";
            }
            m_changed = m_changed || lines.back().find("码相同") != std::string::npos;
        }
        return lines;
    }

    std::mt19937 m_random;
    sql::Executor m_executor;
    int m_reds = 33;
    int m_slot = 0;
    bool m_odd = false;
    bool m_changed = false;
    int m_hits = 0;
    unsigned m_statementSeed = 0;
    std::vector<std::vector<std::int32_t>> m_rows;
};

class RandomHistoryMatch : public testing::TestWithParam<sql::Executor> {};

TEST_P(RandomHistoryMatch, OnePassLeavesRandomTablesAsTheStatementsDo) {
    const unsigned seed = environmentNumber("SSQ_SEED", 20031);
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomMatch random(seed, GetParam());
    const int rounds = GetParam() == sql::Executor::Column ? 60 : 12;
    const int fewest = rounds / 10 + 1; // with fewer hits the filter was hardly tried
    const int most = 10 * rounds;       // another seed may take longer
    for (int round = 0; (round < rounds || random.hits() < fewest) && round < most && !HasFatalFailure(); ++round)
        random.compareOnce();
    EXPECT_GE(random.hits(), fewest);
}

INSTANTIATE_TEST_SUITE_P(Executors, RandomHistoryMatch, testing::ValuesIn(kExecutors));

TEST(DrawBits, FindsTheBestDrawOfEveryBetAsAPlainCountDoes) {
    std::mt19937 random(20031);
    const auto someReds = [&](int highest) {
        filter::NumberMask reds = 0;
        while (std::popcount(reds) < 6)
            reds |= filter::NumberMask{1} << (1 + random() % static_cast<unsigned>(highest));
        return reds;
    };
    for (const std::size_t count : {1, 63, 64, 65, 256, 257, 3358}) {
        std::vector<history::Draw> draws(count);
        std::vector<filter::NumberMask> masks;
        for (history::Draw& draw : draws) {
            masks.push_back(someReds(33));
            std::size_t slot = 0;
            for (filter::NumberMask rest = masks.back(); rest != 0; rest &= rest - 1)
                draw[++slot] = std::countr_zero(rest);
            draw[7] = static_cast<std::int32_t>(1 + random() % 16);
        }
        filter::DrawBits bits(draws);
        for (int bet = 0; bet < 300; ++bet) {
            const filter::NumberMask reds = someReds(38);
            bits.match(reds);
            for (const std::int32_t blue : {-1, 0, 1, 5, 16, 17, 64}) {
                filter::Match best;
                std::int32_t hits = 0;
                for (std::size_t draw = 0; draw < count; ++draw) {
                    hits = std::popcount(masks[draw] & reds) + (draws[draw][7] == blue ? 1 : 0);
                    if (hits > best.count)
                        best = {hits, static_cast<std::int32_t>(draw)};
                }
                ASSERT_EQ(bits.best(blue).count, best.count);
                if (best.count > 0) {
                    ASSERT_EQ(bits.best(blue).draw, best.draw) << count << " draws, blue " << blue;
                }
                ASSERT_EQ(bits.last(blue), hits);
            }
        }
    }
}

TEST(DrawBits, TakeOnlyDrawsOfSixDifferentRedsAndABlue) {
    EXPECT_TRUE(filter::isRegularDraw({1, 1, 2, 3, 4, 5, 63, 1}));
    EXPECT_FALSE(filter::isRegularDraw({1, 1, 2, 3, 4, 5, 5, 1}));
    EXPECT_FALSE(filter::isRegularDraw({1, 1, 2, 3, 4, 5, 64, 1}));
    EXPECT_FALSE(filter::isRegularDraw({1, 0, 2, 3, 4, 5, 6, 1}));
    EXPECT_FALSE(filter::isRegularDraw({1, 1, 2, 3, 4, 5, 6, 0}));
    EXPECT_FALSE(filter::isRegularDraw(history::Draw{}));
}

} // namespace
} // namespace filter_test
