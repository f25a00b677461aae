#include "output/sheet_workbook.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include <QXmlStreamReader>

#include <xlsxwriter.h>

#include "output/new_file.h"
#include "output/workbook_page.h"
#include "output/zip.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace output {

namespace {

constexpr lxw_color_t kRedInk = 0xCB222C;
constexpr lxw_color_t kBlueInk = 0x1F5FD0;
constexpr double kHeadingRoom = 2; // characters beside a heading
constexpr double kNarrowest = 6;
constexpr std::size_t kBlock = 1 << 16; // bytes that are packed at a time

void check(lxw_error error) {
    if (error == LXW_NO_ERROR)
        return;
    const QString words = QString::fromUtf8(lxw_strerror(error));
    if (error == LXW_ERROR_CREATING_XLSX_FILE || error == LXW_ERROR_CREATING_TMPFILE)
        throw std::system_error(errno != 0 ? errno : EIO, std::generic_category(), words.toStdString());
    throw workspace::Failure(u"不能生成工作簿"_s, words);
}

/// libxlsxwriter writes each part into a file of its own first, and does not look whether all of it got there.
void requireWhole(const std::string& part) {
    QXmlStreamReader xml(QByteArray::fromStdString(part));
    while (!xml.atEnd())
        xml.readNext();
    if (xml.hasError())
        throw std::system_error(ENOSPC, std::generic_category(), "skeleton");
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

/// The workbook without its rows: pages with headings, and below each heading one row of empty cells with the
/// formats.
class Skeleton {
  public:
    Skeleton(const Sheet& sheet, std::int64_t pageRows, const std::filesystem::path& path)
        : m_sheet(sheet), m_folder(path.parent_path().string()) {
        lxw_workbook_options options{LXW_FALSE, m_folder.data(), LXW_FALSE};
        m_book = workbook_new_opt(path.c_str(), &options);
        if (!m_book)
            throw std::bad_alloc();
        for (const SheetColumn& column : sheet.columns) {
            m_headings.push_back(headingFormat(column));
            m_cells.push_back(cellFormat(column));
        }
        addPage(sheet.above());
        for (std::int64_t rows = sheet.rows.count() - (pageRows - m_patterns[0]); rows > 0;
             rows -= pageRows - m_patterns.back())
            addPage({});
    }
    ~Skeleton() {
        if (m_book)
            lxw_workbook_free(m_book);
    }
    Skeleton(const Skeleton&) = delete;
    Skeleton& operator=(const Skeleton&) = delete;

    /// \return the row of the pattern in each page, from 0
    std::vector<std::int64_t> write() {
        errno = 0;
        check(workbook_close(std::exchange(m_book, nullptr)));
        return m_patterns;
    }

  private:
    lxw_format* addFormat() {
        lxw_format* format = workbook_add_format(m_book);
        if (!format)
            throw std::bad_alloc();
        return format;
    }

    lxw_format* headingFormat(const SheetColumn& column) {
        lxw_format* format = addFormat();
        format_set_bold(format);
        format_set_align(format, static_cast<std::uint8_t>(alignmentOf(column.align)));
        format_set_bottom(format, LXW_BORDER_THIN);
        return format;
    }

    lxw_format* cellFormat(const SheetColumn& column) {
        lxw_format* format = addFormat();
        format_set_align(format, static_cast<std::uint8_t>(alignmentOf(column.align)));
        if (column.kind == CellKind::Red || column.kind == CellKind::Blue)
            format_set_font_color(format, column.kind == CellKind::Red ? kRedInk : kBlueInk);
        if (column.digits > 1)
            format_set_num_format(format, std::string(static_cast<std::size_t>(column.digits), '0').c_str());
        return format;
    }

    void addPage(const QStringList& above) {
        lxw_worksheet* page = workbook_add_worksheet(m_book, nullptr);
        if (!page)
            throw std::bad_alloc();
        lxw_row_t row = 0;
        lxw_format* bold = above.isEmpty() ? nullptr : addFormat();
        if (bold)
            format_set_bold(bold);
        for (const QString& line : above)
            check(worksheet_write_string(page, row++, 0, line.toUtf8().constData(), bold));
        for (int column = 0; column < m_sheet.columnCount(); ++column) {
            const auto at = static_cast<std::size_t>(column);
            const auto place = static_cast<lxw_col_t>(column);
            const SheetColumn& told = m_sheet.columns[at];
            const double width = std::max({told.width, placesOf(told.heading) + kHeadingRoom, kNarrowest});
            check(worksheet_set_column(page, place, place, width, nullptr));
            check(worksheet_write_string(page, row, place, told.heading.toUtf8().constData(), m_headings[at]));
            check(worksheet_write_blank(page, row + 1, place, m_cells[at]));
        }
        worksheet_freeze_panes(page, row + 1, 0);
        m_patterns.push_back(row + 1);
    }

    const Sheet& m_sheet;
    std::string m_folder; ///< the library keeps no copy while it opens
    lxw_workbook* m_book = nullptr;
    std::vector<lxw_format*> m_headings;
    std::vector<lxw_format*> m_cells;
    std::vector<std::int64_t> m_patterns;
};

/// Packs the skeleton anew, with the rows in their places.
class Filling {
  public:
    Filling(ZipWriter& zip, const Sheet& sheet, std::int64_t pageRows, workspace::Progress& progress)
        : m_zip(zip), m_sheet(sheet), m_pageRows(pageRows), m_progress(progress), m_count(sheet.rows.count()) {}

    /// \return whether it was not given up
    bool fill(ZipReader& skeleton, const std::vector<std::int64_t>& patterns) {
        std::size_t page = 0;
        while (skeleton.next()) {
            std::string bytes = skeleton.read();
            requireWhole(bytes);
            m_zip.begin(skeleton.name());
            if (!skeleton.name().starts_with("xl/worksheets/sheet"))
                m_zip.write(bytes);
            else if (!fillPage(bytes, patterns.at(page++)))
                return false;
            m_zip.end();
        }
        m_zip.finish();
        return m_progress.advance(1);
    }

  private:
    bool fillPage(const std::string& xml, std::int64_t pattern) {
        WorkbookPage page(xml, pattern, m_sheet.columnCount());
        const std::int64_t end = std::min(m_count, m_row + m_pageRows - pattern);
        std::string block = page.head(pattern + end - m_row);
        for (; m_row < end; ++m_row) {
            if (m_row % kReportRows == 0 &&
                !m_progress.advance(static_cast<double>(m_row) / static_cast<double>(m_count)))
                return false;
            page.appendRow(block, m_sheet.rows, m_row);
            if (block.size() < kBlock)
                continue;
            m_zip.write(block);
            block.clear();
        }
        m_zip.write(block + page.tail());
        return true;
    }

    ZipWriter& m_zip;
    const Sheet& m_sheet;
    std::int64_t m_pageRows;
    workspace::Progress& m_progress;
    std::int64_t m_count;
    std::int64_t m_row = 0; ///< the next one of the sheet
};

} // namespace

Written writeWorkbook(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                      std::int64_t pageRows, std::uint64_t usualEntry) {
    const auto progress = dialogs.progress(u"正在导出 %1 行"_s.arg(sheet.rows.count()));
    NewFile made(file);
    const NewFile beside(file); // never gets a name
    const std::vector<std::int64_t> patterns = Skeleton(sheet, pageRows, beside.path()).write();
    const auto fill = [&](std::uint64_t longestEntry) {
        ZipReader skeleton(beside.path());
        ZipWriter zip(made.path(), longestEntry);
        return Filling(zip, sheet, pageRows, *progress).fill(skeleton, patterns);
    };
    const auto fillAnyLength = [&] {
        try {
            return fill(usualEntry);
        } catch (const EntryTooLong&) {
            return fill(kAnyEntry); // from the start: how long a page is tells itself only at its end
        }
    };
    if (!fillAnyLength())
        return Written::GivenUp;
    made.commit();
    return Written::Whole;
}

} // namespace output
