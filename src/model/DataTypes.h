#pragma once

#include <cstdint>
#include <vector>

namespace quillon {

// The unpacked data of a patch, multiset, pattern or bank: eight bits a byte.
// The instrument numbers its bytes from 1; byte n is held at index n - 1.
using ByteImage = std::vector<std::uint8_t>;

// One signed value per parameter. Parameters are numbered from 1, so entry p
// is the value of parameter p and entry 0 is unused.
using ParamValues = std::vector<std::int16_t>;

// The packed 7-bit form of a ByteImage as carried in a SysEx message,
// usually followed by the message's closing 0xF7.
using SysExImage = std::vector<std::uint8_t>;

}  // namespace quillon
