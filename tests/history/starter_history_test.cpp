#include "history/starter_history.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "history/text_lines.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace {

class Starter : public ::testing::Test {
  protected:
    std::filesystem::path folder() const { return workspace::toPath(dir.path()); }
    QString file() const { return dir.filePath(u"双色历史号码/双色球历史号码.txt"_s); }
    QTemporaryDir dir;
};

TEST_F(Starter, ANewFolderGetsTheDraws) {
    history::putStarterHistory(folder());
    QFile draws(file());
    ASSERT_TRUE(draws.open(QIODevice::ReadOnly));
    QFile shipped(QStringLiteral(SSQ_REAL_DATA "/draws.txt"));
    ASSERT_TRUE(shipped.open(QIODevice::ReadOnly));
    EXPECT_EQ(draws.readAll(), shipped.readAll());
}

TEST_F(Starter, WhatTheUserTookAwayDoesNotComeBack) {
    history::putStarterHistory(folder());
    ASSERT_TRUE(QFile::remove(file()));
    history::putStarterHistory(folder());
    EXPECT_FALSE(QFile::exists(file()));
}

} // namespace
