#include "workspace/settings.h"

#include <sys/stat.h>

#include <random>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace {

using workspace::Settings;
using workspace::toNumber;

class SettingsFile : public ::testing::Test {
  protected:
    std::filesystem::path folder() const { return workspace::toPath(dir.path()) / "配置"; }
    QTemporaryDir dir;
};

TEST_F(SettingsFile, AValueIsThereForTheNextStart) {
    Settings(folder()).set(u"张三QS"_s, u"Initial"_s, u"Bitnum"_s, u"35"_s);
    const Settings again(folder());
    EXPECT_EQ(again.value(u"张三QS"_s, u"Initial"_s, u"Bitnum"_s, u"33"_s), u"35"_s);
    EXPECT_EQ(again.value(u"张三QS"_s, u"Initial"_s, u"BitnumB"_s, u"16"_s), u"16"_s);
    EXPECT_EQ(again.value(u"李四QS"_s, u"Initial"_s, u"Bitnum"_s, u"33"_s), u"33"_s);
}

TEST_F(SettingsFile, TwoProgramsKeepEachOthersValues) {
    Settings one(folder());
    Settings two(folder());
    one.set(u"A"_s, u"s"_s, u"one"_s, 1);
    two.set(u"A"_s, u"s"_s, u"two"_s, 2);
    one.set(u"A"_s, u"s"_s, u"three"_s, 3);
    const Settings again(folder());
    for (const auto& [key, value] : {std::pair(u"one"_s, 1), std::pair(u"two"_s, 2), std::pair(u"three"_s, 3)})
        EXPECT_EQ(again.number(u"A"_s, u"s"_s, key, u"0"_s), value);
}

TEST_F(SettingsFile, AnyTextSurvivesInNamesAndValues) {
    std::mt19937 random(99);
    const QString favourites = u"\\\t\n\r=[]%\"' u红;#\u0001\u2028"_s + QChar(0) + QChar(0xD800) + QChar(0xDC00);
    const auto anyText = [&] {
        QString text;
        for (auto left = random() % 9; left > 0; --left)
            text += random() % 3 ? favourites[static_cast<qsizetype>(random() % favourites.size())]
                                 : QChar(static_cast<char16_t>(random() % 0x10000));
        return text;
    };
    std::map<std::array<QString, 3>, QString> written;
    Settings settings(folder());
    for (int round = 0; round < 150; ++round) {
        const std::array<QString, 3> name{anyText(), anyText(), anyText()};
        written[name] = anyText();
        ASSERT_TRUE(settings.set(name[0], name[1], name[2], written[name]));
    }
    const Settings again(folder());
    for (const auto& [name, text] : written)
        EXPECT_EQ(again.value(name[0], name[1], name[2], u"lost"_s), text);
}

TEST_F(SettingsFile, ADamagedLineIsSkipped) {
    Settings(folder()).set(u"A"_s, u"s"_s, u"k"_s, u"v"_s);
    QFile file(workspace::toQString(Settings(folder()).file()));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("half a line\tof\n\xFF\xFE\nA\ts\tu\t\\u12");
    file.close();
    EXPECT_EQ(Settings(folder()).value(u"A"_s, u"s"_s, u"k"_s), u"v"_s);
}

TEST_F(SettingsFile, ADamagedFileIsKeptBesideBeforeItIsWritten) {
    Settings(folder()).set(u"A"_s, u"s"_s, u"k"_s, u"v"_s);
    const QString path = workspace::toQString(Settings(folder()).file());
    EXPECT_TRUE(Settings(folder()).trouble().isEmpty());
    const QByteArray damage = "half a line\nA\ts\tk2\tv2\n\xFF\t\t\t\n" + QByteArray(50, '\0');
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(damage);
    }
    Settings damaged(folder());
    EXPECT_TRUE(damaged.trouble().contains(u"3 行损坏"_s)) << damaged.trouble().toStdString();
    EXPECT_EQ(damaged.value(u"A"_s, u"s"_s, u"k2"_s), u"v2"_s);
    damaged.set(u"A"_s, u"s"_s, u"k3"_s, u"v3"_s);
    EXPECT_TRUE(Settings(folder()).trouble().isEmpty()); // the file is sound again
    EXPECT_EQ(Settings(folder()).value(u"A"_s, u"s"_s, u"k"_s), u"v"_s);
    int kept = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder()))
        if (entry.path().filename().string().starts_with("settings.damaged-")) {
            ++kept;
            QFile file(workspace::toQString(entry.path()));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            EXPECT_TRUE(file.readAll().endsWith(damage));
        }
    EXPECT_EQ(kept, 1);
}

