// The nine prize queries in the whole program, with real clicks.
#include <QDir>
#include <QPushButton>

#include "prize/query_kinds.h"
#include "prize/windows/ball_painting.h"
#include "toolkit/colours.h"
#include "windows/history_window_support.h"
#include "workspace/combination_files.h"
#include "workspace/paths.h"
#include "workspace/templates.h"

namespace history_window_tests {
namespace {

const QByteArray kOneDraw = "2026113 03 09 14 20 27 33 08\n";

class PrizeQuery : public HistoryWindow {
  protected:
    void SetUp() override {
        enterAs(u"张三"_s);
        readText(kOneDraw);
    }

    sql::Database& file(workspace::CombinationFile which) {
        return workspace::combinationFile(program->engine, program->workspace, which);
    }
    /// Bets with idx from 1; the last `out` are out.
    void hold(const prize::QueryEntry& entry, const std::vector<std::array<std::int32_t, 7>>& bets, int out = 0) {
        sql::Database& database = file(entry.kind.file);
        const std::string table(entry.table);
        sql::passOver(database, "DROP TABLE [" + table + "]");
        database.execute(workspace::createCombinationTable(table == "zuhereadR" ? "zuheReadR" : table));
        int idx = 0;
        for (const auto& bet : bets) {
            std::string values = std::to_string(++idx);
            std::string columns = "[idx]";
            const std::size_t numbers = entry.kind.file == workspace::CombinationFile::SixReds ? 6 : 7;
            for (std::size_t number = 0; number < numbers; ++number) {
                values += "," + std::to_string(bet[number]);
                columns += ",[fig" + std::to_string(number + 1) + "]";
            }
            database.execute("INSERT INTO [" + table + "] (" + columns + ") VALUES (" + values + ")");
        }
        database.execute("UPDATE [" + table + "] SET [unslt]=true, [fliter]=\"和值\" WHERE [idx] > " +
                         std::to_string(idx - out));
    }
    void holdFive(int out = 2) {
        hold(prize::kQueryEntries[0],
             {{1, 2, 4, 5, 6, 7, 9},
              {3, 9, 14, 20, 27, 30, 8},
              {1, 3, 9, 14, 20, 27, 16},
              {3, 9, 14, 20, 27, 33, 8},
              {1, 2, 4, 5, 6, 7, 8}},
             out);
    }
    static toolkit::DataGrid& gridOf(QWidget& dialog, const QString& name) {
        return *controlAs<toolkit::DataGrid>(dialog, name);
    }
    static QString headings(QWidget& dialog, const QString& grid) {
        const QAbstractItemModel& model = *gridOf(dialog, grid).model();
        QStringList all;
        for (int column = 0; column < model.columnCount(); ++column)
            all << model.headerData(column, Qt::Horizontal).toString();
        return all.join(u' ');
    }
    static std::vector<std::string> lines(QWidget& dialog, const QString& grid) {
        const QAbstractItemModel& model = *gridOf(dialog, grid).model();
        std::vector<std::string> all;
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < model.columnCount(); ++column)
                cells << model.index(row, column).data().toString();
            all.push_back(cells.join(u' ').toStdString());
        }
        return all;
    }
    static std::string label(QWidget& dialog, const QString& name) {
        return controlAs<QLabel>(dialog, name)->text().toStdString();
    }
    void inQuery(const ModalAction& act, const QString& entry = u"mnuzhInq"_s, const QString& name = u"GAganDj"_s) {
        const ModalScript script({{name, act}});
        trigger(form(), entry);
    }
    static void leave(QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }
    QStringList reports() {
        QDir folder(workspace::toQString(workspace::userFolder(program->workspace.folder, u"张三"_s)) +
                    u"/duijiang"_s);
        return folder.entryList(QDir::Files);
    }
};

using Lines = std::vector<std::string>;

TEST_F(PrizeQuery, ShowsTheDrawTheListsTheLevelsAndTheMoney) {
    holdFive();
    inQuery([](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"6红+1蓝组合中奖查询"_s);
        EXPECT_EQ(label(dialog, u"Issue"_s), "2026113");
        EXPECT_EQ(control(dialog, u"DrawBalls"_s)->accessibleName(), u"开奖号码 红球 3 9 14 20 27 33 蓝球 8"_s);
        EXPECT_EQ(headings(dialog, u"MSFlexGrid1"_s), u"号码索引 红1 红2 红3 红4 红5 红6 蓝球 中红 中蓝 奖级 奖金"_s);
        EXPECT_EQ(headings(dialog, u"MSFlexGrid3"_s),
                  u"号码索引 红1 红2 红3 红4 红5 红6 蓝球 中红 中蓝 奖级 奖金 过滤缘故"_s);
        EXPECT_EQ(lines(dialog, u"MSFlexGrid1"_s),
                  (Lines{"1 1 2 4 5 6 7 9 0 0  ", "2 3 9 14 20 27 30 8 5 1 三等奖 3000",
                         "3 1 3 9 14 20 27 16 5 0 四等奖 200"}));
        EXPECT_EQ(lines(dialog, u"MSFlexGrid3"_s),
                  (Lines{"4 3 9 14 20 27 33 8 6 1 一等奖 5000000 和值", "5 1 2 4 5 6 7 8 0 1 六等奖 5 和值"}));
        EXPECT_EQ(headings(dialog, u"MSFlexGrid2"_s), u"奖级 中注 单注 小计"_s);
        EXPECT_EQ(
            lines(dialog, u"MSFlexGrid2"_s),
            (Lines{"一等奖 0 5,000,000 0", "二等奖 0 50,000 0", "三等奖 1 3,000 3,000", "四等奖 1 200 200",
                   "五等奖 0 10 0", "六等奖 0 5 0", "被滤   ", "一等奖 1 5,000,000 5,000,000", "二等奖 0 50,000 0",
                   "三等奖 0 3,000 0", "四等奖 0 200 0", "五等奖 0 10 0", "六等奖 1 5 5"}));
        EXPECT_EQ(label(dialog, u"Label7(0)"_s), "投注组合情况排列总表(合计：3注)");
        EXPECT_EQ(label(dialog, u"Label7(1)"_s), "投注组合情况排列总表(合计：2注)");
        EXPECT_EQ(label(dialog, u"Label6"_s) + label(dialog, u"Label1"_s) + label(dialog, u"Label8"_s),
                  "6元3200元3194元");
        const auto& gain = *controlAs<QLabel>(dialog, u"Label8"_s);
        EXPECT_EQ(gain.palette().color(QPalette::WindowText), toolkit::colours(gain.palette()).green);
        EXPECT_EQ(label(dialog, u"BalanceTag"_s), "盈");
        leave(dialog);
    });
    EXPECT_TRUE(reports().isEmpty()) << "closed without a report";
}

TEST_F(PrizeQuery, BallsAreFilledWhereTheDrawHasTheNumber) {
    holdFive();
    inQuery([](QWidget& dialog) {
        toolkit::DataGrid& grid = gridOf(dialog, u"MSFlexGrid1"_s);
        const auto* balls = qobject_cast<prize::BallDelegate*>(grid.itemDelegate());
        ASSERT_NE(balls, nullptr);
        std::string hits;
        for (int column = 0; column < 12; ++column)
            hits += balls->isHit(grid.model()->index(2, column)) ? 'x' : '-';
        EXPECT_EQ(hits, "--xxxxx-----") << "3 1 3 9 14 20 27 16";
        EXPECT_TRUE(balls->isHit(grid.model()->index(1, 7))) << "the blue";
        leave(dialog);
    });
}

TEST_F(PrizeQuery, ALossIsRedAndSaysSo) {
    holdFive(5);
    inQuery([](QWidget& dialog) {
        EXPECT_EQ(label(dialog, u"Label6"_s) + label(dialog, u"Label1"_s) + label(dialog, u"Label8"_s), "0元0元0元");
        const auto& loss = *controlAs<QLabel>(dialog, u"Label8"_s);
        EXPECT_EQ(loss.palette().color(QPalette::WindowText), toolkit::colours(loss.palette()).red);
        leave(dialog);
    });
}

TEST_F(PrizeQuery, SortsAndTurnsPages) {
    holdFive();
    inQuery([](QWidget& dialog) {
        press(dialog, u"Command1"_s);
        EXPECT_TRUE(lines(dialog, u"MSFlexGrid1"_s).front().starts_with("2 "));
        typeInto(dialog, u"Text1"_s, u"2"_s);
        press(dialog, u"Command111"_s);
        EXPECT_TRUE(lines(dialog, u"MSFlexGrid1"_s).empty()) << "idx 10001 to 30000";
        typeInto(dialog, u"Text1"_s, u"1"_s);
        QTest::keyClick(controlAs<QLineEdit>(dialog, u"Text1"_s), Qt::Key_Return);
        EXPECT_EQ(lines(dialog, u"MSFlexGrid1"_s).size(), 3u);
        EXPECT_EQ(lines(dialog, u"MSFlexGrid3"_s).size(), 2u);
        typeInto(dialog, u"Text2"_s, u"3"_s);
        press(dialog, u"Command2"_s);
        EXPECT_TRUE(lines(dialog, u"MSFlexGrid3"_s).empty());
        EXPECT_TRUE(dialog.isVisible());
        leave(dialog);
    });
}

