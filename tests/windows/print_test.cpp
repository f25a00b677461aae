// Printing by real clicks: bets of every filter window, the window frmPrint, and grids as pages.
#include <numeric>

#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QFontDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QProcess>
#include <QStandardItemModel>
#include <QStandardPaths>
#include <QTest>
#include <QTextBrowser>

#include "output/sheet.h"
#include "output/sheet_support.h"
#include "output/zip.h"
#include "support/modal_script.h"
#include "toolkit/document_file.h"
#include "toolkit/print_window.h"
#include "toolkit/sheet_pages.h"
#include "toolkit/text_pages.h"
#include "windows/filter_window_support.h"
#include "windows/program_fixture.h"

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

QByteArray bytesOf(const QString& file) {
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
}

/// The pages of a PDF file as text; nothing where pdftotext is missing.
std::optional<QStringList> pagesOf(const QString& file) {
    const QString reader = QStandardPaths::findExecutable(u"pdftotext"_s);
    if (reader.isEmpty())
        return {};
    QProcess process;
    process.start(reader, {u"-layout"_s, file, u"-"_s});
    process.waitForFinished();
    QStringList pages = QString::fromUtf8(process.readAllStandardOutput()).split(u'\f');
    pages.removeLast();
    return pages;
}

/// What stands in a document, as XML.
QString contentOf(const QString& document) {
    output::ZipReader packed(document.toStdString());
    while (packed.next())
        if (packed.name() == "content.xml")
            return QString::fromStdString(packed.read());
    return {};
}

} // namespace

namespace filter {
namespace {

const QString kNoWordProcessor = u"没有可以打开文档的程序，请安装一个文字处理软件。"_s;

/// A window of any member that prints into a folder; no program of the desktop shows a text.
class PrintBets : public FilterWindowFixture {
  protected:
    void open(const FilterMember& member, int perLine = 5) {
        std::filesystem::create_directory(m_folder);
        FilterContext context{*m_database, m_history, 33, m_Baoliu};
        context.printing = {m_folder, perLine, [this](const QString& file) {
                                m_opened << file;
                                return m_viewer;
                            }};
        m_window.reset();
        m_window = std::make_unique<FilterWindow>(member, context);
        selection::GenerationInput input;
        for (int red = 1; red <= 8; ++red)
            input.chosen.reds.push_back(red);
        if (member.blue)
            input.chosen.blues = {9};
        input.Genreds = 8;
        selection::Enumeration source(input);
        FilterWindowFixture::load(source);
        m_window->show();
    }

    QString place(const QString& name) const {
        return QString::fromStdString((m_folder / "x").parent_path().string()) + u'/' + name;
    }
    QStringList lines() const { return QString::fromUtf8(bytesOf(place(u"Print.txt"_s))).split(u"\r\n"_s); }
    void print() { press(*m_window, u"CmdPrint"_s); }

