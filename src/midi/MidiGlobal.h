#pragma once

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

void MIDIOutOpen(AppModel& model);
void MIDIInOpen(AppModel& model);
void resetGlobalMIDIOutput(AppModel& model);
void resetGlobalMIDIInput(AppModel& model);
void resetGlobalMIDIAll(AppModel& model);

// A short message of status a + b - 1: one of a and b is a channel, the
// other a status.
void sendMIDIMessage(AppModel& model, int a, int b, int c, int d);

// The Reset items of the MIDI In and MIDI Out menus.
void mnuResetInput(AppModel& model);
void mnuResetOutput(AppModel& model);

// The hourglass while a bank or a dump of several kinds plays out; the
// output's done event takes it back. A send that cuts another short keeps
// the one hourglass, so that the pointer is normal again after the last.
void holdHourglassUntilDone(AppModel& model);

// The events of the ports, as MidiLink hands them on.
void onOutputDone(AppModel& model);
void onMidiError(AppModel& model, int code, const std::string& text);

// The instrument's global channel, 1 to 16, and the third byte of every
// message to it (47 + channel).
int midiChannel(const AppModel& model);
int channelByte(const AppModel& model);

}  // namespace quillon
