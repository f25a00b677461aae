#include "history/book.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "history/reading_support.h"
#include "history/store.h"
#include "scripted_dialogs.h"

namespace {

const std::vector<history::Draw> kTwo{{2003001, 10, 11, 12, 13, 26, 28, 11}, {2003002, 4, 9, 19, 20, 21, 26, 12}};
const history::Draw kThird{2003003, 1, 7, 10, 23, 28, 32, 16};

history::Reading refuses(history::History&, const workspace::Workspace&, workspace::Dialogs&, const QDateTime&) {
    throw std::runtime_error("not read");
}
history::Reading givesUp(history::History&, const workspace::Workspace&, workspace::Dialogs&, const QDateTime&) {
    return history::Reading::Cancelled;
}

/// Every change that is said, as a word, with the count of draws that a listener finds.
class Book : public testing::Test {
  protected:
    Book() {
        history::History stored;
        replaceHistory(stored, fresh.workspace, kTwo);
        book.load(fresh.workspace);
        const auto hear = [this](const QString& word) { heard << word + QString::number(book.history().Lsnum); };
        QObject::connect(&book, &history::Book::appended, [hear] { hear(u"appended "_s); });
        QObject::connect(&book, &history::Book::removed, [hear] { hear(u"removed "_s); });
        QObject::connect(&book, &history::Book::replaced, [hear] { hear(u"replaced "_s); });
        QObject::connect(&book, &history::Book::corrected,
                         [hear](int draw) { hear(u"corrected %1 of "_s.arg(draw)); });
    }

    FreshWorkspace fresh;
    history::Book book;
    QStringList heard;
};

TEST_F(Book, SaysEveryChangeOnceAndWhatItHoldsThen) {
    book.type(fresh.workspace, kThird);
    book.correct(fresh.workspace, 2, 7, 5);
    book.deleteLast(fresh.workspace);
    book.clear(fresh.workspace);
    book.load(fresh.workspace);
    EXPECT_EQ(heard, (QStringList{u"appended 3"_s, u"corrected 2 of 3"_s, u"removed 2"_s, u"replaced 0"_s,
                                  u"replaced 0"_s}));
}

TEST_F(Book, ADeletionThatFindsOtherDrawsInTheTableHasReplacedAll) {
    history::History elsewhere;
    loadHistory(elsewhere, fresh.workspace);
    storeDraw(elsewhere, fresh.workspace, kThird); // memory holds two, the table three
    book.deleteLast(fresh.workspace);
    EXPECT_EQ(heard, QStringList{u"replaced 2"_s});
}

TEST_F(Book, AReadingThatWasGivenUpSaysNothingAndOneThatFailsIsSaid) {
    ScriptedDialogs dialogs({});
    EXPECT_EQ(book.read(givesUp, fresh.workspace, dialogs), history::Reading::Cancelled);
    EXPECT_TRUE(heard.isEmpty());
    EXPECT_THROW(book.read(refuses, fresh.workspace, dialogs), std::runtime_error);
    EXPECT_EQ(heard, QStringList{u"replaced 2"_s});
}

TEST_F(Book, AChangeThatThrowsIsNotSaid) {
    history::History full;
    full.Lsnum = history::kMostDraws;
    full.Lshm.resize(history::kMostDraws + 1);
    full.derived.resize(history::kMostDraws + 1);
    book.replace(full);
    heard.clear();
    EXPECT_THROW(book.type(fresh.workspace, kThird), std::range_error);
    EXPECT_TRUE(heard.isEmpty());
}

} // namespace
