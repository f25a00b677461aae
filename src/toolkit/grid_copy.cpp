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

#include "workspace/dialogs.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr std::int64_t kReportRows = 4096; // rows between two reports of the progress

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

/// One pass over the selection; each cell goes to `cell`, each end of a row to `rowEnd`.
class Copying {
  public:
    explicit Copying(const QTableView& grid)
        : m_grid(grid), m_selection(grid.selectionModel() ? grid.selectionModel()->selection() : QItemSelection()),
          m_columns(selectedColumns(grid, m_selection)), m_spans(mergedRows(m_selection)), m_rows(countRows(m_spans)),
          m_onePiece(m_selection.size() == 1) {}

    std::int64_t rows() const { return m_rows; }

    /// \return nothing when the user has given up
    std::optional<QString> text(bool headings, workspace::Progress* progress) const {
        QString text;
        if (headings)
            for (const int column : m_columns)
                text += heading(column) + (column == m_columns.back() ? u'\n' : u'\t');
        std::int64_t done = 0;
        for (const RowSpan& span : m_spans)
            for (int row = span.first; row <= span.last; ++row) {
                if (done++ > 0)
                    text += u'\n';
                appendRow(text, row);
                if (progress && done % kReportRows == 0 && !progress->advance(share(done)))
                    return std::nullopt;
            }
        return text;
    }

    QString html(bool headings) const {
        QString html = u"<table>"_s;
        if (headings) {
            html += u"<tr>"_s;
            for (const int column : m_columns)
                html += u"<th>"_s + heading(column).toHtmlEscaped() + u"</th>"_s;
            html += u"</tr>"_s;
        }
        for (const RowSpan& span : m_spans)
            for (int row = span.first; row <= span.last; ++row) {
                html += u"<tr>"_s;
                for (const int column : m_columns)
                    html += u"<td>"_s + cell(row, column).toHtmlEscaped() + u"</td>"_s;
                html += u"</tr>"_s;
            }
        return html + u"</table>"_s;
    }

  private:
    double share(std::int64_t done) const { return static_cast<double>(done) / static_cast<double>(m_rows); }
    QString heading(int column) const {
        return m_grid.model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    }
    QString cell(int row, int column) const {
        const QModelIndex index = m_grid.model()->index(row, column, m_grid.rootIndex());
        return m_onePiece || m_selection.contains(index) ? index.data().toString() : QString();
    }
    void appendRow(QString& text, int row) const {
        for (const int column : m_columns) {
            if (column != m_columns.front())
                text += u'\t';
            text += cell(row, column);
        }
    }

    const QTableView& m_grid;
    QItemSelection m_selection;
    std::vector<int> m_columns;
    std::vector<RowSpan> m_spans;
    std::int64_t m_rows;
    bool m_onePiece; ///< then no cell needs to be asked
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
    if (copying.rows() == 0 || !mayCopy(copying.rows(), dialogs))
        return std::nullopt;
    if (copying.rows() <= kAskRows)
        return copying.text(headings, nullptr);
    return copying.text(headings, dialogs.progress(u"正在复制 %1 行"_s.arg(copying.rows())).get());
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
    if (copying.rows() <= kMostHtmlRows)
        data->setHtml(copying.html(headings));
    QGuiApplication::clipboard()->setMimeData(data);
    return true;
}

} // namespace toolkit
