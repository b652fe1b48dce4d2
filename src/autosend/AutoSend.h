#pragma once

#include "autosend/ChordTable.h"
#include "model/DataTypes.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quillon {

class AppModel;
class Timer;

// The four settings of the sound show, kept with the system settings.
inline constexpr int kShowArpOff = 0;
inline constexpr int kShowArpOn = 1;
inline constexpr int kShowArpAsPatch = 2;
inline constexpr int kLowestInterval = 3;
inline constexpr int kHighestInterval = 30;
inline constexpr int kPatternAsPatch = 20;  // the cmbPatternSelect row that keeps the patch's own pattern

int showInterval(const AppModel& model);     // seconds
int showArpMode(const AppModel& model);      // kShowArpOff, kShowArpOn or kShowArpAsPatch
int showPatternSelect(const AppModel& model);  // cmbPatternSelect row, 0 to 20
int showChordSequence(const AppModel& model);  // cmbChordSeq row, 0 to 6
void setShowInterval(AppModel& model, int seconds);
void setShowArpMode(AppModel& model, int mode);
void setShowPatternSelect(AppModel& model, int row);
void setShowChordSequence(AppModel& model, int row);

// The rows of the form's lists: cmbInterval "3" to "30", cmbChordSeq the
// seven sequences, cmbPatternSelect the five preset patterns, the fifteen
// user patterns by slot and name and "As patch".
std::vector<std::string> intervalRows();
std::vector<std::string> chordSequenceRows();
std::vector<std::string> patternSelectRows(const AppModel& model);

// The show's state: Stopped at opening, Running while AutoTimer runs,
// Paused, and Finished when the last patch has had its interval.
enum class ShowState { Stopped, Running, Paused, Finished };

// frmAutoSend without its window: plays the selected patches of a PatchBank
// to the instrument's edit buffer one after another, with a chord on its
// arpeggiator when asked, and keeps the marks that become a new selection.
// It runs on two timers: AutoTimer, one tick an interval, and miniTimer, a
// one-shot second after each patch before its chord.
class AutoSend {
public:
    // bank is 2 or 3; the timers are AutoTimer and miniTimer of the form.
    // The random source of the chord sequence "Major-minor random" is
    // seeded from the clock unless a seed is given.
    AutoSend(AppModel& model, int bank, Timer& autoTimer, Timer& miniTimer);
    ~AutoSend();
    AutoSend(const AutoSend&) = delete;
    AutoSend& operator=(const AutoSend&) = delete;

    // Tells the screen to show the state again.
    std::function<void()> onChanged;
    // Done: the screen closes the form.
    std::function<void()> onClose;
    // The seed of the next build of the chord table; none: the clock.
    std::function<std::uint32_t()> seedSource;

    // At opening, and again after Reselect.
    void doSetup();

    // The commands of the form and its keys.
    void start();     // cmdStart, ALT
    void pause();     // cmdPause, PAUSE
    void mark();      // cmdMark, CTRL
    void reselect();  // cmdReselect
    void done();      // cmdDone

    // The controls that take effect at once.
    void chooseInterval(int listIndex);  // cmbInterval: 3 + index seconds
    void chooseArpMode(int mode);        // optArp
    void choosePattern(int row);         // cmbPatternSelect
    void chooseChordSequence(int row);   // cmbChordSeq

    // The timers' ticks.
    void autoTimerTick();
    void playChord();  // miniTimer
    void stopChord();
    void sendPatch(int index, bool quiet);

    // What the form shows.
    int bank() const { return bank_; }
    int sendCount() const { return sendCount_; }
    int sendIndex() const { return sendIndex_; }
    int markCount() const { return markCount_; }
    // Element 1 to sendCount.
    int sendListAt(int element) const;
    bool markedAt(int element) const;
    const std::array<int, 3>& chordNotes() const { return chordNotes_; }
    const ChordTable& chordTable() const { return chordTable_; }
    const ByteImage& patchImage() const { return patchImage_; }
    bool autoSendActive() const { return autoSendActive_; }
    ShowState state() const;

    bool pauseEnabled() const { return pauseEnabled_; }
    bool reselectEnabled() const { return reselectEnabled_; }
    bool pausedVisible() const { return pausedVisible_; }
    bool soundShowVisible() const;

    // The texts of the labels: the patch just sent (empty before the
    // first), the first and the last of the selection, and the counts.
    std::string currentPatchText() const;
    bool currentPatchMarked() const;
    std::string startPatchText() const;
    std::string endPatchText() const;
    std::string patchText(int element) const;

private:
    void changed();
    void refreshTimerPeriod();

    AppModel& model_;
    int bank_;
    Timer& autoTimer_;
    Timer& miniTimer_;

    std::array<int, 129> sendList_{};  // element 0 unused
    int sendCount_ = 0;
    int sendIndex_ = 0;
    std::array<bool, 129> sendMarks_{};
    int markCount_ = 0;
    ChordTable chordTable_;
    std::array<int, 3> chordNotes_{};
    ByteImage patchImage_;
    bool autoSendActive_ = false;

    bool pauseEnabled_ = false;
    bool reselectEnabled_ = false;
    bool pausedVisible_ = false;
};

// The bytes of a patch as the show sends it, by the arpeggiator option. In
// byte 485 bit 0x20 is the arpeggiator's Auto Run and 0x01 its Latch; byte
// 484 is the patch's pattern. Off clears Auto Run; On sets Auto Run and
// Latch and puts the chosen pattern in unless the row is "As patch"; "As
// patch" and a quiet send leave the patch as it is.
void applyShowArpOption(ByteImage& patch, int arpMode, int patternSelect, bool quiet);

}  // namespace quillon
