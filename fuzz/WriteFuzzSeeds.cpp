// Writes the seed corpus of each fuzz target into the folder named (the
// repository's tests/data/fuzz): dumps made the way the instrument makes
// them, in plain and wrapped files, scripts for the receive engine and the
// factory data files. Run by tools/make-fuzz-seeds.

#include "files/LoadingFiles.h"

#include "banks/RemapLists.h"
#include "banks/RemapTable.h"
#include "files/DataFolder.h"
#include "model/Kind.h"
#include "sysex/SysExFraming.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using namespace quillon;

namespace {

using Bytes = std::vector<std::uint8_t>;

void put(const fs::path& folder, const std::string& name, const Bytes& bytes)
{
    fs::create_directories(folder);
    writeFile(folder / name, bytes);
}

Bytes readAll(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return Bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

Bytes joined(const Bytes& a, const Bytes& b)
{
    Bytes both = a;
    both.insert(both.end(), b.begin(), b.end());
    return both;
}

void writeOpenFileSeeds(const fs::path& folder)
{
    const SysExMessage patch = patchMessage(countingImage(kPatchBytes));
    const SysExMessage multi = multiMessage(countingImage(kMultiBytes));
    const SysExMessage pattern = patternMessage(countingImage(kPatternBytes));
    const SysExMessage global = globalOrMidiMessage(0x00);
    const SysExMessage midi = globalOrMidiMessage(0x01);
    put(folder, "patch.syx", patch);
    put(folder, "long-patch.syx", longPatchMessage(countingImage(kPatchBytes)));
    put(folder, "multi.syx", multi);
    put(folder, "long-multi.syx", longMultiMessage(countingImage(kMultiBytes)));
    put(folder, "pattern.syx", pattern);
    put(folder, "multi-bank.syx", multiBankMessage(kMultiBankB, countingImage(byteImageSize(kMultiBankA))));
    put(folder, "arp-bank.syx", arpBankMessage(countingImage(byteImageSize(kArpBank))));
    put(folder, "all-multi.syx", allMultiMessage(countingImage(6656)));
    put(folder, "global.syx", global);
    put(folder, "global-and-midi.syx", joined(global, midi));
    put(folder, "patch-with-stray-bytes.syx", withStrayBytes(patch, 3, 2));
    put(folder, "wrapped-patch.syx", wrappedFile({patch}));
    put(folder, "wrapped-multi-and-pattern.syx", wrappedFile({multi, pattern}));
    put(folder, "stray.syx", Bytes{0xF0, 0x42, 0x30, 0x46, 0x40, 0xF7});
}

// Files offered to Import to Bank: a patch dump plain, with the longer
// header, with stray bytes around it and in the container form; a container
// with another block before the dump; and the lengths just outside.
void writeImportFileSeeds(const fs::path& folder)
{
    const SysExMessage patch = patchMessage(countingImage(kPatchBytes));
    put(folder, "patch.syx", patch);
    put(folder, "long-patch.syx", longPatchMessage(countingImage(kPatchBytes)));
    put(folder, "patch-with-stray-bytes.syx", withStrayBytes(patch, 60, 40));
    put(folder, "wrapped-patch.syx", wrappedFile({patch}));
    put(folder, "wrapped-block-and-patch.syx", wrappedFile({Bytes(12, 0x10), patch}));
    put(folder, "too-short.syx", Bytes(665, 0xF0));
    put(folder, "too-long.syx", Bytes(867, 0xF7));
}

// The files of Remap: a first byte naming the files that are there (one bit
// each for oldA, oldB, newA, newB and Quillonrmp.dat; 0x20 answers Create
// Remap's questions), then their contents cut at 0x1E.
Bytes remapInput(std::uint8_t present, const std::vector<std::vector<std::string>>& files)
{
    Bytes input{present};
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (i > 0)
            input.push_back(0x1E);
        for (const std::string& line : files[i]) {
            input.insert(input.end(), line.begin(), line.end());
            input.push_back('\r');
            input.push_back('\n');
        }
    }
    return input;
}

void writeRemapListSeeds(const fs::path& folder)
{
    std::array<std::string, 128> oldA;
    std::array<std::string, 128> oldB;
    for (int p = 0; p < 128; ++p) {
        char name[17];
        std::snprintf(name, sizeof name, "Patch A%03d      ", p);
        oldA[static_cast<std::size_t>(p)] = name;
        std::snprintf(name, sizeof name, "patch b%03d      ", p);
        oldB[static_cast<std::size_t>(p)] = name;
    }
    std::array<std::string, 128> newA = oldA;
    std::reverse(newA.begin(), newA.end());
    std::array<std::string, 128> newB = oldB;
    newB[12] = "Renamed         ";
    newB[13] = "PATCH A000      ";
    RemapTable table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<std::int16_t>(i % 9 == 0 ? -1 : 255 - i);
    const std::vector<std::vector<std::string>> all = {formatBankList(oldA), formatBankList(oldB), formatBankList(newA),
                                                       formatBankList(newB), formatRemapTable(table)};
    put(folder, "all-five", remapInput(0x3F, all));
    put(folder, "lists-only", remapInput(0x2F, {all[0], all[1], all[2], all[3]}));
    put(folder, "new-lists-and-table", remapInput(0x1C, {{}, {}, all[2], all[3], all[4]}));
    put(folder, "table-only", remapInput(0x10, {{}, {}, {}, {}, all[4]}));
    put(folder, "short-list", remapInput(0x21, {{"\"000\",\"only\"", "no comma"}}));
    put(folder, "bad-table", remapInput(0x10, {{}, {}, {}, {}, {"1", "x", "-2", "256"}}));
}

void writeConversionSeeds(const fs::path& folder)
{
    // Each message shape with its message; the long ones only with their
    // header, since the target fills the message up to its length.
    const SysExMessage messages[] = {
        longPatchMessage(countingImage(kPatchBytes)),
        patchMessage(countingImage(kPatchBytes)),
        patternMessage(countingImage(kPatternBytes)),
        multiMessage(countingImage(kMultiBytes)),
        longMultiMessage(countingImage(kMultiBytes)),
        multiBankMessage(kMultiBankA, countingImage(byteImageSize(kMultiBankA))),
        arpBankMessage(countingImage(byteImageSize(kArpBank))),
        bankMessage(kPatchBankB, countingImage(byteImageSize(kPatchBankA))),
    };
    const auto shapes = messageShapes();
    for (std::size_t s = 0; s < shapes.size(); ++s) {
        const SysExMessage& message = messages[s];
        // The shape, the Kind to unpack as, the member of a bank to read.
        Bytes seed{static_cast<std::uint8_t>(s), static_cast<std::uint8_t>(shapes[s].target), 5};
        const std::size_t kept = std::min<std::size_t>(message.size(), 700);
        seed.insert(seed.end(), message.begin(), message.begin() + static_cast<std::ptrdiff_t>(kept));
        put(folder, "shape-" + std::to_string(shapes[s].length), seed);
    }
    // A message of its own length, and packed data of a misc dump.
    put(folder, "own-length", joined(Bytes{static_cast<std::uint8_t>(shapes.size()), kOtherDump, 0},
                                     globalOrMidiMessage(0x00)));
}

// A step that gives the input a message of a block length (its index in the
// target's list) with its first bytes.
Bytes deliverStep(std::uint8_t lengthIndex, const SysExMessage& message)
{
    const std::size_t kept = std::min<std::size_t>(message.size(), 1000);
    Bytes step{2, lengthIndex, 0x00, static_cast<std::uint8_t>(kept & 0xFF), static_cast<std::uint8_t>(kept >> 8)};
    step.insert(step.end(), message.begin(), message.begin() + static_cast<std::ptrdiff_t>(kept));
    // Framed only when cut short, so that the message still ends in F7.
    if (kept < message.size())
        step[2] = 2;
    return step;
}

void writeReceiveSeeds(const fs::path& folder)
{
    const Bytes listen{0};
    struct Block {
        const char* name;
        std::uint8_t lengthIndex;
        SysExMessage message;
    };
    const Block blocks[] = {
        {"patch", 3, patchMessage(countingImage(kPatchBytes))},
        {"long-patch", 4, longPatchMessage(countingImage(kPatchBytes))},
        {"multi", 7, multiMessage(countingImage(kMultiBytes))},
        {"long-multi", 8, longMultiMessage(countingImage(kMultiBytes))},
        {"pattern", 10, patternMessage(countingImage(kPatternBytes))},
        {"multi-bank", 6, multiBankMessage(kMultiBankB, countingImage(byteImageSize(kMultiBankA)))},
        {"arp-bank", 9, arpBankMessage(countingImage(byteImageSize(kArpBank)))},
        {"all-multi", 5, allMultiMessage(countingImage(6656))},
        {"global", 11, globalOrMidiMessage(0x00)},
    };
    for (const Block& block : blocks) {
        // Answer No, Listen, the message, the output done.
        put(folder, std::string("listen-") + block.name,
            joined(joined(Bytes{2}, listen), joined(deliverStep(block.lengthIndex, block.message), Bytes{6})));
    }
    // Each request and its answer.
    for (std::uint8_t request = 0; request < 8; ++request) {
        const Block& answer = blocks[request % std::size(blocks)];
        put(folder, "request-" + std::to_string(request),
            joined(Bytes{2, 1, static_cast<std::uint8_t>(request + 1), 6}, deliverStep(answer.lengthIndex, answer.message)));
    }
    put(folder, "short-messages", Bytes{2, 0, 2, 16, 3, 3, 0, 0x90, 0x40, 0x7F, 4, 5, 7, 1, 8, 2});
}

void writeDataFileSeeds(const fs::path& folder)
{
    const fs::path factory = fs::temp_directory_path() / "quillon-fuzz-seeds-factory";
    fs::remove_all(factory);
    if (!prepareDataFolder(factory)) {
        std::fprintf(stderr, "cannot write the factory files\n");
        return;
    }
    put(folder, "settings", joined(Bytes{0}, readAll(factory / kSystemSettingsBackup)));
    put(folder, "user-patch", joined(Bytes{1}, readAll(factory / kUserPatchBackup)));
    put(folder, "user-multi", joined(Bytes{2}, readAll(factory / kUserMultiBackup)));
    put(folder, "pe", joined(Bytes{3}, readAll(factory / kPeBackup)));
    const std::string shortLine = "a\r\nbb\r\n";
    put(folder, "settings-short-lines", joined(Bytes{0}, Bytes(shortLine.begin(), shortLine.end())));
    fs::remove_all(factory);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: write_fuzz_seeds FOLDER\n");
        return 2;
    }
    const fs::path root(argv[1]);
    for (const char* target : {"fuzz_open_file", "fuzz_sysex_conversion", "fuzz_receive_engine", "fuzz_data_files"})
        fs::remove_all(root / target);
    writeOpenFileSeeds(root / "fuzz_open_file");
    writeConversionSeeds(root / "fuzz_sysex_conversion");
    writeReceiveSeeds(root / "fuzz_receive_engine");
    writeDataFileSeeds(root / "fuzz_data_files");
    writeImportFileSeeds(root / "fuzz_import_file");
    fs::remove_all(root / "fuzz_remap_lists");
    writeRemapListSeeds(root / "fuzz_remap_lists");
    return 0;
}
