// A page of cells: a heading, columns and rows; what exports to a workbook or a text, goes to the clipboard and
// prints.
//
// A sheet holds no cell. Its columns are data, its rows lie behind SheetRows and are asked for one by one, so that a
// sheet over 17.7 million rows costs nothing. Values are typed: a workbook gets numbers as numbers. What a cell reads
// is said in one place, SheetRows::appendText(), and every text form goes through it.
// The writers: sheet_text.h, sheet_csv.h, sheet_html.h, sheet_workbook.h; sheet_export.h asks where to and tells.
#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include <QString>
#include <QStringList>

namespace output {

enum class CellKind { Text, Number, Red, Blue };
enum class CellAlign { Left, Centre, Right };

struct SheetColumn {
    QString heading;
    CellKind kind = CellKind::Text;
    double width = 0; ///< in characters; 0: what the heading needs
    CellAlign align = CellAlign::Centre;
    int digits = 1; ///< a shorter whole number has zeros before it
};

using SheetCell = std::variant<std::monostate, std::int64_t, double, QString>;

class SheetRows {
  public:
    virtual ~SheetRows() = default;
    virtual std::int64_t count() const = 0;
    /// \param row  0..count()-1  \param column  place in Sheet::columns
    virtual SheetCell cell(std::int64_t row, int column) const = 0;
    /// Appends what the cell reads. Here: what its value reads.
    virtual void appendText(QString& text, std::int64_t row, const SheetColumn& told, int column) const;
};

struct Sheet {
    std::vector<SheetColumn> columns;
    const SheetRows& rows;
    QString title{};     ///< above everything; may be empty
    QStringList lines{}; ///< below the title

    int columnCount() const { return static_cast<int>(columns.size()); }
    /// The title, if there is one, and the lines.
    QStringList above() const;
};

/// Rows between two reports of the progress of a writer: well above ten reports a second.
inline constexpr std::int64_t kReportRows = 4096;

enum class Written { Whole, GivenUp };

/// Appends what a value reads: nothing, a whole number with its zeros, a real one in its shortest form, a text.
void appendCell(QString& text, const SheetCell& cell, int digits = 1);

} // namespace output
