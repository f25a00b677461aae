#include "workspace/paths.h"

#include <map>
#include <random>

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace {

using workspace::folderName;
using workspace::userOfFolder;

TEST(FolderName, AnOrdinaryNameIsItsOwnFolder) {
    for (const QString& name : {u"张先生[北京体彩36选7]"_s, u"user 1"_s, u"新用户1"_s, u"a.b"_s, u"😀"_s})
        EXPECT_EQ(folderName(name), name);
}

TEST(FolderName, WhatAFolderCannotHoldIsEscaped) {
    EXPECT_EQ(folderName(u"a/b"_s), u"a%2Fb"_s);
    EXPECT_EQ(folderName(u"a\\b"_s), u"a%5Cb"_s);
    EXPECT_EQ(folderName(u"a%2Fb"_s), u"a%252Fb"_s); // differs from a/b only by the escape
    EXPECT_EQ(folderName(u".."_s), u"%2E."_s);
    EXPECT_EQ(folderName(u"."_s), u"%2E"_s);
    EXPECT_EQ(folderName(u""_s), u"%"_s);
    EXPECT_EQ(folderName(u"%"_s), u"%25"_s);
    EXPECT_EQ(folderName(QString(QChar(0))), u"%00"_s);
    EXPECT_EQ(folderName(QString(QChar(0xD800))), u"%uD800"_s);
}

TEST(FolderName, ANameThatIsTakenIsEscaped) {
    EXPECT_EQ(folderName(u"filnum"_s), u"%66ilnum"_s); // its database would be the combination database
    EXPECT_EQ(folderName(u"Gailv.mdb"_s), u"%47ailv.mdb"_s);
    EXPECT_EQ(folderName(u"双色历史号码"_s), u"%u53CC色历史号码"_s);
    EXPECT_EQ(userOfFolder(u"%u53CC色历史号码"_s), u"双色历史号码"_s);
}

TEST(FolderName, AnOverLongNameIsCutAndStillItsOwn) {
    const QString one = folderName(QString(300, u'双') + u"一"_s);
    const QString two = folderName(QString(300, u'双') + u"二"_s);
    EXPECT_NE(one, two);
    EXPECT_LE(one.toUtf8().size(), 160);
    EXPECT_LE(folderName(QString(300, u'/')).toUtf8().size(), 160);
    EXPECT_EQ(folderName(QString(160, u'a')), QString(160, u'a'));
    EXPECT_FALSE(userOfFolder(one));
}

TEST(FolderName, AnOverLongNameIsNotCutInsideACodeOrACharacter) {
    const struct {
        QString unit, written;
    } units[] = {{QString(QChar(0xD800)), u"%uD800"_s}, {u"/"_s, u"%2F"_s}, {u"双"_s, u"双"_s}, {u"😀"_s, u"😀"_s}};
    for (const auto& [unit, written] : units)
        for (int letters = 0; letters <= 6; ++letters) {
            const QString name = folderName(QString(letters, u'a') + unit.repeated(200));
            const QString start = name.section(u"%~"_s, 0, 0);
            const qsizetype length = written.toUtf8().size();
            const qsizetype whole = (96 - letters) / length; // as many as 96 bytes hold
            EXPECT_EQ(start.toStdString(), (QString(letters, u'a') + written.repeated(whole)).toStdString());
        }
}

TEST(FolderName, NamesOfDifferentCaseAreDifferentFolders) {
    EXPECT_NE(folderName(u"Li"_s), folderName(u"li"_s));
}

TEST(FolderName, EveryNameHasAFolderOfItsOwnInsideTheProgramsFolder) {
    QTemporaryDir dir;
    const std::filesystem::path program = workspace::toPath(dir.path());
    std::mt19937 random(31);
    const QString favourites = u"/\\.%~uD8002F:*?\"<>| \n\t双filnum"_s + QChar(0) + QChar(0xD83D) + QChar(0xDE00);
    std::map<QString, QString> owners;
    for (int round = 0; round < 4000; ++round) {
        QString name;
        for (auto left = random() % (round % 50 ? 8 : 400); left > 0; --left)
            name += favourites[static_cast<qsizetype>(random() % favourites.size())];
        const QString folder = folderName(name);
        const auto [owner, fresh] = owners.emplace(folder, name);
        ASSERT_TRUE(fresh || owner->second == name) << folder.toStdString();
        ASSERT_FALSE(folder.contains(u'/') || folder.startsWith(u'.') || folder.contains(QChar(0)));
        ASSERT_EQ(workspace::userFolder(program, name).parent_path(), program);
        ASSERT_EQ(workspace::underFolder(program, workspace::userDbFragment(name)).parent_path(),
                  workspace::userFolder(program, name));
        if (!folder.contains(u"%~"_s)) {
            ASSERT_EQ(userOfFolder(folder), name);
        }
        if (round % 20 == 0) {
            ASSERT_TRUE(std::filesystem::create_directories(workspace::userFolder(program, name)) || !fresh ||
                        std::filesystem::exists(workspace::userFolder(program, name)));
        }
    }
}

TEST(Paths, FragmentsAreAppendedToTheProgramsFolder) {
    EXPECT_EQ(workspace::userDbFragment(u"张三"_s), u"\\张三\\张三.mdb"_s);
    EXPECT_EQ(workspace::userDbFragmentR(u"张三"_s), u"\\张三\\张三R.mdb"_s);
    EXPECT_EQ(workspace::historyTextFragment(u"张三"_s), u"\\双色历史号码\\张三 双色号码.TXT"_s);
    EXPECT_EQ(workspace::underFolder("/p", u"\\张三\\张三.mdb"_s), std::filesystem::path("/p/张三/张三.mdb"));
}

TEST(Paths, TheHomeVariableNamesTheProgramsFolder) {
    QTemporaryDir dir;
    qputenv("SSQDESK_HOME", dir.filePath(u"新 家"_s).toUtf8());
    EXPECT_EQ(workspace::programFolder(), workspace::toPath(dir.filePath(u"新 家"_s)));
    EXPECT_TRUE(std::filesystem::is_directory(workspace::programFolder()));
    qunsetenv("SSQDESK_HOME");
}

} // namespace
