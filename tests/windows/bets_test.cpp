// Every way to make bets, from the menus of the whole program to the rows of their tables.
#include <bit>
#include <numeric>
#include <random>

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include "filter/member.h"
#include "mainwin/windows/filter_opener.h"
#include "selection/wheel_database.h"
#include "toolkit/head_line.h"
#include "windows/program_fixture.h"
#include "workspace/combination_files.h"

using namespace Qt::StringLiterals;
using namespace test_support;
using selection::WheelFamily;

namespace {

using Rows = std::vector<std::vector<std::int32_t>>;

const QString kStartPrompt =
    u"该功能每行读取一注，该文本文件每行从第几个字符开始读取。（如果每注前面有序号，应该避免将序号作为号码读入，"
    u"如果没有序号可以从第一个字符也就是顶格读取）"_s;
const Rows kThreeRows{{1, 2, 3, 4, 5, 6}, {1, 2, 3, 7, 8, 9}, {4, 5, 6, 7, 8, 9}};

QString title(std::int64_t bets) {
    return u"复选组合情况排列总表（每页至多显示10000注，双击任意注可删除）   合计：%1注"_s.arg(bets);
}

class BetsTest : public ProgramFixture {
  protected:
    /// A wheel table in the program's folder, with these rows.
    void putWheel(WheelFamily family, const std::string& name, const Rows& rows) {
        sql::Engine engine;
        const auto& info = selection::wheelFamily(family);
        const auto file = home.folder() / std::string(info.file);
        auto wheel = std::filesystem::exists(file) ? engine.open(file) : engine.create(file);
        std::string columns;
        for (int cell = 1; cell <= info.cells; ++cell)
            columns += (cell > 1 ? ",[fig" : "[fig") + std::to_string(cell) + "] integer";
        wheel->execute("CREATE TABLE [" + name + "](" + columns + ")");
        append(*wheel, name, rows);
    }

    static void append(sql::Database& database, const std::string& table, const Rows& rows) {
        for (const auto& row : rows) {
            sql::RowBlock block;
            for (std::size_t cell = 0; cell < row.size(); ++cell) {
                block.columns.push_back("fig" + std::to_string(cell + 1));
                block.values.emplace_back(&row[cell], 1);
            }
            database.appendRows(table, block);
        }
    }

    QWidget& form() { return *window(u"Form1"_s); }

    void choose(const std::vector<int>& reds, const std::vector<int>& blues = {}) {
        for (const int red : reds)
            press(form(), u"Command1(%1)"_s.arg(red));
        for (const int blue : blues)
            press(form(), u"Command2(%1)"_s.arg(blue));
    }
    void makeBankers(const std::vector<int>& reds) {
        for (const int red : reds) {
            program->pad.pointAtRed(red);
            program->pad.mnuDan();
        }
    }
    void clear() {
        press(form(), u"Command45"_s);
        press(form(), u"Command145"_s);
    }

    /// Opens menus as a user does on the way to an entry.
    void openMenus(const QStringList& menus) {
        for (const QString& name : menus) {
            auto* menu = form().findChild<QMenu*>(name);
            ASSERT_NE(menu, nullptr) << name.toStdString();
            emit menu->aboutToShow();
        }
    }
    QAction& entry(const QString& name) { return *action(form(), name); }

    /// Opens a filter window from the menu, does `acts` in it and closes it.
    void inWindow(const QString& command, const QString& opened, const std::function<void(QWidget&)>& acts = {}) {
        const ModalScript script({closes(opened, acts)});
        trigger(u"Form1"_s, command);
    }
    static ModalStep closes(const QString& opened, const std::function<void(QWidget&)>& acts = {}) {
        return {opened, [acts](QWidget& shown) {
                    if (acts)
                        acts(shown);
                    shown.close();
                }};
    }

    /// What the notice bar of a window says; empty while it is hidden.
    static QString noticeOf(QWidget& shown) {
        return control(shown, u"NoticeBar"_s)->isHidden() ? QString()
                                                          : controlAs<QLabel>(shown, u"NoticeText"_s)->text();
    }

    sql::Database& databaseOf(const filter::FilterMember& member) {
        return workspace::combinationFile(program->engine, program->workspace, member.file);
    }
    /// idx and numbers of the rows of a member's table.
    std::string bets(std::string_view name) {
        const filter::FilterMember& member = *filter::findMember(name);
        const sql::Rows rows = databaseOf(member).query("SELECT * FROM [" + std::string(member.table) + "]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            for (int column = 0; column <= member.numbers(); ++column)
                all += (column > 0 ? " " : "") + rows.textAt(row, column);
            all += '|';
        }
        return all;
    }
    std::int64_t rowCount(std::string_view name) {
        const filter::FilterMember& member = *filter::findMember(name);
        return databaseOf(member).rowCount(member.table);
    }
    void restart() {
        window(u"Form1"_s)->close();
        start();
        enter();
    }
};

TEST_F(BetsTest, EachEntryMakesTheTableOfItsWindow) {
    struct Case {
        QString entry;
        std::vector<int> bankers;
        std::vector<int> blues;
        QString form;
        int rows;
    };
    const std::vector<Case> cases{
        {u"mnuLst"_s, {}, {4, 2}, u"GAgan"_s, 56},          // C(8, 6) x 2
        {u"mnuLst"_s, {}, {}, u"GAganR"_s, 28},             //
        {u"mnuDtlst"_s, {20, 9}, {7}, u"Gdanagan"_s, 70},   // C(8, 4)
        {u"mnuDtlst"_s, {20, 9}, {}, u"GdanaganR"_s, 70},   //
        {u"mnu8Lst"_s, {}, {4, 2}, u"GAganf"_s, 8},         // C(8, 7): a row of seven reds has no blue
        {u"mnu8Lst"_s, {}, {}, u"GAganf"_s, 8},             //
        {u"mnuDt8lst"_s, {20, 9}, {7}, u"Gdanaganf"_s, 56}, // C(8, 5)
        {u"mnuDt8lst"_s, {20, 9}, {}, u"Gdanaganf"_s, 56},  //
        {u"mnuDtlst"_s, {20, 9, 11, 12, 13, 14}, {7, 1}, u"Gdanagan"_s, 0}, // six bankers: none, announced is 2
    };
    enterAs(u"张三"_s);
    for (const Case& each : cases) {
        SCOPED_TRACE((each.entry + u' ' + each.form).toStdString());
        clear();
        choose({8, 7, 6, 5, 4, 3, 2, 1}, each.blues);
        makeBankers(each.bankers);
        inWindow(each.entry, each.form, [&each](QWidget& shown) {
            const QString expected = each.form == u"Gdanaganf"_s ? u"胆拖组合情况排列总表（每页至多显示10000注）："_s
                                                                 : title(each.bankers.size() == 6 ? 2 : each.rows);
            EXPECT_EQ(shown.windowTitle().toStdString(), expected.toStdString());
            EXPECT_EQ(noticeOf(shown), QString());
        });
        EXPECT_EQ(rowCount(each.form.toStdString()), each.rows);
    }
}

TEST_F(BetsTest, TheEntriesAreOfferedByTheDragsAlone) {
    enterAs(u"张三"_s);
    choose({1, 2, 3, 4, 5, 6});
    makeBankers({20, 21, 22});
    openMenus({u"mnuSl"_s});
    for (const QString& name : {u"mnuLst"_s, u"mnuDtlst"_s, u"mnu8Lst"_s, u"mnuDt8lst"_s})
        EXPECT_FALSE(entry(name).isEnabled()) << name.toStdString();
    choose({7});
    EXPECT_TRUE(entry(u"mnuLst"_s).isEnabled());
    EXPECT_TRUE(entry(u"mnuDtlst"_s).isEnabled());
    EXPECT_FALSE(entry(u"mnu8Lst"_s).isEnabled());
    choose({8});
    EXPECT_TRUE(entry(u"mnuDt8lst"_s).isEnabled());
    EXPECT_EQ(entry(u"mnu8Lst"_s).text(), u"红球复选7复式排列（7红球排列）(&G)"_s);
}

TEST_F(BetsTest, TablesComeBackAtTheNextStartAsTheyWereFiltered) {
    struct Case {
        QString entry;
        std::string form;
    };
    const std::vector<Case> cases{{u"mnuCallfd"_s, "GAganMb"},      {u"mnuCallfdr"_s, "GAganRMb"},
                                  {u"mnuCallfdf"_s, "GAganfMb"},    {u"mnuCatxt"_s, "GAganRead"},
                                  {u"mnuCatxtR"_s, "GAganReadR"},   {u"mnuCallZhmb"_s, "GAganZhMb"},
                                  {u"mnuCallZhmbR"_s, "GAganZhMbR"}};
    enterAs(u"张三"_s);
    const Rows rows{{1, 2, 3, 4, 5, 6, 7}, {1, 2, 3, 4, 5, 6, 8}, {2, 3, 4, 5, 6, 7, 8}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.form);
        const filter::FilterMember& member = *filter::findMember(each.form);
        Rows fitting = rows;
        for (auto& row : fitting)
            row.resize(static_cast<std::size_t>(member.numbers()));
        append(databaseOf(member), std::string(member.table), fitting);
        databaseOf(member).execute("UPDATE [" + std::string(member.table) + "] SET [unslt]=true WHERE [fig1]=1");
        inWindow(each.entry, QString::fromStdString(each.form), [](QWidget& shown) {
            EXPECT_EQ(shown.windowTitle().toStdString(), title(1).toStdString());
            press(shown, u"Command2"_s); // inverts them all
            EXPECT_EQ(shown.windowTitle().toStdString(), title(2).toStdString());
        });
    }
    restart();
    for (const Case& each : cases) {
        SCOPED_TRACE(each.form);
        inWindow(each.entry, QString::fromStdString(each.form), [](QWidget& shown) {
            EXPECT_EQ(shown.windowTitle().toStdString(), title(2).toStdString());
            press(shown, u"Command2"_s); // what was filtered is there still
            EXPECT_EQ(shown.windowTitle().toStdString(), title(1).toStdString());
        });
        EXPECT_EQ(rowCount(each.form), 3);
    }
}

TEST_F(BetsTest, AWheelOfEachFamilyMakesItsBets) {
    putWheel(WheelFamily::Basic, "9", kThreeRows);
    putWheel(WheelFamily::Extended, "560955", {{4, 5, 6, 7, 8, 9}});
    putWheel(WheelFamily::Super, "0954", {{1, 2, 3, 7, 8, 9}});
    putWheel(WheelFamily::Banker, "261144", {{1, 2, 3, 4, 10, 11}});
    enterAs(u"张三"_s);
    const std::vector<int> reds{31, 3, 5, 8, 12, 17, 20, 22, 28};
    choose(reds, {4, 2});
    inWindow(u"meuRtxz(9)"_s, u"GAganRote"_s, [](QWidget& shown) {
        EXPECT_EQ(shown.windowTitle().toStdString(), title(6).toStdString());
        EXPECT_TRUE(noticeOf(shown).startsWith(u"基本矩阵，9个红球，中6保5："_s)) << noticeOf(shown).toStdString();
    });
    EXPECT_EQ(bets("GAganRote"), "1 3 5 8 12 17 20 4|1 3 5 8 12 17 20 2|2 3 5 8 22 28 31 4|2 3 5 8 22 28 31 2|"
                                 "3 12 17 20 22 28 31 4|3 12 17 20 22 28 31 2|");
    inWindow(u"mnuKjz0955"_s, u"GAganRote"_s,
             [](QWidget& shown) { EXPECT_TRUE(noticeOf(shown).startsWith(u"扩展矩阵，9个红球，中5保5："_s)); });
    EXPECT_EQ(bets("GAganRote"), "1 12 17 20 22 28 31 4|1 12 17 20 22 28 31 2|");
    clear();
    choose(reds);
    inWindow(u"mnuRt54"_s, u"GAganRoteR"_s,
             [](QWidget& shown) { EXPECT_TRUE(noticeOf(shown).startsWith(u"超级矩阵，9个红球，中5保4："_s)); });
    EXPECT_EQ(bets("GAganRoteR"), "1 3 5 8 22 28 31|");
    makeBankers({33, 1});
    inWindow(u"mnuZb(3)"_s, u"GAganRoteR"_s, [](QWidget& shown) {
        EXPECT_TRUE(noticeOf(shown).startsWith(u"胆拖矩阵，2胆9拖，中4保4：胆码全部开出"_s));
    });
    EXPECT_EQ(bets("GAganRoteR"), "1 1 3 5 8 12 33|") << "the bankers stand in their places";
}

TEST_F(BetsTest, BasicWheelsAreOfferedFromNineRedsToSixteen) {
    enterAs(u"张三"_s);
    std::vector<int> offered;
    for (int red = 1; red <= 18; ++red) {
        choose({red});
        openMenus({u"mnuSl"_s, u"mnuRt"_s});
        for (int reds = 8; reds <= 16; ++reds)
            if (entry(u"meuRtxz(%1)"_s.arg(reds)).isEnabled()) {
                EXPECT_EQ(reds, red);
                offered.push_back(reds);
            }
    }
    EXPECT_EQ(offered, (std::vector<int>{9, 10, 11, 12, 13, 14, 15, 16}));
}

TEST_F(BetsTest, AnExtendedMenuIsOfferedForItsCountOfRedsAlone) {
    for (const char* name : {"560876", "561744", "561844"})
        putWheel(WheelFamily::Extended, name, kThreeRows);
    enterAs(u"张三"_s);
    std::vector<int> offered;
    for (int red = 1; red <= 19; ++red) {
        choose({red});
        openMenus({u"mnuSl"_s, u"mnuExra"_s});
        for (int reds = 8; reds <= 18; ++reds)
            if (form().findChild<QMenu*>(u"mnukzjz(%1)"_s.arg(reds))->isEnabled()) {
                EXPECT_EQ(reds, red);
                offered.push_back(reds);
            }
    }
    EXPECT_EQ(offered, (std::vector<int>{8, 17, 18})) << "those of which there is a table";
}

