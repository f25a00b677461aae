// The button that gathers bets in the group template, or clears it, with real clicks; and windows without parameters.
#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>

#include "filter/windows/step_list.h"
#include "support/modal_script.h"
#include "toolkit/head_line.h"
#include "windows/filter_window_support.h"

using namespace Qt::StringLiterals;
using test_support::answer;
using test_support::ModalScript;
using test_support::press;
using test_support::typeInto;

namespace filter {
namespace {

const QString kAddTitle = u"添加组号模板"_s;
const QString kAddQuestion =
    u"是否把目前组合缩水后的号码加入组号模板里面，以后可以多次加入模板，并通过调用组号模板在模板基础上进行缩水"
    "过滤（加入到模板的组号如果有与模板相重复的会自动滤除）"_s;
const QString kClearTitle = u"清空组号模板"_s;
const QString kClearQuestion = u"是否把目前组号模板清空？清空后可以重新添加新的组号模板。)"_s;

class GroupTemplateWindow : public FilterWindowLookTest {
  protected:
    void open(const char* form) {
        m_window.reset();
        m_window =
            std::make_unique<FilterWindow>(*findMember(form), FilterContext{*m_database, m_history, 33, m_Baoliu});
        selection::Keep keep;
        m_window->load(keep);
        m_window->show();
    }
    /// Presses the button and answers its question.
    void pressTemplate(const QString& title, const QString& question, QMessageBox::StandardButton button) {
        const ModalScript script({{u"MsgBox"_s, [=](QWidget& box) {
                                       const auto& asked = static_cast<QMessageBox&>(box);
                                       EXPECT_EQ(asked.defaultButton(), asked.button(QMessageBox::Cancel));
                                       answer(question, title, button)(box);
                                   }}});
        press(m_window->objectName(), u"cmdAdmb"_s);
    }
    void add(QMessageBox::StandardButton button = QMessageBox::Ok) { pressTemplate(kAddTitle, kAddQuestion, button); }
    void clear(QMessageBox::StandardButton button = QMessageBox::Ok) {
        pressTemplate(kClearTitle, kClearQuestion, button);
    }
    QString notice() {
        auto& text = part<QLabel>(u"NoticeText"_s);
        return text.isVisible() ? text.text() : QString();
    }
    QString lastStep() { return part<StepList>(u"StepList"_s).lines().value(0); }
    std::int64_t gathered() { return m_database->hasTable("zuheMoban") ? m_database->rowCount("zuheMoban") : 0; }
    int shown() { return grid().model()->rowCount(); }
    QString heading(int column) { return grid().model()->headerData(column, Qt::Horizontal).toString(); }
};

TEST_F(GroupTemplateWindow, AddsTheSurvivorsAndLeavesTheWindowAsItIs) {
    typeInto(u"GAgan"_s, u"Text18(0)"_s, u"9"_s);
    press(u"GAgan"_s, u"Option19"_s);
    const QString title = m_window->windowTitle();
    EXPECT_EQ(part<QAbstractButton>(u"cmdAdmb"_s).text(), u"添加到组号模板(&A)"_s);
    add();
    EXPECT_EQ(gathered(), 7);
    EXPECT_EQ(m_database->query("SELECT idx FROM [zuheMoban] WHERE [fig7] = 3").count(), 0) << "survivors alone";
    EXPECT_EQ(notice(), u"已加入 7 注，模板共 7 注"_s);
    EXPECT_EQ(part<StepList>(u"StepList"_s).lines().value(1), u"2\t加入组号模板 7 注\t0"_s);
    EXPECT_EQ(m_window->windowTitle(), title);
    EXPECT_EQ(shown(), 7);
    EXPECT_EQ(heading(1), u"1位"_s);
    press(u"GAgan"_s, u"cmdRetn"_s);
    EXPECT_EQ(shown(), 14) << "the step back is still that of the filter";
    add();
    EXPECT_EQ(notice(), u"已加入 7 注，模板共 14 注"_s);
    add();
    EXPECT_EQ(notice(), u"已加入 0 注，模板共 14 注"_s);
    EXPECT_EQ(gathered(), 14);
}

TEST_F(GroupTemplateWindow, AnyOtherAnswerAddsNothing) {
    add(QMessageBox::Cancel);
    EXPECT_EQ(gathered(), 0);
    EXPECT_TRUE(m_statements.empty());
    EXPECT_EQ(notice(), QString());
    EXPECT_TRUE(lastStep().isEmpty());
}

TEST_F(GroupTemplateWindow, TheTemplateIsThereAfterARestart) {
    typeInto(u"GAgan"_s, u"Text18(0)"_s, u"9"_s);
    press(u"GAgan"_s, u"Option19"_s);
    add();
    const std::filesystem::path file = m_database->path();
    m_window.reset();
    m_database.reset();
    sql::Engine later;
    m_database = later.open(file);
    open("GAganZhMb");
    EXPECT_EQ(shown(), 7);
    for (int row = 0; row < 7; ++row) {
        EXPECT_EQ(cell(row, 0).data().toInt(), row + 1);
        EXPECT_EQ(cell(row, 7).data().toInt(), 9);
    }
    press(u"GAganZhMb"_s, u"Command2"_s);
    EXPECT_EQ(shown(), 0) << "its buttons work on the template";
    m_window.reset();
    m_database.reset();
}

TEST_F(GroupTemplateWindow, ItsOwnWindowClearsItAndShowsTheHeadingsOfChosenBets) {
    add();
    open("GAganZhMb");
    EXPECT_EQ(part<QAbstractButton>(u"cmdAdmb"_s).text(), u"清空组号模板(&A)"_s);
    EXPECT_EQ(shown(), 14);
    EXPECT_EQ(heading(1), u"1位"_s);
    clear(QMessageBox::Cancel);
    EXPECT_EQ(gathered(), 14);
    clear();
    EXPECT_EQ(gathered(), 0);
    EXPECT_EQ(shown(), 0);
    QStringList headings;
    for (int column = 0; column < grid().model()->columnCount(); ++column)
        headings << heading(column);
    EXPECT_EQ(headings.join(u' '), u"号码索引 红1 红2 红3 红4 红5 红6 蓝球"_s);
    EXPECT_EQ(lastStep(), u"1\t清空组号模板\t−14"_s);
    EXPECT_EQ(notice(), u"组号模板已清空"_s);
    EXPECT_EQ(part<toolkit::HeadLine>(u"HeadLine"_s).stepText(),
              u"组号模板里还没有组合：在别的过滤窗口按“添加到组号模板”加入"_s);
    open("GAganMb");
    add();
    EXPECT_EQ(gathered(), 14) << "it can be filled anew";
}

TEST_F(GroupTemplateWindow, StandsInTheWindowsOfSixRedsWithOrWithoutABlueAlone) {
    for (const FilterMember& member : kFilterMembers) {
        m_window = std::make_unique<FilterWindow>(member, FilterContext{*m_database, m_history, 33, m_Baoliu});
        EXPECT_EQ(m_window->findChild<QPushButton*>(u"cmdAdmb"_s) != nullptr, member.reds == 6) << member.form;
    }
}

} // namespace
} // namespace filter
