// The sound show played to the simulated Z1: what the instrument takes in
// and the notes it is played, with their times, read back whole.
#include "autosend/AutoSend.h"
#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "midi/backends/EventPump.h"
#include "midi/backends/SimMidiSystem.h"
#include "midi/backends/SimulatedZ1.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "support/ManualTimer.h"
#include "support/TestModel.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

struct SimShow : ::testing::Test {
    QueuedEventPump pump;
    SimulatedZ1 z1{1};
    std::unique_ptr<MidiSystem> system = openSimMidiSystem(pump, options());
    ManualTimer timerMain;
    ManualTimer autoTimer;
    ManualTimer miniTimer;
    TestModel t;
    AppModel& model = t.model;
    // The show's clock: the milliseconds the timers have stood for.
    std::int64_t now = 0;

    MidiSystemOptions options()
    {
        MidiSystemOptions o;
        o.simulator = &z1;
        return o;
    }

    SimShow()
    {
        z1.setClock([this] { return now; });
        model.midi.attach(&system->output(), &system->input(), &timerMain);
        doInitMIDI(model);
        // Bank A from the instrument, as the user would fetch it.
        doSendRequest(model, 1);
        pump.runPending();
        setShowInterval(model, 3);
        setShowArpMode(model, kShowArpOn);
        setShowPatternSelect(model, 9);
    }
    ~SimShow() override { model.midi.attach(nullptr, nullptr, nullptr); }

    void tick(ManualTimer& timer)
    {
        now += timer.interval();
        ASSERT_TRUE(timer.tick());
        pump.runPending();
    }

    // The current patches the instrument took after `from`, unpacked.
    std::vector<ByteImage> patchesTaken(std::size_t from) const
    {
        std::vector<ByteImage> patches;
        for (std::size_t i = from; i < z1.received().size(); ++i) {
            const SysExMessage& message = z1.received()[i];
            if (message.size() != 666 || message[4] != 0x40)
                continue;
            SysExImage packed(message.begin() + 6, message.end());
            LoadReport report;
            patches.push_back(MIDItoDATA(kPatch, packed, report));
        }
        return patches;
    }
};

TEST_F(SimShow, TheInstrumentTakesEachPatchThenItsChordASecondLaterAndTheReleaseAtDone)
{
    ASSERT_TRUE(model.flags.loaded[kPatchBankA]);
    setShowChordSequence(model, 0);
    selectBankPatches(model, kPatchBankA, {2, 40, 99});
    AutoSend show(model, kPatchBankA, autoTimer, miniTimer);
    show.doSetup();
    const std::size_t before = z1.received().size();
    show.start();
    for (int i = 0; i < 3; ++i) {
        tick(autoTimer);
        tick(miniTimer);
    }
    show.done();
    pump.runPending();

    // Three patches with Auto Run, Latch and pattern 9, then the last again
    // as the bank has it.
    const auto patches = patchesTaken(before);
    ASSERT_EQ(patches.size(), 4u);
    const int places[] = {2, 40, 99, 99};
    for (std::size_t i = 0; i < 3; ++i) {
        const ByteImage bank = model.banks.readBankPatch(kPatchBankA, places[i]);
        EXPECT_EQ(patches[i][483], 9) << i;
        EXPECT_EQ(patches[i][484], bank[484] | 0x21) << i;
        EXPECT_TRUE(std::equal(patches[i].begin(), patches[i].begin() + 483, bank.begin())) << i;
    }
    EXPECT_EQ(patches[3], model.banks.readBankPatch(kPatchBankA, 99));

    // Each chord a second after its patch, the patches three seconds apart;
    // the notes off at Done.
    const auto& notes = z1.notes();
    ASSERT_EQ(notes.size(), 12u);
    for (std::size_t chord = 0; chord < 3; ++chord) {
        for (std::size_t v = 0; v < 3; ++v) {
            const PlayedNote& note = notes[chord * 3 + v];
            EXPECT_EQ(note.status, 0x90);
            EXPECT_EQ(note.key, (std::array<int, 3>{60, 64, 67})[v]);
            EXPECT_EQ(note.velocity, 100);
            EXPECT_EQ(note.time, 4000 + 4000 * static_cast<std::int64_t>(chord));
        }
    }
    for (std::size_t v = 0; v < 3; ++v) {
        EXPECT_EQ(notes[9 + v].status, 0x80);
        EXPECT_EQ(notes[9 + v].velocity, 40);
        EXPECT_EQ(notes[9 + v].time, 12000);
    }
    EXPECT_TRUE(z1.sounding().empty());
}

TEST_F(SimShow, ChordsBeforeTheLastAreNotReleasedByTheShow)
{
    setShowChordSequence(model, 1);
    selectBankPatches(model, kPatchBankA, {0, 1});
    AutoSend show(model, kPatchBankA, autoTimer, miniTimer);
    show.doSetup();
    show.start();
    for (int i = 0; i < 2; ++i) {
        tick(autoTimer);
        tick(miniTimer);
    }
    show.done();
    pump.runPending();
    // Chromatic: the first chord is A flat major, the second A major; only
    // the second is released.
    EXPECT_EQ(z1.sounding(), (std::vector<SoundingKey>{{1, 56}, {1, 60}, {1, 63}}));
}

}  // namespace
}  // namespace quillon
