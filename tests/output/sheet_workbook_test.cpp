#include "output/sheet_workbook.h"

#include <cmath>
#include <exception>

#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include "output/zip.h"
#include "scratch_folder.h"
#include "sheet_support.h"
#include "workspace/failure.h"

using namespace output;
using namespace output_test;

namespace {

QByteArray entryOf(const std::filesystem::path& file, const std::string& name) {
    ZipReader zip(file);
    while (zip.next())
        if (zip.name() == name)
            return QByteArray::fromStdString(zip.read());
    return {};
}

/// Texts that cells name by their place.
std::vector<std::string> sharedTexts(const std::filesystem::path& file) {
    QXmlStreamReader xml(entryOf(file, "xl/sharedStrings.xml"));
    std::vector<std::string> texts;
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"t")
            texts.push_back(xml.readElementText().toStdString());
    return texts;
}

/// The cells of a page by their names, "B3" -> "04"; a text in quotation marks.
std::map<std::string, std::string> cellsOf(const std::filesystem::path& file, int page) {
    QXmlStreamReader xml(entryOf(file, "xl/worksheets/sheet" + std::to_string(page) + ".xml"));
    std::map<std::string, std::string> cells;
    std::string name;
    QString type;
    const std::vector<std::string> shared = sharedTexts(file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"c") {
            name = xml.attributes().value(u"r"_s).toString().toStdString();
            type = xml.attributes().value(u"t"_s).toString();
        } else if (xml.name() == u"v" || xml.name() == u"t") {
            const std::string text = xml.readElementText().toStdString();
            cells[name] = type.isEmpty() ? text : '"' + (type == u"s" ? shared.at(std::stoul(text)) : text) + '"';
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return cells;
}

class SheetWorkbook : public testing::Test {
  protected:
    static SheetCell cellAt(std::int64_t row, int column) {
        switch (column) {
        case 0:
            return row + 1;
        case 1:
            return row == 1 ? SheetCell() : SheetCell(std::int64_t{4});
        case 2:
            return 2.5;
        default:
            return u"<缘故> & \"一\" 07"_s;
        }
    }
    static std::vector<SheetColumn> columns() {
        return {{u"序数"_s, CellKind::Number, 12},
                {u"红1"_s, CellKind::Red, 0, CellAlign::Centre, 2},
                {u"蓝"_s, CellKind::Blue},
                {u"过滤缘故"_s, CellKind::Text, 60, CellAlign::Left}};
    }

    ScratchFolder folder;
    std::filesystem::path file = folder.path() / "表.xlsx";
    Silent dialogs;
};

TEST_F(SheetWorkbook, HoldsTypedCellsBelowTitleAndHeading) {
    const MadeRows rows(3, cellAt);
    EXPECT_EQ(writeWorkbook({columns(), rows, u"双色球"_s}, file, dialogs), Written::Whole);
    const std::map<std::string, std::string> told{{"A1", "\"双色球\""},
                                                  {"A2", "\"序数\""},
                                                  {"B2", "\"红1\""},
                                                  {"C2", "\"蓝\""},
                                                  {"D2", "\"过滤缘故\""},
                                                  {"A3", "1"},
                                                  {"B3", "4"},
                                                  {"C3", "2.5"},
                                                  {"D3", "\"<缘故> & \"一\" 07\""},
                                                  {"A4", "2"},
                                                  {"C4", "2.5"},
                                                  {"D4", "\"<缘故> & \"一\" 07\""},
                                                  {"A5", "3"},
                                                  {"B5", "4"},
                                                  {"C5", "2.5"},
                                                  {"D5", "\"<缘故> & \"一\" 07\""}};
    EXPECT_EQ(cellsOf(file, 1), told);
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"表.xlsx"});
}

