#include "workspace/dialogs.h"

#include "scripted_dialogs.h"

using namespace Qt::StringLiterals;

namespace {

const QString kPrompt = u"请输入期数"_s;

std::optional<int> ask(const std::vector<DialogCall>& calls) {
    ScriptedDialogs dialogs(calls);
    return static_cast<workspace::Dialogs&>(dialogs).askNumber(kPrompt, u"期数"_s, u"10"_s, {1, 200});
}

TEST(Dialogs, ANumberIsAskedForUntilItIsOneWithinItsLimits) {
    const DialogCall told = tells(u"请输入数字"_s);
    EXPECT_EQ(ask({asksText(kPrompt, u"abc"_s), told, asksText(kPrompt, u"0"_s), told, asksText(kPrompt, u"201"_s),
                   told, asksText(kPrompt, u""_s), told, asksText(kPrompt, u" 200 "_s)}),
              200);
    EXPECT_EQ(ask({asksText(kPrompt, u"1"_s)}), 1);
}

TEST(Dialogs, CancelEndsTheQuestion) {
    EXPECT_EQ(ask({asksText(kPrompt, u"x"_s), tells(u"请输入数字"_s), asksText(kPrompt, std::nullopt)}),
              std::nullopt);
}

} // namespace
