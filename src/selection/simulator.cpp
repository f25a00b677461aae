#include "selection/simulator.h"

#include <algorithm>
#include <utility>

namespace selection {

namespace {

/// Ascending, by exchange over all pairs; a 0 stays where it is.
template <class Numbers> void sortNumbers(Numbers& numbers) {
    for (std::size_t place = 0; place < numbers.size(); ++place)
        for (std::size_t later = place + 1; later < numbers.size(); ++later)
            if (numbers[place] > numbers[later] && numbers[later] != 0)
                std::swap(numbers[place], numbers[later]);
}

} // namespace

Simulator::Simulator(Pad& pad, RandomNumbers& random, QObject* parent)
    : QObject(parent), m_pad(pad), m_random(random), m_storedFactor([this] { return stability.Wd; }) {
    connect(&pad, &Pad::redsChanged, this, &Simulator::followReds);
    connect(&pad, &Pad::bluesChanged, this, &Simulator::followBlues);
    connect(&pad, &Pad::bankersChosen, this, &Simulator::zero);
    connect(&pad, &Pad::redsCleared, this, &Simulator::forget);
}

void Simulator::start() {
    if (Picknum < m_pad.Redcnt) {
        run(false);
        return;
    }
    DrawControls controls = m_controls;
    controls.start = controls.reset = false;
    controls.pause = controls.arrange = true;
    setControls(controls);
}

void Simulator::startUntested() {
    run(true);
}

void Simulator::run(bool arrange) {
    setRunning(true);
    setControls({.start = false, .pause = true, .reset = true, .arrange = arrange, .goOn = false});
}

void Simulator::pause() {
    setRunning(false);
    DrawControls controls = m_controls;
    controls.start = controls.arrange = controls.goOn = true;
    controls.pause = false;
    setControls(controls);
}

void Simulator::reset() {
    zero();
    setRunning(true);
    DrawControls controls = m_controls;
    controls.start = controls.arrange = controls.goOn = false;
    controls.pause = true;
    setControls(controls);
}

void Simulator::wantRuns(std::int16_t goal) {
    Rungoal = goal;
    Runs = 0;
    Runresults.resize(1);
}

void Simulator::rank(int picks) {
    m_wanted = picks;
    if (m_pad.Dancnt == 0)
        setPicks(picks);
}

/// The sort runs over all places: numbers of a longer ranking must not come back into a shorter one.
void Simulator::setPicks(int picks) {
    const int held = std::clamp(picks, 0, kMostPicks);
    Picknum = static_cast<std::int16_t>(held);
    std::fill(Top.begin() + held, Top.end(), std::int16_t(0));
    std::fill(Drawn.begin() + held, Drawn.end(), std::int16_t(0));
    std::fill(Prevtop.begin() + held, Prevtop.end(), std::int16_t(0));
    emit picksChanged();
}

void Simulator::tick() {
    m_random.reseed();
    drawNumbers();
    count();
    rankShares();
    Stable = isUnchanged() ? Stable + 1 : 0;
    emit ticked();
    if (Stable == stability.Stabletarget)
        stop();
}

void Simulator::drawNumbers() {
    for (std::size_t pick = 0; pick < static_cast<std::size_t>(Picknum); ++pick) {
        const int place = drawnPlace();
        m_inOrder[pick] = place > 0 ? m_pad.Redlist[static_cast<std::size_t>(place)] : std::int16_t(0);
    }
    ++Ticks;
}

/// A place in Redlist, 0 while it is empty. The fold favours the first places on purpose.
int Simulator::drawnPlace() {
    int place = static_cast<int>(m_pad.reds() * m_random.next()) + 1;
    if (m_pad.Redcnt == 0)
        return 0;
    while (place > m_pad.Redcnt)
        place -= m_pad.Redcnt;
    return place;
}

void Simulator::count() {
    for (std::size_t pick = 0; pick < static_cast<std::size_t>(Picknum); ++pick) {
        const std::int16_t number = m_inOrder[pick];
        Drawn[pick] = number;
        if (number != 0) {
            ++Hits[static_cast<std::size_t>(number)];
            ++Hittotal;
        }
        Prevtop[pick] = Top[pick];
        Topshare[pick] = Share[pick]; // the candidates are the numbers 0..Picknum-1, with what they had before
        Top[pick] = static_cast<std::int16_t>(pick);
    }
    sortNumbers(Drawn);
    for (std::size_t number = 1; number <= static_cast<std::size_t>(m_pad.reds()); ++number)
        Share[number] = Hittotal > 0 ? static_cast<double>(Hits[number]) / Hittotal * 100 : 0;
}

void Simulator::rankShares() {
    const auto picks = static_cast<std::size_t>(Picknum);
    for (std::size_t number = picks; picks > 0 && number <= static_cast<std::size_t>(m_pad.reds()); ++number) {
        for (std::size_t place = 1; place < picks; ++place) {
            if (Topshare[place] < Topshare[0]) {
                std::swap(Topshare[0], Topshare[place]);
                std::swap(Top[0], Top[place]);
            }
        }
        if (Share[number] > Topshare[0]) {
            Top[0] = static_cast<std::int16_t>(number);
            Topshare[0] = Share[number];
        }
    }
    sortNumbers(Top);
}

bool Simulator::hasRanking() const {
    return std::find(Top.begin(), Top.begin() + Picknum, 0) == Top.begin() + Picknum;
}

bool Simulator::isUnchanged() const {
    return std::equal(Prevtop.begin(), Prevtop.begin() + Picknum, Top.begin());
}

void Simulator::stop() {
    setRunning(false);
    setControls({.start = true, .pause = false, .reset = true, .arrange = true, .goOn = true});
    record();
}

void Simulator::record() {
    if (Runs >= kMostRuns) {
        emit runsFull();
        return;
    }
    ++Runs;
    Row row{};
    std::copy_n(Top.begin(), Pad::kBetReds, row.begin() + 1);
    Runresults.push_back(row);
    if (Runs < Rungoal)
        reset();
    else
        emit finished();
}

void Simulator::zero() {
    Ticks = 0;
    Hittotal = 0;
    Hits.fill(0);
    Share.fill(0);
    Drawn.fill(0);
    m_inOrder.fill(0);
    Top.fill(0);
    Prevtop.fill(0);
    emit zeroed();
}

void Simulator::setControls(const DrawControls& controls) {
    if (std::exchange(m_controls, controls) != controls)
        emit controlsChanged();
}

void Simulator::setRunning(bool running) {
    if (std::exchange(m_running, running) != running)
        emit runningChanged(running);
}

void Simulator::followReds() {
    followBankers();
    DrawControls controls = m_controls;
    controls.start = m_pad.startEnabled();
    setControls(controls);
}

void Simulator::followBankers() {
    const bool had = std::exchange(m_bankers, m_pad.Dancnt > 0);
    if (m_bankers) {
        setPicks(Pad::kBetReds - m_pad.Dancnt);
        if (m_pad.Dancnt < Pad::kBetReds)
            stability.shorten(m_storedFactor());
        return;
    }
    if (had || Picknum == 0)
        setPicks(m_wanted);
    if (m_pad.Redcnt > 0)
        stability.shorten();
}

void Simulator::followBlues() {
    if (!m_pad.startEnabled() || m_pad.Bluecnt == 0)
        return;
    DrawControls controls = m_controls;
    controls.start = true;
    setControls(controls);
}

/// The reds were cleared: the draw stands still and ranks six again.
void Simulator::forget() {
    setRunning(false);
    m_bankers = false;
    rank(Pad::kBetReds);
    DrawControls controls = m_controls;
    controls.start = false;
    setControls(controls);
}

} // namespace selection
