// Opening the list of modulation sources on a patch that uses every one of
// them: the list built, fifteen rows filled and the form shown offscreen.

#include "QuietHost.h"
#include "editors/ModSources.h"
#include "editors/screens/frmMod.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <filesystem>

namespace quillon {
namespace {

void openModSourcesWithEverySourceInUse(benchmark::State& state)
{
    QuietHost host;
    MemorySettingsStore store;
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-mod";
    std::filesystem::create_directories(folder);
    AppModel model{host, store, folder};
    doFormLoadMain(model);
    model.flags.loaded[kPatch] = true;
    model.settings.modulationShow = true;  // only the sources in use
    ParamValues& current = model.buffers.of(kPatch).current;
    for (int p = 1; p <= kPatchParams; ++p) {
        if (isModSource(p))
            current[static_cast<std::size_t>(p)] = paramTables().patch[static_cast<std::size_t>(p)].max;
    }
    std::size_t listed = 0;
    for (auto _ : state) {
        frmMod form(model);
        form.show();
        QApplication::processEvents();
        listed = form.list().rows.size();
    }
    state.counters["sources"] = static_cast<double>(listed);
    std::filesystem::remove_all(folder);
}
BENCHMARK(openModSourcesWithEverySourceInUse)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillon
