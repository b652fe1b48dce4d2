#include "midi/backends/SimulatedZ1.h"
#include "midi/backends/Z1FactoryMemory.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace quillon {
namespace {

constexpr std::uint8_t kCompleted = 0x23;
constexpr std::uint8_t kLoadError = 0x24;

SysExMessage request(int index, int channel)
{
    return requestMessage(dumpRequests()[static_cast<std::size_t>(index)], channel);
}

// DATA LOAD COMPLETED is F0 42 3g 46 23 F7; DATA LOAD ERROR has a 0 before
// its F7.
SysExMessage acknowledgement(int channel, std::uint8_t function)
{
    const auto g = static_cast<std::uint8_t>(0x2F + channel);
    if (function == kLoadError)
        return {0xF0, 0x42, g, 0x46, function, 0x00, 0xF7};
    return {0xF0, 0x42, g, 0x46, function, 0xF7};
}

// Packed data that differs from whatever the factory memory holds.
SysExImage filler(std::size_t bytes, std::uint8_t seed)
{
    SysExImage data(bytes);
    for (std::size_t i = 0; i < bytes; ++i)
        data[i] = static_cast<std::uint8_t>((i * 13 + seed) % 0x80);
    return data;
}

ByteImage unpack(int kind, const SysExImage& packed)
{
    SysExImage buffer = packed;
    LoadReport report;
    return MIDItoDATA(kind, buffer, report);
}

// The message cut or filled up to another length, still closed by one F7.
SysExMessage withLength(SysExMessage message, std::size_t length)
{
    message.pop_back();
    message.resize(length - 1, 0x00);
    message.push_back(0xF7);
    return message;
}

struct Expected {
    std::size_t length;
    std::vector<std::uint8_t> header;  // behind F0 42 3g 46
};

TEST(SimulatedZ1, AnswersEachRequestWithTheDumpOfItsKind)
{
    const Expected expected[] = {
        {666, {0x40, 0x01}},
        {84270, {0x4C, 0x10, 0x00, 0x00}},
        {84270, {0x4C, 0x11, 0x00, 0x00}},
        {245, {0x49, 0x00}},
        {3814, {0x4D, 0x00, 0x10, 0x00, 0x00}},
        {3814, {0x4D, 0x00, 0x11, 0x00, 0x00}},
        {300, {0x6B, 0x00}},
        {5860, {0x69, 0x10, 0x00}},
    };
    SimulatedZ1 z1(1);
    for (int i = 0; i < 8; ++i) {
        SCOPED_TRACE(i);
        const auto answers = z1.receiveSysEx(request(i, 1));
        ASSERT_EQ(answers.size(), 1u);
        const SysExMessage& dump = answers[0];
        ASSERT_EQ(dump.size(), expected[i].length);
        EXPECT_EQ(dump[0], 0xF0);
        EXPECT_EQ(dump[1], 0x42);
        EXPECT_EQ(dump[2], 0x30);
        EXPECT_EQ(dump[3], 0x46);
        EXPECT_TRUE(std::equal(expected[i].header.begin(), expected[i].header.end(), dump.begin() + 4));
        EXPECT_EQ(dump.back(), 0xF7);
        EXPECT_EQ(dump, z1.dumpFor(i));
    }
}

TEST(SimulatedZ1, AnswersOnItsGlobalChannel)
{
    SimulatedZ1 z1(16);
    const auto answers = z1.receiveSysEx(request(0, 16));
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0][2], 0x3F);
}

TEST(SimulatedZ1, IgnoresARequestOnAnotherChannel)
{
    SimulatedZ1 z1(3);
    EXPECT_TRUE(z1.receiveSysEx(request(0, 1)).empty());
    EXPECT_TRUE(z1.receiveSysEx(request(1, 4)).empty());
    EXPECT_EQ(z1.receiveSysEx(request(1, 3)).size(), 1u);
}

TEST(SimulatedZ1, IgnoresMessagesForOtherMakersAndModels)
{
    SimulatedZ1 z1(1);
    const SysExMessage roland = {0xF0, 0x41, 0x30, 0x46, 0x10, 0x00, 0xF7};
    const SysExMessage otherKorg = {0xF0, 0x42, 0x30, 0x36, 0x10, 0x00, 0xF7};
    const SysExMessage identity = {0xF0, 0x7E, 0x7F, 0x06, 0x01, 0xF7};
    EXPECT_TRUE(z1.receiveSysEx(roland).empty());
    EXPECT_TRUE(z1.receiveSysEx(otherKorg).empty());
    EXPECT_TRUE(z1.receiveSysEx(identity).empty());
    EXPECT_EQ(z1.received().size(), 3u);
    EXPECT_EQ(z1.received()[1], otherKorg);
}

