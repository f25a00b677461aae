#include "history/typed_draw.h"

#include <algorithm>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr std::size_t kBlue = 7;
constexpr qsizetype kPlaces = 2;

const QString kTitle = u"输入错误!!!"_s;
const QString kPlaceEmpty = u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04')."
                            u"请点'放弃输入'按钮重新进行输入!"_s;
const QString kOutOfRange = u"输入历史号的大小务必在当地的选号范围之内,请点'放弃输入'按钮重新进行输入!"
                            u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04')."_s;
const QString kRepeated = u"输入历史号务必不能重复,请点'放弃输入'按钮重新进行输入!"
                          u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04')."_s;
const QString kOutOfPlace = u"输入历史号的大小务必在当地的选号范围之内,并且按照由小到大的顺序排列."_s;

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

bool fits(std::int64_t number, const History& history, const workspace::Rule& rule, int draw, std::size_t slot) {
    if (slot == 0) { // the next issue after the last draw has to fit as well
        constexpr std::int64_t kLeast = std::numeric_limits<std::int32_t>::min();
        constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
        return number >= kLeast && number < kMost && number + history.Lsnum - draw < kMost;
    }
    const int range = slot == kBlue ? rule.blues : rule.reds;
    if (number < 1 || number > range)
        return false;
    return slot == kBlue || fitsBetweenNeighbours(static_cast<std::int32_t>(number),
                                                  history.Lshm[static_cast<std::size_t>(draw)], slot);
}

} // namespace

std::variant<Draw, Complaint> readTypedDraw(const TypedBoxes& boxes, const History& history,
                                            const workspace::Rule& rule) {
    Draw draw{history.Lshm[static_cast<std::size_t>(history.Lsnum)][0] + 1};
    for (std::size_t place = 1; place <= kBlue; ++place) {
        const std::optional<int> number = numberIn(boxes[place - 1]);
        if (!number)
            return Complaint{kPlaceEmpty, kTitle};
        draw[place] = *number;
    }
    for (std::size_t place = 1; place <= kBlue; ++place)
        if (draw[place] < 1 || draw[place] > (place == kBlue ? rule.blues : rule.reds))
            return Complaint{kOutOfRange, kTitle};
    std::sort(&draw[1], &draw[kBlue]);
    if (std::adjacent_find(&draw[1], &draw[kBlue]) != &draw[kBlue])
        return Complaint{kRepeated, kTitle};
    return draw;
}

std::variant<std::int32_t, Complaint> readCorrection(const QString& text, const History& history,
                                                     const workspace::Rule& rule, int draw, int slot) {
    bool isNumber = false;
    const qlonglong number = text.toLongLong(&isNumber);
    if (!isNumber || !fits(number, history, rule, draw, static_cast<std::size_t>(slot)))
        return Complaint{kOutOfPlace, kTitle};
    return static_cast<std::int32_t>(number);
}

} // namespace history
