#include "selection/ranked_numbers.h"

#include <algorithm>
#include <limits>
#include <string>

#include "base/number_text.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

/// Where the statistics of a colour lie, by its place in Colour.
struct ColourTables {
    QStringView name;
    const char* shares;  ///< of the whole history
    const char* working; ///< the copy that a range is counted into
    const char* absences;
    int firstPlace; ///< its columns in fig: fig{firstPlace}..fig{lastPlace}
    int lastPlace;
};

constexpr ColourTables kColourTables[] = {
    {u"红球", "Gailv", "Gailvtmp", "Ylqs", 1, 6},
    {u"蓝球", "GailvB", "GailvtmpB", "YlqsB", 7, 7},
};

const ColourTables& tablesOf(Colour colour) {
    return kColourTables[static_cast<std::size_t>(colour)];
}

constexpr std::size_t kSlots = Pad::kMostReds + 1; // a place for each number of either colour, from 1

/// The condition that keeps the draws of a range.
std::string rangeCondition(const RankingSource& source) {
    const DrawRange& range = source.range;
    if (range.kind == DrawRange::Kind::Issues)
        return "[fig0] >= " + std::to_string(range.firstIssue) + " AND [fig0] <= " + std::to_string(range.lastIssue);
    return "[Idx] > " + std::to_string(std::int64_t{source.Lsnum} - range.draws);
}

using Hits = std::array<std::int64_t, kSlots>;

/// How often each number stands in the places of its colour, over the draws of the range.
Hits countHits(const RankingSource& source, const ColourTables& tables) {
    std::string columns;
    for (int place = tables.firstPlace; place <= tables.lastPlace; ++place)
        columns += (columns.empty() ? "[fig" : ",[fig") + std::to_string(place) + "]";
    const sql::Rows draws = source.dbUser.query("SELECT " + columns + " FROM [fig] WHERE " + rangeCondition(source));
    Hits hits{};
    for (std::int64_t draw = 0; draw < draws.count(); ++draw)
        for (int column = 0; column < draws.columnCount(); ++column) {
            const std::int64_t number = draws.integerAt(draw, column);
            if (number >= 1 && number < std::int64_t{kSlots})
                ++hits[static_cast<std::size_t>(number)];
        }
    return hits;
}

/// Fills the working copy: 0 in every row, then the hits of each number of the rule.
void countIntoCopy(const RankingSource& source, const ColourTables& tables, int highest) {
    const Hits hits = countHits(source, tables);
    sql::Transaction whole(source.dbUser);
    source.dbUser.execute("UPDATE [" + std::string(tables.working) + "] SET [gailv]=0");
    sql::Recordset rows = source.dbUser.openRecordset(tables.working);
    const int numberField = rows.fieldIndex("Number");
    const int shareField = rows.fieldIndex("gailv");
    for (; !rows.eof(); rows.moveNext()) {
        const std::int64_t number = sql::toInteger(rows.field(numberField));
        if (number < 1 || number > highest)
            continue;
        rows.edit();
        rows.set(shareField, hits[static_cast<std::size_t>(number)]);
        rows.update();
    }
    whole.commit();
}

std::vector<int> byFrequency(const RankingSource& source, const RankedSelection& selection, int highest) {
    const ColourTables& tables = tablesOf(selection.colour);
    const bool whole = source.range.kind == DrawRange::Kind::All;
    if (!whole)
        countIntoCopy(source, tables, highest);
    sql::Recordset rows =
        source.dbUser.openRecordset("SELECT * FROM [" + std::string(whole ? tables.shares : tables.working) +
                                    "] ORDER BY [Gailv]" + (selection.ranking == Ranking::Frequent ? " DESC" : ""));
    std::vector<int> numbers;
    for (const int field = rows.fieldIndex("Number"); !rows.eof(); rows.moveNext())
        if (const std::int64_t number = sql::toInteger(rows.field(field)); number >= 1 && number <= highest)
            numbers.push_back(static_cast<int>(number));
    return numbers;
}

