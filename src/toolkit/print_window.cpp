#include "toolkit/print_window.h"

#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFontDialog>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <QVBoxLayout>

#include "toolkit/busy_cursor.h"
#include "toolkit/text_pages.h"
#include "toolkit/window_place.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr QSize kUsefulSize{860, 600};
const QString kAdvice = u"可以用鼠标反键复制并粘贴到Word等文字处理软件中排版"_s;

struct NamedColour {
    QString name;
    Qt::GlobalColor colour;
};
const NamedColour kInks[] = {
    {u"黑色"_s, Qt::black},     {u"红色"_s, Qt::red},        {u"蓝色"_s, Qt::blue},        {u"绿色"_s, Qt::darkGreen},
    {u"深红色"_s, Qt::darkRed}, {u"深蓝色"_s, Qt::darkBlue}, {u"紫色"_s, Qt::darkMagenta}, {u"灰色"_s, Qt::darkGray},
};

/// The colours of the text, among the effects of a font dialog. The first one leaves it as it is.
QComboBox* addInks(QFontDialog& dialog) {
    auto* inks = new QComboBox(&dialog);
    inks->setObjectName(u"cboColour"_s);
    inks->setAccessibleName(u"颜色"_s);
    inks->addItem(u"颜色不变"_s);
    for (const NamedColour& ink : kInks)
        inks->addItem(ink.name, QColor(ink.colour));
    const auto* effects = dialog.findChild<QGroupBox*>();
    QLayout* place = effects && effects->layout() ? effects->layout() : dialog.layout();
    place->addWidget(inks);
    return inks;
}

QPushButton* makeButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false); // Enter belongs to the box
    return button;
}

} // namespace

PrintWindow::PrintWindow(const QString& file, QWidget* parent, qint64 mostBytes)
    : QDialog(parent, Qt::Window), m_box(new QPlainTextEdit(this)), m_cut(new QLabel(this)) {
    setObjectName(u"frmPrint"_s);
    setWindowTitle(u"打印预览（可以用鼠标反键复制并粘贴到Word等文字处理软件中排版）"_s);
    layOut();
    placeOver(*this, kUsefulSize);
    read(file, mostBytes);
}

void PrintWindow::layOut() {
    auto* all = new QVBoxLayout(this);
    m_box->setObjectName(u"RichTextBox1"_s);
    m_box->setAccessibleName(u"要打印的文字"_s);
    m_box->setToolTip(kAdvice);
    m_box->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_box, &QPlainTextEdit::customContextMenuRequested, this, &PrintWindow::openMenu);
    all->addWidget(m_box, 1);
    m_cut->setObjectName(u"lblCut"_s);
    m_cut->setWordWrap(true);
    m_cut->hide();
    all->addWidget(m_cut);
    auto* print = makeButton(u"Command1"_s, u"打印(&P)"_s, this);
    auto* back = makeButton(u"Command2"_s, u"返回(&R)"_s, this);
    auto* font = makeButton(u"Command3"_s, u"字体(&F)"_s, this);
    connect(print, &QPushButton::clicked, this, &PrintWindow::print);
    connect(back, &QPushButton::clicked, this, &QDialog::reject);
    connect(font, &QPushButton::clicked, this, &PrintWindow::chooseFont);
    auto* line = new QHBoxLayout;
    all->addLayout(line);
    line->addStretch();
    for (QPushButton* button : {print, font, back})
        line->addWidget(button);
}

void PrintWindow::read(const QString& file, qint64 mostBytes) {
    QFile text(file);
    if (!text.open(QIODevice::ReadOnly))
        return;
    QByteArray bytes = text.read(mostBytes);
    if (!text.atEnd()) {
        bytes.truncate(bytes.lastIndexOf('\n') + 1);
        m_cut->setText(u"文字太长，这里只显示前面的部分；全文在“%1”。"_s.arg(file));
        m_cut->show();
    }
    m_box->setPlainText(QString::fromUtf8(bytes));
}

QString PrintWindow::selectedText() const {
    return m_box->textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n');
}

void PrintWindow::print() {
    const bool chosen = m_box->textCursor().hasSelection();
    printText(*this, m_box->toPlainText(), chosen ? selectedText() : QString(), m_box->font(), m_ink);
}

void PrintWindow::chooseFont() {
    QFontDialog dialog(m_box->font(), this);
    dialog.setObjectName(u"FontDialog"_s);
    dialog.setOption(QFontDialog::DontUseNativeDialog); // it has the effects and takes the colours
    const QComboBox* inks = addInks(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_box->setFont(dialog.selectedFont());
    if (!inks->currentData().isValid())
        return;
    m_ink = inks->currentData().value<QColor>();
    QPalette palette = m_box->palette();
    palette.setColor(QPalette::Text, m_ink);
    m_box->setPalette(palette);
}

void PrintWindow::copy() {
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(selectedText());
}

void PrintWindow::openMenu(const QPoint& at) {
    auto* menu = new QMenu(u"操作"_s, this);
    menu->setObjectName(u"mnuContl"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* entry = menu->addAction(u"复制(&C)"_s);
    entry->setObjectName(u"mnuCopy"_s);
    entry->setEnabled(m_box->textCursor().hasSelection()); // nothing would take the place of what was copied before
    connect(entry, &QAction::triggered, this, &PrintWindow::copy);
    menu->popup(m_box->viewport()->mapToGlobal(at));
}

} // namespace toolkit
