// How long the reorderings of the bank view take on a full bank of 128
// patches, with the undo step each takes and the view's labels redrawn:
// every sort key, every rotation over the whole bank, and an undo.

#include "QuietHost.h"

#include "banks/BankReorder.h"
#include "banks/BankSort.h"
#include "banks/BankUndo.h"
#include "banks/BankView.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <string>

namespace quillon {
namespace {

// The bytes of sort keys 2..10 in a patch, counted from 0.
constexpr int kKeyByte[] = {0, 456, 16, 17, 154, 206, 410, 433, 312, 339, 483};

// A model with bank A loaded and on show: names in descending order (the
// most work for the name sort) and random keys.
struct BankBench {
    QuietHost host;
    MemorySettingsStore store;
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-banks";
    AppModel model{host, store, folder};
    ByteImage original;

    BankBench()
    {
        std::mt19937 random(128);
        ByteImage& image = model.banks.image(kPatchBankA);
        for (int p = 0; p < kPatchesPerBank; ++p) {
            const std::string name = "Patch " + std::to_string(1000 - p) + "          ";
            for (int i = 0; i < 16; ++i)
                image[static_cast<std::size_t>(p * kPatchBytes + i)] = static_cast<std::uint8_t>(name[static_cast<std::size_t>(i)]);
            for (int key = 2; key <= kSortKeys; ++key)
                image[static_cast<std::size_t>(p * kPatchBytes + kKeyByte[key])] = static_cast<std::uint8_t>(random() % 100);
        }
        original = image;
        model.flags.loaded[kPatchBankA] = true;
        model.mode = kPatchBankA;
        model.bankTarget = kPatchBankA;
        fraBankSetUp(model);
        fraBankLabelsSetUp(model, kPatchBankA, 0);
    }

    void restore() { model.banks.image(kPatchBankA) = original; }
};

void sortWholeBank(benchmark::State& state)
{
    BankBench bench;
    const int key = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        bench.restore();
        state.ResumeTiming();
        sortBank(bench.model, key);
        benchmark::DoNotOptimize(bench.model.banks.image(kPatchBankA).data());
    }
}
BENCHMARK(sortWholeBank)->DenseRange(1, 10)->Unit(benchmark::kMicrosecond);

void sortWholeSelection(benchmark::State& state)
{
    BankBench bench;
    mnuSelectAll(bench.model);
    const int key = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        bench.restore();
        state.ResumeTiming();
        sortSelection(bench.model, key);
        benchmark::DoNotOptimize(bench.model.banks.image(kPatchBankA).data());
    }
}
BENCHMARK(sortWholeSelection)->DenseRange(1, 10)->Unit(benchmark::kMicrosecond);

void rotateWholeBank(benchmark::State& state)
{
    BankBench bench;
    mnuSelectAll(bench.model);
    const int step = static_cast<int>(state.range(0));
    for (auto _ : state) {
        rotateSelection(bench.model, step);
        benchmark::DoNotOptimize(bench.model.banks.image(kPatchBankA).data());
    }
}
BENCHMARK(rotateWholeBank)->Arg(-2)->Arg(-1)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

void swapAndInsertHalfTheBank(benchmark::State& state)
{
    BankBench bench;
    for (int p = 1; p < kPatchesPerBank; p += 2)
        bench.model.banks.selection(kPatchBankA).selectionFlags[static_cast<std::size_t>(p)] = -1;
    bankSelectSequence(bench.model);
    for (auto _ : state) {
        if (state.range(0) == 0)
            swapSelection(bench.model, 1);
        else
            insertSelection(bench.model, 1);
        benchmark::DoNotOptimize(bench.model.banks.image(kPatchBankA).data());
    }
}
BENCHMARK(swapAndInsertHalfTheBank)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void undoASortOfTheBank(benchmark::State& state)
{
    BankBench bench;
    for (auto _ : state) {
        state.PauseTiming();
        bench.restore();
        sortBank(bench.model, 1);
        state.ResumeTiming();
        undoBankOperation(bench.model);
        benchmark::DoNotOptimize(bench.model.banks.image(kPatchBankA).data());
    }
}
BENCHMARK(undoASortOfTheBank)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillon
