// How long a round of Extract to Files and Import to Bank takes, headless: a
// whole PatchBank written to 128 patch files, and the 128 files imported
// back into the other bank. The files go to a folder of the system's
// temporary files: an empty one, as when a user extracts a bank for the
// first time, and one holding the files already, which each file replaces
// (a file system such as ext4 writes out the data of a file that replaces
// another before the rename, which is most of that time).

#include "QuietHost.h"
#include "banks/BankView.h"
#include "banks/ExtractFiles.h"
#include "banks/ImportFiles.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>

namespace quillon {
namespace {

// Answers the save dialog of the extraction with a file in the folder.
class FolderHost : public QuietHost {
public:
    explicit FolderHost(std::filesystem::path folder) : folder_(std::move(folder)) {}
    std::optional<std::string> chooseSaveFile(const FileDialogRequest&) override
    {
        return (folder_ / "chosen.syx").string();
    }

private:
    std::filesystem::path folder_;
};

struct Round {
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-import";
    FolderHost host{folder};
    MemorySettingsStore store;
    AppModel model{host, store, folder / "data"};

    Round()
    {
        std::filesystem::create_directories(folder / "data");
        std::mt19937 rng(1999);
        for (int bank : {kPatchBankA, kPatchBankB}) {
            for (auto& b : model.banks.image(bank))
                b = static_cast<std::uint8_t>(rng());
            model.flags.loaded[bank] = true;
        }
        // Distinct names: the bank place leads each file name.
        model.settings.fileNameFormat = 6;
        model.mode = kPatchBankA;
        model.bankTarget = kPatchBankA;
        fraBankLabelsSetUp(model, kPatchBankA, 4);
        bankSelectSequence(model);
    }
    ~Round() { removeFiles(); }

    // Empties the folder of its patch files.
    void removeFiles()
    {
        for (const auto& file : importFilesInFolder(folder)) {
            std::error_code ignored;
            std::filesystem::remove(file, ignored);
        }
    }
};

void BM_ExtractBankTo128Files(benchmark::State& state)
{
    Round round;
    for (auto _ : state) {
        state.PauseTiming();
        round.removeFiles();
        state.ResumeTiming();
        benchmark::DoNotOptimize(extractPatches(round.model));
    }
}
BENCHMARK(BM_ExtractBankTo128Files)->Unit(benchmark::kMillisecond);

void BM_ExtractBankOver128ExistingFiles(benchmark::State& state)
{
    Round round;
    extractPatches(round.model);
    for (auto _ : state)
        benchmark::DoNotOptimize(extractPatches(round.model));
}
BENCHMARK(BM_ExtractBankOver128ExistingFiles)->Unit(benchmark::kMillisecond);

void BM_ExtractBankAndImportItBack(benchmark::State& state)
{
    Round round;
    for (auto _ : state) {
        state.PauseTiming();
        round.removeFiles();
        state.ResumeTiming();
        extractPatches(round.model);
        ImportState import;
        import.targetBank = kPatchBankB;
        importFiles(round.model, import, importFilesInFolder(round.folder), 0, {});
        if (import.written != kPatchesPerBank)
            state.SkipWithError("not every patch came back");
        benchmark::DoNotOptimize(round.model.banks.image(kPatchBankB).data());
    }
}
BENCHMARK(BM_ExtractBankAndImportItBack)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillon
