#pragma once

#include <cstdint>

namespace quillon {

// Bits start..end of a byte (0 = least significant), moved down to bit 0.
// When end is below start the field is empty and reads 0.
int getBits(std::uint8_t byte, int start, int end);

// The byte with bits start..end replaced by the low bits of value. When end
// is below start the byte comes back unchanged.
std::uint8_t setBits(std::uint8_t byte, int start, int end, int value);

}  // namespace quillon