TEST(SimulatedZ1, AnswersTheRequestedDumpsFromItsMemory)
{
    SimulatedZ1 z1(1);
    const Z1Memory& m = z1.memory();
    EXPECT_EQ(z1.dumpFor(0), currentPatchDump(1, m.currentPatch));
    EXPECT_EQ(z1.dumpFor(1), patchBankDump(kPatchBankA, 1, m.bankA));
    EXPECT_EQ(z1.dumpFor(2), patchBankDump(kPatchBankB, 1, m.bankB));
    EXPECT_EQ(z1.dumpFor(3), currentMultiDump(1, m.currentMulti));
    EXPECT_EQ(z1.dumpFor(4), multiBankDump(kMultiBankA, 1, m.multiBankA));
    EXPECT_EQ(z1.dumpFor(5), multiBankDump(kMultiBankB, 1, m.multiBankB));
    EXPECT_EQ(z1.dumpFor(6), currentPatternDump(1, m.currentPattern));
    EXPECT_EQ(z1.dumpFor(7), arpBankDump(1, m.arpBank));
    EXPECT_TRUE(z1.dumpFor(8).empty());
    EXPECT_TRUE(z1.dumpFor(-1).empty());
}

TEST(SimulatedZ1, MemoryHasThePackedSizeOfEachKind)
{
    const Z1Memory& m = z1FactoryMemory();
    EXPECT_EQ(m.currentPatch.size(), 659u);
    EXPECT_EQ(m.bankA.size(), 84261u);
    EXPECT_EQ(m.bankB.size(), 84261u);
    EXPECT_EQ(m.currentMulti.size(), 238u);
    EXPECT_EQ(m.multiBankA.size(), 3804u);
    EXPECT_EQ(m.multiBankB.size(), 3804u);
    EXPECT_EQ(m.currentPattern.size(), 293u);
    EXPECT_EQ(m.arpBank.size(), 5852u);
    EXPECT_EQ(m.global.size(), 476u);
    EXPECT_EQ(m.midi.size(), 476u);
    EXPECT_NE(m.global, m.midi);
}

TEST(SimulatedZ1, BankAAsAllProgramAnswersABankARequestWithBothBanks)
{
    SimulatedZ1 z1(2);
    z1.setBankAAsAllProgram(true);
    const auto answers = z1.receiveSysEx(request(1, 2));
    ASSERT_EQ(answers.size(), 1u);
    const SysExMessage& dump = answers[0];
    ASSERT_EQ(dump.size(), 168531u);
    EXPECT_EQ(dump[2], 0x31);
    EXPECT_EQ(dump[4], 0x4C);
    EXPECT_EQ(dumpTypeForLength(dump.size()), 2);
    // The image behind the 8 header bytes is bank A, then bank B.
    SysExImage packed(dump.begin() + 8, dump.end());
    LoadReport report;
    const ByteImage both = MIDItoDATA(kOtherDump, packed, report);
    ASSERT_EQ(both.size(), 147456u);
    const ByteImage a = unpack(kPatchBankA, z1.memory().bankA);
    const ByteImage b = unpack(kPatchBankB, z1.memory().bankB);
    EXPECT_TRUE(std::equal(a.begin(), a.end(), both.begin()));
    EXPECT_TRUE(std::equal(b.begin(), b.end(), both.begin() + 73728));
    // Bank B is still answered as a bank.
    EXPECT_EQ(z1.receiveSysEx(request(2, 2))[0].size(), 84270u);
}

TEST(SimulatedZ1, AllProgramDumpCarriesTheSubHeader20_00_00)
{
    SimulatedZ1 z1(1);
    z1.setBankAAsAllProgram(true);
    const SysExMessage dump = z1.receiveSysEx(request(1, 1)).at(0);
    ASSERT_EQ(dump.size(), 168531u);
    EXPECT_EQ(dump[5], 0x20);
    EXPECT_EQ(dump[6], 0x00);
    EXPECT_EQ(dump[7], 0x00);
}

TEST(SimulatedZ1, DataLoadErrorIsSevenBytesWithAZeroBeforeItsF7)
{
    SimulatedZ1 z1(3);
    const auto answers = z1.receiveSysEx(withLength(currentPatchDump(3, filler(659, 20)), 661));
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], (SysExMessage{0xF0, 0x42, 0x32, 0x46, 0x24, 0x00, 0xF7}));
}

TEST(SimulatedZ1, TakesTheInstrumentsOwnPatternDumpOf301BytesAsThePattern)
{
    SimulatedZ1 z1(1);
    const SysExImage pattern = filler(293, 21);
    const std::uint8_t header[] = {0x00, 0x0C};  // pattern 12 of the bank
    const SysExMessage dump = buildSysExMessage(0x69, header, 1, pattern);
    ASSERT_EQ(dump.size(), 301u);
    const auto answers = z1.receiveSysEx(dump);
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], acknowledgement(1, kCompleted));
    EXPECT_EQ(z1.memory().currentPattern, pattern);
    // The 300-byte form is still taken.
    const SysExImage other = filler(293, 22);
    EXPECT_EQ(z1.receiveSysEx(currentPatternDump(1, other)).at(0), acknowledgement(1, kCompleted));
    EXPECT_EQ(z1.memory().currentPattern, other);
}

TEST(SimulatedZ1, TakesACurrentPatchAndAcknowledgesIt)
{
    SimulatedZ1 z1(1);
    const SysExImage data = filler(659, 1);
    const auto answers = z1.receiveSysEx(currentPatchDump(1, data));
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], acknowledgement(1, kCompleted));
    EXPECT_EQ(z1.memory().currentPatch, data);
}

TEST(SimulatedZ1, TakesEachDumpOfOneKindIntoItsPlace)
{
    struct Case {
        SysExMessage message;
        const std::vector<std::uint8_t> Z1Memory::*place;
        SysExImage data;
    };
    const SysExImage patch = filler(659, 2), bankA = filler(84261, 3), bankB = filler(84261, 4);
    const SysExImage multi = filler(238, 5), multiA = filler(3804, 6), multiB = filler(3804, 7);
    const SysExImage pattern = filler(293, 8), arps = filler(5852, 9);
    const SysExImage global = filler(476, 10), midi = filler(476, 11);
    const std::uint8_t globalHeader[] = {0x00};
    const std::uint8_t midiHeader[] = {0x01};
    const std::uint8_t longPatchHeader[] = {0x00, 0x05, 0x01};
    const std::uint8_t longMultiHeader[] = {0x00, 0x00, 0x03, 0x00};
    const Case cases[] = {
        {currentPatchDump(1, patch), &Z1Memory::currentPatch, patch},
        {patchBankDump(kPatchBankA, 1, bankA), &Z1Memory::bankA, bankA},
        {patchBankDump(kPatchBankB, 1, bankB), &Z1Memory::bankB, bankB},
        {currentMultiDump(1, multi), &Z1Memory::currentMulti, multi},
        {multiBankDump(kMultiBankA, 1, multiA), &Z1Memory::multiBankA, multiA},
        {multiBankDump(kMultiBankB, 1, multiB), &Z1Memory::multiBankB, multiB},
        {currentPatternDump(1, pattern), &Z1Memory::currentPattern, pattern},
        {arpBankDump(1, arps), &Z1Memory::arpBank, arps},
        {buildSysExMessage(0x51, globalHeader, 1, global), &Z1Memory::global, global},
        {buildSysExMessage(0x51, midiHeader, 1, midi), &Z1Memory::midi, midi},
        {buildSysExMessage(0x4C, longPatchHeader, 1, filler(659, 12)), &Z1Memory::currentPatch, filler(659, 12)},
        {buildSysExMessage(0x49, longMultiHeader, 1, filler(238, 13)), &Z1Memory::currentMulti, filler(238, 13)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message.size());
        SimulatedZ1 z1(1);
        const auto answers = z1.receiveSysEx(c.message);
        ASSERT_EQ(answers.size(), 1u);
        EXPECT_EQ(answers[0], acknowledgement(1, kCompleted));
        EXPECT_EQ(z1.memory().*c.place, c.data);
    }
}

TEST(SimulatedZ1, TakesGlobalAndMidiAsTwoMessagesWithTwoAcknowledgements)
{
    SimulatedZ1 z1(1);
    const std::uint8_t globalHeader[] = {0x00};
    const std::uint8_t midiHeader[] = {0x01};
    SysExMessage both = buildSysExMessage(0x51, globalHeader, 1, filler(476, 20));
    const SysExMessage midi = buildSysExMessage(0x51, midiHeader, 1, filler(476, 21));
    both.insert(both.end(), midi.begin(), midi.end());
    ASSERT_EQ(both.size(), 966u);
    const auto answers = z1.receiveSysEx(both);
    ASSERT_EQ(answers.size(), 2u);
    EXPECT_EQ(answers[1], acknowledgement(1, kCompleted));
    EXPECT_EQ(z1.memory().global, filler(476, 20));
    EXPECT_EQ(z1.memory().midi, filler(476, 21));
}

