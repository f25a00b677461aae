#include "mainwin/windows/wheel_import_window.h"

#include <algorithm>

#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "mainwin/wheel_menu.h"
#include "selection/wheel_import.h"
#include "toolkit/accent_button.h"
#include "toolkit/card.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/ink_label.h"
#include "toolkit/rows_grid.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;
using selection::WheelFamily;
using toolkit::Colours;

namespace mainwin {

namespace {

constexpr QSize kUsefulSize{620, 560};
constexpr int kChooseWidth = 108;
constexpr int kNumberWidth = 60;
constexpr int kPositionWidth = 66;
constexpr double kMostGrowth = 2;
constexpr int kSixCells = 6;
constexpr int kSevenCells = 7;

/// The numbers that a family's menu is opened for.
struct Range {
    int least;
    int most;
};

Range redsOf(WheelFamily family, int bankers) {
    switch (family) {
    case WheelFamily::Basic:
        return {9, 16};
    case WheelFamily::Extended:
        return {8, 18};
    case WheelFamily::Banker:
        return {kSixCells + 1 - bankers, selection::kMostPositions - bankers};
    case WheelFamily::Super:
        return {kSixCells + 1, selection::kMostPositions};
    case WheelFamily::Seven:
        break;
    }
    return {kSevenCells + 1, selection::kMostPositions};
}

/// The rows that were read, with the positions that the text names.
class PositionRows : public toolkit::RowSource {
  public:
    PositionRows(const selection::WheelTable& table, const std::vector<selection::PositionSet>& rows)
        : m_table(table), m_rows(rows) {}
    std::int64_t count() const override { return static_cast<std::int64_t>(m_rows.size()); }
    QString text(std::int64_t row, int column) const override {
        const auto line = static_cast<std::size_t>(row);
        return QString::number(column == 0 ? row + 1
                                           : std::int64_t{selection::wheelCells(
                                                 m_table, m_rows[line])[static_cast<std::size_t>(column - 1)]});
    }

  private:
    selection::WheelTable m_table;
    std::vector<selection::PositionSet> m_rows;
};

QSpinBox* makeNumber(const QString& name, const QString& meaning) {
    auto* box = new QSpinBox;
    box->setObjectName(name);
    box->setAccessibleName(meaning);
    box->setKeyboardTracking(false); // a number that is half typed is none
    return box;
}

void addCaptioned(QHBoxLayout& line, const QString& caption, QWidget* field) {
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    line.addWidget(label);
    line.addWidget(field);
    line.addSpacing(8);
}

} // namespace

WheelImportWindow::WheelImportWindow(int reds, int bankers, RowsThere rowsThere, const toolkit::PlaceStore& places,
                                     QWidget* parent)
    : QDialog(parent), m_rowsThere(std::move(rowsThere)), m_family(new QComboBox),
      m_reds(makeNumber(u"spnReds"_s, u"选号个数"_s)), m_bankers(makeNumber(u"spnBankers"_s, u"胆码个数"_s)),
      m_guarantee(new QComboBox), m_file(new QLabel(u"还没有选择文本"_s)),
      m_result(new toolkit::InkLabel(u"Result"_s, &Colours::quiet)),
      m_there(new toolkit::InkLabel(u"TableThere"_s, &Colours::quiet)), m_model(new toolkit::RowsModel(this)),
      m_grid(new toolkit::RowsGrid(this)), m_again(new QPushButton(u"重新检验(&V)"_s)),
      m_ok(new toolkit::AccentButton(u"导入(&K)"_s)) {
    setObjectName(u"frmWheelImport"_s);
    setWindowTitle(u"导入旋转矩阵"_s);
    build();
    m_family->setCurrentIndex(static_cast<int>(bankers > 0 ? WheelFamily::Banker : WheelFamily::Super));
    m_bankers->setValue(bankers);
    showFamily();
    m_reds->setValue(reds);
    showGuarantees();
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, places);
}

void WheelImportWindow::build() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(buildPurpose());
    layout->addWidget(buildText(), 1);
    layout->addWidget(buildFoot());
    connect(m_family, &QComboBox::currentIndexChanged, this, &WheelImportWindow::showFamily);
    connect(m_bankers, &QSpinBox::valueChanged, this, &WheelImportWindow::showFamily);
    connect(m_reds, &QSpinBox::valueChanged, this, &WheelImportWindow::showGuarantees);
    connect(m_guarantee, &QComboBox::currentIndexChanged, this, &WheelImportWindow::prove);
}

QWidget* WheelImportWindow::buildPurpose() {
    m_family->setObjectName(u"cboFamily"_s);
    m_family->setAccessibleName(u"矩阵种类"_s);
    for (const selection::WheelFamilyInfo& info : selection::wheelFamilies())
        m_family->addItem(QString::fromUtf8(info.title));
    m_guarantee->setObjectName(u"cboGuarantee"_s);
    m_guarantee->setAccessibleName(u"保证"_s);
    m_guarantee->setMinimumContentsLength(4);
    m_bankers->setRange(1, kSixCells - 1);
    auto* card = new toolkit::Card(u"CardPurpose"_s, u"矩阵用在哪里"_s);
    auto* line = new QHBoxLayout;
    addCaptioned(*line, u"种类(&T)"_s, m_family);
    addCaptioned(*line, u"选号个数(&N)"_s, m_reds);
    addCaptioned(*line, u"胆码(&D)"_s, m_bankers);
    addCaptioned(*line, u"保证(&B)"_s, m_guarantee);
    line->addStretch();
    card->body().addLayout(line);
    card->body().addWidget(m_there);
    return card;
}

QWidget* WheelImportWindow::buildText() {
    auto* choose = new QPushButton(u"选择文本(&O)…"_s);
    choose->setObjectName(u"cmdChoose"_s);
    choose->setMinimumWidth(kChooseWidth);
    connect(choose, &QPushButton::clicked, this, &WheelImportWindow::chooseFile);
    m_file->setObjectName(u"FileName"_s);
    m_file->setTextFormat(Qt::PlainText);
    m_again->setObjectName(u"cmdAgain"_s);
    connect(m_again, &QPushButton::clicked, this, &WheelImportWindow::prove);
    auto* line = new QHBoxLayout;
    line->addWidget(choose);
    line->addWidget(m_file, 1);
    line->addWidget(m_again);
    m_result->setTextFormat(Qt::PlainText);
    m_result->setWordWrap(true);
    m_grid->setObjectName(u"MSFlexGrid1"_s);
    m_grid->setAccessibleName(u"读到的各行"_s);
    m_grid->setFrameShape(QFrame::NoFrame);
    m_grid->growColumns(kMostGrowth);
    m_grid->setModel(m_model);
    m_grid->setEmptyText(u"选择文本后，这里列出读到的每一行"_s);
    auto* card = new toolkit::Card(u"CardText"_s, u"矩阵文本"_s);
    card->body().addLayout(line);
    card->body().addWidget(new toolkit::InkLabel(
        u"Hint"_s, &Colours::quiet,
        u"每行一注：6 个（复7式 7 个）位置号，用空格、逗号或制表符隔开；空行和以“#”开头的行略过。\n"
        u"位置号是选中号码从小到大的次序，胆码排在最后，每行都要写上。"_s));
    card->body().addWidget(m_result);
    card->body().addWidget(m_grid, 1);
    return card;
}

QWidget* WheelImportWindow::buildFoot() {
    m_ok->setObjectName(u"cmdOK"_s);
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* cancel = new QPushButton(u"取消"_s);
    cancel->setObjectName(u"cmdCancel"_s);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* foot = new QWidget;
    auto* line = new QHBoxLayout(foot);
    line->setContentsMargins(0, 0, 0, 0);
    line->addStretch();
    line->addWidget(m_ok);
    line->addWidget(cancel);
    return foot;
}

WheelFamily WheelImportWindow::family() const {
    return selection::wheelFamilies()[static_cast<std::size_t>(std::max(m_family->currentIndex(), 0))].family;
}

void WheelImportWindow::chooseFile() {
    toolkit::DialogBoxes boxes(this);
    const QString file = boxes.chooseFile({}, {});
    if (file.isEmpty())
        return;
    try {
        m_text = selection::readWheelFile(workspace::toPath(file));
    } catch (const workspace::Failure& failed) {
        boxes.warn(workspace::failureMessage(failed, u"矩阵文本没有读入"_s, windowTitle()));
        return;
    }
    m_file->setText(QFileInfo(file).fileName());
    m_file->setToolTip(file);
    guess();
    prove();
}

