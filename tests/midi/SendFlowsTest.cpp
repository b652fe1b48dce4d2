#include "midi/SendFlows.h"

#include "files/LoadingFiles.h"
#include "files/MiscDialog.h"
#include "files/SysExSaving.h"
#include "midi/MidiFlowTest.h"
#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using Log = std::vector<std::string>;
using Bytes = std::vector<std::uint8_t>;

struct SendFlows : MidiFlowTest {
    SendFlows() { newItems("Test Patch", "Test Multi", "Test Pattern"); }

    // A bank of the store filled and marked loaded.
    ByteImage loadBank(int bank)
    {
        ByteImage image = countingImage(static_cast<std::size_t>(byteImageSize(bank)));
        model.banks.image(bank) = image;
        model.flags.loaded[bank] = true;
        return image;
    }

    void listenFirst()
    {
        mnuListen(model);
        ASSERT_EQ(in.state(), kPortBusy);
    }

    Bytes header(std::initializer_list<std::uint8_t> tail, int channel = 1) const
    {
        Bytes bytes{0xF0, 0x42, static_cast<std::uint8_t>(47 + channel), 0x46};
        for (const std::uint8_t byte : tail)
            bytes.push_back(byte);
        return bytes;
    }

    static Bytes front(const Bytes& bytes, std::size_t n) { return Bytes(bytes.begin(), bytes.begin() + n); }
};

// --- doSendActive ---------------------------------------------------------

TEST_F(SendFlows, SendingAPatchWithNothingLoadedGivesTheBoxAndNoPortIsOpened)
{
    model.flags.loaded[kPatch] = false;
    listenFirst();
    journal.clear();
    host.expectMessage("Send patch", Answer::Ok, "No patch loaded");
    doSendActive(model);
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].icon, MessageIcon::Information);
    EXPECT_TRUE(host.messages[0].help);
    EXPECT_EQ(host.messages[0].helpContext, 110);
    EXPECT_TRUE(journal.empty());
    EXPECT_EQ(out.state(), kPortClosed);
}

TEST_F(SendFlows, EachModeWithNothingLoadedGivesItsBox)
{
    struct Case {
        int mode;
        int multiMode;
        int arpMode;
        const char* title;
        const char* text;
    };
    const Case cases[] = {
        {1, 0, 0, "Send patch", "No patch loaded"},
        {2, 0, 0, "Send bank A", "No bank A loaded"},
        {3, 0, 0, "Send bank B", "No bank B loaded"},
        {4, 0, 0, "Send Multiset", "No multiset loaded"},
        {4, 1, 0, "Send Multi Bank A", "No multibank A loaded"},
        {4, 2, 0, "Send Multi Bank B", "No multibank B loaded"},
        {5, 0, 0, "Send Single Pattern", "Pattern has no tones selected. Korg Z1 will not play it"},
        {5, 0, 1, "Send Arpeggiator Bank", "No arpeggiator bank loaded"},
    };
    model.flags.loaded = {};
    ParamValues& pattern = model.buffers.of(kPattern).current;
    std::fill(pattern.begin(), pattern.end(), 0);
    for (const Case& c : cases) {
        model.mode = c.mode;
        model.multiMode = c.multiMode;
        model.arpMode = c.arpMode;
        host.expectMessage(c.title, Answer::Ok, c.text);
        doSendActive(model);
    }
    for (const MessageRequest& box : host.messages) {
        EXPECT_EQ(box.icon, MessageIcon::Information) << box.title;
        EXPECT_EQ(box.helpContext, 110) << box.title;
    }
    EXPECT_TRUE(out.log.empty());
}

