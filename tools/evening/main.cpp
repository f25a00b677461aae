// An evening's work, played with real clicks on the real windows: a user makes a workspace, reads the history,
// chooses numbers, generates bets, presses parameters, looks at reasons, takes steps back, and sees what is left.
//
//   ssq-evening OUT DRAWS    pictures and the bets that are left go to the folder OUT; DRAWS is a history text file.
//                            Without it 2,000 draws are made up with a fixed seed, and the user is named so.
#include <algorithm>
#include <fstream>
#include <numeric>
#include <random>

#include <QApplication>
#include <QCryptographicHash>
#include <QDialog>
#include <QMenu>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "evening/stage.h"
#include "mainwin/windows/program.h"
#include "sql/value.h"
#include "support/controls.h"
#include "support/end_at_failure.h"
#include "support/first_steps.h"
#include "support/modal_script.h"
#include "toolkit/look.h"
#include "workspace/paths.h"

using namespace Qt::StringLiterals;
using evening::Stage;
using test_support::ModalScript;

namespace {

constexpr unsigned kSeed = 20030216;
constexpr int kMadeUpDraws = 2000;
constexpr int kDrawPatienceMs = 120'000; // it takes some seconds

/// A history that nobody drew: the same at every run.
void writeMadeUpDraws(const std::filesystem::path& file) {
    std::mt19937 random(kSeed);
    std::ofstream out(file);
    for (int draw = 0; draw < kMadeUpDraws; ++draw) {
        std::vector<int> reds(33);
        std::iota(reds.begin(), reds.end(), 1);
        for (int place = 0; place < 6; ++place) // by hand: std::shuffle differs between libraries
            std::swap(reds[static_cast<std::size_t>(place)],
                      reds[static_cast<std::size_t>(place) + random() % static_cast<unsigned>(33 - place)]);
        std::sort(reds.begin(), reds.begin() + 6);
        char line[64];
        std::snprintf(line, sizeof line, "%07d %02d %02d %02d %02d %02d %02d %02d\n", 2003001 + draw, reds[0],
                      reds[1], reds[2], reds[3], reds[4], reds[5], static_cast<int>(random() % 16) + 1);
        out << line;
    }
}

class Evening {
  public:
    Evening(Stage& stage, mainwin::Program& program, std::filesystem::path draws, bool madeUp)
        : m_stage(stage), m_program(program), m_draws(std::move(draws)), m_madeUp(madeUp) {}

    void play() {
        makeWorkspace();
        readHistory();
        chooseNumbers();
        generateAndFilter();
        saveSelection();
        drawNumbers();
        callSelection();
        applyWheel();
        writeBets();
        const QString sum = checksum();
        arrangeBankers();
        checkPrizes();
        m_stage.say(sum);
        test_support::window(u"Form1"_s)->close();
    }

  private:
    void makeWorkspace() {
        m_stage.show(u"users"_s, u"程序已启动，还没有用户"_s);
        const QString name = m_madeUp ? u"虚构历史[双色球]"_s : u"张先生[双色球33选6]"_s;
        test_support::createUser(name);
        m_stage.show(u"workspace"_s, u"新建用户 "_s + name);
        test_support::enter();
        m_stage.show(u"empty"_s, u"进入系统，历史为空"_s);
    }

    void readHistory() {
        const ModalScript script(
            {{u"MsgBox"_s, test_support::answer({})},
             {u"FileDialog"_s, test_support::chooseFile(QString::fromStdString(m_draws.string()))}});
        m_stage.click(u"Form1"_s, u"cmdRead"_s);
        m_stage.show(u"history"_s, u"读取历史 %1 期%2"_s.arg(m_program.book.history().Lsnum)
                                       .arg(m_madeUp ? u"（虚构，种子 %1）"_s.arg(kSeed) : QString()));
    }

    void chooseNumbers() {
        for (const int red : {1, 3, 5, 8, 10, 12, 15, 17, 19, 22, 24, 26, 28, 30, 32, 33})
            m_stage.click(u"Form1"_s, u"Command1(%1)"_s.arg(red));
        for (const int blue : {2, 7, 9, 12, 16})
            m_stage.click(u"Form1"_s, u"Command2(%1)"_s.arg(blue));
        m_stage.show(u"pad"_s, u"选号: "_s + m_program.pad.statusText());
    }

