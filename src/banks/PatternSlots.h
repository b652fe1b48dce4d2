#pragma once

#include <string>

namespace quillon {

// The ArpBank holds five preset patterns (positions 0 to 4) and fifteen user
// patterns in three groups of five.
inline constexpr int kPresetPatterns = 5;
inline constexpr int kUserPatternsPerGroup = 5;

// The name of a user pattern's slot: positions 5 to 9 are "U1-1" to "U1-5",
// 10 to 14 "U2-1" to "U2-5", 15 to 19 "U3-1" to "U3-5"; empty for the presets
// and any other number.
std::string patternSlotName(int position);

}  // namespace quillon
