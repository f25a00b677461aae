// Bets, the filter window over them, and the settings of the main window.
#include <QAbstractItemModel>
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
    const std::string bets = std::to_string(betsOf(reds, blues));
    say("maybe\t" + keyOf("table", user()) + '=' + bets + '/' + bets + "/*");
    m_answers.inFilterWindow = [this](QWidget& window) { pressInFilterWindow(window); };
    trigger(form(), u"mnuLst"_s);
    if (m_program->workspace.dbFilnum->storePending())
        giveUp("the filter window has closed and left something unstored");
    say("done");
    say("is\t" + keyOf("table", user()) + '=' + tableText(*m_program->workspace.dbFilnum));
}

void WindowUser::pressInFilterWindow(QWidget& window) {
    tellTable();
    for (int action = below(12); action > 0; --action) {
        if (const int kind = below(9); kind < 4)
            pressParameter(window);
        else if (kind == 4)
            toggleRow(window);
        else
            press(window, QStringList{u"Command1"_s, u"cmdRetn"_s, u"Command2"_s, u"Command3"_s}[kind - 5]);
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

void WindowUser::tellTable() {
    say("maybe\t" + keyOf("table", user()) + '=' + tableText(*m_program->workspace.dbFilnum));
}

void WindowUser::waitUntilStored() {
    sql::Database& dbFilnum = *m_program->workspace.dbFilnum;
    if (!QTest::qWaitFor([&] { return !dbFilnum.storePending(); }, kStoreWaitMs))
        giveUp("an idle filter window does not store");
    say("is\t" + keyOf("table", user()) + '=' + tableText(dbFilnum));
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
