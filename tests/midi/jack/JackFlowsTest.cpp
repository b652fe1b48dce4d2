// Request, Listen, Send and the test tone through RtMidi over a JACK server,
// with z1sim as the instrument.

#include "FixtureDumps.h"
#include "JackRig.h"

#include "files/MiscDialog.h"
#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "midi/SendFlows.h"
#include "midi/TestTone.h"
#include "midi/backends/SimulatedZ1.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExBytes.h"
#include "sysex/SysExPacking.h"

#include <array>

namespace quillon {
namespace {

// The Kind each request fills, by request index.
constexpr std::array<int, 8> kRequestKinds{kPatch, kPatchBankA, kPatchBankB, kMultiset,
                                           kMultiBankA, kMultiBankB, kPattern, kArpBank};

// The unpacked image of a dump of kind 1 to 8, as the program makes it of
// the message.
ByteImage imageOf(int kind, const SysExMessage& message)
{
    const std::size_t packedBytes = static_cast<std::size_t>(packedImageSize(kind));
    SysExImage packed(message.end() - static_cast<std::ptrdiff_t>(packedBytes) - 1, message.end());
    LoadReport report;
    return MIDItoDATA(kind, packed, report);
}

struct JackFlows : JackRig {
    const std::vector<SysExMessage> dumps = fixtureDumps(1);

    ByteImage& imageInModel(int kind)
    {
        return kind == kPatch || kind == kMultiset || kind == kPattern ? model.itemImage(kind)
                                                                        : model.banks.image(kind);
    }

    // Request `index` and wait until the answer has been taken.
    ::testing::AssertionResult request(int index)
    {
        const int kind = kRequestKinds[static_cast<std::size_t>(index)];
        model.flags.loaded[kind] = false;
        doSendRequest(model, index);
        if (runUntil(pump, [&] { return model.flags.loaded[kind] && system->input().state() == kPortClosed; }))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "no answer to request " << index << "; status " << host.status;
    }

    // Sends the current command's item, waits for z1sim to take it and
    // gives what z1sim saved, to be compared with what was sent.
    std::optional<SysExMessage> sendAndFetch(const std::string& savedKind, const std::function<void()>& send)
    {
        panel.heard.clear();
        const int before = savedCount(savedKind);
        send();
        EXPECT_TRUE(waitForAcknowledgement());
        EXPECT_EQ(savedCount(savedKind), before + 1);
        return newestSaved(savedKind);
    }

    // Puts the fixture's dump of request `index` back into z1sim, for the
    // tests that come after.
    void restore(int index)
    {
        panel.heard.clear();
        panel.send(dumps[static_cast<std::size_t>(index)]);
        EXPECT_TRUE(waitForAcknowledgement());
    }
};

struct JackRequest : JackFlows, ::testing::WithParamInterface<int> {};

TEST_P(JackRequest, BringsTheItemZ1simWasLoadedWith)
{
    const int index = GetParam();
    const int kind = kRequestKinds[static_cast<std::size_t>(index)];
    ASSERT_TRUE(request(index));
    EXPECT_EQ(imageInModel(kind), imageOf(kind, dumps[static_cast<std::size_t>(index)]));
    EXPECT_EQ(model.midi.requestPending, 0);
}

INSTANTIATE_TEST_SUITE_P(EachOfTheEight, JackRequest, ::testing::Range(0, 8));

TEST_F(JackFlows, TheLoadedBanksAreNotTheFactoryOnes)
{
    const SimulatedZ1 factory(1);
    EXPECT_NE(dumps[1], factory.dumpFor(1));
    EXPECT_NE(dumps[4], factory.dumpFor(4));
}

TEST_F(JackFlows, ListenTakesTheMultisetSentFromThePanel)
{
    mnuListen(model);
    ASSERT_EQ(system->input().state(), kPortBusy);
    panel.press(3);
    ASSERT_TRUE(runUntil(pump, [&] { return system->input().state() == kPortClosed; }));
    EXPECT_TRUE(model.flags.loaded[kMultiset]);
    EXPECT_EQ(model.itemImage(kMultiset), imageOf(kMultiset, dumps[3]));
    EXPECT_EQ(model.midi.requestPending, 0);
}

TEST_F(JackFlows, APatchSentArrivesByteForByte)
{
    ASSERT_TRUE(request(0));
    model.mode = kPatch;
    const auto saved = sendAndFetch("current-patch", [&] { doSendActive(model); });
    ASSERT_TRUE(saved);
    EXPECT_EQ(*saved, currentPatchDump(1, model.packed[kPatch]));
    restore(0);
}

TEST_F(JackFlows, ABankSentInPiecesArrivesAsOneMessage)
{
    ASSERT_TRUE(request(1));
    model.mode = kPatchBankA;
    model.bankTarget = kPatchBankA;
    host.expectMessage("Send bank A", Answer::Yes);
    const auto saved = sendAndFetch("bank-a", [&] { doSendActive(model); });
    ASSERT_TRUE(saved);
    ASSERT_EQ(saved->size(), 84270u);
    EXPECT_EQ(*saved, patchBankDump(kPatchBankA, 1, model.packed[kPatchBankA]));
    EXPECT_EQ(*saved, dumps[1]);
    EXPECT_EQ(host.status, "Bank A has been sent");
}

TEST_F(JackFlows, AMultiBankSentArrivesByteForByte)
{
    ASSERT_TRUE(request(5));
    model.mode = 4;
    model.multiMode = 2;
    host.expectMessage("Send Multi Bank B", Answer::Yes);
    const auto saved = sendAndFetch("multi-bank-b", [&] { doSendActive(model); });
    ASSERT_TRUE(saved);
    EXPECT_EQ(*saved, multiBankDump(kMultiBankB, 1, model.packed[kMultiBankB]));
    EXPECT_EQ(*saved, dumps[5]);
}

TEST_F(JackFlows, TheArpeggiatorBankSentArrivesByteForByte)
{
    ASSERT_TRUE(request(7));
    model.mode = 5;
    model.arpMode = 1;
    host.expectMessage("Send Arpeggiator Bank", Answer::Yes);
    const auto saved = sendAndFetch("arpeggiator-bank", [&] { doSendActive(model); });
    ASSERT_TRUE(saved);
    EXPECT_EQ(*saved, arpBankDump(1, model.packed[kArpBank]));
    EXPECT_EQ(*saved, dumps[7]);
}

TEST_F(JackFlows, AnAllDataFileSentArrivesByteForByte)
{
    // Made of what z1sim holds, so that the tests after it find the same.
    const SimulatedZ1 factory(1);
    ByteImage image;
    for (int index : {1, 2, 4, 5, 7}) {
        const ByteImage part = imageOf(kRequestKinds[static_cast<std::size_t>(index)], dumps[static_cast<std::size_t>(index)]);
        image.insert(image.end(), part.begin(), part.end());
    }
    for (const auto* settings : {&factory.memory().global, &factory.memory().midi}) {
        SysExImage packed = *settings;
        packed.push_back(0xF7);
        LoadReport report;
        const ByteImage part = MIDItoDATA(9, packed, report);
        image.insert(image.end(), part.begin(), part.end());
    }
    ASSERT_EQ(image.size(), 160064u);
    const std::uint8_t subHeader[] = {0x00, 0x00};
    // Taken on channel 5; it goes out on the current channel.
    const SysExMessage message = buildSysExMessage(kFunctionAllData, subHeader, 5, packBytes(image));
    ASSERT_EQ(message.size(), 182939u);
    model.misc.message = message;
    model.misc.mode = 3;
    host.expectMessage("Send All Data (loaded from file)", Answer::Yes);
    const auto saved = sendAndFetch("all-data", [&] { EXPECT_TRUE(miscSend(model)); });
    ASSERT_TRUE(saved);
    EXPECT_EQ(*saved, withChannel(message, 1));
    EXPECT_EQ(host.status, "All Data data has been sent");
}

TEST_F(JackFlows, TheTestToneSendsThePatchThenPlaysItsNote)
{
    ASSERT_TRUE(request(0));
    model.mode = kPatch;
    model.settings.tonePitch = 64;
    model.settings.toneVelocity = 99;
    panel.heard.clear();
    mnuTestTone(model);
    ASSERT_TRUE(timer.tick());  // the patch
    ASSERT_TRUE(waitForAcknowledgement());
    ASSERT_TRUE(timer.tick());  // note on
    ASSERT_TRUE(timer.tick());  // note off
    EXPECT_FALSE(timer.enabled());

    // The notes come over another connection than the panel's question:
    // ask until the note off is among them.
    SysExMessage lastTwo;
    for (int asked = 0; asked < 50 && lastTwo != SysExMessage{1, 0, 64, 99, 0, 0, 64, 40}; ++asked) {
        panel.heard.clear();
        panel.press(127);
        ASSERT_TRUE(runUntil(pump, [&] { return !panel.heard.empty() && panel.heard.back().size() > 1
                                                 && panel.heard.back()[1] == 0x7D; }));
        const SysExMessage& report = panel.heard.back();
        if (report.size() >= 3 + 8 + 1)
            lastTwo.assign(report.end() - 9, report.end() - 1);
    }
    EXPECT_EQ(lastTwo, (SysExMessage{1, 0, 64, 99, 0, 0, 64, 40}));
    restore(0);
}

TEST_F(JackFlows, ASecondSendCutsTheFirstShortAndArrivesWhole)
{
    ASSERT_TRUE(request(1));
    ASSERT_TRUE(request(0));
    const int banksBefore = savedCount("bank-a");
    model.mode = kPatchBankA;
    model.bankTarget = kPatchBankA;
    host.expectMessage("Send bank A", Answer::Yes);
    doSendActive(model);
    model.mode = kPatch;
    const auto saved = sendAndFetch("current-patch", [&] { doSendActive(model); });
    ASSERT_TRUE(saved);
    EXPECT_EQ(*saved, currentPatchDump(1, model.packed[kPatch]));
    EXPECT_EQ(savedCount("bank-a"), banksBefore);
    EXPECT_EQ(host.status, model.itemName[kPatch] + " has been sent");
    restore(0);
}

}  // namespace
}  // namespace quillon
