// The whole program with one user in it, for the tests of what is done to the history in the main window.
#pragma once

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include "history/text_file.h"
#include "mainwin/windows/program.h"
#include "support/controls.h"
#include "support/fresh_home.h"
#include "support/modal_script.h"
#include "toolkit/flex_grid.h"
#include "toolkit/mask_edit.h"
#include "workspace/safe_file.h"

namespace history_window_tests {

using namespace Qt::StringLiterals;
using namespace test_support;
using history::Draw;

inline const QString kWholeQuestion =
    u"确实要读入历史号码吗？读入后将覆盖原来所输入/读入的历史号，以新的历史号码文件灌装进入作为本用户的历史纪录！"
    u"点击'确认'读入,点击'取消'放弃该操作。确要读入请保证安装目录下存在历史号码的文本文件文件。"
    u"读取时可能要花费一段时间,请耐心等候！"_s;
inline const QString kAppendedQuestion =
    u"确实要读入追加历史号码吗？读入时只需要检索历史号码文本中没有灌装如电脑的部分，已灌装期号之前部分将不读取，"
    u"读取部分将追加到原来所输入/读入的历史号后面！点击'确认'读入,点击'取消'放弃该操作。"
    u"确要读入请保证安装目录下存在历史号码的文本文件文件。读取时可能要花费一段时间,请耐心等候！"_s;
inline const QByteArray kThreeDraws = "2003001 10 11 12 13 26 28 11\n"
                                      "2003002 04 09 19 20 21 26 12\n"
                                      "2003003 01 07 10 23 28 32 16\n";

/// Types a path into the file dialog and opens it.
inline ModalAction chooseFile(const QString& path) {
    return [path](QWidget& dialog) {
        auto* files = qobject_cast<QFileDialog*>(&dialog);
        ASSERT_NE(files, nullptr);
        EXPECT_EQ(files->nameFilters(), QStringList{u"Text(*.txt)"_s});
        controlAs<QLineEdit>(dialog, u"fileNameEdit"_s)->setText(path);
        static_cast<QDialog*>(files)->accept();
    };
}

class HistoryWindow : public testing::Test {
  protected:
    void enterAs(const QString& name) {
        program.reset();
        program = std::make_unique<mainwin::Program>(home.folder());
        program->start();
        {
            const ModalScript script(
                {{u"InputBox"_s, type(name)}, {u"InputBox"_s, type({})}, {u"InputBox"_s, type({})}});
            press(u"Frmpre"_s, u"Label2"_s);
        }
        press(u"Frmpre"_s, u"Label3"_s);
    }
    void enterAgain() {
        window(u"Form1"_s)->close();
        program.reset();
        program = std::make_unique<mainwin::Program>(home.folder());
        program->start();
        press(u"Frmpre"_s, u"Label3"_s);
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
    toolkit::FlexGrid& grid() { return *controlAs<toolkit::FlexGrid>(form(), u"MSFlexGrid1"_s); }
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

    QString writeFile(const QString& name, const QByteArray& bytes) {
        const QString path = home.folderName() + u'/' + name;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }
    QString defaultFile() { return workspace::toQString(history::historyTextFile(program->workspace)); }
    QByteArray defaultText() {
        QFile file(defaultFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }

    /// A reading without a question about the default file.
    void readText(const QByteArray& bytes, const QString& entry = u"mnuRed"_s) {
        QFile::remove(defaultFile());
        const QString question = entry == u"mnuRed"_s ? kWholeQuestion : kAppendedQuestion;
        const ModalScript script({{u"MsgBox"_s, answer(question, u"读入历史"_s, QMessageBox::Ok)},
                                  {u"FileDialog"_s, chooseFile(writeFile(u"期.txt"_s, bytes))}});
        trigger(form(), entry);
    }

    /// Every cell of a table of dbUser, a line a row.
    std::string dump(const char* table, sql::Database* database = nullptr) {
        const sql::Rows rows = (database ? database : program->workspace.dbUser.get())
                                   ->query(std::string("SELECT * FROM [") + table + "]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            for (int column = 0; column < rows.columnCount(); ++column)
                all += rows.textAt(row, column) + '\t';
            all += '\n';
        }
        return all;
    }

    FreshHome home;
    std::unique_ptr<mainwin::Program> program;
};

} // namespace history_window_tests
