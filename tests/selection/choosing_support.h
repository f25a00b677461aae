// A fresh workspace with draws, and a pad as text, for the tests of choosing numbers.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "history/store.h"
#include "history/text_lines.h"
#include "selection/pad.h"
#include "workspace/safe_file.h"
#include "workspace/user_files.h"

namespace choosing_tests {

using namespace Qt::StringLiterals;

/// A user 张三 with databases of his own in a temporary folder, and the history in memory.
class Choosing : public testing::Test {
  protected:
    void SetUp() override {
        const std::filesystem::path folder = workspace::toPath(home.path());
        QTemporaryDir noSettings;
        const workspace::Settings settings(workspace::toPath(noSettings.path()));
        workspace::createUserFiles(engine, folder, u"张三"_s);
        workspace = workspace::enterUser(settings, folder, u"张三"_s);
        ASSERT_TRUE(workspace::openWorkspace(engine, workspace).opened);
    }

    void hold(const std::vector<history::Draw>& draws) { history::replaceHistory(history, workspace, draws); }

    static std::vector<history::Draw> realDraws() {
        QFile file(QStringLiteral(SSQ_REAL_DATA "/draws.txt"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return history::parseDraws(history::decodeText(file.readAll())).draws;
    }

    void makeBanker(int number) {
        pad.pointAtRed(number);
        pad.mnuDan();
    }
    /// "reds | bankers | blues", each as the pad writes it.
    std::string padText() const {
        return (pad.redText() + u" |"_s + pad.danText() + u" |"_s + pad.blueText()).toStdString();
    }

    /// Every cell of a table, a line a row, Nulls as "-"; no more columns than that.
    static std::string dump(sql::Database& database, const std::string& table, int columns = 64) {
        const sql::Rows rows = database.query("SELECT * FROM [" + table + "]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            for (int column = 0; column < std::min(columns, rows.columnCount()); ++column)
                all += (column ? " " : "") +
                       (sql::isNull(rows.at(row, column)) ? std::string("-") : rows.textAt(row, column));
            all += '\n';
        }
        return all;
    }

    QTemporaryDir home;
    sql::Engine engine;
    workspace::Workspace workspace;
    history::History history;
    selection::Pad pad{33, 16};
};

} // namespace choosing_tests
