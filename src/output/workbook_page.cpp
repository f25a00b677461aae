#include "output/workbook_page.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <system_error>

#include <xlsxwriter.h>

#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace output {

namespace {

constexpr qsizetype kLongestText = 32'767; // characters of a cell

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

} // namespace

WorkbookPage::WorkbookPage(const std::string& xml, std::int64_t pattern, int columns) : m_next(pattern + 1) {
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

std::string WorkbookPage::head(std::int64_t last) const {
    const std::size_t range = m_head.find("<dimension ref=\"");
    const std::size_t end = m_head.find("\"/>", range);
    const std::size_t colon = m_head.find(':', range);
    if (end == std::string::npos || colon > end)
        return m_head;
    const std::size_t digits = m_head.find_first_of("0123456789", colon);
    return m_head.substr(0, digits) + std::to_string(last) + m_head.substr(end);
}

void WorkbookPage::appendRow(std::string& xml, const SheetRows& rows, std::int64_t row) {
    xml += "<row r=\"";
    appendNumber(xml, m_next);
    xml += "\">";
    for (std::size_t column = 0; column < m_before.size(); ++column)
        appendCell(xml, rows.cell(row, static_cast<int>(column)), column);
    xml += "</row>";
    ++m_next;
}

void WorkbookPage::appendCell(std::string& xml, const SheetCell& cell, std::size_t column) const {
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

} // namespace output
