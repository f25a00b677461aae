#include "mainwin/windows/draw_desk.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QScreen>
#include <QTimer>

#include "base/number_text.h"
#include "toolkit/dialog_boxes.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

const QString kSection = u"Initial"_s;
const QString kFactorKey = u"Wd"_s;
constexpr int kAskAgain = 200; // ms, while another window is in the way
constexpr double kScreensRate = 60;

/// As often as the screen can show a new picture, and no more often.
int tickInterval(const QWidget& window) {
    const QScreen* screen = window.screen();
    const double rate = screen && screen->refreshRate() > 1 ? screen->refreshRate() : kScreensRate;
    return std::max(1, static_cast<int>(1000 / rate));
}

/// A count of runs, half to the even side; nothing for what is no number of 16 bits. Other than elsewhere a number
/// with a word behind it is none: a run that nobody wanted costs minutes.
std::optional<std::int16_t> runsOf(const QString& answer) {
    bool isNumber = false;
    const double number = answer.trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || std::abs(number) > INT16_MAX)
        return std::nullopt;
    return static_cast<std::int16_t>(base::roundHalfEven(number));
}

} // namespace

DrawDesk::DrawDesk(MainContext& context, selection::GenerationInput& generation, QWidget& window)
    : m_context(context), m_generation(generation), m_window(window), m_timer(new QTimer(&window)),
      m_askAgain(new QTimer(&window)) {
    selection::Simulator& simulator = context.simulator;
    simulator.stability.load(storedFactor());
    simulator.readFactorBy([this] { return storedFactor(); });
    m_timer->setObjectName(u"Timer1"_s);
    m_timer->setInterval(tickInterval(window));
    m_timer->setTimerType(Qt::PreciseTimer);
    m_askAgain->setObjectName(u"TimerAsk"_s);
    m_askAgain->setInterval(kAskAgain);
    m_askAgain->setSingleShot(true);
    connect(m_askAgain, &QTimer::timeout, this, &DrawDesk::askArrange);
    connect(m_timer, &QTimer::timeout, &simulator, &selection::Simulator::tick);
    connect(&simulator, &selection::Simulator::runningChanged, this,
            [this](bool running) { running ? m_timer->start() : m_timer->stop(); });
    // Not from within the tick: the question waits for its answer.
    connect(&simulator, &selection::Simulator::finished, this, &DrawDesk::askArrange, Qt::QueuedConnection);
    connect(&simulator, &selection::Simulator::runsFull, this, &DrawDesk::tellFull, Qt::QueuedConnection);
    registerControls();
    registerFactors();
    registerSizes();
}

void DrawDesk::registerControls() {
    Commands& commands = m_context.commands;
    selection::Simulator& simulator = m_context.simulator;
    commands.on(u"ComSta"_s, [&simulator](int) { simulator.start(); });
    commands.on(u"meuSta"_s, [&simulator](int) { simulator.startUntested(); });
    for (const QString& name : {u"ComSpd"_s, u"meuSup"_s})
        commands.on(name, [&simulator](int) { simulator.pause(); });
    for (const QString& name : {u"ComRst"_s, u"meuRst"_s})
        commands.on(name, [&simulator](int) { simulator.reset(); });
}

void DrawDesk::registerFactors() {
    const selection::Stability& stability = m_context.simulator.stability;
    for (const selection::StabilityItem& item : selection::kStabilityItems) {
        const QString name = item.name.toString();
        m_context.commands.on(name, [this, item](int) { choose(item); });
        m_context.commands.mark(
            name, [&stability, item](int) { return stability.checked && stability.checked->name == item.name; });
    }
}

void DrawDesk::registerSizes() {
    Commands& commands = m_context.commands;
    commands.on(u"mnuMilt"_s, [this](int) { askRuns(); });
    commands.on(u"meuDanxuan"_s, [this](int reds) { rank(reds); });
    const selection::Simulator& simulator = m_context.simulator;
    commands.mark(u"meuDanxuan"_s, [&simulator](int reds) { return reds == simulator.wanted(); });
    commands.on(u"mnuDtuo"_s, [this](int) { drawBankers(); });
}

int DrawDesk::storedFactor() {
    return std::clamp(m_context.settings.number(kSection, kFactorKey, u"100"_s), 0, INT16_MAX);
}

void DrawDesk::choose(const selection::StabilityItem& item) {
    selection::Stability& stability = m_context.simulator.stability;
    stability.choose(item);
    m_context.settings.set(kSection, kFactorKey, stability.Wd);
}

void DrawDesk::rank(int reds) {
    m_context.pad.Genreds = static_cast<std::int16_t>(reds);
    m_context.simulator.rank(reds);
}

/// Arranges what the draw has ranked, or draws first: the arrangement is offered when that has finished.
void DrawDesk::drawBankers() {
    const selection::Simulator& simulator = m_context.simulator;
    m_context.pad.Genreds = simulator.Picknum;
    m_context.commands.run(simulator.controls().arrange ? u"meuAgarr"_s : u"ComSta"_s, -1);
}

void DrawDesk::askRuns() {
    toolkit::DialogBoxes boxes(&m_window);
    const QString answer =
        boxes.askText(u"请输入单词摇奖生成注数！"_s, u"摇奖注数设置"_s, u"1"_s).value_or(QString());
    const std::optional<std::int16_t> runs = runsOf(answer);
    if (!runs) {
        boxes.tell(u"请输入整数数字"_s, u"输入错误"_s);
        return;
    }
    m_context.simulator.wantRuns(*runs);
    m_generation.Multirows = true;
}

void DrawDesk::askArrange() {
    m_askAgain->stop();
    if (m_context.simulator.isRunning())
        return; // it goes on already
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget()) {
        m_askAgain->start();
        return;
    }
    toolkit::DialogBoxes boxes(&m_window);
    if (!boxes.confirm(u"预测结果已经得出！是否现在就将结果排列组合出来，以便再观察参数和缩水过滤？"_s, u"通告"_s))
        return;
    m_context.commands.run(u"meuAgarr"_s, -1);
}

void DrawDesk::tellFull() {
    toolkit::DialogBoxes(&m_window).warn(
        {u"已有 %1 次摇奖结果，不能再记录。摇奖已停止，已有的结果都保留着；在“多注单选摇奖设置”里重新设置注数后重新开始。"_s
             .arg(selection::Simulator::kMostRuns),
         u"摇奖注数设置"_s});
}

void DrawDesk::finish() {
    m_timer->stop();
    for (int place = 0; place < selection::Pad::kBetReds; ++place)
        m_context.settings.set(kSection, QString::number(place + 1),
                               m_context.simulator.Top[static_cast<std::size_t>(place)]);
}

} // namespace mainwin
