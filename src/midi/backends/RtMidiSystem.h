#pragma once

#include "midi/backends/MidiSystem.h"

#include <memory>

namespace quillon {

class EventPump;

// The MIDI system of the platform through RtMidi: ALSA or JACK on Linux,
// CoreMIDI, WinMM. Throws MidiError when the layer cannot be opened or is
// not compiled into RtMidi.
std::unique_ptr<MidiSystem> openRtMidiSystem(MidiApi api, EventPump& pump, const MidiSystemOptions& options);

}  // namespace quillon
