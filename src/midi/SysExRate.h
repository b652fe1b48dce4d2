#pragma once

#include <span>
#include <string>

namespace quillon {

class SettingsStore;

// The speed of a MIDI cable in bytes a second: the default pace of SysEx
// output, so that no interface overruns the instrument.
inline constexpr int kCableSysExRate = 3125;

// The paces the user may choose, from the cable's speed up: a USB interface
// or a software synthesizer can take more, and a bank then goes faster.
std::span<const int> sysExRateChoices();
std::string sysExRateCaption(int bytesPerSecond);

// The pace is kept in the per-user store, section "MIDI", key "SysExRate".
// The stored one is the cable's speed when none or a strange one is stored.
int storedSysExRate(const SettingsStore& store);
void storeSysExRate(SettingsStore& store, int bytesPerSecond);

}  // namespace quillon
