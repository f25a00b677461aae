#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSignalSpy>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTest>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "support/controls.h"
#include "support/fresh_home.h"
#include "support/modal_script.h"
#include "toolkit/data_grid.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/grid_copy.h"
#include "toolkit/look.h"
#include "toolkit/mask_edit.h"
#include "toolkit/messages.h"
#include "toolkit/number_ball.h"
#include "toolkit/progress_dialog.h"
#include "toolkit/window_place.h"

using namespace Qt::StringLiterals;
using namespace test_support;
using toolkit::DataGrid;
using toolkit::MaskEdit;
using toolkit::NumberBall;

namespace {

/// Cell (r, c) reads "r:c"; any number of rows costs nothing.
class ComputedModel : public QAbstractTableModel {
  public:
    ComputedModel(int rows, int columns) : m_rows(rows), m_columns(columns) {}
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_rows; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_columns; }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? QVariant(u"%1:%2"_s.arg(index.row()).arg(index.column())) : QVariant();
    }

  private:
    int m_rows;
    int m_columns;
};

TEST(DataGrid, CopiesTheSelectedCellsTabSeparated) {
    ComputedModel model(10, 4);
    DataGrid grid;
    grid.setModel(&model);
    grid.show();
    grid.selectionModel()->select({model.index(2, 1), model.index(3, 2)}, QItemSelectionModel::ClearAndSelect);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"2:1\t2:2\n3:1\t3:2"_s);
}

TEST(DataGrid, LeavesABlankForACellThatIsNotSelectedAmongSelectedOnes) {
    ComputedModel model(10, 4);
    DataGrid grid;
    grid.setModel(&model);
    auto* selection = grid.selectionModel();
    selection->select(model.index(8, 3), QItemSelectionModel::Select);
    selection->select(model.index(1, 0), QItemSelectionModel::Select);
    toolkit::DialogBoxes boxes(nullptr);
    EXPECT_EQ(toolkit::selectedText(grid, false, boxes), u"1:0\t\n\t8:3"_s) << "rows come in the order of the grid";
    EXPECT_TRUE(grid.copySelection(DataGrid::Headings::With));
    EXPECT_EQ(QApplication::clipboard()->text(), u"1\t4\n1:0\t\n\t8:3"_s);
    EXPECT_EQ(QApplication::clipboard()->mimeData()->html(),
              u"<table><tr><th>1</th><th>4</th></tr><tr><td>1:0</td><td></td></tr>"
              "<tr><td></td><td>8:3</td></tr></table>"_s);
}

TEST(DataGrid, CopiesRangesBesideEachOtherRowByRow) {
    ComputedModel model(10, 3);
    DataGrid grid;
    grid.setModel(&model);
    auto* selection = grid.selectionModel();
    const auto select = [&](int top, int bottom, int left, int right) {
        selection->select({model.index(top, left), model.index(bottom, right)}, QItemSelectionModel::Select);
    };
    toolkit::DialogBoxes boxes(nullptr);
    const auto copied = [&] { return toolkit::selectedText(grid, false, boxes).value_or(QString()); };
    select(4, 5, 0, 1);
    select(2, 3, 0, 1); // right above
    EXPECT_EQ(copied(), u"2:0\t2:1\n3:0\t3:1\n4:0\t4:1\n5:0\t5:1"_s);
    select(7, 7, 0, 1); // row 6 between them is not selected
    EXPECT_TRUE(copied().endsWith(u"\n5:0\t5:1\n7:0\t7:1"_s));
    select(3, 3, 2, 2); // beside rows that are longer than itself
    EXPECT_EQ(copied(), u"2:0\t2:1\t\n3:0\t3:1\t3:2\n4:0\t4:1\t\n5:0\t5:1\t\n7:0\t7:1\t"_s);
    selection->clear();
    select(2, 5, 0, 0);
    select(3, 4, 2, 2); // within the rows of the other
    EXPECT_EQ(copied(), u"2:0\t\n3:0\t3:2\n4:0\t4:2\n5:0\t"_s);
}

