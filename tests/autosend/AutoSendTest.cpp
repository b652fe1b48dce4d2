#include "autosend/AutoSend.h"

#include "banks/BankView.h"

#include "support/FakeMidiPorts.h"
#include "support/ManualTimer.h"
#include "support/TestModel.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon {
namespace {

constexpr std::size_t kPatternByte = 484;
constexpr std::size_t kArpByte = 485;

// A bank of 128 patches with names "Show NNN", each with a pattern of its
// own in byte 484 and the arpeggiator's byte 485 set with Auto Run (0x20)
// on even places and without it on odd ones.
void fillBank(AppModel& model, int bank)
{
    for (int p = 0; p < 128; ++p) {
        ByteImage patch(576, 0);
        const std::string name = "Show " + std::to_string(1000 + p).substr(1);
        for (std::size_t c = 0; c < 16; ++c)
            patch[c] = static_cast<std::uint8_t>(c < name.size() ? name[c] : ' ');
        patch[kPatternByte - 1] = static_cast<std::uint8_t>(p % 20);
        patch[kArpByte - 1] = static_cast<std::uint8_t>(p % 2 == 0 ? 0x24 : 0x04);
        patch[100] = static_cast<std::uint8_t>(p);
        model.banks.writeBankPatch(bank, p, patch);
    }
    model.flags.loaded[bank] = true;
}

// What the program hands to the output, in order, as it hands it over:
// "patch N" (the place, read from the image's marker byte), "on K V" and
// "off K V". A send that closes the port cuts the one before it short, but
// the one before has gone out by then.
class WireOutput : public FakeMidiOutput {
public:
    std::vector<std::string> wire;
    std::vector<ByteImage> patchesSent;
    std::vector<SysExMessage> messages;

    void setMessageText(std::vector<std::uint8_t> bytes) override
    {
        text_ = bytes;
        FakeMidiOutput::setMessageText(std::move(bytes));
    }
    void queue() override
    {
        FakeMidiOutput::queue();
        if (state() == kPortClosed)
            return;
        messages.push_back(text_);
        SysExImage packed(text_.begin() + 6, text_.end());
        LoadReport report;
        const ByteImage image = MIDItoDATA(kPatch, packed, report);
        patchesSent.push_back(image);
        wire.push_back("patch " + std::to_string(image[100]));
    }
    void sendShort() override
    {
        FakeMidiOutput::sendShort();
        if (state() == kPortClosed)
            return;
        const bool on = (messageType & 0xF0) == 0x90;
        wire.push_back(std::string(on ? "on " : "off ") + std::to_string(data1) + " " + std::to_string(data2));
        channels.push_back((messageType & 0x0F) + 1);
    }
    std::vector<int> channels;

private:
    std::vector<std::uint8_t> text_;
};

struct AutoSendShow : ::testing::Test {
    WireOutput out;
    FakeMidiInput in;
    ManualTimer timerMain;
    ManualTimer autoTimer;
    ManualTimer miniTimer;
    TestModel t;
    AppModel& model = t.model;
    AutoSend show{model, kPatchBankA, autoTimer, miniTimer};
    std::vector<std::string>& wire = out.wire;
    std::vector<ByteImage>& patchesSent = out.patchesSent;
    int closed = 0;

    AutoSendShow()
    {
        model.midi.attach(&out, &in, &timerMain);
        fillBank(model, kPatchBankA);
        show.seedSource = [] { return 5u; };
        show.onClose = [this] { ++closed; };
        model.settings.outputChannel = 1;
        setShowInterval(model, 3);
        setShowArpMode(model, kShowArpOn);
        setShowPatternSelect(model, kPatternAsPatch);
        setShowChordSequence(model, 1);
    }
    ~AutoSendShow() override { model.midi.attach(nullptr, nullptr, nullptr); }

    void open(const std::vector<int>& patches)
    {
        selectBankPatches(model, kPatchBankA, patches);
        show.doSetup();
        take();
    }

    // The output plays out what it was given.
    void take()
    {
        if (!out.queued.empty())
            out.finishPlaying();
    }

    bool tick(ManualTimer& timer)
    {
        const bool ticked = timer.tick();
        take();
        return ticked;
    }

    // One interval of the show: AutoTimer, then the chord's second.
    void interval()
    {
        ASSERT_TRUE(tick(autoTimer));
        if (miniTimer.enabled()) {
            ASSERT_TRUE(tick(miniTimer));
        }
    }

