#include "output/sheet_workbook.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include <xlsxwriter.h>

#include "output/new_file.h"
#include "output/zip_file.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace output {

namespace {

constexpr lxw_color_t kRedInk = 0xCB222C;
constexpr lxw_color_t kBlueInk = 0x1F5FD0;
constexpr double kWritingShare = 0.45; // of the whole time; the rest is packing, which reports nothing
constexpr double kHeadingRoom = 2;     // characters beside a heading
constexpr double kNarrowest = 6;
constexpr std::string_view kPageEnd = "</worksheet>";

void check(lxw_error error) {
    if (error == LXW_NO_ERROR)
        return;
    const QString words = QString::fromUtf8(lxw_strerror(error));
    if (error == LXW_ERROR_CREATING_XLSX_FILE || error == LXW_ERROR_CREATING_TMPFILE)
        throw std::system_error(errno != 0 ? errno : EIO, std::generic_category(), words.toStdString());
    throw workspace::Failure(u"不能生成工作簿"_s, words);
}

/// A Chinese character takes two places.
double placesOf(const QString& text) {
    double places = 0;
    for (const QChar letter : text)
        places += letter.unicode() < 0x1100 ? 1 : 2;
    return places;
}

lxw_format_alignments alignmentOf(CellAlign align) {
    switch (align) {
    case CellAlign::Left:
        return LXW_ALIGN_LEFT;
    case CellAlign::Right:
        return LXW_ALIGN_RIGHT;
    default:
        return LXW_ALIGN_CENTER;
    }
}

/// The library's workbook: it is closed or freed, and the files without a name go with it.
class Book {
  public:
    Book(const std::string& path, const std::string& folder) : m_folder(folder) {
        lxw_workbook_options options{LXW_TRUE, m_folder.data(), LXW_FALSE};
        m_book = workbook_new_opt(path.c_str(), &options);
        if (!m_book)
            throw std::bad_alloc();
    }
    ~Book() {
        if (!m_book)
            return;
        for (const lxw_worksheet* page : m_pages) // the library would leave them open
            if (page->optimize_tmpfile)
                std::fclose(page->optimize_tmpfile);
        lxw_workbook_free(m_book);
    }
    Book(const Book&) = delete;
    Book& operator=(const Book&) = delete;

    lxw_worksheet* addPage() {
        errno = 0;
        lxw_worksheet* page = workbook_add_worksheet(m_book, nullptr);
        if (!page || !page->optimize_tmpfile)
            throw std::system_error(errno != 0 ? errno : EIO, std::generic_category(), "worksheet");
        m_pages.push_back(page);
        return page;
    }
    lxw_format* addFormat() {
        lxw_format* format = workbook_add_format(m_book);
        if (!format)
            throw std::bad_alloc();
        return format;
    }
    /// The library writes without looking whether the disk is full.
    void checkRows() {
        for (const lxw_worksheet* page : m_pages)
            if (std::fflush(page->optimize_tmpfile) != 0 || std::ferror(page->optimize_tmpfile))
                throw std::system_error(errno != 0 ? errno : ENOSPC, std::generic_category(), "rows");
    }
    /// \return the bytes of the rows of each page
    std::vector<long> close() {
        checkRows();
        std::vector<long> bytes;
        for (const lxw_worksheet* page : m_pages)
            bytes.push_back(std::ftell(page->optimize_tmpfile));
        errno = 0;
        check(workbook_close(std::exchange(m_book, nullptr)));
        return bytes;
    }

  private:
    std::string m_folder; ///< the library keeps no copy while it opens
    lxw_workbook* m_book = nullptr;
    std::vector<lxw_worksheet*> m_pages;
};

/// Writes the rows, page after page.
class Pages {
  public:
    Pages(Book& book, const Sheet& sheet, std::int64_t pageRows)
        : m_book(book), m_sheet(sheet), m_pageRows(pageRows) {
        for (const SheetColumn& column : sheet.columns) {
            m_headings.push_back(headingFormat(column));
            m_cells.push_back(cellFormat(column));
        }
        m_bold = book.addFormat();
        format_set_bold(m_bold);
        beginPage(sheet.above());
    }

    void append(std::int64_t row) {
        if (m_next == m_pageRows)
            beginPage({});
        for (int column = 0; column < m_sheet.columnCount(); ++column)
            write(m_sheet.rows.cell(row, column), column);
        ++m_next;
    }

  private:
    lxw_format* headingFormat(const SheetColumn& column) {
        lxw_format* format = m_book.addFormat();
        format_set_bold(format);
        format_set_align(format, static_cast<std::uint8_t>(alignmentOf(column.align)));
        format_set_bottom(format, LXW_BORDER_THIN);
        return format;
    }