TEST_F(SheetWorkbook, TheHeadingIsBoldAndFrozenAndNumbersHaveTheirColours) {
    const MadeRows rows(3, cellAt);
    writeWorkbook({columns(), rows}, file, dialogs);
    const QByteArray page = entryOf(file, "xl/worksheets/sheet1.xml");
    EXPECT_TRUE(page.contains("<pane ySplit=\"1\" topLeftCell=\"A2\" activePane=\"bottomLeft\" state=\"frozen\"/>"));
    EXPECT_TRUE(page.contains("<col min=\"4\" max=\"4\" width=\"60.7")) << page.left(900).toStdString();
    const QByteArray styles = entryOf(file, "xl/styles.xml");
    for (const QByteArray told : {"<b/>", "FFCB222C", "FF1F5FD0", "formatCode=\"00\"", "horizontal=\"left\""})
        EXPECT_TRUE(styles.contains(told)) << told.toStdString();
}

TEST_F(SheetWorkbook, RowsBeyondAPageGoOnInTheNextUnderTheSameHeading) {
    constexpr std::int64_t kRows = 10; // of a page
    for (const std::int64_t count : {0, 9, 10, 18, 19, 27}) {
        const MadeRows rows(count, [](std::int64_t row, int) { return row; });
        writeWorkbook({{{u"序数"_s}}, rows}, file, dialogs, kRows);
        std::int64_t next = 0;
        for (int page = 1; page == 1 || next < count; ++page) {
            std::map<std::string, std::string> cells = cellsOf(file, page);
            ASSERT_EQ(cells["A1"], "\"序数\"") << count << ' ' << page;
            for (std::int64_t row = 2; row <= kRows && next < count; ++row, ++next)
                EXPECT_EQ(cells["A" + std::to_string(row)], std::to_string(next)) << count << ' ' << page;
            EXPECT_EQ(cells.count("A" + std::to_string(kRows + 1)), 0U);
        }
        const std::int64_t pages = std::max<std::int64_t>(1, (count + kRows - 2) / (kRows - 1));
        EXPECT_TRUE(cellsOf(file, static_cast<int>(pages)).contains("A1"));
        EXPECT_TRUE(entryOf(file, "xl/worksheets/sheet" + std::to_string(pages + 1) + ".xml").isEmpty()) << count;
    }
}

TEST_F(SheetWorkbook, TellsItsRangeAndPassesOverWhatNoWorkbookCanHold) {
    const MadeRows rows(12, [](std::int64_t row, int column) -> SheetCell {
        return column == 0 ? SheetCell(row % 2 == 0 ? std::nan("") : -0.5) : SheetCell(u"一\u0001二\n三"_s);
    });
    writeWorkbook({{{u"值"_s}, {u"文"_s}}, rows}, file, dialogs);
    EXPECT_TRUE(entryOf(file, "xl/worksheets/sheet1.xml").contains("<dimension ref=\"A1:B13\"/>"));
    std::map<std::string, std::string> cells = cellsOf(file, 1);
    EXPECT_FALSE(cells.contains("A2"));
    EXPECT_EQ(cells["A3"], "-0.5");
    EXPECT_EQ(cells["B2"], "\"一二\n三\"");
    const MadeRows tooLong(1, [](std::int64_t, int) { return SheetCell(QString(32'768, u'长')); });
    EXPECT_THROW(writeWorkbook({{{u"文"_s}}, tooLong}, file, dialogs), workspace::Failure);
}

TEST_F(SheetWorkbook, WhatIsGivenUpLeavesTheFormerFileAndNoOpenFile) {
    const MadeRows rows(3 * kReportRows, cellAt);
    write(file, "former");
    const auto open = [] { return namesIn("/proc/self/fd").size(); };
    const std::size_t before = open();
    for (const int reports : {0, 1, 3}) {
        Silent givesUp(reports);
        EXPECT_EQ(writeWorkbook({columns(), rows}, file, givesUp), Written::GivenUp) << reports;
        EXPECT_EQ(open(), before);
    }
    EXPECT_EQ(bytesOf(file), "former");
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"表.xlsx"});
}

TEST_F(SheetWorkbook, AFolderThatTakesNoFileIsKnownBeforeTheFirstRow) {
    const MadeRows rows(1, [](std::int64_t, int) -> SheetCell { throw std::logic_error("a row was asked for"); });
    EXPECT_THROW(writeWorkbook({columns(), rows}, folder.path() / "none" / "a.xlsx", dialogs), std::system_error);
}

// At each length another write is the first to fail: of the skeleton's pages, of its file, of the packed rows.
TEST_F(SheetWorkbook, WhereverTheDiskIsFullTheFormerFileStaysOrTheNewOneIsWhole) {
    const MadeRows rows(200, cellAt);
    std::map<bool, int> ends;
    for (rlim_t bytes = 500; bytes < 60'000; bytes += 211) {
        write(file, "former");
        bool failed = false;
        try {
            const FileLimit full(bytes);
            writeWorkbook({columns(), rows}, file, dialogs);
        } catch (const std::exception& failure) {
            EXPECT_FALSE(workspace::causeOf(failure).isEmpty());
            failed = true;
        }
        ++ends[failed];
        EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"表.xlsx"}) << bytes;
        if (failed)
            EXPECT_EQ(bytesOf(file), "former") << bytes;
        else
            ASSERT_EQ(cellsOf(file, 1).size(), 4U + 4 * 200 - 1) << bytes;
    }
    EXPECT_GT(ends[true], 10);
    EXPECT_GT(ends[false], 10);
}

// Only few rows: then parts that no row reaches, as the colours of the theme, are longer than the whole file.
TEST_F(SheetWorkbook, NoPartOfAWorkbookIsCutOffByAFullDisk) {
    const MadeRows rows(1, cellAt);
    std::map<bool, int> ends;
    for (rlim_t bytes = 3000; bytes < 9000; bytes += 97) {
        try {
            const FileLimit full(bytes);
            writeWorkbook({columns(), rows}, file, dialogs);
        } catch (const std::exception&) {
            ++ends[false];
            continue;
        }
        ++ends[true];
        ZipReader zip(file);
        while (zip.next()) {
            QXmlStreamReader xml(QByteArray::fromStdString(zip.read()));
            while (!xml.atEnd())
                xml.readNext();
            EXPECT_FALSE(xml.hasError()) << zip.name() << ' ' << bytes;
        }
    }
    EXPECT_GT(ends[false], 5);
    EXPECT_GT(ends[true], 5);
}

TEST_F(SheetWorkbook, APageOfMoreThanTheUsualLengthIsWrittenAllTheSame) {
    constexpr std::size_t kVersionPlace = 4; // in the header of an entry, which the file begins with
    const MadeRows rows(200, cellAt);
    writeWorkbook({columns(), rows, u"双色球"_s}, file, dialogs);
    const std::map<std::string, std::string> usual = cellsOf(file, 1);
    EXPECT_EQ(bytesOf(file)[kVersionPlace], 20);
    writeWorkbook({columns(), rows, u"双色球"_s}, file, dialogs, kPageRows, 10'000);
    EXPECT_EQ(cellsOf(file, 1), usual);
    EXPECT_EQ(bytesOf(file)[kVersionPlace], 45); // of zip64
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"表.xlsx"});
}

TEST_F(SheetWorkbook, ADamagedWorkbookIsSeen) {
    const MadeRows rows(200, cellAt);
    writeWorkbook({columns(), rows}, file, dialogs);
    const auto readAll = [this] {
        ZipReader zip(file);
        while (zip.next())
            zip.read();
    };
    readAll();
    const std::string whole = bytesOf(file);
    for (const std::size_t missing : {std::size_t{6}, std::size_t{22}, std::size_t{100}, whole.size() / 2}) {
        write(file, whole.substr(0, whole.size() - missing));
        EXPECT_THROW(readAll(), workspace::Failure) << missing;
    }
    std::string changed = whole;
    changed[whole.find("sheet1.xml") + 200] ^= 1;
    write(file, changed);
    EXPECT_THROW(readAll(), workspace::Failure);
}

} // namespace