TEST_F(BetsTest, EntriesOfTablesThatAreNotThereSaySo) {
    putWheel(WheelFamily::Super, "0954", kThreeRows);
    putWheel(WheelFamily::Banker, "261144", {{1, 2, 3, 4, 10, 11}});
    enterAs(u"张三"_s);
    choose({1, 2, 3, 4, 5, 6, 7, 8, 9}, {5, 6});
    openMenus({u"mnuSl"_s, u"mnuQnjz"_s});
    EXPECT_TRUE(entry(u"mnuRt54"_s).isEnabled());
    EXPECT_EQ(entry(u"mnuRt54"_s).text(), u"9选 中5保4共计6注(&F)"_s);
    for (const QString& name : {u"mnuRt64"_s, u"mnuRt74"_s, u"mnuRt55"_s, u"mnuRt65"_s, u"mnuRt75"_s, u"mnuRt76"_s}) {
        EXPECT_FALSE(entry(name).isEnabled()) << name.toStdString();
        EXPECT_EQ(entry(name).toolTip(), u"9 红没有这种矩阵"_s);
    }
    EXPECT_EQ(entry(u"mnuRt64"_s).text(), u"中6保4(&O)"_s) << "it keeps its name";
    EXPECT_FALSE(form().findChild<QMenu*>(u"mnuDtxj"_s)->isEnabled()) << "there is no banker";
    makeBankers({20, 21});
    openMenus({u"mnuSl"_s, u"mnuDtxj"_s});
    EXPECT_TRUE(entry(u"mnuZb(3)"_s).isEnabled());
    EXPECT_EQ(entry(u"mnuZb(3)"_s).text(), u"2胆9拖 中4保4共计2注(&U)"_s);
    EXPECT_FALSE(entry(u"mnuZb(4)"_s).isEnabled());
    EXPECT_EQ(entry(u"mnuZb(4)"_s).toolTip(), u"2胆9拖没有这种矩阵"_s);
}

TEST_F(BetsTest, ABasicWheelBehindABankerWheelIsReadByTheMapOfTheBankers) {
    putWheel(WheelFamily::Basic, "9", kThreeRows);
    putWheel(WheelFamily::Banker, "26644", {{1, 2, 3, 4, 5, 6}});
    putWheel(WheelFamily::Super, "0954", kThreeRows);
    enterAs(u"张三"_s);
    choose({5, 9, 11, 14});
    makeBankers({2, 30});
    inWindow(u"mnuZb(3)"_s, u"GAganRoteR"_s);
    EXPECT_EQ(bets("GAganRoteR"), "1 2 5 9 11 14 30|");
    clear();
    choose({21, 22, 23, 24, 25, 26, 27, 28, 29});
    inWindow(u"meuRtxz(9)"_s, u"GAganRoteR"_s,
             [](QWidget& shown) { EXPECT_EQ(noticeOf(shown), QString()) << "nothing is guaranteed"; });
    EXPECT_EQ(bets("GAganRoteR"), "1 2 5 9 11 14 30|2 0 0 0 5 9 11|3 0 0 0 2 14 30|");
    openMenus({u"mnuSl"_s, u"mnuQnjz"_s});
    inWindow(u"meuRtxz(9)"_s, u"GAganRoteR"_s, [](QWidget& shown) { EXPECT_NE(noticeOf(shown), QString()); });
    EXPECT_EQ(bets("GAganRoteR"), "1 21 22 23 24 25 26|2 21 22 23 27 28 29|3 24 25 26 27 28 29|");
}

TEST_F(BetsTest, AnEntryChosenWithoutItsMenuMakesTheSameBets) {
    putWheel(WheelFamily::Basic, "9", kThreeRows);
    putWheel(WheelFamily::Super, "0954", {{1, 2, 3, 7, 8, 9}});
    enterAs(u"张三"_s);
    choose({9, 8, 7, 6, 5, 4, 3, 2, 1});
    openMenus({u"mnuSl"_s, u"mnuQnjz"_s, u"mnuRt"_s}); // the basic wheels last
    {
        const ModalScript script({closes(u"GAganRoteR"_s)});
        entry(u"mnuRt54"_s).trigger();
    }
    EXPECT_EQ(bets("GAganRoteR"), "1 1 2 3 7 8 9|");
    const ModalScript script({closes(u"GAganRoteR"_s)});
    entry(u"meuRtxz(9)"_s).trigger();
    EXPECT_EQ(rowCount("GAganRoteR"), 3);
}

TEST_F(BetsTest, TheLastWheelIsCalledOnThePadAsItIsNow) {
    putWheel(WheelFamily::Super, "0954", kThreeRows);
    enterAs(u"张三"_s);
    choose({1, 2, 3, 4, 5, 6, 7, 8, 9}, {3});
    inWindow(u"mnuRt54"_s, u"GAganRote"_s);
    clear();
    choose({11, 12, 13, 14, 15, 16, 17, 18, 19, 20}, {8, 9});
    inWindow(u"mnuCallRoteR"_s, u"GAganRoteR"_s,
             [](QWidget& shown) { EXPECT_EQ(noticeOf(shown), QString()) << "the tenth red is in no row"; });
    EXPECT_EQ(bets("GAganRoteR"), "1 11 12 13 14 15 16|2 11 12 13 17 18 19|3 14 15 16 17 18 19|");
    inWindow(u"mnuCallRote"_s, u"GAganRote"_s);
    EXPECT_EQ(rowCount("GAganRote"), 6);
    openMenus({u"mnuSl"_s, u"mnuRt"_s}); // the basic wheel of ten reds, which there is not
    inWindow(u"mnuCallRote"_s, u"GAganRote"_s,
             [](QWidget& shown) { EXPECT_EQ(shown.windowTitle().toStdString(), title(0).toStdString()); });
    EXPECT_EQ(rowCount("GAganRote"), 0);
}

