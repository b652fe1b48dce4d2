#include "midi/MidiGlobal.h"

#include "editors/ItemStatus.h"
#include "midi/MidiPorts.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <exception>

namespace quillon {

namespace {

constexpr int kActiveSensing = 254;
constexpr int kClock = 248;
constexpr int kMidiErrorHelpContext = 310;
// Codes of the component that report nothing the user must know of.
constexpr int kHarmlessNotice = 0;
constexpr int kHarmlessNoticeToo = 8;

// A port that is playing out or listening is stopped before it is closed.
template <typename Port>
void stopAndClose(Port& port)
{
    if (port.state() == kPortClosed)
        return;
    if (port.state() != kPortOpen)
        port.reset();
    port.close();
}

}  // namespace

std::string midiErrorText(int number, const std::string& description)
{
    static constexpr const char* kLines[] = {
        "MIDI does not appear to be available or correctly set up on ",
        "your computer. Please check Start/Settings/Control Panel.",
        "If MIDI is installed but does not appear in Control Panel ",
        "it may be best to shut down and restart your computer",
        "",
    };
    std::string text;
    for (const char* line : kLines) {
        text += line;
        text += '\n';
    }
    text += "[Error " + std::to_string(number) + " " + description + "]";
    return text;
}

bool doInitMIDI(AppModel& model)
{
    MidiLink& midi = model.midi;
    if (!midi.attached())
        return true;
    int number = 0;
    std::string description;
    try {
        midi.output().setDevice(model.settings.outputDevice);
        midi.input().setDevice(model.settings.inputDevice);
        midi.input().setFilter(kActiveSensing, true);
        midi.input().setFilter(kClock, true);
        return true;
    } catch (const MidiError& error) {
        number = error.code();
        description = error.what();
    } catch (const std::exception& error) {
        description = error.what();
    }
    showMidiError(model, number, description);
    return false;
}

void showMidiError(AppModel& model, int number, const std::string& description)
{
    MessageRequest box;
    box.title = "MIDI Error";
    box.text = midiErrorText(number, description);
    box.icon = MessageIcon::Exclamation;
    box.buttons = MessageButtons::Ok;
    box.help = true;
    box.helpContext = kMidiErrorHelpContext;
    model.host().showMessage(box);
}

void chooseMidiInputDevice(AppModel& model, int device)
{
    model.settings.inputDevice = device;
    model.changed(kSettingsChanged);
    MIDIInOpen(model);
}

void chooseMidiOutputDevice(AppModel& model, int device)
{
    model.settings.outputDevice = device;
    model.changed(kSettingsChanged);
    MIDIOutOpen(model);
}

void MIDIOutOpen(AppModel& model)
{
    if (!model.midi.attached())
        return;
    MidiOutput& output = model.midi.output();
    if (output.state() >= kPortOpen)
        output.close();
    output.setDevice(model.settings.outputDevice);
    output.open();
}

void MIDIInOpen(AppModel& model)
{
    if (!model.midi.attached())
        return;
    MidiInput& input = model.midi.input();
    if (input.state() >= kPortOpen) {
        input.close();
        input.setFilter(kActiveSensing, false);
        input.setFilter(kClock, false);
    }
    input.setDevice(model.settings.inputDevice);
    input.open();
    // Set again after every open, so that a device that forgets them on
    // opening still keeps sensing and clock out of the dumps.
    input.setFilter(kActiveSensing, true);
    input.setFilter(kClock, true);
}

void resetGlobalMIDIOutput(AppModel& model)
{
    if (!model.midi.attached())
        return;
    stopAndClose(model.midi.output());
}

void resetGlobalMIDIInput(AppModel& model)
{
    if (!model.midi.attached())
        return;
    MidiInput& input = model.midi.input();
    // Whatever the state: the largest dump must fit in one piece.
    input.setBufferSize(kInputBufferBytes);
    stopAndClose(input);
}

void resetGlobalMIDIAll(AppModel& model)
{
    resetGlobalMIDIInput(model);
    resetGlobalMIDIOutput(model);
}

void sendMIDIMessage(AppModel& model, int a, int b, int c, int d)
{
    if (!model.midi.attached())
        return;
    MidiOutput& output = model.midi.output();
    output.setMessageType(a + b - 1);
    output.setData1(c);
    output.setData2(d);
    output.sendShort();
}

void mnuResetInput(AppModel& model)
{
    clearStatusMessages(model);
    resetGlobalMIDIInput(model);
}

void mnuResetOutput(AppModel& model)
{
    clearStatusMessages(model);
    resetGlobalMIDIOutput(model);
}

void holdHourglassUntilDone(AppModel& model)
{
    if (model.midi.hourglass)
        return;
    model.midi.hourglass = true;
    model.host().setBusy(true);
}

void onOutputDone(AppModel& model)
{
    if (!model.midi.attached())
        return;
    // The port stays open; the next send closes and reopens it.
    model.midi.output().reset();
    model.host().setStatus(model.midi.doneText, StatusColour::Done);
    if (model.midi.hourglass) {
        model.midi.hourglass = false;
        model.host().setBusy(false);
    }
}

void onMidiError(AppModel& model, int code, const std::string& text)
{
    if (code == kHarmlessNotice || code == kHarmlessNoticeToo)
        return;
    model.host().setStatus(text, StatusColour::Error);
}

int midiChannel(const AppModel& model) { return std::clamp(model.settings.outputChannel, 1, 16); }

int channelByte(const AppModel& model) { return 47 + midiChannel(model); }

}  // namespace quillon
