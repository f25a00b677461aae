#include <QApplication>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTest>

#include <gtest/gtest.h>

#include "support/controls.h"
#include "support/fresh_home.h"
#include "support/modal_script.h"
#include "toolkit/colours.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_sheet.h"

using namespace Qt::StringLiterals;
using namespace test_support;
using toolkit::DataGrid;

namespace {

/// Three columns, the middle one hidden, the last one first on the screen; 2,000 rows.
class DataGridExport : public testing::Test {
  protected:
    static constexpr int kRows = 2000;

    DataGridExport() : model(kRows, 3) {
        for (int row = 0; row < kRows; ++row)
            for (int column = 0; column < 3; ++column)
                model.setItem(row, column, new QStandardItem(u"%1-%2"_s.arg(row).arg(column)));
        model.setHorizontalHeaderLabels({u"甲"_s, u"乙"_s, u"丙"_s});
        grid.setModel(&model);
        grid.setColumnHidden(1, true);
        grid.horizontalHeader()->moveSection(2, 0);
        grid.show();
    }

    QMenu* openMenu() {
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5}, grid.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(grid.viewport(), &asked);
        return grid.findChild<QMenu*>(u"GridMenu"_s);
    }

    void exportAs(std::vector<ModalStep> steps) {
        ModalScript script(std::move(steps));
        QMenu* menu = openMenu();
        ASSERT_NE(menu, nullptr);
        action(*menu, u"mnuExport"_s)->trigger();
        delete menu;
        EXPECT_EQ(script.left(), 0U);
    }

