// How long a whole PatchBank takes from its packed 84261 bytes to the values
// of its 128 patches, and back: what opening or receiving a bank costs.

#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "sysex/SysExPacking.h"

#include <benchmark/benchmark.h>

#include <random>
#include <span>

namespace quillon {
namespace {

// A bank of 128 patches with random values in range, so that every patch
// has its own oscillator and effect types.
ByteImage randomBank()
{
    const auto& rows = paramTables().patch;
    std::mt19937 rng(128);
    ByteImage bank(byteImageSize(kPatchBankA), 0);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        ParamValues values = paramTables().patchDefaults;
        for (std::size_t r = 1; r < rows.size(); ++r) {
            std::uniform_int_distribution<int> v(rows[r].min, std::max(rows[r].min, rows[r].max));
            values[r] = static_cast<std::int16_t>(v(rng));
        }
        patchParamsToImage(values, std::span(bank).subspan(static_cast<std::size_t>(p) * kPatchBytes, kPatchBytes));
    }
    return bank;
}

std::span<std::uint8_t> member(ByteImage& bank, int p)
{
    return std::span(bank).subspan(static_cast<std::size_t>(p) * kPatchBytes, kPatchBytes);
}

void unpackPatchBankIntoValues(benchmark::State& state)
{
    const SysExImage packed = DATAtoMIDI(kPatchBankA, randomBank());
    std::vector<ParamValues> values(kPatchesPerBank, paramTables().patchDefaults);
    for (auto _ : state) {
        SysExImage buffer = packed;  // unpacking changes its buffer
        LoadReport report;
        ByteImage bank = MIDItoDATA(kPatchBankA, buffer, report);
        for (int p = 0; p < kPatchesPerBank; ++p)
            imageToPatchParams(member(bank, p), values[p], report);
        benchmark::DoNotOptimize(values.back().data());
    }
}
BENCHMARK(unpackPatchBankIntoValues)->Unit(benchmark::kMicrosecond);

void packPatchBankFromValues(benchmark::State& state)
{
    ByteImage bank = randomBank();
    std::vector<ParamValues> values(kPatchesPerBank, paramTables().patchDefaults);
    LoadReport report;
    for (int p = 0; p < kPatchesPerBank; ++p)
        imageToPatchParams(member(bank, p), values[p], report);
    for (auto _ : state) {
        for (int p = 0; p < kPatchesPerBank; ++p)
            patchParamsToImage(values[p], member(bank, p));
        SysExImage packed = DATAtoMIDI(kPatchBankA, bank);
        benchmark::DoNotOptimize(packed.data());
    }
}
BENCHMARK(packPatchBankFromValues)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillon
