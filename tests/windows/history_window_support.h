// The whole program with one user in it, for the tests of what is done to the history in the main window.
#pragma once

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "history/text_file.h"
#include "toolkit/data_grid.h"
#include "toolkit/mask_edit.h"
#include "windows/program_fixture.h"
#include "workspace/safe_file.h"

namespace history_window_tests {

using namespace Qt::StringLiterals;
using namespace test_support;
using history::Draw;

inline const QString kAppendedQuestion =
    u"确实要读入追加历史号码吗？读入时只需要检索历史号码文本中没有灌装如电脑的部分，已灌装期号之前部分将不读取，"
    u"读取部分将追加到原来所输入/读入的历史号后面！点击'确认'读入,点击'取消'放弃该操作。"
    u"确要读入请保证安装目录下存在历史号码的文本文件文件。读取时可能要花费一段时间,请耐心等候！"_s;

class HistoryWindow : public ProgramFixture {
  protected:
    void enterAgain() {
        window(u"Form1"_s)->close();
        start();
        enter();
    }

    /// The main window, in front: without a window manager nothing gives the focus back when a dialog has closed.
    QWidget& form() {
        QWidget& form = *window(u"Form1"_s);
        if (!form.isActiveWindow() && !QApplication::activeModalWidget()) {
            form.activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        }
        return form;
    }
    toolkit::DataGrid& grid() { return *controlAs<toolkit::DataGrid>(form(), u"MSFlexGrid1"_s); }
    toolkit::MaskEdit& box(int place) {
        return *controlAs<toolkit::MaskEdit>(form(), u"MaskEdBox1(%1)"_s.arg(place));
    }
    QLineEdit& correction() { return *controlAs<QLineEdit>(form(), u"Text1"_s); }
    QString text(const QString& label) { return controlAs<QLabel>(form(), label)->text(); }
    QString cell(int row, int column) { return grid().model()->index(row, column).data().toString(); }
    QStringList row(int row) {
        QStringList cells;
        for (int column = 0; column < 9; ++column)
            cells << cell(row, column);
        return cells;
    }
    bool enabled(const QString& button) { return control(form(), button)->isEnabled(); }

    /// Keys to whatever has the focus in the window, one after another.
    void keys(const QString& text) {
        for (const QChar c : text)
            QTest::keyClick(form().focusWidget(), c.toLatin1());
    }
    void key(Qt::Key which) { QTest::keyClick(form().focusWidget(), which); }
    /// "33 02 17 05 29 11 07", from the first box on.
    void typeDraw(QString numbers) {
        trigger(form(), u"mnuLsApp"_s);
        keys(numbers.remove(u' '));
    }

    QString defaultFile() { return workspace::toQString(history::historyTextFile(program->workspace)); }
    QByteArray defaultText() {
        QFile file(defaultFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }

    /// A reading without a question about the default file.
    void readText(const QByteArray& bytes, const QString& entry = u"mnuRed"_s) {
        QFile::remove(defaultFile());
        const QString question = entry == u"mnuRed"_s ? kReadQuestion : kAppendedQuestion;
        const ModalScript script({{u"MsgBox"_s, answer(question, u"读入历史"_s, QMessageBox::Ok)},
                                  {u"FileDialog"_s, chooseFile(writeFile(u"期.txt"_s, bytes))}});
        trigger(form(), entry);
    }
};

} // namespace history_window_tests
