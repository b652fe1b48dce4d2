#include "files/LoadingFiles.h"
#include "files/OpenSysExFile.h"
#include "files/SysExFileRecognition.h"
#include "model/Kind.h"
#include "sysex/SysExClassifier.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace quillon {
namespace {

// Answers every box with OK and the open dialog with one path; a file of
// random bytes may bring any of the loaders' boxes.
class AnsweringHost : public Host {
public:
    std::string path;
    std::vector<MessageRequest> messages;
    int busyDepth = 0;

    Answer showMessage(const MessageRequest& request) override
    {
        messages.push_back(request);
        return Answer::Ok;
    }
    std::optional<std::string> chooseOpenFile(const FileDialogRequest&) override { return path; }
    std::optional<std::string> chooseSaveFile(const FileDialogRequest&) override { return std::nullopt; }
    void setStatus(const std::string&, StatusColour) override {}
    using Host::setMessage;
    void setMessage(const std::string&) override {}
    void setBusy(bool busy) override { busyDepth += busy ? 1 : -1; }
};

// Every size from 0 to 2000, a stride up to 200000, and each edge of every
// size band and every loader's scan and wrapped bands, one byte either side.
std::vector<std::uintmax_t> sizesToTry()
{
    std::set<std::uintmax_t> sizes;
    for (std::uintmax_t size = 0; size <= 2000; ++size)
        sizes.insert(size);
    for (std::uintmax_t size = 2000; size <= 200000; size += 1999)
        sizes.insert(size);
    sizes.insert(200000);
    const std::uintmax_t edges[] = {182939, 183139, 168531, 168731, 84270, 84470, 666, 866, 7617, 7817, 3814, 4014,
                                    245,    297,    365,    448,    5860,  6060,  300, 364, 483,  663,  966,  1166,
                                    785,    786,    84389,  84390,  3933,  3934,  5979, 5980};
    for (const std::uintmax_t edge : edges) {
        for (const std::uintmax_t size : {edge - 1, edge, edge + 1})
            sizes.insert(size);
    }
    return {sizes.begin(), sizes.end()};
}

std::vector<std::uint8_t> randomBytes(std::uintmax_t size)
{
    std::mt19937 generator(static_cast<unsigned>(size) * 2654435761u + 17u);
    std::uniform_int_distribution<int> byte(0, 255);
    std::vector<std::uint8_t> bytes(size);
    for (auto& b : bytes)
        b = static_cast<std::uint8_t>(byte(generator));
    return bytes;
}

// The model as a user might have it: the three items loaded and clean, named
// so that a load of anything else would show.
void prepare(AppModel& model)
{
    for (const int kind : {kPatch, kMultiset, kPattern}) {
        ItemBuffers& b = model.buffers.of(kind);
        for (int p = 1; p <= 16; ++p)
            b.current[p] = 'Z';
        b.loaded = b.current;
        b.last = b.current;
        model.flags.loaded[kind] = true;
        model.flags.clean[kind] = true;
        model.itemPath[kind] = "item" + std::to_string(kind) + ".syx";
    }
    model.banks.image(kPatchBankA) = countingImage(73728);
    model.flags.loaded[kPatchBankA] = true;
}

struct Snapshot {
    explicit Snapshot(AppModel& model)
        : buffers(model.buffers),
          flags(model.flags),
          itemPath(model.itemPath),
          recentFiles(model.recentFiles),
          packed(model.packed),
          mode(model.mode)
    {
        for (const int kind : {kPatchBankA, kPatchBankB, kMultiBankA, kMultiBankB, kArpBank})
            banks[kind] = model.banks.image(kind);
    }

    EditBuffers buffers;
    KindFlags flags;
    std::array<std::string, 9> itemPath;
    std::array<std::string, kRecentFiles + 1> recentFiles;
    std::array<SysExImage, 9> packed;
    std::array<ByteImage, 9> banks;
    int mode;
};

void checkOneFile(const TempFolder& folder, std::uintmax_t size)
{
    SCOPED_TRACE("file of " + std::to_string(size) + " bytes");
    AnsweringHost host;
    MemorySettingsStore store;
    AppModel model(host, store, folder.path());
    prepare(model);
    const Snapshot before(model);

    host.path = (folder / ("random" + std::to_string(size) + ".syx")).string();
    writeFile(host.path, randomBytes(size));
    OpenFileSurroundings surroundings{folder / "no-music", {}};
    doOpenSysExFile(model, 0, surroundings);
    std::filesystem::remove(host.path);

    const int band = recognizeFileSize(size);
    const int single = band == kSysExPatch ? kPatch : band == kSysExSingleMulti ? kMultiset
                                                      : band == kSysExSinglePattern ? kPattern : 0;

    EXPECT_EQ(host.busyDepth, 0);
    if (!(isMiscBand(band) && !model.misc.message.empty())) {
        EXPECT_GE(host.messages.size(), 1u) << "every failure is told";
    }
    for (const int kind : {kPatch, kMultiset, kPattern}) {
        EXPECT_EQ(model.buffers.of(kind).current, before.buffers.of(kind).current) << kind;
        EXPECT_EQ(model.buffers.of(kind).loaded, before.buffers.of(kind).loaded) << kind;
        EXPECT_EQ(model.buffers.of(kind).last, before.buffers.of(kind).last) << kind;
    }
    for (int kind = kPatch; kind <= kArpBank; ++kind) {
        EXPECT_EQ(model.itemPath[kind], before.itemPath[kind]) << kind;
        if (kind != single) {
            EXPECT_EQ(model.packed[kind], before.packed[kind]) << kind;
        }
        // A failed load of any bank replaces nothing and marks nothing.
        if (kind != kPatch && kind != kMultiset && kind != kPattern) {
            EXPECT_EQ(model.banks.image(kind), before.banks[kind]) << kind;
        }
        EXPECT_EQ(model.flags.loaded[kind], before.flags.loaded[kind]) << kind;
        EXPECT_EQ(model.flags.changed[kind], before.flags.changed[kind]) << kind;
        EXPECT_EQ(model.flags.clean[kind], before.flags.clean[kind]) << kind;
    }
    EXPECT_EQ(model.recentFiles, before.recentFiles);
    EXPECT_EQ(model.mode, before.mode);
    if (isMiscBand(band)) {
        if (!model.misc.message.empty()) {
            EXPECT_EQ(model.misc.length(), miscWantedLength(band));
        }
    } else {
        EXPECT_TRUE(model.misc.message.empty());
    }
}

TEST(SysExFileSizes, RandomFilesOfEverySizeChangeNothingTheyMayNot)
{
    const TempFolder folder;
    for (const std::uintmax_t size : sizesToTry()) {
        checkOneFile(folder, size);
        if (::testing::Test::HasFailure())
            break;
    }
}

TEST(SysExFileSizes, RecognitionAndSearchHandleEverySize)
{
    for (const std::uintmax_t size : sizesToTry()) {
        const auto bytes = randomBytes(size);
        const int band = recognizeFileSize(size);
        ASSERT_GE(band, 1);
        ASSERT_LE(band, 12);
        const MessageSearch found = findMessageInFile(bytes, band);
        if (found.result == SearchResult::Found) {
            const auto accepted = acceptedLengths(band);
            EXPECT_NE(std::find(accepted.begin(), accepted.end(), static_cast<int>(found.message.size())),
                      accepted.end())
                << size;
        }
    }
}

}  // namespace
}  // namespace quillon
