// What the publisher makes of a workspace, a text, and draws that it cannot publish.
#include "history/update_publish.h"

#include <gtest/gtest.h>

#include "history/draws_support.h"
#include "history/store.h"
#include "history/text_lines.h"
#include "history/update_check.h"
#include "history/update_source.h"
#include "history/update_support.h"

using namespace Qt::StringLiterals;

namespace {

using history::Draw;
using history::PublishError;

class Publishing : public ::testing::Test {
  protected:
    std::vector<Draw> publishedDraws() {
        sql::Engine engine;
        return history::checkedDraws(engine, out.path() / "download/lshm/shuangseqiu.mdb");
    }

    /// The reason for refusing draws.
    std::string refusal(const std::vector<Draw>& draws) {
        try {
            history::publishHistory(draws, out.path());
        } catch (const PublishError& refused) {
            return refused.what();
        }
        return {};
    }

    std::filesystem::path textFile(const QByteArray& bytes) {
        writeBytes(out.path() / "draws.txt", bytes);
        return out.path() / "draws.txt";
    }

    ScratchFolder out;
    std::vector<Draw> draws = madeUpDraws(25);
};

TEST_F(Publishing, WritesTheTextAndTheDatabaseUnderItsTwoNames) {
    history::publishHistory(draws, out.path());
    const auto files = filesBelow({out.path()});
    ASSERT_EQ(files.size(), 3u);
    const std::string folder = out.path() / "download/lshm/";
    EXPECT_EQ(files.at(folder + "TXT/中国福利彩票双色球历史开奖号码.Txt"), history::drawsAsText(draws));
    EXPECT_EQ(files.at(folder + "中国福利彩票双色球.mdb"), files.at(folder + "shuangseqiu.mdb"));
    EXPECT_EQ(publishedDraws(), draws);
}

TEST_F(Publishing, ReplacesWhatWasPublishedBefore) {
    history::publishHistory(madeUpDraws(40), out.path());
    history::publishHistory(draws, out.path());
    EXPECT_EQ(publishedDraws(), draws);
    EXPECT_EQ(filesBelow({out.path()}).size(), 3u);
}

TEST_F(Publishing, TakesTheDrawsOfAWorkspaceWhateverItsStatisticsAre) {
    FreshWorkspace fresh;
    history::History history;
    history::storeBatch(history, fresh.workspace, draws);
    fresh.workspace.dbUser->execute("DELETE FROM [Ylqs] WHERE [Qihao] = 2003001");
    fresh.workspace.dbUser->execute("UPDATE [Gailv] SET [Glnum] = 7");
    fresh.workspace.dbUser->execute("UPDATE [fig] SET [Znum] = 7");
    for (const auto& folder : {fresh.folder() / "张三", fresh.folder() / "张三" / ""}) {
        const std::vector<Draw> taken = history::drawsOfUserFolder(folder);
        EXPECT_EQ(taken, draws);
        history::publishHistory(taken, out.path());
        EXPECT_EQ(publishedDraws(), draws);
    }
    sql::Engine engine;
    EXPECT_EQ(sql::toInteger(engine.open(out.path() / "download/lshm/shuangseqiu.mdb")
                                 ->queryValue("SELECT [Znum] FROM [fig] WHERE [Idx] = 1")),
              draws[0][1] + draws[0][2] + draws[0][3] + draws[0][4] + draws[0][5] + draws[0][6]);
}

TEST_F(Publishing, TakesTheDrawsOfAText) {
    EXPECT_EQ(history::drawsOfTextFile(textFile(history::drawsAsText(draws))), draws);
    const auto unnumbered = history::drawsOfTextFile(textFile("01 02 03 04 05 06 07\n08 09 10 11 12 13 14\n"));
    history::publishHistory(unnumbered, out.path());
    EXPECT_EQ(publishedDraws(), (std::vector<Draw>{{1, 1, 2, 3, 4, 5, 6, 7}, {2, 8, 9, 10, 11, 12, 13, 14}}));
}

TEST_F(Publishing, NamesTheLineOfATextThatIsRefused) {
    try {
        history::drawsOfTextFile(textFile("2003001 01 02 03 04 05 06 07\n\n2003002 01 02 03 04 05 06\n"));
        ADD_FAILURE() << "six numbers have passed";
    } catch (const PublishError& refused) {
        EXPECT_STREQ(refused.what(), "第3行不是6红+1蓝7个号码: 2003002 01 02 03 04 05 06");
    }
    EXPECT_THROW(history::drawsOfTextFile(out.path() / "none.txt"), PublishError);
    EXPECT_THROW(history::drawsOfUserFolder(out.path()), PublishError);
}

TEST_F(Publishing, RefusesDrawsOfAnotherRuleAndDrawsOutOfOrder) {
    EXPECT_EQ(refusal({}), "没有历史号码");
    const Draw good{2003001, 1, 2, 3, 4, 5, 33, 16};
    EXPECT_EQ(refusal({good}), "");
    EXPECT_EQ(refusal({good, {2003002, 1, 2, 3, 4, 5, 34, 1}}),
              "第2行(期号2003002)不是由小到大的6个红球(1~33)和1个蓝球(1~16)");
    for (const Draw& wrong :
         {Draw{1, 0, 2, 3, 4, 5, 6, 7}, Draw{1, 1, 2, 3, 4, 5, 6, 17}, Draw{1, 1, 2, 3, 4, 5, 6, 0},
          Draw{1, 1, 3, 2, 4, 5, 6, 7}, Draw{1, 1, 2, 2, 4, 5, 6, 7}})
        EXPECT_NE(refusal({wrong}), "");
    EXPECT_NE(refusal({good, {2003001, 1, 2, 3, 4, 5, 6, 7}}), "") << "the issues do not rise";
    EXPECT_NE(refusal({{9999001, 1, 2, 3, 4, 5, 6, 7}}), "") << "a year far ahead";
    EXPECT_EQ(publishedDraws(), std::vector<Draw>{good}); // a refusal leaves what was published
}

TEST_F(Publishing, SaysSoWhenAFileCannotBeWritten) {
    std::filesystem::create_directories(out.path() / "download/lshm/shuangseqiu.mdb");
    EXPECT_NE(refusal(draws), "");
}

TEST_F(Publishing, TakesEveryRealDraw) {
    ASSERT_EQ(realDraws().size(), 3358u);
    history::publishHistory(realDraws(), out.path());
    EXPECT_EQ(publishedDraws(), realDraws());
}

} // namespace
