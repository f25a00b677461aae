// The simulated draw in the main window, from the first press to the bets that it ends in. The timer has no pause
// between its ticks, so that a run takes a moment; what a run ranks is left to chance, as it is for the user.
#include <set>

#include <QAction>
#include <QPaintEvent>
#include <QTimer>
#include <QWheelEvent>

#include "mainwin/windows/share_panel.h"
#include "mainwin/windows/trace_picture.h"
#include "windows/history_window_support.h"

namespace history_window_tests {
namespace {

const QString kQuestion = u"预测结果已经得出！是否现在就将结果排列组合出来，以便再观察参数和缩水过滤？"_s;
const QString kNotice = u"通告"_s;
constexpr int kPatience = 60'000; // ms; a run takes well under a second

class DrawWindowTest : public HistoryWindow {
  protected:
    void SetUp() override {
        enterAs(u"张三"_s);
        withoutPauses();
    }
    void withoutPauses() { form().findChild<QTimer*>(u"Timer1"_s)->setInterval(0); }
    selection::Simulator& simulator() { return program->simulator; }

    void choose(std::initializer_list<int> reds, std::initializer_list<int> blues = {}) {
        for (const int red : reds)
            press(form(), u"Command1(%1)"_s.arg(red));
        for (const int blue : blues)
            press(form(), u"Command2(%1)"_s.arg(blue));
    }
    void makeBanker(int number) {
        rightPress(form(), u"Command1(%1)"_s.arg(number));
        action(form(), u"mnuDan"_s)->trigger();
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
    }
    /// Shorter than the menu has it: most tests are about what follows a run.
    void makeRunsShort() { simulator().stability.Stabletarget = 15; }
    /// A draw that does not end by itself, after some ticks.
    void startEndless() {
        choose({3, 8, 12, 17, 21, 26, 30}, {5, 9});
        trigger(form(), u"meuSpd8"_s);
        press(form(), u"ComSta"_s);
        waitForTicks(5);
    }
    void waitForTicks(int more) {
        const int wanted = simulator().Ticks + more;
        ASSERT_TRUE(QTest::qWaitFor([&] { return simulator().Ticks >= wanted; }, kPatience));
    }
    /// Waits until the steps of a script were played.
    static void play(const ModalScript& script) {
        EXPECT_TRUE(QTest::qWaitFor([&script] { return script.left() == 0; }, kPatience));
    }
    ModalStep question(QMessageBox::StandardButton button) {
        return {u"MsgBox"_s, answer(kQuestion, kNotice, button)};
    }
    ModalStep message(const QString& text, const QString& title) {
        return {u"MsgBox"_s, answer(text, title, QMessageBox::Ok)};
    }
    /// Leaves a filter window, with its title looked at.
    static ModalStep leave(const QString& name, const QString& bets) {
        return {name, [bets](QWidget& opened) {
                    EXPECT_TRUE(opened.windowTitle().endsWith(u"合计：%1注"_s.arg(bets)))
                        << opened.windowTitle().toStdString();
                    opened.close();
                }};
    }
    /// "1: 3 8 12 17 21 26 + 5", a line a bet of the table.
    QStringList bets() {
        const sql::Rows rows = program->workspace.dbFilnum->query(
            "SELECT [idx],[fig1],[fig2],[fig3],[fig4],[fig5],[fig6],[fig7] FROM [zuhe]");
        QStringList all;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            QString bet = QString::fromStdString(rows.textAt(row, 0)) + u':';
            for (int column = 1; column <= 6; ++column)
                bet += u' ' + QString::fromStdString(rows.textAt(row, column));
            all << bet + u" + "_s + QString::fromStdString(rows.textAt(row, 7));
        }
        return all;
    }
    QString ranked(const selection::Simulator::Row& row) {
        QStringList numbers;
        for (int place = 1; place <= 6; ++place)
            numbers << QString::number(row[static_cast<std::size_t>(place)]);
        return numbers.join(u' ');
    }
    /// "SPRA" and a dash for what is not offered: button, menu entry and tool button alike.
    QString offered() {
        QString found;
        const std::tuple<QChar, QString, QString, QString> controls[] = {
            {u'S', u"ComSta"_s, u"meuSta"_s, u"Toolbar1(sta)"_s},
            {u'P', u"ComSpd"_s, u"meuSup"_s, u"Toolbar1(sup)"_s},
            {u'R', u"ComRst"_s, u"meuRst"_s, u"Toolbar1(rst)"_s},
        };
        for (const auto& [letter, button, entry, tool] : controls) {
            const bool on = enabled(button);
            EXPECT_EQ(action(form(), entry)->isEnabled(), on) << entry.toStdString();
            EXPECT_EQ(action(form(), tool)->isEnabled(), on) << tool.toStdString();
            found += on ? letter : u'-';
        }
        const bool arrange = action(form(), u"meuAgarr"_s)->isEnabled();
        EXPECT_EQ(action(form(), u"Toolbar1(fx)"_s)->isEnabled(), arrange);
        return found + (arrange ? u'A' : u'-');
    }
    void expectStartSays(const QString& button, const QString& entry, const QString& toolTip) {
        EXPECT_EQ(controlAs<QPushButton>(form(), u"ComSta"_s)->text(), button);
        EXPECT_EQ(action(form(), u"meuSta"_s)->text(), entry);
        EXPECT_EQ(action(form(), u"Toolbar1(sta)"_s)->toolTip(), toolTip);
    }
    void expectStarts() { expectStartSays(u"开始(&G)"_s, u"开始(&S)"_s, u"开始摇奖分析"_s); }
    void expectContinues() { expectStartSays(u"继续(&G)"_s, u"继续(&G)"_s, u"继续摇奖分析"_s); }
};

TEST_F(DrawWindowTest, ARunStopsByItselfAndItsRankingIsArranged) {
    choose({3, 8, 12, 17, 21, 26, 30}, {5, 9});
    trigger(form(), u"meuSpd1"_s);
    const ModalScript script({question(QMessageBox::Ok), leave(u"GAgan"_s, u"2"_s)});
    press(form(), u"ComSta"_s);
    EXPECT_EQ(offered(), u"-PR-"_s);
    play(script);
    EXPECT_EQ(offered(), u"S-RA"_s);
    expectContinues();
    EXPECT_EQ(simulator().Stable, 70);
    ASSERT_EQ(simulator().Runs, 1);
    const QString reds = ranked(simulator().Runresults[1]);
    EXPECT_EQ(bets(), (QStringList{u"1: "_s + reds + u" + 5"_s, u"2: "_s + reds + u" + 9"_s}));
    const std::set<std::int16_t> chosen{3, 8, 12, 17, 21, 26, 30};
    for (std::size_t place = 0; place < 6; ++place) {
        EXPECT_TRUE(chosen.contains(simulator().Top[place]));
        EXPECT_EQ(text(u"Label2(%1)"_s.arg(place)), QString::number(simulator().Top[place]));
    }
}

TEST_F(DrawWindowTest, EveryTickShowsItsNumbersAndShares) {
    startEndless();
    press(form(), u"ComSpd"_s);
    EXPECT_EQ(text(u"Label11"_s).toInt(), simulator().Ticks);
    for (std::size_t place = 0; place < 6; ++place)
        EXPECT_EQ(text(u"Label1(%1)"_s.arg(place)), QString::number(simulator().drawnInOrder()[place]));
    for (const int red : {1, 3, 30, 33}) {
        const double share = simulator().Share[static_cast<std::size_t>(red)];
        EXPECT_EQ(text(u"Label6(%1)"_s.arg(red)), QString::number(share, 'f', 2) + u'%');
        auto* bar = controlAs<mainwin::ShareBar>(form(), u"Picture2(%1)"_s.arg(red));
        EXPECT_DOUBLE_EQ(bar->length(), std::clamp(3 - 100.0 / 7 * 3 + share * 3, 0.0, 6.0));
    }
}

/// Notes where a widget was painted.
class PaintWatch : public QObject {
  public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
    QRegion painted;

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

TEST_F(DrawWindowTest, ABarPaintsWhatHasChanged) {
    auto* bar = controlAs<mainwin::ShareBar>(form(), u"Picture2(7)"_s);
    bar->setLength(1);
    QTest::qWait(1);
    PaintWatch watch(*bar);
    bar->setLength(3);
    EXPECT_TRUE(QTest::qWaitFor([&watch] { return !watch.painted.isEmpty(); }));
    const QRect painted = watch.painted.boundingRect();
    EXPECT_LE(painted.left(), bar->width() / 6 + 1);
    EXPECT_GE(painted.left(), bar->width() / 6 - 1);
    EXPECT_GE(painted.right(), bar->width() / 2 - 1);
    EXPECT_LT(painted.right(), bar->width() - 1);
}

TEST_F(DrawWindowTest, TheTraceCanBeMagnified) {
    auto* trace = controlAs<mainwin::TracePicture>(form(), u"Picture3"_s);
    startEndless();
    press(form(), u"ComSpd"_s);
    const auto turnWheel = [trace](int notches, Qt::KeyboardModifiers keys) {
        const QPointF middle = trace->rect().center();
        QWheelEvent event(middle, trace->mapToGlobal(middle), {}, {0, notches * 120}, Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(trace, &event);
    };
    const auto inkAt = [trace](double share) { // whether a line is seen in the column at this share of the width
        const QImage image = trace->grab().toImage();
        std::set<QRgb> colours;
        for (int y = 1; y < image.height() - 1; ++y)
            colours.insert(image.pixel(static_cast<int>(image.width() * share), y));
        return colours.size() > 2; // the ground and its dotted lines
    };
    EXPECT_EQ(trace->tickAt(trace->width()), 5000);
    EXPECT_FALSE(inkAt(0.05));
    turnWheel(1, Qt::NoModifier);
    EXPECT_EQ(trace->tickAt(trace->width()), 5000);
    for (int notch = 0; notch < 9; ++notch)
        turnWheel(1, Qt::ControlModifier);
    EXPECT_EQ(trace->tickAt(trace->width()) - trace->tickAt(0), 78) << "never more than 64 times";
    EXPECT_TRUE(inkAt(0.05));
    const int newest = simulator().Ticks;
    const QString told = trace->describe((newest - trace->tickAt(0)) * trace->width() / 78);
    EXPECT_TRUE(told.startsWith(u"第 "_s)) << told.toStdString();
    press(form(), u"ComSta"_s);
    waitForTicks(200);
    EXPECT_GT(trace->tickAt(trace->width()), 200) << "it follows the draw";
    press(form(), u"ComSpd"_s);
    for (int notch = 0; notch < 9; ++notch)
        turnWheel(-1, Qt::ControlModifier);
    EXPECT_EQ(trace->tickAt(0), 0);
    EXPECT_EQ(trace->tickAt(trace->width()), 5000);
}

TEST_F(DrawWindowTest, SixteenNumbersDoNotWidenTheirColumn) {
    press(form(), u"Command41"_s);
    const int width = control(form(), u"DrawPanel"_s)->width();
    trigger(form(), u"meuDanxuan(16)"_s);
    press(form(), u"ComSta"_s);
    waitForTicks(3);
    EXPECT_TRUE(control(form(), u"Label2(15)"_s)->isVisible());
    EXPECT_EQ(control(form(), u"DrawPanel"_s)->width(), width);
}

TEST_F(DrawWindowTest, CancelLeavesTheResultForLater) {
    choose({3, 8, 12, 17, 21, 26, 30}, {5});
    makeRunsShort();
    {
        const ModalScript script({question(QMessageBox::Cancel)});
        press(form(), u"ComSta"_s);
        play(script);
    }
    EXPECT_EQ(bets(), QStringList());
    {
        const ModalScript script({leave(u"GAgan"_s, u"1"_s)});
        trigger(form(), u"meuAgarr"_s);
    }
    EXPECT_EQ(bets(), QStringList{u"1: "_s + ranked(simulator().Runresults[1]) + u" + 5"_s});
}

TEST_F(DrawWindowTest, WithoutABlueTheQuestionLeadsToBetsOfSixReds) {
    choose({3, 8, 12, 17, 21, 26, 30});
    makeRunsShort();
    const ModalScript script({question(QMessageBox::Ok), leave(u"GAganR"_s, u"1"_s)});
    press(form(), u"ComSta"_s);
    play(script);
}

TEST_F(DrawWindowTest, SeveralRunsMakeOneTable) {
    choose({3, 8, 12, 17, 21, 26, 30}, {5, 9});
    makeRunsShort();
    const ModalScript script({{u"InputBox"_s, type(u"5"_s)}, question(QMessageBox::Ok), leave(u"GAgan"_s, u"10"_s)});
    trigger(form(), u"mnuMilt"_s);
    press(form(), u"ComSta"_s);
    play(script);
    EXPECT_EQ(simulator().Runs, 5);
    QStringList expected;
    for (int run = 1; run <= 5; ++run)
        for (const int blue : {5, 9})
            expected << u"%1: %2 + %3"_s.arg(run)
                            .arg(ranked(simulator().Runresults[static_cast<std::size_t>(run)]))
                            .arg(blue);
    EXPECT_EQ(bets(), expected);
    EXPECT_FALSE(program->generation.Multirows) << "for one generation";
}

TEST_F(DrawWindowTest, OnlyANumberIsACountOfRuns) {
    choose({3, 8, 12, 17, 21, 26, 30});
    for (const QString& answer : {u"abc"_s, u""_s, u"5组"_s, u"40000"_s, u"inf"_s}) {
        const ModalScript script({{u"InputBox"_s, type(answer)}, message(u"请输入整数数字"_s, u"输入错误"_s)});
        trigger(form(), u"mnuMilt"_s);
        EXPECT_EQ(script.left(), 0U) << answer.toStdString();
    }
    EXPECT_EQ(simulator().Rungoal, 0);
    EXPECT_FALSE(program->generation.Multirows);
    const ModalScript script({{u"InputBox"_s, [](QWidget& box) {
                                   EXPECT_EQ(box.findChild<QLineEdit*>()->text(), u"1"_s);
                                   type(u" 3 "_s)(box);
                               }}});
    trigger(form(), u"mnuMilt"_s);
    EXPECT_EQ(simulator().Rungoal, 3);
    EXPECT_TRUE(program->generation.Multirows);
}

TEST_F(DrawWindowTest, AFullTableOfResultsIsTold) {
    choose({3, 8, 12, 17, 21, 26, 30}, {5});
    makeRunsShort();
    simulator().Runs = selection::Simulator::kMostRuns;
    simulator().Runresults.resize(selection::Simulator::kMostRuns + 1);
    const ModalScript script({{u"MsgBox"_s, [](QWidget& box) {
                                   const QString said = static_cast<QMessageBox&>(box).text();
                                   EXPECT_TRUE(said.contains(u"11520"_s)) << said.toStdString();
                                   EXPECT_TRUE(said.contains(u"都保留着"_s));
                                   static_cast<QMessageBox&>(box).accept();
                               }}});
    press(form(), u"ComSta"_s);
    play(script);
    EXPECT_EQ(offered(), u"S-RA"_s);
}

TEST_F(DrawWindowTest, PauseContinueAndResetSwitchTheControls) {
    EXPECT_EQ(offered(), u"----"_s);
    expectStarts();
    startEndless();
    EXPECT_EQ(offered(), u"-PR-"_s);
    expectStarts();
    press(form(), u"ComSpd"_s);
    EXPECT_EQ(offered(), u"S-RA"_s);
    expectContinues();
    const int ticks = simulator().Ticks;
    QTest::qWait(1);
    EXPECT_EQ(simulator().Ticks, ticks) << "it stands still";
    press(form(), u"ComSta"_s);
    EXPECT_EQ(offered(), u"-PR-"_s);
    expectStarts();
    waitForTicks(5);
    EXPECT_GT(simulator().Ticks, ticks) << "and counts on";
    trigger(form(), u"meuSup"_s);
    expectContinues();
    trigger(form(), u"meuRst"_s);
    EXPECT_EQ(offered(), u"-PR-"_s);
    expectStarts();
    EXPECT_EQ(text(u"Label11"_s), u"0"_s);
    EXPECT_EQ(text(u"Label2(0)"_s), u"–"_s);
    waitForTicks(5);
    press(form(), u"ComRst"_s);
    EXPECT_EQ(simulator().Ticks, 0);
    waitForTicks(1);
    trigger(form(), u"Toolbar1(sup)"_s);
    trigger(form(), u"meuSta"_s);
    EXPECT_EQ(offered(), u"-PRA"_s) << "by the menu the arrangement stays open";
    trigger(form(), u"Toolbar1(sup)"_s);
    expectContinues();
}

TEST_F(DrawWindowTest, ClearingTheRedsStopsTheDraw) {
    startEndless();
    trigger(form(), u"meuDanxuan(9)"_s);
    press(form(), u"Command45"_s);
    EXPECT_FALSE(simulator().isRunning());
    EXPECT_EQ(offered(), u"-PR-"_s);
    EXPECT_TRUE(action(form(), u"meuDanxuan(6)"_s)->isChecked());
    EXPECT_FALSE(action(form(), u"meuDanxuan(9)"_s)->isChecked());
    EXPECT_EQ(simulator().Picknum, 6);
}

TEST_F(DrawWindowTest, BankersGoIntoTheBetsOfTheirEntry) {
    choose({3, 8, 12, 17, 21, 26, 30}, {5});
    makeBanker(1);
    makeBanker(33);
    makeRunsShort();
    {
        const ModalScript script({question(QMessageBox::Ok), leave(u"Gdanagan"_s, u"1"_s)});
        trigger(form(), u"mnuDtuo"_s); // no result yet: it draws first
        EXPECT_TRUE(simulator().isRunning());
        play(script);
    }
    const auto& top = simulator().Top;
    EXPECT_EQ(bets(), QStringList{u"1: 1 %1 %2 %3 %4 33 + 5"_s.arg(top[0]).arg(top[1]).arg(top[2]).arg(top[3])});
    EXPECT_TRUE(control(form(), u"Label2(3)"_s)->isVisible());
    EXPECT_FALSE(control(form(), u"Label2(4)"_s)->isVisible());
    const ModalScript script({leave(u"Gdanagan"_s, u"1"_s)});
    trigger(form(), u"mnuDtuo"_s);
    EXPECT_EQ(script.left(), 0U);
}

TEST_F(DrawWindowTest, CountsThatBankersHaveZeroedAreNotArranged) {
    startEndless();
    press(form(), u"ComSpd"_s);
    makeBanker(8);
    EXPECT_EQ(text(u"Label11"_s), u"0"_s);
    EXPECT_FALSE(simulator().isRunning()) << "the zeroing starts nothing";
    EXPECT_EQ(offered(), u"S-RA"_s);
    const ModalScript script(
        {message(u"摇奖还没有结果，现在排列不出组合。请先开始（或继续）摇奖，等它得出预测。"_s, u"摇奖排列组合"_s)});
    trigger(form(), u"meuAgarr"_s);
    EXPECT_EQ(bets(), QStringList());
}

TEST_F(DrawWindowTest, WithNothingToRankNoDrawStarts) {
    choose({3, 8, 12, 17, 21, 26, 30}, {5});
    trigger(form(), u"meuDanxuan(7)"_s);
    press(form(), u"ComSta"_s);
    EXPECT_FALSE(simulator().isRunning());
    EXPECT_EQ(offered(), u"-P-A"_s);
    EXPECT_EQ(control(form(), u"ComSta"_s)->toolTip(), u"要选多于 7 个红球才有可摇的"_s);
    const ModalScript script(
        {message(u"选了 7 个红球，摇奖要排出 7 个，没有可摇的。请多选红球，或在“组号方式”里少选摇奖红球，再摇奖。"_s,
                 u"摇奖排列组合"_s)});
    trigger(form(), u"meuAgarr"_s);
}

TEST_F(DrawWindowTest, AsManyRedsAreArrangedAsAreRanked) {
    press(form(), u"Command41"_s);
    choose({}, {5});
    trigger(form(), u"meuDanxuan(8)"_s);
    trigger(form(), u"meuSpd8"_s);
    press(form(), u"ComSta"_s);
    waitForTicks(30);
    press(form(), u"ComSpd"_s);
    const ModalScript script({leave(u"GAgan"_s, u"28"_s)}); // C(8, 6)
    trigger(form(), u"meuAgarr"_s);
    EXPECT_EQ(bets().size(), 28);
}

TEST_F(DrawWindowTest, TheQuestionWaitsForTheWindowThatIsOpen) {
    choose({3, 8, 12, 17, 21, 26, 30}, {5});
    makeRunsShort();
    const ModalScript script({{u"GAgan"_s,
                               [this](QWidget& opened) {
                                   EXPECT_TRUE(simulator().isRunning()) << "it goes on under the open window";
                                   ASSERT_TRUE(
                                       QTest::qWaitFor([this] { return !simulator().isRunning(); }, kPatience));
                                   QTest::qWait(1);
                                   EXPECT_EQ(QApplication::activeModalWidget(), &opened);
                                   opened.close();
                               }},
                              question(QMessageBox::Cancel)});
    press(form(), u"ComSta"_s);
    trigger(form(), u"mnuLst"_s);
    play(script);
}

TEST_F(DrawWindowTest, TheQuestionIsDroppedWhenTheDrawGoesOn) {
    choose({3, 8, 12, 17, 21, 26, 30}, {5});
    makeRunsShort();
    const ModalScript script({{u"GAgan"_s, [this](QWidget& opened) {
                                   ASSERT_TRUE(
                                       QTest::qWaitFor([this] { return !simulator().isRunning(); }, kPatience));
                                   QTest::qWait(1);
                                   simulator().stability.Stabletarget = 30000;
                                   opened.close();
                               }}});
    press(form(), u"ComSta"_s);
    trigger(form(), u"mnuLst"_s);
    press(form(), u"ComRst"_s);
    const QTimer* waiting = form().findChild<QTimer*>(u"TimerAsk"_s);
    EXPECT_TRUE(waiting->isActive());
    EXPECT_TRUE(QTest::qWaitFor([waiting] { return !waiting->isActive(); }, kPatience));
    EXPECT_TRUE(simulator().isRunning());
}

TEST_F(DrawWindowTest, TheLastRankingIsKeptInTheSettings) {
    startEndless();
    press(form(), u"ComSpd"_s);
    const auto top = simulator().Top;
    form().close();
    for (int place = 1; place <= 6; ++place)
        EXPECT_EQ(program->settings.value(u"张三QS"_s, u"Initial"_s, QString::number(place)),
                  QString::number(top[static_cast<std::size_t>(place - 1)]));
}

TEST_F(DrawWindowTest, ClosingWhileItRunsStopsTheTimer) {
    startEndless();
    QTimer* timer = form().findChild<QTimer*>(u"Timer1"_s);
    form().close();
    EXPECT_FALSE(timer->isActive());
}

TEST_F(DrawWindowTest, TheHistoryMayChangeWhileItRuns) {
    readText(kThreeDraws);
    startEndless();
    typeDraw(u"33 02 17 05 29 11 07"_s);
    EXPECT_EQ(program->book.history().Lsnum, 4);
    EXPECT_TRUE(simulator().isRunning());
    waitForTicks(3);
    EXPECT_EQ(text(u"Label6(33)"_s), u"0.00%"_s) << "33 is not drawn, whatever the history has";
    press(form(), u"Command44"_s);
    EXPECT_EQ(program->book.history().Lsnum, 3);
    EXPECT_TRUE(simulator().isRunning());
    waitForTicks(3);
    readText(kThreeDraws);
    EXPECT_TRUE(simulator().isRunning());
    waitForTicks(3);
    EXPECT_EQ(text(u"Label11"_s).toInt(), simulator().Ticks);
}

TEST_F(DrawWindowTest, TheRuleMayChangeWhileItRuns) {
    startEndless();
    trigger(form(), u"meuS(38)"_s);
    EXPECT_TRUE(simulator().isRunning());
    EXPECT_EQ(simulator().stability.Stabletarget, 30000) << "the selection is as it was";
    waitForTicks(3);
    EXPECT_EQ(text(u"Label6(38)"_s), u"0.00%"_s);
    trigger(form(), u"meuS(28)"_s); // 30 leaves the selection
    EXPECT_EQ(program->pad.Redcnt, 6);
    EXPECT_TRUE(simulator().isRunning());
    waitForTicks(3);
    EXPECT_FALSE(control(form(), u"Label6(30)"_s)->isVisible()) << "no tick brings it back";
    EXPECT_FALSE(control(form(), u"Picture2(30)"_s)->isVisible());
}

TEST_F(DrawWindowTest, WhatIsNotOfferedSaysWhy) {
    const auto says = [this](const QString& entry, const QString& expected) {
        EXPECT_FALSE(action(form(), entry)->isEnabled()) << entry.toStdString();
        EXPECT_EQ(action(form(), entry)->toolTip(), expected) << entry.toStdString();
    };
    choose({1, 2, 3, 4, 5}, {1});
    says(u"meuSta"_s, u"还需：2 红"_s);
    says(u"meuSup"_s, u"摇奖没有进行"_s);
    says(u"meuRst"_s, u"摇奖还没有开始"_s);
    says(u"meuAgarr"_s, u"还没有摇奖结果"_s);
    choose({6, 7});
    trigger(form(), u"meuSpd8"_s);
    press(form(), u"ComSta"_s);
    says(u"meuSta"_s, u"摇奖正在进行"_s);
    says(u"meuAgarr"_s, u"摇奖正在进行：等到结果或先暂停"_s);
    EXPECT_EQ(control(form(), u"ComSta"_s)->toolTip(), u"摇奖正在进行"_s);
}

} // namespace
} // namespace history_window_tests
