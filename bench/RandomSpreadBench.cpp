// How long Random 128 and Spread 128 take for a whole bank with every group
// on: 128 walks over the groups, packing and writing each patch, and the
// bank view's labels set up afterwards. The goal is under 10 ms a bank.

#include "QuietHost.h"

#include "banks/RandomSpread.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>

namespace quillon {
namespace {

GenerationSettings everyGroupOn()
{
    GenerationSettings s;
    s.eg.fill(true);
    s.lfo.fill(true);
    s.osc.fill(true);
    s.fx.fill(true);
    s.filter.fill(true);
    s.modInt = s.ampEG = s.css = true;
    s.varEG = s.varLFO = s.varOSC = s.varFX = s.varFilter = s.varModInt = s.varAmpEG = s.varCSS = 50;
    s.modIntChoice = 0;  // "Off": the sources most patches have
    return s;
}

// The factory patch in the editor and the LFO1 subsection in the active
// frame, for CSS.
struct GenerationBench {
    QuietHost host;
    MemorySettingsStore store;
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-generation";
    AppModel model{host, store, folder};

    GenerationBench()
    {
        ParamValues& patch = model.buffers.of(kPatch).current;
        patch = paramTables().patchDefaults;
        patchParamsToImage(patch, model.itemImage(kPatch));
        model.flags.loaded[kPatch] = true;
        model.settings.random = everyGroupOn();
        model.settings.spread = everyGroupOn();
        model.layout.CurrentFrame = 1;
        FrameState& frame = model.layout.frame(kPatch, 1);
        frame.Subsection = 6;
        frame.SubFirst = 107;
        frame.SubLast = 120;
    }
};

void BM_GenerateRandomBank(benchmark::State& state)
{
    GenerationBench bench;
    std::mt19937 generator(1);
    for (auto _ : state)
        generateRandomBank(bench.model, kPatchBankA, generator);
}
BENCHMARK(BM_GenerateRandomBank)->Unit(benchmark::kMillisecond);

void BM_GenerateSpreadBank(benchmark::State& state)
{
    GenerationBench bench;
    for (auto _ : state)
        generateSpreadBank(bench.model, kPatchBankB);
}
BENCHMARK(BM_GenerateSpreadBank)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillon
