#include "files/AtomicFile.h"
#include "files/OpenSysExFile.h"
#include "files/SysExSaving.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"
#include "files/SysExFileRecognition.h"
#include "sysex/SysExClassifier.h"
#include "sysex/SysExFraming.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quillon {
namespace {

std::vector<std::uint8_t> fileBytes(const std::string& path)
{
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readWholeFile(path, bytes)) << path;
    return bytes;
}

std::vector<std::uint8_t> headerOf(const std::vector<std::uint8_t>& bytes, std::size_t count)
{
    return std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
}

// Saves the item of a Kind through the dialog into the test's folder and
// returns the path.
std::string saveThroughDialog(TestModel& t, int kind, const char* title)
{
    std::string name("kind");
    name.append(std::to_string(kind)).append(".syx");
    const std::string path = (t.folder / name).string();
    t.host.expectSaveFile(title, path);
    EXPECT_TRUE(saveKind(t.model, kind, 2));
    return path;
}

// What a file gives when it is opened: its type by its first bytes, and the
// unpacked data of the Kind its message goes to.
struct LoadedBack {
    int band = 0;   // what the file's size says it is
    int type = 0;   // what its first bytes say
    bool found = false;
    int target = 0;
    ByteImage image;
    int corrections = 0;
};

LoadedBack loadBack(const std::string& path, int bankTarget = kPatchBankA, int multiBankTarget = kMultiBankA)
{
    const std::vector<std::uint8_t> bytes = fileBytes(path);
    LoadedBack back;
    back.band = recognizeFileSize(bytes.size());
    back.type = classifySysEx(bytes);
    const MessageSearch search = findMessageInFile(bytes, back.band);
    back.found = search.result == SearchResult::Found && search.message == bytes;
    StringToMidiResult stripped = STRINGtoMIDI(bytes, bankTarget, multiBankTarget);
    EXPECT_TRUE(stripped.handled && stripped.success) << path;
    back.target = stripped.target;
    LoadReport report;
    back.image = MIDItoDATA(stripped.target, stripped.packed, report);
    back.corrections = report.changeCount();
    return back;
}

// Whether a value can stand in a row's bits: as it is, or in two's
// complement when it is negative.
bool fitsField(const ParamDef& def, int value)
{
    const int width = def.endB - def.startB + 1;
    if (value >= 0)
        return value < (1 << width);
    return -value <= (1 << (width - 1));
}

// Changes many values of the item, each within its range and its bits and
// never one that would bring other rows into force, so that every row in
// force can be compared after the trip through a file.
void varyValues(int kind, ParamValues& values)
{
    const ParamTables& tables = paramTables();
    const std::vector<ParamDef>& rows =
        kind == kPatch ? tables.patch : (kind == kMultiset ? tables.multi : tables.arp);
    const std::vector<int> inForce = rowsInForce(kind, values);
    int n = 0;
    for (int row : inForce) {
        if (++n % 3 != 0)
            continue;
        const std::int16_t before = values[row];
        const ParamDef& def = rows[row];
        const int value = n % 2 == 0 ? def.max : def.min;
        if (!fitsField(def, value))
            continue;
        values[row] = static_cast<std::int16_t>(value);
        if (rowsInForce(kind, values) != inForce)
            values[row] = before;
    }
}

ParamValues valuesOf(int kind, const ByteImage& image)
{
    const ParamTables& tables = paramTables();
    ParamValues values = kind == kPatch ? tables.patchDefaults
                                        : (kind == kMultiset ? tables.multiDefaults : tables.arpDefaults);
    LoadReport report;
    if (kind == kPatch)
        imageToPatchParams(image, values, report);
    else if (kind == kMultiset)
        imageToMultiParams(image, values, report);
    else
        imageToArpParams(image, values, report);
    EXPECT_EQ(report.changeCount(), 0);
    return values;
}

ByteImage bankFilling(int kind)
{
    ByteImage image(static_cast<std::size_t>(byteImageSize(kind)));
    for (std::size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<std::uint8_t>((i * 37 + static_cast<std::size_t>(kind) * 11) & 0xFF);
    return image;
}

struct HeaderCase {
    int kind;
    const char* title;
    std::vector<std::uint8_t> header;
    std::size_t size;
    int type;          // by the file's size
    int functionType;  // by the function code, which cannot tell a bank from All Program
};

const std::vector<HeaderCase>& headerCases()
{
    static const std::vector<HeaderCase> cases{
        {kPatch, "Save Patch", {0xF0, 0x42, 0x30, 0x46, 0x40, 0x01}, 666, kSysExPatch, kSysExPatch},
        {kMultiset, "Save (Single) Multiset", {0xF0, 0x42, 0x30, 0x46, 0x49, 0x00}, 245, kSysExSingleMulti, kSysExSingleMulti},
        {kPattern, "Save (Single) Arp Pattern", {0xF0, 0x42, 0x30, 0x46, 0x6B, 0x00}, 300, kSysExSinglePattern, kSysExSinglePattern},
        {kPatchBankA, "Save Bank A", {0xF0, 0x42, 0x30, 0x46, 0x4C, 0x10, 0x00, 0x00}, 84270, kSysExPatchBank, kSysExAllProgram},
        {kPatchBankB, "Save Bank B", {0xF0, 0x42, 0x30, 0x46, 0x4C, 0x11, 0x00, 0x00}, 84270, kSysExPatchBank, kSysExAllProgram},
        {kMultiBankA, "Save Multi Bank A", {0xF0, 0x42, 0x30, 0x46, 0x4D, 0x00, 0x10, 0x00, 0x00}, 3814,
         kSysExMultiBank, kSysExAllMulti},
        {kMultiBankB, "Save Multi Bank B", {0xF0, 0x42, 0x30, 0x46, 0x4D, 0x00, 0x11, 0x00, 0x00}, 3814,
         kSysExMultiBank, kSysExAllMulti},
        {kArpBank, "Save Arpeggiator Bank", {0xF0, 0x42, 0x30, 0x46, 0x69, 0x10, 0x00}, 5860, kSysExArpBank, kSysExArpBank},
    };
    return cases;
}

TEST(SavedFiles, EveryKindHasItsHeaderSizeAndClosingByte)
{
    for (const HeaderCase& c : headerCases()) {
        TestModel t;
        const std::vector<std::uint8_t> bytes = fileBytes(saveThroughDialog(t, c.kind, c.title));
        ASSERT_EQ(bytes.size(), c.size) << "kind " << c.kind;
        EXPECT_EQ(headerOf(bytes, c.header.size()), c.header) << "kind " << c.kind;
        EXPECT_EQ(bytes.back(), 0xF7) << "kind " << c.kind;
        // One message: no other F7 before the end.
        EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 0xF7), 1) << "kind " << c.kind;
    }
}

TEST(SavedFiles, ChannelByteIs30WhateverTheMidiChannel)
{
    TestModel t;
    t.model.settings.outputChannel = 9;
    t.model.settings.inputChannel = 5;
    const std::vector<std::uint8_t> bytes = fileBytes(saveThroughDialog(t, kPatch, "Save Patch"));
    EXPECT_EQ(bytes.at(2), 0x30);
}

TEST(SavedFiles, PatchIsAlwaysSavedInThe666ByteShape)
{
    TestModel t;
    // A patch that came with the longer header keeps its packed data with a
    // stray byte or two behind it.
    t.model.packed[kPatch] = SysExImage(661, 0x01);
    t.model.itemPath[kPatch] = (t.folder / "long.syx").string();
    ASSERT_TRUE(doSavePatch(t.model, 1));
    const std::vector<std::uint8_t> bytes = fileBytes(t.model.itemPath[kPatch]);
    EXPECT_EQ(bytes.size(), 666u);
    EXPECT_EQ(headerOf(bytes, 6), (std::vector<std::uint8_t>{0xF0, 0x42, 0x30, 0x46, 0x40, 0x01}));
}

TEST(SavedFiles, EveryKindIsRecognisedByItsSizeAndFirstBytes)
{
    for (const HeaderCase& c : headerCases()) {
        TestModel t;
        const LoadedBack back = loadBack(saveThroughDialog(t, c.kind, c.title), c.kind == kPatchBankB ? 3 : 2,
                                         c.kind == kMultiBankB ? 7 : 6);
        EXPECT_EQ(back.band, c.type) << "kind " << c.kind;
        EXPECT_TRUE(back.found) << "kind " << c.kind;
        EXPECT_EQ(back.type, c.functionType) << "kind " << c.kind;
        EXPECT_EQ(back.target, c.kind) << "kind " << c.kind;
    }
}

TEST(SavedFiles, SingleItemsLoadBackToTheSameValues)
{
    for (int kind : {kPatch, kMultiset, kPattern}) {
        TestModel t;
        ParamValues& current = t.model.buffers.of(kind).current;
        varyValues(kind, current);
        ASSERT_NE(current, t.model.buffers.of(kind).defaults) << "kind " << kind;
        const char* title = kind == kPatch ? "Save Patch"
                                           : (kind == kMultiset ? "Save (Single) Multiset" : "Save (Single) Arp Pattern");
        const LoadedBack back = loadBack(saveThroughDialog(t, kind, title));
        EXPECT_EQ(back.corrections, 0) << "kind " << kind;
        EXPECT_EQ(back.image, t.model.itemImage(kind)) << "kind " << kind;
        const ParamValues values = valuesOf(kind, back.image);
        for (int row : rowsInForce(kind, current))
            EXPECT_EQ(values[row], current[row]) << "kind " << kind << " row " << row;
    }
}

TEST(SavedFiles, BanksLoadBackToTheSameData)
{
    for (const HeaderCase& c : headerCases()) {
        if (EditBuffers::hasBuffers(c.kind))
            continue;
        TestModel t;
        const ByteImage filling = bankFilling(c.kind);
        t.model.banks.image(c.kind) = filling;
        const LoadedBack back = loadBack(saveThroughDialog(t, c.kind, c.title), c.kind == kPatchBankB ? 3 : 2,
                                         c.kind == kMultiBankB ? 7 : 6);
        EXPECT_EQ(back.corrections, 0) << "kind " << c.kind;
        EXPECT_TRUE(back.image == filling) << "kind " << c.kind;
    }
}

// The whole road back: the saved file opened from the recent files of
// another run of the program.
TEST(SavedFiles, EveryKindOpensBackToTheSameData)
{
    for (const HeaderCase& c : headerCases()) {
        TestModel saving;
        const bool single = EditBuffers::hasBuffers(c.kind);
        if (single)
            varyValues(c.kind, saving.model.buffers.of(c.kind).current);
        else
            saving.model.banks.image(c.kind) = bankFilling(c.kind);
        const std::string path = saveThroughDialog(saving, c.kind, c.title);

        TestModel opening;
        opening.model.recentFiles[1] = path;
        doOpenSysExFile(opening.model, 1);
        EXPECT_TRUE(opening.model.flags.loaded[c.kind]) << "kind " << c.kind;
        EXPECT_EQ(opening.model.itemPath[c.kind], path) << "kind " << c.kind;
        if (single) {
            EXPECT_EQ(opening.model.buffers.of(c.kind).current, saving.model.buffers.of(c.kind).current)
                << "kind " << c.kind;
        } else {
            EXPECT_TRUE(opening.model.banks.image(c.kind) == saving.model.banks.image(c.kind)) << "kind " << c.kind;
        }
    }
}

TEST(SavedFiles, PackedDataIsBroughtUpToDateFromTheEditor)
{
    TestModel t;
    ParamValues& current = t.model.buffers.of(kPattern).current;
    current[1] = 'Q';
    saveThroughDialog(t, kPattern, "Save (Single) Arp Pattern");
    EXPECT_EQ(t.model.itemImage(kPattern)[0], 'Q');
    ASSERT_EQ(t.model.packed[kPattern].size(), 294u);
    EXPECT_EQ(t.model.packed[kPattern].back(), 0xF7);
}

}  // namespace
}  // namespace quillon
