#include "workspace/user_settings.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class UserSettings : public testing::Test {
  protected:
    QTemporaryDir folder;
    workspace::Settings settings{folder.path().toStdString()};
    workspace::UserSettings ofZhang{settings, u"张三"_s};
};

TEST_F(UserSettings, LieUnderTheUsersOwnApplication) {
    ofZhang.set(u"Initial"_s, u"Bitnum"_s, 30);
    EXPECT_EQ(settings.value(u"张三QS"_s, u"Initial"_s, u"Bitnum"_s), u"30"_s);
    EXPECT_EQ(ofZhang.number(u"Initial"_s, u"Bitnum"_s, u"33"_s), 30);
    EXPECT_EQ(workspace::UserSettings(settings, u"李四"_s).number(u"Initial"_s, u"Bitnum"_s, u"33"_s), 33);
}

TEST_F(UserSettings, ANumberThatIsNoneIsItsDefaultAndRemembered) {
    ofZhang.set(u"setup"_s, u"dayin"_s, u"many"_s);
    EXPECT_TRUE(ofZhang.troubles().isEmpty());
    EXPECT_EQ(ofZhang.number(u"setup"_s, u"dayin"_s, u"5"_s), 5);
    ASSERT_EQ(ofZhang.troubles().size(), 1);
    EXPECT_TRUE(ofZhang.troubles().front().contains(u"dayin"_s));
    EXPECT_EQ(ofZhang.value(u"setup"_s, u"dayin"_s), u"many"_s) << "what stands there is not touched";
}

} // namespace
