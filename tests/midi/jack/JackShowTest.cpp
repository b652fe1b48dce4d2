// The sound show through RtMidi over a JACK server, with z1sim as the
// instrument: the patches it takes and the notes it is played, read back
// from what z1sim saved and reported.

#include "FixtureDumps.h"
#include "JackRig.h"

#include "autosend/AutoSend.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "shell/AppModel.h"
#include "sysex/SysExPacking.h"

#include <map>
#include <optional>

namespace quillon {
namespace {

constexpr int kPanelTimedNotes = 126;

// A note of z1sim's timed report.
struct HeardNote {
    bool on;
    int channel;
    int key;
    int velocity;
    std::int64_t time;
};

std::vector<HeardNote> parseTimedReport(const SysExMessage& report)
{
    std::vector<HeardNote> notes;
    for (std::size_t i = 3; i + 8 < report.size(); i += 8) {
        std::int64_t time = 0;
        for (std::size_t b = 0; b < 4; ++b)
            time |= static_cast<std::int64_t>(report[i + 4 + b]) << (7 * b);
        notes.push_back({report[i] == 1, report[i + 1], report[i + 2], report[i + 3], time});
    }
    return notes;
}

ByteImage unpackedPatch(const SysExMessage& dump)
{
    SysExImage packed(dump.begin() + 6, dump.end());
    LoadReport report;
    return MIDItoDATA(kPatch, packed, report);
}

struct JackShow : JackRig {
    ManualTimer autoTimer;
    ManualTimer miniTimer;

    JackShow()
    {
        // Bank A as the fixture holds it, as if it had been opened.
        SysExMessage bank = fixtureDumps(1)[1];
        SysExImage packed(bank.begin() + 8, bank.end());
        LoadReport report;
        model.banks.image(kPatchBankA) = MIDItoDATA(kPatchBankA, packed, report);
        model.flags.loaded[kPatchBankA] = true;
    }

    // The show leaves its last patch in z1sim's edit buffer: put the
    // fixture's current patch back for the tests that come after.
    ~JackShow() override
    {
        panel.heard.clear();
        panel.send(fixtureDumps(1)[0]);
        EXPECT_TRUE(waitForAcknowledgement());
    }

    // Every note z1sim has been played so far, as its timed report gives
    // them; nothing when no whole report came.
    std::optional<std::vector<HeardNote>> askHeardNotes()
    {
        panel.heard.clear();
        panel.press(kPanelTimedNotes);
        if (!runUntil(pump, [&] {
                return !panel.heard.empty() && panel.heard.back().size() > 2 && panel.heard.back()[1] == 0x7D &&
                       panel.heard.back()[2] == 0x02;
            }))
            return std::nullopt;
        const SysExMessage& report = panel.heard.back();
        if (report.back() != 0xF7 || (report.size() - 4) % 8 != 0)
            return std::nullopt;
        return parseTimedReport(report);
    }

    // Every note z1sim has been played, once there are at least `minimum`
    // and the last of them is the one given.
    std::vector<HeardNote> notesEndingWith(std::size_t minimum, int key, bool on)
    {
        std::vector<HeardNote> notes;
        for (int asked = 0; asked < 50; ++asked) {
            if (auto heard = askHeardNotes())
                notes = std::move(*heard);
            if (notes.size() >= minimum && !notes.empty() && notes.back().key == key && notes.back().on == on)
                break;
        }
        return notes;
    }

    // How many notes z1sim has been played, once there are at least `count`.
    std::size_t notesHeardReaching(std::size_t count)
    {
        std::size_t heard = 0;
        for (int asked = 0; asked < 50; ++asked) {
            if (auto notes = askHeardNotes())
                heard = notes->size();
            else
                continue;
            if (heard >= count)
                break;
        }
        return heard;
    }
};

TEST_F(JackShow, ThreePatchesWithTheArpeggiatorOnThenDoneLeaveNothingSounding)
{
    setShowInterval(model, 3);
    setShowArpMode(model, kShowArpOn);
    setShowPatternSelect(model, 12);
    setShowChordSequence(model, 0);
    const std::vector<int> places{3, 50, 127};
    selectBankPatches(model, kPatchBankA, places);
    AutoSend show(model, kPatchBankA, autoTimer, miniTimer);
    show.doSetup();
    const int before = savedCount("current-patch");

    show.start();
    // The show plays a chord a second after its patch and the next patch
    // seconds later, each send long done before the next; here the timers
    // tick at once, so each chord is waited for before the next patch,
    // whose send starts the port afresh.
    const std::size_t heardBefore = notesHeardReaching(0);
    for (int i = 0; i < 3; ++i) {
        panel.heard.clear();
        ASSERT_TRUE(autoTimer.tick());
        ASSERT_TRUE(waitForAcknowledgement()) << "patch " << i;
        ASSERT_TRUE(miniTimer.tick());
        const auto chordHeard = heardBefore + 3 * static_cast<std::size_t>(i + 1);
        ASSERT_GE(notesHeardReaching(chordHeard), chordHeard) << "chord " << i;
    }
    panel.heard.clear();
    show.done();
    ASSERT_TRUE(waitForAcknowledgement());

    // Three patches with Auto Run, Latch and pattern 12; then the last
    // again, as the bank holds it, before its chord is released.
    ASSERT_EQ(savedCount("current-patch"), before + 4);
    const auto dumps = lastSaved("current-patch", 4);
    ASSERT_EQ(dumps.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        const SysExMessage& dump = dumps[i];
        ASSERT_EQ(dump.size(), 666u);
        const ByteImage sent = unpackedPatch(dump);
        const ByteImage bank = model.banks.readBankPatch(kPatchBankA, places[std::min<std::size_t>(i, 2)]);
        if (i < 3) {
            EXPECT_EQ(sent[483], 12) << i;
            EXPECT_EQ(sent[484], bank[484] | 0x21) << i;
            EXPECT_TRUE(std::equal(sent.begin(), sent.begin() + 483, bank.begin())) << i;
        } else {
            EXPECT_EQ(sent, bank);
        }
    }

    // The chord of each patch, then the notes off at Done.
    const auto notes = notesEndingWith(12, 67, false);
    ASSERT_GE(notes.size(), 12u);
    const std::vector<HeardNote> show12(notes.end() - 12, notes.end());
    const int keys[] = {60, 64, 67};
    for (std::size_t n = 0; n < 12; ++n) {
        const HeardNote& note = show12[n];
        EXPECT_EQ(note.on, n < 9) << n;
        EXPECT_EQ(note.channel, 0) << n;
        EXPECT_EQ(note.key, keys[n % 3]) << n;
        EXPECT_EQ(note.velocity, n < 9 ? 100 : 40) << n;
        if (n > 0) {
            EXPECT_GE(note.time, show12[n - 1].time) << n;
        }
    }
    // Only this show's notes count: other tests play the same z1sim.
    std::map<std::pair<int, int>, bool> held;
    for (const HeardNote& note : show12)
        held[{note.channel, note.key}] = note.on && note.velocity > 0;
    for (const auto& [key, on] : held)
        EXPECT_FALSE(on) << "channel " << key.first + 1 << " key " << key.second << " still sounds";
}

}  // namespace
}  // namespace quillon
