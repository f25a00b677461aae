// Rows of a generation: order, idx, counts, progress; against hand-worked rows and a slow way of choosing.
#include "executor_names.h"
#include "selection/bet_source.h"

#include <algorithm>
#include <array>
#include <bit>
#include <filesystem>
#include <numeric>
#include <random>
#include <unistd.h>

#include <gtest/gtest.h>

namespace selection {
namespace {

/// Called with 1, 2, 3, … as the rows are written.
using TellStep = std::function<void(int step)>;

Generated generate(sql::Database& database, const TableShape& shape, GenerationInput& input,
                   const TellStep& progress) {
    struct StepTeller final : workspace::Progress {
        explicit StepTeller(const TellStep& tell) : m_tell(tell) {}
        bool advance(double) override {
            m_tell(++m_steps);
            return true;
        }
        const TellStep& m_tell;
        int m_steps = 0;
    } teller(progress);
    return Enumeration(input).fill(database, shape, progress ? &teller : nullptr);
}

constexpr TableShape kWithBlue{"zuhe", 6, true, false};
constexpr TableShape kRedsOnly{"zuheR", 6, false, false};
constexpr TableShape kBankersWithBlue{"zuhe", 6, true, true};
constexpr TableShape kBankersOnly{"zuheR", 6, false, true};
constexpr TableShape kSevenReds{"zuhef", 7, false, false};

using Row = std::vector<int>;

GenerationInput plainInput(int reds, std::vector<std::int32_t> blues) {
    GenerationInput input;
    input.chosen.reds.resize(static_cast<std::size_t>(reds));
    std::iota(input.chosen.reds.begin(), input.chosen.reds.end(), 1);
    input.chosen.blues = std::move(blues);
    input.Genreds = reds;
    return input;
}

class EnumerationRows : public testing::TestWithParam<sql::Executor> {
  protected:
    EnumerationRows() : m_engine(sql::EngineOptions{.combinations = GetParam()}) {
        m_folder = std::filesystem::temp_directory_path() / ("enumeration_" + std::to_string(getpid()));
        std::filesystem::create_directories(m_folder);
        m_database = m_engine.create(m_folder / "filnum.mdb");
    }
    ~EnumerationRows() override {
        m_database.reset();
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    Generated run(const TableShape& shape, GenerationInput input, const TellStep& progress = {}) {
        return generate(*m_database, shape, input, progress);
    }

    /// idx and the numbers of all rows.
    std::vector<Row> rows(const TableShape& shape) {
        std::string columns = "idx";
        const int numbers = shape.reds + (shape.blue ? 1 : 0);
        for (int number = 1; number <= numbers; ++number)
            columns += ",fig" + std::to_string(number);
        const sql::Rows found = m_database->query("SELECT " + columns + " FROM [" + std::string(shape.table) + "]");
        std::vector<Row> result;
        for (std::int64_t row = 0; row < found.count(); ++row) {
            Row& made = result.emplace_back();
            for (int column = 0; column <= numbers; ++column)
                made.push_back(static_cast<int>(found.integerAt(row, column)));
        }
        return result;
    }

    std::filesystem::path m_folder;
    sql::Engine m_engine;
    std::unique_ptr<sql::Database> m_database;
};

/// Every subset of `size` of the list, in the order of a selector string: the slow second way.
std::vector<Row> subsets(const std::vector<std::int32_t>& list, std::size_t size) {
    std::vector<bool> taken(list.size(), false);
    std::fill_n(taken.begin(), size, true);
    std::vector<Row> found;
    do {
        Row& row = found.emplace_back();
        for (std::size_t place = 0; place < list.size(); ++place)
            if (taken[place])
                row.push_back(list[place]);
    } while (std::prev_permutation(taken.begin(), taken.end()));
    return found;
}

TEST_P(EnumerationRows, SevenRedsAndTwoBluesComeWithTheBlueVaryingFastest) {
    const Generated generated = run(kWithBlue, plainInput(7, {3, 9}));
    const std::vector<Row> found = rows(kWithBlue);
    ASSERT_EQ(found.size(), 14U);
    EXPECT_EQ(generated.announced, 14);
    EXPECT_EQ(generated.written, 14);
    EXPECT_EQ(found[0], (Row{1, 1, 2, 3, 4, 5, 6, 3}));
    EXPECT_EQ(found[1], (Row{2, 1, 2, 3, 4, 5, 6, 9}));
    EXPECT_EQ(found[2], (Row{3, 1, 2, 3, 4, 5, 7, 3}));
    EXPECT_EQ(found[3], (Row{4, 1, 2, 3, 4, 5, 7, 9}));
    EXPECT_EQ(found[4], (Row{5, 1, 2, 3, 4, 6, 7, 3}));
    EXPECT_EQ(found[13], (Row{14, 2, 3, 4, 5, 6, 7, 9}));
}

TEST_P(EnumerationRows, SixRedsAndOneBlueGiveOneRowAndOneStepOfProgress) {
    std::vector<int> steps;
    run(kWithBlue, plainInput(6, {5}), [&](int step) { steps.push_back(step); });
    EXPECT_EQ(rows(kWithBlue), (std::vector<Row>{{1, 1, 2, 3, 4, 5, 6, 5}}));
    EXPECT_EQ(steps, (std::vector<int>{1}));
}

TEST_P(EnumerationRows, TheOrderIsThatOfSubsetsOverTheListWhateverTheNumbers) {
    GenerationInput input = plainInput(10, {16, 2, 7});
    input.chosen.reds = {2, 3, 5, 7, 11, 13, 17, 19, 23, 29};
    run(kWithBlue, input);
    std::vector<Row> expected;
    for (const Row& reds : subsets(input.chosen.reds, 6))
        for (const int blue : {16, 2, 7}) {
            Row row{static_cast<int>(expected.size()) + 1};
            row.insert(row.end(), reds.begin(), reds.end());
            row.push_back(blue);
            expected.push_back(row);
        }
    EXPECT_EQ(rows(kWithBlue), expected);
}

TEST_P(EnumerationRows, RowsWithoutABlueNeedNone) {
    const Generated generated = run(kRedsOnly, plainInput(9, {}));
    EXPECT_EQ(generated.announced, 84);
    EXPECT_EQ(rows(kRedsOnly).size(), 84U);
    EXPECT_EQ(rows(kRedsOnly)[83], (Row{84, 4, 5, 6, 7, 8, 9}));
}

TEST_P(EnumerationRows, FewerThanSixRedsGiveNoRow) {
    EXPECT_EQ(run(kWithBlue, plainInput(5, {1})).announced, 0);
    EXPECT_TRUE(rows(kWithBlue).empty());
}

TEST_P(EnumerationRows, AFreshRowIsInPlayWithoutAReason) {
    run(kWithBlue, plainInput(6, {5}));
    const sql::Rows row = m_database->query(
        "SELECT [unslt],[preunslt],[tmpunslt],[Gpslt],[canshu],[Fliter],[Errnum],[Numstring],[SKnum],[JSqihao] FROM "
        "[zuhe]");
    for (int bit = 0; bit < 4; ++bit)
        EXPECT_EQ(row.at(0, bit), sql::Value(std::int64_t{0})) << row.columnName(bit);
    for (int empty = 4; empty < 10; ++empty)
        EXPECT_TRUE(sql::isNull(row.at(0, empty))) << row.columnName(empty);
}

TEST_P(EnumerationRows, AGenerationReplacesTheTableOfTheOneBefore) {
    run(kWithBlue, plainInput(8, {1, 2}));
    m_database->execute("UPDATE [zuhe] SET [unslt]=true");
    run(kBankersWithBlue, plainInput(6, {4}));
    EXPECT_EQ(rows(kWithBlue), (std::vector<Row>{{1, 1, 2, 3, 4, 5, 6, 4}}));
    EXPECT_EQ(m_database->queryValue("SELECT Count(*) FROM [zuhe] WHERE [unslt] = false"),
              sql::Value(std::int64_t{1}));
}

TEST_P(EnumerationRows, BankersStandInTheirSortedPlaces) {
    GenerationInput input;
    input.chosen = {{1, 10, 25, 30, 31}, {3, 20}, {8}};
    input.Genreds = 5;
    const Generated generated = run(kBankersWithBlue, input);
    EXPECT_EQ(generated.announced, 5); // 5 over 4
    const std::vector<Row> found = rows(kBankersWithBlue);
    ASSERT_EQ(found.size(), 5U);
    EXPECT_EQ(found[0], (Row{1, 1, 3, 10, 20, 25, 30, 8}));
    EXPECT_EQ(found[1], (Row{2, 1, 3, 10, 20, 25, 31, 8}));
    EXPECT_EQ(found[4], (Row{5, 3, 10, 20, 25, 30, 31, 8}));
}

TEST_P(EnumerationRows, EveryCountOfBankersGivesAscendingRowsWithAllOfThem) {
    for (int bankers = 0; bankers <= 5; ++bankers) {
        GenerationInput input = plainInput(7, {1, 2});
        for (auto& red : input.chosen.reds)
            red *= 4;                                         // 4, 8, … 28
        const std::vector<std::int32_t> all{30, 5, 17, 9, 1}; // in the order of marking, above, below and between
        input.chosen.bankers.assign(all.begin(), all.begin() + bankers);
        const Generated generated = run(kBankersWithBlue, input);
        const auto expected = subsets(input.chosen.reds, static_cast<std::size_t>(6 - bankers));
        const std::vector<Row> found = rows(kBankersWithBlue);
        ASSERT_EQ(found.size(), expected.size() * 2) << bankers;
        EXPECT_EQ(generated.announced, static_cast<std::int64_t>(found.size()));
        for (std::size_t row = 0; row < found.size(); ++row) {
            Row reds = expected[row / 2];
            reds.insert(reds.end(), input.chosen.bankers.begin(), input.chosen.bankers.end());
            std::sort(reds.begin(), reds.end());
            EXPECT_EQ(Row(found[row].begin() + 1, found[row].end() - 1), reds) << bankers << " bankers, row " << row;
        }
    }
}

TEST_P(EnumerationRows, SixBankersWriteNothingButAnnounceOneSetForEachBlue) {
    GenerationInput input = plainInput(8, {1, 2, 3});
    input.chosen.bankers = {9, 10, 11, 12, 13, 14};
    const Generated generated = run(kBankersWithBlue, input);
    EXPECT_EQ(generated.announced, 3); // C(8, 0) for each of three blues
    EXPECT_EQ(generated.written, 0);
    EXPECT_TRUE(rows(kBankersWithBlue).empty());
    EXPECT_EQ(run(kBankersOnly, input).announced, 1);
    input.chosen.bankers.push_back(15);
    EXPECT_EQ(run(kBankersWithBlue, input).announced, 3);
    EXPECT_TRUE(rows(kBankersWithBlue).empty());
}

TEST_P(EnumerationRows, AMultiRowRunRepeatsTheRowNumberForEachBlueAndLastsOnce) {
    GenerationInput input = plainInput(8, {7, 4});
    input.Multirows = true;
    input.Multicount = 5;
    input.Multitable.resize(6);
    for (int line = 1; line <= 5; ++line)
        for (int column = 1; column <= 6; ++column)
            input.Multitable[static_cast<std::size_t>(line)][static_cast<std::size_t>(column)] = line + 4 * column;
    int steps = 0;
    const Generated generated = generate(*m_database, kWithBlue, input, [&](int) { ++steps; });
    const std::vector<Row> found = rows(kWithBlue);
    ASSERT_EQ(found.size(), 10U);
    EXPECT_EQ(generated.announced, 10);
    EXPECT_EQ(found[0], (Row{1, 5, 9, 13, 17, 21, 25, 7}));
    EXPECT_EQ(found[1], (Row{1, 5, 9, 13, 17, 21, 25, 4}));
    EXPECT_EQ(found[2], (Row{2, 6, 10, 14, 18, 22, 26, 7}));
    EXPECT_EQ(found[9], (Row{5, 9, 13, 17, 21, 25, 29, 4}));
    EXPECT_EQ(steps, 0);
    EXPECT_FALSE(input.Multirows);
    EXPECT_EQ(generate(*m_database, kWithBlue, input, {}).written, 56); // 8 over 6, two blues
}

TEST_P(EnumerationRows, AMultiRowRunWithoutBluesWritesEachRowOnce) {
    GenerationInput input = plainInput(8, {7, 4});
    input.Multirows = true;
    input.Multicount = 2;
    input.Multitable = {{}, {0, 1, 2, 3, 4, 5, 6, 7}, {0, 2, 3, 4, 5, 6, 7, 8}};
    EXPECT_EQ(generate(*m_database, kRedsOnly, input, {}).announced, 2);
    EXPECT_EQ(rows(kRedsOnly), (std::vector<Row>{{1, 1, 2, 3, 4, 5, 6}, {2, 2, 3, 4, 5, 6, 7}}));
}

TEST_P(EnumerationRows, DrawnNumbersTakeThePlaceOfTheChosenOnes) {
    GenerationInput input = plainInput(9, {1});
    input.Fromdraw = true;
    input.Drawnlist = {4, 8, 15, 16, 23, 32, 33, 1};
    input.Genreds = 7;
    run(kWithBlue, input);
    const std::vector<Row> found = rows(kWithBlue);
    ASSERT_EQ(found.size(), 7U);
    EXPECT_EQ(found[0], (Row{1, 4, 8, 15, 16, 23, 32, 1}));
    EXPECT_EQ(found[6], (Row{7, 8, 15, 16, 23, 32, 33, 1}));
}

TEST_P(EnumerationRows, SevenRedRowsReadTheChosenNumbersWhateverWasDrawn) {
    GenerationInput input = plainInput(8, {1, 2});
    input.Fromdraw = true;
    input.Drawnlist = {30, 31, 32, 33, 34, 35, 36, 37};
    input.Multirows = true;
    EXPECT_EQ(generate(*m_database, kSevenReds, input, {}).announced, 8);
    EXPECT_TRUE(input.Multirows);
    const std::vector<Row> found = rows(kSevenReds);
    ASSERT_EQ(found.size(), 8U);
    EXPECT_EQ(found[1], (Row{2, 1, 2, 3, 4, 5, 6, 8}));
}

TEST_P(EnumerationRows, ProgressComesEverySixtyFourthPartOrEveryRow) {
    const auto stepsOf = [&](int reds, std::vector<std::int32_t> blues) {
        std::vector<int> steps;
        run(kWithBlue, plainInput(reds, std::move(blues)), [&](int step) { steps.push_back(step); });
        for (std::size_t place = 0; place < steps.size(); ++place)
            EXPECT_EQ(steps[place], static_cast<int>(place) + 1);
        return steps.size();
    };
    EXPECT_EQ(stepsOf(9, {1}), 84U);        // below 128 rows a step is a row, past the scale of 64: no clamp
    EXPECT_EQ(stepsOf(10, {1}), 70U);       // 210 rows, a step of 3
    EXPECT_EQ(stepsOf(12, {1, 2, 3}), 64U); // 2,772 rows, a step of 43: 64 whole steps
    EXPECT_EQ(stepsOf(20, {1, 2, 3}), 64U); // 116,280 rows, several blocks
}

TEST_P(EnumerationRows, BlocksJoinWithoutAGap) {
    const Generated generated = run(kWithBlue, plainInput(20, {1, 2, 3})); // 116,280 rows: two blocks
    ASSERT_EQ(generated.written, 116280);
    const sql::Rows found = m_database->query("SELECT [idx],[fig1],[fig6],[fig7] FROM [zuhe]");
    ASSERT_EQ(found.count(), 116280);
    for (std::int64_t row = 65500; row < 65700; ++row) {
        EXPECT_EQ(found.integerAt(row, 0), row + 1);
        EXPECT_EQ(found.integerAt(row, 3), row % 3 + 1);
    }
    EXPECT_EQ(found.integerAt(116279, 1), 15);
    EXPECT_EQ(found.integerAt(116279, 2), 20);
}

INSTANTIATE_TEST_SUITE_P(Executors, EnumerationRows, testing::Values(sql::Executor::Sqlite, sql::Executor::Column));

/// The sets around the bankers by falling bit masks, whose highest bit is the first drag: an independent second way.
std::vector<Row> setsByMasks(const std::vector<std::int32_t>& drags, const std::vector<std::int32_t>& bankers,
                             int size) {
    std::vector<Row> found;
    const int count = static_cast<int>(drags.size());
    for (std::uint32_t mask = (1U << count) - 1; mask > 0; --mask) { // the lexicographic order of ascending places
        if (std::popcount(mask) != size - static_cast<int>(bankers.size()))
            continue;
        Row row(bankers.begin(), bankers.end());
        for (int place = 0; place < count; ++place)
            if ((mask >> (count - 1 - place) & 1U) != 0)
                row.push_back(drags[static_cast<std::size_t>(place)]);
        std::sort(row.begin(), row.end());
        found.push_back(row);
    }
    return found;
}

std::vector<Row> numbered(const std::vector<Row>& sets, const std::vector<std::int32_t>& blues, bool blue) {
    std::vector<Row> rows;
    for (const Row& set : sets)
        for (std::size_t each = 0; each < (blue ? blues.size() : 1); ++each) {
            Row row{static_cast<int>(rows.size()) + 1};
            row.insert(row.end(), set.begin(), set.end());
            if (blue)
                row.push_back(blues[each]);
            rows.push_back(row);
        }
    return rows;
}

struct Choice {
    std::vector<std::int32_t> drags, bankers, blues;
};

/// Numbers of a random choice: drags ascending, the others in the order of the clicks.
Choice randomChoice(std::mt19937& random, bool bankers, int reds) {
    std::vector<std::int32_t> all(33), blues(16);
    std::iota(all.begin(), all.end(), 1);
    std::iota(blues.begin(), blues.end(), 1);
    std::shuffle(all.begin(), all.end(), random);
    std::shuffle(blues.begin(), blues.end(), random);
    const auto d = static_cast<std::ptrdiff_t>(bankers ? 1 + random() % static_cast<unsigned>(reds - 1) : 0);
    const auto n = static_cast<std::ptrdiff_t>(reds - d + static_cast<std::ptrdiff_t>(random() % 6));
    Choice choice{{all.begin(), all.begin() + n},
                  {all.begin() + n, all.begin() + n + d},
                  {blues.begin(), blues.begin() + 1 + static_cast<std::ptrdiff_t>(random() % 4)}};
    std::sort(choice.drags.begin(), choice.drags.end());
    return choice;
}

TEST_P(EnumerationRows, EveryFormWritesWhatBitMasksGiveForRandomChoices) {
    constexpr TableShape kSevenWithBankers{"zuhef", 7, false, true};
    constexpr std::array kForms{kWithBlue, kRedsOnly, kBankersWithBlue, kBankersOnly, kSevenReds, kSevenWithBankers};
    constexpr unsigned kSeed = 20030216;
    constexpr int kChoices = 12;
    std::mt19937 random(kSeed);
    for (const TableShape& form : kForms)
        for (int round = 0; round < kChoices; ++round) {
            const Choice choice = randomChoice(random, form.bankers, form.reds);
            GenerationInput input;
            input.chosen = {choice.drags, choice.bankers, choice.blues};
            input.Genreds = static_cast<int>(choice.drags.size());
            const std::int64_t announced = Enumeration(input).announced(form);
            const Generated generated = run(form, input);
            const std::vector<Row> expected =
                numbered(setsByMasks(choice.drags, choice.bankers, form.reds), choice.blues, form.blue);
            const std::vector<Row> found = rows(form);
            ASSERT_FALSE(expected.empty());
            ASSERT_EQ(found.size(), expected.size()) << form.table << " round " << round << " seed " << kSeed;
            EXPECT_EQ(found.front(), expected.front());
            EXPECT_EQ(found.back(), expected.back());
            EXPECT_TRUE(found == expected) << form.table << " round " << round << " seed " << kSeed;
            EXPECT_EQ(announced, static_cast<std::int64_t>(found.size()));
            EXPECT_EQ(generated.announced, announced);
            EXPECT_EQ(generated.written, announced);
        }
}

TEST_P(EnumerationRows, OfAShortDrawTheMissingNumbersAreZero) {
    GenerationInput input = plainInput(8, {5});
    input.Genreds = 7;
    input.Fromdraw = true;
    input.Drawnlist = {3, 8, 13, 18, 23, 28};
    run(kWithBlue, input);
    const std::vector<Row> found = rows(kWithBlue);
    ASSERT_EQ(found.size(), 7U);
    EXPECT_EQ(found[0], (Row{1, 3, 8, 13, 18, 23, 28, 5}));
    EXPECT_EQ(found[1], (Row{2, 3, 8, 13, 18, 23, 0, 5}));
    EXPECT_EQ(found[6], (Row{7, 8, 13, 18, 23, 28, 0, 5}));
}

TEST(CombinationCount, FollowsTheClosedForm) {
    EXPECT_EQ(combinationCount(33, 6), 1107568);
    EXPECT_EQ(combinationCount(38, 6), 2760681);
    EXPECT_EQ(combinationCount(38, 7), 12620256);
    EXPECT_EQ(combinationCount(6, 6), 1);
    EXPECT_EQ(combinationCount(5, 6), 0);
    EXPECT_EQ(combinationCount(8, 0), 1);
    EXPECT_EQ(combinationCount(0, 0), 1);
    EXPECT_EQ(combinationCount(2, 3), 0);
    EXPECT_EQ(combinationCount(8, -1), 1);
}

TEST(CombinationCount, FollowsPascalsTriangle) {
    for (int all = 1; all <= 38; ++all)
        for (int taken = 1; taken < all; ++taken)
            EXPECT_EQ(combinationCount(all, taken),
                      combinationCount(all - 1, taken - 1) + combinationCount(all - 1, taken));
}

} // namespace
} // namespace selection
