// The arpeggiator screen's grid of 360 tone boxes shown whole, with the
// pattern screen's widgets watching the model offscreen: as the screen is
// set up, or after a load, when every box may change.

#include "QuietHost.h"
#include "editors/ArpScreen.h"
#include "editors/ItemStatus.h"
#include "editors/screens/ArpEditorScreen.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

namespace quillon {
namespace {

struct ShownPatternScreen {
    QuietHost host;
    MemorySettingsStore store;
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-pattern";
    AppModel model{host, store, folder};
    std::unique_ptr<ArpEditorScreen> screen;
    ParamValues full;   // 36 steps, every tone
    ParamValues short_; // one step, no tones

    ShownPatternScreen()
    {
        std::filesystem::create_directories(folder);
        doFormLoadMain(model);
        screen = std::make_unique<ArpEditorScreen>(model);
        screen->resize(1100, 500);
        screen->show();
        setUpScreen(model, kPattern);
        full = model.buffers.of(kPattern).current;
        short_ = full;
        for (int step = 1; step <= kArpSteps; ++step) {
            arpSetStepMask(full, step, 1023);
            arpSetStepMask(short_, step, 0);
        }
        full[kPatternLengthParam] = kArpSteps;
        short_[kPatternLengthParam] = 1;
        QApplication::processEvents();
    }
    ~ShownPatternScreen()
    {
        screen.reset();
        std::filesystem::remove_all(folder);
    }
    // Every box and every marker but the first changes on the next showing.
    void swapPattern(bool toFull) { model.buffers.of(kPattern).current = toFull ? full : short_; }
};

// The grid shown again as it stands: what setting up the screen costs.
void showTheGridAsItStands(benchmark::State& state)
{
    ShownPatternScreen shown;
    for (auto _ : state)
        arpShowGrid(shown.model, false);
}
BENCHMARK(showTheGridAsItStands)->Unit(benchmark::kMicrosecond);

// Shows the other pattern at each turn, so that every box changes; painted
// too when the user's view is measured.
void showWithEveryBoxChanged(benchmark::State& state, bool paint)
{
    ShownPatternScreen shown;
    bool toFull = true;
    for (auto _ : state) {
        state.PauseTiming();
        shown.swapPattern(toFull);
        toFull = !toFull;
        state.ResumeTiming();
        arpShowGrid(shown.model, false);
        if (paint)
            shown.screen->repaint();
    }
}

// Every one of the 360 boxes checked or cleared, enabled or greyed.
void showTheGridWithEveryBoxChanged(benchmark::State& state)
{
    showWithEveryBoxChanged(state, false);
}
BENCHMARK(showTheGridWithEveryBoxChanged)->Unit(benchmark::kMicrosecond);

// The same with the boxes painted, as the user sees them.
void showAndPaintTheGridWithEveryBoxChanged(benchmark::State& state)
{
    showWithEveryBoxChanged(state, true);
}
BENCHMARK(showAndPaintTheGridWithEveryBoxChanged)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillon
