// Bets, the filter window over them, and the settings of the main window.
#include <QAbstractItemModel>
#include <QFile>
#include <QTest>

#include "crash/say.h"
#include "crash/window_user.h"
#include "filter/catalogue.h"
#include "selection/stability.h"
#include "support/controls.h"
#include "toolkit/data_grid.h"

using namespace Qt::StringLiterals;
using test_support::controlAs;
using test_support::press;
using test_support::trigger;
using test_support::typeInto;

namespace crash {

namespace {

constexpr int kStoreWaitMs = 20000; // far beyond the moment that the window takes
constexpr int kFewestReds = 7;
constexpr int kMostRedsHere = 14;
constexpr int kManyBets = 40000;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::int64_t betsOf(int reds, int blues) {
    std::int64_t bets = 1;
    for (int red = 1; red <= 6; ++red)
        bets = bets * (reds - 6 + red) / red;
    return bets * blues;
}

} // namespace

void WindowUser::pressBalls() {
    for (int ball = below(5); ball >= 0; --ball)
        press(form(), u"Command1(%1)"_s.arg(below(m_program->workspace.Bitnum) + 1));
    press(form(), u"Command2(%1)"_s.arg(below(m_program->workspace.BitnumB) + 1));
}

void WindowUser::filterBets() {
    press(form(), u"Command45"_s);
    press(form(), u"Command145"_s);
    const int reds = kFewestReds + below(kMostRedsHere - kFewestReds + 1);
    const int blues = 1 + below(3);
    const int first = 1 + below(m_program->workspace.Bitnum - reds + 1);
    for (int red = first; red < first + reds; ++red)
        press(form(), u"Command1(%1)"_s.arg(red));
    for (int blue = 1; blue <= blues; ++blue)
        press(form(), u"Command2(%1)"_s.arg(blue));
    say("begin\tfilter window");
    fillAndFilter(u"mnuLst"_s, kToldTables[0], betsOf(reds, blues));
}

/// Now and then so many bets that the reading, or its store, can be hit in the middle.
void WindowUser::readBets() {
    const int bets = oneOf(3) ? kManyBets + below(kManyBets) : 1 + below(300);
    const QString name = u"bets%1.txt"_s.arg(++m_files);
    m_answers.file = QString::fromStdString((m_texts / name.toStdString()).string());
    QFile file(m_answers.file);
    if (!file.open(QIODevice::WriteOnly))
        giveUp("the text of bets cannot be written");
    QByteArray lines;
    for (int bet = 0; bet < bets; ++bet) {
        for (int number = 0; number < 7; ++number)
            lines += QByteArray::number(below(33) + 1).rightJustified(2, '0') + ' ';
        lines += '\n';
    }
    file.write(lines);
    file.close();
    m_answers.texts = {u"1"_s};
    say("begin\tread bets");
    fillAndFilter(u"mnuRdtxt"_s, kToldTables[1], bets);
    file.remove();
}

void WindowUser::fillAndFilter(const QString& entry, const ToldTable& table, std::int64_t bets) {
    sql::Database& dbFilnum = *m_program->workspace.dbFilnum;
    const std::string count = std::to_string(bets);
    m_shown = &table;
    say("maybe\t" + keyOf(table.key, user()) + '=' + count + '/' + count + "/*");
    m_answers.inFilterWindow = [this](QWidget& window) { pressInFilterWindow(window); };
    trigger(form(), entry);
    if (dbFilnum.storePending())
        giveUp("the filter window has closed and left something unstored");
    say("done");
    for (const auto& [key, text] : tablesOf(dbFilnum, user()))
        say("is\t" + key + '=' + text);
}

void WindowUser::pressInFilterWindow(QWidget& window) {
    tellTable();
    for (int action = below(12); action > 0; --action) {
        if (const int kind = below(10); kind < 4)
            pressParameter(window);
        else if (kind == 4)
            toggleRow(window);
        else if (kind == 5)
            addToTemplate(window);
        else
            press(window, QStringList{u"Command1"_s, u"cmdRetn"_s, u"Command2"_s, u"Command3"_s}[kind - 6]);
        tellTable();
        if (oneOf(4))
            waitUntilStored();
        else if (oneOf(2))
            QTest::qWait(below(60));
    }
}

void WindowUser::pressParameter(QWidget& window) {
    const auto catalogue = filter::sixAndBlueCatalogue();
    const auto& parameter = catalogue[static_cast<std::size_t>(below(static_cast<int>(catalogue.size())))];
    press(window, u"Option1(%1)"_s.arg(below(2)));
    const int low = below(8);
    typeInto(window, u"%1(%2)"_s.arg(text(parameter.boxes.name)).arg(parameter.boxes.low), QString::number(low));
    typeInto(window, u"%1(%2)"_s.arg(text(parameter.boxes.name)).arg(parameter.boxes.high),
             QString::number(low + below(30)));
    press(window, text(parameter.option));
}

void WindowUser::toggleRow(QWidget& window) {
    auto* grid = controlAs<toolkit::DataGrid>(window, u"MSFlexGrid1"_s);
    if (grid->model()->rowCount() > 0)
        test_support::doubleClickCell(*grid, 0, 1);
}

/// A question stands before the addition: the window stores meanwhile what was pressed before.
void WindowUser::addToTemplate(QWidget& window) {
    press(window, u"cmdAdmb"_s);
    const ToldTable& told = kToldTables[2];
    say("maybe\t" + keyOf(told.key, user()) + '=' + tableText(*m_program->workspace.dbFilnum, told.table));
}

void WindowUser::tellTable() {
    say("maybe\t" + keyOf(m_shown->key, user()) + '=' + tableText(*m_program->workspace.dbFilnum, m_shown->table));
}

void WindowUser::waitUntilStored() {
    sql::Database& dbFilnum = *m_program->workspace.dbFilnum;
    if (!QTest::qWaitFor([&] { return !dbFilnum.storePending(); }, kStoreWaitMs))
        giveUp("an idle filter window does not store");
    for (const auto& [key, text] : tablesOf(dbFilnum, user()))
        say("is\t" + key + '=' + text);
}

void WindowUser::changeRule() {
    int reds = m_program->workspace.Bitnum;
    int blues = m_program->workspace.BitnumB;
    const bool red = oneOf(2);
    (red ? reds : blues) = red ? 28 + below(11) : 12 + below(7);
    say("begin\trule\t" + keyOf("rule", user()) + '=' + std::to_string(reds) + '/' + std::to_string(blues));
    trigger(form(), red ? u"meuS(%1)"_s.arg(reds) : u"mnuBlue(%1)"_s.arg(blues));
    say("done");
}

void WindowUser::chooseStability() {
    const auto& item = selection::kStabilityItems[static_cast<std::size_t>(
        below(static_cast<int>(selection::kStabilityItems.size())))];
    say("begin\tstability\t" + keyOf("Wd", user()) + '=' + std::to_string(item.wd));
    trigger(form(), item.name.toString());
    say("done");
}

void WindowUser::askPrintRow() {
    const QString number = QString::number(1 + below(20));
    m_answers.texts = {number};
    say("begin\tprint row\t" + keyOf("dayin", user()) + '=' + number.toStdString());
    trigger(form(), u"mnuPtset"_s);
    say("done");
}

} // namespace crash
