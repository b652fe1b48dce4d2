#include "midi/TestTone.h"

#include "midi/MidiFlowTest.h"
#include "midi/MidiGlobal.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using Log = std::vector<std::string>;

struct TestTone : MidiFlowTest {
    TestTone()
    {
        newItems("Tone Patch");
        model.settings.toneLength = 5;
        model.settings.toneVelocity = 100;
        model.settings.tonePitch = 60;
        model.settings.outputChannel = 1;
    }
};

TEST_F(TestTone, OutsidePatchModeItSaysPatchModeOnly)
{
    for (const int mode : {2, 3, 4, 5}) {
        model.mode = mode;
        host.expectMessage("Send test tone", Answer::Ok, "Patch mode only");
        mnuTestTone(model);
    }
    EXPECT_FALSE(timer.enabled());
    EXPECT_TRUE(out.log.empty());
    EXPECT_EQ(model.midi.toneStep, 0);
}

TEST_F(TestTone, TheFourStepsSendThePatchWaitASecondAndPlayOneNote)
{
    host.setStatus("Old", StatusColour::Error);
    mnuTestTone(model);
    // Step 1: the timer starts; nothing is sent yet.
    EXPECT_EQ(model.midi.toneStep, 1);
    EXPECT_EQ(host.status, "");
    EXPECT_TRUE(timer.enabled());
    EXPECT_EQ(timer.interval(), 100);
    EXPECT_TRUE(out.log.empty());

    // Step 2: the patch, and a second for the instrument to take it.
    MIDIInOpen(model);
    in.start();
    journal.clear();
    ASSERT_TRUE(timer.tick());
    EXPECT_EQ(model.midi.toneStep, 2);
    EXPECT_EQ(journal, (Log{"in buffer 200000", "in reset", "in close", "out device 0", "out open",
                            "out queue:666 bytes", "out start"}));
    EXPECT_EQ(host.status, "Sending Tone Patch");
    EXPECT_EQ(timer.interval(), 1000);
    EXPECT_TRUE(timer.enabled());
    out.finishPlaying();
    EXPECT_EQ(host.status, "Tone Patch has been sent");

    // Step 3: note on, for the tone length.
    out.clearLog();
    ASSERT_TRUE(timer.tick());
    EXPECT_EQ(host.status, "Sending tone");
    EXPECT_EQ(host.statusColour, StatusColour::Done);
    EXPECT_EQ(model.midi.doneText, "Tone has been sent");
    EXPECT_EQ(timer.interval(), 500);
    EXPECT_EQ(out.log, (Log{"sendShort 90 3C 64"}));

    // Step 4: note off with velocity 40, and the timer stops.
    out.clearLog();
    ASSERT_TRUE(timer.tick());
    EXPECT_EQ(host.status, "Tone has been sent");
    EXPECT_EQ(host.message, "6 bytes on MIDI channel 1");
    EXPECT_FALSE(timer.enabled());
    EXPECT_EQ(out.log, (Log{"sendShort 80 3C 28"}));
    EXPECT_EQ(model.midi.toneStep, 4);
    EXPECT_EQ(out.shorts.size(), 2u);
    EXPECT_EQ(timer.intervals, (std::vector<int>{100, 1000, 500}));
}

TEST_F(TestTone, TheNoteGoesToTheGlobalChannelThroughThePortThePatchLeftOpen)
{
    model.settings.outputChannel = 10;
    model.settings.tonePitch = 48;
    model.settings.toneVelocity = 1;
    mnuTestTone(model);
    timer.tick();
    timer.tick();
    timer.tick();
    EXPECT_EQ(host.message, "6 bytes on MIDI channel 10");
    ASSERT_EQ(out.shorts.size(), 2u);
    EXPECT_EQ(out.shorts[0], (std::vector<int>{0x99, 48, 1}));
    EXPECT_EQ(out.shorts[1], (std::vector<int>{0x89, 48, 40}));
    EXPECT_NE(out.state(), kPortClosed);
}

TEST_F(TestTone, TheCounterWrapsFromFiveToOneSoTheNextUseStartsAfresh)
{
    mnuTestTone(model);
    while (timer.tick()) {
    }
    ASSERT_EQ(model.midi.toneStep, 4);
    out.clearLog();
    mnuTestTone(model);
    EXPECT_EQ(model.midi.toneStep, 1);
    EXPECT_TRUE(timer.enabled());
    EXPECT_EQ(timer.interval(), 100);
    EXPECT_TRUE(out.log.empty());
}

TEST_F(TestTone, NoPatchLoadedShowsTheBoxAndStopsTheTimer)
{
    mnuTestTone(model);
    ASSERT_TRUE(timer.enabled());
    model.flags.loaded[kPatch] = false;
    host.expectMessage("Test tone", Answer::Ok, "No patch loaded");
    timer.tick();
    EXPECT_FALSE(timer.enabled());
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_TRUE(host.messages[0].help);
    EXPECT_EQ(host.messages[0].helpContext, 115);
    EXPECT_TRUE(out.log.empty());
}

TEST_F(TestTone, SendMenuFollowsThePatchLoadedFlag)
{
    // mnuTestTone is enabled and disabled with mnuSendActive.
    EXPECT_TRUE(model.sendMenuEnabled);
}

}  // namespace
}  // namespace quillon
