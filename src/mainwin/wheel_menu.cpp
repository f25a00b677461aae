#include "mainwin/wheel_menu.h"

#include <algorithm>

#include "mainwin/menu_table.h"
#include "selection/compound_bets.h"
#include "selection/wheel_proof.h"

using namespace Qt::StringLiterals;
using selection::Guarantee;
using selection::WheelFamily;

namespace mainwin {

namespace {

constexpr int kFirstBankerIndex = 3;
constexpr int kExtendedReds = 18;
constexpr qsizetype kToldCharacters = 60; // of a line that is refused

QString digits(const Guarantee& pair) {
    return QString::number(pair.chosen) + QString::number(pair.common);
}

/// The entry of this name if the menu table has it.
void addIfThere(std::vector<WheelEntry>& entries, const std::vector<MenuRow>& table, WheelEntry entry) {
    const auto row = std::find_if(table.begin(), table.end(), [&](const MenuRow& each) {
        return each.name == entry.name && each.index == entry.index;
    });
    if (row == table.end())
        return;
    entry.plain = row->caption;
    entries.push_back(std::move(entry));
}

QString joined(const std::vector<std::int32_t>& positions) {
    QStringList words;
    for (const std::int32_t position : positions)
        words << QString::number(position);
    return words.join(u' ');
}

/// What a row of this table has to be.
QString rowRule(const selection::WheelTable& table) {
    const int drags = table.problem.positions;
    QString rule = u"每行要有 %1 个不同的位置号，都在 1～%2 之间"_s.arg(selection::wheelFamily(table.family).cells)
                       .arg(drags + table.bankers);
    if (table.bankers > 0)
        rule += u"，其中有全部胆码的位置"_s;
    for (int banker = 1; banker <= table.bankers; ++banker)
        rule += u" %1"_s.arg(drags + banker);
    return rule;
}

} // namespace

std::vector<WheelEntry> wheelEntries() {
    const std::vector<MenuRow> table = menuTable();
    std::vector<WheelEntry> entries;
    for (int reds = 8; reds <= kExtendedReds; ++reds)
        for (const Guarantee& pair : selection::guaranteesOf(WheelFamily::Extended))
            addIfThere(entries, table,
                       {u"mnuKjz%1%2"_s.arg(reds, 2, 10, QChar(u'0')).arg(digits(pair)),
                        -1,
                        {},
                        WheelFamily::Extended,
                        pair,
                        reds});
    for (const Guarantee& pair : selection::guaranteesOf(WheelFamily::Super))
        addIfThere(entries, table, {u"mnuRt"_s + digits(pair), -1, {}, WheelFamily::Super, pair, 0});
    int index = kFirstBankerIndex;
    for (const Guarantee& pair : selection::guaranteesOf(WheelFamily::Banker))
        addIfThere(entries, table, {u"mnuZb"_s, index++, {}, WheelFamily::Banker, pair, 0});
    for (const Guarantee& pair : selection::guaranteesOf(WheelFamily::Seven))
        addIfThere(entries, table, {u"mnuRtF"_s + digits(pair), -1, {}, WheelFamily::Seven, pair, 0});
    return entries;
}

QString wheelCaption(const WheelEntry& entry, const WheelSizes& sizes, std::int64_t rows) {
    const qsizetype cut = entry.plain.indexOf(u'(');
    const QString guarantee = entry.plain.left(cut);
    const QString key = entry.plain.mid(cut);
    const std::int64_t bets = rows * std::max(sizes.blues, 1);
    switch (entry.family) {
    case WheelFamily::Super:
        return u"%1选 %2共计%3注%4"_s.arg(QString::number(sizes.reds), guarantee, QString::number(bets), key);
    case WheelFamily::Banker:
        return u"%1胆%2拖 %3共计%4注%5"_s.arg(QString::number(sizes.bankers), QString::number(sizes.reds), guarantee,
                                              QString::number(bets), key);
    case WheelFamily::Seven:
        return (sizes.blues > 0 ? u"%1蓝球,"_s.arg(sizes.blues) : QString()) +
               u"红球%1选 %2共计%3注,合计 %4 元%5"_s.arg(QString::number(sizes.reds), guarantee,
                                                         QString::number(bets),
                                                         QString::number(bets * selection::kYuanPerCompound), key);
    case WheelFamily::Basic:
    case WheelFamily::Extended:
        break;
    }
    return entry.plain;
}

QString wheelNotice(const selection::WheelTable& table, std::int64_t rows) {
    const auto& [positions, row, chosen, common] = table.problem;
    const int bankers = table.bankers;
    const QString family =
        QString::fromUtf8(selection::wheelFamily(table.family).title.data(),
                          static_cast<qsizetype>(selection::wheelFamily(table.family).title.size()));
    const QString numbers = bankers > 0 ? u"%1胆%2拖"_s.arg(bankers).arg(positions) : u"%1个红球"_s.arg(positions);
    const QString condition = bankers > 0 ? u"胆码全部开出、连胆共开出 %1 个时"_s : u"选中的号码里若有 %1 个开出"_s;
    return u"%1矩阵，%2，中%3保%4：%7，至少有一注含其中 %4 个。共 %5 行，任何矩阵都不少于 %6 行。"_s
        .arg(family, numbers)
        .arg(chosen + bankers)
        .arg(common + bankers)
        .arg(rows)
        .arg(selection::fewestRows(table.problem))
        .arg(condition.arg(chosen + bankers));
}

QString wheelRefusalText(const selection::WheelTable& table, const selection::WheelRefusal& refusal) {
    if (refusal.tooMany)
        return u"行数太多：一张矩阵最多 %1 行。"_s.arg(selection::kMostWheelRows);
    if (refusal.line != 0)
        return u"第 %1 行不是这张矩阵的一行：“%2”。%3。"_s.arg(
            QString::number(refusal.line), QString::fromStdString(refusal.text).left(kToldCharacters).trimmed(),
            rowRule(table));
    return u"保证不成立：位置 %1 全部开出时，没有一行含其中 %2 个。"_s.arg(joined(refusal.uncovered))
        .arg(table.problem.common + table.bankers);
}

} // namespace mainwin