TEST_F(BetsTest, CompoundWheelsAreShownWithTheirPriceAndLeaveTheMarksAlone) {
    putWheel(WheelFamily::Seven, "0844",
             {{1, 2, 3, 4, 5, 6, 7},
              {1, 2, 3, 4, 5, 6, 8},
              {2, 3, 4, 5, 6, 7, 8},
              {1, 3, 4, 5, 6, 7, 8},
              {1, 2, 4, 5, 6, 7, 8},
              {1, 2, 3, 5, 6, 7, 8}});
    enterAs(u"张三"_s);
    choose({31, 3, 5, 8, 12, 17, 20, 22}, {4, 12});
    program->wheels.Wheeldan = true;
    const ModalScript script({{u"aganFRote"_s,
                               [](QWidget& shown) {
                                   EXPECT_EQ(controlAs<QLabel>(shown, u"Label6"_s)->text(), u"168圆"_s);
                                   EXPECT_TRUE(noticeOf(shown).startsWith(u"复7矩阵，8个红球，中4保4："_s));
                                   const auto* cells = controlAs<QTableView>(shown, u"MSFlexGrid1"_s)->model();
                                   EXPECT_EQ(cells->rowCount(), 2);
                                   EXPECT_EQ(cells->columnCount(), 6);
                                   EXPECT_EQ(cells->index(0, 0).data().toString(), u"1"_s);
                                   EXPECT_EQ(cells->index(0, 1).data().toString(), u" 03 05 08 12 17 20 22 04 12"_s);
                                   EXPECT_EQ(cells->index(1, 0).data().toString(), QString());
                                   EXPECT_EQ(controlAs<QTableView>(shown, u"MSFlexGrid1"_s)->currentIndex(),
                                             cells->index(0, 1));
                                   press(shown, u"cmdQut"_s);
                               }},
                              {u"aganFRoteR"_s, [](QWidget& shown) {
                                   EXPECT_EQ(controlAs<QLabel>(shown, u"Label6"_s)->text(), u"84圆"_s);
                                   press(shown, u"cmdQut"_s);
                               }}});
    openMenus({u"mnuSl"_s, u"mnuFuxj"_s});
    EXPECT_EQ(entry(u"mnuRtF44"_s).text(), u"2蓝球,红球8选 中4保4共计12注,合计 168 元(&F)"_s);
    EXPECT_FALSE(entry(u"mnuRtF76"_s).isEnabled());
    trigger(u"Form1"_s, u"mnuRtF44"_s);
    EXPECT_TRUE(program->wheels.Wheeldan);
    EXPECT_FALSE(program->wheels.Wheelopen);
    press(form(), u"Command145"_s);
    trigger(u"Form1"_s, u"mnuRtF44"_s);
    EXPECT_EQ(entry(u"mnuRtF44"_s).text(), u"红球8选 中4保4共计6注,合计 84 元(&F)"_s);
}

// ---- Bets of a text

class BetTextsTest : public BetsTest {
  protected:
    void SetUp() override { enterAs(u"张三"_s); }

    static ModalStep asksStart(const QString& answer) {
        return {u"InputBox"_s, [answer](QWidget& box) {
                    EXPECT_EQ(box.windowTitle(), u"读取设置"_s);
                    EXPECT_EQ(box.findChild<QLabel*>()->text(), kStartPrompt);
                    EXPECT_EQ(box.findChild<QLineEdit*>()->text(), u"1"_s);
                    type(answer)(box);
                }};
    }
    static ModalStep offersFile(const QString& path, QStringList& filters) {
        return {u"FileDialog"_s, [path, &filters](QWidget& dialog) {
                    filters << qobject_cast<QFileDialog*>(&dialog)->nameFilters().join(u'|');
                    path.isEmpty() ? cancel()(dialog) : test_support::chooseFile(path)(dialog);
                }};
    }
    static ModalStep shows(const QString& opened, std::string* notice) {
        return closes(opened, [notice](QWidget& shown) { *notice = noticeOf(shown).toStdString(); });
    }
    /// Reads a text from its first character; what the window says of it.
    std::string read(const QString& command, const QString& opened, const QByteArray& text,
                     const QString& place = u"1"_s) {
        std::string notice;
        QStringList filters;
        const ModalScript script(
            {offersFile(writeFile(u"组号.txt"_s, text), filters), asksStart(place), shows(opened, &notice)});
        trigger(u"Form1"_s, command);
        return notice;
    }
};

TEST_F(BetTextsTest, LinesBecomeBetsAndTheOthersAreTold) {
    EXPECT_EQ(
        read(u"mnuRdtxt"_s, u"GAganRead"_s,
             "33 02 01 04 05 06 16\n1 07,08,09,10,11,12,13,14\n01 02 03\n\n01020304050607\n05 05 05 05 05 05 99"),
        "读入 3 注，跳过 2 行（第3行：3个号码；第5行：1个号码）。");
    EXPECT_EQ(bets("GAganRead"), "1 33 2 1 4 5 6 16|2 7 8 9 10 11 12 13|3 5 5 5 5 5 5 99|");
}

