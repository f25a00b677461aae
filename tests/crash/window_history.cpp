// Typing, deleting, correcting, clearing and reading draws in the main window.
#include <algorithm>
#include <fstream>
#include <numeric>

#include <QFile>
#include <QLineEdit>
#include <QTest>

#include "crash/say.h"
#include "crash/window_user.h"
#include "history/default_text.h"
#include "history/text_file.h"
#include "history/text_lines.h"
#include "support/controls.h"
#include "toolkit/data_grid.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;
using test_support::controlAs;
using test_support::press;
using test_support::trigger;

namespace crash {

namespace {

constexpr std::size_t kBlue = 7;
constexpr int kCorrectableRows = 15;
constexpr std::int32_t kFirstIssue = 2000001; // seven digits, so that a text carries it

QString twoDigits(std::int32_t number) {
    return u"%1"_s.arg(number, 2, 10, QChar(u'0'));
}

} // namespace

WindowUser::Draws WindowUser::draws() const {
    const auto held = history::drawsOf(m_program->book.history());
    return {held.begin(), held.end()};
}

history::Draw WindowUser::randomDraw(std::int32_t issue) {
    std::vector<std::int32_t> reds(static_cast<std::size_t>(m_program->workspace.Bitnum));
    std::iota(reds.begin(), reds.end(), 1);
    std::shuffle(reds.begin(), reds.end(), m_random);
    std::sort(reds.begin(), reds.begin() + 6);
    history::Draw draw{issue};
    std::copy_n(reds.begin(), 6, draw.begin() + 1);
    draw[kBlue] = below(m_program->workspace.BitnumB) + 1;
    return draw;
}

/// Does it, and compares what the program then holds with what was foretold. The text file follows the tables.
void WindowUser::changeHistory(const char* step, const Draws& expected, std::int64_t blueOmissions, auto act) {
    const std::string draws = keyOf("draws", user());
    const std::string text = keyOf("text", user());
    const std::string wanted = drawsText(expected, blueOmissions);
    say(std::string("begin\t") + step + '\t' + draws + '=' + wanted + '\t' + text + "=*");
    act();
    m_blueOmissions = m_program->workspace.dbUser->rowCount("YlqsB");
    if (const std::string now = drawsText(this->draws(), m_blueOmissions); now != wanted)
        giveUp(std::string(step) + " gives " + now + " in place of " + wanted);
    say("done");
    say("is\t" + text + '=' + textFileText(m_program->workspace));
}

void WindowUser::keys(const QString& text) {
    for (const QChar digit : text)
        QTest::keyClick(form().focusWidget(), digit.toLatin1());
}

void WindowUser::typeDraw() {
    Draws expected = draws();
    history::Draw draw = randomDraw(expected.empty() ? 1 : expected.back()[0] + 1);
    expected.push_back(draw);
    std::shuffle(draw.begin() + 1, draw.begin() + kBlue, m_random); // the program sorts them
    changeHistory("typed draw", expected, m_blueOmissions + 1, [&] {
        trigger(form(), u"mnuLsApp"_s);
        for (std::size_t box = 1; box <= kBlue; ++box)
            keys(twoDigits(draw[box]));
    });
}

void WindowUser::deleteLast() {
    Draws expected = draws();
    if (expected.empty())
        return;
    expected.pop_back();
    changeHistory("delete last", expected, m_blueOmissions - 1, [&] {
        if (oneOf(2))
            press(form(), u"Command44"_s);
        else
            trigger(form(), u"mnuDelast"_s);
    });
}

void WindowUser::correctNumber() {
    Draws expected = draws();
    if (expected.empty())
        return;
    const int count = static_cast<int>(expected.size());
    const int row = count - 1 - below(std::min(count, kCorrectableRows));
    const auto slot = static_cast<std::size_t>(below(8));
    history::Draw& draw = expected[static_cast<std::size_t>(row)];
    const bool red = slot > 0 && slot < kBlue;
    const int above = red && slot > 1 ? draw[slot - 1] : 0;
    const int to = slot == kBlue ? m_program->workspace.BitnumB
                   : slot == 6   ? m_program->workspace.Bitnum
                                 : std::min(draw[slot + 1] - 1, m_program->workspace.Bitnum);
    if (slot > 0 && to <= above)
        return; // numbers of a wider rule leave no room
    draw[slot] = slot == 0 ? draw[0] + below(40) : above + 1 + below(to - above);
    for (int later = row + 1; slot == 0 && later < count; ++later)
        expected[static_cast<std::size_t>(later)][0] = draw[0] + later - row;
    changeHistory("correction", expected, m_blueOmissions, [&, number = QString::number(draw[slot])] {
        auto* grid = controlAs<toolkit::DataGrid>(form(), u"MSFlexGrid1"_s);
        const QModelIndex cell = grid->model()->index(row, static_cast<int>(slot) + 1);
        grid->scrollTo(cell);
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(cell).center());
        keys(number.left(1)); // opens the box over the cell
        controlAs<QLineEdit>(form(), u"Text1"_s)->selectAll();
        keys(number);
        QTest::keyClick(form().focusWidget(), Qt::Key_Return);
    });
}

void WindowUser::clearHistory() {
    m_answers.agree = oneOf(2);
    changeHistory("clear", m_answers.agree ? Draws() : draws(), m_blueOmissions,
                  [&] { trigger(form(), u"meuCln"_s); });
}

/// The text is put in the place of the default file, which the user has moved away before.
void WindowUser::readText(const QString& entry, const Draws& lines) {
    const std::string number = std::to_string(++m_files);
    const std::filesystem::path file = m_texts / ("期" + number + ".txt");
    const QByteArray bytes = history::drawsAsText(lines);
    std::ofstream(file, std::ios::binary).write(bytes.data(), bytes.size());
    std::error_code ignored; // there may be none
    std::filesystem::rename(history::historyTextFile(m_program->workspace), m_texts / (number + " old.txt"), ignored);
    m_answers.file = workspace::toQString(file);
    trigger(form(), entry);
}

void WindowUser::readWhole() {
    Draws lines;
    const std::int32_t first = kFirstIssue + below(1000) * 1000;
    for (int draw = 0, count = 5 + below(200); draw < count; ++draw)
        lines.push_back(randomDraw(first + draw));
    changeHistory("whole reading", lines, static_cast<std::int64_t>(lines.size()),
                  [&] { readText(u"mnuRed"_s, lines); });
}

void WindowUser::readAppended() {
    Draws expected = draws();
    Draws lines(expected.end() - std::min<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(expected.size()), below(4)),
                expected.end());
    if (!lines.empty() && lines.front()[0] < kFirstIssue)
        lines.clear(); // typed into an empty history: its issues are too short for a text
    const std::int32_t last = expected.empty() ? 0 : expected.back()[0];
    const int count = 1 + below(60);
    for (int draw = 1; draw <= count; ++draw) {
        lines.push_back(randomDraw(std::max(last, kFirstIssue) + draw));
        expected.push_back(lines.back());
    }
    changeHistory("appended reading", expected, m_blueOmissions + count, [&] { readText(u"mnuRead"_s, lines); });
}

} // namespace crash
