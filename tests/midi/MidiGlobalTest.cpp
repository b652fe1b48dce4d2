#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "shell/StartUp.h"

#include "midi/MidiFlowTest.h"
#include "midi/SendFlows.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using Log = std::vector<std::string>;

struct MidiGlobal : MidiFlowTest {};

TEST_F(MidiGlobal, InitChoosesTheDevicesAndKeepsOutSensingAndClockWithoutOpeningAPort)
{
    model.settings.outputDevice = 3;
    model.settings.inputDevice = 5;
    EXPECT_TRUE(doInitMIDI(model));
    EXPECT_EQ(journal, (Log{"out device 3", "in device 5", "in filter 254 on", "in filter 248 on"}));
    EXPECT_EQ(out.state(), kPortClosed);
    EXPECT_EQ(in.state(), kPortClosed);
    EXPECT_TRUE(in.filter(254));
    EXPECT_TRUE(in.filter(248));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MidiGlobal, WithNoMidiDevicesTheProgramDoesNotStartAfterTheMidiErrorBox)
{
    out.noDevices = true;
    out.noDevicesCode = 68;
    out.noDevicesText = "Device unavailable";
    host.expectMessage("MIDI Error", Answer::Ok,
                       "MIDI does not appear to be available or correctly set up on \n"
                       "your computer. Please check Start/Settings/Control Panel.\n"
                       "If MIDI is installed but does not appear in Control Panel \n"
                       "it may be best to shut down and restart your computer\n"
                       "\n"
                       "[Error 68 Device unavailable]");
    EXPECT_FALSE(doInitMIDI(model));
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
    EXPECT_TRUE(host.messages[0].help);
    EXPECT_EQ(host.messages[0].helpContext, 310);
    // Nothing after the failing step is done.
    EXPECT_EQ(journal, (Log{"out device 0"}));
}

TEST_F(MidiGlobal, AMissingInputDeviceAlsoEndsStartUp)
{
    in.noDevices = true;
    in.noDevicesCode = 2;
    in.noDevicesText = "No input";
    host.expectMessage("MIDI Error");
    EXPECT_FALSE(doInitMIDI(model));
    EXPECT_EQ(midiErrorText(2, "No input").substr(midiErrorText(2, "No input").rfind('\n') + 1), "[Error 2 No input]");
    EXPECT_FALSE(in.filter(254));
}

TEST_F(MidiGlobal, OutOpenClosesAnOpenPortBeforeChoosingTheDevice)
{
    model.settings.outputDevice = 4;
    MIDIOutOpen(model);
    EXPECT_EQ(out.log, (Log{"device 4", "open"}));
    out.clearLog();
    MIDIOutOpen(model);
    EXPECT_EQ(out.log, (Log{"close", "device 4", "open"}));
    EXPECT_EQ(out.state(), kPortOpen);
}

TEST_F(MidiGlobal, TheFiltersAreSetAgainAtEveryInOpenAfterTheOpen)
{
    model.settings.inputDevice = 1;
    MIDIInOpen(model);
    EXPECT_EQ(in.log, (Log{"device 1", "open", "filter 254 on", "filter 248 on"}));
    in.clearLog();
    MIDIInOpen(model);
    EXPECT_EQ(in.log, (Log{"close", "filter 254 off", "filter 248 off", "device 1", "open", "filter 254 on",
                           "filter 248 on"}));
    EXPECT_TRUE(in.filter(254));
    EXPECT_TRUE(in.filter(248));
}

TEST_F(MidiGlobal, ResetInputOnAClosedPortDoesNothingButSetTheBufferSize)
{
    resetGlobalMIDIInput(model);
    EXPECT_EQ(in.log, (Log{"buffer 200000"}));
    EXPECT_EQ(in.bufferSize(), 200000);
    EXPECT_TRUE(out.log.empty());
}

TEST_F(MidiGlobal, ResetInputStopsAListeningPortBeforeClosingIt)
{
    MIDIInOpen(model);
    in.start();
    in.clearLog();
    resetGlobalMIDIInput(model);
    EXPECT_EQ(in.log, (Log{"buffer 200000", "reset", "close"}));
    EXPECT_EQ(in.state(), kPortClosed);

    MIDIInOpen(model);
    in.clearLog();
    resetGlobalMIDIInput(model);
    EXPECT_EQ(in.log, (Log{"buffer 200000", "close"}));
}

TEST_F(MidiGlobal, ResetOutputStopsAPlayingPortAndClosesAnIdleOne)
{
    resetGlobalMIDIOutput(model);
    EXPECT_TRUE(out.log.empty());

    MIDIOutOpen(model);
    out.clearLog();
    resetGlobalMIDIOutput(model);
    EXPECT_EQ(out.log, (Log{"close"}));

    MIDIOutOpen(model);
    out.setMessageText({0xF0, 0xF7});
    out.queue();
    out.start();
    ASSERT_EQ(out.state(), kPortBusy);
    out.clearLog();
    resetGlobalMIDIOutput(model);
    EXPECT_EQ(out.log, (Log{"reset", "close"}));
    EXPECT_EQ(out.state(), kPortClosed);
}

TEST_F(MidiGlobal, ResetAllResetsTheInputFirst)
{
    MIDIOutOpen(model);
    MIDIInOpen(model);
    journal.clear();
    resetGlobalMIDIAll(model);
    EXPECT_EQ(journal, (Log{"in buffer 200000", "in close", "out close"}));
}

TEST_F(MidiGlobal, ShortMessageStatusIsTheSumOfStatusAndChannelLessOne)
{
    MIDIOutOpen(model);
    sendMIDIMessage(model, 144, 3, 60, 100);
    sendMIDIMessage(model, 1, 128, 60, 40);
    EXPECT_EQ(out.log, (Log{"device 0", "open", "sendShort 92 3C 64", "sendShort 80 3C 28"}));
}

TEST_F(MidiGlobal, ResetMenusClearTheStatusLinesFirst)
{
    host.setStatus("Old", StatusColour::Error);
    host.setMessage("old");
    MIDIInOpen(model);
    MIDIOutOpen(model);
    mnuResetInput(model);
    EXPECT_EQ(host.status, "");
    EXPECT_EQ(host.message, "");
    EXPECT_EQ(in.state(), kPortClosed);
    EXPECT_EQ(out.state(), kPortOpen);

    host.setStatus("Old", StatusColour::Error);
    mnuResetOutput(model);
    EXPECT_EQ(host.status, "");
    EXPECT_EQ(out.state(), kPortClosed);
}

TEST_F(MidiGlobal, DoneEventResetsTheOutputAndShowsTheDoneTextInGreen)
{
    MIDIOutOpen(model);
    out.setMessageText({0xF0, 0xF7});
    out.queue();
    out.start();
    model.midi.doneText = "Bank A has been sent";
    holdHourglassUntilDone(model);
    out.clearLog();
    out.finishPlaying();
    EXPECT_EQ(out.log, (Log{"reset"}));
    // The port stays open until the next send closes it.
    EXPECT_EQ(out.state(), kPortOpen);
    EXPECT_EQ(host.status, "Bank A has been sent");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(MidiGlobal, ErrorCodesZeroAndEightAreIgnored)
{
    host.setStatus("Sending", StatusColour::Busy);
    out.fireError(0, "zero");
    in.fireError(8, "eight");
    EXPECT_EQ(host.status, "Sending");
    EXPECT_EQ(host.statusColour, StatusColour::Busy);
}

TEST_F(MidiGlobal, OtherErrorsOfEitherPortShowTheirTextInRed)
{
    out.fireError(7, "Output buffer full");
    EXPECT_EQ(host.status, "Output buffer full");
    EXPECT_EQ(host.statusColour, StatusColour::Error);
    in.fireError(1, "Input overflow");
    EXPECT_EQ(host.status, "Input overflow");
    EXPECT_EQ(host.statusColour, StatusColour::Error);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MidiGlobal, ChannelByteIs47PlusTheChannel)
{
    model.settings.outputChannel = 1;
    EXPECT_EQ(midiChannel(model), 1);
    EXPECT_EQ(channelByte(model), 0x30);
    model.settings.outputChannel = 16;
    EXPECT_EQ(channelByte(model), 0x3F);
}

TEST_F(MidiGlobal, TwoSendsInARowTheSecondClosesThePortAndTheFirstIsLost)
{
    newItems("First");
    doSendPatch(model);
    ASSERT_EQ(out.state(), kPortBusy);
    out.clearLog();
    doSendPatch(model);
    ASSERT_FALSE(out.log.empty());
    EXPECT_EQ(out.log.front(), "close");
    // Only the second message reaches the instrument, and nobody is told.
    out.finishPlaying();
    EXPECT_EQ(out.wire.size(), 666u);
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(host.status, "First has been sent");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
}

TEST(MidiWithoutPorts, EveryRoutineDoesNothing)
{
    TestModel t;
    AppModel& model = t.model;
    EXPECT_TRUE(doInitMIDI(model));
    MIDIOutOpen(model);
    MIDIInOpen(model);
    resetGlobalMIDIAll(model);
    sendMIDIMessage(model, 144, 1, 60, 100);
    onOutputDone(model);
    doSendPatch(model);
    doSendActive(model);
    EXPECT_TRUE(t.host.messages.empty());
    EXPECT_EQ(t.host.busyDepth, 0);
}

TEST_F(MidiGlobal, ASendThatCutsAnotherShortKeepsOneHourglassWhichTheLastDoneTakesBack)
{
    holdHourglassUntilDone(model);
    holdHourglassUntilDone(model);
    EXPECT_EQ(host.busyDepth, 1);
    MIDIOutOpen(model);
    out.setMessageText({0xF0, 0xF7});
    out.queue();
    out.start();
    out.finishPlaying();
    EXPECT_EQ(host.busyDepth, 0);
    // A short send that follows has no hourglass to take back.
    out.setMessageText({0xF0, 0xF7});
    out.queue();
    out.start();
    out.finishPlaying();
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(MidiGlobal, ClosingTheProgramEndsAListenLeftOpen)
{
    mnuListen(model);
    ASSERT_NE(in.state(), kPortClosed);
    shutDown(model);
    EXPECT_EQ(in.state(), kPortClosed);
    EXPECT_EQ(out.state(), kPortClosed);
}

}  // namespace
}  // namespace quillon
