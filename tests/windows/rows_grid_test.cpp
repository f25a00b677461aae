#include "toolkit/rows_grid.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using toolkit::CellStyle;
using toolkit::RowsGrid;
using toolkit::RowsModel;
using toolkit::RowState;

namespace {

constexpr std::int64_t kLargestTable = 17'721'088;

/// Cell (r, c) reads "r:c" and is worth r; counts how often it is asked.
class CountedRows : public toolkit::RowSource {
  public:
    CountedRows(std::int64_t count, int& asked) : m_count(count), m_asked(asked) {}
    std::int64_t count() const override { return m_count; }
    QString text(std::int64_t row, int column) const override {
        ++m_asked;
        return u"%1:%2"_s.arg(row).arg(column);
    }
    QVariant value(std::int64_t row, int) const override { return static_cast<qlonglong>(row); }
    RowState state(std::int64_t row) const override { return row == 1 ? RowState::Hit : RowState::Plain; }
    QVariant look(std::int64_t row, int column, int role) const override {
        return role == Qt::ToolTipRole && row == 2 && column == 1 ? QVariant(u"此格"_s) : QVariant();
    }

  private:
    std::int64_t m_count;
    int& m_asked;
};

class RowsGridTest : public testing::Test {
  protected:
    void show(std::int64_t rows, std::vector<toolkit::GridColumn> columns, int width = 600) {
        model.show(std::move(columns), std::make_unique<CountedRows>(rows, asked));
        grid.setModel(&model);
        grid.resize(width, 300);
        grid.show();
    }
    int room() const { return grid.width() - grid.verticalScrollBar()->sizeHint().width(); }
    int headingWidth(const QString& heading) const {
        return grid.horizontalHeader()->fontMetrics().horizontalAdvance(heading) + 10;
    }

    int asked = 0;
    RowsModel model;
    RowsGrid grid;
};

TEST_F(RowsGridTest, GivesTextValueAndLooksOfASource) {
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    show(3, {{.heading = u"索引"_s}, {.heading = u"红1"_s, .style = CellStyle::Red, .digits = 2}});
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole), u"红1"_s);
    EXPECT_EQ(model.index(2, 1).data().toString(), u"2:1"_s);
    EXPECT_EQ(model.index(2, 1).data(Qt::UserRole).toInt(), 2);
    EXPECT_EQ(model.index(2, 1).data(Qt::ToolTipRole).toString(), u"此格"_s);
    EXPECT_EQ(model.index(2, 1).data(toolkit::kCellStyleRole).toInt(), static_cast<int>(CellStyle::Red));
    EXPECT_EQ(model.index(2, 1).data(toolkit::kDigitsRole).toInt(), 2);
    EXPECT_EQ(model.index(1, 0).data(toolkit::kRowStateRole).toInt(), static_cast<int>(RowState::Hit));
    model.show({}, nullptr);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(RowsGridTest, TellsOfRowsThatComeAndGo) {
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    show(3, {{.heading = u"索引"_s}});
    const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    model.rowsAppended(2);
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(inserted.at(0).at(1).toInt(), 3);
    EXPECT_EQ(inserted.at(0).at(2).toInt(), 4);
    model.rowsRemoved(1);
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_EQ(removed.at(0).at(1).toInt(), 4);
    model.reload();
    EXPECT_EQ(model.rowCount(), 3);
}

TEST_F(RowsGridTest, TheLargestTableIsReadWhereItIsInSightOnly) {
    show(kLargestTable, {{.heading = u"索引"_s}, {.heading = u"红1"_s, .style = CellStyle::Red}});
    EXPECT_EQ(model.rowCount(), kLargestTable);
    grid.grab();
    grid.scrollToBottom();
    grid.grab();
    EXPECT_EQ(grid.rowAt(grid.viewport()->height() - grid.rowHeight(0)), kLargestTable - 1);
    EXPECT_GT(asked, 0);
    EXPECT_LT(asked, 1000);
}

TEST_F(RowsGridTest, AColumnIsAsWideAsItAsksAndAsItsHeadingNeeds) {
    show(3, {{.heading = u"索引"_s, .width = 90, .mark = 22},
             {.heading = u"很长很长很长的标题"_s, .style = CellStyle::Red, .width = 20},
             {.heading = u"值"_s, .style = CellStyle::Number, .width = 60}});
    EXPECT_EQ(grid.columnWidth(0), 112);
    EXPECT_EQ(grid.columnWidth(1), headingWidth(u"很长很长很长的标题"_s));
    EXPECT_EQ(grid.columnWidth(2), 60) << "not stretched into the emptiness";
}

TEST_F(RowsGridTest, ALastTextTakesWhatIsLeftAndALastNumberGivesWay) {
    show(3, {{.heading = u"索引"_s, .width = 200}, {.heading = u"缘故"_s, .style = CellStyle::Text, .width = 50}});
    EXPECT_EQ(grid.columnWidth(1), room() - 200);
    grid.resize(700, 300);
    EXPECT_EQ(grid.columnWidth(1), room() - 200);
    show(3, {{.heading = u"索引"_s, .width = 500},
             {.heading = u"值"_s, .style = CellStyle::Number, .width = 300, .least = 40}});
    EXPECT_EQ(grid.columnWidth(1), room() - 500);
    grid.resize(510, 300);
    EXPECT_EQ(grid.columnWidth(1), 40);
}

TEST_F(RowsGridTest, AGridThatIsNotRoomyHasNarrowColumns) {
    show(3,
         {{.heading = u"甲"_s, .width = 90, .narrow = 50}, {.heading = u"乙"_s, .width = 70}, {.heading = u"丙"_s}},
         799);
    EXPECT_EQ(grid.columnWidth(0), 50);
    EXPECT_EQ(grid.columnWidth(1), 70);
    grid.resize(800, 300);
    EXPECT_EQ(grid.columnWidth(0), 90);
}

TEST_F(RowsGridTest, AWidthThatTheUserGaveStaysFromViewToView) {
    const std::vector<toolkit::GridColumn> columns{{.heading = u"甲"_s, .width = 90},
                                                   {.heading = u"乙"_s, .width = 70}};
    show(3, columns);
    grid.setColumnWidth(0, 123);
    model.show(columns, std::make_unique<CountedRows>(5, asked));
    grid.resize(900, 300);
    EXPECT_EQ(grid.columnWidth(0), 123);
    EXPECT_EQ(grid.columnWidth(1), 70);
    model.show({columns[0]}, std::make_unique<CountedRows>(5, asked));
    model.show(columns, std::make_unique<CountedRows>(5, asked));
    EXPECT_EQ(grid.columnWidth(1), 70) << "what the header does to a column that comes back is no wish of the user";
}

TEST_F(RowsGridTest, ColumnsGrowEvenlyUpToTheirMostWhenTheyAreToldTo) {
    const std::vector<toolkit::GridColumn> columns{{.heading = u"甲"_s, .width = 100},
                                                   {.heading = u"乙"_s, .width = 60}};
    show(3, columns, 500);
    EXPECT_EQ(grid.columnWidth(0), 100) << "none grows at first";
    grid.growColumns(1.5);
    EXPECT_EQ(grid.columnWidth(0), 150);
    EXPECT_EQ(grid.columnWidth(1), 90);
    grid.resize(200 + grid.width() - room(), 300);
    QTest::qWait(0);
    EXPECT_EQ(grid.columnWidth(0), 125) << "200 for 160";
    EXPECT_EQ(grid.columnWidth(1), 75);
    grid.horizontalHeader()->resizeSection(0, 80);
    grid.resize(1000, 300);
    QTest::qWait(0);
    EXPECT_EQ(grid.columnWidth(0), 80) << "what the user has dragged stays";
}

} // namespace
