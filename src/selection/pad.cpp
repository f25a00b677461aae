#include "selection/pad.h"

#include <algorithm>

#include "selection/combinations.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

constexpr int kEnoughForADraw = 6; // a draw ranks six numbers, so it needs more than six to choose from
constexpr int kYuanPerBet = 2;
// The largest rule, all of it chosen: 49,692,258 bets. Bankers only make them fewer.
static_assert(combinationCount(Pad::kMostReds, Pad::kBetReds) * Pad::kMostBlues * kYuanPerBet <= INT32_MAX);

/// Writes the place of each number of a list. A list that a generator has sorted no longer agrees with its places;
/// the next change of the list brings them back in step.
template <class List> void writePlaces(const List& list, List& places, std::int16_t count) {
    for (std::int16_t place = 1; place <= count; ++place)
        places[static_cast<std::size_t>(list[static_cast<std::size_t>(place)])] = place;
}

/// Puts a number at the end of a list.
template <class List> void append(List& list, List& places, std::int16_t& count, int added) {
    ++count;
    list[static_cast<std::size_t>(count)] = static_cast<std::int16_t>(added);
    writePlaces(list, places, count);
}

/// Takes a number out of a list, wherever it stands, and closes the gap.
template <class List> void takeOut(List& list, List& places, std::int16_t& count, int removed) {
    const auto first = list.begin() + 1;
    std::remove(first, first + count, static_cast<std::int16_t>(removed));
    list[static_cast<std::size_t>(count)] = 0;
    --count;
    places[static_cast<std::size_t>(removed)] = 0;
    writePlaces(list, places, count);
}

template <class List> QString listText(const List& list, int count) {
    QString text;
    for (int place = 1; place <= count; ++place)
        text += u' ' + QString::number(list[static_cast<std::size_t>(place)]);
    return text;
}

} // namespace

Pad::Pad(int reds, int blues, QObject* parent) : QObject(parent), m_reds(reds), m_blues(blues) {}

void Pad::addRed(int number) {
    Redsel[static_cast<std::size_t>(number)] = true;
    append(Redlist, Redpos, Redcnt, number);
}

void Pad::dropRed(int number) {
    Redsel[static_cast<std::size_t>(number)] = false;
    takeOut(Redlist, Redpos, Redcnt, number);
}

void Pad::addDan(int number) {
    Danmark[static_cast<std::size_t>(number)] = true;
    append(Danlist, Danpos, Dancnt, number);
}

void Pad::dropDan(int number) {
    Danmark[static_cast<std::size_t>(number)] = false;
    takeOut(Danlist, Danpos, Dancnt, number);
}

void Pad::addBlue(int number) {
    Bluesel[static_cast<std::size_t>(number)] = true;
    append(Bluelist, Bluepos, Bluecnt, number);
}

void Pad::dropBlue(int number) {
    Bluesel[static_cast<std::size_t>(number)] = false;
    takeOut(Bluelist, Bluepos, Bluecnt, number);
}

void Pad::pressRed(int number) {
    if (!isRed(number))
        return;
    const auto index = static_cast<std::size_t>(number);
    Lastclick = static_cast<std::int16_t>(number);
    if (Danmark[index])
        dropDan(number);
    if (Redsel[index])
        dropRed(number);
    else
        addRed(number);
    Redvalue[index] = Redsel[index];
    tellReds();
}

void Pad::pressBlue(int number) {
    if (!isBlue(number))
        return;
    if (Bluesel[static_cast<std::size_t>(number)])
        dropBlue(number);
    else
        addBlue(number);
    tellBlues();
}

void Pad::pointAtRed(int number) {
    if (isRed(number))
        Lastclick = static_cast<std::int16_t>(number);
}

void Pad::mnuDan() {
    if (!isRed(Lastclick))
        return;
    const auto index = static_cast<std::size_t>(Lastclick);
    if (Redsel[index])
        dropRed(Lastclick);
    if (Danmark[index])
        dropDan(Lastclick);
    else
        addDan(Lastclick);
    tellReds();
}

void Pad::selectAllReds() {
    while (Dancnt > 0)
        dropDan(Danlist[static_cast<std::size_t>(Dancnt)]);
    Redcnt = 0;
    for (int number = 1; number <= m_reds; ++number) {
        addRed(number);
        Redvalue[static_cast<std::size_t>(number)] = true;
    }
    tellReds();
}