TEST_F(SendFlows, SendingABankAsksFirstAndNoLeavesEverythingWithTheInputAlreadyClosed)
{
    loadBank(kPatchBankA);
    model.mode = kPatchBankA;
    listenFirst();
    host.setStatus("Old", StatusColour::Error);
    host.expectMessage("Send bank A", Answer::No, "Replace bank A in Korg Z1. Are you sure?");
    doSendActive(model);
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].icon, MessageIcon::Question);
    EXPECT_EQ(host.messages[0].buttons, MessageButtons::YesNo);
    EXPECT_TRUE(host.messages[0].help);
    EXPECT_EQ(host.messages[0].helpContext, 110);
    EXPECT_EQ(in.state(), kPortClosed);
    EXPECT_EQ(out.state(), kPortClosed);
    EXPECT_TRUE(out.queued.empty());
    EXPECT_EQ(host.status, "");
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(SendFlows, EachConfirmedRowSendsItsBank)
{
    struct Case {
        int mode;
        int multiMode;
        int arpMode;
        int bank;
        const char* title;
        const char* question;
        const char* status;
    };
    const Case cases[] = {
        {2, 0, 0, kPatchBankA, "Send bank A", "Replace bank A in Korg Z1. Are you sure?",
         "Sending Bank A - see progress bar on Z1"},
        {3, 0, 0, kPatchBankB, "Send bank B", "Replace bank B in Korg Z1. Are you sure?",
         "Sending Bank B - see progress bar on Z1"},
        {4, 1, 0, kMultiBankA, "Send Multi Bank A", "Replace multibank A in Korg Z1. Are you sure?",
         "Sending multibank A (please wait)"},
        {4, 2, 0, kMultiBankB, "Send Multi Bank B", "Replace multibank B in Korg Z1. Are you sure?",
         "Sending multibank B (please wait)"},
        {5, 0, 1, kArpBank, "Send Arpeggiator Bank", "Replace all arpeggiator patterns in Korg Z1. Are you sure?",
         "Sending Arpeggiator Bank (please wait)"},
    };
    for (const Case& c : cases) {
        const ByteImage image = loadBank(c.bank);
        model.mode = c.mode;
        model.multiMode = c.multiMode;
        model.arpMode = c.arpMode;
        model.bankTarget = kPatchBankA;
        listenFirst();
        host.expectMessage(c.title, Answer::Yes, c.question);
        doSendActive(model);
        EXPECT_EQ(in.state(), kPortClosed) << c.title;
        EXPECT_EQ(host.status, c.status);
        EXPECT_EQ(queuedBytes(), dumpForKind(c.bank, 1, DATAtoMIDI(c.bank, image))) << c.title;
        out.finishPlaying();
    }
}

TEST_F(SendFlows, EachDirectRowSendsItsItemAfterClosingTheInput)
{
    giveThePatternTones();
    struct Case {
        int mode;
        int kind;
        std::size_t bytes;
    };
    const Case cases[] = {{1, kPatch, 666}, {4, kMultiset, 245}, {5, kPattern, 300}};
    for (const Case& c : cases) {
        model.mode = c.mode;
        model.multiMode = 0;
        model.arpMode = 0;
        listenFirst();
        host.setStatus("Old", StatusColour::Error);
        model.midi.doneText = "old";
        doSendActive(model);
        EXPECT_TRUE(host.messages.empty());
        EXPECT_EQ(in.state(), kPortClosed);
        ASSERT_EQ(out.queued.size(), 1u);
        EXPECT_EQ(out.queued[0].size(), c.bytes);
        EXPECT_EQ(host.status, "Sending " + nameOf(c.kind));
        out.finishPlaying();
    }
}

TEST_F(SendFlows, APatternWithNoTonesCannotBeSentYetItCanBeSavedAfterAQuestion)
{
    ParamValues& pattern = model.buffers.of(kPattern).current;
    std::fill(pattern.begin(), pattern.end(), 0);
    model.mode = kPattern;
    model.arpMode = 0;
    host.expectMessage("Send Single Pattern", Answer::Ok, "Pattern has no tones selected. Korg Z1 will not play it");
    doSendActive(model);
    EXPECT_TRUE(out.log.empty());

    host.expectMessage("Save Arpeggiator Pattern", Answer::Yes,
                       "Pattern has no tones selected. Do you still want to save?");
    const std::string path = (t.folder / "empty.syx").string();
    host.expectSaveFile("Save (Single) Arp Pattern", path);
    saveCommand(model, 2);
    EXPECT_TRUE(std::filesystem::exists(path));
}

// --- the dump routines ----------------------------------------------------