TEST(DataGrid, CountsARowOnceHoweverManyOfItsCellsAreSelectedApart) {
    constexpr int kRows = 150000; // twice as many would be asked about
    ComputedModel model(kRows, 3);
    DataGrid grid;
    grid.setModel(&model);
    for (const int column : {0, 2})
        grid.selectionModel()->select({model.index(0, column), model.index(kRows - 1, column)},
                                      QItemSelectionModel::Select);
    const ModalScript nothing({});
    grid.copySelection();
    EXPECT_TRUE(QApplication::clipboard()->text().endsWith(u"\n149999:0\t149999:2"_s));
}

TEST(DataGrid, CopiesNothingWithoutASelection) {
    ComputedModel model(3, 3);
    DataGrid grid;
    QApplication::clipboard()->setText(u"before"_s);
    grid.copySelection(); // without a model
    grid.setModel(&model);
    grid.copySelection();
    EXPECT_EQ(QApplication::clipboard()->text(), u"before"_s);
}

TEST(DataGrid, AsksBeforeItCopiesMoreThanTwoHundredThousandRows) {
    ComputedModel model(int{toolkit::kAskRows} + 1, 1);
    DataGrid grid;
    grid.setModel(&model);
    grid.show();
    QApplication::clipboard()->setText(u"before"_s);
    grid.selectAll();
    {
        const ModalScript script({{u"MsgBox"_s, answer({}, u"复制"_s, QMessageBox::Cancel)}});
        grid.copySelection();
    }
    EXPECT_EQ(QApplication::clipboard()->text(), u"before"_s);
    grid.selectionModel()->select({model.index(0, 0), model.index(int{toolkit::kAskRows} - 1, 0)},
                                  QItemSelectionModel::ClearAndSelect);
    grid.copySelection(); // exactly as many as are copied without a question
    EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), int{toolkit::kAskRows} - 1);
}

TEST(DataGrid, CopiesNeverMoreThanTwoMillionRows) {
    ComputedModel model(int{toolkit::kMostRows} + 1, 1);
    DataGrid grid;
    grid.setModel(&model);
    grid.selectAll();
    QApplication::clipboard()->setText(u"before"_s);
    const ModalScript script(
        {{u"MsgBox"_s, answer(u"共选中 2000001 行，一次最多复制 2000000 行。请少选一些，或者用导出。"_s)}});
    EXPECT_FALSE(grid.copySelection());
    EXPECT_EQ(QApplication::clipboard()->text(), u"before"_s);
}

TEST(DataGrid, ACopyThatIsGivenUpLeavesTheClipboard) {
    struct GivesUp : workspace::Dialogs {
        struct Never : workspace::Progress {
            bool advance(double) override { return false; }
        };
        bool confirm(const workspace::Message&, workspace::Risk) override { return true; }
        void tell(const workspace::Message&) override {}
        void warn(const workspace::Message&) override {}
        std::optional<QString> askText(const QString&, const QString&, const QString&) override { return {}; }
        QString chooseFile(const QString&, const QString&) override { return {}; }
        std::unique_ptr<workspace::Progress> progress(const QString&) override { return std::make_unique<Never>(); }
    } dialogs;
    ComputedModel model(int{toolkit::kAskRows} + 1, 1);
    DataGrid grid;
    grid.setModel(&model);
    grid.selectAll();
    QApplication::clipboard()->setText(u"before"_s);
    EXPECT_FALSE(toolkit::copySelected(grid, false, dialogs));
    EXPECT_EQ(QApplication::clipboard()->text(), u"before"_s);
}