TEST_F(BetTextsTest, ReadingStartsWhereTheUserSays) {
    EXPECT_EQ(read(u"mnuRdtxt"_s, u"GAganRead"_s, "001 01 02 03 04 05 06 07\n", u"5"_s), "读入 1 注。");
    EXPECT_EQ(bets("GAganRead"), "1 1 2 3 4 5 6 7|");
    EXPECT_EQ(read(u"mnuRdtxt"_s, u"GAganRead"_s, "001 01 02 03 04 05 06 07\n"), "读入 1 注。");
    EXPECT_EQ(bets("GAganRead"), "1 1 1 2 3 4 5 6|") << "the counter was read as a number";
}

TEST_F(BetTextsTest, ATextWithoutABetLeavesTheFormerTable) {
    read(u"mnuRdtxt"_s, u"GAganRead"_s, "01 02 03 04 05 06 07\n");
    EXPECT_EQ(read(u"mnuRdtxt"_s, u"GAganRead"_s, "01 02 03 04 05 06\n"),
              "读入 0 注：文本里没有一注，表中仍是上次读入的组号，跳过 1 行（第1行：6个号码）。");
    EXPECT_EQ(read(u"mnuRdtxt"_s, u"GAganRead"_s, ""), "读入 0 注：文本里没有一注，表中仍是上次读入的组号。");
    EXPECT_EQ(bets("GAganRead"), "1 1 2 3 4 5 6 7|");
}

TEST_F(BetTextsTest, TheFileDialogOffersTextsAloneFromTheSecondTimeOn) {
    const QString file = writeFile(u"组号.txt"_s, "01 02 03 04 05 06 07\n");
    QStringList filters;
    for (const QString& command : {u"mnuRdtxt"_s, u"mnuRdtxt"_s, u"mnuRdtxtR"_s}) {
        const ModalScript script({offersFile(file, filters), {u"InputBox"_s, cancel()}});
        trigger(u"Form1"_s, command);
    }
    ASSERT_EQ(filters.size(), 3);
    EXPECT_FALSE(filters[0].contains(u"Text(*.txt)"_s)) << filters[0].toStdString();
    EXPECT_EQ(filters[1], u"Text(*.txt)"_s);
    EXPECT_EQ(filters[2], u"Text(*.txt)"_s);
    EXPECT_EQ(rowCount("GAganRead"), 0) << "a cancelled question reads nothing";
}

TEST_F(BetTextsTest, TheStartIsAskedForAlsoWithoutAFile) {
    read(u"mnuRdtxt"_s, u"GAganRead"_s, "01 02 03 04 05 06 07\n");
    std::string notice;
    QStringList filters;
    const ModalScript script({offersFile({}, filters), asksStart(u"1"_s), shows(u"GAganRead"_s, &notice)});
    trigger(u"Form1"_s, u"mnuRdtxt"_s);
    EXPECT_EQ(notice, "没有选择文件：表中仍是上次读入的组号。");
    EXPECT_EQ(bets("GAganRead"), "1 1 2 3 4 5 6 7|");
}

TEST_F(BetTextsTest, AWordInPlaceOfANumberIsAskedAgainAndAnEmptyAnswerEndsTheCommand) {
    const QString file = writeFile(u"组号.txt"_s, "01 02 03 04 05 06 07\n");
    QStringList filters;
    const ModalStep wrong{u"MsgBox"_s, answer(u"请输入数字"_s, u"输入错误"_s, QMessageBox::Ok)};
    const ModalScript script({offersFile(file, filters), asksStart(u"一"_s), wrong, asksStart(u"0"_s), wrong,
                              asksStart(u"-3"_s), wrong, asksStart({})});
    trigger(u"Form1"_s, u"mnuRdtxt"_s);
    EXPECT_EQ(rowCount("GAganRead"), 0);
}

TEST_F(BetTextsTest, SixRedsAreReadIntoAnotherFileThanTheirWindowShows) {
    const Rows shown{{11, 12, 13, 14, 15, 16}};
    append(databaseOf(*filter::findMember("GAganReadR")), "zuheReadR", shown);
    EXPECT_EQ(read(u"mnuRdtxtR"_s, u"GAganReadR"_s, "01 02 03 04 05 06\n07 08 09 10 11\n"),
              "读入 1 注，跳过 1 行（第2行：5个号码）。文本组号已读入 filnum，窗口显示的是 filnumR 中的表。");
    EXPECT_EQ(bets("GAganReadR"), " 11 12 13 14 15 16|");
    EXPECT_EQ(read(u"mnuRdtxtR"_s, u"GAganReadR"_s, "\n"), "读入 0 注：文本里没有一注，表中仍是上次读入的组号。")
        << "nothing was read into filnum";
    sql::Engine other; // as any other program sees the file
    const auto written = other.open(home.folder() / "张三" / "filnum.mdb");
    const sql::Rows rows = written->query("SELECT [idx],[fig1],[fig6] FROM [zuheReadR]");
    ASSERT_EQ(rows.count(), 1) << "it is stored at once";
    EXPECT_EQ(rows.textAt(0, 0) + ' ' + rows.textAt(0, 1) + ' ' + rows.textAt(0, 2), "1 1 6");
}

