#include "filter/windows/result_panel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "base/number_text.h"
#include "filter/windows/row_controls.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kHeadingPadding = 10; // pixels left and right of a heading, together

} // namespace

ResultPanel::ResultPanel(QWidget* parent)
    : QWidget(parent), m_model(new RowsModel(this)), m_grid(new toolkit::DataGrid(this)),
      m_page(new KeyedEdit(kDigitKeys.toString(), this)), m_turn(new QPushButton(u"翻页(&U)"_s, this)) {
    m_grid->setObjectName(u"MSFlexGrid1"_s);
    m_grid->setAccessibleName(u"组合"_s);
    m_grid->setModel(m_model);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_page->setObjectName(u"Text1"_s);
    m_page->setAccessibleName(u"页号"_s);
    m_page->setText(u"1"_s);
    m_page->setMaximumWidth(80);
    m_turn->setObjectName(u"Command111"_s);
    m_turn->setAutoDefault(false);

    auto* paging = new QHBoxLayout;
    paging->addStretch();
    paging->addWidget(m_page);
    paging->addWidget(m_turn);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_grid, 1);
    column->addLayout(paging);

    connect(m_turn, &QPushButton::clicked, this, &ResultPanel::pageWanted);
    connect(m_grid, &toolkit::DataGrid::doubleClicked, this, [this](const QModelIndex& cell) {
        m_grid->setCurrentIndex(m_model->index(cell.row(), 0));
        emit rowDoubleClicked(cell.row());
    });
    connect(m_grid->horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!m_applying)
            m_dragged[column] = width;
    });
    connect(m_grid->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this] { emit rowDoubleClicked(-1); });
}

void ResultPanel::show(View view) {
    m_applying = true; // the header resizes columns of its own when their count changes
    m_model->show(std::move(view));
    m_grid->scrollToTop();
    applyWidths();
    m_applying = false;
}

void ResultPanel::applyWidths() {
    const auto& columns = m_model->view().columns;
    for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
        const GridColumn& told = columns[static_cast<std::size_t>(column)];
        const int heading =
            m_grid->horizontalHeader()->fontMetrics().horizontalAdvance(QString::fromStdString(told.heading));
        const auto dragged = m_dragged.find(column);
        m_grid->setColumnWidth(column, dragged != m_dragged.end()
                                           ? dragged->second
                                           : std::max(told.widthTwips / kTwipsPerPixel, heading + kHeadingPadding));
    }
}

QString ResultPanel::indexText(int row) const {
    if (row < 0)
        return m_model->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString();
    return m_model->index(row, 0).data().toString();
}

double ResultPanel::pageNumber() const {
    return base::val(m_page->text().toStdString());
}

} // namespace filter
