#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace quillon {

// What a message holds, by the numbers the program uses for files and dumps
// alike. 0 means "not a message of the Z1 at all".
enum SysExType : int {
    kSysExNone = 0,
    kSysExAllData = 1,
    kSysExAllProgram = 2,
    kSysExPatchBank = 3,
    kSysExPatch = 4,
    kSysExAllMulti = 5,
    kSysExMultiBank = 6,
    kSysExSingleMulti = 7,
    kSysExArpBank = 8,
    kSysExSinglePattern = 9,
    kSysExGlobalOrMidi = 10,
    kSysExGlobalAndMidi = 11,
    kSysExNonZ1 = 12,
};

// The type of a message from its first five bytes: 0 unless they read
// F0 42 3n 46; then the type of its function code, or 12 for a function code
// the program does not know. The function code alone cannot tell a bank from
// All Program (both 0x4C give 2) nor a multi bank from All Multi (0x4D gives
// 5); the message length does that. Fewer than five bytes give 0.
int classifySysEx(std::span<const std::uint8_t> firstBytes);

// The name by which the program speaks of what a file or dump holds
// ("all Z1", "patch", ...); empty for a number outside 1 to 12.
std::string_view sysExTypeLabel(int type);

}  // namespace quillon
