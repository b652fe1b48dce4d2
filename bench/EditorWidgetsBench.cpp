// The same as EditorScreenBench, with the patch screen's widgets watching
// the model offscreen: what the user waits for when a frame is refreshed or
// the patch screen comes back.

#include "QuietHost.h"
#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/screens/EditorScreens.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <filesystem>

namespace quillon {
namespace {

struct ShownPatchScreen {
    QuietHost host;
    MemorySettingsStore store;
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-widgets";
    AppModel model{host, store, folder};
    std::unique_ptr<EditorScreens> screens;

    ShownPatchScreen()
    {
        std::filesystem::create_directories(folder);
        doFormLoadMain(model);
        model.settings.graphicEnvelope = false;
        screens = std::make_unique<EditorScreens>(model);
        screens->resize(1200, 700);
        screens->show();
        fraPatchHeaders(model, 1, 0, 2);
        fraPatchHeaders(model, 2, 0, 3);
        QApplication::processEvents();
    }
    ~ShownPatchScreen()
    {
        screens.reset();
        std::filesystem::remove_all(folder);
    }
};

void refreshAFullFrameOnScreen(benchmark::State& state)
{
    ShownPatchScreen shown;
    const FrameState frame = shown.model.layout.patchFrames[1];
    for (auto _ : state)
        refreshParamRows(shown.model, 1, frame.RowFirst, frame.SubLast);
}
BENCHMARK(refreshAFullFrameOnScreen)->Unit(benchmark::kMicrosecond);

// The rows change as they do when the user moves between two subsections:
// every name, value and decode label of the frame is new each time.
void showAnotherSubsectionOnScreen(benchmark::State& state)
{
    ShownPatchScreen shown;
    int subsection = 2;
    for (auto _ : state) {
        subsection = subsection == 2 ? 3 : 2;
        fraPatchHeaders(shown.model, 1, 0, subsection);
    }
}
BENCHMARK(showAnotherSubsectionOnScreen)->Unit(benchmark::kMicrosecond);

// From a bank screen back to the patch screen: two set-ups a round.
void setUpThePatchScreenOnScreen(benchmark::State& state)
{
    ShownPatchScreen shown;
    for (auto _ : state) {
        setUpScreen(shown.model, kPatchBankA);
        setUpScreen(shown.model, kPatch);
    }
    if (shown.model.layout.RowParam[29] == 0)
        state.SkipWithError("frame 2 is not full");
}
BENCHMARK(setUpThePatchScreenOnScreen)->Unit(benchmark::kMicrosecond);

void setUpThePatchScreenAgainOnScreen(benchmark::State& state)
{
    ShownPatchScreen shown;
    for (auto _ : state)
        setUpScreen(shown.model, kPatch);
    if (shown.model.layout.RowParam[29] == 0)
        state.SkipWithError("frame 2 is not full");
}
BENCHMARK(setUpThePatchScreenAgainOnScreen)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillon

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