TEST_F(BetTextsTest, AnEmptyWindowOfSixRedsOffersWhatWasReadIntoTheOtherFile) {
    const QString file = writeFile(u"组号.txt"_s, "01 02 03 04 05 06\n33 08 09 10 11 12\n");
    const QString command = u"mnuRdtxtR"_s;
    QStringList filters;
    const auto offers = [](QWidget& shown) {
        EXPECT_EQ(shown.windowTitle().toStdString(), title(0).toStdString()) << "it looks into filnumR";
        EXPECT_EQ(controlAs<toolkit::HeadLine>(shown, u"HeadLine"_s)->stepText(),
                  u"文本组号已读入 filnum，窗口显示的是 filnumR 中的表"_s);
        EXPECT_EQ(controlAs<QPushButton>(shown, u"cmdOffer"_s)->text(), u"显示读入的 2 注"_s);
    };
    {
        const ModalScript script({offersFile(file, filters), asksStart(u"1"_s), closes(u"GAganReadR"_s, offers)});
        trigger(u"Form1"_s, command);
    }
    EXPECT_EQ(rowCount("GAganReadR"), 0) << "an offer alone changes nothing";
    inWindow(u"mnuCatxtR"_s, u"GAganReadR"_s, [&](QWidget& shown) {
        offers(shown);
        press(shown, u"cmdOffer"_s);
        EXPECT_EQ(shown.windowTitle().toStdString(), title(2).toStdString());
        EXPECT_TRUE(control(shown, u"cmdOffer"_s)->isHidden());
        EXPECT_TRUE(control(shown, u"MSFlexGrid1"_s)->hasFocus());
        EXPECT_EQ(noticeOf(shown), u"窗口里现在是文本读入的 2 注；filnum 中的没有改变。"_s);
    });
    EXPECT_EQ(bets("GAganReadR"), "1 1 2 3 4 5 6|2 33 8 9 10 11 12|");
    EXPECT_EQ(program->workspace.dbFilnum->rowCount("zuheReadR"), 2);
    inWindow(u"mnuCatxtR"_s, u"GAganReadR"_s,
             [](QWidget& shown) { EXPECT_TRUE(control(shown, u"cmdOffer"_s)->isHidden()) << "they are there"; });
}

TEST_F(BetTextsTest, BetsThatAreThereGoForThoseReadOnlyAfterAQuestion) {
    const Rows there{{11, 12, 13, 14, 15, 16}};
    append(databaseOf(*filter::findMember("GAganReadR")), "zuheReadR", there);
    const QString file = writeFile(u"组号.txt"_s, "01 02 03 04 05 06\n33 08 09 10 11 12\n");
    QStringList filters;
    const auto asks = [](QMessageBox::StandardButton button) {
        return ModalStep{u"MsgBox"_s, answer(u"窗口里现有 1 注和它们的过滤状态将换成文本读入的 2 注。要继续吗？\n"
                                             u"要保留现有的，请先取消，在表上按右键“导出…”。"_s,
                                             u"显示读入的组号"_s, button)};
    };
    const ModalScript script({offersFile(file, filters), asksStart(u"1"_s),
                              closes(u"GAganReadR"_s,
                                     [this](QWidget& shown) {
                                         press(shown, u"cmdOffer"_s);
                                         EXPECT_EQ(bets("GAganReadR"), " 11 12 13 14 15 16|") << "Cancel";
                                         press(shown, u"cmdOffer"_s);
                                     }),
                              asks(QMessageBox::Cancel), asks(QMessageBox::Ok)});
    trigger(u"Form1"_s, u"mnuRdtxtR"_s);
    EXPECT_EQ(bets("GAganReadR"), "1 1 2 3 4 5 6|2 33 8 9 10 11 12|");
}

// ---- Size and failure

TEST(CostOfMaking, IsToldAboveTwoMillionBets) {
    EXPECT_EQ(mainwin::costOfMaking(0), QString());
    EXPECT_EQ(mainwin::costOfMaking(2'000'000), QString());
    EXPECT_EQ(mainwin::costOfMaking(2'000'001), u"2,000,001 注，约需内存 52 MB、时间 1 秒"_s);
    EXPECT_EQ(mainwin::costOfMaking(17'721'088), u"17,721,088 注，约需内存 460 MB、时间 1 秒"_s);
    EXPECT_EQ(mainwin::costOfMaking(49'692'258), u"49,692,258 注，约需内存 1291 MB、时间 3 秒"_s);
}

TEST_F(BetsTest, ACombinationFileThatDoesNotOpenIsToldAndEndsTheProgram) {
    enterAs(u"张三"_s);
    const auto file = home.folder() / "张三" / "filnumR.mdb";
    program->workspace.dbFilnumR.reset();
    std::filesystem::remove_all(file);
    std::filesystem::create_directory(file);
    choose({1, 2, 3, 4, 5, 6, 7});
    const QSignalSpy ended(program.get(), &mainwin::Program::ended);
    const ModalScript script(
        {{u"MsgBox"_s, answer(u"数据库读写错误,程序即将退出!"_s, u"数据库错误"_s, QMessageBox::Ok)}});
    trigger(u"Form1"_s, u"mnuLst"_s);
    EXPECT_EQ(ended.count(), 1);
}

// ---- The wheels that ship with the program

class ShippedWheels : public BetsTest {
  protected:
    static constexpr unsigned kSeed = 20030223;
    static constexpr int kDraws = 10'000;

    void SetUp() override {
        for (const auto& info : selection::wheelFamilies())
            std::filesystem::copy_file(std::filesystem::path(SSQ_WHEEL_DATABASES) / std::string(info.file),
                                       home.folder() / std::string(info.file));
        enterAs(u"张三"_s);
        numbers.resize(33);
        std::iota(numbers.begin(), numbers.end(), 1);
        std::shuffle(numbers.begin(), numbers.end(), random);
    }

    /// Chooses the first of the shuffled numbers: drags, then bankers.
    void chooseRandom(int drags, int bankers) {
        clear();
        choose({numbers.begin(), numbers.begin() + drags});
        makeBankers({numbers.begin() + drags, numbers.begin() + drags + bankers});
    }

    /// The bets that the window has made, a bit a red.
    std::vector<std::uint64_t> masks() {
        const sql::Rows rows = program->workspace.dbFilnumR->query("SELECT * FROM [zuheRoteR]");
        std::vector<std::uint64_t> all;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            std::uint64_t mask = 0;
            for (int red = 1; red <= 6; ++red)
                mask |= std::uint64_t{1} << rows.integerAt(row, red);
            EXPECT_EQ(std::popcount(mask), 6);
            all.push_back(mask);
        }
        return all;
    }

    /// The bets that a window of compound wheels shows, seven reds each.
    static std::vector<std::uint64_t> masksShown(QWidget& shown) {
        const auto* cells = controlAs<QTableView>(shown, u"MSFlexGrid1"_s)->model();
        std::vector<std::uint64_t> all;
        for (int row = 0; row < cells->rowCount(); ++row)
            for (int column = 1; column < cells->columnCount(); ++column) {
                std::uint64_t mask = 0;
                for (const QString& red : cells->index(row, column).data().toString().split(u' ', Qt::SkipEmptyParts))
                    mask |= std::uint64_t{1} << red.toInt();
                if (mask != 0) {
                    EXPECT_EQ(std::popcount(mask), 7);
                    all.push_back(mask);
                }
            }
        return all;
    }

    void expectGuarantee(int drags, int bankers, int hit, int common) {
        expectGuarantee(masks(), drags, bankers, hit, common);
    }
    /// Draws that hit `hit` of the chosen numbers, all bankers among them: each has a bet with `common` of them.
    void expectGuarantee(const std::vector<std::uint64_t>& made, int drags, int bankers, int hit, int common) {
        ASSERT_FALSE(made.empty());
        std::vector<int> hits(numbers.begin(), numbers.begin() + drags);
        for (int draw = 0; draw < kDraws; ++draw) {
            std::shuffle(hits.begin(), hits.end(), random);
            std::uint64_t drawn = 0;
            for (int banker = 0; banker < bankers; ++banker)
                drawn |= std::uint64_t{1} << numbers[static_cast<std::size_t>(drags + banker)];
            for (int place = 0; place < hit - bankers; ++place)
                drawn |= std::uint64_t{1} << hits[static_cast<std::size_t>(place)];
            int most = 0;
            for (const std::uint64_t bet : made)
                most = std::max(most, std::popcount(bet & drawn));
            ASSERT_GE(most, common) << "draw " << draw << " seed " << kSeed;
        }
    }

    std::mt19937 random{kSeed};
    std::vector<int> numbers;
};

TEST_F(ShippedWheels, KeepTheirWordInTheTableOfTheWindow) {
    chooseRandom(12, 0);
    inWindow(u"meuRtxz(12)"_s, u"GAganRoteR"_s);
    expectGuarantee(12, 0, 6, 5);
    inWindow(u"mnuKjz1255"_s, u"GAganRoteR"_s);
    expectGuarantee(12, 0, 5, 5);
    inWindow(u"mnuRt54"_s, u"GAganRoteR"_s);
    expectGuarantee(12, 0, 5, 4);
    chooseRandom(9, 2);
    inWindow(u"mnuZb(4)"_s, u"GAganRoteR"_s);
    expectGuarantee(9, 2, 5, 4);
}

TEST_F(ShippedWheels, OfSevenRedsKeepTheirWordInTheBetsThatAreShown) {
    struct Case {
        QString entry;
        int hit;
        int common;
    };
    chooseRandom(11, 0);
    for (const Case& each : {Case{u"mnuRtF54"_s, 5, 4}, Case{u"mnuRtF65"_s, 6, 5}, Case{u"mnuRtF66"_s, 6, 6}}) {
        std::vector<std::uint64_t> shown;
        inWindow(each.entry, u"aganFRoteR"_s, [&](QWidget& window) { shown = masksShown(window); });
        expectGuarantee(shown, 11, 0, each.hit, each.common);
    }
}

} // namespace