    void press(const QString& option, const QString& boxes, const QString& low, const QString& high,
               const QString& picture, const QString& what) {
        m_stage.type(u"GAgan"_s, boxes + u"(0)"_s, low);
        m_stage.type(u"GAgan"_s, boxes + u"(1)"_s, high);
        m_stage.click(u"GAgan"_s, option);
        m_stage.show(picture, u"%1 %2~%3: %4"_s.arg(what, low, high, left()));
    }

    QString left() const {
        const sql::Value count =
            m_program.workspace.dbFilnum->queryValue("SELECT Count(*) FROM [zuhe] WHERE [unslt] = false");
        return u"剩余 %1 注"_s.arg(sql::toInteger(count));
    }

    void filter() {
        m_stage.show(u"bets"_s, u"组合排列: "_s + left());
        press(u"Option23"_s, u"Text2"_s, u"85"_s, u"125"_s, u"sum"_s, u"各码数和"_s);
        press(u"Option4"_s, u"Text5"_s, u"2"_s, u"4"_s, u"even"_s, u"偶数个数"_s);
        press(u"Option24"_s, u"Text22"_s, u"6"_s, u"10"_s, u"ac"_s, u"复杂度AC值"_s);
        m_stage.click(u"GAgan"_s, u"Option1(1)"_s);
        press(u"Option6"_s, u"Text19"_s, u"15"_s, u"99"_s, u"gap"_s, u"最大差值(排除)"_s);
        m_stage.click(u"GAgan"_s, u"Option1(0)"_s);
        m_stage.click(u"GAgan"_s, u"Option36"_s);
        m_stage.type(u"GAgan"_s, u"Text10(3)"_s, u" 1 2 3 "_s);
        m_stage.click(u"GAgan"_s, u"Option11"_s);
        m_stage.show(u"list"_s, u"23~33区间，最值查询 1 2 3: "_s + left());
        m_stage.click(u"GAgan"_s, u"Option22"_s);
        m_stage.click(u"GAgan"_s, u"optZzuhe(1)"_s);
        m_stage.show(u"reasons"_s, u"所有组合(含被过滤)显示"_s);
        m_stage.click(u"GAgan"_s, u"cmdRetn"_s);
        m_stage.show(u"back"_s, u"上次过滤复位: "_s + left());
        m_stage.click(u"GAgan"_s, u"Command3"_s);
        m_stage.click(u"GAgan"_s, u"Command3"_s);
        m_stage.show(u"inverted"_s, u"上一步过滤反选两次: "_s + left());
        m_stage.doubleClickCell(u"GAgan"_s, u"MSFlexGrid1"_s, 1, 0);
        m_stage.show(u"deleted"_s, u"双击删除一注: "_s + left());
        test_support::window(u"GAgan"_s)->close();
    }

    void generateAndFilter() {
        const ModalScript script({{u"GAgan"_s, [this](QWidget&) { filter(); }}});
        m_stage.menu(u"Form1"_s, {u"mnuSl"_s, u"mnuLst"_s});
    }

    /// The bets in play, one a line, as a text file wants them.
    void writeBets() {
        const sql::Rows rows = m_program.workspace.dbFilnum->query(
            "SELECT [fig1],[fig2],[fig3],[fig4],[fig5],[fig6],[fig7] FROM [zuhe] WHERE [unslt] = false");
        std::ofstream out(m_stage.out() / "bets.txt");
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            char line[32];
            int length = 0;
            for (int place = 0; place < 7; ++place)
                length += std::snprintf(line + length, sizeof line - static_cast<std::size_t>(length),
                                        place == 6 ? "+%02d" : "%02d ", static_cast<int>(rows.integerAt(row, place)));
            out << line << '\n';
        }
        m_stage.say(u"bets.txt  剩余的 %1 注"_s.arg(rows.count()));
    }

