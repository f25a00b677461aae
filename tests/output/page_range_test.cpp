#include "output/page_range.h"

#include <gtest/gtest.h>

#include "scripted_dialogs.h"

using namespace Qt::StringLiterals;
using namespace output;

namespace {

const QString kPrompt = u"一共 3,000 页。请输入要打印的页，例如 1-20"_s;
const QString kRefused = u"请输入 1 到 3,000 之间的页，例如 5 或 1-20"_s;

TEST(PageRange, IsOnePageOrTwoEndsThatAreThere) {
    EXPECT_EQ(readPageRange(u"5"_s, 9), (PageRange{5, 5}));
    EXPECT_EQ(readPageRange(u" 2 - 9 "_s, 9), (PageRange{2, 9}));
    EXPECT_EQ(readPageRange(u"2~3"_s, 9), (PageRange{2, 3}));
    for (const QString& text : {u""_s, u"0"_s, u"3-2"_s, u"2-10"_s, u"-3"_s, u"2-"_s, u"一"_s, u"99999999999"_s})
        EXPECT_FALSE(readPageRange(text, 9)) << text.toStdString();
}

TEST(PageRange, IsAskedUntilItIsOne) {
    ScriptedDialogs dialogs({asksText(kPrompt, u"0-3"_s), tells(kRefused), asksText(kPrompt, u"7-8"_s)});
    EXPECT_EQ(askPageRange(3000, dialogs), (PageRange{7, 8}));
}

TEST(PageRange, IsNothingOnCancel) {
    ScriptedDialogs dialogs({asksText(kPrompt, {})});
    EXPECT_FALSE(askPageRange(3000, dialogs));
}

} // namespace
