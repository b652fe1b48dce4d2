#include "midi/TestTone.h"

#include "editors/ItemStatus.h"
#include "midi/MidiGlobal.h"
#include "midi/SendFlows.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/Timer.h"

#include <string>

namespace quillon {

namespace {

constexpr int kToneHelpContext = 115;
constexpr int kNoteOn = 144;
constexpr int kNoteOff = 128;
constexpr int kNoteOffVelocity = 40;
constexpr int kFirstTickMs = 100;
// Time for the instrument to take the patch before the note.
constexpr int kPatchSettleMs = 1000;
constexpr int kToneLengthUnitMs = 100;

void setTimer(AppModel& model, int interval, bool enabled)
{
    Timer* timer = model.midi.timerMain();
    if (timer == nullptr)
        return;
    timer->setInterval(interval);
    timer->setEnabled(enabled);
}

void setTimerInterval(AppModel& model, int interval)
{
    if (Timer* timer = model.midi.timerMain())
        timer->setInterval(interval);
}

void stopTimer(AppModel& model)
{
    if (Timer* timer = model.midi.timerMain())
        timer->setEnabled(false);
}

}  // namespace

void mnuTestTone(AppModel& model)
{
    if (!model.midi.attached())
        return;
    if (model.mode != kPatch) {
        MessageRequest box;
        box.title = "Send test tone";
        box.text = "Patch mode only";
        box.icon = MessageIcon::Information;
        model.host().showMessage(box);
        return;
    }
    clearStatusMessages(model);
    doToneStep(model);
}

void doToneStep(AppModel& model)
{
    if (!model.midi.attached())
        return;
    MidiLink& midi = model.midi;
    if (!model.flags.loaded[kPatch]) {
        showInformation(model.host(), "Test tone", "No patch loaded", kToneHelpContext);
        stopTimer(model);
        return;
    }
    ++midi.toneStep;
    if (midi.toneStep >= 5 || midi.toneStep < 1)
        midi.toneStep = 1;

    const int channel = midiChannel(model);
    const SystemSettings& settings = model.settings;
    switch (midi.toneStep) {
    case 1: setTimer(model, kFirstTickMs, true); break;
    case 2:
        clearStatusMessages(model);
        resetGlobalMIDIInput(model);
        resetGlobalMIDIOutput(model);
        if (!doSendPatch(model)) {
            // The device is gone: no note follows, and the next use starts
            // from the beginning.
            stopTimer(model);
            midi.toneStep = 0;
            break;
        }
        setTimerInterval(model, kPatchSettleMs);
        break;
    case 3:
        setTimerInterval(model, settings.toneLength * kToneLengthUnitMs);
        model.host().setStatus("Sending tone", StatusColour::Done);
        midi.doneText = "Tone has been sent";
        sendMIDIMessage(model, kNoteOn, channel, settings.tonePitch, settings.toneVelocity);
        break;
    case 4:
        model.host().setStatus("Tone has been sent", StatusColour::Done);
        model.host().setMessage("6 bytes on MIDI channel " + std::to_string(channel));
        stopTimer(model);
        sendMIDIMessage(model, kNoteOff, channel, settings.tonePitch, kNoteOffVelocity);
        break;
    default: break;
    }
}

}  // namespace quillon
