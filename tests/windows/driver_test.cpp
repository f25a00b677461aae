// The driver of the windows itself: what no step awaits must fail at once, never wait for a user.
#include <sys/wait.h>
#include <unistd.h>

#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <gtest/gtest-spi.h>

#include "support/controls.h"
#include "support/end_at_failure.h"
#include "support/modal_script.h"
#include "toolkit/file_dialog.h"
#include "toolkit/messages.h"
#include "windows/program_fixture.h"

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

TEST(UnexpectedDialog, AMessageOutsideEveryScriptFailsWithItsNameTitleAndText) {
    EXPECT_NONFATAL_FAILURE(toolkit::showMessage(nullptr, u"写不进去"_s, u"保存失败"_s),
                            "MsgBox \"保存失败\": 写不进去");
}

TEST(UnexpectedDialog, AnInputBoxOutsideEveryScriptIsLeftAsByCancel) {
    QString typed = u"?"_s;
    EXPECT_NONFATAL_FAILURE(typed = toolkit::askText(nullptr, u"请输入数字"_s, u"过滤"_s, u"7"_s),
                            "InputBox \"过滤\": 请输入数字");
    EXPECT_EQ(typed, QString());
}

TEST(UnexpectedDialog, AFileDialogOutsideEveryScriptChoosesNothing) {
    QString chosen = u"?"_s;
    EXPECT_NONFATAL_FAILURE(chosen = toolkit::chooseFile(nullptr, u"/"_s, u"Text(*.txt)"_s), "FileDialog \"打开\"");
    EXPECT_EQ(chosen, QString());
}

TEST(UnexpectedDialog, InAScriptItIsToldBesideTheOneThatIsExpected) {
    EXPECT_NONFATAL_FAILURE(
        {
            const ModalScript script({{u"InputBox"_s, cancel()}});
            toolkit::showMessage(nullptr, u"意外"_s, u"题"_s);
            toolkit::askText(nullptr, u"问"_s, u"题"_s, {}); // the step waits for its own dialog
        },
        "MsgBox \"题\": 意外, expected InputBox");
}

TEST(UnexpectedDialog, TheSecondOpeningOfOneDialogIsSeenToo) {
    QMessageBox box(QMessageBox::Information, u"题"_s, u"再来"_s, QMessageBox::Ok);
    box.setObjectName(u"MsgBox"_s);
    {
        const ModalScript script({{u"MsgBox"_s, answer(u"再来"_s)}});
        box.exec();
    }
    EXPECT_NONFATAL_FAILURE(box.exec(), "MsgBox \"题\": 再来");
}

TEST(UnexpectedDialog, TheYoungestScriptHasTheDialog) {
    ModalScript outer({{u"MsgBox"_s, answer(u"外"_s)}});
    {
        const ModalScript inner({{u"MsgBox"_s, answer(u"内"_s)}});
        toolkit::showMessage(nullptr, u"内"_s);
    }
    EXPECT_EQ(outer.left(), 1U);
    toolkit::showMessage(nullptr, u"外"_s);
    EXPECT_EQ(outer.left(), 0U);
}

TEST(UnexpectedDialog, AnswersToAnotherKindOfDialogFailAndCloseIt) {
    EXPECT_NONFATAL_FAILURE(
        {
            const ModalScript script({{u"InputBox"_s, answer(u"问"_s)}});
            toolkit::askText(nullptr, u"问"_s, u"题"_s, {});
        },
        "not a message box: InputBox \"题\": 问");
    EXPECT_NONFATAL_FAILURE(
        {
            const ModalScript script({{u"MsgBox"_s, chooseFile(u"/x.txt"_s)}});
            toolkit::showMessage(nullptr, u"问"_s, u"题"_s);
        },
        "not a file dialog: MsgBox \"题\": 问");
}

class WholeProgram : public ProgramFixture {};

TEST_F(WholeProgram, AQuestionThatNoStepAnswersFailsAtOnceAndIsCancelled) {
    enterAs(u"张三"_s);
    EXPECT_NONFATAL_FAILURE(press(u"Form1"_s, u"cmdRead"_s), "MsgBox \"读入历史\": 确实要读入历史号码吗");
}

/// The evening and the window kill tests are no tests themselves: their process ends.
TEST(EndAtFirstFailure, TellsAnUnexpectedDialogAndEndsTheProcess) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork(); // a death test would keep the failure from the listeners
    if (child == 0) {
        endAtFirstFailure([&](const std::string& what) {
            if (::write(ends[1], what.data(), what.size()) < 0)
                ::_exit(2);
        });
        toolkit::showMessage(nullptr, u"意外"_s, u"题"_s);
        ::_exit(3);
    }
    ::close(ends[1]);
    std::string told(1000, '\0');
    told.resize(static_cast<std::size_t>(std::max<ssize_t>(0, ::read(ends[0], told.data(), told.size()))));
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
    EXPECT_NE(told.find("MsgBox \"题\": 意外"), std::string::npos) << told;
}

TEST(Controls, AControlOfAScrolledAreaIsBroughtIntoSightBeforeTheClick) {
    QScrollArea area;
    auto* rows = new QWidget;
    auto* layout = new QVBoxLayout(rows);
    for (int row = 0; row < 40; ++row) {
        auto* button = new QPushButton(QString::number(row));
        button->setObjectName(u"row(%1)"_s.arg(row));
        layout->addWidget(button);
    }
    area.setWidget(rows);
    area.resize(200, 120);
    area.show();
    auto* last = controlAs<QPushButton>(area, u"row(39)"_s);
    bool inSight = false;
    QObject::connect(last, &QPushButton::clicked, [&] { inSight = !last->visibleRegion().isEmpty(); });
    ASSERT_TRUE(last->visibleRegion().isEmpty());
    press(area, u"row(39)"_s);
    EXPECT_TRUE(inSight);
}

} // namespace
