#include "output/sheet_workbook.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>
#include <system_error>
#include <utility>

#include <xlsxwriter.h>

#include "output/new_file.h"
#include "output/zip_writer.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace output {

namespace {

constexpr lxw_color_t kRedInk = 0xCB222C;
constexpr lxw_color_t kBlueInk = 0x1F5FD0;
constexpr double kHeadingRoom = 2; // characters beside a heading
constexpr double kNarrowest = 6;
constexpr qsizetype kLongestText = 32'767; // characters of a cell
constexpr std::size_t kBlock = 1 << 16;    // bytes that are packed at a time

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

/// The workbook without its rows: pages with headings, and below each heading one row of empty cells with the
/// formats.
class Skeleton {
  public:
    Skeleton(const Sheet& sheet, std::int64_t pageRows, const std::filesystem::path& path) : m_sheet(sheet) {
        m_folder = path.parent_path().string();
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

void appendEscaped(std::string& xml, const QString& text) {
    if (text.size() > kLongestText)
        throw workspace::Failure(u"有一格的文字超过 %1 个字"_s.arg(kLongestText), text.left(100));
    for (const char byte : text.toUtf8()) {
        if (byte == '&')
            xml += "&amp;";
        else if (byte == '<')
            xml += "&lt;";
        else if (byte == '>')
            xml += "&gt;";
        else if (static_cast<unsigned char>(byte) >= ' ' || byte == '\t' || byte == '\n')
            xml += byte; // XML has no other control characters
    }
}

template <class Number> void appendNumber(std::string& xml, Number number) {
    char written[32];
    xml.append(written, std::to_chars(written, written + sizeof written, number).ptr);
}

/// A page of the skeleton, taken apart at its pattern.
class Page {
  public:
    /// \param pattern  its row, from 0
    Page(std::string xml, std::int64_t pattern, int columns) : m_next(pattern + 1) {
        const std::size_t row = xml.find("<row r=\"" + std::to_string(m_next) + '"');
        const std::size_t after = xml.find("</row>", row);
        if (row == std::string::npos || after == std::string::npos || !xml.ends_with("</worksheet>"))
            throw std::system_error(ENOSPC, std::generic_category(), "skeleton");
        for (int column = 0; column < columns; ++column) {
            char name[LXW_MAX_COL_NAME_LENGTH];
            lxw_col_to_name(name, static_cast<lxw_col_t>(column), LXW_FALSE);
            m_before.push_back(std::string("<c r=\"") + name);
            const std::string cell = m_before.back() + std::to_string(m_next) + '"';
            const std::size_t style = xml.find(cell, row) + cell.size();
            m_after.push_back('"' + xml.substr(style, xml.find("/>", style) - style));
        }
        m_head = xml.substr(0, row);
        m_tail = xml.substr(after + std::strlen("</row>"));
    }

    /// \param last  row of the page, from 1
    std::string head(std::int64_t last) const {
        const std::size_t range = m_head.find("<dimension ref=\"");
        const std::size_t end = m_head.find("\"/>", range);
        const std::size_t colon = m_head.find(':', range);
        if (end == std::string::npos || colon > end)
            return m_head;
        const std::size_t digits = m_head.find_first_of("0123456789", colon);
        return m_head.substr(0, digits) + std::to_string(last) + m_head.substr(end);
    }
    const std::string& tail() const { return m_tail; }

    void appendRow(std::string& xml, const SheetRows& rows, std::int64_t row) {
        xml += "<row r=\"";
        appendNumber(xml, m_next);
        xml += "\">";
        for (std::size_t column = 0; column < m_before.size(); ++column)
            appendCell(xml, rows.cell(row, static_cast<int>(column)), column);
        xml += "</row>";
        ++m_next;
    }

  private:
    void appendCell(std::string& xml, const SheetCell& cell, std::size_t column) const {
        const auto* real = std::get_if<double>(&cell);
        if (std::holds_alternative<std::monostate>(cell) || (real && !std::isfinite(*real)))
            return;
        xml += m_before[column];
        appendNumber(xml, m_next);
        xml += m_after[column];
        if (const auto* text = std::get_if<QString>(&cell)) {
            xml += " t=\"inlineStr\"><is><t xml:space=\"preserve\">";
            appendEscaped(xml, *text);
            xml += "</t></is></c>";
            return;
        }
        xml += "><v>";
        if (real)
            appendNumber(xml, *real);
        else
            appendNumber(xml, std::get<std::int64_t>(cell));
        xml += "</v></c>";
    }

    std::string m_head;
    std::string m_tail;
    std::vector<std::string> m_before; ///< <c r="B
    std::vector<std::string> m_after;  ///< " s="4"
    std::int64_t m_next;               ///< row of the page, from 1
};

/// Packs the skeleton anew, with the rows in their places.
class Filling {
  public:
    Filling(ZipWriter& zip, const Sheet& sheet, std::int64_t pageRows, workspace::Progress& progress)
        : m_zip(zip), m_sheet(sheet), m_pageRows(pageRows), m_progress(progress), m_count(sheet.rows.count()) {}

    /// \return whether it was not given up
    bool fill(ZipFile& skeleton, const std::vector<std::int64_t>& patterns) {
        std::size_t page = 0;
        for (const ZipEntry& entry : skeleton.entries()) {
            std::string bytes;
            skeleton.read(entry, [&bytes](std::string_view part) { bytes += part; });
            m_zip.begin(entry.name);
            if (!entry.name.startsWith("xl/worksheets/sheet"))
                m_zip.write(bytes);
            else if (!fillPage(std::move(bytes), patterns.at(page++)))
                return false;
            m_zip.end();
        }
        m_zip.finish();
        return m_progress.advance(1);
    }

  private:
    bool fillPage(std::string xml, std::int64_t pattern) {
        Page page(std::move(xml), pattern, m_sheet.columnCount());
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
                      std::int64_t pageRows) {
    const auto progress = dialogs.progress(u"正在导出 %1 行"_s.arg(sheet.rows.count()));
    NewFile made(file);
    const NewFile beside(file); // never gets a name
    const std::vector<std::int64_t> patterns = Skeleton(sheet, pageRows, beside.path()).write();
    ZipFile skeleton(beside.path());
    QFile packed(workspace::toQString(made.path()));
    if (!packed.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw std::system_error(EIO, std::generic_category(), "open");
    ZipWriter zip(packed);
    if (!Filling(zip, sheet, pageRows, *progress).fill(skeleton, patterns))
        return Written::GivenUp;
    packed.close();
    made.commit();
    return Written::Whole;
}

} // namespace output
