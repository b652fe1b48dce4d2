// The MIDI flows of the program end to end over the simulated Z1: what the
// program asks for lands in its model as the instrument holds it, and what
// it sends reaches the instrument byte for byte.
#include "files/MiscDialog.h"
#include "files/SysExFileLoading.h"
#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "midi/SendFlows.h"
#include "midi/TestTone.h"
#include "midi/backends/EventPump.h"
#include "midi/backends/SimMidiSystem.h"
#include "midi/backends/SimulatedZ1.h"
#include "midi/backends/Z1FactoryMemory.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "support/ManualTimer.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace quillon {
namespace {

ByteImage unpack(int kind, const SysExImage& packed)
{
    SysExImage buffer = packed;
    LoadReport report;
    return MIDItoDATA(kind, buffer, report);
}

SysExMessage strayMessage(std::size_t bytes)
{
    SysExMessage message(bytes, 0x01);
    message.front() = 0xF0;
    message.back() = 0xF7;
    return message;
}

struct SimFlows : ::testing::Test {
    // The instrument and its ports outlive the model that holds them.
    QueuedEventPump pump;
    SimulatedZ1 z1{1};
    std::unique_ptr<MidiSystem> system = openSimMidiSystem(pump, options());
    ManualTimer timer;
    TestModel t;
    AppModel& model = t.model;
    ScriptedHost& host = t.host;
    int miscShown = 0;
    std::string miscCaption;

    MidiSystemOptions options()
    {
        MidiSystemOptions o;
        o.simulator = &z1;
        return o;
    }

    SimFlows()
    {
        model.midi.attach(&system->output(), &system->input(), &timer);
        model.midi.surroundings.showMiscDialog = [this](AppModel&, MiscDialogState& state) {
            ++miscShown;
            miscCaption = state.caption;
        };
        doInitMIDI(model);
    }

    void setChannel(int channel)
    {
        z1.setGlobalChannel(channel);
        model.settings.outputChannel = channel;
    }

    void request(int index)
    {
        doSendRequest(model, index);
        pump.runPending();
    }

    // The instrument's data, unpacked, as the program should hold it.
    ByteImage z1Image(int kind) const
    {
        const Z1Memory& m = z1.memory();
        switch (kind) {
        case kPatch: return unpack(kind, m.currentPatch);
        case kPatchBankA: return unpack(kind, m.bankA);
        case kPatchBankB: return unpack(kind, m.bankB);
        case kMultiset: return unpack(kind, m.currentMulti);
        case kPattern: return unpack(kind, m.currentPattern);
        case kMultiBankA: return unpack(kind, m.multiBankA);
        case kMultiBankB: return unpack(kind, m.multiBankB);
        case kArpBank: return unpack(kind, m.arpBank);
        default: return {};
        }
    }

    const ByteImage& modelImage(int kind)
    {
        return kind == kPatch || kind == kMultiset || kind == kPattern ? model.itemImage(kind)
                                                                         : model.banks.image(kind);
    }
};

TEST_F(SimFlows, RequestCurrentPatchLandsInTheEditor)
{
    request(0);
    EXPECT_EQ(model.itemImage(kPatch), z1Image(kPatch));
    EXPECT_TRUE(model.flags.loaded[kPatch]);
    EXPECT_EQ(model.itemName[kPatch], factoryPatchName(0));
    // The request went out on the instrument's channel and the input is
    // closed again.
    ASSERT_EQ(z1.received().size(), 1u);
    EXPECT_EQ(z1.received()[0], (SysExMessage{0xF0, 0x42, 0x30, 0x46, 0x10, 0x00, 0xF7}));
    EXPECT_EQ(system->input().state(), kPortClosed);
    EXPECT_EQ(model.midi.requestPending, 0);
}

TEST_F(SimFlows, RequestEachItemLandsInTheModelAsTheInstrumentHoldsIt)
{
    const int kinds[] = {kPatch, kPatchBankA, kPatchBankB, kMultiset, kMultiBankA, kMultiBankB, kPattern, kArpBank};
    for (int index = 0; index < 8; ++index) {
        SCOPED_TRACE(index);
        const int kind = kinds[index];
        request(index);
        EXPECT_EQ(modelImage(kind), z1Image(kind));
        EXPECT_TRUE(model.flags.loaded[kind]);
        EXPECT_FALSE(model.flags.clean[kind]);
    }
    EXPECT_EQ(trimmedRight(model.banks.bankPatchName(kPatchBankB, 5)), factoryPatchName(128 + 5));
    EXPECT_EQ(trimmedRight(model.banks.bankMultiName(kMultiBankB, 2)), factoryMultiName(16 + 2));
    EXPECT_EQ(trimmedRight(model.banks.bankPatternName(7)), factoryPatternName(7));
    EXPECT_EQ(model.itemName[kMultiset], factoryMultiName(0));
    EXPECT_EQ(model.itemName[kPattern], factoryPatternName(5));
}

TEST_F(SimFlows, ABankAAnsweredWithAllProgramStillFillsBankA)
{
    z1.setBankAAsAllProgram(true);
    request(1);
    EXPECT_EQ(miscShown, 0);
    EXPECT_EQ(host.status, "Converting bank A");
    EXPECT_EQ(model.banks.image(kPatchBankA), z1Image(kPatchBankA));
    EXPECT_TRUE(model.flags.loaded[kPatchBankA]);
    EXPECT_FALSE(model.flags.loaded[kPatchBankB]);
}

TEST_F(SimFlows, WithChannel16RequestAndSendCarry3FAndTheInstrumentHearsThem)
{
    setChannel(16);
    request(3);
    ASSERT_EQ(z1.received().size(), 1u);
    EXPECT_EQ(z1.received()[0][2], 0x3F);
    EXPECT_EQ(model.itemImage(kMultiset), z1Image(kMultiset));
    doSendMultiset(model);
    pump.runPending();
    ASSERT_EQ(z1.received().size(), 2u);
    EXPECT_EQ(z1.received()[1].size(), 245u);
    EXPECT_EQ(z1.received()[1][2], 0x3F);
}

TEST_F(SimFlows, ARequestOnAnotherChannelThanTheInstrumentsStaysUnanswered)
{
    z1.setGlobalChannel(2);
    request(0);
    EXPECT_EQ(host.status, "Current patch data requested - please wait");
    EXPECT_EQ(model.midi.requestPending, 1);
    EXPECT_GE(system->input().state(), kPortBusy);
    EXPECT_FALSE(model.flags.loaded[kPatch]);
    doSendRequest(model, 2);
    pump.runPending();
    EXPECT_EQ(host.status, "Bank B data requested - please wait");
    EXPECT_EQ(model.midi.requestPending, 3);
}

TEST_F(SimFlows, TheRequestTextTurnsGreenOnceTheRequestHasLeft)
{
    // An instrument on another channel never answers, so the line stays
    // as the output's done event left it.
    z1.setGlobalChannel(4);
    doSendRequest(model, 1);
    EXPECT_EQ(host.status, "Bank A data requested - see progress bar on Z1");
    EXPECT_EQ(host.statusColour, StatusColour::Busy);
    pump.runPending();
    EXPECT_EQ(host.status, "Bank A data requested - see progress bar on Z1");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
}

TEST_F(SimFlows, ListenTakesAMultisetTheInstrumentSends)
{
    mnuListen(model);
    EXPECT_EQ(host.status, "Waiting for SysEx data");
    sendFromSimulatedZ1(*system, z1.dumpFor(3));
    pump.runPending();
    EXPECT_EQ(model.itemImage(kMultiset), z1Image(kMultiset));
    EXPECT_EQ(model.itemName[kMultiset], factoryMultiName(0));
    EXPECT_EQ(system->input().state(), kPortClosed);
}

TEST_F(SimFlows, ListenIgnoresAShortMessageAndStillTakesTheMultisetAfterIt)
{
    mnuListen(model);
    sendFromSimulatedZ1(*system, strayMessage(199));
    pump.runPending();
    EXPECT_EQ(host.message, "Last message 199 bytes (ignored). 1 messages 199 bytes");
    EXPECT_FALSE(model.flags.loaded[kMultiset]);
    sendFromSimulatedZ1(*system, z1.dumpFor(3));
    pump.runPending();
    EXPECT_EQ(model.itemImage(kMultiset), z1Image(kMultiset));
}

TEST_F(SimFlows, ListenNamesAnUnrecognisedBlockAndGoesOnListening)
{
    mnuListen(model);
    sendFromSimulatedZ1(*system, strayMessage(250));
    pump.runPending();
    EXPECT_EQ(host.message, "Unrecognised block 250 bytes");
    EXPECT_GE(system->input().state(), kPortBusy);
    sendFromSimulatedZ1(*system, z1.dumpFor(6));
    pump.runPending();
    EXPECT_EQ(model.itemImage(kPattern), z1Image(kPattern));
}

TEST_F(SimFlows, ListenTakesTheInstrumentsOwn301BytePatternDumpAsThePattern)
{
    const SysExImage pattern = z1.memory().currentPattern;
    const std::uint8_t header[] = {0x00, 0x09};  // pattern 9 of the bank
    const SysExMessage own = buildSysExMessage(0x69, header, 1, pattern);
    ASSERT_EQ(own.size(), 301u);
    mnuListen(model);
    sendFromSimulatedZ1(*system, own);
    pump.runPending();
    EXPECT_TRUE(model.flags.loaded[kPattern]);
    EXPECT_EQ(model.itemImage(kPattern), z1Image(kPattern));
}

TEST_F(SimFlows, ListenIgnoresTheInstrumentsSevenByteDataLoadErrorAndTakesTheDumpAfterIt)
{
    SysExMessage refused = z1.dumpFor(3);
    refused.insert(refused.end() - 1, 0x00);  // one byte too many
    const auto answers = z1.receiveSysEx(refused);
    ASSERT_EQ(answers.size(), 1u);
    ASSERT_EQ(answers[0], (SysExMessage{0xF0, 0x42, 0x30, 0x46, 0x24, 0x00, 0xF7}));
    mnuListen(model);
    sendFromSimulatedZ1(*system, answers[0]);
    pump.runPending();
    EXPECT_EQ(host.message, "Last message 7 bytes (ignored). 1 messages 7 bytes");
    EXPECT_GE(system->input().state(), kPortBusy);
    sendFromSimulatedZ1(*system, z1.dumpFor(3));
    pump.runPending();
    EXPECT_EQ(model.itemImage(kMultiset), z1Image(kMultiset));
}

TEST_F(SimFlows, AfterListenHasTakenOnePatchASecondIsNotHeard)
{
    mnuListen(model);
    sendFromSimulatedZ1(*system, z1.dumpFor(0));
    pump.runPending();
    const ByteImage first = model.itemImage(kPatch);
    EXPECT_EQ(first, z1Image(kPatch));
    SysExImage other = z1.memory().bankB;
    other.resize(659);
    sendFromSimulatedZ1(*system, currentPatchDump(1, other));
    pump.runPending();
    EXPECT_EQ(model.itemImage(kPatch), first);
}

TEST_F(SimFlows, ListenShowsAnAllMultiDumpInTheSeveralKindsDialog)
{
    ByteImage both = z1Image(kMultiBankA);
    const ByteImage b = z1Image(kMultiBankB);
    both.insert(both.end(), b.begin(), b.end());
    const std::uint8_t header[] = {0x00, 0x00, 0x00, 0x00};
    const SysExMessage allMulti = buildSysExMessage(0x4D, header, 1, packBytes(both));
    mnuListen(model);
    sendFromSimulatedZ1(*system, allMulti);
    pump.runPending();
    EXPECT_EQ(miscShown, 1);
    EXPECT_EQ(model.misc.message, allMulti);
    EXPECT_EQ(model.misc.mode, 1);
}

TEST_F(SimFlows, SendPatchReachesTheInstrumentByteForByte)
{
    request(0);
    // An edit: the patch is renamed in the editor.
    ParamValues& values = model.buffers.of(kPatch).current;
    const std::string name = "Edited Sound    ";
    for (int i = 0; i < 16; ++i)
        values[static_cast<std::size_t>(i + 1)] = name[static_cast<std::size_t>(i)];
    const std::size_t before = z1.received().size();
    doSendActive(model);
    pump.runPending();
    ASSERT_EQ(z1.received().size(), before + 1);
    const SysExMessage& sent = z1.received().back();
    EXPECT_EQ(sent, currentPatchDump(1, DATAtoMIDI(kPatch, model.itemImage(kPatch))));
    EXPECT_EQ(bankPatchName(unpack(kPatch, z1.memory().currentPatch), true, kPatchBankA, 0), name);
    EXPECT_EQ(host.status, model.itemName[kPatch] + " has been sent");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
}

TEST_F(SimFlows, TwoSendsInARowLoseWhatTheFirstQueued)
{
    request(0);
    request(3);
    const std::size_t before = z1.received().size();
    doSendPatch(model);
    doSendMultiset(model);
    pump.runPending();
    ASSERT_EQ(z1.received().size(), before + 1);
    EXPECT_EQ(z1.received().back().size(), 245u);
}

TEST_F(SimFlows, SendBankReachesTheInstrumentByteForByte)
{
    request(2);
    // Bank B gets patch 0 of bank A at its first place.
    const ByteImage bankA = z1Image(kPatchBankA);
    model.banks.writeBankPatch(kPatchBankB, 0, std::span<const std::uint8_t>(bankA.data(), kPatchBytes));
    model.mode = kPatchBankB;
    model.bankTarget = kPatchBankB;
    host.expectMessage("Send bank B", Answer::Yes, "Replace bank B in Korg Z1. Are you sure?");
    const std::size_t before = z1.received().size();
    doSendActive(model);
    pump.runPending();
    EXPECT_TRUE(host.allShown());
    ASSERT_EQ(z1.received().size(), before + 1);
    EXPECT_EQ(z1.received().back(), patchBankDump(kPatchBankB, 1, DATAtoMIDI(kPatchBankB, model.banks.image(kPatchBankB))));
    EXPECT_EQ(z1Image(kPatchBankB), model.banks.image(kPatchBankB));
    EXPECT_EQ(trimmedRight(bankPatchName(z1Image(kPatchBankB), true, kPatchBankB, 0)), factoryPatchName(0));
    EXPECT_EQ(host.status, "Bank B has been sent");
}

TEST_F(SimFlows, SendMultiBankReachesTheInstrumentByteForByte)
{
    request(4);
    ByteImage& bank = model.banks.image(kMultiBankA);
    bank[100] = static_cast<std::uint8_t>(bank[100] ^ 0x01);
    model.mode = kMultiset;
    model.multiMode = 1;
    host.expectMessage("Send Multi Bank A", Answer::Yes, "Replace multibank A in Korg Z1. Are you sure?");
    const std::size_t before = z1.received().size();
    doSendActive(model);
    pump.runPending();
    ASSERT_EQ(z1.received().size(), before + 1);
    EXPECT_EQ(z1.received().back(), multiBankDump(kMultiBankA, 1, DATAtoMIDI(kMultiBankA, model.banks.image(kMultiBankA))));
    EXPECT_EQ(z1Image(kMultiBankA), model.banks.image(kMultiBankA));
    EXPECT_EQ(host.status, "Multibank A has been sent");
}

TEST_F(SimFlows, SendArpBankReachesTheInstrumentByteForByte)
{
    request(7);
    ByteImage& bank = model.banks.image(kArpBank);
    bank[300] = static_cast<std::uint8_t>(bank[300] ^ 0x02);
    model.mode = kPattern;
    model.arpMode = 1;
    host.expectMessage("Send Arpeggiator Bank", Answer::Yes,
                       "Replace all arpeggiator patterns in Korg Z1. Are you sure?");
    const std::size_t before = z1.received().size();
    doSendActive(model);
    pump.runPending();
    ASSERT_EQ(z1.received().size(), before + 1);
    EXPECT_EQ(z1.received().back(), arpBankDump(1, DATAtoMIDI(kArpBank, model.banks.image(kArpBank))));
    EXPECT_EQ(z1Image(kArpBank), model.banks.image(kArpBank));
    EXPECT_EQ(host.status, "Arpeggiator Bank has been sent");
}

TEST_F(SimFlows, SendAllDataFromAFileReachesTheInstrumentOnItsChannel)
{
    setChannel(3);
    // An All Data file saved on channel 1, its banks swapped.
    ByteImage all;
    for (int kind : {kPatchBankB, kPatchBankA, kMultiBankB, kMultiBankA, kArpBank}) {
        const ByteImage part = z1Image(kind);
        all.insert(all.end(), part.begin(), part.end());
    }
    all.resize(160064, 0x05);
    const std::uint8_t header[] = {0x00, 0x00};
    const SysExMessage file = buildSysExMessage(0x50, header, 1, packBytes(all));
    ASSERT_EQ(file.size(), 182939u);
    const std::filesystem::path path = t.folder / "all.syx";
    {
        std::ofstream out(path, std::ios::binary);
        out.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
    }
    const ByteImage oldA = z1Image(kPatchBankA);
    const ByteImage oldB = z1Image(kPatchBankB);
    ASSERT_TRUE(doLoadMiscFile(model, path.string(), file.size()));
    model.misc.mode = 3;
    host.expectMessage("Send All Data (loaded from file)", Answer::Yes,
                       "Completely replace data in Korg Z1. Are you sure?");
    EXPECT_TRUE(miscSend(model));
    pump.runPending();
    ASSERT_FALSE(z1.received().empty());
    EXPECT_EQ(z1.received().back(), withChannel(file, 3));
    EXPECT_EQ(z1Image(kPatchBankA), oldB);
    EXPECT_EQ(z1Image(kPatchBankB), oldA);
    EXPECT_EQ(host.status, "All Data data has been sent");
}

TEST_F(SimFlows, TheTestToneSendsThePatchThenNoteOnThenNoteOff)
{
    request(0);
    model.mode = kPatch;
    model.settings.tonePitch = 60;
    model.settings.toneVelocity = 100;
    model.settings.toneLength = 5;
    const std::size_t before = z1.received().size();
    mnuTestTone(model);
    ASSERT_TRUE(timer.enabled());
    timer.tick();  // the patch
    pump.runPending();
    ASSERT_EQ(z1.received().size(), before + 1);
    EXPECT_EQ(z1.received().back().size(), 666u);
    EXPECT_TRUE(z1.notes().empty());
    timer.tick();  // note on
    ASSERT_EQ(z1.notes().size(), 1u);
    EXPECT_EQ(z1.notes()[0].status, 0x90);
    EXPECT_EQ(z1.notes()[0].key, 60);
    EXPECT_EQ(z1.notes()[0].velocity, 100);
    timer.tick();  // note off
    ASSERT_EQ(z1.notes().size(), 2u);
    EXPECT_EQ(z1.notes()[1].status, 0x80);
    EXPECT_EQ(z1.notes()[1].key, 60);
    EXPECT_EQ(z1.notes()[1].velocity, 40);
    EXPECT_FALSE(timer.enabled());
    EXPECT_EQ(host.status, "Tone has been sent");
}

TEST_F(SimFlows, TheTestToneGoesToTheInstrumentsChannel)
{
    setChannel(9);
    request(0);
    model.mode = kPatch;
    model.settings.tonePitch = 48;
    model.settings.toneVelocity = 90;
    mnuTestTone(model);
    timer.tick();
    pump.runPending();
    timer.tick();
    timer.tick();
    ASSERT_EQ(z1.notes().size(), 2u);
    EXPECT_EQ(z1.notes()[0].status, 0x98);
    EXPECT_EQ(z1.notes()[1].status, 0x88);
}

}  // namespace
}  // namespace quillon
