#include "toolkit/grid_copy.h"

#include <algorithm>
#include <set>
#include <vector>

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelection>
#include <QMimeData>
#include <QTableView>

#include "output/sheet_html.h"
#include "output/sheet_text.h"
#include "toolkit/grid_sheet.h"
#include "workspace/dialogs.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

struct RowSpan {
    int first;
    int last;
};

std::vector<RowSpan> mergedRows(const QItemSelection& selection) {
    std::vector<RowSpan> spans;
    for (const QItemSelectionRange& range : selection)
        spans.push_back({range.top(), range.bottom()});
    std::ranges::sort(spans, {}, &RowSpan::first);
    std::vector<RowSpan> merged;
    for (const RowSpan& span : spans) {
        if (!merged.empty() && span.first <= merged.back().last + 1)
            merged.back().last = std::max(merged.back().last, span.last);
        else
            merged.push_back(span);
    }
    return merged;
}

std::int64_t countRows(const std::vector<RowSpan>& spans) {
    std::int64_t count = 0;
    for (const RowSpan& span : spans)
        count += span.last - span.first + 1;
    return count;
}

/// The columns that have a selected cell, as they stand on the screen.
std::vector<int> selectedColumns(const QTableView& grid, const QItemSelection& selection) {
    std::set<int> chosen;
    for (const QItemSelectionRange& range : selection)
        for (int column = range.left(); column <= range.right(); ++column)
            if (!grid.isColumnHidden(column))
                chosen.insert(column);
    std::vector<int> columns(chosen.begin(), chosen.end());
    std::ranges::sort(columns, {}, [&grid](int column) { return grid.horizontalHeader()->visualIndex(column); });
    return columns;
}

/// The rows that have a selected cell.
class SelectedRows final : public GridRows {
  public:
    SelectedRows(const QTableView& grid, const QItemSelection& selection)
        : GridRows(grid, selectedColumns(grid, selection)), m_selection(selection), m_spans(mergedRows(selection)),
          m_rows(countRows(m_spans)), m_onePiece(selection.size() == 1) {}

    std::int64_t count() const override { return m_rows; }

  protected:
    QModelIndex place(std::int64_t row, int column) const override {
        const QModelIndex at = modelCell(modelRow(row), column);
        return m_onePiece || m_selection.contains(at) ? at : QModelIndex();
    }

  private:
    /// A sheet is read from its first row to its last: the span of the row before is the one, or the next is.
    int modelRow(std::int64_t row) const {
        if (row < m_before) {
            m_span = 0;
            m_before = 0;
        }
        for (; row - m_before > m_spans[m_span].last - m_spans[m_span].first; ++m_span)
            m_before += m_spans[m_span].last - m_spans[m_span].first + 1;
        return m_spans[m_span].first + static_cast<int>(row - m_before);
    }

    QItemSelection m_selection;
    std::vector<RowSpan> m_spans;
    std::int64_t m_rows;
    bool m_onePiece;                   ///< then no cell needs to be asked
    mutable std::size_t m_span = 0;    ///< that the last row stood in
    mutable std::int64_t m_before = 0; ///< rows of the spans before it
};

/// The selection as a sheet.
struct Copying {
    explicit Copying(const QTableView& grid)
        : selection(grid.selectionModel() ? grid.selectionModel()->selection() : QItemSelection()),
          rows(grid, selection), sheet{sheetColumns(grid, selectedColumns(grid, selection)), rows} {}

    QItemSelection selection;
    SelectedRows rows;
    output::Sheet sheet;
};

bool mayCopy(std::int64_t rows, workspace::Dialogs& dialogs) {
    if (rows > kMostRows) {
        dialogs.tell(u"共选中 %1 行，一次最多复制 %2 行。请少选一些，或者用导出。"_s.arg(rows).arg(kMostRows),
                     u"复制"_s);
        return false;
    }
    return rows <= kAskRows || dialogs.confirm(u"共选中 %1 行，复制需要较多内存，是否继续？"_s.arg(rows), u"复制"_s);
}

std::optional<QString> textOf(const Copying& copying, bool headings, workspace::Dialogs& dialogs) {
    const std::int64_t rows = copying.rows.count();
    if (rows == 0 || !mayCopy(rows, dialogs))
        return std::nullopt;
    const output::TextForm form{headings, output::LineEnd::Lf};
    if (rows <= kAskRows)
        return output::sheetText(copying.sheet, form, nullptr);
    return output::sheetText(copying.sheet, form, dialogs.progress(u"正在复制 %1 行"_s.arg(rows)).get());
}

} // namespace

std::optional<QString> selectedText(const QTableView& grid, bool headings, workspace::Dialogs& dialogs) {
    return textOf(Copying(grid), headings, dialogs);
}

bool copySelected(const QTableView& grid, bool headings, workspace::Dialogs& dialogs) {
    const Copying copying(grid);
    const std::optional<QString> text = textOf(copying, headings, dialogs);
    if (!text)
        return false;
    auto* data = new QMimeData;
    data->setText(*text);
    if (copying.rows.count() <= kMostHtmlRows)
        data->setHtml(output::sheetHtml(copying.sheet, headings));
    QGuiApplication::clipboard()->setMimeData(data);
    return true;
}

} // namespace toolkit