TEST_F(SettingsFile, AFolderOrAPipeInItsPlaceIsToldAndDoesNotHang) {
    std::filesystem::create_directories(folder() / "settings");
    EXPECT_FALSE(Settings(folder()).trouble().isEmpty());
    std::filesystem::remove(folder() / "settings");
    ASSERT_EQ(::mkfifo((folder() / "settings").c_str(), 0600), 0);
    Settings settings(folder());
    EXPECT_FALSE(settings.trouble().isEmpty());
    EXPECT_FALSE(settings.set(u"A"_s, u"s"_s, u"k"_s, u"v"_s));
    EXPECT_EQ(settings.value(u"A"_s, u"s"_s, u"k"_s), u"v"_s);
    EXPECT_TRUE(std::filesystem::is_fifo(folder() / "settings"));
}

TEST_F(SettingsFile, OnlyItsOwnerReadsIt) {
    Settings(folder()).set(u"A"_s, u"s"_s, u"k"_s, u"v"_s);
    const auto rights = std::filesystem::status(folder() / "settings").permissions();
    EXPECT_EQ(rights & std::filesystem::perms::mask,
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    std::filesystem::permissions(folder() / "settings", std::filesystem::perms::all);
    Settings(folder()).set(u"A"_s, u"s"_s, u"k"_s, u"w"_s);
    EXPECT_EQ(std::filesystem::status(folder() / "settings").permissions() & std::filesystem::perms::mask,
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(SettingsFile, SeveralValuesAreOneWrite) {
    Settings settings(folder());
    settings.set(u"A"_s, u"s"_s, u"old"_s, u"1"_s);
    EXPECT_TRUE(settings.write({{u"A"_s, u"s"_s, u"new"_s, u"2"_s}, {u"A"_s, u"s"_s, u"old"_s, std::nullopt}}));
    const Settings again(folder());
    EXPECT_EQ(again.value(u"A"_s, u"s"_s, u"new"_s), u"2"_s);
    EXPECT_EQ(again.value(u"A"_s, u"s"_s, u"old"_s, u"gone"_s), u"gone"_s);
    EXPECT_EQ(again.valuesOf(u"A"_s).size(), 1u);
}

TEST_F(SettingsFile, WhatCannotBeWrittenHoldsUntilTheEnd) {
    QFile blocker(dir.filePath(u"配置"_s)); // a file where the folder should be
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    Settings settings(folder());
    EXPECT_FALSE(settings.set(u"A"_s, u"s"_s, u"one"_s, u"1"_s));
    EXPECT_FALSE(settings.set(u"A"_s, u"s"_s, u"two"_s, u"2"_s));
    EXPECT_EQ(settings.value(u"A"_s, u"s"_s, u"one"_s), u"1"_s);
}

TEST_F(SettingsFile, TheFolderIsTheUsersConfigurationFolder) {
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    EXPECT_EQ(Settings::defaultFolder(), workspace::toPath(dir.path()) / "ssqdesk");
    qunsetenv("XDG_CONFIG_HOME");
}

TEST_F(SettingsFile, ANumberIsDueAsANumber) {
    Settings settings(folder());
    settings.set(u"A"_s, u"s"_s, u"k"_s, u"三十三"_s);
    EXPECT_THROW(settings.number(u"A"_s, u"s"_s, u"k"_s, u"33"_s), workspace::ConversionError);
    EXPECT_EQ(settings.number(u"A"_s, u"s"_s, u"other"_s, u"33"_s), 33);
}

TEST(ToNumber, TakesWholeNumbersAndRoundsHalvesToTheEvenSide) {
    EXPECT_EQ(toNumber(u"33"_s), 33);
    EXPECT_EQ(toNumber(u" -7 "_s), -7);
    EXPECT_EQ(toNumber(u"2.5"_s), 2);
    EXPECT_EQ(toNumber(u"3.5"_s), 4);
    EXPECT_EQ(toNumber(u"32767"_s), 32767);
}

TEST(ToNumber, RefusesEverythingElse) {
    for (const QString& text :
         {u""_s, u" "_s, u"3a"_s, u"a3"_s, u"nan"_s, u"inf"_s, u"32768"_s, u"-32769"_s, u"1 2"_s})
        EXPECT_THROW(toNumber(text), workspace::ConversionError) << text.toStdString();
}

} // namespace
