#include "history/edit_text.h"

#include "history/reading_support.h"

namespace {

using history::Editing;

class EditText : public ReadingTest {
  protected:
    Editing edit(bool starts) {
        return history::editHistoryText(fresh.workspace, answers, [this, starts](const QString& file) {
            opened = file;
            return starts;
        });
    }
    QString opened;
};

TEST_F(EditText, TellsWhereTheFileIsAndOpensIt) {
    read(write(u"a.txt"_s, kTwoDraws));
    answers = Answers();
    EXPECT_EQ(edit(true), Editing::Started);
    EXPECT_EQ(opened, standard());
    EXPECT_EQ(answers.told,
              QStringList{u"您将修改该用户原来读取历史号码文件的时候所生成的默认历史号码文本，文件名为：“"_s +
                          standard() + u"”修改之后如果需要加载到软件里面请使用“读取历史”功能！"_s});
    EXPECT_EQ(answers.titles, QStringList{u"编辑历史"_s});
}

TEST_F(EditText, WithoutAFileOffersToReadOne) {
    answers.confirms = {true};
    EXPECT_EQ(edit(true), Editing::Read);
    EXPECT_EQ(answers.questions,
              QStringList{u"您目前还没有生成历史号码文本，只有“读取历史”找到您当地的历史开奖号码并读入软件之后"
                          u"才能将该历史号码作为您的默认历史号码！是否读取当地历史号码？"_s});
    answers.confirms = {false};
    EXPECT_EQ(edit(true), Editing::Cancelled);
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(EditText, AnEditorThatDoesNotStartIsTold) {
    read(write(u"a.txt"_s, kTwoDraws));
    EXPECT_EQ(edit(false), Editing::Failed);
    EXPECT_EQ(answers.told.last(), u"编辑出错！"_s);
}

} // namespace
