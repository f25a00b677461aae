#include "workspace/user_list.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "workspace/safe_file.h"
#include "workspace/setting_names.h"

using namespace Qt::StringLiterals;

namespace {

using workspace::Settings;
using workspace::UserList;

class Users : public ::testing::Test {
  protected:
    QString stored(const QString& section, const QString& key) const {
        return Settings(settings.file().parent_path()).value(u"AHXLOTQ"_s, section, key, u"(none)"_s);
    }
    QStringList names() const {
        QStringList list;
        Settings again(settings.file().parent_path());
        const UserList users(again);
        for (const UserList::User& user : users.users())
            list << user.name;
        return list;
    }
    QTemporaryDir dir;
    Settings settings{workspace::toPath(dir.path())};
};

TEST_F(Users, ANewListIsEmptyWithNobodySelected) {
    const UserList users(settings);
    EXPECT_EQ(users.count(), 0);
    EXPECT_EQ(users.lastEntered(), -1);
    EXPECT_EQ(users.proposedName(), u"新用户1"_s);
}

TEST_F(Users, AUserIsWrittenAtOnce) {
    UserList users(settings);
    EXPECT_EQ(users.add(u"张三"_s, u"密码"_s), 0);
    EXPECT_EQ(stored(u"Option"_s, u"Usernum"_s), u"1"_s);
    EXPECT_EQ(stored(u"Username1"_s, u"Name"_s), u"张三"_s);
    EXPECT_EQ(stored(u"Username1"_s, u"Password"_s), u"密码"_s);
    EXPECT_EQ(users.proposedName(), u"新用户2"_s);
}

TEST_F(Users, AnEmptyNameReadsAsNewUserAndNumber) {
    UserList users(settings);
    users.add(u"张三"_s, {});
    users.add(QString(), {});
    EXPECT_EQ(users.users()[1].name, QString()); // as it was typed, until the next start
    EXPECT_EQ(names(), (QStringList{u"张三"_s, u"新用户2"_s}));
}

TEST_F(Users, NamesThatDifferInCaseAreTwoUsers) {
    UserList users(settings);
    users.add(u"Li"_s, {});
    EXPECT_TRUE(users.isTaken(u"Li"_s));
    EXPECT_FALSE(users.isTaken(u"li"_s));
}

TEST_F(Users, LaterUsersMoveDownWhenOneIsDeleted) {
    UserList users(settings);
    for (const QString& name : {u"一"_s, u"二"_s, u"三"_s})
        users.add(name, name + u"口令"_s);
    users.remove(0);
    EXPECT_EQ(names(), (QStringList{u"二"_s, u"三"_s}));
    EXPECT_EQ(stored(u"Username1"_s, u"Password"_s), u"二口令"_s);
    EXPECT_EQ(stored(u"Username3"_s, u"Name"_s), u"三"_s); // out of reach, as it was
    EXPECT_EQ(stored(u"Option"_s, u"Usernum"_s), u"2"_s);
}

TEST_F(Users, DeletingTheLastUserLeavesNone) {
    UserList users(settings);
    users.add(u"一"_s, {});
    users.remove(0);
    EXPECT_EQ(users.count(), 0);
    EXPECT_EQ(stored(u"Option"_s, u"Usernum"_s), u"0"_s);
}

TEST_F(Users, TheOneWhoEnteredLastIsRememberedButNoFurtherThanTheLastUser) {
    UserList users(settings);
    users.add(u"一"_s, {});
    users.add(u"二"_s, {});
    users.noteEntered(1);
    EXPECT_EQ(stored(u"Option"_s, u"Ftopt"_s), u"2"_s);
    EXPECT_EQ(UserList(settings).lastEntered(), 1);
    settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Ftopt"_s, 7);
    EXPECT_EQ(UserList(settings).lastEntered(), 1);
}

TEST_F(Users, AfterADeletionTheLastPositionIsThatOfTheNextStart) {
    const struct { int entered, removed, then; } cases[] = {{2, 2, 1}, {2, 0, 1}, {1, 0, 1}, {0, 2, 0}, {1, 1, 1}};
    for (const auto& [entered, removed, then] : cases) {
        settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Usernum"_s, 0);
        UserList users(settings);
        for (const QString& name : {u"一"_s, u"二"_s, u"三"_s})
            users.add(name, {});
        users.noteEntered(entered);
        users.remove(removed);
        EXPECT_EQ(users.lastEntered(), then) << entered << " had entered, " << removed << " was deleted";
        EXPECT_EQ(UserList(settings).lastEntered(), then);
    }
    UserList users(settings);
    users.remove(1);
    users.remove(0);
    EXPECT_EQ(users.lastEntered(), -1);
    EXPECT_EQ(UserList(settings).lastEntered(), -1);
}

TEST_F(Users, ACountThatIsNoNumberIsToldAndTheUsersStay) {
    UserList(settings).add(u"张三"_s, u"密码"_s);
    UserList(settings).add(u"李四"_s, {});
    settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Usernum"_s, u"many"_s);
    const UserList users(settings);
    EXPECT_EQ(users.troubles(), QStringList{u"类型不匹配: \"many\" (Usernum)"_s});
    ASSERT_EQ(users.count(), 2);
    EXPECT_EQ(users.users()[1].name, u"李四"_s);
}

TEST_F(Users, ALastPositionThatIsNoNumberIsToldAndNobodyIsSelected) {
    UserList(settings).add(u"张三"_s, {});
    settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Ftopt"_s, u"x"_s);
    const UserList users(settings);
    EXPECT_EQ(users.troubles(), QStringList{u"类型不匹配: \"x\" (Ftopt)"_s});
    EXPECT_EQ(users.count(), 1);
    EXPECT_EQ(users.lastEntered(), -1);
}

TEST_F(Users, ANewUserInheritsNoSettingsButTheyAreKept) {
    settings.set(u"张三QS"_s, u"Initial"_s, u"Bitnum"_s, 38);
    UserList users(settings);
    users.add(u"张三"_s, {});
    EXPECT_EQ(settings.number(u"张三QS"_s, u"Initial"_s, u"Bitnum"_s, u"33"_s), 33);
    QFile file(workspace::toQString(settings.file()));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QString::fromUtf8(file.readAll()).contains(u"张三QS 保存 "_s));
    settings.set(u"李四QS"_s, u"Initial"_s, u"Bitnum"_s, 37);
    users.rename(0, u"李四"_s, {}); // back to a workspace that stands
    EXPECT_EQ(settings.number(u"李四QS"_s, u"Initial"_s, u"Bitnum"_s, u"33"_s), 37);
    users.rename(0, u"李四"_s, {}, UserList::Workspace::New);
    EXPECT_EQ(settings.number(u"李四QS"_s, u"Initial"_s, u"Bitnum"_s, u"33"_s), 33);
}

TEST_F(Users, AnEmptyNameIsTakenWhenItWouldReadAsAnother) {
    UserList users(settings);
    users.add(u"新用户2"_s, {});
    EXPECT_TRUE(users.isTaken({})); // the second user without a name would read as 新用户2
    users.rename(0, u"一"_s, {});
    EXPECT_FALSE(users.isTaken({}));
    users.add({}, {});
    EXPECT_TRUE(users.isTaken({}));
    EXPECT_TRUE(users.isTaken(u"新用户2"_s));
}

TEST_F(Users, FilesThatTwoEntriesUseAreKnown) {
    settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Usernum"_s, 3);
    settings.set(u"AHXLOTQ"_s, u"Username1"_s, u"Name"_s, u"张三"_s);
    settings.set(u"AHXLOTQ"_s, u"Username2"_s, u"Name"_s, u"张三"_s);
    settings.set(u"AHXLOTQ"_s, u"Username3"_s, u"Name"_s, u"李四"_s);
    const UserList users(settings);
    EXPECT_TRUE(users.sharesFolder(0));
    EXPECT_FALSE(users.sharesFolder(2));
}

TEST_F(Users, TheListEndsAt1023) {
    settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Usernum"_s, 2000);
    UserList users(settings);
    EXPECT_EQ(users.count(), 1023);
    EXPECT_EQ(users.add(u"一"_s, {}), -1);
    settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Usernum"_s, -3);
    EXPECT_EQ(UserList(settings).count(), 0);
}

} // namespace
