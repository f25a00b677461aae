// A text that was made for the paper (frmPrint): read, set in a font, copied, printed whole or in part.
//
// It stands in where no program of the desktop shows the file. What is typed into the box goes to the paper and not
// to the file. A file that is too long for a box is shown up to its limit, and a line says so.
#pragma once

#include <QColor>
#include <QDialog>

class QLabel;
class QPlainTextEdit;

namespace toolkit {

class PrintWindow : public QDialog {
    Q_OBJECT

  public:
    /// Bytes of a file that are shown at most: a box bears about a million lines.
    static constexpr qint64 kMostBytes = 32 << 20;

    /// A file that cannot be read leaves the box empty. \param mostBytes  tests set less
    explicit PrintWindow(const QString& file, QWidget* parent = nullptr, qint64 mostBytes = kMostBytes);

  private:
    void layOut();
    void read(const QString& file, qint64 mostBytes);
    void print();
    void chooseFont();
    void copy();
    void openMenu(const QPoint& at);
    /// With \n between its lines.
    QString selectedText() const;

    QPlainTextEdit* m_box;
    QColor m_ink = Qt::black; ///< on the paper; in the box once it was chosen, until then that of the program's look
    QLabel* m_cut;
};

} // namespace toolkit
