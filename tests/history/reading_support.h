// Readings of history texts without a display: the answers of a user, files in a folder of his own, one workspace.
#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "history/draws_support.h"
#include "history/text_file.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

/// Answers as told and writes down what was shown.
struct Answers : workspace::Dialogs {
    bool confirm(const workspace::Message& question, workspace::Risk) override {
        questions << question.text;
        titles << question.title;
        return confirms.isEmpty() || confirms.takeFirst();
    }
    QString chooseFile(const QString& folder, const QString& filter) override {
        shownFolder = folder;
        shownFilter = filter;
        return picked;
    }
    void tell(const workspace::Message& message) override {
        told << message.text;
        titles << message.title;
        details << message.details;
    }
    void warn(const workspace::Message& message) override { tell(message); }
    std::optional<QString> askText(const QString& prompt, const QString&, const QString&) override {
        ADD_FAILURE() << prompt.toStdString();
        return {};
    }

    QList<bool> confirms;
    QString picked;
    QStringList questions, titles, told, details;
    QString shownFolder, shownFilter;
};

inline const QDateTime kNow(QDate(2025, 9, 30), QTime(8, 5, 3));
inline const QByteArray kTwoDraws = "2003001 10 11 12 13 26 28 11\n2003002 04 09 19 20 21 26 12\n";
inline const QByteArray kOneDraw = "2010001 01 02 03 04 05 06 07\n";

class ReadingTest : public ::testing::Test {
  protected:
    QString standard() const { return workspace::toQString(history::historyTextFile(fresh.workspace)); }

    QString write(const QString& name, const QByteArray& bytes) {
        const QString file = texts.filePath(name);
        QFile out(file);
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(bytes);
        return file;
    }
    QByteArray contents(const QString& file) {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("(no such file)");
    }

    /// \param confirms  answers to the questions in order; OK to those beyond
    history::Reading read(const QString& picked, const QList<bool>& confirms = {}) {
        prepare(picked, confirms);
        return readWhole(history, fresh.workspace, answers, kNow);
    }
    history::Reading append(const QString& picked, const QList<bool>& confirms = {}) {
        prepare(picked, confirms);
        return readAppended(history, fresh.workspace, answers, kNow);
    }

    std::int64_t stored(const char* table = "fig") { return fresh.workspace.dbUser->rowCount(table); }

    FreshWorkspace fresh;
    QTemporaryDir texts;
    history::History history;
    Answers answers;

  private:
    void prepare(const QString& picked, const QList<bool>& confirms) {
        answers = Answers();
        answers.picked = picked;
        answers.confirms = confirms;
    }
};
