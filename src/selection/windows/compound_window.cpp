#include "selection/windows/compound_window.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "toolkit/notice_bar.h"
#include "toolkit/rows_grid.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

constexpr QSize kUsefulSize{980, 560};
constexpr int kNumberWidth = 33;
constexpr int kBetWidth = 167;
constexpr double kMostGrowth = 1.5;
constexpr int kPadding = 16; // beside the text of a cell

class BetRows : public toolkit::RowSource {
  public:
    explicit BetRows(const CompoundBets& bets) : m_bets(bets) {}
    std::int64_t count() const override { return m_bets.gridRows(); }
    QString text(std::int64_t row, int column) const override { return m_bets.cell(row, column); }

  private:
    const CompoundBets& m_bets;
};

} // namespace

CompoundWindow::CompoundWindow(const QString& name, CompoundBets bets, const QString& notice,
                               const toolkit::PlaceStore& places, QWidget* parent)
    : QDialog(parent), m_bets(std::move(bets)), m_model(new toolkit::RowsModel(this)),
      m_grid(new toolkit::RowsGrid(this)) {
    setObjectName(name);
    setWindowTitle(u"红球复7式旋转矩阵"_s);
    fillGrid();
    layOut(notice);
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, places);
    m_grid->setCurrentIndex(m_model->index(0, 1)); // a bet; the first cell of a row that is not full is empty
    m_grid->setFocus();
}

/// A bet with many blues needs more than the usual width.
void CompoundWindow::fillGrid() {
    const int text = m_grid->fontMetrics().horizontalAdvance(m_bets.cell(0, 1)) + kPadding;
    std::vector<toolkit::GridColumn> columns{{.heading = {}, .width = kNumberWidth}};
    for (int column = 1; column <= CompoundBets::kAcross; ++column)
        columns.push_back({.heading = {}, .width = std::max(kBetWidth, text)});
    m_model->show(std::move(columns), std::make_unique<BetRows>(m_bets));
    m_grid->setObjectName(u"MSFlexGrid1"_s);
    m_grid->setAccessibleName(u"复式注"_s);
    m_grid->growColumns(kMostGrowth);
    m_grid->setModel(m_model);
    m_grid->horizontalHeader()->hide();
}

void CompoundWindow::layOut(const QString& notice) {
    auto* bar = new toolkit::NoticeBar(this);
    if (notice.isEmpty())
        bar->hide();
    else
        bar->tell(notice);
    auto* cost = new QLabel(QString::number(m_bets.yuan()) + u"圆"_s);
    cost->setObjectName(u"Label6"_s);
    auto* print = new QPushButton(u"打印(&P)"_s);
    print->setObjectName(u"CmdPrint"_s);
    print->setEnabled(false); // there is no printing in this program yet
    print->setToolTip(u"还需打印功能；按右键可以复制或导出"_s);
    auto* quit = new QPushButton(u"退出(&Q)"_s);
    quit->setObjectName(u"cmdQut"_s);
    connect(quit, &QPushButton::clicked, this, &QDialog::accept);
    auto* foot = new QHBoxLayout;
    foot->addWidget(new QLabel(u"合计:"_s));
    foot->addWidget(cost);
    foot->addStretch();
    foot->addWidget(print);
    foot->addWidget(quit);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(bar);
    layout->addWidget(m_grid, 1);
    layout->addLayout(foot);
}

} // namespace selection