    std::filesystem::path m_folder = m_home.folder() / "张三";
    bool m_viewer = true; ///< whether a text viewer starts
    QStringList m_opened;
};

TEST_F(PrintBets, EveryMemberPrints) {
    int documents = 0;
    for (const FilterMember& member : kFilterMembers) {
        SCOPED_TRACE(member.form);
        open(member);
        std::filesystem::remove(m_folder / "Print.txt");
        const bool wheel = member.table.starts_with("zuheRote");
        ModalScript script(wheel ? std::vector<ModalStep>{{u"MsgBox"_s, answer(kNoWordProcessor)}}
                                 : std::vector<ModalStep>{});
        print();
        if (wheel) {
            ++documents;
            const QString first =
                member.blue ? u"&lt;01&gt;01 02 03 04 05 06 09"_s : u"&lt;01&gt;01 02 03 04 05 06"_s;
            const QString content = contentOf(place(u"Print.odt"_s));
            EXPECT_TRUE(content.contains(first));
            EXPECT_LT(content.indexOf(u"打印时间:"_s), content.indexOf(u"购买期数:2026001"_s));
            EXPECT_EQ(content.count(u" <text:s/>"_s), 28) << "two blanks behind each bet";
            EXPECT_FALSE(std::filesystem::exists(m_folder / "Print.txt"));
            continue;
        }
        ASSERT_EQ(m_opened.size(), 1);
        EXPECT_EQ(m_opened.takeFirst(), place(u"Print.txt"_s));
        EXPECT_EQ(lines().at(0), u"购买期数:2026001"_s);
        const QString first = member.reds == 7 ? u"01 02 03 04 05 06 07"_s
                              : member.blue    ? u"01 02 03 04 05 06 09"_s
                                               : u"01 02 03 04 05 06"_s;
        EXPECT_TRUE(lines().at(1).startsWith(first + u"01 02 03"_s)) << lines().at(1).toStdString();
        EXPECT_EQ(lines().size(), member.reds == 7 ? 5 : 9) << "28 bets, or 8";
    }
    EXPECT_EQ(documents, 4);
}

TEST_F(PrintBets, WhatTheWindowOpenedLastIsPrinted) {
    open(*findMember("GAganR"), 1);
    typeInto(*m_window, u"Text18(0)"_s, u"1"_s);
    typeInto(*m_window, u"Text18(1)"_s, u"1"_s);
    press(*m_window, u"Option19"_s);
    print();
    EXPECT_EQ(lines().size(), 21 + 3) << "the rows in play: bets of 1..8 with the 5";
    press(*m_window, u"optZzuhe(1)"_s);
    print();
    EXPECT_EQ(lines().size(), 28 + 3) << "all rows after the view with the reasons";
    doubleClickCell(grid(), 0, 0);
    print();
    EXPECT_EQ(lines().size(), 20 + 3) << "a double click opens the rows in play to count them";
}

TEST_F(PrintBets, WithoutAViewerThePrintWindowComes) {
    m_viewer = false;
    open(kFilterMembers[0]);
    ModalScript script({{u"frmPrint"_s, [this](QWidget& window) {
                             EXPECT_EQ(controlAs<QPlainTextEdit>(window, u"RichTextBox1"_s)->toPlainText(),
                                       lines().join(u'\n'));
                             press(window, u"Command2"_s);
                         }}});
    print();
}

TEST_F(PrintBets, WithNoBetsPerLineTheOutputEndsWithAMessage) {
    open(kFilterMembers[0], 0);
    {
        ModalScript script({{u"MsgBox"_s, answer(u"打印设置里每一行的注数是 0，打印在第一注就结束了。"_s,
                                                 u"打印设置"_s, QMessageBox::Ok)}});
        print();
    }
    EXPECT_EQ(bytesOf(place(u"Print.txt"_s)), "购买期数:2026001\r\n");
    EXPECT_TRUE(m_opened.isEmpty());
    open(*findMember("GAganRote"), 0);
    ModalScript script({{u"MsgBox"_s, answer({}, u"Error"_s, QMessageBox::Ok)}});
    print();
    EXPECT_FALSE(std::filesystem::exists(m_folder / "Print.odt"));
}

TEST_F(PrintBets, AFolderThatCannotBeWrittenIsToldAndNothingOpens) {
    for (const char* form : {"GAgan", "GAganRote"}) {
        open(*findMember(form));
        std::filesystem::remove_all(m_folder);
        ModalScript script({{u"MsgBox"_s, [](QWidget& box) {
                                 EXPECT_TRUE(static_cast<QMessageBox&>(box).text().startsWith(u"没有写入“"_s));
                                 answer({})(box);
                             }}});
        print();
        EXPECT_TRUE(m_opened.isEmpty());
    }
}

TEST_F(PrintBets, ADocumentOpensInTheWordProcessor) {
    open(*findMember("GAganRoteR"), 3);
    QTextBrowser desktop; // stands in for it
    QDesktopServices::setUrlHandler(u"file"_s, &desktop, "setSource");
    print();
    QDesktopServices::unsetUrlHandler(u"file"_s);
    EXPECT_EQ(desktop.source(), QUrl::fromLocalFile(place(u"Print.odt"_s)));
}

TEST_F(PrintBets, WithoutABetNothingComes) {
    open(*findMember("GAganR"));
    m_database->execute("DELETE FROM [zuheR]");
    press(*m_window, u"Command1"_s);
    print();
    EXPECT_TRUE(m_opened.isEmpty());
    EXPECT_FALSE(std::filesystem::exists(m_folder / "Print.txt"));
}

} // namespace
} // namespace filter

