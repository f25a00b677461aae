// The whole program in a home of its own, for the tests that go through its windows with real clicks.
#pragma once

#include <memory>
#include <string>

#include <QFile>
#include <QFileDialog>

#include <gtest/gtest.h>

#include "mainwin/windows/program.h"
#include "support/controls.h"
#include "support/first_steps.h"
#include "support/fresh_home.h"
#include "support/modal_script.h"

inline const QString kReadQuestion = QStringLiteral(
    "确实要读入历史号码吗？读入后将覆盖原来所输入/读入的历史号，以新的历史号码文件灌装进入作为本用户的历史纪录！"
    "点击'确认'读入,点击'取消'放弃该操作。确要读入请保证安装目录下存在历史号码的文本文件文件。"
    "读取时可能要花费一段时间,请耐心等候！");
inline const QByteArray kThreeDraws = "2003001 10 11 12 13 26 28 11\n"
                                      "2003002 04 09 19 20 21 26 12\n"
                                      "2003003 01 07 10 23 28 32 16\n";

class ProgramFixture : public testing::Test {
  protected:
    /// Starts the program, as often as is wanted: of the one before only its files are left.
    mainwin::Program& start() {
        program.reset();
        program = std::make_unique<mainwin::Program>(home.folder());
        prepare();
        program->start();
        return *program;
    }

    void createUser(const QString& name, const QString& password = {}) { test_support::createUser(name, password); }
    void enter() { test_support::enter(); }

    mainwin::Program& enterAs(const QString& name) {
        start();
        createUser(name);
        enter();
        return *program;
    }

    QString writeFile(const QString& name, const QByteArray& bytes) {
        const QString path = home.folderName() + u'/' + name;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    /// As the shared one, and the dialog offers texts alone.
    static test_support::ModalAction chooseFile(const QString& path) {
        return [path](QWidget& dialog) {
            if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
                EXPECT_EQ(files->nameFilters(), QStringList{QStringLiteral("Text(*.txt)")});
            }
            test_support::chooseFile(path)(dialog);
        };
    }

    /// Every cell of a table, a line a row.
    static std::string dump(sql::Database& database, const char* table) {
        const sql::Rows rows = database.query(std::string("SELECT * FROM [") + table + "]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            for (int column = 0; column < rows.columnCount(); ++column)
                all += rows.textAt(row, column) + '\t';
            all += '\n';
        }
        return all;
    }

    test_support::FreshHome home;
    std::unique_ptr<mainwin::Program> program;

  private:
    /// What a test wants set before the first window opens.
    virtual void prepare() {}
};
