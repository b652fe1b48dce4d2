// Import to Bank on arbitrary bytes: the input is a file the user selects in
// frmImport. Its first byte also chooses the place the run starts from, so
// that runs end at the bank's last place too. The file is decoded on its
// own, then imported twice into the same bank, as a second click on Import
// continues where the first run stopped.

#include "FuzzSupport.h"

#include "banks/ImportFiles.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quillon;
    const std::span<const std::uint8_t> bytes(data, size);
    const ImportDecoded decoded = decodeImportFile(bytes);
    if (decoded.verdict == ImportVerdict::Loaded && decoded.image.size() != static_cast<std::size_t>(kPatchBytes))
        __builtin_trap();

    const std::filesystem::path file = fuzz::scratchFolder() / "selected.syx";
    fuzz::writeBytes(file, bytes);
    static fuzz::QuietHost host;
    static MemorySettingsStore store;
    static AppModel model(host, store, fuzz::scratchFolder() / "data");
    model.flags.loaded[kPatchBankB] = true;

    ImportState state;
    state.targetBank = kPatchBankB;
    const int start = size == 0 ? 0 : data[0] % kPatchesPerBank;
    importFiles(model, state, {file, file}, start, {});
    importFiles(model, state, {file}, start, {});
    if (state.written > 3 || state.position > kPatchesPerBank)
        __builtin_trap();
    return 0;
}