namespace {

class PrintProgram : public ProgramFixture {};

TEST_F(PrintProgram, PrintsIntoTheUsersFolderInTheProgramOfTheSetting) {
    enterAs(u"张三"_s);
    program->settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Editor"_s, u"/不存在/编辑器"_s);
    for (int red = 1; red <= 7; ++red)
        press(u"Form1"_s, u"Command1(%1)"_s.arg(red));
    press(u"Form1"_s, u"Command2(9)"_s);
    {
        ModalScript script({{u"InputBox"_s, type(u"4"_s)}});
        trigger(u"Form1"_s, u"mnuPtset"_s);
    }
    const QString file = home.folderName() + u"/张三/Print.txt"_s;
    ModalScript script({{u"GAgan"_s,
                         [](QWidget& window) {
                             press(window, u"CmdPrint"_s);
                             window.close();
                         }},
                        {u"frmPrint"_s, [](QWidget& window) { press(window, u"Command2"_s); }}});
    trigger(u"Form1"_s, u"mnuLst"_s);
    EXPECT_EQ(bytesOf(file).count("\r\n"), 4) << "seven bets in lines of four";
    EXPECT_TRUE(bytesOf(file).startsWith("购买期数:"));
}

/// frmPrint over a text of three lines.
class PrintWindowTest : public testing::Test {
  protected:
    PrintWindowTest() {
        QFile text(file);
        EXPECT_TRUE(text.open(QIODevice::WriteOnly));
        text.write("购买期数:2026001\r\n01 02 03 04 05 06\r\n打印时间:2026-11-22 19:05:09\r\n");
        text.close();
        window = std::make_unique<toolkit::PrintWindow>(file);
        window->show();
    }
    QPlainTextEdit& box() { return *controlAs<QPlainTextEdit>(*window, u"RichTextBox1"_s); }
    void chooseLine(int line) {
        QTextCursor cursor(box().document()->findBlockByNumber(line));
        cursor.select(QTextCursor::LineUnderCursor);
        box().setTextCursor(cursor);
    }
    /// Prints into a file. \param range  that the dialog has to propose
    void printTo(const QString& pdf, QAbstractPrintDialog::PrintRange range) {
        ModalScript script({{u"PrintDialog"_s, [&](QWidget& dialog) {
                                 auto& print = static_cast<QPrintDialog&>(dialog);
                                 EXPECT_EQ(print.printRange(), range);
                                 auto* name = dialog.findChild<QLineEdit*>(u"filename"_s);
                                 ASSERT_NE(name, nullptr);
                                 name->setText(pdf);
                                 print.accept();
                             }}});
        press(*window, u"Command1"_s);
    }