/// By the last row of the omissions, in the order of the numbers; none while no draw is held.
std::vector<int> byAbsence(const RankingSource& source, const RankedSelection& selection, int draws, int highest) {
    sql::Recordset rows = source.dbUser.openRecordset(tablesOf(selection.colour).absences);
    std::vector<int> numbers;
    if (rows.recordCount() == 0)
        return numbers;
    rows.moveLast();
    for (int number = 1; number <= highest; ++number) {
        const sql::Value absent = rows.field("ylqs" + std::to_string(number));
        const bool fits = selection.ranking == Ranking::LongAbsent ? sql::toInteger(absent) >= draws
                                                                   : sql::toInteger(absent) <= draws;
        if (!sql::isNull(absent) && fits)
            numbers.push_back(number);
    }
    return numbers;
}

QString plainPrompt(const RankedSelection& selection) {
    switch (selection.ranking) {
    case Ranking::Frequent:
        return u"请在下面填写需要选择的%"
               u"1历史号码中高频（出现概率比较大）的号码的个数，软件将从高到底自动检索相应个数的"
               "号码并选号"_s;
    case Ranking::Rare:
        return u"请在下面填写需要选择的%"
               u"1历史号码中低频（出现概率比较小）的号码的个数，软件将从高到底自动检索相应个数的"
               "号码并选号"_s;
    case Ranking::LongAbsent:
        return u"请在下面填写需要选择的%1遗漏次数高于的条件（比如填“%2”将选择遗漏次数大于或等于“%2”的号码），"
               "软件将自动检索相应号码并选号"_s;
    case Ranking::ShortAbsent:
        break;
    }
    return u"请在下面填写需要选择的%1遗漏次数低于的条件（比如填“%2”将选择遗漏次数小于或等于“%2”的号码），"
           "软件将自动检索相应号码并选号"_s;
}

} // namespace

QString rankedPrompt(const RankedSelection& selection, PromptStyle style) {
    const QString colour = style == PromptStyle::NamesColour ? tablesOf(selection.colour).name.toString() : QString();
    const QString prompt = plainPrompt(selection).arg(colour);
    return isFrequency(selection.ranking) ? prompt : prompt.arg(selection.proposed);
}

std::optional<int> askRankedNumber(workspace::Dialogs& dialogs, const RankedSelection& selection, PromptStyle style) {
    constexpr double kLeast = std::numeric_limits<std::int16_t>::min();
    constexpr double kMost = std::numeric_limits<std::int16_t>::max();
    for (;;) {
        const std::optional<QString> answer = dialogs.askText(
            rankedPrompt(selection, style), selection.title.toString(), QString::number(selection.proposed));
        if (!answer)
            return std::nullopt;
        const std::optional<double> number = base::leadingNumber(answer->toStdString());
        if (number && *number >= kLeast && *number <= kMost)
            return base::wholeWithin(*number, INT16_MIN, INT16_MAX);
        dialogs.tell(u"请输入数字"_s, u"输入错误"_s);
    }
}

int drawsIn(const history::History& history, const DrawRange& range) {
    if (range.kind == DrawRange::Kind::All)
        return history.Lsnum;
    if (range.kind == DrawRange::Kind::Latest)
        return std::clamp(range.draws, 0, history.Lsnum);
    const auto draws = std::span(history.Lshm).subspan(1, static_cast<std::size_t>(history.Lsnum));
    return static_cast<int>(std::count_if(draws.begin(), draws.end(), [&](const history::Draw& draw) {
        return draw[0] >= range.firstIssue && draw[0] <= range.lastIssue;
    }));
}

RankedPick pickNumbers(const RankingSource& source, const RankedSelection& selection, int number, int highest) {
    if (isFrequency(selection.ranking))
        return {selection.colour, byFrequency(source, selection, highest), number};
    return {selection.colour, byAbsence(source, selection, number, highest), std::numeric_limits<int>::max()};
}

int pressNumbers(Pad& pad, const RankedPick& pick) {
    int pressed = 0;
    for (const int number : pick.numbers) {
        if (pressed >= pick.most)
            break;
        const auto index = static_cast<std::size_t>(number);
        const bool isRed = pick.colour == Colour::Red;
        if (isRed ? pad.Redsel[index] : pad.Bluesel[index])
            continue;
        isRed ? pad.pressRed(number) : pad.pressBlue(number);
        ++pressed;
    }
    return pressed;
}

} // namespace selection
