#include "output/sheet_export.h"

#include <gtest/gtest.h>

#include "output/zip.h"
#include "scratch_folder.h"
#include "scripted_dialogs.h"
#include "sheet_support.h"
#include "workspace/safe_file.h"

using namespace output;
using namespace output_test;

namespace {

class SheetExport : public testing::Test {
  protected:
    QString place(const char* name) const { return workspace::toQString(folder.path() / name); }

    ScratchFolder folder;
    MadeRows rows{1234, [](std::int64_t row, int) { return row; }};
    Sheet sheet{{{u"序数"_s}}, rows};
    QDateTime now{{2026, 11, 22}, {2, 10}};
};

TEST_F(SheetExport, TheEndingOfTheNameSaysWhatIsWritten) {
    for (const char* name : {"表.xlsx", "表.CSV", "表.txt", "表"}) {
        ScriptedDialogs dialogs({tells(u"已导出 1,234 行到“%1”。"_s.arg(place(name)))});
        EXPECT_TRUE(exportSheet(sheet, folder.path() / name, dialogs, now));
        EXPECT_EQ(dialogs.shown[0].title, u"导出"_s);
    }
    EXPECT_TRUE(ZipReader(folder.path() / "表.xlsx").next());
    EXPECT_TRUE(bytesOf(folder.path() / "表.CSV").starts_with("\xEF\xBB\xBF序数\r\n0\r\n"));
    EXPECT_TRUE(bytesOf(folder.path() / "表.txt").starts_with("序数\r\n0\r\n"));
    EXPECT_EQ(bytesOf(folder.path() / "表"), bytesOf(folder.path() / "表.txt"));
}

TEST_F(SheetExport, AFormerFileIsAskedAboutAndKept) {
    write(folder.path() / "表.csv", "former");
    {
        ScriptedDialogs dialogs({confirms(u"“表.csv”已经存在，是否替换？"_s, false)});
        EXPECT_FALSE(exportSheet(sheet, folder.path() / "表.csv", dialogs, now));
    }
    EXPECT_EQ(bytesOf(folder.path() / "表.csv"), "former");
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"表.csv"});
    const std::string kept[] = {"表 保存 2026-11-22 021000.csv", "表 保存 2026-11-22 021000 (2).csv"};
    for (const std::string& name : kept) {
        ScriptedDialogs dialogs({confirms(u"“表.csv”已经存在，是否替换？"_s),
                                 tells(u"已导出 1,234 行到“%1”。原来的文件现在叫“%2”。"_s.arg(
                                     place("表.csv"), QString::fromStdString(name)))});
        EXPECT_TRUE(exportSheet(sheet, folder.path() / "表.csv", dialogs, now));
    }
    EXPECT_EQ(bytesOf(folder.path() / kept[0]), "former");
    EXPECT_EQ(bytesOf(folder.path() / kept[1]), bytesOf(folder.path() / "表.csv"));
}

TEST_F(SheetExport, AFailureLeavesTheFormerFileUnderItsNameAlone) {
    for (const char* name : {"表.csv", "表.xlsx", "表.txt"}) {
        write(folder.path() / name, "former");
        ScriptedDialogs dialogs({confirms({}), warns({})});
        const FileLimit full(2000);
        EXPECT_FALSE(exportSheet(sheet, folder.path() / name, dialogs, now));
        EXPECT_TRUE(dialogs.shown[1].text.startsWith(u"没有导出到“%1”："_s.arg(place(name))));
        EXPECT_FALSE(dialogs.shown[1].details.isEmpty());
        EXPECT_EQ(bytesOf(folder.path() / name), "former");
    }
    EXPECT_EQ(namesIn(folder.path()), (std::set<std::string>{"表.csv", "表.txt", "表.xlsx"}));
}

TEST_F(SheetExport, ATableWithoutColumnsIsToldBeforeAFileIsTouched) {
    for (const char* name : {"表.csv", "表.xlsx", "表.txt"}) {
        write(folder.path() / name, "former");
        ScriptedDialogs dialogs({tells(u"表格的列都隐藏了，没有可以导出的内容。请先显示要导出的列。"_s)});
        EXPECT_FALSE(exportSheet({{}, rows}, folder.path() / name, dialogs, now));
        EXPECT_EQ(dialogs.shown[0].title, u"导出"_s);
        EXPECT_EQ(bytesOf(folder.path() / name), "former");
    }
    EXPECT_EQ(namesIn(folder.path()), (std::set<std::string>{"表.csv", "表.txt", "表.xlsx"}));
}

TEST_F(SheetExport, WhatIsGivenUpIsNotTold) {
    Silent givesUp(0);
    EXPECT_FALSE(exportSheet(sheet, folder.path() / "表.csv", givesUp, now));
    EXPECT_TRUE(namesIn(folder.path()).empty());
}

TEST_F(SheetExport, AFolderThatIsMissingIsToldInWords) {
    ScriptedDialogs dialogs({warns({})});
    EXPECT_FALSE(exportSheet(sheet, folder.path() / "none" / "表.xlsx", dialogs, now));
    EXPECT_TRUE(dialogs.shown[0].text.endsWith(u"请排除原因后重试，或换一个文件夹。"_s));
}

} // namespace
