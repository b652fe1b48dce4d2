#include "autosend/AutoSend.h"

#include "banks/BankView.h"
#include "banks/PatternSlots.h"
#include "midi/MidiGlobal.h"
#include "midi/SendFlows.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/NumberFormat.h"
#include "shell/AppModel.h"
#include "shell/Timer.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr int kNoteOn = 144;
constexpr int kNoteOff = 128;
constexpr int kChordVelocity = 100;
constexpr int kReleaseVelocity = 40;
// The chord follows its patch after a second, time for the instrument to
// take the sound.
constexpr int kChordDelayMs = 1000;
constexpr int kMsPerSecond = 1000;

// Byte numbers (from 1) in the patch image.
constexpr std::size_t kArpPatternByte = 484;
constexpr std::size_t kArpSwitchByte = 485;
constexpr std::uint8_t kAutoRun = 0x20;
constexpr std::uint8_t kAutoRunAndLatch = 0x21;

// The four numbers of the settings: interval, arpeggiator option, pattern
// row, chord sequence.
enum SettingSlot : std::size_t { kIntervalSlot, kArpSlot, kPatternSlot, kChordSlot };

int setting(const AppModel& model, SettingSlot slot) { return model.settings.soundShow[slot]; }

void setSetting(AppModel& model, SettingSlot slot, int value) { model.settings.soundShow[slot] = value; }

}  // namespace

int showInterval(const AppModel& model) { return setting(model, kIntervalSlot); }
int showArpMode(const AppModel& model) { return setting(model, kArpSlot); }
int showPatternSelect(const AppModel& model) { return setting(model, kPatternSlot); }
int showChordSequence(const AppModel& model) { return setting(model, kChordSlot); }
void setShowInterval(AppModel& model, int seconds) { setSetting(model, kIntervalSlot, seconds); }
void setShowArpMode(AppModel& model, int mode) { setSetting(model, kArpSlot, mode); }
void setShowPatternSelect(AppModel& model, int row) { setSetting(model, kPatternSlot, row); }
void setShowChordSequence(AppModel& model, int row) { setSetting(model, kChordSlot, row); }

std::vector<std::string> intervalRows()
{
    std::vector<std::string> rows;
    for (int seconds = kLowestInterval; seconds <= kHighestInterval; ++seconds)
        rows.push_back(std::to_string(seconds));
    return rows;
}

std::vector<std::string> chordSequenceRows()
{
    return {"Fixed", "Chromatic", "Major 4ths", "Major 5ths", "Major-minor 4ths", "Major-minor relative",
            "Major-minor random"};
}

std::vector<std::string> patternSelectRows(const AppModel& model)
{
    std::vector<std::string> rows{"UP", "DOWN", "ALTERNATE1", "ALTERNATE2", "RANDOM"};
    const bool loaded = model.flags.loaded[kArpBank];
    for (int position = kPresetPatterns; position < kPatternsPerBank; ++position)
        rows.push_back(patternSlotName(position) + " " +
                       (loaded ? model.banks.bankPatternName(position) : std::string("User pattern")));
    rows.push_back("As patch");
    return rows;
}

void applyShowArpOption(ByteImage& patch, int arpMode, int patternSelect, bool quiet)
{
    if (patch.size() < kArpSwitchByte)
        return;
    std::uint8_t& arp = patch[kArpSwitchByte - 1];
    if (arpMode == kShowArpOff) {
        arp = static_cast<std::uint8_t>(arp & ~kAutoRun);
    } else if (arpMode == kShowArpOn && !quiet) {
        arp = static_cast<std::uint8_t>(arp | kAutoRunAndLatch);
        if (patternSelect < kPatternAsPatch)
            patch[kArpPatternByte - 1] = static_cast<std::uint8_t>(patternSelect);
    }
}

AutoSend::AutoSend(AppModel& model, int bank, Timer& autoTimer, Timer& miniTimer)
    : model_(model),
      bank_(bank == kPatchBankB ? kPatchBankB : kPatchBankA),
      autoTimer_(autoTimer),
      miniTimer_(miniTimer)
{
    autoTimer_.setTick([this] { autoTimerTick(); });
    miniTimer_.setTick([this] { playChord(); });
}

AutoSend::~AutoSend()
{
    autoTimer_.setEnabled(false);
    miniTimer_.setEnabled(false);
    autoTimer_.setTick({});
    miniTimer_.setTick({});
}

void AutoSend::changed()
{
    if (onChanged)
        onChanged();
}

void AutoSend::doSetup()
{
    const BankSelection& selection = model_.banks.selection(bank_);
    sendCount_ = std::clamp<int>(selection.selectionCount, 0, kPatchesPerBank);
    sendList_.fill(0);
    for (int i = 1; i <= sendCount_; ++i)
        sendList_[static_cast<std::size_t>(i)] =
            std::clamp<int>(selection.selectionSequence[static_cast<std::size_t>(i)], 0, kPatchesPerBank - 1);
    sendMarks_.fill(false);
    sendIndex_ = 0;
    markCount_ = 0;
    // The lists hold no more than these; a settings file may.
    setShowInterval(model_, std::clamp(showInterval(model_), kLowestInterval, kHighestInterval));
    setShowArpMode(model_, std::clamp(showArpMode(model_), kShowArpOff, kShowArpAsPatch));
    setShowPatternSelect(model_, std::clamp(showPatternSelect(model_), 0, kPatternAsPatch));
    setShowChordSequence(model_, std::clamp(showChordSequence(model_), 0, kChordSequences - 1));
    refreshTimerPeriod();
    reselectEnabled_ = false;
    pausedVisible_ = false;
    chordTable_ = buildChordTable(seedSource ? seedSource() : clockSeed());
    changed();
}

void AutoSend::refreshTimerPeriod() { autoTimer_.setInterval(showInterval(model_) * kMsPerSecond); }

void AutoSend::start()
{
    autoSendActive_ = true;
    sendIndex_ = 0;
    pausedVisible_ = false;
    pauseEnabled_ = true;
    // The first patch goes at the first tick, one interval from now.
    refreshTimerPeriod();
    autoTimer_.setEnabled(true);
    changed();
}

void AutoSend::autoTimerTick()
{
    ++sendIndex_;
    if (sendIndex_ <= sendCount_) {
        sendPatch(sendIndex_, false);
        return;
    }
    autoTimer_.setEnabled(false);
    sendIndex_ = sendCount_;
    stopChord();
    changed();
}

void AutoSend::sendPatch(int index, bool quiet)
{
    // Before the first patch there is none to send again.
    if (index < 1 || index > sendCount_) {
        changed();
        return;
    }
    patchImage_ = model_.banks.readBankPatch(bank_, sendList_[static_cast<std::size_t>(index)]);
    applyShowArpOption(patchImage_, showArpMode(model_), showPatternSelect(model_), quiet);
    // The instrument's edit buffer takes the sound; the bank stays as it is.
    sendWholeMessage(model_, currentPatchDump(midiChannel(model_), DATAtoMIDI(kPatch, patchImage_)));
    if (!quiet && showArpMode(model_) == kShowArpOn) {
        miniTimer_.setInterval(kChordDelayMs);
        miniTimer_.setEnabled(true);
    }
    changed();
}

void AutoSend::playChord()
{
    miniTimer_.setEnabled(false);
    const int channel = midiChannel(model_);
    chordNotes_ = chordTable_.chord(showChordSequence(model_), chordStep(sendIndex_));
    // The chord before is not released: the arpeggiator's latch holds on.
    for (int note : chordNotes_)
        sendMIDIMessage(model_, kNoteOn, channel, note, kChordVelocity);
}

void AutoSend::stopChord()
{
    if (chordNotes_[0] < 1 || showArpMode(model_) != kShowArpOn)
        return;
    // The patch again, without touching its arpeggiator, then the notes off.
    sendPatch(sendIndex_, true);
    const int channel = midiChannel(model_);
    for (int note : chordNotes_)
        sendMIDIMessage(model_, kNoteOff, channel, note, kReleaseVelocity);
}

void AutoSend::pause()
{
    if (autoTimer_.enabled()) {
        autoTimer_.setEnabled(false);
        pausedVisible_ = true;
    } else {
        sendPatch(sendIndex_, false);
        autoTimer_.setEnabled(true);
        pausedVisible_ = false;
    }
    stopChord();
    changed();
}

void AutoSend::mark()
{
    if (sendIndex_ < 1 || sendIndex_ > sendCount_)
        return;
    bool& marked = sendMarks_[static_cast<std::size_t>(sendIndex_)];
    if (marked)
        return;
    marked = true;
    ++markCount_;
    if (markCount_ >= 1)
        reselectEnabled_ = true;
    changed();
}

void AutoSend::reselect()
{
    if (markCount_ < 1) {
        reselectEnabled_ = false;
        changed();
        return;
    }
    MessageRequest box;
    box.title = "Reselect Patches for Autosend";
    box.text = "Replace current bank selection with marked patches only?";
    box.icon = MessageIcon::Question;
    box.buttons = MessageButtons::YesNo;
    if (model_.host().showMessage(box) != Answer::Yes)
        return;
    BankSelection& selection = model_.banks.selection(bank_);
    selection.selectionFlags.fill(0);
    for (int i = 1; i <= sendCount_; ++i)
        if (sendMarks_[static_cast<std::size_t>(i)])
            selection.selectionFlags[static_cast<std::size_t>(sendList_[static_cast<std::size_t>(i)])] = -1;
    // The bank view shows the show's bank: the sequence is made of its flags.
    model_.bankTarget = bank_;
    bankSelectSequence(model_);
    fraBankLabelsSetUp(model_, bank_, 2);
    // The show now runs over the marked patches only.
    doSetup();
}

void AutoSend::done()
{
    autoTimer_.setEnabled(false);
    stopChord();
    autoSendActive_ = false;
    changed();
    if (onClose)
        onClose();
}

void AutoSend::chooseInterval(int listIndex)
{
    setShowInterval(model_, std::clamp(listIndex + kLowestInterval, kLowestInterval, kHighestInterval));
    refreshTimerPeriod();
    changed();
}

void AutoSend::chooseArpMode(int mode)
{
    setShowArpMode(model_, std::clamp(mode, kShowArpOff, kShowArpAsPatch));
    changed();
}

void AutoSend::choosePattern(int row)
{
    setShowPatternSelect(model_, std::clamp(row, 0, kPatternAsPatch));
    changed();
}

void AutoSend::chooseChordSequence(int row)
{
    setShowChordSequence(model_, std::clamp(row, 0, kChordSequences - 1));
    changed();
}

int AutoSend::sendListAt(int element) const
{
    return element >= 1 && element <= sendCount_ ? sendList_[static_cast<std::size_t>(element)] : -1;
}

bool AutoSend::markedAt(int element) const
{
    return element >= 1 && element <= sendCount_ && sendMarks_[static_cast<std::size_t>(element)];
}

ShowState AutoSend::state() const
{
    if (autoTimer_.enabled())
        return ShowState::Running;
    if (pausedVisible_)
        return ShowState::Paused;
    if (autoSendActive_ && sendCount_ > 0 && sendIndex_ == sendCount_)
        return ShowState::Finished;
    return ShowState::Stopped;
}

bool AutoSend::soundShowVisible() const { return showArpMode(model_) == kShowArpOn; }

std::string AutoSend::patchText(int element) const
{
    const int place = sendListAt(element);
    if (place < 0)
        return {};
    return std::string(bank_ == kPatchBankB ? "B" : "A") + formatNumber(place, "000") + " " +
           trimmedRight(model_.banks.bankPatchName(bank_, place));
}

std::string AutoSend::currentPatchText() const { return patchText(sendIndex_); }
bool AutoSend::currentPatchMarked() const { return markedAt(sendIndex_); }
std::string AutoSend::startPatchText() const { return patchText(1); }
std::string AutoSend::endPatchText() const { return patchText(sendCount_); }

}  // namespace quillon