    void act(void (AutoSend::*command)())
    {
        (show.*command)();
        take();
    }
};

using Wire = std::vector<std::string>;

TEST_F(AutoSendShow, OnePatchSelectedIsSentAfterOneIntervalAndTheShowFinishes)
{
    setShowArpMode(model, kShowArpOff);
    open({9});
    act(&AutoSend::start);
    EXPECT_EQ(autoTimer.interval(), 3000);
    EXPECT_TRUE(autoTimer.enabled());
    // Nothing goes at Start: the patch waits for the first tick.
    EXPECT_TRUE(wire.empty());
    EXPECT_EQ(show.sendIndex(), 0);
    ASSERT_TRUE(tick(autoTimer));
    EXPECT_EQ(wire, (Wire{"patch 9"}));
    EXPECT_EQ(show.sendIndex(), 1);
    EXPECT_EQ(show.state(), ShowState::Running);
    ASSERT_TRUE(tick(autoTimer));
    EXPECT_FALSE(autoTimer.enabled());
    EXPECT_EQ(show.sendIndex(), 1);
    EXPECT_EQ(show.state(), ShowState::Finished);
    EXPECT_EQ(wire, (Wire{"patch 9"}));
}

TEST_F(AutoSendShow, BeyondTwentyFourPatchesTheChordsStartAgainAtStepOneFromTheSameTable)
{
    // Major 4ths: its running sum would give other chords if it were worked
    // out again for patch 25; the table holds the first 24 and repeats them.
    setShowChordSequence(model, 2);
    std::vector<int> patches;
    for (int p = 0; p < 26; ++p)
        patches.push_back(p);
    open(patches);
    act(&AutoSend::start);
    std::vector<std::array<int, 3>> chords;
    for (int i = 0; i < 26; ++i) {
        interval();
        chords.push_back(show.chordNotes());
    }
    EXPECT_EQ(chords[0], (std::array<int, 3>{60, 64, 67}));
    EXPECT_EQ(chords[1], (std::array<int, 3>{65, 69, 72}));
    EXPECT_EQ(chords[23], (std::array<int, 3>{55, 59, 62}));
    EXPECT_EQ(chords[24], chords[0]);
    EXPECT_EQ(chords[25], chords[1]);
    // Changing the sequence does not build the table again either.
    const auto before = show.chordTable().chord(6, 2);
    show.chooseChordSequence(6);
    EXPECT_EQ(show.chordTable().chord(6, 2), before);
}

TEST_F(AutoSendShow, MarkBeforeTheFirstSendDoesNothing)
{
    open({1, 2});
    act(&AutoSend::mark);
    EXPECT_EQ(show.markCount(), 0);
    EXPECT_FALSE(show.reselectEnabled());
    act(&AutoSend::start);
    act(&AutoSend::mark);
    EXPECT_EQ(show.markCount(), 0);
    EXPECT_FALSE(show.markedAt(1));
    EXPECT_FALSE(show.reselectEnabled());
}

TEST_F(AutoSendShow, MarkingTheSameElementTwiceCountsOnce)
{
    open({1, 2, 3});
    act(&AutoSend::start);
    interval();
    interval();
    act(&AutoSend::mark);
    act(&AutoSend::mark);
    EXPECT_EQ(show.markCount(), 1);
    EXPECT_TRUE(show.markedAt(2));
    EXPECT_FALSE(show.markedAt(1));
    EXPECT_TRUE(show.currentPatchMarked());
    EXPECT_TRUE(show.reselectEnabled());
    interval();
    act(&AutoSend::mark);
    EXPECT_EQ(show.markCount(), 2);
}

TEST_F(AutoSendShow, PauseOnAFinishedShowResendsTheLastPatch)
{
    open({4, 7});
    act(&AutoSend::start);
    interval();
    interval();
    ASSERT_TRUE(tick(autoTimer));
    ASSERT_EQ(show.state(), ShowState::Finished);
    wire.clear();
    act(&AutoSend::pause);
    // The last patch with its arpeggiator, then the chord that sounded is
    // stopped: the patch again untouched and the notes off.
    EXPECT_EQ(wire, (Wire{"patch 7", "patch 7", "off 57 40", "off 61 40", "off 64 40"}));
    EXPECT_TRUE(autoTimer.enabled());
    EXPECT_FALSE(show.pausedVisible());
    EXPECT_EQ(show.sendIndex(), 2);
    // Its chord follows a second later, and the next tick finishes again.
    ASSERT_TRUE(tick(miniTimer));
    ASSERT_TRUE(tick(autoTimer));
    EXPECT_EQ(show.state(), ShowState::Finished);
}

TEST_F(AutoSendShow, PatternRowTwentyLeavesThePatchsOwnPatternInByte484)
{
    setShowPatternSelect(model, kPatternAsPatch);
    open({13});
    act(&AutoSend::start);
    interval();
    ASSERT_EQ(patchesSent.size(), 1u);
    EXPECT_EQ(patchesSent[0][kPatternByte - 1], 13);
    EXPECT_EQ(patchesSent[0][kArpByte - 1], 0x04 | 0x21);
}

TEST_F(AutoSendShow, APatternRowBelowTwentyGoesIntoByte484)
{
    setShowPatternSelect(model, 7);
    open({13});
    act(&AutoSend::start);
    interval();
    ASSERT_EQ(patchesSent.size(), 1u);
    EXPECT_EQ(patchesSent[0][kPatternByte - 1], 7);
    EXPECT_EQ(patchesSent[0][kArpByte - 1], 0x25);
}

TEST_F(AutoSendShow, ArpeggiatorOffClearsAutoRunAndPlaysNoChord)
{
    setShowArpMode(model, kShowArpOff);
    setShowPatternSelect(model, 3);
    open({2});
    act(&AutoSend::start);
    ASSERT_TRUE(tick(autoTimer));
    EXPECT_FALSE(miniTimer.enabled());
    ASSERT_EQ(patchesSent.size(), 1u);
    EXPECT_EQ(patchesSent[0][kArpByte - 1], 0x04);
    EXPECT_EQ(patchesSent[0][kPatternByte - 1], 2);
    act(&AutoSend::done);
    EXPECT_EQ(wire, (Wire{"patch 2"}));
}

TEST_F(AutoSendShow, ArpeggiatorAsPatchSendsThePatchAsItIs)
{
    setShowArpMode(model, kShowArpAsPatch);
    setShowPatternSelect(model, 3);
    open({2, 3});
    act(&AutoSend::start);
    ASSERT_TRUE(tick(autoTimer));
    ASSERT_TRUE(tick(autoTimer));
    EXPECT_FALSE(miniTimer.enabled());
    ASSERT_EQ(patchesSent.size(), 2u);
    EXPECT_EQ(patchesSent[0], model.banks.readBankPatch(kPatchBankA, 2));
    EXPECT_EQ(patchesSent[1], model.banks.readBankPatch(kPatchBankA, 3));
}

TEST_F(AutoSendShow, EachPatchIsACurrentPatchDumpOnTheOutputChannel)
{
    model.settings.outputChannel = 16;
    open({5});
    act(&AutoSend::start);
    ASSERT_TRUE(tick(autoTimer));
    ASSERT_EQ(out.messages.size(), 1u);
    const auto& message = out.messages[0];
    ASSERT_EQ(message.size(), 666u);
    EXPECT_EQ(std::vector<std::uint8_t>(message.begin(), message.begin() + 6),
              (std::vector<std::uint8_t>{0xF0, 0x42, 0x3F, 0x46, 0x40, 0x01}));
    EXPECT_EQ(message.back(), 0xF7);
    ByteImage expected = model.banks.readBankPatch(kPatchBankA, 5);
    expected[kArpByte - 1] |= 0x21;
    EXPECT_EQ(message, currentPatchDump(16, DATAtoMIDI(kPatch, expected)));
    // The bank itself is not touched.
    EXPECT_EQ(model.banks.readBankPatch(kPatchBankA, 5)[kArpByte - 1], 0x04);
    // The chord goes to the same channel.
    ASSERT_TRUE(tick(miniTimer));
    EXPECT_EQ(out.channels, (std::vector<int>{16, 16, 16}));
}

TEST_F(AutoSendShow, TheChordFollowsEachPatchASecondLaterWithoutReleasingTheOneBefore)
{
    open({0, 1});
    act(&AutoSend::start);
    ASSERT_TRUE(tick(autoTimer));
    EXPECT_TRUE(miniTimer.enabled());
    EXPECT_EQ(miniTimer.interval(), 1000);
    EXPECT_EQ(wire, (Wire{"patch 0"}));
    ASSERT_TRUE(tick(miniTimer));
    EXPECT_FALSE(miniTimer.enabled());
    ASSERT_TRUE(tick(autoTimer));
    ASSERT_TRUE(tick(miniTimer));
    // Chromatic: steps 1 and 2.
    EXPECT_EQ(wire, (Wire{"patch 0", "on 56 100", "on 60 100", "on 63 100", "patch 1", "on 57 100", "on 61 100",
                          "on 64 100"}));
    EXPECT_EQ(show.chordNotes(), (std::array<int, 3>{57, 61, 64}));
}

TEST_F(AutoSendShow, TheLastTickStopsTheChordWithThePatchAgainAndNotesOff)
{
    open({3});
    act(&AutoSend::start);
    interval();
    wire.clear();
    ASSERT_TRUE(tick(autoTimer));
    // The quiet send leaves byte 485 as the bank has it.
    EXPECT_EQ(wire, (Wire{"patch 3", "off 56 40", "off 60 40", "off 63 40"}));
    EXPECT_EQ(patchesSent.back(), model.banks.readBankPatch(kPatchBankA, 3));
}

TEST_F(AutoSendShow, PauseWhileRunningStopsTheTimerAndTheChord)
{
    open({0, 1, 2});
    act(&AutoSend::start);
    EXPECT_TRUE(show.pauseEnabled());
    interval();
    wire.clear();
    act(&AutoSend::pause);
    EXPECT_FALSE(autoTimer.enabled());
    EXPECT_TRUE(show.pausedVisible());
    EXPECT_EQ(show.state(), ShowState::Paused);
    EXPECT_EQ(wire, (Wire{"patch 0", "off 56 40", "off 60 40", "off 63 40"}));
    // Pause again goes on at the current patch.
    wire.clear();
    act(&AutoSend::pause);
    EXPECT_TRUE(autoTimer.enabled());
    EXPECT_FALSE(show.pausedVisible());
    EXPECT_EQ(wire, (Wire{"patch 0", "patch 0", "off 56 40", "off 60 40", "off 63 40"}));
    ASSERT_TRUE(tick(miniTimer));
    interval();
    EXPECT_EQ(show.sendIndex(), 2);
}

TEST_F(AutoSendShow, DoneStopsTheShowTheChordAndClosesTheForm)
{
    open({0, 1, 2});
    act(&AutoSend::start);
    EXPECT_TRUE(show.autoSendActive());
    interval();
    interval();
    wire.clear();
    act(&AutoSend::done);
    EXPECT_FALSE(autoTimer.enabled());
    EXPECT_FALSE(show.autoSendActive());
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(wire, (Wire{"patch 1", "off 57 40", "off 61 40", "off 64 40"}));
}

TEST_F(AutoSendShow, DoneBeforeAnyChordSendsNothing)
{
    open({0, 1});
    act(&AutoSend::done);
    EXPECT_TRUE(wire.empty());
    EXPECT_EQ(closed, 1);
}

TEST_F(AutoSendShow, StartFromAnyStateBeginsAtTheFirstElementAgain)
{
    open({10, 11, 12});
    act(&AutoSend::start);
    interval();
    interval();
    act(&AutoSend::start);
    EXPECT_EQ(show.sendIndex(), 0);
    EXPECT_FALSE(show.pausedVisible());
    wire.clear();
    ASSERT_TRUE(tick(autoTimer));
    EXPECT_EQ(wire, (Wire{"patch 10"}));
}

TEST_F(AutoSendShow, SetupTakesTheSelectionAndTheSettings)
{
    setShowInterval(model, 1);
    setShowChordSequence(model, 3);
    open({20, 5, 77});
    EXPECT_EQ(show.sendCount(), 3);
    EXPECT_EQ(show.sendListAt(1), 5);
    EXPECT_EQ(show.sendListAt(2), 20);
    EXPECT_EQ(show.sendListAt(3), 77);
    EXPECT_EQ(showInterval(model), 3);
    EXPECT_EQ(autoTimer.interval(), 3000);
    EXPECT_EQ(show.sendIndex(), 0);
    EXPECT_EQ(show.markCount(), 0);
    EXPECT_FALSE(show.reselectEnabled());
    EXPECT_FALSE(show.pausedVisible());
    EXPECT_EQ(show.state(), ShowState::Stopped);
    EXPECT_EQ(show.startPatchText(), "A005 Show 005");
    EXPECT_EQ(show.endPatchText(), "A077 Show 077");
    EXPECT_EQ(show.currentPatchText(), "");
}

TEST_F(AutoSendShow, TheIntervalChosenDuringTheShowTakesEffectAtOnce)
{
    open({0});
    act(&AutoSend::start);
    show.chooseInterval(27);
    EXPECT_EQ(showInterval(model), 30);
    EXPECT_EQ(autoTimer.interval(), 30000);
    EXPECT_TRUE(autoTimer.enabled());
    show.chooseArpMode(kShowArpAsPatch);
    EXPECT_FALSE(show.soundShowVisible());
    EXPECT_EQ(showArpMode(model), kShowArpAsPatch);
    show.chooseArpMode(kShowArpOn);
    EXPECT_TRUE(show.soundShowVisible());
    show.choosePattern(4);
    EXPECT_EQ(showPatternSelect(model), 4);
}

TEST_F(AutoSendShow, TheListsOfTheForm)
{
    const auto intervals = intervalRows();
    ASSERT_EQ(intervals.size(), 28u);
    EXPECT_EQ(intervals.front(), "3");
    EXPECT_EQ(intervals.back(), "30");
    EXPECT_EQ(chordSequenceRows(),
              (std::vector<std::string>{"Fixed", "Chromatic", "Major 4ths", "Major 5ths", "Major-minor 4ths",
                                        "Major-minor relative", "Major-minor random"}));
    auto rows = patternSelectRows(model);
    ASSERT_EQ(rows.size(), 21u);
    EXPECT_EQ(rows[0], "UP");
    EXPECT_EQ(rows[4], "RANDOM");
    EXPECT_EQ(rows[5], "U1-1 User pattern");
    EXPECT_EQ(rows[19], "U3-5 User pattern");
    EXPECT_EQ(rows[20], "As patch");
    // With the ArpBank loaded the user patterns show their names.
    ByteImage pattern(256, ' ');
    const std::string name = "Rolling Eights";
    std::copy(name.begin(), name.end(), pattern.begin());
    model.banks.writeBankPattern(10, pattern);
    model.flags.loaded[kArpBank] = true;
    rows = patternSelectRows(model);
    EXPECT_EQ(rows[10], "U2-1 Rolling Eights  ");
}

TEST_F(AutoSendShow, ReselectMakesTheMarkedPatchesTheBanksSelectionAndTheShowRunsOverThem)
{
    open({4, 8, 15, 16});
    act(&AutoSend::start);
    interval();
    interval();
    act(&AutoSend::mark);
    interval();
    interval();
    act(&AutoSend::mark);
    t.host.expectMessage("Reselect Patches for Autosend", Answer::Yes,
                         "Replace current bank selection with marked patches only?");
    act(&AutoSend::reselect);
    EXPECT_TRUE(t.host.allShown());
    const BankSelection& selection = model.banks.selection(kPatchBankA);
    EXPECT_EQ(selection.selectionCount, 2);
    EXPECT_EQ(selection.selectionSequence[1], 8);
    EXPECT_EQ(selection.selectionSequence[2], 16);
    for (int p = 0; p < 128; ++p)
        EXPECT_EQ(selection.selected(p), p == 8 || p == 16) << p;
    EXPECT_EQ(model.bankView.labels[8].scheme, kSelectedScheme);
    EXPECT_EQ(model.bankView.labels[4].scheme, kUnselectedScheme);
    // Set up again over the two.
    EXPECT_EQ(show.sendCount(), 2);
    EXPECT_EQ(show.sendListAt(1), 8);
    EXPECT_EQ(show.sendListAt(2), 16);
    EXPECT_EQ(show.markCount(), 0);
    EXPECT_EQ(show.sendIndex(), 0);
    EXPECT_FALSE(show.reselectEnabled());
}

TEST_F(AutoSendShow, ReselectAnsweredNoLeavesTheSelection)
{
    open({4, 8});
    act(&AutoSend::start);
    interval();
    act(&AutoSend::mark);
    t.host.expectMessage("Reselect Patches for Autosend", Answer::No);
    act(&AutoSend::reselect);
    EXPECT_EQ(model.banks.selection(kPatchBankA).selectionCount, 2);
    EXPECT_EQ(show.markCount(), 1);
    EXPECT_EQ(show.sendCount(), 2);
    EXPECT_TRUE(show.reselectEnabled());
}

TEST_F(AutoSendShow, ReselectWithoutMarksOnlyTurnsItselfOff)
{
    open({4, 8});
    act(&AutoSend::reselect);
    EXPECT_FALSE(show.reselectEnabled());
    EXPECT_EQ(model.banks.selection(kPatchBankA).selectionCount, 2);
}

}  // namespace
}  // namespace quillon
