#pragma once

#include <string>
#include <vector>

namespace quillon {

class AppModel;
class MidiSystem;

// The MIDI system of the running program, for the screens that show its
// devices and set its pace (the settings dialog). Registered by whoever
// opened it; null while there is none.
void registerMidiSystem(MidiSystem* system);
MidiSystem* registeredMidiSystem();

// The devices of the registered system by number; none without a system.
std::vector<std::string> midiInputDevices();
std::vector<std::string> midiOutputDevices();

// Stores the rate and applies it to the registered system at once.
void chooseSysExRate(AppModel& model, int bytesPerSecond);

}  // namespace quillon