    static ModalStep names(const QString& file, int kind) {
        return {u"FileDialog"_s, [file, kind](QWidget& dialog) {
                    auto* files = qobject_cast<QFileDialog*>(&dialog);
                    ASSERT_NE(files, nullptr);
                    EXPECT_EQ(files->nameFilters(),
                              (QStringList{u"Excel 工作簿 (*.xlsx)"_s, u"CSV (*.csv)"_s, u"文本 (*.txt)"_s}));
                    files->selectNameFilter(files->nameFilters()[kind]);
                    controlAs<QLineEdit>(dialog, u"fileNameEdit"_s)->setText(file);
                    static_cast<QDialog*>(files)->accept();
                }};
    }
    ModalStep tells(const QString& name) const {
        return {u"MsgBox"_s, answer(u"已导出 2,000 行到“%1”。"_s.arg(place(name)))};
    }
    QString place(const QString& name) const { return home.folderName() + u'/' + name; }
    QByteArray bytes(const QString& name) const {
        QFile file(place(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    FreshHome home;
    QStandardItemModel model;
    DataGrid grid;
};

TEST_F(DataGridExport, WritesAllRowsOfTheColumnsThatAreShownAsTheyStand) {
    grid.selectionModel()->select(model.index(3, 0), QItemSelectionModel::Select); // the whole grid all the same
    exportAs({names(place(u"表.csv"_s), 1), tells(u"表.csv"_s)});
    EXPECT_TRUE(bytes(u"表.csv"_s).startsWith("\xEF\xBB\xBF丙,甲\r\n0-2,0-0\r\n1-2,1-0\r\n"));
    EXPECT_TRUE(bytes(u"表.csv"_s).endsWith("\r\n1999-2,1999-0\r\n"));
}

TEST_F(DataGridExport, ANameWithoutAnEndingGetsThatOfTheChosenKind) {
    exportAs({names(place(u"一"_s), 0), tells(u"一.xlsx"_s)});
    exportAs({names(place(u"二"_s), 1), tells(u"二.csv"_s)});
    exportAs({names(place(u"三"_s), 2), tells(u"三.txt"_s)});
    exportAs({names(place(u"四.csv"_s), 0), tells(u"四.csv"_s)}); // the name knows better
    EXPECT_TRUE(bytes(u"一.xlsx"_s).startsWith("PK"));
    EXPECT_TRUE(bytes(u"二.csv"_s).contains("丙,甲\r\n"));
    EXPECT_TRUE(bytes(u"三.txt"_s).startsWith("丙\t甲\r\n"));
    EXPECT_EQ(bytes(u"四.csv"_s), bytes(u"二.csv"_s));
}

TEST_F(DataGridExport, CancelWritesNothing) {
    exportAs({{u"FileDialog"_s, cancel()}});
    EXPECT_TRUE(std::filesystem::is_empty(home.folder()));
}

TEST_F(DataGridExport, AFileThatIsThereIsReplacedAfterAQuestionOnly) {
    exportAs({names(place(u"表.txt"_s), 2), tells(u"表.txt"_s)});
    const QByteArray former = bytes(u"表.txt"_s);
    model.setItem(0, 0, new QStandardItem(u"改"_s));
    exportAs({names(place(u"表"_s), 2),
              {u"MsgBox"_s, answer(u"“表.txt”已经存在，是否替换？"_s, u"导出"_s, QMessageBox::Cancel)}});
    EXPECT_EQ(bytes(u"表.txt"_s), former);
    exportAs({names(place(u"表"_s), 2),
              {u"MsgBox"_s, answer({}, u"导出"_s, QMessageBox::Ok)},
              {u"MsgBox"_s, answer({}, u"导出"_s, QMessageBox::Ok)}});
    EXPECT_NE(bytes(u"表.txt"_s), former);
}

TEST_F(DataGridExport, AnEmptyGridHasNothingToExport) {
    model.setRowCount(0);
    const std::unique_ptr<QMenu> menu(openMenu());
    EXPECT_FALSE(action(*menu, u"mnuExport"_s)->isEnabled());
}

TEST(DataGrid, ItsSheetHasNumbersWhereTheModelHasValues) {
    QStandardItemModel model(1, 4);
    model.setHorizontalHeaderLabels({u"期"_s, u"均值"_s, u"缘故"_s, u"空"_s});
    const auto set = [&model](int column, const QString& text, const QVariant& value) {
        auto* item = new QStandardItem(text);
        item->setData(value, Qt::UserRole);
        model.setItem(0, column, item);
    };
    set(0, u"12期"_s, 12);
    set(1, u"2.50"_s, 2.5);
    set(2, u"07"_s, {});
    DataGrid grid;
    grid.setModel(&model);
    const toolkit::GridRows rows(grid, toolkit::shownColumns(grid));
    EXPECT_EQ(rows.cell(0, 0), output::SheetCell(std::int64_t{12}));
    EXPECT_EQ(rows.cell(0, 1), output::SheetCell(2.5));
    EXPECT_EQ(rows.cell(0, 2), output::SheetCell(u"07"_s));
    EXPECT_EQ(rows.cell(0, 3), output::SheetCell());
    QString text;
    for (int column = 0; column < 4; ++column)
        rows.appendText(text, 0, {}, column);
    EXPECT_EQ(text, u"12期2.5007"_s) << "what it reads is what is shown";
}

TEST_F(DataGridExport, ARowIsNeverCutAtTheTop) {
    const int height = grid.rowHeight(0);
    for (const int beyond : {1, height / 2, height - 1}) {
        grid.resize(300, grid.height() + (10 * height + beyond) - grid.viewport()->height());
        ASSERT_EQ(grid.viewport()->height() % height, beyond);
        for (const int row : {0, 1, 777, kRows - 1}) {
            grid.scrollTo(model.index(row, 0));
            EXPECT_EQ(grid.rowViewportPosition(grid.rowAt(0)), 0) << row << ' ' << beyond;
            const QRect cell = grid.visualRect(model.index(row, 0));
            EXPECT_TRUE(grid.viewport()->rect().contains(cell)) << row << ' ' << beyond;
        }
        EXPECT_EQ(grid.verticalScrollBar()->value(), grid.verticalScrollBar()->maximum());
    }
    grid.resize(300, grid.height() + 3); // at the end, and it grows
    EXPECT_EQ(grid.rowViewportPosition(grid.rowAt(0)), 0);
    model.setRowCount(3);
    QApplication::processEvents();
    EXPECT_EQ(grid.rowViewportPosition(0), 0);
}

TEST_F(DataGridExport, HeadingsAreFlat) {
    model.setHorizontalHeaderLabels({u" "_s, u" "_s, u" "_s});
    grid.resize(600, 300);
    const QImage heading = grid.horizontalHeader()->grab().toImage();
    const toolkit::Colours& look = toolkit::colours(grid.palette());
    for (int y = 0; y < heading.height(); ++y)
        for (int x = 0; x < heading.width(); ++x)
            ASSERT_EQ(heading.pixelColor(x, y), y + 1 == heading.height() ? look.line : look.head) << x << ' ' << y;
}

} // namespace
