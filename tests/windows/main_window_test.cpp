#include <map>

#include <QScrollBar>

#include "windows/main_window_support.h"

#include <QMouseEvent>
#include <QSplitter>

namespace main_window_tests {
namespace {

TEST_F(MainWindow, IsTheFormOfTheProgram) {
    open();
    EXPECT_EQ(window(u"Form1"_s), form.get());
    EXPECT_EQ(form->windowTitle(), u"奥衡星双色球彩票助理"_s);
}

/// Drags the bar at the right of a splitter's first part.
void drag(QSplitter& splitter, int by) {
    QWidget* bar = splitter.handle(1);
    const QPoint middle = bar->rect().center();
    const QPoint there = middle + QPoint(by, 0);
    QTest::mousePress(bar, Qt::LeftButton, {}, middle);
    QMouseEvent move(QEvent::MouseMove, there, bar->mapToGlobal(there), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(bar, &move); // QTest moves without the button
    QTest::mouseRelease(bar, Qt::LeftButton, {}, there);
}

TEST_F(MainWindow, ItsPartsComeBackAsWideAsTheyWereDragged) {
    open();
    const auto sizes = [this] { return controlAs<QSplitter>(*form, u"Splitter1"_s)->sizes(); };
    const QList<int> first = sizes();
    drag(*controlAs<QSplitter>(*form, u"Splitter1"_s), 37);
    const QList<int> dragged = sizes();
    ASSERT_EQ(dragged[0], first[0] + 37);
    form->close();
    open();
    EXPECT_EQ(sizes(), dragged);
    for (workspace::SettingChange place : settings.valuesOf(application()))
        settings.write({{place.application, place.section, place.key, std::nullopt}});
    open();
    EXPECT_EQ(sizes(), first);
}

TEST_F(MainWindow, EveryControlHasANameAndNoTwoAreAlike) {
    open();
    std::set<QString> names;
    const auto widgets = form->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        const QString name = widget->objectName();
        const bool inside = name.startsWith(u"qt_") || (name.isEmpty() && widget->inherits("QMenu")) ||
                            widget->inherits("QToolButton") || widget->inherits("QHeaderView") ||
                            widget->inherits("QScrollBar") || widget->inherits("QSplitterHandle") ||
                            widget->inherits("QSizeGrip") || widget->inherits("QToolBarSeparator") ||
                            widget->inherits("QMainWindowLayoutSeparator") ||
                            widget->inherits("QTableCornerButton") ||
                            (widget->inherits("QAbstractButton") && widget->parentWidget()->inherits("QTableView"));
        if (inside)
            continue;
        EXPECT_FALSE(name.isEmpty()) << widget->metaObject()->className() << " in "
                                     << widget->parentWidget()->objectName().toStdString();
        EXPECT_TRUE(names.insert(name).second) << name.toStdString();
    }
    for (const QAction* entry : form->findChildren<QAction*>())
        if (!entry->isSeparator() && !entry->menu() && !entry->objectName().isEmpty()) {
            EXPECT_TRUE(names.insert(entry->objectName()).second) << entry->objectName().toStdString();
        }
}

TEST_F(MainWindow, HasEveryControlOfItsList) {
    open();
    QStringList wanted{u"Label100"_s,   u"Label5"_s,      u"Label8"_s,     u"Label19"_s,   u"Label3"_s,
                       u"Label15"_s,    u"Label7"_s,      u"Label118"_s,   u"Label11"_s,   u"Picture3"_s,
                       u"Label12"_s,    u"MSFlexGrid1"_s, u"Command41"_s,  u"Command42"_s, u"Command45"_s,
                       u"Command141"_s, u"Command142"_s,  u"Command145"_s, u"Command43"_s, u"Command44"_s,
                       u"Command48"_s,  u"cmdRead"_s,     u"ComSta"_s,     u"ComSpd"_s,    u"ComRst"_s,
                       u"Label9(0)"_s,  u"Label9(1)"_s,   u"Toolbar1"_s,   u"StatusBar1"_s};
    const std::tuple<QString, int, int> arrays[] = {
        {u"Command1"_s, 1, 38}, {u"Command2"_s, 1, 18}, {u"Label4"_s, 1, 38}, {u"Label6"_s, 1, 38},
        {u"Picture2"_s, 1, 38}, {u"Label1"_s, 0, 5},    {u"Label2"_s, 0, 5},  {u"MaskEdBox1"_s, 1, 7},
        {u"Label13"_s, 1, 7},   {u"StatusBar1"_s, 1, 4}};
    for (const auto& [name, first, last] : arrays)
        for (int index = first; index <= last; ++index)
            wanted << u"%1(%2)"_s.arg(name).arg(index);
    for (const QString& name : wanted)
        EXPECT_NE(form->findChild<QWidget*>(name), nullptr) << name.toStdString();
    EXPECT_EQ(text(u"Label4(1)"_s), u"01的概率:"_s);
    EXPECT_EQ(text(u"Label4(38)"_s), u"38的概率:"_s);
    EXPECT_EQ(text(u"Label7"_s), u"红球机选:"_s);
    EXPECT_EQ(text(u"Label118"_s), u"红球预测:"_s);
    EXPECT_EQ(text(u"Label13(7)"_s), u"7位走势"_s);
    EXPECT_EQ(text(u"Label9(0)"_s), u"拖:"_s);
    EXPECT_EQ(text(u"Label9(1)"_s), u"胆:"_s);
}

TEST_F(MainWindow, AnEmptyHistoryDisablesItsCommands) {
    open();
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 1 历史号码:"_s);
    for (const auto& name : {u"Command44"_s, u"Command48"_s})
        EXPECT_FALSE(control(*form, name)->isEnabled());
    for (const auto& name : {u"mnuDelast"_s, u"mnuSy"_s, u"Toolbar1(ls)"_s})
        EXPECT_FALSE(entryEnabled(name)) << name.toStdString();
    auto* grid = controlAs<toolkit::DataGrid>(*form, u"MSFlexGrid1"_s);
    EXPECT_EQ(grid->model()->rowCount(), 0);
    EXPECT_EQ(grid->model()->columnCount(), 9);
}

TEST_F(MainWindow, AFirstDrawEnablesThem) {
    open();
    addDraw(kFirstDraw);
    for (const auto& name : {u"Command44"_s, u"Command48"_s})
        EXPECT_TRUE(control(*form, name)->isEnabled());
    for (const auto& name : {u"mnuDelast"_s, u"mnuSy"_s, u"Toolbar1(ls)"_s})
        EXPECT_TRUE(entryEnabled(name)) << name.toStdString();
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2003002 历史号码:"_s);
}

TEST_F(MainWindow, TheGridShowsEachDrawAndStandsOnTheLast) {
    for (int issue = 1; issue <= 500; ++issue)
        addDraw({2003000 + issue, 1, 2, 3, 4, 5, 6, 7});
    addDraw(kSecondDraw);
    open();
    auto* grid = controlAs<toolkit::DataGrid>(*form, u"MSFlexGrid1"_s);
    const QAbstractItemModel& model = *grid->model();
    const QStringList headings{u"序数"_s, u"期号"_s, u"红1"_s, u"红2"_s, u"红3"_s,
                               u"红4"_s,  u"红5"_s,  u"红6"_s, u"蓝球"_s};
    for (int column = 0; column < 9; ++column)
        EXPECT_EQ(model.headerData(column, Qt::Horizontal).toString(), headings[column]);
    QStringList cells;
    QList<int> values;
    for (int column = 0; column < 9; ++column) {
        cells << model.index(500, column).data().toString();
        values << model.index(500, column).data(Qt::UserRole).toInt();
    }
    EXPECT_EQ(cells,
              (QStringList{u"501"_s, u"2003002"_s, u"04"_s, u"09"_s, u"19"_s, u"20"_s, u"21"_s, u"26"_s, u"12"_s}));
    EXPECT_EQ(values, (QList<int>{501, 2003002, 4, 9, 19, 20, 21, 26, 12}));
    EXPECT_EQ(model.index(0, 0).data(Qt::ForegroundRole).value<QColor>(), toolkit::colours(false).rowNumber);
    EXPECT_EQ(model.index(0, 2).data(Qt::ForegroundRole).value<QColor>(), toolkit::colours(false).red);
    EXPECT_EQ(model.index(0, 8).data(Qt::ForegroundRole).value<QColor>(), QColor(0, 0, 255));
    QTest::qWait(0);
    EXPECT_GE(grid->rowAt(grid->viewport()->height() / 2), 480);
}

TEST_F(MainWindow, AnEmptyGridOffersToReadAHistory) {
    open();
    EXPECT_TRUE(control(*form, u"HistoryEmpty"_s)->isVisible());
    press(*form, u"cmdReadFirst"_s);
    EXPECT_EQ(ran, std::vector<QString>{u"mnuRed"_s});
    addDraw(kFirstDraw);
    EXPECT_FALSE(control(*form, u"HistoryEmpty"_s)->isVisible());
    book.replace({});
    EXPECT_TRUE(control(*form, u"HistoryEmpty"_s)->isVisible());
}

TEST_F(MainWindow, TheNewestNumbersAreBold) {
    addDraw(kFirstDraw);
    addDraw(kSecondDraw);
    open();
    const QAbstractItemModel& model = *controlAs<toolkit::DataGrid>(*form, u"MSFlexGrid1"_s)->model();
    const auto bold = [&](int row, int column) {
        return model.index(row, column).data(Qt::FontRole).value<QFont>().bold();
    };
    EXPECT_FALSE(bold(0, 2));
    EXPECT_TRUE(bold(1, 2));
    EXPECT_TRUE(bold(1, 8));
    EXPECT_FALSE(bold(1, 0));
}

TEST_F(MainWindow, AllColumnsAreSeenAt1280Pixels) {
    for (int issue = 1; issue <= 100; ++issue)
        addDraw({2003000 + issue, 1, 2, 3, 4, 5, 6, 7});
    open();
    form->resize(1276, 760);
    QTest::qWait(0);
    for (const auto& name : {u"ScrollLeft"_s, u"ScrollShares"_s})
        EXPECT_FALSE(controlAs<QScrollArea>(*form, name)->verticalScrollBar()->isVisible()) << name.toStdString();
    EXPECT_FALSE(controlAs<QScrollArea>(*form, u"ScrollColumns"_s)->horizontalScrollBar()->isVisible());
    auto* grid = controlAs<toolkit::DataGrid>(*form, u"MSFlexGrid1"_s);
    EXPECT_FALSE(grid->horizontalScrollBar()->isVisible());
    EXPECT_EQ(grid->columnWidth(8), 46) << "not stretched";
}

TEST_F(MainWindow, AccessKeysAreUniqueWhereTheTextsLeaveAChoice) {
    open();
    std::map<QChar, QStringList> owners;
    const auto add = [&owners](const QString& name, const QString& caption) {
        const auto at = caption.indexOf(u'&');
        if (at >= 0)
            owners[caption[at + 1]] << name;
    };
    for (const QAction* menu : form->menuBar()->actions())
        add(menu->menu()->objectName(), menu->text());
    for (const QPushButton* button : form->findChildren<QPushButton*>())
        add(button->objectName(), button->text());
    const std::set<QString> told{u"mnuSelect"_s,  u"meuCol"_s,     u"mnuHolmag"_s,  u"meuWid"_s,     u"mnuSl"_s,
                                 u"mnuUserset"_s, u"mnuBoun"_s,    u"meuHlp"_s,     u"Command41"_s,  u"Command42"_s,
                                 u"Command45"_s,  u"Command141"_s, u"Command142"_s, u"Command145"_s, u"Command48"_s,
                                 u"Command44"_s,  u"cmdRead"_s,    u"Command43"_s};
    for (const auto& [key, names] : owners)
        for (const QString& name : names)
            EXPECT_TRUE(names.size() == 1 || told.contains(name))
                << QString(key).toStdString() << ' ' << names.join(u' ').toStdString();
}

TEST_F(MainWindow, AChosenLookHoldsAtOnceAndIsKept) {
    open();
    EXPECT_TRUE(action(*form, u"mnuLook(0)"_s)->isChecked());
    trigger(*form, u"mnuLook(2)"_s);
    EXPECT_TRUE(toolkit::isDark(QApplication::palette()));
    form->setPalette(QApplication::palette()); // as the running program does by itself
    EXPECT_EQ(settings.value(u"AHXLOTQ"_s, u"Option"_s, u"Look"_s), u"2"_s);
    EXPECT_TRUE(action(*form, u"mnuLook(2)"_s)->isChecked());
    EXPECT_FALSE(action(*form, u"mnuLook(0)"_s)->isChecked());
    EXPECT_EQ(mainwin::storedScheme(settings), toolkit::Scheme::Dark);
    const QColor caption = controlAs<QLabel>(*form, u"Label4(1)"_s)->palette().color(QPalette::WindowText);
    EXPECT_EQ(caption, toolkit::colours(true).red) << "captions follow";
    trigger(*form, u"mnuLook(1)"_s);
    EXPECT_FALSE(toolkit::isDark(QApplication::palette()));
    settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Look"_s, u"blue"_s);
    EXPECT_EQ(mainwin::storedScheme(settings), toolkit::Scheme::System);
}

TEST_F(MainWindow, TheHistoryModelKeepsTheRulesOfModels) {
    mainwin::HistoryModel model(history);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    addDraw(kFirstDraw);
    EXPECT_EQ(model.rowCount(), 0) << "not before it is told";
    model.reload();
    EXPECT_EQ(model.rowCount(), 1);
    addDraw(kSecondDraw);
    model.appendTyped();
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.index(0, 0).data().toString(), u"1"_s);
    EXPECT_EQ(model.index(1, 0).data().toString(), u"2期"_s);
    EXPECT_EQ(model.index(1, 0).data(Qt::UserRole).toInt(), 2);
    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    model.changed(2);
    EXPECT_EQ(changes.at(0).at(0).toModelIndex(), model.index(1, 0));
    EXPECT_EQ(changes.at(0).at(1).toModelIndex(), model.index(1, 8));
    model.removeLast();
    EXPECT_EQ(model.rowCount(), 1);
    model.appendTyped();
    model.reload();
    EXPECT_EQ(model.index(1, 0).data().toString(), u"2"_s);
}

TEST_F(MainWindow, SharesAreShownByNumber) {
    history.Gailvred[1] = 3.034;
    history.GailvBlue[16] = 6.256;
    open();
    EXPECT_EQ(text(u"Label6(1)"_s), u"3.03%"_s);
    EXPECT_EQ(text(u"LabelBlueShare(16)"_s), u"6.26%"_s);
}

TEST_F(MainWindow, ClosingTellsTheProgramAndRemembersThePlace) {
    open();
    const QSignalSpy closed(form.get(), &Form1::closed);
    form->resize(1300, 790);
    trigger(*form, u"Toolbar1(ext)"_s);
    EXPECT_EQ(closed.count(), 1);
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(stored(u"Place/Form1"_s).isEmpty());
}

TEST_F(MainWindow, NothingIsCutOffAtTheSmallestUsefulSize) {
    workspace.Bitnum = 38;
    workspace.BitnumB = 18;
    open();
    form->resize(1280, 800);
    pad.selectAllReds();
    pad.selectAllBlues();
    QTest::qWait(0);
    EXPECT_LE(form->minimumSizeHint().width(), 1280);
    EXPECT_EQ(form->width(), 1280);
    const auto widgets = form->centralWidget()->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (!widget->isVisible() || widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_"))
            continue;
        const bool control =
            widget->inherits("QAbstractButton") || widget->inherits("QLabel") || widget->inherits("QLineEdit");
        if (!control)
            continue;
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << widget->objectName().toStdString();
        const QWidget* above = widget->parentWidget();
        EXPECT_TRUE(above->rect().contains(widget->geometry())) << widget->objectName().toStdString();
    }
    for (const QScrollArea* area : form->findChildren<QScrollArea*>())
        EXPECT_LE(area->widget()->width(), area->viewport()->width()) << area->objectName().toStdString();
}

TEST_F(MainWindow, FitsASmallerScreenByScrolling) {
    open();
    EXPECT_LE(form->minimumSizeHint().height(), 600);
    EXPECT_LE(form->minimumSizeHint().width(), 1024);
}

TEST_F(MainWindow, OnALargeScreenItsPartsGrow) {
    open();
    const auto width = [this](const QString& name) { return control(*form, name)->width(); };
    QTest::qWait(0);
    const int shares = width(u"SharePanel"_s);
    const int history = width(u"HistoryPanel"_s);
    const int grid = control(*form, u"MSFlexGrid1"_s)->height();
    form->resize(2000, 1200);
    QTest::qWait(0);
    EXPECT_GT(width(u"SharePanel"_s), shares);
    EXPECT_GT(width(u"HistoryPanel"_s), history);
    EXPECT_GT(control(*form, u"MSFlexGrid1"_s)->height(), grid);
}

TEST_F(MainWindow, ALongUserNameLeavesRoomForTheOtherPanels) {
    workspace.Username = QString(300, u'长');
    open();
    QTest::qWait(0);
    const auto* user = controlAs<QLabel>(*form, u"StatusBar1(1)"_s);
    const auto* rule = controlAs<QLabel>(*form, u"StatusBar1(4)"_s);
    EXPECT_EQ(user->text(), u"用户："_s + workspace.Username);
    EXPECT_LE(user->width(), 280);
    EXPECT_GE(rule->width(), rule->fontMetrics().horizontalAdvance(rule->text()));
    EXPECT_LE(rule->geometry().right(), form->width());
}

} // namespace
} // namespace main_window_tests