    /// The same evening on the same draws ends in the same tables: one number to compare.
    QString checksum() {
        QCryptographicHash hash(QCryptographicHash::Sha256);
        const auto add = [&](sql::Database& database, const char* table) {
            const sql::Rows rows = database.query(std::string("SELECT * FROM [") + table + "]");
            for (std::int64_t row = 0; row < rows.count(); ++row)
                for (int column = 0; column < rows.columnCount(); ++column)
                    hash.addData(QByteArray::fromStdString(rows.textAt(row, column) + "|"));
        };
        for (const char* table : {"fig", "Ylqs", "YlqsB", "Gailv", "GailvB"})
            add(*m_program.workspace.dbUser, table);
        add(*m_program.workspace.dbFilnum, "fig");
        add(*m_program.workspace.dbFilnum, "zuhe");
        return u"所有表的校验和 "_s + QString::fromLatin1(hash.result().toHex().left(16));
    }

    /// A simulated draw among seven reds, by the smallest stability factor, until it stops by itself. It changes no
    /// table. Without a pause between its ticks: the evening waits for it.
    void drawNumbers() {
        QWidget& form = *test_support::window(u"Form1"_s);
        form.findChild<QTimer*>(u"Timer1"_s)->setInterval(0);
        m_stage.click(u"Form1"_s, u"Command45"_s);
        for (const int red : {3, 8, 12, 17, 22, 28, 33})
            m_stage.click(u"Form1"_s, u"Command1(%1)"_s.arg(red));
        m_stage.menu(u"Form1"_s, {u"meuCol"_s, u"meuSpd"_s, u"meuSpd1"_s});
        const ModalScript script({{u"MsgBox"_s, [this](QWidget& question) {
                                       m_stage.show(u"draw"_s, u"摇奖分析: 稳定系数 %1，预测已得出"_s.arg(
                                                                   m_program.simulator.stability.Wd));
                                       static_cast<QDialog&>(question).reject();
                                   }}});
        m_stage.click(u"Form1"_s, u"ComSta"_s);
        if (!QTest::qWaitFor([&script] { return script.left() == 0; }, kDrawPatienceMs))
            ADD_FAILURE() << "the draw does not stop";
    }

    void saveSelection() {
        const ModalScript script({{u"InputBox"_s, test_support::type(u"十六红五蓝"_s)}});
        m_stage.menu(u"Form1"_s, {u"mnuSelect"_s, u"mnuSave"_s});
    }

    void callSelection() {
        const ModalScript script({{u"frmnmFind"_s, [this](QWidget&) {
                                       m_stage.show(u"saved"_s, u"调用历史选号号码"_s);
                                       m_stage.doubleClickCell(u"frmnmFind"_s, u"MSFlexGrid1"_s, 0, 0);
                                   }}});
        m_stage.menu(u"Form1"_s, {u"mnuSelect"_s, u"mnuCall"_s});
        m_stage.show(u"called"_s, u"选号已调用: "_s + m_program.pad.statusText());
    }

    void applyWheel() {
        m_stage.click(u"Form1"_s, u"Command45"_s);
        for (const int red : {2, 6, 9, 11, 16, 20, 25, 27, 31})
            m_stage.click(u"Form1"_s, u"Command1(%1)"_s.arg(red));
        const ModalScript script({{u"GAganRote"_s, [this](QWidget& wheel) {
                                       m_stage.show(u"wheel"_s, u"旋转矩阵 9 红: "_s + wheel.windowTitle());
                                       wheel.close();
                                   }}});
        m_stage.menu(u"Form1"_s, {u"mnuSl"_s, u"mnuRt"_s, u"meuRtxz(9)"_s});
    }

    void arrangeBankers() {
        QWidget& form = *test_support::window(u"Form1"_s);
        m_stage.click(u"Form1"_s, u"Command45"_s);
        for (const int red : {1, 5, 10, 14, 25, 30, 31})
            m_stage.click(u"Form1"_s, u"Command1(%1)"_s.arg(red));
        for (const int red : {3, 20}) {
            test_support::rightPress(form, u"Command1(%1)"_s.arg(red));
            test_support::action(form, u"mnuDan"_s)->trigger();
            if (QWidget* menu = QApplication::activePopupWidget())
                menu->close();
        }
        const ModalScript script({{u"Gdanagan"_s, [this](QWidget& bankers) {
                                       m_stage.show(u"bankers"_s, u"胆拖组合: "_s + bankers.windowTitle());
                                       filterTogether(bankers);
                                       bankers.close();
                                   }}});
        m_stage.menu(u"Form1"_s, {u"mnuSl"_s, u"mnuDtlst"_s});
    }

