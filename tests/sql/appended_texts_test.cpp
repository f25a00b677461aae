// Reasons appended to reasons: texts that are full, and texts that would take too much memory.
#include <optional>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "sql/database.h"

namespace {

class AppendedTexts : public testing::Test {
  protected:
    void hold(std::int32_t rows, std::size_t textBytes) {
        db.reset();
        engine.emplace(sql::EngineOptions{.textBytes = textBytes});
        db = engine->create(folder.path() / "a.mdb");
        db->execute("CREATE TABLE [zuhe]([idx] integer,[Errnum] integer,[Fliter] string)");
        std::vector<std::int32_t> idx;
        for (std::int32_t row = 0; row < rows; ++row)
            idx.push_back(row + 1);
        db->appendRows("zuhe", {{"idx"}, {idx}});
        db->execute("UPDATE [zuhe] SET [Errnum]=0");
    }
    void append(const std::string& caption) {
        db->execute("UPDATE [zuhe] SET [Errnum]=[Errnum]+1 , [Fliter] = [Fliter] & \"" + caption +
                    ":\" & [idx] & \" 保留\" WHERE [idx] > 0");
    }
    std::string text(std::int64_t row) { return db->query("SELECT [Fliter] FROM [zuhe]").textAt(row, 0); }
    std::int64_t errors(std::int64_t row) { return db->query("SELECT [Errnum] FROM [zuhe]").integerAt(row, 0); }

    ScratchFolder folder;
    std::optional<sql::Engine> engine;
    std::unique_ptr<sql::Database> db;
};

std::string captions(const std::string& caption, int count, int row) {
    std::string all;
    for (int time = 0; time < count; ++time)
        all += caption + ":" + std::to_string(row + 1) + " 保留";
    return all;
}

TEST_F(AppendedTexts, AreCutWhereTheColumnEndsAndStayThen) {
    hold(2, 1 << 20);
    const std::string caption(98, 'a'); // a hundred and three characters a time
    for (int time = 1; time <= 5; ++time)
        append(caption);
    EXPECT_EQ(text(1), captions(caption, 2, 1) + std::string(49, 'a'));
    EXPECT_EQ(errors(1), 5);
}

TEST_F(AppendedTexts, GrowNoMoreOnceTheyTakeTooMuchMemoryWhileTheCountGoesOn) {
    hold(5000, 1 << 20); // some thousands of texts
    for (int time = 1; time <= 6; ++time)
        append("和");
    for (const std::int64_t row : {0, 2500, 4999})
        EXPECT_EQ(errors(row), 6) << row;
    EXPECT_EQ(text(0), captions("和", 2, 0)) << "the first rows of the second statement";
    EXPECT_EQ(text(4999), captions("和", 1, 4999)) << "its last rows";
    db->store();
    EXPECT_FALSE(db->storePending());
    hold(5000, std::size_t{2} << 30);
    for (int time = 1; time <= 6; ++time)
        append("和");
    EXPECT_EQ(text(4999), captions("和", 6, 4999));
}

} // namespace
