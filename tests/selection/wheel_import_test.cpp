#include "selection/wheel_import.h"

#include <fstream>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "selection/wheel_database.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;
using selection::WheelFamily;
using selection::WheelTable;

namespace {

constexpr const char* kNine = "1 2 3 4 5 6\n1 2 3 7 8 9\n4 5 6 7 8 9\n"; // 中5保4

struct EndsAt final : workspace::Progress {
    explicit EndsAt(int call) : last(call) {}
    bool advance(double share) override {
        EXPECT_GE(share, 0);
        EXPECT_LE(share, 1);
        return ++calls < last;
    }
    int last;
    int calls = 0;
};

class WheelImport : public testing::Test {
  protected:
    WheelImport() {
        std::filesystem::create_directory(folder.path() / "own");
        std::filesystem::create_directory(folder.path() / "shipped");
    }

    const WheelTable nine = *selection::wheelTableNamed(WheelFamily::Super, "0954");
    const WheelTable eight = *selection::wheelTableNamed(WheelFamily::Super, "0854");
    const QDateTime now{QDate(2026, 11, 22), QTime(5, 23, 58)};
    ScratchFolder folder;
    sql::Engine engine;
    const selection::WheelPlaces places{folder.path() / "own" / "Xuanzhuancj",
                                        folder.path() / "shipped" / "Xuanzhuancj"};

    std::vector<selection::PositionSet> rowsOf(const WheelTable& table, std::string_view text) {
        return selection::proveWheel(table, text, nullptr).rows;
    }
    std::filesystem::path install(const WheelTable& table, std::string_view text) {
        return selection::installWheel(engine, places, table, rowsOf(table, text), now);
    }
    std::int64_t rowsIn(const std::filesystem::path& file, const char* table) {
        const auto database = engine.open(file);
        return database->hasTable(table) ? database->rowCount(table) : -1;
    }
};

TEST_F(WheelImport, TheFirstOneCopiesWhatShips) {
    selection::writeWheel(*engine.create(places.shipped), eight, rowsOf(eight, "1 2 3 4 5 6\n"));
    EXPECT_EQ(install(nine, kNine), std::filesystem::path()) << "what ships stays where it is";
    EXPECT_EQ(rowsIn(places.own, "0954"), 3);
    EXPECT_EQ(rowsIn(places.own, "0854"), 1) << "the others came along";
    EXPECT_EQ(rowsIn(places.shipped, "0954"), -1);
}

TEST_F(WheelImport, WithoutAnyDatabaseOneIsMade) {
    install(nine, kNine);
    EXPECT_EQ(rowsIn(places.own, "0954"), 3);
}

TEST_F(WheelImport, EachOneKeepsTheFormerUnderANameOfItsOwn) {
    install(nine, kNine);
    const auto first = install(nine, "1 2 3 4 5 6\n1 2 3 7 8 9\n4 5 6 7 8 9\n1 2 3 4 5 9\n");
    EXPECT_EQ(workspace::toQString(first.filename()), u"Xuanzhuancj 保存 2026-11-22 052358"_s);
    EXPECT_EQ(rowsIn(first, "0954"), 3);
    const auto second = install(nine, kNine);
    EXPECT_EQ(workspace::toQString(second.filename()), u"Xuanzhuancj 保存 2026-11-22 052358 (2)"_s);
    EXPECT_EQ(rowsIn(second, "0954"), 4);
    EXPECT_EQ(rowsIn(places.own, "0954"), 3);
}

TEST_F(WheelImport, AFailureLeavesEverythingAsItWas) {
    install(nine, kNine);
    std::filesystem::permissions(places.own.parent_path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    const bool root = std::ofstream(places.own.parent_path() / "any").good(); // nothing stops it
    if (!root) {
        EXPECT_ANY_THROW(install(eight, "1 2 3 4 5 6\n"));
    }
    std::filesystem::permissions(places.own.parent_path(), std::filesystem::perms::owner_all);
    std::ofstream(places.own, std::ios::binary) << "this is no database, and it stays what it is";
    EXPECT_THROW(install(eight, "1 2 3 4 5 6\n"), sql::SqlError);
    std::ifstream in(places.own, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "this is no database, and it stays what it is");
    for (const auto& entry : std::filesystem::directory_iterator(places.own.parent_path()))
        EXPECT_TRUE(entry.path() == places.own || entry.path().filename() == "any") << entry.path();
}

TEST_F(WheelImport, WhatAKilledRunHasLeftIsNoHindrance) {
    install(nine, kNine);
    std::ofstream(places.own.string() + ".new", std::ios::binary) << "half of it";
    std::ofstream(places.own.string() + ".new-journal", std::ios::binary) << "and a journal";
    install(nine, kNine);
    EXPECT_EQ(rowsIn(places.own, "0954"), 3);
    EXPECT_FALSE(std::filesystem::exists(places.own.string() + ".new"));
    EXPECT_FALSE(std::filesystem::exists(places.own.string() + ".new-journal"));
}

TEST_F(WheelImport, AFileThatCannotBeAWheelIsNotRead) {
    EXPECT_THROW(selection::readWheelFile(folder.path() / "none.txt"), workspace::Failure);
    EXPECT_THROW(selection::readWheelFile(folder.path()), workspace::Failure);
    const auto file = folder.path() / "矩阵.txt";
    std::ofstream(file, std::ios::binary) << "# \xB5\xDA\n" << kNine; // a remark in another code page
    EXPECT_TRUE(selection::proveWheel(nine, selection::readWheelFile(file), nullptr).holds());
    std::ofstream(file, std::ios::binary) << std::string(17'000'000, '1');
    EXPECT_THROW(selection::readWheelFile(file), workspace::Failure);
}

// A wheel that holds, and whose proof takes many looks: all rows of 6 of 14, any 6 in one.
TEST_F(WheelImport, AProofCanBeGivenUpAtAnyMoment) {
    const WheelTable fourteen = *selection::wheelTableNamed(WheelFamily::Super, "1454");
    std::string text;
    for (unsigned row = 0; row < 1U << 14; ++row)
        if (std::popcount(row) == 6) {
            for (const std::int32_t position : selection::positionsOf(row))
                text += std::to_string(position) + ' ';
            text += '\n';
        }
    std::string many;
    for (int times = 0; times < 40; ++times) // the row that serves a subset stands far behind, for those of the last
        many += "1 2 3 4 5 6\n";
    for (int times = 0; times < 12; ++times)
        many += many.size() < 500'000 ? many : std::string();
    many += text;
    EndsAt patient(1'000'000);
    EXPECT_TRUE(selection::proveWheel(fourteen, many, &patient).holds());
    ASSERT_GT(patient.calls, 3) << "too short to be given up";
    for (const int call : {1, 2, patient.calls}) {
        EndsAt progress(call);
        const selection::WheelProof proof = selection::proveWheel(fourteen, many, &progress);
        EXPECT_TRUE(proof.cancelled);
        EXPECT_FALSE(proof.holds());
        EXPECT_EQ(progress.calls, call) << "it ends at once";
    }
}

TEST_F(WheelImport, MoreRowsThanTheProgramReadsAreRefused) {
    std::string text;
    for (std::size_t row = 0; row < selection::kMostWheelRows; ++row)
        text += "1 2 3 4 5 6\n";
    const auto refusal = selection::proveWheel(eight, text + "1 2 3 4 5 6\n", nullptr).refusal;
    ASSERT_TRUE(refusal);
    EXPECT_TRUE(refusal->tooMany);
    EXPECT_EQ(refusal->message(eight), "table 0854 has more rows than 128160");
    EXPECT_FALSE(selection::readWheelText(eight, text).refusal) << "so many are read";
}

TEST_F(WheelImport, TheTextShowsItsSizeByItself) {
    EXPECT_EQ(selection::measureWheel("").cells, 0);
    const selection::WheelMeasure measure =
        selection::measureWheel("\xEF\xBB\xBF# 12\n\n1,2,3,4,5,6,7\n2 11 x\n8 9 10 1 2 3 4\n");
    EXPECT_EQ(measure.cells, 7);
    EXPECT_EQ(measure.largest, 10);
}

TEST(WheelTablesOfMenus, AreThoseThatAnEntryAsksFor) {
    const auto offered = [](WheelFamily family, int n, int d, selection::Guarantee pair) {
        return selection::wheelTableOfMenu(family, n, d, pair).has_value();
    };
    EXPECT_FALSE(offered(WheelFamily::Basic, 8, 0, {6, 5})) << "its entry is never offered";
    EXPECT_TRUE(offered(WheelFamily::Basic, 16, 0, {6, 5}));
    EXPECT_FALSE(offered(WheelFamily::Basic, 17, 0, {6, 5}));
    EXPECT_TRUE(offered(WheelFamily::Extended, 8, 0, {7, 6}));
    EXPECT_FALSE(offered(WheelFamily::Extended, 8, 0, {5, 5}));
    EXPECT_FALSE(offered(WheelFamily::Extended, 19, 0, {5, 5}));
    EXPECT_TRUE(offered(WheelFamily::Super, 32, 0, {5, 4}));
    EXPECT_FALSE(offered(WheelFamily::Super, 33, 0, {5, 4}));
    EXPECT_FALSE(offered(WheelFamily::Super, 12, 1, {5, 4})) << "bankers have wheels of their own";
    EXPECT_TRUE(offered(WheelFamily::Banker, 9, 2, {5, 4}));
    EXPECT_FALSE(offered(WheelFamily::Banker, 9, 5, {5, 4})) << "the bankers alone fulfil it";
}

} // namespace
