// The text files of the data folder on arbitrary bytes: Quillonset.dat, the
// user files of the patch and the multiset, and Quillonpe.dat. The first
// byte of the input picks the file, the rest is the file; each is read the
// way start-up and the Settings menu read it, and what was read is used.

#include "FuzzSupport.h"

#include "files/DataFolder.h"
#include "files/PeFile.h"
#include "files/SystemSettingsFile.h"
#include "files/UserFiles.h"
#include "shell/AppModel.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quillon;
    fuzz::InputReader input(data, size);
    const std::uint8_t choice = input.byte();
    const auto file = input.rest();

    static const std::filesystem::path folder = [] {
        const std::filesystem::path made = fuzz::scratchFolder() / "data";
        std::filesystem::create_directories(made);
        return made;
    }();
    // The program reads these files at start-up and again from the
    // Settings menu, into the one model it has: the model is made once.
    static fuzz::QuietHost host;
    static MemorySettingsStore store;
    static AppModel model(host, store, folder);

    switch (choice % 4) {
    case 0:
        fuzz::writeBytes(folder / kSystemSettingsFile, file);
        readSystemSettings(model);
        systemSettingsLines(model.settings);
        for (int slot = -1; slot <= 140; ++slot)
            favouriteCaption(slot);
        break;
    case 1: {
        const int number = (choice >> 2) % 6;
        fuzz::writeBytes(folder / userPatchFileName(number), file);
        readUserPatchFile(model, number);
        break;
    }
    case 2:
        fuzz::writeBytes(folder / kUserMultiFile, file);
        readUserMultiFile(model);
        break;
    case 3:
        fuzz::writeBytes(folder / kPeFile, file);
        if (openPeFile(model)) {
            for (int n = -1; n <= 231; ++n)
                peParamName(model, n);
        }
        break;
    }
    return 0;
}
