// The whole Open road on arbitrary bytes: the input is the .syx file the
// user picks. Its size picks the band, the band's loader scans it or walks
// its wrapped form, and a file of several kinds goes on to frmMisc, where
// every bank it offers is ticked and extracted.

#include "FuzzSupport.h"

#include "files/MiscDialog.h"
#include "files/OpenSysExFile.h"
#include "shell/AppModel.h"

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quillon;
    const std::filesystem::path file = fuzz::scratchFolder() / "picked.syx";
    fuzz::writeBytes(file, std::span<const std::uint8_t>(data, size));

    // One program session opens file after file, as a user would: the
    // model is made once.
    static fuzz::QuietHost host;
    static MemorySettingsStore store;
    static AppModel model(host, store, fuzz::scratchFolder() / "data");
    host.openPath = file.string();
    // The save-first prompt: No takes the load on; Yes brings the save
    // dialog, which is cancelled, so the load must not go on.
    host.questionAnswer = size % 3 == 1 ? Answer::Yes : Answer::No;

    OpenFileSurroundings surroundings;
    surroundings.musicFolder = fuzz::scratchFolder();
    surroundings.showMiscDialog = [](AppModel& shown, MiscDialogState& state) {
        for (int box = 0; box < kMiscTypeBoxes; ++box)
            state.typeTicked[box] = state.typeVisible[box];
        misc::doProcessLoad(shown, state);
    };
    doOpenSysExFile(model, 0, surroundings);
    return 0;
}
