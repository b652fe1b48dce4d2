// Every send, request, Listen and the test tone with a MIDI port that fails
// at a chosen call: the device gone from the system, a device that will not
// open, a queue that fails, and the device unplugged in the middle of a dump.
// Each ends in the "MIDI Error" box or a status line, leaves the editors and
// banks as they were, throws nothing, and works again once the device is
// back.

#include "files/LoadingFiles.h"
#include "midi/MidiFlowTest.h"
#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "midi/SendFlows.h"
#include "midi/TestTone.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>

namespace quillon {
namespace {

// What the user would lose: the edit buffers, the banks and the flags.
struct Snapshot {
    std::array<ParamValues, 6> current;
    std::array<ByteImage, 9> banks;
    std::array<bool, 9> loaded{};
    std::array<bool, 9> changed{};
    std::array<bool, 9> clean{};

    bool operator==(const Snapshot&) const = default;
};

struct Send {
    const char* name;
    std::function<bool(AppModel&)> routine;
    const char* notSent;
    // The question asked before the send, answered Yes; none for most.
    const char* question = nullptr;
};

struct MidiFaults : MidiFlowTest {
    MidiFaults()
    {
        newItems("Test Patch", "Test Multi", "Test Pattern");
        giveThePatternTones();
        for (int bank : {kPatchBankA, kPatchBankB, kMultiBankA, kMultiBankB, kArpBank}) {
            model.banks.image(bank) = countingImage(static_cast<std::size_t>(byteImageSize(bank)));
            model.flags.loaded[bank] = true;
        }
        model.multiMode = 1;
    }

    Snapshot snapshot()
    {
        Snapshot s;
        for (int kind : {kPatch, kMultiset, kPattern})
            s.current[static_cast<std::size_t>(kind)] = model.buffers.of(kind).current;
        for (int bank : {kPatchBankA, kPatchBankB, kMultiBankA, kMultiBankB, kArpBank})
            s.banks[static_cast<std::size_t>(bank)] = model.banks.image(bank);
        s.loaded = model.flags.loaded;
        s.changed = model.flags.changed;
        s.clean = model.flags.clean;
        return s;
    }

    static std::vector<Send> sends()
    {
        return {
            {"patch", doSendPatch, "Test Patch has not been sent"},
            {"multiset", doSendMultiset, "Test Multi has not been sent"},
            {"pattern", doSendPattern, "Test Pattern has not been sent"},
            {"bank", doSendBank, "Bank A has not been sent"},
            {"multi bank", doSendMultiBank, "Multibank A has not been sent"},
            {"arpeggiator bank", doSendArpBank, "Arpeggiator Bank has not been sent"},
            {"several kinds",
             [](AppModel& m) {
                 EXPECT_TRUE(miscReceive(m, allMultiMessage(countingImage(6656))));
                 m.misc.mode = 3;
                 return miscSend(m);
             },
             "All Multi data has not been sent", "Send All Multi (loaded from file)"},
        };
    }

    // Runs a send, answering its question; the boxes it shows are then in
    // host.messages, the question's first.
    bool run(const Send& send, bool midiError = false)
    {
        host.messages.clear();
        if (send.question != nullptr)
            host.expectMessage(send.question, Answer::Yes);
        if (midiError)
            host.expectMessage("MIDI Error");
        bool sent = false;
        EXPECT_NO_THROW(sent = send.routine(model)) << send.name;
        EXPECT_TRUE(host.allShown()) << send.name;
        return sent;
    }

    // The last box shown is the "MIDI Error" box with this "[Error ...]" line.
    void expectMidiErrorLine(const std::string& line) const
    {
        ASSERT_FALSE(host.messages.empty());
        const MessageRequest& box = host.messages.back();
        EXPECT_EQ(box.title, "MIDI Error");
        EXPECT_TRUE(box.text.ends_with(line)) << box.text;
        EXPECT_EQ(box.helpContext, 310);
    }
};

TEST_F(MidiFaults, EverySendToAnOutputThatIsGoneShowsTheMidiErrorBoxAndSaysNotSent)
{
    out.noDevices = true;
    for (const Send& send : sends()) {
        const Snapshot before = snapshot();

        EXPECT_FALSE(run(send, true)) << send.name;

        expectMidiErrorLine("[Error 68 No MIDI output devices]");
        EXPECT_EQ(host.status, send.notSent);
        EXPECT_EQ(host.statusColour, StatusColour::Error);
        EXPECT_EQ(host.busyDepth, 0) << send.name << ": the hourglass is back";
        EXPECT_FALSE(model.midi.transfer.active);
        EXPECT_TRUE(out.queued.empty());
        EXPECT_EQ(out.state(), kPortClosed);
        EXPECT_TRUE(snapshot() == before) << send.name;
    }
}

TEST_F(MidiFaults, EverySendToADeviceThatWillNotOpenShowsTheMidiErrorBox)
{
    out.openFails = true;
    model.settings.outputDevice = 3;
    for (const Send& send : sends()) {
        const Snapshot before = snapshot();

        EXPECT_FALSE(run(send, true)) << send.name;

        expectMidiErrorLine("[Error 104 MIDI output device 3 cannot be opened]");
        EXPECT_EQ(host.status, send.notSent);
        EXPECT_EQ(host.busyDepth, 0);
        EXPECT_TRUE(snapshot() == before) << send.name;
    }
}

TEST_F(MidiFaults, AQueueThatFailsStopsTheSendAndSaysNotSent)
{
    out.queueFails = true;
    for (const Send& send : sends()) {
        out.clearLog();
        const Snapshot before = snapshot();

        run(send);

        EXPECT_EQ(host.status, send.notSent) << send.name;
        EXPECT_EQ(host.statusColour, StatusColour::Error);
        EXPECT_EQ(host.message, out.faultText);
        EXPECT_EQ(host.busyDepth, 0);
        EXPECT_FALSE(model.midi.transfer.active);
        EXPECT_EQ(std::count(out.log.begin(), out.log.end(), "start"), 0) << send.name << ": nothing is started";
        EXPECT_TRUE(snapshot() == before) << send.name;
        EXPECT_EQ(host.messages.size(), send.question != nullptr ? 1u : 0u) << "the status line tells of it, no box";
    }
}

TEST_F(MidiFaults, UnpluggedInTheMiddleOfADumpSaysNotSentAndWorksWhenPluggedBackIn)
{
    for (const Send& send : sends()) {
        ASSERT_TRUE(run(send)) << send.name;
        out.playPieces(1);
        const Snapshot before = snapshot();

        EXPECT_NO_THROW(out.unplug());

        EXPECT_EQ(host.status, send.notSent) << send.name;
        EXPECT_EQ(host.statusColour, StatusColour::Error);
        EXPECT_EQ(host.message, out.faultText);
        EXPECT_EQ(host.busyDepth, 0);
        EXPECT_FALSE(model.midi.transfer.active);
        EXPECT_TRUE(model.midi.doneText.empty()) << "no later end says it was sent";
        EXPECT_TRUE(snapshot() == before);

        out.plugBackIn();
        ASSERT_TRUE(run(send)) << send.name << " again, with the device back";
        out.finishPlaying();
        EXPECT_EQ(host.status, std::string(send.notSent).replace(std::string(send.notSent).find(" not"), 4, ""));
        EXPECT_EQ(host.statusColour, StatusColour::Done);
        EXPECT_EQ(host.busyDepth, 0);
        EXPECT_FALSE(model.midi.transfer.active);
    }
}

TEST_F(MidiFaults, ResetOfTheOutputInTheMiddleOfABankSaysNotSentAndTakesTheHourglassBack)
{
    ASSERT_TRUE(doSendBank(model));
    out.playPieces(3);
    ASSERT_EQ(host.busyDepth, 1);

    mnuResetOutput(model);

    EXPECT_EQ(host.status, "Bank A has not been sent");
    EXPECT_EQ(host.statusColour, StatusColour::Error);
    EXPECT_EQ(host.busyDepth, 0);
    EXPECT_FALSE(model.midi.transfer.active);
    EXPECT_EQ(out.state(), kPortClosed);
}

TEST_F(MidiFaults, AnErrorOfTheInputLeavesADumpGoingOutAlone)
{
    ASSERT_TRUE(doSendBank(model));
    in.fireError(5, "Input overflow");
    EXPECT_EQ(host.status, "Input overflow");
    EXPECT_TRUE(model.midi.transfer.active);
    EXPECT_EQ(host.busyDepth, 1);
    out.finishPlaying();
    EXPECT_EQ(host.status, "Bank A has been sent");
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(MidiFaults, ResetOfTheOutputWithNothingGoingOutSaysNothing)
{
    ASSERT_TRUE(doSendPatch(model));
    out.finishPlaying();
    mnuResetOutput(model);
    EXPECT_EQ(host.status, "");
    EXPECT_EQ(host.message, "");
}

TEST_F(MidiFaults, AnotherDeviceChosenAfterTheFirstIsGoneWorksWithoutARestart)
{
    out.openFails = true;
    host.expectMessage("MIDI Error");
    EXPECT_FALSE(doSendPatch(model));
    out.openFails = false;

    host.messages.clear();
    chooseMidiOutputDevice(model, 2);
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(doSendPatch(model));
    EXPECT_EQ(out.device(), 2);
    out.finishPlaying();
    EXPECT_EQ(host.status, "Test Patch has been sent");
}

TEST_F(MidiFaults, EveryRequestWithTheOutputGoneShowsTheBoxAndIsNotPending)
{
    out.noDevices = true;
    for (int index = 0; index < 8; ++index) {
        model.midi.doneText = "before";
        host.expectMessage("MIDI Error");
        const Snapshot before = snapshot();

        EXPECT_NO_THROW(doSendRequest(model, index));

        EXPECT_EQ(model.midi.requestPending, 0) << index;
        EXPECT_EQ(model.midi.doneText, "before");
        EXPECT_EQ(host.status, "");
        EXPECT_EQ(host.message, "");
        EXPECT_EQ(in.state(), kPortClosed) << "no input waits for an answer";
        EXPECT_FALSE(model.midi.transfer.active);
        EXPECT_TRUE(snapshot() == before);
    }
    EXPECT_TRUE(host.allShown());
}

TEST_F(MidiFaults, EveryRequestWithTheInputGoneShowsTheBoxAndIsNotPending)
{
    in.noDevices = true;
    for (int index = 0; index < 8; ++index) {
        host.expectMessage("MIDI Error");
        EXPECT_NO_THROW(doSendRequest(model, index));
        EXPECT_EQ(model.midi.requestPending, 0) << index;
        EXPECT_EQ(host.status, "");
        EXPECT_EQ(out.state(), kPortClosed) << "the output is closed again";
        EXPECT_FALSE(model.midi.transfer.active);
    }
    ASSERT_EQ(host.messages.size(), 8u);
    EXPECT_TRUE(host.messages[0].text.ends_with("[Error 68 No MIDI input devices]"));
}

TEST_F(MidiFaults, ARequestWorksAgainWhenTheDeviceIsBack)
{
    out.noDevices = true;
    host.expectMessage("MIDI Error");
    doSendRequest(model, 0);
    out.noDevices = false;

    doSendRequest(model, 0);

    EXPECT_EQ(model.midi.requestPending, 1);
    EXPECT_EQ(in.state(), kPortBusy);
    EXPECT_EQ(out.queued.size(), 1u);
}

TEST_F(MidiFaults, ListenWithTheInputGoneShowsTheBoxAndWorksWhenItIsBack)
{
    in.noDevices = true;
    host.expectMessage("MIDI Error");

    EXPECT_NO_THROW(mnuListen(model));

    EXPECT_EQ(host.status, "");
    EXPECT_EQ(in.state(), kPortClosed);
    EXPECT_FALSE(model.midi.transfer.active);

    in.plugBackIn();
    mnuListen(model);
    EXPECT_EQ(host.status, "Waiting for SysEx data");
    EXPECT_EQ(in.state(), kPortBusy);
}

TEST_F(MidiFaults, ListenToADeviceThatWillNotOpenShowsTheBox)
{
    in.openFails = true;
    model.settings.inputDevice = 5;
    host.expectMessage("MIDI Error");
    EXPECT_NO_THROW(mnuListen(model));
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_TRUE(host.messages[0].text.ends_with("[Error 104 MIDI input device 5 cannot be opened]"));
    EXPECT_EQ(host.status, "");
}

TEST_F(MidiFaults, UnpluggedWhileListeningShowsTheErrorAndChangesNothing)
{
    mnuListen(model);
    in.fireProgress(3000);
    const Snapshot before = snapshot();

    EXPECT_NO_THROW(in.unplug());

    EXPECT_EQ(host.status, in.faultText);
    EXPECT_EQ(host.statusColour, StatusColour::Error);
    EXPECT_TRUE(snapshot() == before);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MidiFaults, TestToneWithTheOutputGoneShowsTheBoxStopsTheTimerAndPlaysNoNote)
{
    out.noDevices = true;
    mnuTestTone(model);
    ASSERT_TRUE(timer.enabled());
    host.expectMessage("MIDI Error");

    EXPECT_NO_THROW(timer.tick());

    EXPECT_FALSE(timer.enabled());
    EXPECT_EQ(host.status, "Test Patch has not been sent");
    EXPECT_TRUE(out.shorts.empty());

    // Plugged back in, the tone starts from its first step again.
    out.noDevices = false;
    mnuTestTone(model);
    EXPECT_EQ(model.midi.toneStep, 1);
    timer.tick();
    EXPECT_EQ(out.queued.size(), 1u);
}

TEST_F(MidiFaults, TestToneUnpluggedAfterThePatchEndsWithTheErrorInTheStatusLine)
{
    mnuTestTone(model);
    timer.tick();
    out.finishPlaying();
    EXPECT_NO_THROW(out.unplug());
    EXPECT_EQ(host.status, out.faultText);
    EXPECT_EQ(host.statusColour, StatusColour::Error);
    EXPECT_NO_THROW(timer.tick());
    EXPECT_NO_THROW(timer.tick());
    EXPECT_TRUE(host.messages.empty());
}

// --- the progress of a transfer --------------------------------------------

TEST_F(MidiFaults, ABankGoingOutCountsItsBytesAndTheProgressEndsWithIt)
{
    ASSERT_TRUE(doSendBank(model));
    EXPECT_TRUE(model.midi.transfer.active);
    EXPECT_TRUE(model.midi.transfer.sending);
    EXPECT_EQ(model.midi.transfer.expected, 84270u);
    EXPECT_EQ(model.midi.transfer.done, 0u);

    out.playPieces(2);
    EXPECT_EQ(model.midi.transfer.done, 8u + 1000u + 1000u);

    out.finishPlaying();
    EXPECT_FALSE(model.midi.transfer.active);
    EXPECT_EQ(host.status, "Bank A has been sent") << "the status texts stay as they are";
}

TEST_F(MidiFaults, ListenCountsTheBytesSoFarAndEndsWithTheDump)
{
    mnuListen(model);
    EXPECT_TRUE(model.midi.transfer.active);
    EXPECT_FALSE(model.midi.transfer.sending);
    EXPECT_EQ(model.midi.transfer.expected, 0u);

    in.fireProgress(2000);
    EXPECT_EQ(model.midi.transfer.done, 2000u);

    // A short message is ignored and Listen goes on, counting afresh.
    ASSERT_TRUE(in.deliver(strayMessage(20)));
    EXPECT_TRUE(model.midi.transfer.active);
    EXPECT_EQ(model.midi.transfer.done, 0u);

    ASSERT_TRUE(in.deliver(patchMessage(namedItemImage(model, kPatch, "Heard"))));
    EXPECT_FALSE(model.midi.transfer.active);
}

TEST_F(MidiFaults, ARequestExpectsTheLengthOfItsAnswer)
{
    const std::size_t expected[] = {666, 84270, 84270, 245, 3814, 3814, 300, 5860};
    for (int index = 0; index < 8; ++index) {
        doSendRequest(model, index);
        EXPECT_TRUE(model.midi.transfer.active) << index;
        EXPECT_EQ(model.midi.transfer.expected, expected[index]) << index;
        out.finishPlaying();
        EXPECT_TRUE(model.midi.transfer.active) << "the answer is still awaited";
    }
    resetGlobalMIDIInput(model);
    EXPECT_FALSE(model.midi.transfer.active);
}

TEST_F(MidiFaults, TheTwoMessagesOfGlobalAndMidiBothGoOutOnTheCurrentChannel)
{
    SysExMessage both = globalOrMidiMessage(0);
    const SysExMessage midi = globalOrMidiMessage(1);
    both.insert(both.end(), midi.begin(), midi.end());
    ASSERT_TRUE(miscReceive(model, both));
    model.misc.mode = 3;
    model.settings.outputChannel = 5;
    host.expectMessage("Send Global and MIDI (loaded from file)", Answer::Yes);

    ASSERT_TRUE(miscSend(model));

    const std::vector<std::uint8_t> sent = queuedBytes();
    ASSERT_EQ(sent.size(), 966u);
    EXPECT_EQ(sent[2], 0x34);
    EXPECT_EQ(sent[483], 0xF0);
    EXPECT_EQ(sent[485], 0x34);
}

}  // namespace
}  // namespace quillon
