#pragma once

#include <span>
#include <string>
#include <vector>

namespace quillon {

class AppModel;
class MidiSystem;
class SettingsStore;

// The MIDI system of the running program, for the screens that show its
// devices and set its pace (the settings dialog). Registered by whoever
// opened it; null while there is none.
void registerMidiSystem(MidiSystem* system);
MidiSystem* registeredMidiSystem();

// The devices of the registered system by number; none without a system.
std::vector<std::string> midiInputDevices();
std::vector<std::string> midiOutputDevices();

// A device chosen in the settings: stored as MidiInDevice or MidiOutDevice,
// and opened at once when the ports are there.
void chooseMidiInputDevice(AppModel& model, int device);
void chooseMidiOutputDevice(AppModel& model, int device);

// The pace of SysEx output in bytes a second, from the cable's speed up: a
// USB interface or a software synthesizer can take more, and a bank then
// goes faster. Kept in the per-user store, section "MIDI", key "SysExRate".
std::span<const int> sysExRateChoices();
std::string sysExRateCaption(int bytesPerSecond);
// The stored rate; the cable's speed when none or a strange one is stored.
int storedSysExRate(const SettingsStore& store);
// Stores the rate and applies it to the registered system at once.
void chooseSysExRate(AppModel& model, int bytesPerSecond);

}  // namespace quillon