TEST_F(PrizeQuery, QuittingAddsAReport) {
    holdFive();
    inQuery([](QWidget& dialog) { press(dialog, u"cmdQut"_s); });
    inQuery([](QWidget& dialog) { press(dialog, u"cmdQut"_s); });
    EXPECT_EQ(reports().size(), 2);
    EXPECT_TRUE(window(u"Form1"_s)->isVisible());
}

TEST_F(PrizeQuery, AReportThatCannotBeWrittenIsTold) {
    holdFive();
    writeFile(u"张三/duijiang"_s, "a file where the folder should be");
    const ModalScript script({{u"GAganDj"_s, [](QWidget& dialog) { press(dialog, u"cmdQut"_s); }},
                              {u"MsgBox"_s, [](QWidget& box) {
                                   const auto& message = static_cast<QMessageBox&>(box);
                                   EXPECT_TRUE(message.text().startsWith(u"盈亏报告没有写入："_s))
                                       << message.text().toStdString();
                                   EXPECT_FALSE(message.detailedText().isEmpty());
                                   box.close();
                               }}});
    trigger(form(), u"mnuzhInq"_s);
}

TEST_F(PrizeQuery, EachEntryOpensItsWindowOnItsTable) {
    for (const prize::QueryEntry& entry : prize::kQueryEntries) {
        hold(entry, {{3, 9, 14, 20, 27, 33, 8}, {1, 2, 4, 5, 6, 7, 9}}, 1);
        const QString command = QString::fromUtf16(entry.command.data(), static_cast<int>(entry.command.size()));
        inQuery(
            [&](QWidget& dialog) {
                EXPECT_EQ(gridOf(dialog, u"MSFlexGrid1"_s).model()->rowCount(), 1) << command.toStdString();
                EXPECT_EQ(controlAs<QPushButton>(dialog, u"cmdQut"_s)->text(),
                          entry.kind.prizes ? u"添加到盈亏报告并返回(&E)"_s : u"返回(&E)"_s);
                press(dialog, u"cmdQut"_s);
            },
            command, QString::fromLatin1(entry.kind.form.data(), static_cast<int>(entry.kind.form.size())));
    }
    EXPECT_EQ(reports().size(), 4) << "of the four with prizes";
}

TEST_F(PrizeQuery, SixRedsAndSevenRedsHaveTheirOwnHeadings) {
    hold(prize::kQueryEntries[4], {{3, 9, 14, 20, 27, 33}, {1, 2, 4, 5, 6, 7}, {1, 2, 4, 5, 6, 8}}, 1);
    inQuery(
        [](QWidget& dialog) {
            EXPECT_EQ(headings(dialog, u"MSFlexGrid1"_s), u"索引 1位 2位 3位 4位 5位 6位 中基"_s);
            EXPECT_EQ(headings(dialog, u"MSFlexGrid2"_s), u"号码索引 1位 2位 3位 4位 5位 6位 中基号 过滤缘故"_s);
            EXPECT_EQ(label(dialog, u"Label6"_s), "2注");
            EXPECT_EQ(dialog.findChild<QLabel*>(u"Label1"_s), nullptr);
            leave(dialog);
        },
        u"mnuzhInqR"_s, u"GAganRDj"_s);
    hold(prize::kQueryEntries[8], {{1, 3, 9, 14, 20, 27, 33}, {1, 2, 4, 5, 6, 7, 8}});
    inQuery(
        [](QWidget& dialog) {
            EXPECT_EQ(headings(dialog, u"MSFlexGrid1"_s),
                      u"号码索引 第一位 第二位 第三位 第四位 第五位 第六位 第七位 中基号"_s);
            EXPECT_EQ(label(dialog, u"Label7(0)"_s), "复选组合情况排列总表（每页至多显示10000注）：");
            EXPECT_EQ(label(dialog, u"Label6"_s), "28元");
            EXPECT_EQ(dialog.findChild<QPushButton*>(u"Command2"_s), nullptr);
            leave(dialog);
        },
        u"mnufsInq"_s, u"GAganfDj"_s);
}

TEST_F(PrizeQuery, WithoutADrawTheEntriesSayWhatIsMissing) {
    trigger(form(), u"mnuDelast"_s);
    for (const prize::QueryEntry& entry : prize::kQueryEntries) {
        const QAction* action = form().findChild<QAction*>(
            QString::fromUtf16(entry.command.data(), static_cast<int>(entry.command.size())));
        ASSERT_NE(action, nullptr);
        EXPECT_FALSE(action->isEnabled());
        EXPECT_TRUE(action->toolTip().contains(u"还没有历史"_s)) << action->toolTip().toStdString();
    }
}

} // namespace
} // namespace history_window_tests