    /// The pages of a filter window: the integrated filter, a super filter, and both as steps of a template.
    void filterTogether(QWidget& bankers) {
        const QString form = bankers.objectName();
        auto* pages = bankers.findChild<QTabBar*>(u"FilterPagesBar"_s);
        m_stage.type(form, u"Text2(0)"_s, u"70"_s);
        m_stage.type(form, u"Text2(1)"_s, u"105"_s);
        m_stage.type(form, u"Text5(0)"_s, u"2"_s);
        m_stage.type(form, u"Text5(1)"_s, u"4"_s);
        for (const QString& tick : {u"Check1(0)"_s, u"Check1(3)"_s, u"Option29"_s})
            m_stage.click(form, tick);
        m_stage.show(u"together"_s, u"多选参数整合过滤: "_s + left());
        record(bankers, u"Option29"_s);
        pages->setCurrentIndex(1);
        {
            const ModalScript answers = numbersToKeepApart();
            m_stage.click(form, u"Option25(0)"_s);
        }
        m_stage.show(u"super"_s, u"相克号过滤 5 30: "_s + left());
        {
            const ModalScript answers = numbersToKeepApart();
            record(bankers, u"Option25(0)"_s);
        }
        m_stage.click(form, u"Command1"_s);
        pages->setCurrentIndex(2);
        m_stage.click(form, u"Command9"_s);
        m_stage.show(u"template"_s, u"全部复位后过滤模板调用过滤: "_s + left());
    }

    static ModalScript numbersToKeepApart() {
        return ModalScript({{u"InputBox"_s, test_support::type(u"2"_s)},
                            {u"InputBox"_s, test_support::type(u"5"_s)},
                            {u"InputBox"_s, test_support::type(u"30"_s)}});
    }

    /// A right press, and the entry of the popup that it opens.
    static void record(QWidget& window, const QString& control) {
        QTimer popup;
        QObject::connect(&popup, &QTimer::timeout, [&popup] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu)
                return;
            popup.stop();
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().first()).center());
        });
        popup.start(50);
        test_support::rightPress(window, control);
    }

    /// What is left against the latest draw, and the report of profit and loss.
    void checkPrizes() {
        {
            const ModalScript script({{u"GAganDj"_s, [this](QWidget& prizes) {
                                           m_stage.show(u"prizes"_s, u"中奖查询: "_s + left());
                                           m_stage.click(prizes.objectName(), u"cmdQut"_s);
                                       }}});
            m_stage.menu(u"Form1"_s, {u"meuWid"_s, u"mnuzhInq"_s});
        }
        const ModalScript script({{u"frmYk"_s, [this](QWidget& reports) {
                                       m_stage.show(u"reports"_s, u"盈亏报告"_s);
                                       reports.close();
                                   }}});
        m_stage.menu(u"Form1"_s, {u"meuWid"_s, u"meuRepot"_s});
    }

    Stage& m_stage;
    mainwin::Program& m_program;
    std::filesystem::path m_draws;
    bool m_madeUp;
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    toolkit::applyLook(application);
    test_support::endAtFirstFailure(
        [](const std::string& what) { std::fprintf(stderr, "failed: %s\n", what.c_str()); });
    const test_support::UnexpectedDialogs guard;
    Stage stage(argc > 1 ? argv[1] : "out");
    const std::filesystem::path scratch = workspace::programFolder() / "evening.txt";
    const bool real = argc > 2 && std::filesystem::exists(argv[2]);
    if (real)
        std::filesystem::copy_file(argv[2], scratch, std::filesystem::copy_options::overwrite_existing);
    else
        writeMadeUpDraws(scratch);
    mainwin::Program program(workspace::programFolder());
    program.start();
    Evening(stage, program, scratch, !real).play();
    return 0;
}
