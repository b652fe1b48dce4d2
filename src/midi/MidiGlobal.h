#pragma once

#include <cstddef>
#include <string>

namespace quillon {

class AppModel;

// The routines that open, reset and feed the two MIDI ports. The devices
// and the channel come from the settings: MidiOutDevice is the output
// device, MidiInDevice the input device, MidiChannel the output channel
// (the instrument's global channel).

// Once at the end of start-up: the devices are chosen and the input told to
// keep out active sensing and clock; no port is opened. A failure shows the
// "MIDI Error" box and returns false: the program then ends.
bool doInitMIDI(AppModel& model);

// The lines of the "MIDI Error" box for an error number and description.
std::string midiErrorText(int number, const std::string& description);

// The "MIDI Error" box itself: MIDI cannot work, and the program ends after
// it.
void showMidiError(AppModel& model, int number, const std::string& description);

// A device chosen in the settings: stored as MidiInDevice or MidiOutDevice,
// and opened at once.
void chooseMidiInputDevice(AppModel& model, int device);
void chooseMidiOutputDevice(AppModel& model, int device);

// Open the output or the input on the device of the settings. A device that
// is gone (none at all, or the chosen one will not open: unplugged, or its
// program ended) shows the "MIDI Error" box and gives false; the caller then
// ends its command. The next open asks the system afresh, so a device that
// is back, or another one chosen, works without a restart.
bool MIDIOutOpen(AppModel& model);
bool MIDIInOpen(AppModel& model);
void resetGlobalMIDIOutput(AppModel& model);
void resetGlobalMIDIInput(AppModel& model);
void resetGlobalMIDIAll(AppModel& model);

// A short message of status a + b - 1: one of a and b is a channel, the
// other a status.
void sendMIDIMessage(AppModel& model, int a, int b, int c, int d);

// The Reset items of the MIDI In and MIDI Out menus. Reset of the output
// while a dump goes out says that the item was not sent.
void mnuResetInput(AppModel& model);
void mnuResetOutput(AppModel& model);

// The hourglass while a bank or a dump of several kinds plays out; the
// output's done event takes it back. A send that cuts another short keeps
// the one hourglass, so that the pointer is normal again after the last.
void holdHourglassUntilDone(AppModel& model);

// The hourglass of a long send taken back.
void releaseHourglass(AppModel& model);

// The dump under way, for the progress bar: begun with the bytes expected
// (0 when not known), ended when it has gone out or come in, or was cut.
void beginTransfer(AppModel& model, bool sending, std::size_t expected);
void endTransfer(AppModel& model);
// A dump is going out and its end has not been heard yet.
bool sendUnderWay(const AppModel& model);

// "Bank A has been sent" becomes "Bank A has not been sent".
std::string notSentText(const std::string& doneText);
// A send that did not reach its end: the status line says the item was not
// sent, with the reason in the message line, and the hourglass goes back.
void reportNotSent(AppModel& model, const std::string& reason);

// The events of the ports, as MidiLink hands them on. An error of the output
// while a dump is going out stops it and says that the item was not sent.
void onOutputDone(AppModel& model);
void onOutputProgress(AppModel& model, std::size_t bytes);
void onInputProgress(AppModel& model, std::size_t bytesSoFar);
void onOutputError(AppModel& model, int code, const std::string& text);
void onMidiError(AppModel& model, int code, const std::string& text);

// The instrument's global channel, 1 to 16, and the third byte of every
// message to it (47 + channel).
int midiChannel(const AppModel& model);
int channelByte(const AppModel& model);

}  // namespace quillon