    FreshHome home;
    QString file = home.folderName() + u"/Print.txt"_s;
    std::unique_ptr<toolkit::PrintWindow> window;
};

TEST_F(PrintWindowTest, ShowsTheFile) {
    EXPECT_EQ(window->windowTitle(), u"打印预览（可以用鼠标反键复制并粘贴到Word等文字处理软件中排版）"_s);
    EXPECT_EQ(box().toolTip(), u"可以用鼠标反键复制并粘贴到Word等文字处理软件中排版"_s);
    EXPECT_EQ(box().toPlainText(), u"购买期数:2026001\n01 02 03 04 05 06\n打印时间:2026-11-22 19:05:09\n"_s);
    EXPECT_EQ(controlAs<QPushButton>(*window, u"Command1"_s)->text(), u"打印(&P)"_s);
    EXPECT_EQ(controlAs<QPushButton>(*window, u"Command3"_s)->text(), u"字体(&F)"_s);
    EXPECT_TRUE(window->findChild<QLabel*>(u"lblCut"_s)->isHidden());
    press(*window, u"Command2"_s);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(PrintWindowTest, AMissingFileLeavesTheBoxEmpty) {
    window = std::make_unique<toolkit::PrintWindow>(u"/不存在"_s);
    EXPECT_EQ(box().toPlainText(), QString());
}

TEST_F(PrintWindowTest, AFileThatIsTooLongIsShownInPartAndSaysSo) {
    window = std::make_unique<toolkit::PrintWindow>(file, nullptr, 30);
    EXPECT_EQ(box().toPlainText(), u"购买期数:2026001\n"_s);
    EXPECT_TRUE(window->findChild<QLabel*>(u"lblCut"_s)->text().contains(file));
}

TEST_F(PrintWindowTest, TheRightButtonCopiesWhatIsChosen) {
    const auto openMenu = [this] {
        emit box().customContextMenuRequested({5, 5});
        return window->findChild<QMenu*>(u"mnuContl"_s);
    };
    QGuiApplication::clipboard()->setText(u"before"_s);
    std::unique_ptr<QMenu> menu(openMenu());
    EXPECT_EQ(menu->title(), u"操作"_s);
    EXPECT_FALSE(action(*menu, u"mnuCopy"_s)->isEnabled());
    QTextCursor both(box().document()->findBlockByNumber(0));
    both.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    both.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    box().setTextCursor(both);
    menu.reset();
    menu.reset(openMenu());
    EXPECT_EQ(action(*menu, u"mnuCopy"_s)->text(), u"复制(&C)"_s);
    action(*menu, u"mnuCopy"_s)->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"购买期数:2026001\n01 02 03 04 05 06"_s);
}

TEST_F(PrintWindowTest, TheFontDialogSetsTheBox) {
    ModalScript script({{u"FontDialog"_s, [](QWidget& dialog) {
                             QFont font = static_cast<QFontDialog&>(dialog).currentFont();
                             font.setPointSize(20);
                             font.setUnderline(true);
                             font.setStrikeOut(true);
                             static_cast<QFontDialog&>(dialog).setCurrentFont(font);
                             auto* inks = controlAs<QComboBox>(dialog, u"cboColour"_s);
                             inks->setCurrentIndex(inks->findText(u"蓝色"_s));
                             static_cast<QDialog&>(dialog).accept();
                         }}});
    press(*window, u"Command3"_s);
    EXPECT_EQ(box().font().pointSize(), 20);
    EXPECT_TRUE(box().font().underline());
    EXPECT_TRUE(box().font().strikeOut());
    EXPECT_EQ(box().palette().color(QPalette::Text), QColor(Qt::blue));
}

TEST_F(PrintWindowTest, PrintsTheSelectionOrElseTheWhole) {
    printTo(home.folderName() + u"/all.pdf"_s, QAbstractPrintDialog::AllPages);
    chooseLine(1);
    printTo(home.folderName() + u"/line.pdf"_s, QAbstractPrintDialog::Selection);
    const std::optional<QStringList> all = pagesOf(home.folderName() + u"/all.pdf"_s);
    if (!all)
        GTEST_SKIP() << "pdftotext is missing";
    ASSERT_EQ(all->size(), 1);
    EXPECT_TRUE(all->at(0).contains(u"2026-11-22 19:05:09"_s)) << all->at(0).toStdString();
    const QStringList line = *pagesOf(home.folderName() + u"/line.pdf"_s);
    EXPECT_EQ(line.value(0).trimmed(), u"01 02 03 04 05 06"_s);
}

/// Rows of a number and a text.
class CountedRows final : public output::SheetRows {
  public:
    explicit CountedRows(std::int64_t count, qsizetype letters = 3) : m_count(count), m_letters(letters) {}
    std::int64_t count() const override { return m_count; }
    output::SheetCell cell(std::int64_t row, int column) const override {
        return column == 0 ? output::SheetCell(row + 1)
                           : output::SheetCell(u"R%1 "_s.arg(row + 1).repeated(m_letters));
    }

  private:
    std::int64_t m_count;
    qsizetype m_letters;
};

class Paper : public testing::Test {
  protected:
    Paper() : printer(QPrinter::HighResolution) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
    }
    /// The numbers with which the lines of a page begin.
    static QList<int> rowNumbersOf(const QString& page) {
        QList<int> numbers;
        for (const QString& line : page.split(u'\n'))
            if (const int number = line.simplified().section(u' ', 0, 0).toInt(); number > 0)
                numbers << number;
        return numbers;
    }

    FreshHome home;
    QString file = home.folderName() + u"/pages.pdf"_s;
    QPrinter printer;
};

TEST_F(Paper, TheHeadingStandsOnEachPageAndEveryRowOnOne) {
    const CountedRows rows(200);
    const output::Sheet sheet{{{u"Index"_s}, {u"Reason"_s}}, rows, u"Bets"_s, {u"Second"_s}};
    const toolkit::SheetPages pages(sheet, printer);
    EXPECT_EQ(pages.scale(), 1);
    ASSERT_EQ(toolkit::printPages(printer, pages), toolkit::PaperState::Printed);
    const std::optional<QStringList> texts = pagesOf(file);
    if (!texts)
        GTEST_SKIP() << "pdftotext is missing";
    ASSERT_EQ(texts->size(), pages.count());
    ASSERT_GT(texts->size(), 2);
    EXPECT_TRUE(texts->at(0).contains(u"Bets"_s) && texts->at(0).contains(u"Second"_s));
    EXPECT_FALSE(texts->at(1).contains(u"Bets"_s));
    QList<int> numbers;
    for (qsizetype page = 0; page < texts->size(); ++page) {
        const QString text = QString(texts->at(page)).remove(u' ');
        EXPECT_TRUE(text.contains(u"Reason"_s)) << page;
        EXPECT_TRUE(text.contains(u"第%1"_s.arg(page + 1)) && text.contains(u"共%1"_s.arg(texts->size())))
            << text.toStdString();
        numbers << rowNumbersOf(texts->at(page));
    }
    QList<int> all(200);
    std::iota(all.begin(), all.end(), 1);
    EXPECT_EQ(numbers, all);
}

TEST_F(Paper, AWideSheetIsMadeSmallerAndAVeryWideOneCut) {
    const CountedRows wide(3, 45);
    const output::Sheet sheet{{{u"Index"_s}, {u"Reason"_s}}, wide};
    const toolkit::SheetPages smaller(sheet, printer);
    EXPECT_LT(smaller.scale(), 1);
    EXPECT_GT(smaller.scale(), 0.5);
    const CountedRows veryWide(3, 150);
    const output::Sheet longer{{{u"Index"_s}, {u"Reason"_s}}, veryWide};
    EXPECT_NEAR(toolkit::SheetPages(longer, printer).scale(), 0.5, 0.001);
}

TEST_F(Paper, AnEmptySheetIsOnePageWithItsHeading) {
    const CountedRows none(0);
    const output::Sheet sheet{{{u"Index"_s}}, none};
    EXPECT_EQ(toolkit::SheetPages(sheet, printer).count(), 1);
}

TEST_F(Paper, OnlyTheWantedPagesArePrinted) {
    const CountedRows rows(400);
    const output::Sheet sheet{{{u"Index"_s}, {u"Reason"_s}}, rows};
    const toolkit::SheetPages pages(sheet, printer);
    ASSERT_GT(pages.count(), 4);
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(1, 3);
    ASSERT_EQ(toolkit::printPages(printer, pages, {2, 4}), toolkit::PaperState::Printed);
    const std::optional<QStringList> texts = pagesOf(file);
    if (!texts)
        GTEST_SKIP() << "pdftotext is missing";
    EXPECT_EQ(texts->size(), 2);
    EXPECT_GT(rowNumbersOf(texts->at(0)).value(0), 1);
    EXPECT_EQ(rowNumbersOf(texts->at(1)).value(0),
              rowNumbersOf(texts->at(0)).value(rowNumbersOf(texts->at(0)).size() - 1) + 1);
}

TEST_F(Paper, AFileThatCannotBeWrittenIsAFailure) {
    printer.setOutputFileName(u"/不存在/pages.pdf"_s);
    const CountedRows rows(3);
    const output::Sheet sheet{{{u"Index"_s}}, rows};
    EXPECT_EQ(toolkit::printPages(printer, toolkit::SheetPages(sheet, printer)), toolkit::PaperState::Failed);
}

TEST_F(Paper, AFileThatAFullDiskCutOffIsAFailure) {
    const CountedRows rows(400);
    const output::Sheet sheet{{{u"Index"_s}, {u"Reason"_s}}, rows};
    const toolkit::SheetPages pages(sheet, printer);
    ASSERT_EQ(toolkit::printPages(printer, pages), toolkit::PaperState::Printed);
    const auto whole = static_cast<rlim_t>(QFile(file).size());
    for (const rlim_t length : {rlim_t{4'000}, whole / 2, whole - 1'000, whole - 50}) {
        const output_test::FileLimit full(length);
        EXPECT_EQ(toolkit::printPages(printer, pages), toolkit::PaperState::Failed) << length << " of " << whole;
    }
}

TEST_F(Paper, ALongLineOfTextGoesOnAtABlank) {
    const QString bet = u"01 02 03 04 05 06 "_s;
    const toolkit::TextPages pages(bet.repeated(40) + u"\nend"_s, toolkit::paperFont(), Qt::black, printer);
    ASSERT_EQ(toolkit::printPages(printer, pages), toolkit::PaperState::Printed);
    const std::optional<QStringList> texts = pagesOf(file);
    if (!texts)
        GTEST_SKIP() << "pdftotext is missing";
    QStringList numbers = texts->at(0).simplified().split(u' ');
    EXPECT_EQ(numbers.takeLast(), u"end"_s);
    EXPECT_EQ(numbers, bet.repeated(40).simplified().split(u' '));
}

TEST_F(Paper, AGridShowsItsPages) {
    QStandardItemModel model(20'000, 2);
    model.setHorizontalHeaderLabels({u"甲"_s, u"乙"_s});
    toolkit::DataGrid grid;
    grid.setModel(&model);
    grid.show();
    const auto printed = [&grid](std::vector<ModalStep> steps) {
        ModalScript script(std::move(steps));
        grid.printAll();
    };
    int pages = 0;
    const ModalStep look{u"PrintPreview"_s, [&pages](QWidget& dialog) {
                             pages = dialog.findChild<QPrintPreviewWidget*>()->pageCount();
                             static_cast<QDialog&>(dialog).reject();
                         }};
    const auto asked = [](const QString& text) { return ModalStep{u"InputBox"_s, type(text)}; };
    printed({asked(u"2-4"_s), look});
    EXPECT_EQ(pages, 3) << "of more than two hundred";
    printed({{u"InputBox"_s, cancel()}});
    model.setRowCount(10);
    printed({look});
    EXPECT_EQ(pages, 1);
}

} // namespace
