#include "history/typed_draw.h"

#include <algorithm>
#include <limits>
#include <span>

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr int kBlue = 7;
constexpr qsizetype kPlaces = 2;

const QString kTitle = u"输入错误!!!"_s;
const QString kPlaceEmpty = u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04')."
                            u"请点'放弃输入'按钮重新进行输入!"_s;
const QString kOutOfRange = u"输入历史号的大小务必在当地的选号范围之内,请点'放弃输入'按钮重新进行输入!"
                            u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04')."_s;
const QString kRepeated = u"输入历史号务必不能重复,请点'放弃输入'按钮重新进行输入!"
                          u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04')."_s;
const QString kOutOfPlace = u"输入历史号的大小务必在当地的选号范围之内,并且按照由小到大的顺序排列."_s;

const QString kIssuePrompt = u"期号已到最大值2147483647，请输入这一期的期号(1～2147483647)"_s;
const QString kIssueTitle = u"历史号码"_s;
const QString kNoNumber = u"请输入数字"_s;
const QString kNoNumberTitle = u"输入错误"_s;
constexpr std::int32_t kLargestIssue = std::numeric_limits<std::int32_t>::max();

/// Nothing unless all the places hold digits.
std::optional<int> numberIn(const QString& box) {
    if (box.size() != kPlaces)
        return std::nullopt;
    int number = 0;
    for (const QChar c : box) {
        if (c.digitValue() < 0)
            return std::nullopt;
        number = number * 10 + c.digitValue();
    }
    return number;
}

bool fitsBetweenNeighbours(std::int32_t number, const Draw& draw, std::size_t red) {
    const bool aboveLower = red == 1 || draw[red - 1] < number;
    const bool belowUpper = red == kRedsDrawn || number < draw[red + 1];
    return aboveLower && belowUpper;
}

bool fits(std::int64_t number, const History& history, const workspace::Rule& rule, int draw, int slot) {
    if (slot == 0) // the next issue after the last draw has to fit as well
        return number >= 0 && number < kLargestIssue - (history.Lsnum - draw);
    const int range = slot == kBlue ? rule.blues : rule.reds;
    if (number < 1 || number > range)
        return false;
    return slot == kBlue ||
           fitsBetweenNeighbours(static_cast<std::int32_t>(number), history.Lshm[static_cast<std::size_t>(draw)],
                                 static_cast<std::size_t>(slot));
}

} // namespace

QString boxName(int box) {
    if (box == 0)
        return {};
    return box == kBlue ? u"蓝球"_s : u"第%1个红球"_s.arg(box);
}

std::optional<std::int32_t> nextIssue(const History& history) {
    const std::int32_t last = history.Lshm[static_cast<std::size_t>(history.Lsnum)][0];
    return last < kLargestIssue ? std::optional(last + 1) : std::nullopt;
}

std::optional<std::int32_t> askIssue(workspace::Dialogs& dialogs) {
    while (const std::optional<QString> answer = dialogs.askText(kIssuePrompt, kIssueTitle)) {
        bool isNumber = false;
        const int issue = answer->trimmed().toInt(&isNumber);
        if (isNumber && issue >= 1)
            return issue;
        dialogs.tell(kNoNumber, kNoNumberTitle);
    }
    return std::nullopt;
}

std::variant<Draw, Complaint> readTypedDraw(const TypedBoxes& boxes, const History& history,
                                            const workspace::Rule& rule) {
    Draw draw{nextIssue(history).value_or(0)};
    for (int place = 1; place <= kBlue; ++place) {
        const auto box = static_cast<std::size_t>(place);
        const std::optional<int> number = numberIn(boxes[box - 1]);
        if (!number)
            return Complaint{kPlaceEmpty, kTitle, place};
        draw[box] = *number;
    }
    for (int place = 1; place <= kBlue; ++place)
        if (const std::int32_t number = draw[static_cast<std::size_t>(place)];
            number < 1 || number > (place == kBlue ? rule.blues : rule.reds))
            return Complaint{kOutOfRange, kTitle, place};
    const std::span<const std::int32_t> reds(&draw[1], kRedsDrawn);
    for (int red = 1; red < kRedsDrawn; ++red) // behind the first one of each
        if (const auto before = reds.first(static_cast<std::size_t>(red));
            std::ranges::count(before, reds[before.size()]))
            return Complaint{kRepeated, kTitle, red + 1};
    std::sort(&draw[1], &draw[kBlue]);
    return draw;
}

std::variant<std::int32_t, Complaint> readCorrection(const QString& text, const History& history,
                                                     const workspace::Rule& rule, int draw, int slot) {
    bool isNumber = false;
    const qlonglong number = text.toLongLong(&isNumber);
    if (!isNumber || !fits(number, history, rule, draw, slot))
        return Complaint{kOutOfPlace, kTitle};
    return static_cast<std::int32_t>(number);
}

} // namespace history
