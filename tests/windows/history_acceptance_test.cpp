// All real draws by every way in which draws come in, compared with a reading of them all at once.
#include "history/text_lines.h"
#include "same_history.h"
#include "windows/history_window_support.h"

namespace history_window_tests {
namespace {

constexpr int kTyped = 50;
constexpr int kDeleted = 3;

class RealHistory : public HistoryWindow {
  protected:
    QString numbers(const Draw& draw) {
        QString text;
        for (std::size_t place = 1; place < draw.size(); ++place)
            text += u"%1"_s.arg(draw[place], 2, 10, QChar(u'0'));
        return text;
    }
    std::vector<std::string> tables() {
        std::vector<std::string> all;
        for (const char* table : {"fig", "Ylqs", "YlqsB", "Gailv", "GailvB"})
            all.push_back(dump(*program->workspace.dbUser, table));
        return all;
    }
    std::string bareNumbers() { return dump(*program->workspace.dbFilnum, "fig"); }
};

TEST_F(RealHistory, ReadTypedDeletedAndAppendedIsWhatReadingAllAtOnceGives) {
    QFile real(QStringLiteral(SSQ_REAL_DATA "/draws.txt"));
    ASSERT_TRUE(real.open(QIODevice::ReadOnly));
    const QByteArray bytes = real.readAll();
    const std::vector<Draw> draws = history::parseDraws(history::decodeText(bytes)).draws;
    const int total = static_cast<int>(draws.size());
    ASSERT_EQ(total, 3358);
    enterAs(u"一次读入"_s);
    readText(bytes);
    const history::History whole = program->book.history();
    const std::vector<std::string> wholeTables = tables();
    const std::string wholeNumbers = bareNumbers();
    const QByteArray wholeText = defaultText();
    form().close();

    enterAs(u"逐期输入"_s);
    readText(history::drawsAsText(std::span(draws).first(static_cast<std::size_t>(total - kTyped))));
    enterAgain(); // so that the shares of the typed draws rest on those alone
    trigger(form(), u"mnuLsApp"_s);
    for (const Draw& draw : std::span(draws).last(kTyped))
        keys(numbers(draw));
    ASSERT_EQ(program->book.history().Lsnum, total);
    EXPECT_EQ(program->book.history().Lshm, whole.Lshm);
    EXPECT_TRUE(program->book.history().derived == whole.derived);
    EXPECT_EQ(program->book.history().Ylnow, whole.Ylnow);
    EXPECT_EQ(program->book.history().Glred, whole.Glred);
    EXPECT_EQ(program->book.history().Glcount, kTyped);
    EXPECT_DOUBLE_EQ(program->book.history().GailvBlue[1], whole.GlBlue[1] * 100.0 / kTyped);
    EXPECT_EQ(tables()[0], wholeTables[0]);
    EXPECT_EQ(tables()[1], wholeTables[1]);
    EXPECT_EQ(tables()[2], wholeTables[2]);
    EXPECT_EQ(defaultText(), wholeText);

    for (int draw = 0; draw < kDeleted; ++draw)
        press(form(), u"Command44"_s);
    EXPECT_EQ(program->book.history().Lsnum, total - kDeleted);
    readText(bytes, u"mnuRead"_s);
    expectSameHistory(program->book.history(), whole);
    EXPECT_EQ(program->book.history().Glcount, whole.Glcount);
    EXPECT_EQ(tables(), wholeTables);
    EXPECT_EQ(defaultText(), wholeText);
    EXPECT_EQ(grid().model()->rowCount(), total);
    EXPECT_EQ(cell(total - 1, 0), QString::number(total));
    // The bare numbers are only ever added to: the deleted draws stand there twice.
    std::size_t lastLines = wholeNumbers.size();
    for (int line = 0; line <= kDeleted; ++line)
        lastLines = wholeNumbers.rfind('\n', lastLines - 1);
    EXPECT_EQ(bareNumbers(), wholeNumbers + wholeNumbers.substr(lastLines + 1));
    enterAgain();
    expectSameHistory(program->book.history(), whole);
    EXPECT_EQ(program->book.history().Glcount, 0);
}

} // namespace
} // namespace history_window_tests
