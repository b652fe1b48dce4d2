// How long opening a file takes, headless, from the Open command to the data
// in the bank store: an All Data file with all five banks taken out through
// frmMisc, and a PatchBank file.

#include "QuietHost.h"
#include "files/MiscDialog.h"
#include "files/OpenSysExFile.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExBytes.h"
#include "sysex/SysExPacking.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace quillon {
namespace {

ByteImage randomBytes(std::size_t n)
{
    std::mt19937 rng(1999);
    ByteImage bytes(n);
    for (auto& b : bytes)
        b = static_cast<std::uint8_t>(rng());
    return bytes;
}

std::filesystem::path writeFile(const std::string& name, const std::vector<std::uint8_t>& bytes)
{
    const auto path = std::filesystem::temp_directory_path() / name;
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return path;
}

// Opens the file again and again; lastKind is the last bank the file fills.
void openFile(benchmark::State& state, const std::filesystem::path& path, int lastKind)
{
    QuietHost host(path.string());
    MemorySettingsStore store;
    const auto dataFolder = std::filesystem::temp_directory_path() / "quillon-bench-data";
    std::filesystem::create_directories(dataFolder);
    AppModel model(host, store, dataFolder);
    OpenFileSurroundings surroundings;
    surroundings.showMiscDialog = [](AppModel& m, MiscDialogState& dialog) {
        dialog.typeTicked = dialog.typeVisible;
        misc::doProcessLoad(m, dialog);
    };
    for (auto _ : state) {
        doOpenSysExFile(model, 0, surroundings);
        benchmark::DoNotOptimize(model.banks.image(kArpBank).data());
    }
    if (!model.flags.loaded[lastKind])
        state.SkipWithError("the file did not load");
    std::filesystem::remove_all(dataFolder);
}

void openAllDataFile(benchmark::State& state)
{
    constexpr int kAllDataBytes = 160064;
    const std::uint8_t subHeader[] = {0x00, 0x00};
    const auto message = buildSysExMessage(kFunctionAllData, subHeader, 1, packBytes(randomBytes(kAllDataBytes)));
    const auto path = writeFile("quillon-bench-all-data.syx", message);
    openFile(state, path, kArpBank);
    std::filesystem::remove(path);
}
BENCHMARK(openAllDataFile)->Unit(benchmark::kMicrosecond);

void openPatchBankFile(benchmark::State& state)
{
    const auto message = patchBankDump(kPatchBankA, 1, DATAtoMIDI(kPatchBankA, randomBytes(byteImageSize(kPatchBankA))));
    const auto path = writeFile("quillon-bench-bank.syx", message);
    openFile(state, path, kPatchBankA);
    std::filesystem::remove(path);
}
BENCHMARK(openPatchBankFile)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillon
