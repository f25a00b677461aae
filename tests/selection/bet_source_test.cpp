// Sources of bets: a generation that is given up leaves the former table whole, whenever that is.
#include "selection/bet_source.h"

#include <numeric>
#include <random>

#include <gtest/gtest.h>

#include "combination_fixture.h"
#include "executor_names.h"

namespace selection {
namespace {

constexpr TableShape kWithBlue{"zuhe", 6, true, false};

GenerationInput someReds(int reds, int blues) {
    GenerationInput input;
    input.chosen.reds.resize(static_cast<std::size_t>(reds));
    std::iota(input.chosen.reds.begin(), input.chosen.reds.end(), 1);
    input.chosen.blues.resize(static_cast<std::size_t>(blues));
    std::iota(input.chosen.blues.begin(), input.chosen.blues.end(), 1);
    input.Genreds = reds;
    return input;
}

/// Gives up when it has been asked so many times.
class Impatient final : public workspace::Progress {
  public:
    explicit Impatient(int patience) : m_patience(patience) {}
    bool advance(double share) override {
        EXPECT_GT(share, m_share);
        m_share = share;
        ++asked;
        return asked < m_patience;
    }
    int asked = 0;

  private:
    int m_patience;
    double m_share = 0;
};

class BetSources : public CombinationsOnEither {
  protected:
    /// A table with values, reasons and states.
    void makeFormer() {
        GenerationInput input = someReds(9, 2);
        Enumeration(input).fill(*db, kWithBlue, nullptr);
        for (const char* change :
             {"[canshu]=[fig1] * [fig6]",
              "[unslt]=true , [Fliter] = \"和\" & [canshu] WHERE "
              "[canshu] > 20",
              "[preunslt]=not [unslt] WHERE [fig7] = 2", "[tmpunslt]=true WHERE [fig2] = 3",
              "[Gpslt]=true WHERE [fig3] = 5", "[Errnum]=[fig4] WHERE [fig5] = 7", "[SKnum]=3 WHERE [idx] < 20",
              "[JSqihao]=2026001 WHERE [idx] > 30", "[Numstring]=\"01 \" & [fig1] WHERE [idx] < 40"})
            db->execute(std::string("UPDATE [zuhe] SET ") + change);
    }
};

TEST_P(BetSources, AGenerationThatIsGivenUpLeavesTheFormerTableWhole) {
    makeFormer();
    db->store();
    const auto before = everything();
    std::mt19937 random(20261122);
    for (int turn = 0; turn < 12; ++turn) {
        const int patience = 1 + static_cast<int>(random() % 64);
        Impatient progress(patience);
        GenerationInput input = someReds(20, 3); // 116,280 rows: two blocks
        const Generated generated = Enumeration(input).fill(*db, kWithBlue, &progress);
        EXPECT_TRUE(generated.cancelled);
        EXPECT_EQ(progress.asked, patience) << "asked again after it was given up";
        EXPECT_FALSE(db->storePending());
        ASSERT_EQ(everything(), before) << "given up after " << patience;
    }
    EXPECT_EQ(everythingInTheFile(), before);
}

TEST_P(BetSources, AGenerationThatGoesOnIsToldEachSixtyFourthPart) {
    Impatient progress(1000);
    GenerationInput input = someReds(20, 3);
    const Generated generated = Enumeration(input).fill(*db, kWithBlue, &progress);
    EXPECT_FALSE(generated.cancelled);
    EXPECT_EQ(generated.written, 116280);
    EXPECT_EQ(progress.asked, 64);
    EXPECT_EQ(db->rowCount("zuhe"), 116280);
}

TEST_P(BetSources, AGenerationThatIsGivenUpStopsSoon) {
    Impatient progress(1);
    GenerationInput input = someReds(33, 16); // 17,721,088 rows if it went on
    EXPECT_TRUE(Enumeration(input).fill(*db, kWithBlue, &progress).cancelled);
    EXPECT_FALSE(db->hasTable("zuhe"));
}

TEST_P(BetSources, TheFormerTableStaysWhenTheProgramFailsInTheMiddle) {
    struct Failing final : workspace::Progress {
        bool advance(double) override { throw std::bad_alloc(); }
    } failing;
    makeFormer();
    const auto before = everything();
    GenerationInput input = someReds(12, 2);
    EXPECT_THROW(Enumeration(input).fill(*db, kWithBlue, &failing), std::bad_alloc);
    EXPECT_EQ(everything(), before);
}

TEST_P(BetSources, KeepTouchesNothingAndCountsTheRows) {
    EXPECT_EQ(Keep().fill(*db, kWithBlue, nullptr).written, 0);
    EXPECT_FALSE(db->hasTable("zuhe"));
    makeFormer();
    db->store();
    const auto before = everything();
    std::vector<std::string> statements;
    db->setListener([&](std::string_view statement) { statements.emplace_back(statement); });
    const Generated kept = Keep().fill(*db, kWithBlue, nullptr);
    EXPECT_TRUE(statements.empty());
    EXPECT_EQ(kept.written, 168);
    EXPECT_EQ(kept.announced, 168);
    EXPECT_FALSE(db->storePending());
    EXPECT_EQ(everything(), before);
}

TEST_P(BetSources, CopiedBetsComeWithoutTheirStatesAndLeaveTheOthers) {
    makeFormer();
    const auto from = everything();
    sql::Engine other;
    const auto copy = other.create(folder.path() / "copy.mdb");
    CopiedBets source(*db);
    EXPECT_EQ(source.fill(*copy, kWithBlue, nullptr).written, 168);
    EXPECT_EQ(everything(), from);
    const char* numbers = "SELECT idx,fig1,fig2,fig3,fig4,fig5,fig6,fig7 FROM [zuhe]";
    const sql::Rows copied = copy->query(numbers);
    const sql::Rows originals = db->query(numbers);
    ASSERT_EQ(copied.count(), 168);
    for (std::int64_t row = 0; row < copied.count(); ++row)
        for (int column = 0; column < 8; ++column)
            ASSERT_EQ(copied.textAt(row, column), originals.textAt(row, column));
    EXPECT_EQ(copy->query("SELECT idx FROM [zuhe] WHERE [unslt] = true or [Fliter] is not null").count(), 0);
}

TEST_P(BetSources, CopyingThatIsGivenUpOrHasNoSourceLeavesTheFormerTable) {
    makeFormer();
    const auto before = everything();
    sql::Engine other;
    const auto from = other.create(folder.path() / "from.mdb");
    CopiedBets source(*from);
    EXPECT_TRUE(source.fill(*db, kWithBlue, nullptr).cancelled) << "there is no such table";
    EXPECT_EQ(everything(), before);
    GenerationInput input = someReds(20, 3);
    Enumeration(input).fill(*from, kWithBlue, nullptr);
    std::mt19937 random(20261123);
    for (int turn = 0; turn < 4; ++turn) {
        Impatient progress(1 + static_cast<int>(random() % 64));
        EXPECT_TRUE(source.fill(*db, kWithBlue, &progress).cancelled);
        ASSERT_EQ(everything(), before);
    }
}

TEST_P(BetSources, AGenerationRunsTheToldStatementsAndNoOthers) {
    makeFormer();
    std::vector<std::string> statements;
    db->setListener([&](std::string_view statement) { statements.emplace_back(statement); });
    GenerationInput input = someReds(7, 2);
    Enumeration(input).fill(*db, kWithBlue, nullptr);
    EXPECT_EQ(statements,
              (std::vector<std::string>{
                  "DROP TABLE [zuhe]",
                  "CREATE TABLE [zuhe]([idx] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] "
                  "integer,[fig5] integer,[fig6] integer,[fig7] integer,[canshu] integer,[Numstring] string,[SKnum] "
                  "integer,[JSqihao] long,[Fliter] string,[unslt] Bit,[preunslt] Bit,[tmpunslt] bit,[Gpslt] "
                  "bit,[Errnum] integer)",
                  "zuhe"}));
}

INSTANTIATE_TEST_SUITE_P(Executors, BetSources, testing::Values(sql::Executor::Sqlite, sql::Executor::Column));

} // namespace
} // namespace selection
