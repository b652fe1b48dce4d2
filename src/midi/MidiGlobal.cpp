#include "midi/MidiGlobal.h"

#include "editors/ItemStatus.h"
#include "midi/MidiPorts.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <exception>
#include <string_view>

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

// Runs the opening of a port with every failure caught: a system without
// devices throws, a device that will not open leaves the port closed. Either
// shows the "MIDI Error" box.
template <typename Open>
bool openPort(AppModel& model, const char* direction, int device, Open open)
{
    try {
        if (open())
            return true;
        showMidiError(model, kDeviceNotOpened,
                      std::string("MIDI ") + direction + " device " + std::to_string(device) + " cannot be opened");
    } catch (const MidiError& error) {
        showMidiError(model, error.code(), error.what());
    } catch (const std::exception& error) {
        showMidiError(model, 0, error.what());
    }
    return false;
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

bool MIDIOutOpen(AppModel& model)
{
    if (!model.midi.attached())
        return false;
    MidiOutput& output = model.midi.output();
    const int device = model.settings.outputDevice;
    return openPort(model, "output", device, [&output, device] {
        if (output.state() >= kPortOpen)
            output.close();
        output.setDevice(device);
        output.open();
        return output.state() != kPortClosed;
    });
}

bool MIDIInOpen(AppModel& model)
{
    if (!model.midi.attached())
        return false;
    MidiInput& input = model.midi.input();
    const int device = model.settings.inputDevice;
    return openPort(model, "input", device, [&input, device] {
        if (input.state() >= kPortOpen) {
            input.close();
            input.setFilter(kActiveSensing, false);
            input.setFilter(kClock, false);
        }
        input.setDevice(device);
        input.open();
        if (input.state() == kPortClosed)
            return false;
        // Set again after every open, so that a device that forgets them on
        // opening still keeps sensing and clock out of the dumps.
        input.setFilter(kActiveSensing, true);
        input.setFilter(kClock, true);
        return true;
    });
}

void resetGlobalMIDIOutput(AppModel& model)
{
    if (!model.midi.attached())
        return;
    stopAndClose(model.midi.output());
    // A closed port tells of no end: what was playing is over now.
    if (sendUnderWay(model))
        endTransfer(model);
    releaseHourglass(model);
}

void resetGlobalMIDIInput(AppModel& model)
{
    if (!model.midi.attached())
        return;
    MidiInput& input = model.midi.input();
    // Whatever the state: the largest dump must fit in one piece.
    input.setBufferSize(kInputBufferBytes);
    stopAndClose(input);
    if (model.midi.transfer.active && !model.midi.transfer.sending)
        endTransfer(model);
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
    const bool cut = sendUnderWay(model);
    resetGlobalMIDIOutput(model);
    if (cut)
        reportNotSent(model, "");
}

void holdHourglassUntilDone(AppModel& model)
{
    if (model.midi.hourglass)
        return;
    model.midi.hourglass = true;
    model.host().setBusy(true);
}

void releaseHourglass(AppModel& model)
{
    if (!model.midi.hourglass)
        return;
    model.midi.hourglass = false;
    model.host().setBusy(false);
}

void beginTransfer(AppModel& model, bool sending, std::size_t expected)
{
    model.midi.transfer = MidiTransfer{true, sending, 0, expected};
    model.changed(kTransferChanged);
}

void endTransfer(AppModel& model)
{
    if (!model.midi.transfer.active)
        return;
    model.midi.transfer = MidiTransfer{};
    model.changed(kTransferChanged);
}

bool sendUnderWay(const AppModel& model) { return model.midi.transfer.active && model.midi.transfer.sending; }

std::string notSentText(const std::string& doneText)
{
    static constexpr std::string_view kSent = " has been sent";
    if (doneText.ends_with(kSent))
        return doneText.substr(0, doneText.size() - kSent.size()) + " has not been sent";
    return doneText.empty() ? "Not sent" : doneText + " (not sent)";
}

void reportNotSent(AppModel& model, const std::string& reason)
{
    model.host().setStatus(notSentText(model.midi.doneText), StatusColour::Error);
    model.host().setMessage(reason);
    model.midi.doneText.clear();
    endTransfer(model);
    releaseHourglass(model);
}

void onOutputDone(AppModel& model)
{
    if (!model.midi.attached())
        return;
    // The port stays open; the next send closes and reopens it.
    model.midi.output().reset();
    model.host().setStatus(model.midi.doneText, StatusColour::Done);
    if (sendUnderWay(model))
        endTransfer(model);
    releaseHourglass(model);
}

void onOutputProgress(AppModel& model, std::size_t bytes)
{
    MidiTransfer& transfer = model.midi.transfer;
    if (!sendUnderWay(model))
        return;
    transfer.done = std::min(transfer.expected, transfer.done + bytes);
    model.changed(kTransferChanged);
}

void onInputProgress(AppModel& model, std::size_t bytesSoFar)
{
    MidiTransfer& transfer = model.midi.transfer;
    if (!transfer.active || transfer.sending)
        return;
    transfer.done = bytesSoFar;
    model.changed(kTransferChanged);
}

void onOutputError(AppModel& model, int code, const std::string& text)
{
    if (code != kHarmlessNotice && code != kHarmlessNoticeToo && sendUnderWay(model) && model.midi.attached()) {
        // What is left of the dump cannot arrive whole: it is stopped, and
        // the status line must not say later that it was sent.
        model.midi.output().reset();
        reportNotSent(model, text);
        return;
    }
    onMidiError(model, code, text);
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
