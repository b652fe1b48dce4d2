#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace quillon {

// A whole SysEx message as it travels or stands in a .syx file: F0 ... F7.
using SysExMessage = std::vector<std::uint8_t>;

// The frame every message of the Korg Z1 shares:
// F0, 42 (Korg), 30 + channel - 1, 46 (Z1), function code, sub-header,
// packed data, F7.
inline constexpr std::uint8_t kSysExStart = 0xF0;
inline constexpr std::uint8_t kKorgId = 0x42;
inline constexpr std::uint8_t kChannelBase = 0x30;
inline constexpr std::uint8_t kZ1ModelId = 0x46;
inline constexpr std::uint8_t kSysExEnd = 0xF7;

// Bytes up to and including the function code.
inline constexpr int kCommonHeaderBytes = 5;
// Zero-based places of the channel byte, function code and first sub-header
// byte in a message.
inline constexpr int kChannelIndex = 2;
inline constexpr int kFunctionIndex = 4;
inline constexpr int kSubHeaderIndex = 5;

// The instrument's answers to a dump it was sent: taken, or refused.
inline constexpr std::uint8_t kFunctionDataLoadCompleted = 0x23;
inline constexpr std::uint8_t kFunctionDataLoadError = 0x24;

// Function codes of the dumps.
inline constexpr std::uint8_t kFunctionCurrentPatch = 0x40;
inline constexpr std::uint8_t kFunctionCurrentMulti = 0x49;
inline constexpr std::uint8_t kFunctionPatchBank = 0x4C;
inline constexpr std::uint8_t kFunctionMultiBank = 0x4D;
inline constexpr std::uint8_t kFunctionAllData = 0x50;
inline constexpr std::uint8_t kFunctionGlobalOrMidi = 0x51;
inline constexpr std::uint8_t kFunctionArpBank = 0x69;
inline constexpr std::uint8_t kFunctionCurrentPattern = 0x6B;

// Function codes of the requests.
inline constexpr std::uint8_t kRequestCurrentPatch = 0x10;
inline constexpr std::uint8_t kRequestPatchBank = 0x1C;
inline constexpr std::uint8_t kRequestCurrentMulti = 0x19;
inline constexpr std::uint8_t kRequestMultiBank = 0x1D;
inline constexpr std::uint8_t kRequestCurrentPattern = 0x36;
inline constexpr std::uint8_t kRequestPatternBank = 0x34;

// Sub-header byte that names bank A or bank B in bank dumps and requests.
inline constexpr std::uint8_t kBankASelect = 0x10;
inline constexpr std::uint8_t kBankBSelect = 0x11;

// The channel byte of a message on MIDI channel 1 to 16; a channel outside
// that range is brought to the nearest end so the byte stays in 30..3F.
constexpr std::uint8_t channelByte(int channel)
{
    return static_cast<std::uint8_t>(kChannelBase + std::clamp(channel, 1, 16) - 1);
}

// The MIDI channel (1 to 16) that a channel byte 30..3F stands for.
constexpr int channelOfByte(std::uint8_t byte)
{
    return byte - (kChannelBase - 1);
}

}  // namespace quillon