TEST(SimulatedZ1, TakesAllProgramIntoBothBanks)
{
    SimulatedZ1 z1(1);
    ByteImage image(147456);
    for (std::size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<std::uint8_t>(i * 7 % 251);
    const std::uint8_t header[] = {0x00, 0x00, 0x00};
    const SysExMessage dump = buildSysExMessage(0x4C, header, 1, packBytes(image));
    ASSERT_EQ(dump.size(), 168531u);
    const auto answers = z1.receiveSysEx(dump);
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], acknowledgement(1, kCompleted));
    EXPECT_EQ(z1.memory().bankA, DATAtoMIDI(kPatchBankA, ByteImage(image.begin(), image.begin() + 73728)));
    EXPECT_EQ(z1.memory().bankB, DATAtoMIDI(kPatchBankB, ByteImage(image.begin() + 73728, image.end())));
}

TEST(SimulatedZ1, TakesAllMultiIntoBothMultiBanks)
{
    SimulatedZ1 z1(1);
    ByteImage image(6656);
    for (std::size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<std::uint8_t>(i * 3 % 253);
    const std::uint8_t header[] = {0x00, 0x00, 0x00, 0x00};
    const SysExMessage dump = buildSysExMessage(0x4D, header, 1, packBytes(image));
    ASSERT_EQ(dump.size(), 7617u);
    EXPECT_EQ(z1.receiveSysEx(dump).at(0), acknowledgement(1, kCompleted));
    EXPECT_EQ(z1.memory().multiBankA, DATAtoMIDI(kMultiBankA, ByteImage(image.begin(), image.begin() + 3328)));
    EXPECT_EQ(z1.memory().multiBankB, DATAtoMIDI(kMultiBankB, ByteImage(image.begin() + 3328, image.end())));
}

TEST(SimulatedZ1, TakesAllDataIntoEveryBankAndTheSettings)
{
    SimulatedZ1 z1(1);
    ByteImage image(160064);
    for (std::size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<std::uint8_t>(i * 11 % 255);
    const std::uint8_t header[] = {0x00, 0x00};
    const SysExMessage dump = buildSysExMessage(0x50, header, 1, packBytes(image));
    ASSERT_EQ(dump.size(), 182939u);
    EXPECT_EQ(z1.receiveSysEx(dump).at(0), acknowledgement(1, kCompleted));
    auto slice = [&](int from, int bytes) {
        return ByteImage(image.begin() + from, image.begin() + from + bytes);
    };
    const Z1Memory& m = z1.memory();
    EXPECT_EQ(m.bankA, DATAtoMIDI(kPatchBankA, slice(0, 73728)));
    EXPECT_EQ(m.bankB, DATAtoMIDI(kPatchBankB, slice(73728, 73728)));
    EXPECT_EQ(m.multiBankA, DATAtoMIDI(kMultiBankA, slice(147456, 3328)));
    EXPECT_EQ(m.multiBankB, DATAtoMIDI(kMultiBankB, slice(150784, 3328)));
    EXPECT_EQ(m.arpBank, DATAtoMIDI(kArpBank, slice(154112, 5120)));
    EXPECT_EQ(m.global, packBytes(slice(159232, 416)));
    EXPECT_EQ(m.midi, packBytes(slice(159648, 416)));
}

TEST(SimulatedZ1, ADumpOfAWrongLengthGetsDataLoadErrorAndChangesNothing)
{
    SimulatedZ1 z1(5);
    const Z1Memory before = z1.memory();
    const SysExMessage shortPatch = withLength(currentPatchDump(5, filler(659, 30)), 660);
    const SysExMessage longBank = withLength(patchBankDump(kPatchBankA, 5, filler(84261, 31)), 84300);
    const SysExMessage shortArps = withLength(arpBankDump(5, filler(5852, 32)), 5000);
    for (const SysExMessage& bad : {shortPatch, longBank, shortArps}) {
        const auto answers = z1.receiveSysEx(bad);
        ASSERT_EQ(answers.size(), 1u);
        EXPECT_EQ(answers[0], acknowledgement(5, kLoadError));
    }
    EXPECT_EQ(z1.memory().currentPatch, before.currentPatch);
    EXPECT_EQ(z1.memory().bankA, before.bankA);
    EXPECT_EQ(z1.memory().arpBank, before.arpBank);
}

TEST(SimulatedZ1, ADumpWithAByteAboveSevenBitsGetsDataLoadError)
{
    SimulatedZ1 z1(1);
    SysExMessage dump = currentPatternDump(1, filler(293, 40));
    dump[100] = 0x90;
    EXPECT_EQ(z1.receiveSysEx(dump).at(0), acknowledgement(1, kLoadError));
    EXPECT_EQ(z1.memory().currentPattern, z1FactoryMemory().currentPattern);
}

TEST(SimulatedZ1, IgnoresADumpOnAnotherChannel)
{
    SimulatedZ1 z1(2);
    EXPECT_TRUE(z1.receiveSysEx(currentPatchDump(1, filler(659, 50))).empty());
    EXPECT_EQ(z1.memory().currentPatch, z1FactoryMemory().currentPatch);
}

TEST(SimulatedZ1, LoadTakesADumpWithoutAnAnswer)
{
    SimulatedZ1 z1(1);
    EXPECT_TRUE(z1.load(currentMultiDump(7, filler(238, 60))));
    EXPECT_EQ(z1.memory().currentMulti, filler(238, 60));
    EXPECT_FALSE(z1.load(request(0, 1)));
    EXPECT_FALSE(z1.load(withLength(currentMultiDump(1, filler(238, 61)), 250)));
    EXPECT_EQ(z1.memory().currentMulti, filler(238, 60));
}

TEST(SimulatedZ1, RecordsNotesAndNothingElse)
{
    SimulatedZ1 z1(1);
    z1.receiveShort(0x90, 60, 100);
    z1.receiveShort(0xB0, 7, 100);
    z1.receiveShort(0x8F, 60, 40);
    ASSERT_EQ(z1.notes().size(), 2u);
    EXPECT_EQ(z1.notes()[0].status, 0x90);
    EXPECT_EQ(z1.notes()[0].key, 60);
    EXPECT_EQ(z1.notes()[0].velocity, 100);
    EXPECT_EQ(z1.notes()[1].status, 0x8F);
    EXPECT_EQ(z1.notes()[1].velocity, 40);
}

TEST(SimulatedZ1, NotesCarryTheTimeOfItsClock)
{
    SimulatedZ1 z1(1);
    std::int64_t now = 1500;
    z1.setClock([&now] { return now; });
    z1.receiveShort(0x90, 60, 100);
    now = 2750;
    z1.receiveShort(0x80, 60, 40);
    ASSERT_EQ(z1.notes().size(), 2u);
    EXPECT_EQ(z1.notes()[0].time, 1500);
    EXPECT_EQ(z1.notes()[1].time, 2750);
}

TEST(SimulatedZ1, ItsOwnClockRunsFromWhenItWasMade)
{
    SimulatedZ1 z1(1);
    z1.receiveShort(0x90, 60, 100);
    z1.receiveShort(0x90, 64, 100);
    ASSERT_EQ(z1.notes().size(), 2u);
    EXPECT_GE(z1.notes()[0].time, 0);
    EXPECT_LE(z1.notes()[0].time, z1.notes()[1].time);
}

TEST(SimulatedZ1, KeysSoundUntilANoteOffOrANoteOnOfVelocityZero)
{
    SimulatedZ1 z1(1);
    z1.receiveShort(0x90, 60, 100);
    z1.receiveShort(0x90, 64, 100);
    z1.receiveShort(0x91, 60, 100);
    z1.receiveShort(0x90, 67, 100);
    z1.receiveShort(0x90, 60, 100);
    z1.receiveShort(0x80, 60, 40);
    z1.receiveShort(0x90, 64, 0);
    EXPECT_EQ(z1.sounding(), (std::vector<SoundingKey>{{1, 67}, {2, 60}}));
    z1.receiveShort(0x80, 67, 40);
    z1.receiveShort(0x81, 60, 40);
    EXPECT_TRUE(z1.sounding().empty());
}

TEST(SimulatedZ1, SeededPatchesHaveVariedReadableNames)
{
    const Z1Memory& m = z1FactoryMemory();
    std::set<std::string> names;
    for (int bank = 0; bank < 2; ++bank) {
        const ByteImage image = unpack(bank == 0 ? kPatchBankA : kPatchBankB, bank == 0 ? m.bankA : m.bankB);
        for (int p = 0; p < kPatchesPerBank; ++p) {
            const std::string name = bankPatchName(image, true, kPatchBankA + bank, p);
            ASSERT_EQ(name.size(), 16u);
            EXPECT_TRUE(std::all_of(name.begin(), name.end(), [](char c) { return c >= 32 && c < 127; })) << name;
            const std::string trimmed = trimmedRight(name);
            EXPECT_GE(trimmed.size(), 3u);
            EXPECT_EQ(trimmed, factoryPatchName(bank * kPatchesPerBank + p));
            EXPECT_NE(trimmed, "Init Patch");
            names.insert(trimmed);
        }
    }
    EXPECT_EQ(names.size(), 256u);
}

TEST(SimulatedZ1, SeededPatchValuesLieInRangeAndDifferFromPatchToPatch)
{
    const ParamTables& tables = paramTables();
    const ByteImage bank = unpack(kPatchBankA, z1FactoryMemory().bankA);
    std::set<ParamValues> distinct;
    int differingFromDefault = 0;
    for (int p = 0; p < 16; ++p) {
        const std::span<const std::uint8_t> patch(bank.data() + p * kPatchBytes, kPatchBytes);
        ParamValues values = makeParamValues(kPatch);
        LoadReport report;
        imageToPatchParams(patch, values, report);
        EXPECT_EQ(report.changeCount(), 0) << "patch " << p;
        for (int row : rowsInForce(kPatch, values)) {
            const ParamDef& def = tables.patch[static_cast<std::size_t>(row)];
            EXPECT_GE(values[static_cast<std::size_t>(row)], def.min);
            EXPECT_LE(values[static_cast<std::size_t>(row)], def.max);
            if (row > 18 && values[static_cast<std::size_t>(row)] != tables.patchDefaults[static_cast<std::size_t>(row)])
                ++differingFromDefault;
        }
        ParamValues sound(values.begin() + 17, values.end());
        distinct.insert(sound);
    }
    EXPECT_EQ(distinct.size(), 16u);
    EXPECT_GT(differingFromDefault, 16 * 20);
}

TEST(SimulatedZ1, SeededMultisetsAndPatternsHaveNamesAndPatternsHaveTones)
{
    const Z1Memory& m = z1FactoryMemory();
    const ByteImage multis = unpack(kMultiBankA, m.multiBankA);
    EXPECT_EQ(trimmedRight(bankMultiName(multis, true, kMultiBankA, 0)), factoryMultiName(0));
    EXPECT_EQ(trimmedRight(bankMultiName(multis, true, kMultiBankA, 0)), "Pad & Bass");
    const ByteImage multisB = unpack(kMultiBankB, m.multiBankB);
    EXPECT_EQ(trimmedRight(bankMultiName(multisB, true, kMultiBankB, 15)), factoryMultiName(31));

    const ByteImage arps = unpack(kArpBank, m.arpBank);
    for (int p = 0; p < kPatternsPerBank; ++p) {
        SCOPED_TRACE(p);
        EXPECT_EQ(trimmedRight(bankPatternName(arps, true, p)), factoryPatternName(p));
        ParamValues values = makeParamValues(kPattern);
        LoadReport report;
        imageToArpParams(std::span<const std::uint8_t>(arps.data() + p * kPatternBytes, kPatternBytes), values, report);
        EXPECT_EQ(report.changeCount(), 0);
        const int length = values[30];
        EXPECT_GE(length, 4);
        bool tones = false;
        for (int step = 0; step < length; ++step)
            tones = tones || values[static_cast<std::size_t>(41 + 6 * step)] != 0 || values[static_cast<std::size_t>(42 + 6 * step)] != 0;
        EXPECT_TRUE(tones);
    }
}

TEST(SimulatedZ1, TheCurrentItemsAreTheFirstOfTheirBanks)
{
    const Z1Memory& m = z1FactoryMemory();
    const ByteImage bank = unpack(kPatchBankA, m.bankA);
    EXPECT_EQ(unpack(kPatch, m.currentPatch), ByteImage(bank.begin(), bank.begin() + kPatchBytes));
    const ByteImage arps = unpack(kArpBank, m.arpBank);
    EXPECT_EQ(unpack(kPattern, m.currentPattern),
              ByteImage(arps.begin() + 5 * kPatternBytes, arps.begin() + 6 * kPatternBytes));
}

}  // namespace
}  // namespace quillon
