#include "midi/ReceiveEngine.h"

#include "files/LoadingFiles.h"
#include "midi/MidiFlowTest.h"
#include "midi/MidiGlobal.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using Log = std::vector<std::string>;

struct ReceiveEngine : MidiFlowTest {
    ReceiveEngine() { newItems("Old Patch", "Old Multi", "Old Pattern"); }

    SysExMessage patchNamed(const std::string& name) { return patchMessage(namedItemImage(model, kPatch, name)); }

    void listen()
    {
        mnuListen(model);
        ASSERT_EQ(in.state(), kPortBusy);
    }
};

TEST(ReceiveEngineBlocks, EachBlockKindGoesByItsExactLength)
{
    struct Case {
        std::size_t length;
        int kind;
        const char* name;
    };
    const Case cases[] = {
        {182939, 1, "all Z1"},     {168531, 2, "all program"},    {84270, 3, "bank"},
        {666, 4, "patch"},         {668, 4, "patch"},             {7617, 5, "all multi"},
        {3814, 6, "multi A/B"},    {245, 7, "single multi"},      {248, 7, "single multi"},
        {5860, 8, "arpeggiator"},  {300, 9, "single arpeggiator"}, {483, 10, "global/MIDI"},
        {966, 11, "global & MIDI"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(receivedBlockKind(c.length), c.kind) << c.length;
        EXPECT_EQ(receivedBlockName(c.kind), c.name);
    }
    // Received messages have no tolerance, unlike files.
    for (const std::size_t length : {0u, 199u, 244u, 246u, 250u, 665u, 667u, 669u, 84269u, 84271u, 182940u})
        EXPECT_EQ(receivedBlockKind(length), 0) << length;
    EXPECT_EQ(receivedBlockName(0), "");
    EXPECT_EQ(receivedBlockName(12), "");
}

TEST_F(ReceiveEngine, ListenShowsItWaitsAndStartsTheInput)
{
    MIDIOutOpen(model);
    journal.clear();
    host.setMessage("something");
    listen();
    EXPECT_EQ(host.status, "Waiting for SysEx data");
    EXPECT_EQ(host.statusColour, StatusColour::Busy);
    EXPECT_EQ(host.message, "");
    EXPECT_EQ(journal, (Log{"out close", "in buffer 200000", "in device 0", "in open", "in filter 254 on",
                            "in filter 248 on", "in start"}));
    EXPECT_EQ(out.state(), kPortClosed);
}

TEST_F(ReceiveEngine, ShortMessageOnlyChangesTheMessageLineAndALaterMultisetIsTaken)
{
    listen();
    ASSERT_TRUE(in.deliver(strayMessage(199)));
    EXPECT_EQ(host.message, "Last message 199 bytes (ignored). 1 messages 199 bytes");
    EXPECT_EQ(host.status, "Waiting for SysEx data");
    EXPECT_EQ(in.state(), kPortBusy);
    EXPECT_EQ(in.messageCount(), 0);
    ASSERT_TRUE(in.deliver(strayMessage(12)));
    EXPECT_EQ(host.message, "Last message 12 bytes (ignored). 2 messages 211 bytes");

    ASSERT_TRUE(in.deliver(multiMessage(namedItemImage(model, kMultiset, "New Multi"))));
    EXPECT_EQ(nameOf(kMultiset), "New Multi");
    // The load ends by emptying both lines.
    EXPECT_EQ(host.status, "");
    EXPECT_EQ(host.message, "");
    EXPECT_EQ(model.midi.ignoredCount, 0);
    EXPECT_EQ(model.midi.ignoredTotal, 0);
}

TEST_F(ReceiveEngine, UnrecognisedBlockShowsItsLengthAndThePortStaysOpen)
{
    listen();
    host.setStatus("Waiting for SysEx data", StatusColour::Busy);
    ASSERT_TRUE(in.deliver(strayMessage(250)));
    EXPECT_EQ(host.message, "Unrecognised block 250 bytes");
    EXPECT_EQ(host.status, "Waiting for SysEx data");
    EXPECT_EQ(in.state(), kPortBusy);
    // Listen goes on: a patch after it is still taken.
    ASSERT_TRUE(in.deliver(patchNamed("Heard")));
    EXPECT_EQ(nameOf(kPatch), "Heard");
}

TEST_F(ReceiveEngine, TwoDumpsBeforeTheEventBothAreCollectedTheFirstActsAndTheSecondIsDropped)
{
    listen();
    ASSERT_TRUE(in.arrive(strayMessage(250)));
    ASSERT_TRUE(in.arrive(patchNamed("First")));
    ASSERT_TRUE(in.arrive(patchNamed("Second")));
    in.fireMessage();
    EXPECT_EQ(nameOf(kPatch), "First");
    EXPECT_EQ(model.midi.receivedBlocks[1].size(), 250u);
    EXPECT_EQ(model.midi.receivedBlocks[2], patchNamed("First"));
    EXPECT_EQ(model.midi.receivedBlocks[3], patchNamed("Second"));
    EXPECT_EQ(in.messageCount(), 0);
    EXPECT_EQ(in.state(), kPortClosed);
}

TEST_F(ReceiveEngine, TheStatusNamesTheLastBlockEvenWhenAnEarlierOneActs)
{
    listen();
    ASSERT_TRUE(in.arrive(allMultiMessage(ByteImage(6656, 0))));
    ASSERT_TRUE(in.arrive(strayMessage(260)));
    in.fireMessage();
    EXPECT_EQ(miscCaption, "All Multi");
    // The kind acted on is the found block's, not the last one's.
    EXPECT_EQ(model.midi.receivedKind, 5);
    EXPECT_EQ(host.status, "Received  data");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
    EXPECT_EQ(host.message, "260 bytes");

    listen();
    ASSERT_TRUE(in.arrive(strayMessage(260)));
    ASSERT_TRUE(in.arrive(globalOrMidiMessage(0)));
    ASSERT_TRUE(in.arrive(allMultiMessage(ByteImage(6656, 0))));
    in.fireMessage();
    EXPECT_EQ(miscCaption, "Global");
    EXPECT_EQ(host.status, "Received all multi data");
    EXPECT_EQ(host.message, "7617 bytes");
}

TEST_F(ReceiveEngine, ATwentyFirstMessageOverwritesTheTwentieth)
{
    listen();
    for (int i = 0; i < 19; ++i)
        ASSERT_TRUE(in.arrive(strayMessage(250)));
    ASSERT_TRUE(in.arrive(strayMessage(251)));
    ASSERT_TRUE(in.arrive(strayMessage(252)));
    in.fireMessage();
    EXPECT_EQ(model.midi.receivedBlocks[20].size(), 252u);
    EXPECT_EQ(model.midi.receivedBlocks[19].size(), 250u);
    EXPECT_EQ(host.message, "Unrecognised block 252 bytes");
}

TEST_F(ReceiveEngine, AfterListenHasReceivedOnePatchASecondIsNotHeardUntilListenAgain)
{
    listen();
    ASSERT_TRUE(in.deliver(patchNamed("One")));
    EXPECT_EQ(nameOf(kPatch), "One");
    EXPECT_EQ(in.state(), kPortClosed);
    EXPECT_FALSE(in.deliver(patchNamed("Two")));
    EXPECT_EQ(nameOf(kPatch), "One");

    host.expectMessage("New Patch", Answer::No);  // received data is never clean
    listen();
    ASSERT_TRUE(in.deliver(patchNamed("Two")));
    EXPECT_EQ(nameOf(kPatch), "Two");
}

TEST_F(ReceiveEngine, CancelAtTheSaveFirstPromptDropsTheDumpYetTheStatusSaysItWasReceived)
{
    model.flags.changed[kPatch] = true;
    listen();
    host.expectMessage("New Patch", Answer::Cancel, "Save Old Patch first?");
    ASSERT_TRUE(in.deliver(patchNamed("Dropped")));
    EXPECT_EQ(nameOf(kPatch), "Old Patch");
    EXPECT_TRUE(model.flags.clean[kPatch]);
    EXPECT_EQ(host.status, "Received patch data");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
    EXPECT_EQ(in.state(), kPortClosed);
}

TEST_F(ReceiveEngine, AReceivedPatchIsLoadedButNotCleanAndHasNoFile)
{
    model.itemPath[kPatch] = "/music/old.syx";
    model.settings.inputChannel = 1;
    listen();
    ASSERT_TRUE(in.deliver(onChannel(patchNamed("Received"), 5)));
    EXPECT_EQ(nameOf(kPatch), "Received");
    EXPECT_TRUE(model.flags.loaded[kPatch]);
    EXPECT_FALSE(model.flags.clean[kPatch]);
    EXPECT_TRUE(model.itemPath[kPatch].empty());
    const ItemBuffers& b = model.buffers.of(kPatch);
    EXPECT_EQ(b.loaded, b.current);
    EXPECT_EQ(b.last, b.current);
    // The message's channel becomes the input channel.
    EXPECT_EQ(model.settings.inputChannel, 5);
    EXPECT_EQ(in.state(), kPortClosed);
}

TEST_F(ReceiveEngine, EverySingleItemLengthIsTaken)
{
    struct Case {
        SysExMessage message;
        int kind;
        const char* name;
    };
    const Case cases[] = {
        {longPatchMessage(namedItemImage(model, kPatch, "Long Patch")), kPatch, "Long Patch"},
        {multiMessage(namedItemImage(model, kMultiset, "Multi")), kMultiset, "Multi"},
        {longMultiMessage(namedItemImage(model, kMultiset, "Long Multi")), kMultiset, "Long Multi"},
        {patternMessage(namedItemImage(model, kPattern, "Pattern")), kPattern, "Pattern"},
    };
    for (const Case& c : cases) {
        model.itemPath[c.kind] = "/music/item.syx";
        model.flags.changed[c.kind] = false;
        model.flags.clean[c.kind] = true;
        listen();
        ASSERT_TRUE(in.deliver(c.message));
        EXPECT_EQ(nameOf(c.kind), c.name);
        EXPECT_FALSE(model.flags.clean[c.kind]) << c.name;
        EXPECT_TRUE(model.itemPath[c.kind].empty()) << c.name;
        EXPECT_EQ(model.midi.receivedBlocks[1], c.message);
    }
}

TEST_F(ReceiveEngine, ABankReplyFillsTheBankItsSixthByteNames)
{
    for (const int bank : {kPatchBankB, kPatchBankA}) {
        const ByteImage image = countingImage(static_cast<std::size_t>(byteImageSize(bank)));
        model.itemPath[bank] = "/music/bank.syx";
        model.bankTarget = bank == kPatchBankA ? kPatchBankB : kPatchBankA;
        listen();
        ASSERT_TRUE(in.deliver(bankMessage(bank, image)));
        EXPECT_EQ(model.bankTarget, bank);
        EXPECT_EQ(model.banks.image(bank), image);
        EXPECT_TRUE(model.flags.loaded[bank]);
        EXPECT_FALSE(model.flags.clean[bank]);
        EXPECT_TRUE(model.itemPath[bank].empty());
        EXPECT_EQ(in.state(), kPortClosed);
    }
}

TEST_F(ReceiveEngine, AMultiBankReplyFillsTheBankItsSeventhByteNames)
{
    for (const int bank : {kMultiBankB, kMultiBankA}) {
        const ByteImage image = countingImage(static_cast<std::size_t>(byteImageSize(bank)));
        model.multiBankTarget = bank == kMultiBankA ? kMultiBankB : kMultiBankA;
        model.itemPath[bank] = "/music/multibank.syx";
        listen();
        ASSERT_TRUE(in.deliver(multiBankMessage(bank, image)));
        EXPECT_EQ(model.multiBankTarget, bank);
        EXPECT_EQ(model.banks.image(bank), image);
        EXPECT_TRUE(model.flags.loaded[bank]);
        EXPECT_FALSE(model.flags.clean[bank]);
        EXPECT_TRUE(model.itemPath[bank].empty());
    }
}

TEST_F(ReceiveEngine, AnArpeggiatorBankReplyKeepsItsPath)
{
    const ByteImage image = countingImage(static_cast<std::size_t>(byteImageSize(kArpBank)));
    model.itemPath[kArpBank] = "/music/arp.syx";
    listen();
    ASSERT_TRUE(in.deliver(arpBankMessage(image)));
    EXPECT_EQ(model.banks.image(kArpBank), image);
    EXPECT_TRUE(model.flags.loaded[kArpBank]);
    EXPECT_FALSE(model.flags.clean[kArpBank]);
    EXPECT_EQ(model.itemPath[kArpBank], "/music/arp.syx");
}

TEST_F(ReceiveEngine, ABadHeaderShowsTheBoxAfterThePreloadAndChangesNothing)
{
    SysExMessage message = patchNamed("Bad");
    message[3] = 0x00;  // not the instrument's model byte
    listen();
    host.expectMessage("Converting MIDI Data", Answer::Ok, "Problem with SysEx header");
    ASSERT_TRUE(in.deliver(message));
    EXPECT_EQ(nameOf(kPatch), "Old Patch");
    EXPECT_TRUE(model.flags.clean[kPatch]);
    EXPECT_EQ(host.status, "");
    EXPECT_EQ(in.state(), kPortClosed);
}

TEST_F(ReceiveEngine, DumpsOfSeveralKindsOpenFrmMiscForSaving)
{
    struct Case {
        SysExMessage message;
        const char* name;
        const char* received;
    };
    const Case cases[] = {
        {allDataMessage(ByteImage(160064, 0)), "All Data", "Received all Z1 data"},
        {allMultiMessage(ByteImage(6656, 0)), "All Multi", "Received all multi data"},
        {globalOrMidiMessage(0), "Global", "Received global/MIDI data"},
        {globalOrMidiMessage(1), "MIDI", "Received global/MIDI data"},
        {SysExMessage(966, 0xF0), "Global and MIDI", "Received global & MIDI data"},
        {allProgramMessage(ByteImage(147456, 0)), "All Program", "Received all program data"},
    };
    int shown = 0;
    for (const Case& c : cases) {
        listen();
        ASSERT_TRUE(in.deliver(c.message)) << c.name;
        EXPECT_EQ(miscShown, ++shown) << c.name;
        EXPECT_EQ(miscCaption, c.name);
        EXPECT_EQ(miscSaveSendCaption, std::string("Save ") + c.name);
        EXPECT_EQ(model.misc.mode, 1);
        EXPECT_EQ(model.misc.message, c.message);
        EXPECT_EQ(host.status, c.received);
        EXPECT_EQ(in.state(), kPortClosed);
    }
}

TEST_F(ReceiveEngine, AnAllProgramDumpAnsweringABankRequestFillsThatBank)
{
    const ByteImage image = countingImage(147456);
    doSendRequest(model, 2);  // Bank B
    ASSERT_EQ(model.midi.requestPending, 3);
    requestUnloads = 0;
    ASSERT_TRUE(in.deliver(allProgramMessage(image)));
    EXPECT_EQ(miscShown, 0);
    EXPECT_EQ(requestUnloads, 1);
    EXPECT_EQ(model.midi.requestPending, 0);
    EXPECT_EQ(model.banks.image(kPatchBankB), ByteImage(image.begin() + 73728, image.end()));
    EXPECT_EQ(model.bankTarget, kPatchBankB);
    EXPECT_TRUE(model.flags.loaded[kPatchBankB]);
    // Unlike a direct bank reply, the bank stays clean.
    EXPECT_TRUE(model.flags.clean[kPatchBankB]);
    EXPECT_EQ(host.message, "84270 bytes");
    EXPECT_EQ(host.busyDepth, 0);
    EXPECT_EQ(in.state(), kPortClosed);
}

TEST_F(ReceiveEngine, ExtractionShowsItsStepsForBankA)
{
    const ByteImage image = countingImage(147456);
    ASSERT_TRUE(miscReceive(model, allProgramMessage(image)));
    model.misc.mode = 1;
    doExtractAllProgramBank(model, kPatchBankA);
    EXPECT_EQ(host.status, "Converting bank A");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
    EXPECT_EQ(host.message, "84270 bytes");
    EXPECT_EQ(model.banks.image(kPatchBankA), ByteImage(image.begin(), image.begin() + 73728));
    EXPECT_EQ(model.bankTarget, kPatchBankA);
}

TEST_F(ReceiveEngine, CancelAtTheExtractionsPromptLeavesTheBank)
{
    const ByteImage before = model.banks.image(kPatchBankA);
    model.flags.loaded[kPatchBankA] = true;
    model.flags.changed[kPatchBankA] = true;
    ASSERT_TRUE(miscReceive(model, allProgramMessage(countingImage(147456))));
    host.expectMessage("New Bank", Answer::Cancel, "Save current Bank A first?");
    doExtractAllProgramBank(model, kPatchBankA);
    EXPECT_EQ(model.banks.image(kPatchBankA), before);
}

TEST_F(ReceiveEngine, AnUnansweredBankRequestStillTakesALaterAllProgramDumpUnderListen)
{
    const ByteImage image = countingImage(147456);
    doSendRequest(model, 1);  // Bank A, never answered
    listen();
    ASSERT_TRUE(in.deliver(allProgramMessage(image)));
    EXPECT_EQ(miscShown, 0);
    EXPECT_EQ(model.banks.image(kPatchBankA), ByteImage(image.begin(), image.begin() + 73728));
}

TEST_F(ReceiveEngine, ALongMessageInBetweenEndsTheWaitingRequest)
{
    doSendRequest(model, 1);
    ASSERT_TRUE(in.deliver(strayMessage(250)));
    EXPECT_EQ(model.midi.requestPending, 0);
    ASSERT_TRUE(in.deliver(allProgramMessage(countingImage(147456))));
    EXPECT_EQ(miscShown, 1);
}

TEST_F(ReceiveEngine, AShortMessageLeavesTheRequestWaiting)
{
    doSendRequest(model, 2);
    ASSERT_TRUE(in.deliver(strayMessage(20)));
    EXPECT_EQ(model.midi.requestPending, 3);
    EXPECT_EQ(requestUnloads, 1);  // only the one of the request itself
}

TEST_F(ReceiveEngine, AMessageEventWithNothingWaitingDoesNothing)
{
    listen();
    in.clearLog();
    host.setMessage("unchanged");
    in.fireMessage();
    EXPECT_TRUE(in.log.empty());
    EXPECT_EQ(host.message, "unchanged");
}

// frmRequest's eight options and the messages they send.
struct Request : MidiFlowTest {};

TEST_F(Request, CaptionsOfTheEightOptions)
{
    const char* captions[] = {"Current patch", "Bank A",          "Bank B",         "Current multi",
                              "Multibank A",   "Multibank B",     "Current pattern", "Pattern bank"};
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(requestCaption(i), captions[i]);
    EXPECT_EQ(requestCaption(8), "");
    EXPECT_EQ(requestCaption(-1), "");
}

TEST_F(Request, EachRequestSendsItsBytesOnTheGlobalChannel)
{
    const std::vector<std::vector<std::uint8_t>> tails = {
        {0x10, 0x00, 0xF7},       {0x1C, 0x10, 0x00, 0x00, 0xF7}, {0x1C, 0x11, 0x00, 0x00, 0xF7},
        {0x19, 0x00, 0xF7},       {0x1D, 0x10, 0x00, 0x00, 0xF7}, {0x1D, 0x11, 0x00, 0x00, 0xF7},
        {0x36, 0x00, 0xF7},       {0x34, 0x10, 0x00, 0xF7},
    };
    for (const int channel : {1, 16}) {
        model.settings.outputChannel = channel;
        for (int i = 0; i < 8; ++i) {
            doSendRequest(model, i);
            std::vector<std::uint8_t> expected{0xF0, 0x42, static_cast<std::uint8_t>(47 + channel), 0x46};
            expected.insert(expected.end(), tails[static_cast<std::size_t>(i)].begin(),
                            tails[static_cast<std::size_t>(i)].end());
            ASSERT_EQ(out.queued.size(), 1u) << i;
            EXPECT_EQ(out.queued[0], expected) << i;
            EXPECT_EQ(out.queuedTypes[0], 240);
            EXPECT_EQ(model.midi.requestPending, i + 1);
        }
    }
}

TEST_F(Request, ARequestForBankBSaysPleaseWaitAndForBankAShowsTheProgressBarText)
{
    doSendRequest(model, 2);
    EXPECT_EQ(host.status, "Bank B data requested - please wait");
    doSendRequest(model, 1);
    EXPECT_EQ(host.status, "Bank A data requested - see progress bar on Z1");
    EXPECT_EQ(host.statusColour, StatusColour::Busy);
    EXPECT_EQ(model.midi.doneText, "Bank A data requested - see progress bar on Z1");
    for (const int i : {0, 3, 4, 5, 6, 7}) {
        doSendRequest(model, i);
        EXPECT_EQ(host.status, std::string(requestCaption(i)) + " data requested - please wait");
    }
}

TEST_F(Request, TheRequestLeavesAndTheInputWaitsForTheAnswer)
{
    MIDIOutOpen(model);
    MIDIInOpen(model);
    journal.clear();
    host.setMessage("old");
    doSendRequest(model, 0);
    EXPECT_EQ(requestUnloads, 1);
    EXPECT_EQ(host.message, "");
    EXPECT_EQ(journal, (Log{"out close", "in buffer 200000", "in close", "out device 0", "out open",
                            "out queue:7 bytes", "out start", "in device 0", "in open", "in filter 254 on",
                            "in filter 248 on", "in start"}));
    out.finishPlaying();
    EXPECT_EQ(host.status, "Current patch data requested - please wait");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
    EXPECT_EQ(in.state(), kPortBusy);
}

TEST_F(Request, AnIndexOutsideTheListSendsNothing)
{
    doSendRequest(model, 8);
    doSendRequest(model, -1);
    EXPECT_TRUE(journal.empty());
    EXPECT_EQ(model.midi.requestPending, 0);
}

}  // namespace
}  // namespace quillon
