// What the wheel entries are called, with blues and without, and what a window says of its wheel.
#include "mainwin/wheel_menu.h"

#include <algorithm>
#include <map>

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using selection::WheelFamily;

namespace mainwin {
namespace {

std::vector<WheelEntry> entriesOf(WheelFamily family) {
    std::vector<WheelEntry> entries = wheelEntries();
    std::erase_if(entries, [family](const WheelEntry& entry) { return entry.family != family; });
    return entries;
}

/// The captions of a family, in the order of its menu.
QStringList captions(WheelFamily family, const WheelSizes& sizes, std::int64_t rows) {
    QStringList all;
    for (const WheelEntry& entry : entriesOf(family))
        all << wheelCaption(entry, sizes, rows);
    return all;
}

QString notice(WheelFamily family, std::string_view table, std::int64_t rows) {
    return wheelNotice(*selection::wheelTableNamed(family, table), rows);
}

TEST(WheelMenu, SuperWheelsTellTheirBets) {
    EXPECT_EQ(captions(WheelFamily::Super, {9, 0, 0}, 12),
              (QStringList{u"9选 中5保4共计12注(&F)"_s, u"9选 中6保4共计12注(&O)"_s, u"9选 中7保4共计12注(&N)"_s,
                           u"9选 中5保5共计12注(&V)"_s, u"9选 中6保5共计12注(&I)"_s, u"9选 中7保5共计12注(&E)"_s,
                           u"9选 中7保6共计12注(&S)"_s}));
    EXPECT_EQ(captions(WheelFamily::Super, {12, 2, 3}, 40).front(), u"12选 中5保4共计120注(&F)"_s);
}

TEST(WheelMenu, BankerWheelsTellBankersAndDrags) {
    EXPECT_EQ(captions(WheelFamily::Banker, {10, 2, 0}, 7),
              (QStringList{u"2胆10拖 中4保4共计7注(&U)"_s, u"2胆10拖 中5保4共计7注(&F)"_s,
                           u"2胆10拖 中5保5共计7注(&V)"_s, u"2胆10拖 中6保5共计7注(&I)"_s}));
    EXPECT_EQ(captions(WheelFamily::Banker, {10, 1, 16}, 7).back(), u"1胆10拖 中6保5共计112注(&I)"_s);
}

TEST(WheelMenu, CompoundWheelsTellTheirPrice) {
    EXPECT_EQ(captions(WheelFamily::Seven, {10, 0, 0}, 5),
              (QStringList{u"红球10选 中4保4共计5注,合计 70 元(&F)"_s, u"红球10选 中5保4共计5注,合计 70 元(&F)"_s,
                           u"红球10选 中6保4共计5注,合计 70 元(&O)"_s, u"红球10选 中7保4共计5注,合计 70 元(&N)"_s,
                           u"红球10选 中5保5共计5注,合计 70 元(&V)"_s, u"红球10选 中6保5共计5注,合计 70 元(&I)"_s,
                           u"红球10选 中7保5共计5注,合计 70 元(&E)"_s, u"红球10选 中6保6共计5注,合计 70 元(&X)"_s,
                           u"红球10选 中7保6共计5注,合计 70 元(&S)"_s}));
    EXPECT_EQ(captions(WheelFamily::Seven, {10, 0, 2}, 5).front(),
              u"2蓝球,红球10选 中4保4共计10注,合计 140 元(&F)"_s);
}

TEST(WheelMenu, ThePriceOfManyRowsIsExact) {
    EXPECT_EQ(captions(WheelFamily::Seven, {38, 0, 18}, 12'620'256).back(),
              u"18蓝球,红球38选 中7保6共计227164608注,合计 3180304512 元(&S)"_s);
}

TEST(WheelMenu, ExtendedWheelsKeepTheirNamesAndAreOfOneCountEach) {
    const std::vector<WheelEntry> entries = entriesOf(WheelFamily::Extended);
    EXPECT_EQ(entries.size(), 57U);
    std::map<int, int> ofReds;
    for (const WheelEntry& entry : entries) {
        ++ofReds[entry.reds];
        EXPECT_EQ(wheelCaption(entry, {entry.reds, 0, 3}, 100), entry.plain);
        EXPECT_EQ(
            entry.name,
            u"mnuKjz%1%2%3"_s.arg(entry.reds, 2, 10, QChar(u'0')).arg(entry.pair.chosen).arg(entry.pair.common));
    }
    EXPECT_EQ(ofReds,
              (std::map<int, int>{
                  {8, 1}, {9, 2}, {10, 6}, {11, 6}, {12, 6}, {13, 6}, {14, 6}, {15, 6}, {16, 6}, {17, 6}, {18, 6}}));
    EXPECT_EQ(entries.front().plain, u"红球中7保6(&S)"_s);
}

TEST(WheelMenu, TheBankerEntriesAreAnArrayFromThreeOn) {
    std::vector<int> places;
    for (const WheelEntry& entry : entriesOf(WheelFamily::Banker))
        places.push_back(entry.index);
    EXPECT_EQ(places, (std::vector<int>{3, 4, 5, 6}));
}

TEST(WheelMenu, TheNoticeTellsTheGuaranteeItsSizeAndTheLeastThatIsPossible) {
    EXPECT_EQ(notice(WheelFamily::Basic, "8", 4),
              u"基本矩阵，8个红球，中6保5：选中的号码里若有 6 个开出，至少有一注含其中 5 个。共 4 行，"
              u"任何矩阵都不少于 3 行。"_s);
}

TEST(WheelMenu, TheNoticeOfABankerWheelCountsOnItsBankers) {
    EXPECT_EQ(notice(WheelFamily::Banker, "26754", 2),
              u"胆拖矩阵，2胆5拖，中5保4：胆码全部开出、连胆共开出 5 个时，至少有一注含其中 4 个。共 2 行，"
              u"任何矩阵都不少于 1 行。"_s);
}

} // namespace
} // namespace mainwin