    lxw_format* cellFormat(const SheetColumn& column) {
        lxw_format* format = m_book.addFormat();
        format_set_align(format, static_cast<std::uint8_t>(alignmentOf(column.align)));
        if (column.kind == CellKind::Red || column.kind == CellKind::Blue)
            format_set_font_color(format, column.kind == CellKind::Red ? kRedInk : kBlueInk);
        if (column.digits > 1)
            format_set_num_format(format, std::string(static_cast<std::size_t>(column.digits), '0').c_str());
        return format;
    }

    void beginPage(const QStringList& above) {
        m_page = m_book.addPage();
        m_next = 0;
        for (const QString& line : above)
            check(worksheet_write_string(m_page, row(m_next++), 0, line.toUtf8().constData(), m_bold));
        for (int column = 0; column < m_sheet.columnCount(); ++column) {
            const SheetColumn& told = m_sheet.columns[static_cast<std::size_t>(column)];
            const double width = std::max({told.width, placesOf(told.heading) + kHeadingRoom, kNarrowest});
            check(worksheet_set_column(m_page, place(column), place(column), width, nullptr));
            check(worksheet_write_string(m_page, row(m_next), place(column), told.heading.toUtf8().constData(),
                                         m_headings[static_cast<std::size_t>(column)]));
        }
        worksheet_freeze_panes(m_page, row(++m_next), 0);
    }

    void write(const SheetCell& cell, int column) {
        lxw_format* format = m_cells[static_cast<std::size_t>(column)];
        if (const auto* whole = std::get_if<std::int64_t>(&cell))
            check(worksheet_write_number(m_page, row(m_next), place(column), static_cast<double>(*whole), format));
        else if (const auto* real = std::get_if<double>(&cell))
            check(worksheet_write_number(m_page, row(m_next), place(column), *real, format));
        else if (const auto* text = std::get_if<QString>(&cell))
            check(worksheet_write_string(m_page, row(m_next), place(column), text->toUtf8().constData(), format));
    }

    static lxw_row_t row(std::int64_t row) { return static_cast<lxw_row_t>(row); }
    static lxw_col_t place(int column) { return static_cast<lxw_col_t>(column); }

    Book& m_book;
    const Sheet& m_sheet;
    std::int64_t m_pageRows;
    std::vector<lxw_format*> m_headings;
    std::vector<lxw_format*> m_cells;
    lxw_format* m_bold;
    lxw_worksheet* m_page = nullptr;
    std::int64_t m_next = 0; ///< row of the page
};

/// \return whether it was not given up
bool writeRows(Book& book, const Sheet& sheet, std::int64_t pageRows, workspace::Progress& progress) {
    Pages pages(book, sheet, pageRows);
    const std::int64_t rows = sheet.rows.count();
    for (std::int64_t row = 0; row < rows; ++row) {
        pages.append(row);
        if (row % kReportRows != 0)
            continue;
        book.checkRows();
        if (!progress.advance(kWritingShare * static_cast<double>(row) / static_cast<double>(rows)))
            return false;
    }
    return progress.advance(kWritingShare);
}

/// What the library packed is what it was given: each page is at least as long as its rows and has its end.
void prove(const std::filesystem::path& path, const std::vector<long>& bytes) {
    ZipFile zip(path);
    std::size_t page = 0;
    for (const ZipEntry& entry : zip.entries()) {
        std::string end;
        zip.read(entry, [&end](std::string_view part) {
            end.append(part.substr(part.size() - std::min(part.size(), kPageEnd.size())));
            end.erase(0, end.size() - std::min(end.size(), kPageEnd.size()));
        });
        if (!entry.name.startsWith("xl/worksheets/sheet"))
            continue;
        if (page >= bytes.size() || entry.size < static_cast<std::uint64_t>(bytes[page]) || end != kPageEnd)
            throw std::system_error(ENOSPC, std::generic_category(), entry.name.toStdString());
        ++page;
    }
    if (page != bytes.size())
        throw workspace::Failure(u"不能生成工作簿"_s, u"worksheets"_s);
}

} // namespace

Written writeWorkbook(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                      std::int64_t pageRows) {
    const auto progress = dialogs.progress(u"正在导出 %1 行"_s.arg(sheet.rows.count()));
    NewFile made(file);
    Book book(made.path().string(), made.path().parent_path().string());
    if (!writeRows(book, sheet, pageRows, *progress))
        return Written::GivenUp;
    prove(made.path(), book.close());
    made.commit();
    return Written::Whole;
}

} // namespace output