void Pad::invertReds() {
    const auto before = Redsel;
    Redcnt = 0;
    Redlist.fill(0);
    Redpos.fill(0);
    Redsel.fill(false);
    for (int number = 1; number <= m_reds; ++number) {
        const auto index = static_cast<std::size_t>(number);
        if (Danmark[index])
            continue;
        if (!before[index])
            addRed(number);
        Redvalue[index] = Redsel[index];
    }
    tellReds();
}

void Pad::clearReds() {
    Redcnt = 0;
    Dancnt = 0;
    for (RedSlots* list : {&Redlist, &Danlist, &Redpos, &Danpos})
        list->fill(0);
    for (auto* marks : {&Redsel, &Danmark, &Redvalue})
        marks->fill(false);
    Bankermode = false;
    Genreds = kBetReds;
    m_startEnabled = false;
    m_statusText.clear();
    rebuildTexts();
    emit redsCleared();
    emit changed();
}

void Pad::selectAllBlues() {
    Bluecnt = 0;
    for (int number = 1; number <= m_blues; ++number)
        addBlue(number);
    tellBlues();
}

void Pad::invertBlues() {
    const auto before = Bluesel;
    Bluecnt = 0;
    Bluelist.fill(0);
    Bluepos.fill(0);
    Bluesel.fill(false);
    for (int number = 1; number <= m_blues; ++number)
        if (!before[static_cast<std::size_t>(number)])
            addBlue(number);
    tellBlues();
}

void Pad::clearBlues() {
    Bluecnt = 0;
    Bluelist.fill(0);
    Bluepos.fill(0);
    Bluesel.fill(false);
    m_statusText.clear();
    rebuildTexts();
    emit changed();
}

void Pad::setRule(int reds, int blues) {
    const int redsBefore = Redcnt + Dancnt;
    const int bluesBefore = Bluecnt;
    for (int number = reds + 1; number <= kMostReds; ++number) {
        const auto index = static_cast<std::size_t>(number);
        if (Redsel[index])
            dropRed(number);
        if (Danmark[index])
            dropDan(number);
        Redvalue[index] = false;
    }
    for (int number = blues + 1; number <= kMostBlues; ++number)
        if (Bluesel[static_cast<std::size_t>(number)])
            dropBlue(number);
    m_reds = reds;
    m_blues = blues;
    if (Redcnt + Dancnt != redsBefore)
        tellReds();
    if (Bluecnt != bluesBefore)
        tellBlues();
    emit changed();
}

void Pad::sortReds() {
    std::sort(Redlist.begin() + 1, Redlist.begin() + 1 + Redcnt);
}

void Pad::rebuildTexts() {
    m_redText = listText(Redlist, Redcnt);
    m_danText = listText(Danlist, Dancnt);
    m_blueText = listText(Bluelist, Bluecnt);
}

void Pad::tellReds() {
    rebuildTexts();
    Bankermode = Dancnt > 0;
    m_startEnabled = Redcnt + Dancnt > kEnoughForADraw;
    updateStatusText();
    if (Bankermode)
        emit bankersChosen();
    emit redsChanged();
    emit changed();
}

void Pad::tellBlues() {
    rebuildTexts();
    if (Redcnt + Dancnt > kEnoughForADraw && Bluecnt > 0)
        m_startEnabled = true;
    updateStatusText();
    emit bluesChanged();
    emit changed();
}

void Pad::updateStatusText() {
    if (Redcnt + Dancnt <= kEnoughForADraw || Bluecnt == 0)
        return; // the panel keeps what it shows
    Zunum = static_cast<std::int32_t>(combinationCount(Redcnt, kBetReds - Dancnt) * Bluecnt);
    const int yuan = kYuanPerBet * Zunum;
    if (Dancnt > 0)
        m_statusText =
            u"%1红胆%2红拖%3蓝，共计胆拖：%4注,合计：%5元"_s.arg(Dancnt).arg(Redcnt).arg(Bluecnt).arg(Zunum).arg(
                yuan);
    else
        m_statusText = u"%1红%2蓝，共计复选：%3注,合计：%4元"_s.arg(Redcnt).arg(Bluecnt).arg(Zunum).arg(yuan);
}

} // namespace selection
