#pragma once

#include "model/DataTypes.h"
#include "model/LoadReport.h"

#include <cstdint>
#include <span>

namespace quillon {

// Unpacks the packed data of a kind into its ByteImage.
//
// The packed data comes in groups of a first byte holding bit 7 of the (up
// to) seven data bytes behind it. Kinds 1 to 8 read as many packed bytes as
// their data has (659 for a patch, 84261 for a bank, ...); the buffer may hold
// the closing F7 behind them, which is not data, and a shorter buffer is
// filled up with zeros first. Kind 9, the miscellaneous dumps, reads the whole
// buffer but its last byte, the closing F7.
//
// The high bits are put into the packed buffer itself: each data byte named
// by a set bit of its first byte gets 128 added in place. A set bit that
// names a byte behind the data, or a data byte that already has bit 7, goes
// into the report and changes nothing. So a second call on the same buffer
// reports every high bit again. Bit 7 of a first byte means nothing and is
// ignored. Any other kind gives an empty image and leaves the buffer alone.
ByteImage MIDItoDATA(int kind, SysExImage& packed, LoadReport& report);

// Packs the ByteImage of kind 1 to 8 (576, 73728, 208, 256, 3328 or 5120
// bytes) into its packed data, without the closing F7 that the sender or
// saver adds. An image shorter than its kind counts as filled up with zeros,
// a longer one is read as far as its kind goes; the image is left as it is.
// Any other kind gives an empty result.
SysExImage DATAtoMIDI(int kind, const ByteImage& image);

// Packs bytes of any length: n bytes give n + ceil(n / 7).
SysExImage packBytes(std::span<const std::uint8_t> image);

}  // namespace quillon
