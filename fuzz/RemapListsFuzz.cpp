// The files of Remap on arbitrary bytes: the four bank lists ("oldA.txt",
// "oldB.txt", "newA.txt", "newB.txt") and Quillonrmp.dat. The first byte
// says which of the five files are there; the rest, cut at each byte 0x1E,
// gives their contents in that order. They are read as start-up, Create
// Remap, Show Remap and the Remap commands read them, and what was read is
// used: names matched, multisets remapped, the list of Show Remap made.

#include "FuzzSupport.h"

#include "banks/CreateRemap.h"
#include "banks/RemapLists.h"
#include "banks/RemapShow.h"
#include "banks/RemapTable.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace {

constexpr std::uint8_t kFileSeparator = 0x1E;

// The contents of the files, cut at the separator; the last takes what is
// left, and missing ones are empty.
std::vector<std::span<const std::uint8_t>> cutFiles(std::span<const std::uint8_t> rest, std::size_t count)
{
    std::vector<std::span<const std::uint8_t>> files(count);
    std::size_t part = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i < rest.size() && part + 1 < count; ++i) {
        if (rest[i] == kFileSeparator) {
            files[part++] = rest.subspan(start, i - start);
            start = i + 1;
        }
    }
    files[part] = rest.subspan(start);
    return files;
}

void checkTable(const quillon::RemapTable& table)
{
    for (const std::int16_t value : table) {
        if (value < -1 || value > 255)
            __builtin_trap();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quillon;
    fuzz::InputReader input(data, size);
    const std::uint8_t present = input.byte();
    const auto files = cutFiles(input.rest(), 5);

    static const std::filesystem::path folder = [] {
        const std::filesystem::path made = fuzz::scratchFolder() / "data";
        std::filesystem::create_directories(made);
        return made;
    }();
    static fuzz::QuietHost host;
    static MemorySettingsStore store;
    static AppModel model(host, store, folder);
    model.remap = RemapLists{};
    model.flags.loaded[kMultiset] = true;
    model.flags.loaded[kMultiBankA] = true;
    model.flags.loaded[kMultiBankB] = true;

    const std::filesystem::path paths[] = {
        bankListPath(model, kPatchBankA, kOldList), bankListPath(model, kPatchBankB, kOldList),
        bankListPath(model, kPatchBankA, kNewList), bankListPath(model, kPatchBankB, kNewList),
        remapTablePath(model)};
    for (std::size_t i = 0; i < std::size(paths); ++i) {
        std::error_code error;
        std::filesystem::remove(paths[i], error);
        if (present & (1u << i))
            fuzz::writeBytes(paths[i], files[i]);
    }

    // Start-up, then what the Remap commands and Show Remap read.
    checkNewLists(model);
    readBankList(model, kPatchBankA, kOldList);
    readBankList(model, kPatchBankB, kOldList);
    if (loadRemapTable(model)) {
        checkTable(model.remap.remapTable);
        remapMultiset(model, 0, 0);
        for (int position = 0; position < kMultisPerBank; ++position) {
            remapMultiset(model, kMultiBankA, position);
            remapMultiset(model, kMultiBankB, position);
        }
    }
    RemapShowData show;
    if (openShowRemap(model, show)) {
        for (int order = kByOldNumber; order <= kByNewName; ++order)
            remapShowText(show, order);
    }
    // Create Remap on the lists that are there (banks in memory are not
    // loaded, so every step with a list uses it), which matches the names
    // read and writes the table anew.
    host.questionAnswer = (present & 0x20) != 0 ? Answer::Yes : Answer::Cancel;
    if (!createRemap(model))
        matchNames(model);
    checkTable(model.remap.remapTable);
    return 0;
}
