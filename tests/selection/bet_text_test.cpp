#include "selection/bet_text.h"

#include <fstream>
#include <random>

#include <QStringList>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "workspace/failure.h"
#include "workspace/templates.h"

using namespace Qt::StringLiterals;
using selection::BetTextReader;

namespace {

using Bets = std::vector<std::vector<std::int32_t>>;

Bets betsIn(const QString& text, int numbers = 7, int start = 1) {
    Bets bets;
    BetTextReader reader(numbers, start,
                         [&bets](std::span<const std::int32_t> bet) { bets.emplace_back(bet.begin(), bet.end()); });
    reader.take(text);
    reader.finish();
    return bets;
}

const std::vector<std::int32_t> kBet{1, 2, 3, 14, 25, 33, 16};

TEST(BetText, ReadsTwoDigitNumbersWithAnythingBetweenThem) {
    for (const QString& line : {u"01 02 03 14 25 33 16"_s, u"01,02,03,14,25,33,16"_s, u"01-02-03-14-25-33+16"_s,
                                u"红01蓝02;03/14.25\t33  16 尾"_s, u"1 01 02 03 14 25 33 16"_s,
                                u"01 02 03 14 25 33 16 11 12"_s, u"5 01 7 02 03 14 25 9 33 16"_s})
        EXPECT_EQ(betsIn(line), Bets{kBet}) << line.toStdString();
}

TEST(BetText, OfARunOfDigitsTheLastTwoCount) {
    EXPECT_EQ(betsIn(u"0102031425"_s), Bets{}) << "one number";
    EXPECT_EQ(betsIn(u"1230102 03 14 25 33 16 08"_s), (Bets{{2, 3, 14, 25, 33, 16, 8}}));
}

TEST(BetText, ACounterInsideTheReadPartIsANumber) {
    const QString line = u"123 01 02 03 14 25 33 16"_s;
    EXPECT_EQ(betsIn(line), (Bets{{23, 1, 2, 3, 14, 25, 33}}));
    EXPECT_EQ(betsIn(line, 7, 4), Bets{kBet});
    EXPECT_EQ(betsIn(line, 7, 5), Bets{kBet});
    EXPECT_EQ(betsIn(line, 7, 3), Bets{kBet}) << "a lone digit is left of the counter";
    EXPECT_EQ(betsIn(line, 7, 6), Bets{}) << "1 02 …: only six";
}

TEST(BetText, NothingIsCheckedOrSorted) {
    EXPECT_EQ(betsIn(u"99 99 00 07 06 05 04"_s), (Bets{{99, 99, 0, 7, 6, 5, 4}}));
}

TEST(BetText, ALineWithFewerNumbersIsPassedOverAndListed) {
    int bets = 0;
    BetTextReader reader(6, 1, [&bets](auto) { ++bets; });
    reader.take(u"01 02 03 04 05 06\n\n  \n标题\r\n01 02 03\r07 08 09 10 11 12"_s);
    reader.finish();
    EXPECT_EQ(bets, 2);
    EXPECT_EQ(reader.bets(), 2);
    EXPECT_EQ(reader.passed(), 2) << "blank lines are nobody's";
    ASSERT_EQ(reader.passedLines().size(), 2U);
    EXPECT_EQ(reader.passedLines()[0].line, 4);
    EXPECT_EQ(reader.passedLines()[0].numbers, 0);
    EXPECT_EQ(reader.passedLines()[1].line, 5);
    EXPECT_EQ(reader.passedLines()[1].numbers, 3);
}

TEST(BetText, OfManyPassedLinesTheFirstThousandAreListed) {
    BetTextReader reader(6, 1, [](auto) {});
    for (int line = 0; line < 5000; ++line)
        reader.take(u"x\n"_s);
    reader.finish();
    EXPECT_EQ(reader.passed(), 5000);
    EXPECT_EQ(reader.passedLines().size(), BetTextReader::kMostListed);
}

/// The rule as its users are told it, character by character on a whole line.
std::vector<std::int32_t> plainly(const QString& line, int numbers, int start) {
    const auto digit = [&](qsizetype place) {
        return place < line.size() && line[place] >= u'0' && line[place] <= u'9';
    };
    std::vector<std::int32_t> found;
    for (qsizetype place = start - 1; place < line.size() && static_cast<int>(found.size()) < numbers; ++place)
        if (digit(place) && digit(place + 1) && !digit(place + 2))
            found.push_back(line.mid(place, 2).toInt());
    if (static_cast<int>(found.size()) < numbers)
        found.clear();
    return found;
}

TEST(BetText, ReadsAsThePlainRuleDoesHoweverItIsCutIntoPieces) {
    std::mt19937 random(20251122);
    const QString letters = u"0123456789 ,0123456789x期\r\n"_s;
    for (int round = 0; round < 3000; ++round) {
        QString text;
        for (int length = static_cast<int>(random() % 200); length > 0; --length)
            text += letters[static_cast<qsizetype>(random() % static_cast<std::size_t>(letters.size()))];
        const int numbers = random() % 2 ? 6 : 7;
        const int start = 1 + static_cast<int>(random() % 5);
        Bets wanted;
        QString lines = text;
        lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
        for (const QString& line : lines.split(u'\n'))
            if (const auto bet = plainly(line, numbers, start); !bet.empty())
                wanted.push_back(bet);
        Bets bets;
        BetTextReader reader(numbers, start, [&](auto bet) { bets.emplace_back(bet.begin(), bet.end()); });
        for (qsizetype at = 0; at < text.size();) {
            const qsizetype length = 1 + static_cast<qsizetype>(random() % 40);
            reader.take(QStringView(text).mid(at, length));
            at += length;
        }
        reader.finish();
        ASSERT_EQ(bets, wanted) << round << ' ' << text.toStdString();
    }
}

class ReadingBets : public testing::Test {
  protected:
    std::filesystem::path write(const std::string& bytes) {
        const auto file = folder.path() / "bets.txt";
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
    selection::BetTextResult read(const std::string& bytes, workspace::Progress* progress = nullptr) {
        return selection::readBets(*database, {"zuheRead", 7}, write(bytes), 1, progress);
    }
    std::string rows() {
        std::string all;
        const sql::Rows rows = database->query("SELECT idx,fig1,fig2,fig3,fig4,fig5,fig6,fig7 FROM [zuheRead]");
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            for (int column = 0; column < 8; ++column)
                all += rows.textAt(row, column) + ' ';
            all += '|';
        }
        return all;
    }

    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> database = engine.create(folder.path() / "filnum.mdb");
};

const std::string kOne = "01 02 03 04 05 06 07\n";
const std::string kTwo = "33 32 31 30 29 28 16\n";

TEST_F(ReadingBets, RowsStandInTheOrderOfTheFile) {
    const auto result = read(kTwo + "no bet\n" + kOne);
    EXPECT_EQ(rows(), "1 33 32 31 30 29 28 16 |2 1 2 3 4 5 6 7 |");
    EXPECT_EQ(result.bets, 2);
    EXPECT_EQ(result.passed, 1);
    EXPECT_EQ(database->columnNames("zuheRead").size(), 18U) << "the columns of zuhe";
}

TEST_F(ReadingBets, TheTextMayStandInAnyOfItsEncodings) {
    const QString text = u"第1注：01 02 03 04 05 06 07\r\n"_s;
    const QByteArray utf8 = text.toUtf8();
    const QByteArray marked = "\xEF\xBB\xBF" + utf8;
    const QByteArray chinese("\xB5\xDA\x31\xD7\xA2 01 02 03 04 05 06 07\r\n");
    QByteArray wide("\xFF\xFE");
    wide.append(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    for (const QByteArray& bytes : {utf8, marked, chinese, wide}) {
        sql::passOver(*database, "DROP TABLE [zuheRead]");
        read(bytes.toStdString());
        EXPECT_EQ(rows(), "1 1 2 3 4 5 6 7 |");
    }
}

TEST_F(ReadingBets, ATextWithoutABetLeavesTheFormerTable) {
    read(kOne);
    for (const std::string& text : {std::string(), std::string("nothing here\n"), std::string(300, '\0')}) {
        EXPECT_EQ(read(text).bets, 0);
        EXPECT_EQ(rows(), "1 1 2 3 4 5 6 7 |");
    }
}

TEST_F(ReadingBets, AFileThatCannotBeReadLeavesTheFormerTable) {
    read(kOne);
    EXPECT_THROW(selection::readBets(*database, {"zuheRead", 7}, folder.path() / "none.txt", 1, nullptr),
                 workspace::Failure);
    EXPECT_THROW(selection::readBets(*database, {"zuheRead", 7}, folder.path(), 1, nullptr), workspace::Failure);
    EXPECT_EQ(rows(), "1 1 2 3 4 5 6 7 |");
}

struct GivesUpAfter final : workspace::Progress {
    explicit GivesUpAfter(int calls) : left(calls) {}
    bool advance(double share) override {
        EXPECT_GE(share, 0);
        EXPECT_LE(share, 1);
        return --left > 0;
    }
    int left;
};

struct CountsCalls final : workspace::Progress {
    bool advance(double) override { return ++calls > 0; }
    int calls = 0;
};

TEST_F(ReadingBets, GivenUpItLeavesTheFormerTable) {
    std::string many;
    for (int line = 0; line < 100'000; ++line)
        many += kTwo;
    CountsCalls patient;
    EXPECT_EQ(read(many, &patient).bets, 100'000);
    ASSERT_GT(patient.calls, 5);
    read(kOne);
    database->execute("UPDATE [zuheRead] SET [unslt] = true");
    std::mt19937 random(20261122);
    for (int turn = 0; turn < 12; ++turn) {
        GivesUpAfter progress(1 + static_cast<int>(random() % static_cast<unsigned>(patient.calls)));
        EXPECT_TRUE(read(many, &progress).cancelled);
        EXPECT_EQ(rows(), "1 1 2 3 4 5 6 7 |");
        EXPECT_EQ(database->query("SELECT idx FROM [zuheRead] WHERE [unslt] = true").count(), 1);
    }
}

TEST_F(ReadingBets, NoBytesHarmIt) {
    std::mt19937 random(7);
    for (int round = 0; round < 1000; ++round) {
        std::string bytes;
        for (std::size_t length = random() % 2000; length > 0; --length)
            bytes += static_cast<char>(round % 2 ? random() % 256 : "0123456789 \r\n\0\xFF"[random() % 15]);
        const auto result = read(bytes);
        if (result.bets > 0) {
            ASSERT_EQ(database->rowCount("zuheRead"), result.bets);
        }
    }
}

TEST_F(ReadingBets, ALineOfManyMegabytesIsOneLine) {
    const std::string line(60'000'000, '7');
    EXPECT_EQ(read(line).bets, 0);
    EXPECT_EQ(read(line + " 01 02 03 04 05 06").bets, 1);
    EXPECT_EQ(rows(), "1 77 1 2 3 4 5 6 |");
}

} // namespace
