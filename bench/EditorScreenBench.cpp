// How long the patch screen takes to fill its frames: one full frame of 15
// rows refreshed, and the whole patch screen set up with both frames full.

#include "QuietHost.h"
#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace quillon {
namespace {

// The program after start-up, with EG1 and EG2 (19 rows each) as rows in the
// two frames: the graphic envelope is off, so that both frames hold rows.
struct StartedModel {
    QuietHost host;
    MemorySettingsStore store;
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-editor";
    AppModel model{host, store, folder};

    StartedModel()
    {
        std::filesystem::create_directories(folder);
        doFormLoadMain(model);
        model.settings.graphicEnvelope = false;
        fraPatchHeaders(model, 1, 0, 2);
        fraPatchHeaders(model, 2, 0, 3);
    }
    ~StartedModel() { std::filesystem::remove_all(folder); }
};

void refreshAFullFrame(benchmark::State& state)
{
    StartedModel started;
    const FrameState frame = started.model.layout.patchFrames[1];
    for (auto _ : state) {
        refreshParamRows(started.model, 1, frame.RowFirst, frame.SubLast);
        benchmark::DoNotOptimize(started.model.layout.rows.data());
    }
    if (started.model.layout.RowParam[14] == 0)
        state.SkipWithError("frame 1 is not full");
}
BENCHMARK(refreshAFullFrame)->Unit(benchmark::kMicrosecond);

void setUpThePatchScreenWithBothFramesFull(benchmark::State& state)
{
    StartedModel started;
    for (auto _ : state) {
        setUpScreen(started.model, kPatchBankA);
        setUpScreen(started.model, kPatch);
        benchmark::DoNotOptimize(started.model.layout.rows.data());
    }
    if (started.model.layout.RowParam[29] == 0)
        state.SkipWithError("frame 2 is not full");
}
BENCHMARK(setUpThePatchScreenWithBothFramesFull)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillon
