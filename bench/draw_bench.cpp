// What one tick of the simulated draw costs: by itself, and with all that the main window shows of it, down to the
// pixels. The window makes a tick for each picture of the screen, so less than 1 ms leaves it free for everything
// else.
//
// The number after the slash is how many numbers a tick ranks.
#include <climits>
#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "mainwin/windows/form1.h"
#include "selection/random_numbers.h"
#include "toolkit/look.h"
#include "workspace/settings.h"

using namespace Qt::StringLiterals;

namespace {

/// The main window on an empty workspace, with all reds chosen and a draw that runs and never stops.
class DrawWindow {
  public:
    explicit DrawWindow(int picks) {
        m_pad.selectAllReds();
        simulator.rank(picks);
        simulator.stability.Stabletarget = INT_MAX;
        form.resize(1280, 770);
        form.show();
        simulator.start();
        QApplication::processEvents();
    }

    /// A benchmark of something that does not happen would be a fast one.
    void expectShown(const char* what) {
        const auto share = form.findChild<QWidget*>(u"Label6(33)"_s)->property("text").toString();
        const auto ticks = form.findChild<QWidget*>(u"Label11"_s)->property("text").toString();
        const auto expected = QString::number(simulator.Share[33], 'f', 2) + u'%';
        if (simulator.isRunning() && share == expected && ticks.toInt() == simulator.Ticks)
            return;
        std::fprintf(stderr, "%s: the window does not show the draw\n", what);
        std::exit(1);
    }

  private:
    QTemporaryDir m_folder;
    workspace::Settings m_settings{m_folder.path().toStdString()};
    workspace::Workspace m_workspace;
    history::Book m_book;
    selection::Pad m_pad;
    selection::ClockNumbers m_random;

  public:
    selection::Simulator simulator{m_pad, m_random};

  private:
    mainwin::MainContext m_context{m_workspace, m_book, m_pad, simulator,
                                   workspace::UserSettings(m_settings, u"bench"_s)};

  public:
    mainwin::Form1 form{m_context};
};

void tickAlone(benchmark::State& state) {
    selection::Pad pad;
    selection::ClockNumbers random;
    selection::Simulator simulator(pad, random);
    pad.selectAllReds();
    simulator.rank(static_cast<int>(state.range(0)));
    simulator.stability.Stabletarget = INT_MAX;
    for (auto _ : state)
        simulator.tick();
}

void tickShown(benchmark::State& state) {
    DrawWindow window(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        window.simulator.tick();
        QApplication::processEvents(); // layout and painting
    }
    window.expectShown("tickShown");
}

} // namespace

BENCHMARK(tickAlone)->Arg(6)->Arg(16)->Unit(benchmark::kMicrosecond);
BENCHMARK(tickShown)->Arg(6)->Arg(16)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    toolkit::applyLook(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
