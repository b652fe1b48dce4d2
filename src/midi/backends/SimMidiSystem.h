#pragma once

#include "midi/backends/MidiSystem.h"

#include <cstdint>
#include <memory>
#include <span>

namespace quillon {

class EventPump;

// The simulated Z1 in the same process, behind ports that behave as the
// real ones do: what the output plays out reaches the instrument, and what
// the instrument sends reaches the input while it is started.
std::unique_ptr<MidiSystem> openSimMidiSystem(EventPump& pump, const MidiSystemOptions& options);

// The instrument sends a message by itself, as when the user starts a dump
// on its panel.
void sendFromSimulatedZ1(MidiSystem& system, std::span<const std::uint8_t> message);

}  // namespace quillon