void WheelImportWindow::guess() {
    const selection::WheelMeasure measure = selection::measureWheel(*m_text);
    const bool seven = measure.cells == kSevenCells;
    m_showing = true; // the proof comes once, when all boxes are right
    if (measure.cells > 0 && seven != (family() == WheelFamily::Seven))
        m_family->setCurrentIndex(static_cast<int>(seven ? WheelFamily::Seven : WheelFamily::Super));
    if (measure.largest > 0)
        m_reds->setValue(measure.largest - (m_bankers->isEnabled() ? m_bankers->value() : 0));
    m_showing = false;
}

void WheelImportWindow::showFamily() {
    const bool bankers = family() == WheelFamily::Banker;
    m_bankers->setEnabled(bankers);
    m_bankers->setToolTip(bankers ? QString() : u"只有胆拖矩阵有胆码"_s);
    const Range range = redsOf(family(), m_bankers->value());
    {
        const QSignalBlocker quiet(m_reds);
        m_reds->setRange(range.least, range.most);
    }
    showGuarantees();
}

/// Those that a menu offers for these numbers; the one that was chosen stays, where it is among them.
void WheelImportWindow::showGuarantees() {
    const QString chosen = m_guarantee->currentText();
    {
        const QSignalBlocker quiet(m_guarantee);
        m_guarantee->clear();
        for (const selection::Guarantee& pair : selection::guaranteesOf(family())) {
            const int bankers = m_bankers->isEnabled() ? m_bankers->value() : 0;
            if (const auto table = selection::wheelTableOfMenu(family(), m_reds->value(), bankers, pair))
                m_guarantee->addItem(u"中%1保%2"_s.arg(pair.chosen).arg(pair.common),
                                     QString::fromStdString(table->name));
        }
        m_guarantee->setCurrentIndex(std::max(m_guarantee->findText(chosen), 0));
    }
    prove();
}

void WheelImportWindow::prove() {
    if (m_showing)
        return;
    const QString name = m_guarantee->currentData().toString();
    m_table = selection::wheelTableNamed(family(), name.toStdString());
    m_proof = {};
    if (m_table && m_text) {
        const auto progress = toolkit::DialogBoxes(this).progress(u"检验 %1"_s.arg(m_file->text()));
        m_proof = selection::proveWheel(*m_table, *m_text, progress.get());
    }
    showResult();
}

void WheelImportWindow::say(const QString& text, QColor Colours::*ink) {
    m_result->setInk(ink);
    m_result->setText(text);
}

void WheelImportWindow::showResult() {
    const auto rows = static_cast<std::int64_t>(m_proof.rows.size());
    const bool proven = m_table && m_text && m_proof.holds();
    if (!m_table)
        say(u"这么多选号没有这种矩阵"_s, &Colours::goldText);
    else if (!m_text)
        say(u"先选择文本，保证要检验过才能导入"_s, &Colours::quiet);
    else if (m_proof.cancelled)
        say(u"检验已取消：按“重新检验”再来一次"_s, &Colours::goldText);
    else if (m_proof.refusal)
        say(u"✗ "_s + wheelRefusalText(*m_table, *m_proof.refusal), &Colours::red);
    else
        say(u"✓ 保证成立。"_s + wheelNotice(*m_table, rows), &Colours::green);
    const std::optional<std::int64_t> there = m_table ? m_rowsThere(*m_table) : std::nullopt;
    m_there->setText(there ? u"程序里现有的这张矩阵有 %1 行，导入后换成文本里的；原有的文件会保存下来。"_s.arg(*there)
                           : u"程序里现在没有这张矩阵。"_s);
    std::vector<toolkit::GridColumn> columns{{.heading = u"行"_s, .width = kNumberWidth}};
    const int cells = m_table ? selection::wheelFamily(m_table->family).cells : 0;
    for (int cell = 1; cell <= cells; ++cell)
        columns.push_back(
            {.heading = u"位%1"_s.arg(cell), .style = toolkit::CellStyle::Number, .width = kPositionWidth});
    if (m_table)
        m_model->show(std::move(columns), std::make_unique<PositionRows>(*m_table, m_proof.rows));
    m_again->setEnabled(m_text && m_table);
    m_again->setToolTip(m_text ? QString() : u"先选择文本"_s);
    m_ok->setEnabled(proven);
    m_ok->setToolTip(proven ? QString() : m_text ? u"文本里的矩阵检验通过后才能导入"_s : u"先选择文本"_s);
}

} // namespace mainwin