TEST(DataGrid, ItsMenuCopiesAndSelectsAndTakesEntriesOfTheWindow) {
    ComputedModel model(3, 2);
    DataGrid grid;
    grid.setModel(&model);
    grid.addMenuEntry(new QAction(u"更多"_s));
    grid.show();
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5}, grid.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(grid.viewport(), &asked);
    auto* menu = grid.findChild<QMenu*>(u"GridMenu"_s);
    ASSERT_NE(menu, nullptr);
    QStringList captions;
    for (const QAction* entry : menu->actions())
        if (!entry->isSeparator())
            captions << entry->text();
    EXPECT_EQ(captions, (QStringList{u"复制"_s, u"复制含表头"_s, u"全选"_s, u"导出…"_s, u"打印…"_s, u"更多"_s}));
    EXPECT_FALSE(menu->actions()[0]->isEnabled()); // nothing is selected
    menu->actions()[2]->trigger();
    EXPECT_TRUE(grid.copySelection());
    EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), 2);
    menu->close();
}

TEST(DataGrid, ColumnsComeBackAsTheUserLeftThem) {
    QHash<QString, QString> kept;
    const toolkit::PlaceStore store{[&kept](const QString& key) { return kept.value(key); },
                                    [&kept](const QString& key, const QString& value) { kept.insert(key, value); }};
    ComputedModel model(3, 3);
    for (const bool first : {true, false}) {
        DataGrid grid;
        grid.setModel(&model);
        grid.keepColumns(store, u"grid"_s);
        if (first) {
            grid.setColumnWidth(1, 77);
            grid.horizontalHeader()->moveSection(0, 2);
        }
        EXPECT_EQ(grid.columnWidth(1), 77);
        EXPECT_EQ(grid.horizontalHeader()->visualIndex(0), 2);
    }
}

TEST(DataGrid, AHeadingDoesNotAskWhetherItsColumnIsSelected) {
    constexpr int kLargestTable = 17'721'088;
    class Counting : public ComputedModel {
      public:
        using ComputedModel::ComputedModel;
        mutable int flagsAsked = 0;
        Qt::ItemFlags flags(const QModelIndex& index) const override {
            ++flagsAsked;
            return ComputedModel::flags(index);
        }
    };
    Counting model(kLargestTable, 8);
    DataGrid grid;
    grid.setModel(&model);
    grid.resize(600, 400);
    grid.show();
    grid.selectAll();
    model.flagsAsked = 0;
    grid.grab();
    EXPECT_LT(model.flagsAsked, 10'000) << "painting looks at the cells in sight only";
}

TEST(DataGrid, ColumnsCanBeResizedAndRowsHaveOneHeight) {
    ComputedModel model(5, 3);
    DataGrid grid;
    grid.setModel(&model);
    grid.setColumnWidths({30, 40});
    EXPECT_EQ(grid.columnWidth(0), 30);
    EXPECT_EQ(grid.columnWidth(1), 40);
    EXPECT_EQ(grid.horizontalHeader()->sectionResizeMode(1), QHeaderView::Interactive);
    EXPECT_EQ(grid.verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
}

TEST(NumberBall, ALeftClickOnlyReportsAndChangesNothingItself) {
    NumberBall ball(NumberBall::Kind::Red, 7);
    ball.show();
    const QSignalSpy clicked(&ball, &NumberBall::clicked);
    QTest::mouseClick(&ball, Qt::LeftButton, {}, ball.rect().center());
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_FALSE(ball.isChecked());
    EXPECT_EQ(ball.state(), NumberBall::State::Free);
}

TEST(NumberBall, ARightPressAndTheMenuKeyAskForThePopUpAndNothingElse) {
    NumberBall ball(NumberBall::Kind::Red, 7);
    ball.show();
    const QSignalSpy clicked(&ball, &NumberBall::clicked);
    const QSignalSpy right(&ball, &NumberBall::rightPressed);
    QTest::mouseClick(&ball, Qt::RightButton, {}, ball.rect().center());
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&ball, &key);
    EXPECT_EQ(right.count(), 2);
    EXPECT_EQ(clicked.count(), 0);
}

TEST(NumberBall, IsPressedBySpaceAndEnter) {
    NumberBall ball(NumberBall::Kind::Blue, 16);
    ball.show();
    const QSignalSpy clicked(&ball, &NumberBall::clicked);
    QTest::keyClick(&ball, Qt::Key_Space);
    QTest::keyClick(&ball, Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 2);
}

TEST(NumberBall, ItsCornersAreNotPartOfIt) {
    NumberBall ball(NumberBall::Kind::Red, 1);
    ball.show();
    const QSignalSpy clicked(&ball, &NumberBall::clicked);
    QTest::mouseClick(&ball, Qt::LeftButton, {}, {1, 1});
    EXPECT_EQ(clicked.count(), 0);
}

TEST(NumberBall, EachStateLooksAndReadsDifferently) {
    NumberBall ball(NumberBall::Kind::Red, 9);
    std::vector<QImage> pictures;
    std::vector<QString> names;
    for (const auto state : {NumberBall::State::Free, NumberBall::State::Selected, NumberBall::State::Banker}) {
        ball.setState(state);
        pictures.push_back(ball.grab().toImage());
        names.push_back(ball.accessibleName());
    }
    for (std::size_t first = 0; first < pictures.size(); ++first)
        for (std::size_t second = first + 1; second < pictures.size(); ++second) {
            EXPECT_NE(pictures[first], pictures[second]);
            EXPECT_NE(names[first], names[second]);
        }
    EXPECT_EQ(names[2], u"红球 9 胆"_s);
}

TEST(MaskEdit, TakesDigitsOnlyAndTellsWhenItIsFull) {
    MaskEdit box(u"99"_s);
    box.show();
    box.setFocus();
    const QSignalSpy filled(&box, &MaskEdit::filled);
    EXPECT_EQ(box.maskedText(), u"__"_s);
    QTest::keyClicks(&box, u"x4"_s);
    EXPECT_EQ(box.maskedText(), u"4_"_s);
    EXPECT_EQ(filled.count(), 0);
    QTest::keyClicks(&box, u"2"_s);
    EXPECT_EQ(box.maskedText(), u"42"_s);
    EXPECT_EQ(filled.count(), 1);
    box.clearToMask();
    EXPECT_EQ(box.maskedText(), u"__"_s);
}

TEST(MaskEdit, IsTypedFromItsStartWhereverItIsClicked) {
    MaskEdit box(u"99"_s);
    box.resize(40, 24);
    box.show();
    for (const int x : {2, 20, 38}) {
        box.clearToMask();
        QTest::mouseClick(&box, Qt::LeftButton, {}, {x, 12});
        QTest::keyClicks(&box, u"17"_s);
        EXPECT_EQ(box.maskedText(), u"17"_s) << x;
        QTest::mouseClick(&box, Qt::LeftButton, {}, {x, 12});
        QTest::keyClicks(&box, u"05"_s);
        EXPECT_EQ(box.maskedText(), u"05"_s) << x;
    }
}

TEST(ProgressDialog, ShortWorkShowsNoWindow) {
    toolkit::ProgressDialog dialog(nullptr, 3'600'000);
    dialog.begin();
    EXPECT_TRUE(dialog.advance(1));
    EXPECT_FALSE(dialog.isVisible());
}

TEST(ProgressDialog, CancelIsHeardAndTheWindowStaysUntilTheWorkEnds) {
    toolkit::ProgressDialog dialog(nullptr, 0);
    dialog.begin(u"复制"_s);
    EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    EXPECT_TRUE(dialog.advance(0.1));
    press(dialog, u"cmdCancel"_s);
    EXPECT_FALSE(dialog.advance(0.2));
    EXPECT_TRUE(dialog.isVisible());
    dialog.begin();
    EXPECT_TRUE(dialog.advance(0.1));
}

TEST(ProgressDialog, OnlyMovesForward) {
    toolkit::ProgressDialog dialog(nullptr, 0);
    dialog.begin();
    EXPECT_EQ(window(u"Dialog"_s), &dialog);
    EXPECT_EQ(dialog.windowTitle(), u"组合排列进度栏"_s);
    const auto* bar = controlAs<QProgressBar>(dialog, u"Picture1"_s);
    dialog.advance(0.5);
    const int half = bar->value();
    EXPECT_EQ(half * 2, bar->maximum());
    dialog.advance(0.25);
    EXPECT_EQ(bar->value(), half);
    dialog.advance(7);
    EXPECT_EQ(bar->value(), bar->maximum());
    dialog.begin();
    EXPECT_EQ(bar->value(), 0);
}

TEST(WindowPlace, AWindowComesBackWhereItWasClosed) {
    QHash<QString, QString> kept;
    const toolkit::PlaceStore store{[&kept](const QString& key) { return kept.value(key); },
                                    [&kept](const QString& key, const QString& value) { kept.insert(key, value); }};
    const auto make = [&store] {
        auto window = std::make_unique<QSplitter>();
        window->setObjectName(u"Form9"_s);
        window->resize(300, 200);
        toolkit::keepPlace(*window, store);
        return window;
    };
    auto first = make();
    first->show();
    first->setGeometry(40, 50, 410, 320);
    first->close();
    EXPECT_TRUE(kept.contains(u"Form9"_s));
    auto second = make();
    EXPECT_EQ(second->size(), QSize(410, 320));
}

TEST(WindowPlace, AStoredPlaceThatIsNoneIsPassedOver) {
    QWidget window;
    window.resize(300, 200);
    EXPECT_FALSE(toolkit::restorePlace(window, {[](const QString&) { return u"nonsense"_s; }, {}}));
    EXPECT_FALSE(toolkit::restorePlace(window, {}));
    EXPECT_EQ(window.size(), QSize(300, 200));
}

TEST(WindowPlace, TheFirstPlaceIsInsideTheWorkArea) {
    QWidget window;
    const QRect work = window.screen()->availableGeometry();
    toolkit::placeOver(window, {5000, 4000});
    EXPECT_TRUE(work.contains(window.geometry()));
    EXPECT_GT(window.geometry().top(), work.top()); // room for the title
    toolkit::placeOver(window, {300, 200});
    EXPECT_EQ(window.size(), QSize(300, 200));
}

TEST(WindowPlace, TheFirstPlaceIsOverTheParentAsFarAsTheScreenGoes) {
    QWidget parent;
    parent.setGeometry(200, 150, 400, 300);
    parent.show();
    QWidget child(&parent, Qt::Window);
    toolkit::placeOver(child, {200, 100});
    EXPECT_EQ(child.geometry().center(), parent.geometry().center());
    parent.setGeometry(-150, 20, 200, 100);
    toolkit::placeOver(child, {300, 200});
    EXPECT_TRUE(child.screen()->availableGeometry().contains(child.geometry()));
}

/// The darkest and the lightest grey of what a control paints.
std::pair<int, int> greys(QWidget& control) {
    const QImage image = control.grab().toImage();
    std::pair<int, int> range{255, 0};
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const int grey = qGray(image.pixel(x, y));
            range = {std::min(range.first, grey), std::max(range.second, grey)};
        }
    return range;
}

TEST(Look, AnEmptyMarkCanBeSeenOnADarkGround) {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(31, 34, 39));
    dark.setColor(QPalette::Base, QColor(40, 44, 51));
    dark.setColor(QPalette::WindowText, QColor(228, 231, 236));
    QCheckBox check;
    QRadioButton option;
    for (QWidget* mark : {static_cast<QWidget*>(&check), static_cast<QWidget*>(&option)}) {
        mark->setPalette(dark);
        mark->setAutoFillBackground(true);
        mark->resize(20, 20);
        const auto [darkest, lightest] = greys(*mark);
        EXPECT_GT(lightest - darkest, 80) << mark->metaObject()->className();
    }
}

TEST(Look, ATickedMarkDiffersFromAnEmptyOne) {
    QCheckBox check;
    check.resize(20, 20);
    const QImage empty = check.grab().toImage();
    check.setChecked(true);
    const QImage ticked = check.grab().toImage();
    check.setEnabled(false);
    const QImage disabled = check.grab().toImage();
    EXPECT_NE(empty, ticked);
    EXPECT_NE(ticked, disabled);
}

TEST(Messages, AnInputBoxGivesItsTextOrNothing) {
    ModalScript script({{u"InputBox"_s, type(u"十二"_s)}, {u"InputBox"_s, cancel()}});
    EXPECT_EQ(toolkit::askText(nullptr, u"问"_s, u"题"_s, u"5"_s), u"十二"_s);
    EXPECT_EQ(toolkit::askText(nullptr, u"问"_s, u"题"_s, u"5"_s), QString());
    EXPECT_EQ(script.left(), 0U);
}

TEST(Messages, QtsOwnButtonsAreChinese) {
    const ModalScript script({{u"MsgBox"_s, [](QWidget& dialog) {
                                   auto* box = qobject_cast<QMessageBox*>(&dialog);
                                   EXPECT_TRUE(box->button(QMessageBox::Cancel)->text().startsWith(u"取消"_s));
                                   box->button(QMessageBox::Ok)->click();
                               }}});
    EXPECT_TRUE(toolkit::DialogBoxes(nullptr).confirm({u"要吗？"_s, u"问"_s}, workspace::Risk::None));
}

TEST(Look, DarkIsToldByThePalette) {
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::white);
    EXPECT_TRUE(toolkit::isDark(palette));
    EXPECT_NE(toolkit::colours(palette).red, toolkit::colours(QApplication::palette()).red);
    EXPECT_FALSE(toolkit::isDark(QApplication::palette()));
}

TEST(ModalScript, AStepMayOpenTheNextDialog) {
    QDialog outer;
    outer.setObjectName(u"Outer"_s);
    QPushButton ask(u"?"_s, &outer);
    ask.setObjectName(u"ask"_s);
    QString typed;
    QObject::connect(&ask, &QPushButton::clicked, [&] { typed = toolkit::askText(&outer, u"问"_s, u"题"_s); });
    ModalScript script({{u"Outer"_s,
                         [](QWidget& dialog) {
                             press(dialog, u"ask"_s);
                             dialog.close();
                         }},
                        {u"InputBox"_s, type(u"内"_s)}});
    outer.exec();
    EXPECT_EQ(typed, u"内"_s);
    EXPECT_EQ(script.left(), 0U);
}

TEST(ModalScript, ADialogThatNobodyExpectsFailsTheCaseAndIsClosed) {
    EXPECT_NONFATAL_FAILURE(
        {
            const ModalScript script({});
            toolkit::showMessage(nullptr, u"意外"_s);
        },
        "nobody expected");
}

TEST(ModalScript, ADialogThatNeverComesFailsTheCase) {
    EXPECT_NONFATAL_FAILURE({ const ModalScript script({{u"MsgBox"_s, cancel()}}); }, "never came");
}

TEST(Controls, ADisabledOrMissingControlCannotBePressed) {
    QWidget parent;
    auto* button = new QPushButton(&parent);
    button->setObjectName(u"Command1"_s);
    button->setEnabled(false);
    parent.show();
    EXPECT_NONFATAL_FAILURE(press(parent, u"Command1"_s), "disabled");
    EXPECT_NONFATAL_FAILURE(press(parent, u"Command2"_s), "missing");
    button->hide();
    EXPECT_NONFATAL_FAILURE(press(parent, u"Command1"_s), "hidden");
}

TEST(FreshHome, PointsTheProgramAtAnEmptyFolderAndBack) {
    const QByteArray before = qgetenv("SSQDESK_HOME");
    {
        const FreshHome home;
        EXPECT_EQ(qEnvironmentVariable("SSQDESK_HOME"), home.folderName());
        EXPECT_TRUE(std::filesystem::is_empty(home.folder()));
    }
    EXPECT_EQ(qgetenv("SSQDESK_HOME"), before);
}

} // namespace