TEST_F(SendFlows, APatchGoesWholeWithItsNameInTheStatusLines)
{
    model.settings.outputChannel = 3;
    doSendPatch(model);
    EXPECT_EQ(host.status, "Sending Test Patch");
    EXPECT_EQ(host.statusColour, StatusColour::Busy);
    EXPECT_EQ(host.message, "666 bytes on MIDI channel 3");
    EXPECT_EQ(model.midi.doneText, "Test Patch has been sent");
    EXPECT_EQ(out.log, (Log{"device 0", "open", "queue:666 bytes", "start"}));
    EXPECT_EQ(out.queuedTypes, (std::vector<int>{240}));
    EXPECT_EQ(front(out.queued[0], 6), header({0x40, 0x01}, 3));
    EXPECT_EQ(out.queued[0].back(), 0xF7);
    EXPECT_EQ(host.busyDepth, 0);
    out.finishPlaying();
    EXPECT_EQ(host.status, "Test Patch has been sent");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
}

TEST_F(SendFlows, TheEditBufferGoesIntoTheMessage)
{
    model.buffers.of(kPatch).current[1] = 'Z';
    doSendPatch(model);
    SysExImage packed(out.queued[0].begin() + 6, out.queued[0].end());
    LoadReport report;
    const ByteImage sent = MIDItoDATA(kPatch, packed, report);
    ParamValues values = model.buffers.of(kPatch).defaults;
    imageToParams(kPatch, sent, values, report);
    EXPECT_EQ(values[1], 'Z');
    EXPECT_EQ(model.packed[kPatch].size(), 660u);
    EXPECT_EQ(model.packed[kPatch].back(), 0xF7);
}

TEST_F(SendFlows, AMultisetAndAPatternGoWhole)
{
    doSendMultiset(model);
    EXPECT_EQ(host.status, "Sending Test Multi");
    EXPECT_EQ(host.message, "245 bytes on MIDI channel 1");
    EXPECT_EQ(model.midi.doneText, "Test Multi has been sent");
    ASSERT_EQ(pieceSizes(), (std::vector<std::size_t>{245}));
    EXPECT_EQ(front(out.queued[0], 6), header({0x49, 0x00}));

    doSendPattern(model);
    EXPECT_EQ(host.status, "Sending Test Pattern");
    EXPECT_EQ(host.message, "300 bytes on MIDI channel 1");
    EXPECT_EQ(model.midi.doneText, "Test Pattern has been sent");
    ASSERT_EQ(pieceSizes(), (std::vector<std::size_t>{300}));
    EXPECT_EQ(front(out.queued[0], 6), header({0x6B, 0x00}));
}

TEST_F(SendFlows, ABankGoesIn85PiecesOfAThousandPackedBytes)
{
    for (const int bank : {kPatchBankA, kPatchBankB}) {
        const ByteImage image = loadBank(bank);
        model.bankTarget = bank;
        doSendBank(model);
        const std::string letter = bank == kPatchBankA ? "A" : "B";
        EXPECT_EQ(host.status, "Sending Bank " + letter + " - see progress bar on Z1");
        EXPECT_EQ(host.message, "84270 bytes on MIDI channel 1");
        EXPECT_EQ(model.midi.doneText, "Bank " + letter + " has been sent");
        EXPECT_EQ(host.busyDepth, 1);
        const std::vector<std::size_t> sizes = pieceSizes();
        ASSERT_EQ(sizes.size(), 85u);
        EXPECT_EQ(sizes.front(), 1008u);
        for (std::size_t i = 1; i + 1 < sizes.size(); ++i)
            EXPECT_EQ(sizes[i], 1000u);
        EXPECT_EQ(sizes.back(), 262u);
        EXPECT_EQ(front(out.queued[0], 8), header({0x4C, bank == kPatchBankA ? std::uint8_t{0x10} : std::uint8_t{0x11},
                                                   0x00, 0x00}));
        EXPECT_EQ(queuedBytes(), patchBankDump(bank, 1, DATAtoMIDI(bank, image)));
        out.finishPlaying();
        EXPECT_EQ(host.busyDepth, 0);
    }
}

