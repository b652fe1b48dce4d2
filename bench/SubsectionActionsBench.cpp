// Each item of the Subsection menu on the largest subsection of a patch:
// OSC1 Setting with the Reed Model, 40 parameters, in the left frame.

#include "QuietHost.h"
#include "editors/Frames.h"
#include "editors/SubsectionActions.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace quillon {
namespace {

constexpr int kOsc1Type = 174;
constexpr int kOsc1Setting = 13;

void applyEachSubsectionAction(benchmark::State& state)
{
    QuietHost host;
    MemorySettingsStore store;
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-subsection";
    std::filesystem::create_directories(folder);
    AppModel model{host, store, folder};
    doFormLoadMain(model);
    model.settings.random.resetAll = 50;
    // The OSC1 type whose block has the most rows.
    int largest = 0;
    int rows = 0;
    for (int type = 0; type <= 12; ++type) {
        const SectionDef& s = paramTables().patchSections[static_cast<std::size_t>(type + 33)];
        if (s.lastParam - s.firstParam + 1 > rows) {
            rows = s.lastParam - s.firstParam + 1;
            largest = type;
        }
    }
    ParamValues& patch = model.buffers.of(kPatch).current;
    patch[kOsc1Type] = static_cast<std::int16_t>(largest);
    model.buffers.of(kPatch).loaded[kOsc1Type] = static_cast<std::int16_t>(largest);
    model.buffers.of(kPatch).last[kOsc1Type] = static_cast<std::int16_t>(largest);
    fraPatchHeaders(model, 1, 0, kOsc1Setting);
    const int number = static_cast<int>(state.range(0));
    for (auto _ : state)
        applySubsectionAction(model, number);
    state.counters["rows"] = rows;
    std::filesystem::remove_all(folder);
}
BENCHMARK(applyEachSubsectionAction)->DenseRange(1, 7)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillon
