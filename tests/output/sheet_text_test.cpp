#include "output/sheet_text.h"

#include <system_error>

#include <gtest/gtest.h>

#include "output/sheet_csv.h"
#include "output/sheet_html.h"
#include "scratch_folder.h"
#include "sheet_support.h"

using namespace output;
using namespace output_test;

namespace {

/// 序数 | 红1 in two digits | 均值 | 缘故: three rows with what is odd in texts.
class SheetText : public testing::Test {
  protected:
    static SheetCell cellAtFirst(std::int64_t row, int) { return row; }

    static SheetCell cellAt(std::int64_t row, int column) {
        switch (column) {
        case 0:
            return row + 1;
        case 1:
            return std::int64_t{4} + row * 9;
        case 2:
            return row == 1 ? SheetCell() : SheetCell(0.1 * static_cast<double>(row + 1));
        default:
            return (QStringList{u"和值, 85~125"_s, u"\"保留\"\r\n一行\t二"_s, u"=1+1"_s})[row];
        }
    }

    ScratchFolder folder;
    MadeRows rows{3, cellAt};
    Sheet sheet{{{u"序数"_s}, {u"红1"_s, CellKind::Red, 0, CellAlign::Centre, 2}, {u"均值"_s}, {u"缘故,注"_s}},
                rows,
                u"双色球"_s,
                {u"第 1 行"_s}};
};

TEST_F(SheetText, ATabOrALineEndWithinACellBecomesABlank) {
    EXPECT_EQ(sheetText(sheet, {}, nullptr), u"双色球\n第 1 行\n序数\t红1\t均值\t缘故,注\n"
                                             "1\t04\t0.1\t和值, 85~125\n"
                                             "2\t13\t\t\"保留\"  一行 二\n"
                                             "3\t22\t0.30000000000000004\t=1+1"_s);
}

TEST_F(SheetText, WithoutHeadingsNothingStandsAboveTheRows) {
    const std::optional<QString> text = sheetText(sheet, {.headings = false, .end = LineEnd::CrLf}, nullptr);
    EXPECT_TRUE(text->startsWith(u"1\t04\t0.1\t和值, 85~125\r\n2\t"_s)) << text->toStdString();
    EXPECT_TRUE(text->endsWith(u"=1+1"_s));
}

TEST_F(SheetText, ANumberKeepsItsSignAndItsZeros) {
    const auto read = [](const SheetCell& cell, int digits) {
        QString text;
        appendCell(text, cell, digits);
        return text;
    };
    EXPECT_EQ(read(std::int64_t{7}, 2), u"07"_s);
    EXPECT_EQ(read(std::int64_t{-7}, 2), u"-07"_s);
    EXPECT_EQ(read(std::int64_t{107}, 2), u"107"_s);
    EXPECT_EQ(read(std::numeric_limits<std::int64_t>::min(), 1), u"-9223372036854775808"_s);
    EXPECT_EQ(read(2.5, 2), u"2.5"_s);
    EXPECT_EQ(read({}, 2), QString());
}

TEST_F(SheetText, ACsvIsQuotedWhereItHasToBeAndKeepsFormulas) {
    Silent dialogs;
    EXPECT_EQ(writeCsv(sheet, folder.path() / "a.csv", dialogs), Written::Whole);
    EXPECT_EQ(bytesOf(folder.path() / "a.csv"), "\xEF\xBB\xBF双色球\r\n第 1 行\r\n序数,红1,均值,\"缘故,注\"\r\n"
                                                "1,04,0.1,\"和值, 85~125\"\r\n"
                                                "2,13,,\"\"\"保留\"\"\r\n一行\t二\"\r\n"
                                                "3,22,0.30000000000000004,=1+1\r\n");
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"a.csv"});
}

TEST_F(SheetText, ATextFileHasTheLineEndsThatWereAskedFor) {
    Silent dialogs;
    for (const bool windows : {true, false}) {
        writeText(sheet, folder.path() / "a.txt", dialogs, windows ? LineEnd::CrLf : LineEnd::Lf);
        const std::string bytes = bytesOf(folder.path() / "a.txt");
        EXPECT_EQ(bytes.find('\r') != std::string::npos, windows);
        EXPECT_EQ(bytes.back(), '\n');
        EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 6);
    }
}

TEST_F(SheetText, AnHtmlTableEscapesItsCells) {
    const MadeRows one(1, [](std::int64_t, int) { return SheetCell(u"<b>"_s); });
    EXPECT_EQ(sheetHtml({{{u"a&b"_s}}, one}, true),
              u"<table><tr><th>a&amp;b</th></tr><tr><td>&lt;b&gt;</td></tr></table>"_s);
    EXPECT_EQ(sheetHtml({{{u"a&b"_s}}, one}, false), u"<table><tr><td>&lt;b&gt;</td></tr></table>"_s);
}

TEST_F(SheetText, WhatIsGivenUpLeavesTheFormerFile) {
    const MadeRows many(3 * kReportRows, cellAtFirst);
    write(folder.path() / "a.csv", "former");
    Silent givesUp(2);
    EXPECT_EQ(writeCsv({{{u"序数"_s}}, many}, folder.path() / "a.csv", givesUp), Written::GivenUp);
    EXPECT_EQ(bytesOf(folder.path() / "a.csv"), "former");
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"a.csv"});
}

TEST_F(SheetText, AFullDiskLeavesTheFormerFile) {
    const MadeRows many(50000, cellAtFirst);
    write(folder.path() / "a.csv", "former");
    Silent dialogs;
    {
        const FileLimit full(100'000);
        EXPECT_THROW(writeCsv({{{u"序数"_s}}, many}, folder.path() / "a.csv", dialogs), std::system_error);
    }
    EXPECT_EQ(bytesOf(folder.path() / "a.csv"), "former");
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"a.csv"});
}

TEST_F(SheetText, AFolderThatIsMissingIsTold) {
    Silent dialogs;
    EXPECT_THROW(writeText(sheet, folder.path() / "none" / "a.txt", dialogs), std::system_error);
}

TEST_F(SheetText, AFileOfTheUserBesideItIsNotTouched) {
    write(folder.path() / "a.csv.new", "mine");
    Silent dialogs;
    writeCsv(sheet, folder.path() / "a.csv", dialogs);
    EXPECT_EQ(bytesOf(folder.path() / "a.csv.new"), "mine");
    EXPECT_EQ(namesIn(folder.path()), (std::set<std::string>{"a.csv", "a.csv.new"}));
}

} // namespace
