// A page of a workbook, taken apart at the row that is the pattern of its rows.
//
// Order: head(), appendRow() for each row, tail(): together the page as XML.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "output/sheet.h"

namespace output {

class WorkbookPage {
  public:
    /// \param xml  with a row of empty cells that have their formats  \param pattern  that row, from 0
    /// \throws std::system_error when the page is not whole
    WorkbookPage(const std::string& xml, std::int64_t pattern, int columns);

    /// \param last  row of the page, from 1
    std::string head(std::int64_t last) const;
    /// \throws workspace::Failure for a text that no cell can hold
    void appendRow(std::string& xml, const SheetRows& rows, std::int64_t row);
    const std::string& tail() const { return m_tail; }

  private:
    void appendCell(std::string& xml, const SheetCell& cell, std::size_t column) const;

    std::string m_head;
    std::string m_tail;
    std::vector<std::string> m_before; ///< <c r="B
    std::vector<std::string> m_after;  ///< " s="4"
    std::int64_t m_next;               ///< row of the page, from 1
};

} // namespace output