TEST_F(SendFlows, AMultiBankGoesInFourPiecesForTheBankOfMultiMode)
{
    for (const int multiMode : {1, 2}) {
        const int bank = multiMode == 1 ? kMultiBankA : kMultiBankB;
        const ByteImage image = loadBank(bank);
        model.multiMode = multiMode;
        model.multiBankTarget = multiMode == 1 ? kMultiBankB : kMultiBankA;
        doSendMultiBank(model);
        const std::string letter = multiMode == 1 ? "A" : "B";
        EXPECT_EQ(model.multiBankTarget, bank);
        EXPECT_EQ(host.status, "Sending multibank " + letter + " (please wait)");
        EXPECT_EQ(host.message, "3814 bytes on MIDI channel 1");
        EXPECT_EQ(model.midi.doneText, "Multibank " + letter + " has been sent");
        EXPECT_EQ(pieceSizes(), (std::vector<std::size_t>{1009, 1000, 1000, 805}));
        EXPECT_EQ(front(out.queued[0], 9),
                  header({0x4D, 0x00, multiMode == 1 ? std::uint8_t{0x10} : std::uint8_t{0x11}, 0x00, 0x00}));
        EXPECT_EQ(queuedBytes(), multiBankDump(bank, 1, DATAtoMIDI(bank, image)));
        out.finishPlaying();
    }
}

TEST_F(SendFlows, AMultiBankSendWithoutASelectedBankAsksForOne)
{
    loadBank(kMultiBankA);
    model.multiMode = 0;
    host.expectMessage("Send Multi Bank", Answer::Ok, "Please select multibank to send");
    doSendMultiBank(model);
    EXPECT_TRUE(out.log.empty());
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(SendFlows, AnArpeggiatorBankGoesAsSixPiecesTheFirstWithTheHeaderAndTheLastWithF7)
{
    const ByteImage image = loadBank(kArpBank);
    doSendArpBank(model);
    EXPECT_EQ(host.status, "Sending Arpeggiator Bank (please wait)");
    EXPECT_EQ(host.message, "5860 bytes on MIDI channel 1");
    EXPECT_EQ(model.midi.doneText, "Arpeggiator Bank has been sent");
    // 1000, 1000, 1000, 1000, 1000 and 852 packed bytes.
    EXPECT_EQ(pieceSizes(), (std::vector<std::size_t>{7 + 1000, 1000, 1000, 1000, 1000, 852 + 1}));
    EXPECT_EQ(front(out.queued[0], 7), header({0x69, 0x10, 0x00}));
    EXPECT_EQ(out.queued.back().back(), 0xF7);
    const SysExImage packed = DATAtoMIDI(kArpBank, image);
    EXPECT_EQ(Bytes(out.queued[0].begin() + 7, out.queued[0].end()), Bytes(packed.begin(), packed.begin() + 1000));
    EXPECT_EQ(Bytes(out.queued[5].begin(), out.queued[5].end() - 1), Bytes(packed.begin() + 5000, packed.end()));
    EXPECT_EQ(out.log.back(), "start");
}

TEST_F(SendFlows, SendingWithChannel16GivesAThirdByteOf3F)
{
    model.settings.outputChannel = 16;
    doSendPatch(model);
    EXPECT_EQ(out.queued[0][2], 0x3F);
    EXPECT_EQ(host.message, "666 bytes on MIDI channel 16");
    loadBank(kArpBank);
    doSendArpBank(model);
    EXPECT_EQ(out.queued[0][2], 0x3F);
}

TEST_F(SendFlows, TheBankStoreIsPackedAfresh)
{
    loadBank(kPatchBankA);
    model.banks.image(kPatchBankA)[0] = 0x85;
    model.bankTarget = kPatchBankA;
    doSendBank(model);
    EXPECT_EQ(model.packed[kPatchBankA], [&] {
        SysExImage p = DATAtoMIDI(kPatchBankA, model.banks.image(kPatchBankA));
        p.push_back(0xF7);
        return p;
    }());
    EXPECT_EQ(out.queued[0][8], 0x01);  // the high bit of the first data byte
    EXPECT_EQ(out.queued[0][9], 0x05);
}

// --- miscSend -------------------------------------------------------------

struct SendMisc : SendFlows {
    void fromFile(const SysExMessage& message)
    {
        ASSERT_TRUE(miscReceive(model, message));
        model.misc.mode = 3;
    }
};

TEST_F(SendMisc, EachDumpHasItsNameAndQuestion)
{
    struct Case {
        SysExMessage message;
        const char* name;
        const char* question;
    };
    const Case cases[] = {
        {allDataMessage(ByteImage(160064, 0)), "All Data", "Completely replace data in Korg Z1. Are you sure?"},
        {allProgramMessage(ByteImage(147456, 0)), "All Program", "Replace all patches in Korg Z1. Are you sure?"},
        {allMultiMessage(ByteImage(6656, 0)), "All Multi", "Replace both multi banks in Korg Z1. Are you sure?"},
        {SysExMessage(966, 0x10), "Global and MIDI", "Replace global and MIDI settings in Korg Z1. Are you sure?"},
        {globalOrMidiMessage(1), "MIDI", "Replace MIDI settings in Korg Z1. Are you sure?"},
        {globalOrMidiMessage(0), "Global", "Replace global settings in Korg Z1. Are you sure?"},
    };
    for (const Case& c : cases) {
        fromFile(c.message);
        host.expectMessage(std::string("Send ") + c.name + " (loaded from file)", Answer::Yes, c.question);
        EXPECT_TRUE(miscSend(model)) << c.name;
        EXPECT_EQ(model.misc.name, c.name);
        EXPECT_EQ(host.status, std::string("Sending ") + c.name + " (loaded from file)");
        EXPECT_EQ(host.statusColour, StatusColour::Busy);
        EXPECT_EQ(model.midi.doneText, std::string(c.name) + " data has been sent");
        EXPECT_EQ(host.message, std::to_string(c.message.size()) + " bytes on MIDI channel 1");
        EXPECT_EQ(queuedBytes().size(), c.message.size());
        out.finishPlaying();
    }
    for (const MessageRequest& box : host.messages) {
        EXPECT_EQ(box.icon, MessageIcon::Question);
        EXPECT_EQ(box.buttons, MessageButtons::YesNo);
        EXPECT_TRUE(box.help);
        EXPECT_EQ(box.helpContext, 65);
    }
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(SendMisc, TheWholeMessageGoesInPiecesOfAThousandOnTheCurrentChannel)
{
    const SysExMessage message = onChannel(allMultiMessage(countingImage(6656)), 9);
    fromFile(message);
    model.settings.outputChannel = 2;
    host.expectMessage("Send All Multi (loaded from file)", Answer::Yes);
    ASSERT_TRUE(miscSend(model));
    EXPECT_EQ(pieceSizes(), (std::vector<std::size_t>{1000, 1000, 1000, 1000, 1000, 1000, 1000, 617}));
    SysExMessage expected = message;
    expected[2] = 0x31;
    EXPECT_EQ(queuedBytes(), expected);
    EXPECT_EQ(model.misc.message, expected);
    EXPECT_EQ(host.message, "7617 bytes on MIDI channel 2");
    EXPECT_EQ(out.log.back(), "start");
    EXPECT_EQ(host.busyDepth, 1);
}

TEST_F(SendMisc, AnswerNoForgetsTheNameAndSendsNothing)
{
    fromFile(allDataMessage(ByteImage(160064, 0)));
    host.expectMessage("Send All Data (loaded from file)", Answer::No);
    EXPECT_FALSE(miscSend(model));
    EXPECT_EQ(model.misc.name, "");
    EXPECT_TRUE(out.log.empty());
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(SendMisc, ADumpReceivedFromTheInstrumentCanOnlyBeSavedOneLoadedFromAFileCanBeSent)
{
    listenFirst();
    ASSERT_TRUE(in.deliver(allMultiMessage(ByteImage(6656, 0))));
    EXPECT_EQ(miscSaveSendCaption, "Save All Multi");
    EXPECT_FALSE(miscSend(model));
    EXPECT_TRUE(out.queued.empty());

    model.misc.mode = 3;
    EXPECT_EQ(misc::doSetup(model).saveSendCaption, "Send All Multi to Z1");
    host.expectMessage("Send All Multi (loaded from file)", Answer::Yes);
    EXPECT_TRUE(miscSend(model));
    EXPECT_EQ(queuedBytes().size(), 7617u);
}

}  // namespace
}  // namespace quillon
