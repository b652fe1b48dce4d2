// How long Remap Multi Bank takes: the 16 multisets of a MultiBank rewritten
// through the remap table, and the whole menu command, which reads
// Quillonrmp.dat first. The goal is under 1 ms. And the name match of
// Create Remap, for comparison.

#include "QuietHost.h"

#include "banks/RemapCommands.h"
#include "banks/RemapTable.h"
#include "files/AtomicFile.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace quillon {
namespace {

struct RemapBench {
    QuietHost host;
    MemorySettingsStore store;
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-remap";
    AppModel model{host, store, folder};

    RemapBench()
    {
        std::filesystem::create_directories(folder);
        RemapTable table{};
        for (std::size_t i = 0; i < table.size(); ++i)
            table[i] = static_cast<std::int16_t>(i % 7 == 0 ? -1 : 255 - i);
        model.remap.remapTable = table;
        writeLinesAtomically(remapTablePath(model), formatRemapTable(table));
        ByteImage& bank = model.banks.image(kMultiBankA);
        for (std::size_t i = 0; i < bank.size(); ++i)
            bank[i] = static_cast<std::uint8_t>(i * 13);
        model.flags.loaded[kMultiBankA] = true;
        model.multiMode = 1;
    }
    ~RemapBench() { std::filesystem::remove_all(folder); }
};

void BM_RemapMultiBank(benchmark::State& state)
{
    RemapBench b;
    for (auto _ : state) {
        for (int position = 0; position < kMultisPerBank; ++position)
            remapMultiset(b.model, kMultiBankA, position);
        benchmark::DoNotOptimize(b.model.banks.image(kMultiBankA).data());
    }
}
BENCHMARK(BM_RemapMultiBank)->Unit(benchmark::kMicrosecond);

void BM_RemapMultiBankCommand(benchmark::State& state)
{
    RemapBench b;
    for (auto _ : state) {
        mnuRemapMultiBank(b.model);
        benchmark::DoNotOptimize(b.model.banks.image(kMultiBankA).data());
    }
}
BENCHMARK(BM_RemapMultiBankCommand)->Unit(benchmark::kMicrosecond);

// Create Remap's match at its slowest for the bubble sorts: the new banks
// hold the old names in reverse order.
void BM_MatchNamesOfReversedBanks(benchmark::State& state)
{
    RemapNames oldNames;
    for (std::size_t i = 0; i < oldNames.size(); ++i)
        oldNames[i] = "Patch " + std::to_string(1000 + i) + "       ";
    RemapNames newNames(oldNames);
    std::reverse(newNames.begin(), newNames.end());
    for (auto _ : state)
        benchmark::DoNotOptimize(matchNames(oldNames, newNames));
}
BENCHMARK(BM_MatchNamesOfReversedBanks)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillon
